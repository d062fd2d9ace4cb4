// Module table of JAZWFBIN: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfbin_rows[] = {
    row("$BINARY", 1, 32767, 8, 0, 0, 0, zfmcbin),
    row("$HEX", 1, 32767, 2, 0, 0, 0, zfmchex),
    row("$OCTAL", 1, 32767, 3, 0, 0, 0, zfmcoct),
    row("BINARY", 1, 64, 8, 0, 31, 0, zfmbin),
    row("HEX", 1, 16, 8, 0, 0, 0, zfmhex),
    row("IB", 1, 8, 4, 0, 10, 0, zfmib),
    row("IBR", 1, 8, 4, 0, 10, 0, zfmibr),
    row("OCTAL", 1, 24, 3, 0, 31, 0, zfmoct),
    row("PD", 1, 16, 1, 0, 31, 0, zfmpd),
    row("PIB", 1, 8, 1, 0, 10, 0, zfmpib),
    row("PIBR", 1, 8, 1, 0, 10, 0, zfmpibr),
    row("PK", 1, 16, 1, 0, 10, 0, zfmpk),
    row("RB", 2, 8, 4, 0, 10, 0, zfmrb),
    row("VAXRB", 2, 8, 8, 0, 31, 0, zfmvaxrb),
    row("ZD", 1, 32, 1, 0, 31, 0, zfmzd),
};

}  // namespace xfmt::catalog
