// Module table of JAZWIDTE: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwidte_rows[] = {
    row("@DATE", 7, 32, 7, 0, 31, 0, zifmdate),
    row("@DATETIME", 6, 32, 6, 0, 31, 0, zifmdttm),
    row("@DDMMYY", 6, 32, 6, 0, 31, 0, zifmdmy),
    row("@JULIAN", 5, 32, 5, 0, 31, 0, zifmjul),
    row("@MDYAMPM", 6, 32, 6, 0, 31, 0, zifmdyam),
    row("@MMDDYY", 6, 32, 6, 0, 31, 0, zifmmdy),
    row("@MONYY", 5, 32, 5, 0, 31, 0, zifmmony),
    row("@NENGO", 7, 32, 10, 0, 31, 0, zifmneng),
    row("@TIME", 7, 32, 10, 0, 31, 0, zifmtime),
    row("@YYMMDD", 6, 32, 6, 0, 31, 0, zifmymd),
    row("@YYQ", 4, 32, 4, 0, 31, 0, zifmyyq),
};

}  // namespace xfmt::catalog
