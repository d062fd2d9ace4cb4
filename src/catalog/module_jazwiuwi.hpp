// Module table of JAZWIUWI: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwiuwi_rows[] = {
    row("@$ASCII", 1, 32767, 1, 0, 0, 0, zifmascii),  // zifmascii
    row("@$BYVAL", 2, 8, 2, 0, 0, 0, zifmbyval),
    row("@$CSTR", 1, 32767, 1, 0, 0, 0, zifmcstr),
    row("@$EBCDIC", 1, 32767, 1, 0, 0, 0, zifmebcdic),  // zifmebcdic
    row("@$REVERJ", 1, 32767, 1, 0, 0, 0, zifmreverj),  // zifmreverj
    row("@$REVERS", 1, 32767, 1, 0, 0, 0, zifmrevers),  // zifmrevers
    row("@$UPCASE", 1, 32767, 8, 0, 0, 0, zifmupcase),  // zifmupcase
    row("@AFRDFDE", 5, 32, 5, 0, 0, 0, zifmafrde),  // zifmafrde
    row("@AFRDFDT", 7, 40, 19, 0, 39, 0, zifmafrdt),  // zifmafrdt
    row("@AFRDFMY", 5, 32, 5, 0, 0, 0, zifmafrmy),  // zifmafrmy
    row("@CATDFDE", 5, 32, 5, 0, 0, 0, zifmcatde),  // zifmcatde
    row("@CATDFDT", 7, 40, 19, 0, 39, 0, zifmcatdt),  // zifmcatdt
    row("@CATDFMY", 5, 32, 5, 0, 0, 0, zifmcatmy),  // zifmcatmy
    row("@CRODFDE", 5, 32, 5, 0, 0, 0, zifmcrode),  // zifmcrode
    row("@CRODFDT", 7, 40, 19, 0, 39, 0, zifmcrodt),  // zifmcrodt
    row("@CRODFMY", 5, 32, 5, 0, 0, 0, zifmcromy),  // zifmcromy
    row("@CSYDFDE", 5, 32, 5, 0, 0, 0, zifmcsyde),  // zifmcsyde
    row("@CSYDFDT", 7, 40, 19, 0, 39, 0, zifmcsydt),  // zifmcsydt
    row("@CSYDFMY", 5, 32, 5, 0, 0, 0, zifmcsymy),  // zifmcsymy
    row("@DANDFDE", 5, 32, 5, 0, 0, 0, zifmdande),  // zifmdande
    row("@DANDFDT", 7, 40, 19, 0, 39, 0, zifmdandt),  // zifmdandt
    row("@DANDFMY", 5, 32, 5, 0, 0, 0, zifmdanmy),  // zifmdanmy
    row("@DESDFDE", 5, 32, 5, 0, 0, 0, zifmdesde),  // zifmdesde
    row("@DESDFDT", 7, 40, 19, 0, 39, 0, zifmdesdt),  // zifmdesdt
    row("@DESDFMY", 5, 32, 5, 0, 0, 0, zifmdesmy),  // zifmdesmy
    row("@DEUDFDE", 5, 32, 5, 0, 0, 0, zifmdeude),  // zifmdeude
    row("@DEUDFDT", 7, 40, 19, 0, 39, 0, zifmdeudt),  // zifmdeudt
    row("@DEUDFMY", 5, 32, 5, 0, 0, 0, zifmdeumy),  // zifmdeumy
    row("@ENGDFDE", 5, 32, 5, 0, 0, 0, zifmengde),  // zifmengde
    row("@ENGDFDT", 7, 40, 19, 0, 39, 0, zifmengdt),  // zifmengdt
    row("@ENGDFMY", 5, 32, 5, 0, 0, 0, zifmengmy),  // zifmengmy
    row("@ESPDFDE", 5, 32, 5, 0, 0, 0, zifmespde),  // zifmespde
    row("@ESPDFDT", 7, 40, 19, 0, 39, 0, zifmespdt),  // zifmespdt
    row("@ESPDFMY", 5, 32, 5, 0, 0, 0, zifmespmy),  // zifmespmy
    row("@EURDFDE", 5, 32, 5, 0, 0, 0, zifmeurde),  // zifmeurde
    row("@EURDFDT", 7, 40, 19, 0, 39, 0, zifmeurdt),  // zifmeurdt
    row("@EURDFMY", 5, 32, 5, 0, 0, 0, zifmeurmy),  // zifmeurmy
    row("@FINDFDE", 5, 32, 5, 0, 0, 0, zifmfinde),  // zifmfinde
    row("@FINDFDT", 7, 40, 19, 0, 39, 0, zifmfindt),  // zifmfindt
    row("@FINDFMY", 5, 32, 5, 0, 0, 0, zifmfinmy),  // zifmfinmy
    row("@FLOAT", 4, 4, 4, 0, 31, 0, zifmfloat),
    row("@FRADFDE", 5, 32, 5, 0, 0, 0, zifmfrade),  // zifmfrade
    row("@FRADFDT", 7, 40, 19, 0, 39, 0, zifmfradt),  // zifmfradt
    row("@FRADFMY", 5, 32, 5, 0, 0, 0, zifmframy),  // zifmframy
    row("@FRSDFDE", 5, 32, 5, 0, 0, 0, zifmfrsde),  // zifmfrsde
    row("@FRSDFDT", 7, 40, 19, 0, 39, 0, zifmfrsdt),  // zifmfrsdt
    row("@FRSDFMY", 5, 32, 5, 0, 0, 0, zifmfrsmy),  // zifmfrsmy
    row("@HUNDFDE", 5, 32, 5, 0, 0, 0, zifmhunde),  // zifmhunde
    row("@HUNDFDT", 7, 40, 19, 0, 39, 0, zifmhundt),  // zifmhundt
    row("@HUNDFMY", 5, 32, 5, 0, 0, 0, zifmhunmy),  // zifmhunmy
    row("@ITADFDE", 5, 32, 5, 0, 0, 0, zifmitade),  // zifmitade
    row("@ITADFDT", 7, 40, 19, 0, 39, 0, zifmitadt),  // zifmitadt
    row("@ITADFMY", 5, 32, 5, 0, 0, 0, zifmitamy),  // zifmitamy
    row("@MACDFDE", 5, 32, 5, 0, 0, 0, zifmmacde),  // zifmmacde
    row("@MACDFDT", 7, 40, 19, 0, 39, 0, zifmmacdt),  // zifmmacdt
    row("@MACDFMY", 5, 32, 5, 0, 0, 0, zifmmacmy),  // zifmmacmy
    row("@MINGUO", 6, 10, 6, 0, 0, 0, zifmmingo),  // zifmmingo
    row("@MRB", 2, 8, 4, 0, 10, 0, zifmmrb),
    row("@NLDDFDE", 5, 32, 5, 0, 0, 0, zifmnldde),  // zifmnldde
    row("@NLDDFDT", 7, 40, 19, 0, 39, 0, zifmnlddt),  // zifmnlddt
    row("@NLDDFMY", 5, 32, 5, 0, 0, 0, zifmnldmy),  // zifmnldmy
    row("@NORDFDE", 5, 32, 5, 0, 0, 0, zifmnorde),  // zifmnorde
    row("@NORDFDT", 7, 40, 19, 0, 39, 0, zifmnordt),  // zifmnordt
    row("@NORDFMY", 5, 32, 5, 0, 0, 0, zifmnormy),  // zifmnormy
    row("@NUMX", 1, 32, 12, 0, 31, 0, zifmnumx),  // zifmnumx
    row("@PCPIB", 1, 8, 4, 0, 10, 0, zifmpcpib),
    row("@PDJULG", 4, 4, 4, 0, 0, 0, zifmpdjg),  // zifmpdjg
    row("@PDJULI", 4, 4, 4, 0, 0, 0, zifmpdji),  // zifmpdji
    row("@POLDFDE", 5, 32, 5, 0, 0, 0, zifmpolde),  // zifmpolde
    row("@POLDFDT", 7, 40, 19, 0, 39, 0, zifmpoldt),  // zifmpoldt
    row("@POLDFMY", 5, 32, 5, 0, 0, 0, zifmpolmy),  // zifmpolmy
    row("@PTGDFDE", 5, 32, 5, 0, 0, 0, zifmptgde),  // zifmptgde
    row("@PTGDFDT", 7, 40, 19, 0, 39, 0, zifmptgdt),  // zifmptgdt
    row("@PTGDFMY", 5, 32, 5, 0, 0, 0, zifmptgmy),  // zifmptgmy
    row("@RUSDFDE", 5, 32, 5, 0, 0, 0, zifmrusde),  // zifmrusde
    row("@RUSDFDT", 7, 40, 19, 0, 39, 0, zifmrusdt),  // zifmrusdt
    row("@RUSDFMY", 5, 32, 5, 0, 0, 0, zifmrusmy),  // zifmrusmy
    row("@S370FF", 1, 32, 12, 0, 31, 0, zifms370f),
    row("@S370FHEX", 1, 16, 8, 0, 0, 0, zifms370hex),
    row("@S370FIB", 1, 8, 4, 0, 10, 0, zifms370ib),
    row("@S370FIBU", 1, 8, 4, 0, 10, 0, zifms370ibu),
    row("@S370FPD", 1, 16, 1, 0, 10, 0, zifms370pd),
    row("@S370FPDU", 1, 16, 1, 0, 10, 0, zifms370pdu),
    row("@S370FPIB", 1, 8, 4, 0, 10, 0, zifms370pib),
    row("@S370FRB", 2, 8, 4, 0, 10, 0, zifms370rb),
    row("@S370FZD", 1, 32, 8, 0, 10, 0, zifms370zd),
    row("@S370FZDB", 1, 32, 8, 0, 10, 0, zifms370zdb),
    row("@S370FZDL", 1, 32, 8, 0, 10, 0, zifms370zdl),
    row("@S370FZDS", 2, 32, 8, 0, 10, 0, zifms370zds),
    row("@S370FZDT", 2, 32, 8, 0, 10, 0, zifms370zdt),
    row("@S370FZDU", 1, 32, 8, 0, 10, 0, zifms370zdu),
    row("@SIZEKMG", 2, 33, 9, 0, 31, 0, zifmsizekmg),  // zifmsizekmg
    row("@SLODFDE", 5, 32, 5, 0, 0, 0, zifmslode),  // zifmslode
    row("@SLODFDT", 7, 40, 19, 0, 39, 0, zifmslodt),  // zifmslodt
    row("@SLODFMY", 5, 32, 5, 0, 0, 0, zifmslomy),  // zifmslomy
    row("@SVEDFDE", 5, 32, 5, 0, 0, 0, zifmsvede),  // zifmsvede
    row("@SVEDFDT", 7, 40, 19, 0, 39, 0, zifmsvedt),  // zifmsvedt
    row("@SVEDFMY", 5, 32, 5, 0, 0, 0, zifmsvemy),  // zifmsvemy
    row("@VAXRB", 2, 8, 8, 0, 31, 0, zifmvaxrb),
    row("@XYYMMDD", 6, 12, 8, 0, 0, 0, zifmxymd),  // zifmxymd
    row("@YEN", 1, 32, 1, 0, 31, 0, zifmyen),  // zifmyen
    row("@YMDDTTM", 13, 40, 19, 0, 39, 0, zifmymdt),  // zifmymdt
    row("@YYMMN", 4, 32, 6, 0, 0, 0, zifmyymn),  // zifmyymn
    row("@YYQZ", 4, 6, 4, 0, 0, 0, zifmyyqz),  // zifmyyqz
};

}  // namespace xfmt::catalog
