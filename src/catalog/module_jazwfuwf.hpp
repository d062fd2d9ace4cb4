// Module table of JAZWFUWF: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfuwf_rows[] = {
    row("$BYVAL", 2, 8, 2, 0, 0, 0, zfmbyval),
    row("$CSTR", 1, 32767, 1, 0, 0, 0, zfmcstr),
    row("PVALUE", 3, 32, 6, 1, 30, 4, zfmpval),  // zfmpval
    row("DTDATE", 5, 9, 7, 0, 0, 0, zfmdtdat),  // zfmdtdat
    row("DTMONYY", 5, 7, 5, 0, 0, 0, zfmdtmy),  // zfmdtmy
    row("DTYEAR", 2, 4, 4, 0, 0, 0, zfmdtyr),  // zfmdtyr
    row("DTYYQC", 4, 6, 4, 0, 0, 0, zfmdtyqc),  // zfmdtyqc
    row("IEEER", 2, 8, 8, 0, 31, 0, zfmieeer),
    row("LOGPROB", 4, 32, 5, 0, 0, 0, zfmlogp),  // zfmlogp
    row("PCPIB", 1, 8, 4, 0, 10, 0, zfmpcpib),
    row("PIBR", 1, 8, 8, 0, 31, 0, nullptr),
    row("XYYMMDD", 6, 12, 8, 0, 0, 0, zfmxymd),  // zfmxymd
    row("YYQZ", 4, 6, 4, 0, 0, 0, zfmyyqz),  // zfmyyqz
    row("$EBCDIC", 1, 32767, 1, 0, 0, 0, zfmebcdic),  // zfmebcdic
    row("S370FIB", 1, 8, 4, 0, 10, 0, zfms370ib),
    row("S370FPD", 1, 16, 1, 0, 10, 0, zfms370pd),
    row("S370FPDU", 1, 16, 1, 0, 10, 0, zfms370pdu),
    row("S370FRB", 2, 8, 4, 0, 10, 0, zfms370rb),
    row("S370FPIB", 1, 8, 4, 0, 10, 0, zfms370pib),
    row("S370FIBU", 1, 8, 4, 0, 10, 0, zfms370ibu),
    row("S370FZD", 1, 32, 8, 0, 10, 0, zfms370zd),
    row("S370FZDU", 1, 32, 8, 0, 10, 0, zfms370zdu),
    row("S370FZDL", 1, 32, 8, 0, 10, 0, zfms370zdl),
    row("S370FZDS", 2, 32, 8, 0, 10, 0, zfms370zds),
    row("S370FZDT", 2, 32, 8, 0, 10, 0, zfms370zdt),
    row("S370FHEX", 1, 16, 8, 0, 0, 0, zfms370hex),
    row("S370FF", 1, 32, 12, 0, 31, 0, zfms370f),
    row("IEEE", 2, 8, 8, 0, 31, 0, zfmieee),
    row("NUMX", 1, 32, 12, 0, 31, 0, zfmnumx),  // zfmnumx
    row("$REVERS", 1, 32767, 1, 0, 0, 0, zfmrevers),  // zfmrevers
    row("$REVERJ", 1, 32767, 1, 0, 0, 0, zfmreverj),  // zfmreverj
    row("XPORTINT", 1, 8, 4, 0, 0, 0, zfmxportint),
    row("$XPORTCH", 1, 200, 1, 0, 0, 0, zfmxportch),
    row("XPORTFLT", 2, 8, 8, 0, 10, 0, zfmxportflt),
    row("$ASCII", 1, 32767, 1, 0, 0, 0, zfmascii),  // zfmascii
    row("FLOAT", 4, 4, 4, 0, 31, 0, zfmfloat),
    row("MINGUO", 1, 10, 8, 0, 0, 0, zfmmingo),  // zfmmingo
    row("MRB", 2, 8, 4, 0, 10, 0, zfmmrb),
    row("$UPCASE", 1, 32767, 8, 0, 0, 0, zfmupcase),  // zfmupcase
    row("YEN", 1, 32, 1, 0, 31, 0, zfmyen),  // zfmyen
};

}  // namespace xfmt::catalog
