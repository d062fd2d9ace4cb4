// Module table of JAZWIMSC: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwimsc_rows[] = {
    row("@$CHAR", 1, 32767, 1, 0, 0, 0, zifmc),  // zifmc
    row("@$CHARZB", 1, 32767, 1, 0, 0, 0, zifmzbc),  // zifmzbc
    row("@$F", 1, 32767, 1, 0, 0, 0, zifmc),  // zifmc
    row("@$QUOTE", 1, 32767, 8, 0, 0, 0, zifmcq),  // zifmcq
    row("@BZ", 1, 32, 1, 0, 31, 0, zifmbz),  // zifmbz
    row("@COMMA", 1, 32, 1, 0, 31, 0, zifmcma),  // zifmcma
    row("@COMMAX", 1, 32, 1, 0, 31, 0, zifmcmx),  // zifmcmx
    row("@DOLLAR", 1, 32, 1, 0, 31, 0, zifmcma),  // zifmcma
    row("@DOLLARX", 1, 32, 1, 0, 31, 0, zifmcmx),  // zifmcmx
    row("@E", 1, 32, 1, 0, 31, 0, wzifmn),  // wzifmn
    row("@F", 1, 32, 1, 0, 31, 0, wzifmn),  // wzifmn
    row("@NEGPAREN", 3, 32, 6, 0, 31, 0, zifmcma),  // zifmcma
    row("@PERCENT", 1, 32, 6, 0, 31, 0, zifmpct),  // zifmpct
};

}  // namespace xfmt::catalog
