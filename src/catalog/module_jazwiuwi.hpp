// Module table of JAZWIUWI: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwiuwi_rows[] = {
    row("@$ASCII", 1, 32767, 1, 0, 0, 0, zifmascii),  // zifmascii
    row("@$BYVAL", 2, 8, 2, 0, 0, 0, nullptr),
    row("@$CSTR", 1, 32767, 1, 0, 0, 0, nullptr),
    row("@$EBCDIC", 1, 32767, 1, 0, 0, 0, zifmebcdic),  // zifmebcdic
    row("@$REVERJ", 1, 32767, 1, 0, 0, 0, zifmreverj),  // zifmreverj
    row("@$REVERS", 1, 32767, 1, 0, 0, 0, zifmrevers),  // zifmrevers
    row("@$UPCASE", 1, 32767, 8, 0, 0, 0, zifmupcase),  // zifmupcase
    row("@AFRDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@AFRDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@AFRDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@CATDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@CATDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@CATDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@CRODFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@CRODFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@CRODFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@CSYDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@CSYDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@CSYDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@DANDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@DANDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@DANDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@DESDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@DESDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@DESDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@DEUDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@DEUDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@DEUDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@ENGDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@ENGDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@ENGDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@ESPDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@ESPDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@ESPDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@EURDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@EURDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@EURDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@FINDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@FINDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@FINDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@FLOAT", 4, 4, 4, 0, 31, 0, nullptr),
    row("@FRADFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@FRADFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@FRADFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@FRSDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@FRSDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@FRSDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@HUNDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@HUNDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@HUNDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@ITADFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@ITADFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@ITADFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@MACDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@MACDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@MACDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@MINGUO", 6, 10, 6, 0, 0, 0, zifmmingo),  // zifmmingo
    row("@MRB", 2, 8, 4, 0, 10, 0, nullptr),
    row("@NLDDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@NLDDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@NLDDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@NORDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@NORDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@NORDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@NUMX", 1, 32, 12, 0, 31, 0, zifmnumx),  // zifmnumx
    row("@PCPIB", 1, 8, 4, 0, 10, 0, nullptr),
    row("@PDJULG", 4, 4, 4, 0, 0, 0, zifmpdjg),  // zifmpdjg
    row("@PDJULI", 4, 4, 4, 0, 0, 0, zifmpdji),  // zifmpdji
    row("@POLDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@POLDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@POLDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@PTGDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@PTGDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@PTGDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@RUSDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@RUSDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@RUSDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@S370FF", 1, 32, 12, 0, 31, 0, nullptr),
    row("@S370FHEX", 1, 16, 8, 0, 0, 0, nullptr),
    row("@S370FIB", 1, 8, 4, 0, 10, 0, nullptr),
    row("@S370FIBU", 1, 8, 4, 0, 10, 0, nullptr),
    row("@S370FPD", 1, 16, 1, 0, 10, 0, nullptr),
    row("@S370FPDU", 1, 16, 1, 0, 10, 0, nullptr),
    row("@S370FPIB", 1, 8, 4, 0, 10, 0, nullptr),
    row("@S370FRB", 2, 8, 4, 0, 10, 0, nullptr),
    row("@S370FZD", 1, 32, 8, 0, 10, 0, nullptr),
    row("@S370FZDB", 1, 32, 8, 0, 10, 0, nullptr),
    row("@S370FZDL", 1, 32, 8, 0, 10, 0, nullptr),
    row("@S370FZDS", 2, 32, 8, 0, 10, 0, nullptr),
    row("@S370FZDT", 2, 32, 8, 0, 10, 0, nullptr),
    row("@S370FZDU", 1, 32, 8, 0, 10, 0, nullptr),
    row("@SIZEKMG", 2, 33, 9, 0, 31, 0, zifmsizekmg),  // zifmsizekmg
    row("@SLODFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@SLODFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@SLODFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@SVEDFDE", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national date informat
    row("@SVEDFDT", 7, 40, 19, 0, 39, 0, nullptr),  // no routine: national datetime informat
    row("@SVEDFMY", 5, 32, 5, 0, 0, 0, nullptr),  // no routine: national month-year informat
    row("@VAXRB", 2, 8, 8, 0, 31, 0, nullptr),
    row("@XYYMMDD", 6, 12, 8, 0, 0, 0, zifmxymd),  // zifmxymd
    row("@YEN", 1, 32, 1, 0, 31, 0, zifmyen),  // zifmyen
    row("@YMDDTTM", 13, 40, 19, 0, 39, 0, zifmymdt),  // zifmymdt
    row("@YYMMN", 4, 32, 6, 0, 0, 0, zifmyymn),  // zifmyymn
    row("@YYQZ", 4, 6, 4, 0, 0, 0, zifmyyqz),  // zifmyyqz
};

}  // namespace xfmt::catalog
