// Module table of JAZWFTME: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwftme_rows[] = {
    row("DATEAMPM", 7, 40, 19, 0, 39, 0, zfmdtmm),  // zfmdtmm
    row("DATETIME", 7, 40, 16, 0, 39, 0, zfmdttm),  // zfmdttm
    row("DTWKDATX", 3, 37, 29, 0, 0, 0, zfmdtwk),  // zfmdtwk
    row("HHMM", 2, 20, 5, 0, 19, 0, zfmhhmm),  // zfmhhmm
    row("HOUR", 2, 20, 2, 0, 19, 0, zfmhour),  // zfmhour
    row("MMSS", 2, 20, 5, 0, 19, 0, zfmmmss),  // zfmmmss
    row("MDYAMPM", 8, 40, 19, 0, 39, 0, zfmdyam),  // zfmdyam
    row("TIME", 2, 20, 8, 0, 19, 0, zfmtime),  // zfmtime
    row("TIMEAMPM", 2, 20, 11, 0, 19, 0, zfmtimm),  // zfmtimm
    row("TOD", 2, 20, 8, 0, 19, 0, zfmtod),  // zfmtod
};

}  // namespace xfmt::catalog
