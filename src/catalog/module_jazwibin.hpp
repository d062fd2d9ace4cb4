// Module table of JAZWIBIN: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwibin_rows[] = {
    row("@$BINARY", 1, 32767, 8, 0, 0, 0, zifmcbin),
    row("@$CB", 1, 32767, 1, 0, 0, 0, zifmccb),
    row("@$HEX", 1, 32767, 2, 0, 0, 0, zifmchex),
    row("@$OCTAL", 1, 32767, 3, 0, 0, 0, zifmcoct),
    row("@$PHEX", 1, 32767, 2, 0, 0, 0, zifmcphex),
    row("@BINARY", 1, 64, 8, 0, 31, 0, zifmbin),
    row("@BITS", 1, 64, 1, 0, 63, 0, zifmbits),
    row("@CB", 1, 32, 1, 0, 31, 0, zifmcb),
    row("@HEX", 1, 16, 8, 0, 0, 0, zifmhex),
    row("@IB", 1, 8, 4, 0, 10, 0, zifmib),
    row("@IBR", 1, 8, 4, 0, 10, 0, zifmibr),
    row("@IEEE", 3, 8, 4, 0, 10, 0, zifmieee),
    row("@IEEER", 3, 8, 4, 0, 10, 0, zifmieeer),
    row("@MSEC", 8, 8, 8, 0, 0, 0, zifmmsec),
    row("@OCTAL", 1, 24, 3, 0, 31, 0, zifmoct),
    row("@PD", 1, 16, 1, 0, 31, 0, zifmpd),
    row("@PDTIME", 4, 4, 4, 0, 0, 0, zifmpdtime),
    row("@PIB", 1, 8, 1, 0, 10, 0, zifmpib),
    row("@PIBR", 1, 8, 1, 0, 10, 0, zifmpibr),
    row("@PK", 1, 16, 1, 0, 10, 0, zifmpk),
    row("@PUNCH", 0, 0, 0, 1, 12, 0, zifmpunch),
    row("@RB", 2, 8, 4, 0, 10, 0, zifmrb),
    row("@RMFDUR", 4, 4, 4, 0, 0, 0, zifmrmfdur),
    row("@RMFSTAMP", 8, 8, 8, 0, 0, 0, zifmrmfstamp),
    row("@ROW", 0, 12, 0, 0, 25, 0, zifmrow),
    row("@SHRSTAMP", 8, 8, 8, 0, 0, 0, zifmshrstamp),
    row("@SMFSTAMP", 8, 8, 8, 0, 0, 0, zifmsmfstamp),
    row("@TODSTAMP", 1, 8, 8, 0, 0, 0, zifmtodstamp),
    row("@TU", 4, 4, 4, 0, 0, 0, zifmtu),
    row("@ZD", 1, 32, 1, 0, 31, 0, zifmzd),
    row("@ZDB", 1, 32, 1, 0, 31, 0, zifmzdb),
    row("@ZDV", 1, 32, 1, 0, 31, 0, zifmzdv),
};

}  // namespace xfmt::catalog
