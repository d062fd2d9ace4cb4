// Module table of JAZWFNLS: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfnls_rows[] = {
    row("NLBEST", 1, 32, 12, 0, 0, 0, nlbest, 1),
    row("NLD", 1, 32, 12, 0, 16, 3, nld, 1),
    row("NLDATE", 10, 200, 20, 0, 0, 0, nldate, 1),
    row("NLDATEL", 2, 200, 18, 0, 0, 0, nldatel, 1),
    row("NLDATEM", 2, 200, 14, 0, 0, 0, nldatem, 1),
    row("NLDATEMD", 6, 200, 16, 0, 0, 0, nldatemd, 1),
    row("NLDATEMDL", 5, 200, 12, 0, 0, 0, nldatemdl, 1),
    row("NLDATEMDM", 5, 200, 9, 0, 0, 0, nldatemdm, 1),
    row("NLDATEMDS", 5, 200, 5, 0, 0, 0, nldatemds, 1),
    row("NLDATEMN", 4, 200, 9, 0, 0, 0, nldatemn, 1),
    row("NLDATES", 2, 200, 8, 0, 0, 0, nldates, 1),
    row("NLDATEW", 10, 200, 29, 0, 0, 0, nldatew, 1),
    row("NLDATEWN", 4, 200, 9, 0, 0, 0, nldatewn, 1),
    row("NLDATEYM", 6, 200, 16, 0, 0, 0, nldateym, 1),
    row("NLDATEYML", 5, 200, 14, 0, 0, 0, nldateyml, 1),
    row("NLDATEYMM", 5, 200, 11, 0, 0, 0, nldateymm, 1),
    row("NLDATEYMS", 5, 200, 7, 0, 0, 0, nldateyms, 1),
    row("NLDATEYQ", 4, 200, 16, 0, 0, 0, nldateyq, 1),
    row("NLDATEYQL", 4, 200, 18, 0, 0, 0, nldateyql, 1),
    row("NLDATEYQM", 4, 200, 7, 0, 0, 0, nldateyqm, 1),
    row("NLDATEYQS", 4, 200, 6, 0, 0, 0, nldateyqs, 1),
    row("NLDATEYR", 2, 200, 16, 0, 0, 0, nldateyr, 1),
    row("NLDATEYW", 5, 200, 16, 0, 0, 0, nldateyw, 1),
    row("NLDATM", 10, 200, 30, 0, 3, 0, nldatm, 1),
    row("NLDATMAP", 16, 200, 32, 0, 3, 0, nldatmap, 1),
    row("NLDATMDT", 10, 200, 18, 0, 0, 0, nldatmdt, 1),
    row("NLDATML", 19, 200, 30, 0, 3, 0, nldatml, 1),
    row("NLDATMM", 19, 200, 24, 0, 3, 0, nldatmm, 1),
    row("NLDATMMD", 6, 200, 16, 0, 0, 0, nldatmmd, 1),
    row("NLDATMMDL", 5, 200, 12, 0, 0, 0, nldatmmdl, 1),
    row("NLDATMMDM", 5, 200, 9, 0, 0, 0, nldatmmdm, 1),
    row("NLDATMMDS", 5, 200, 5, 0, 0, 0, nldatmmds, 1),
    row("NLDATMMN", 4, 200, 9, 0, 0, 0, nldatmmn, 1),
    row("NLDATMS", 19, 200, 19, 0, 3, 0, nldatms, 1),
    row("NLDATMTM", 16, 200, 16, 0, 3, 0, nldatmtm, 1),
    row("NLDATMTZ", 16, 200, 32, 0, 3, 0, nldatmtz, 1),
    row("NLDATMW", 16, 200, 41, 0, 3, 0, nldatmw, 1),
    row("NLDATMWN", 4, 200, 9, 0, 0, 0, nldatmwn, 1),
    row("NLDATMWZ", 16, 200, 40, 0, 3, 0, nldatmwz, 1),
    row("NLDATMYM", 6, 200, 16, 0, 0, 0, nldatmym, 1),
    row("NLDATMYML", 5, 200, 14, 0, 0, 0, nldatmyml, 1),
    row("NLDATMYMM", 5, 200, 11, 0, 0, 0, nldatmymm, 1),
    row("NLDATMYMS", 5, 200, 7, 0, 0, 0, nldatmyms, 1),
    row("NLDATMYQ", 4, 200, 16, 0, 0, 0, nldatmyq, 1),
    row("NLDATMYQL", 4, 200, 18, 0, 0, 0, nldatmyql, 1),
    row("NLDATMYQM", 4, 200, 7, 0, 0, 0, nldatmyqm, 1),
    row("NLDATMYQS", 4, 200, 6, 0, 0, 0, nldatmyqs, 1),
    row("NLDATMYR", 2, 200, 16, 0, 0, 0, nldatmyr, 1),
    row("NLDATMYW", 5, 200, 16, 0, 0, 0, nldatmyw, 1),
    row("NLDATMZ", 16, 200, 40, 0, 3, 0, nldatmz, 1),
    row("NLMNY", 1, 32, 9, 0, 9, 0, nlmny, 1),
    row("NLMNYI", 1, 32, 9, 0, 9, 0, nlmnyi, 1),
    row("NLNUM", 1, 32, 6, 0, 9, 0, nlnum, 1),
    row("NLNUMI", 1, 32, 6, 0, 9, 0, nlnumi, 1),
    row("NLPCT", 1, 32, 6, 0, 9, 0, nlpct, 1),
    row("NLPCTI", 1, 32, 6, 0, 9, 0, nlpcti, 1),
    row("NLPCTN", 1, 32, 6, 0, 9, 0, nlpctn, 1),
    row("NLPCTP", 1, 32, 6, 0, 9, 0, nlpctp, 1),
    row("NLPVALUE", 3, 32, 6, 1, 30, 4, nlpvalue, 1),
    row("NLSTRMON", 1, 200, 20, 0, 3, 0, nlstrmon, 1),
    row("NLSTRQTR", 1, 200, 20, 0, 3, 0, nlstrqtr, 1),
    row("NLSTRWK", 1, 200, 20, 0, 3, 0, nlstrwk, 1),
    row("NLTIMAP", 4, 200, 10, 0, 3, 0, nltimap, 1),
    row("NLTIME", 10, 200, 20, 0, 3, 0, nltime, 1),
    row("NLMNIAED", 8, 32, 12, 0, 28, 3, nlmniaed),  // nlmnyint AED
    row("NLMNIAUD", 8, 32, 12, 0, 28, 2, nlmniaud),  // nlmnyint AUD
    row("NLMNIBGN", 8, 32, 12, 0, 28, 2, nlmnibgn),  // nlmnyint BGN
    row("NLMNIBRL", 8, 32, 12, 0, 28, 2, nlmnibrl),  // nlmnyint BRL
    row("NLMNICAD", 8, 32, 12, 0, 28, 2, nlmnicad),  // nlmnyint CAD
    row("NLMNICHF", 8, 32, 12, 0, 28, 2, nlmnichf),  // nlmnyint CHF
    row("NLMNICNY", 8, 32, 12, 0, 28, 2, nlmnicny),  // nlmnyint CNY
    row("NLMNICZK", 8, 32, 12, 0, 28, 4, nlmniczk),  // nlmnyint CZK
    row("NLMNIDKK", 8, 32, 12, 0, 28, 2, nlmnidkk),  // nlmnyint DKK
    row("NLMNIEEK", 8, 32, 12, 0, 28, 4, nlmnieek),  // nlmnyint EEK
    row("NLMNIEGP", 8, 32, 12, 0, 28, 3, nlmniegp),  // nlmnyint EGP
    row("NLMNIEUR", 8, 32, 12, 0, 28, 2, nlmnieur),  // nlmnyint EUR
    row("NLMNIGBP", 8, 32, 12, 0, 28, 2, nlmnigbp),  // nlmnyint GBP
    row("NLMNIHKD", 8, 32, 12, 0, 28, 2, nlmnihkd),  // nlmnyint HKD
    row("NLMNIHRK", 8, 32, 12, 0, 28, 2, nlmnihrk),  // nlmnyint HRK
    row("NLMNIHUF", 8, 32, 12, 0, 28, 2, nlmnihuf),  // nlmnyint HUF
    row("NLMNIIDR", 8, 32, 12, 0, 28, 2, nlmniidr),  // nlmnyint IDR
    row("NLMNIILS", 8, 32, 12, 0, 28, 4, nlmniils),  // nlmnyint ILS
    row("NLMNIINR", 8, 32, 12, 0, 28, 2, nlmniinr),  // nlmnyint INR
    row("NLMNIJPY", 8, 32, 12, 0, 28, 2, nlmnijpy),  // nlmnyint JPY
    row("NLMNIKRW", 8, 32, 12, 0, 28, 2, nlmnikrw),  // nlmnyint KRW
    row("NLMNILTL", 8, 32, 12, 0, 28, 4, nlmniltl),  // nlmnyint LTL
    row("NLMNILVL", 8, 32, 12, 0, 28, 4, nlmnilvl),  // nlmnyint LVL
    row("NLMNIMOP", 8, 32, 12, 0, 28, 2, nlmnimop),  // nlmnyint MOP
    row("NLMNIMXN", 8, 32, 12, 0, 28, 2, nlmnimxn),  // nlmnyint MXN
    row("NLMNIMYR", 8, 32, 12, 0, 28, 2, nlmnimyr),  // nlmnyint MYR
    row("NLMNINOK", 8, 32, 12, 0, 28, 2, nlmninok),  // nlmnyint NOK
    row("NLMNINZD", 8, 32, 12, 0, 28, 2, nlmninzd),  // nlmnyint NZD
    row("NLMNIPLN", 8, 32, 12, 0, 28, 2, nlmnipln),  // nlmnyint PLN
    row("NLMNIROL", 8, 32, 12, 0, 28, 4, nlmnirol),  // nlmnyint ROL
    row("NLMNIRUB", 8, 32, 12, 0, 28, 2, nlmnirub),  // nlmnyint RUB
    row("NLMNIRUR", 8, 32, 12, 0, 28, 2, nlmnirur),  // nlmnyint RUR
    row("NLMNISEK", 8, 32, 12, 0, 28, 2, nlmnisek),  // nlmnyint SEK
    row("NLMNISGD", 8, 32, 12, 0, 28, 2, nlmnisgd),  // nlmnyint SGD
    row("NLMNISKK", 8, 32, 12, 0, 28, 4, nlmniskk),  // nlmnyint SKK
    row("NLMNITHB", 8, 32, 12, 0, 28, 2, nlmnithb),  // nlmnyint THB
    row("NLMNITRY", 8, 32, 12, 0, 28, 4, nlmnitry),  // nlmnyint TRY
    row("NLMNITWD", 8, 32, 12, 0, 28, 2, nlmnitwd),  // nlmnyint TWD
    row("NLMNIUSD", 8, 32, 12, 0, 28, 2, nlmniusd),  // nlmnyint USD
    row("NLMNIZAR", 8, 32, 12, 0, 28, 2, nlmnizar),  // nlmnyint ZAR
    row("NLMNLAED", 8, 32, 12, 0, 28, 3, nlmnlaed),  // nlmnyloc AED
    row("NLMNLAUD", 8, 32, 12, 0, 28, 2, nlmnlaud),  // nlmnyloc AUD
    row("NLMNLBGN", 8, 32, 12, 0, 28, 2, nlmnlbgn),  // nlmnyloc BGN
    row("NLMNLBRL", 8, 32, 12, 0, 28, 2, nlmnlbrl),  // nlmnyloc BRL
    row("NLMNLCAD", 8, 32, 12, 0, 28, 2, nlmnlcad),  // nlmnyloc CAD
    row("NLMNLCHF", 8, 32, 12, 0, 28, 2, nlmnlchf),  // nlmnyloc CHF
    row("NLMNLCNY", 8, 32, 12, 0, 28, 2, nlmnlcny),  // nlmnyloc CNY
    row("NLMNLCZK", 8, 32, 12, 0, 28, 4, nlmnlczk),  // nlmnyloc CZK
    row("NLMNLDKK", 8, 32, 12, 0, 28, 2, nlmnldkk),  // nlmnyloc DKK
    row("NLMNLEEK", 8, 32, 12, 0, 28, 4, nlmnleek),  // nlmnyloc EEK
    row("NLMNLEGP", 8, 32, 12, 0, 28, 3, nlmnlegp),  // nlmnyloc EGP
    row("NLMNLEUR", 8, 32, 12, 0, 28, 2, nlmnleur),  // nlmnyloc EUR
    row("NLMNLGBP", 8, 32, 12, 0, 28, 2, nlmnlgbp),  // nlmnyloc GBP
    row("NLMNLHKD", 8, 32, 12, 0, 28, 2, nlmnlhkd),  // nlmnyloc HKD
    row("NLMNLHRK", 8, 32, 12, 0, 28, 2, nlmnlhrk),  // nlmnyloc HRK
    row("NLMNLHUF", 8, 32, 12, 0, 28, 2, nlmnlhuf),  // nlmnyloc HUF
    row("NLMNLIDR", 8, 32, 12, 0, 28, 2, nlmnlidr),  // nlmnyloc IDR
    row("NLMNLILS", 8, 32, 12, 0, 28, 4, nlmnlils),  // nlmnyloc ILS
    row("NLMNLINR", 8, 32, 12, 0, 28, 2, nlmnlinr),  // nlmnyloc INR
    row("NLMNLJPY", 8, 32, 12, 0, 28, 2, nlmnljpy),  // nlmnyloc JPY
    row("NLMNLKRW", 8, 32, 12, 0, 28, 2, nlmnlkrw),  // nlmnyloc KRW
    row("NLMNLLTL", 8, 32, 12, 0, 28, 4, nlmnlltl),  // nlmnyloc LTL
    row("NLMNLLVL", 8, 32, 12, 0, 28, 4, nlmnllvl),  // nlmnyloc LVL
    row("NLMNLMOP", 8, 32, 12, 0, 28, 2, nlmnlmop),  // nlmnyloc MOP
    row("NLMNLMXN", 8, 32, 12, 0, 28, 2, nlmnlmxn),  // nlmnyloc MXN
    row("NLMNLMYR", 8, 32, 12, 0, 28, 2, nlmnlmyr),  // nlmnyloc MYR
    row("NLMNLNOK", 8, 32, 12, 0, 28, 2, nlmnlnok),  // nlmnyloc NOK
    row("NLMNLNZD", 8, 32, 12, 0, 28, 2, nlmnlnzd),  // nlmnyloc NZD
    row("NLMNLPLN", 8, 32, 12, 0, 28, 2, nlmnlpln),  // nlmnyloc PLN
    row("NLMNLROL", 8, 32, 12, 0, 28, 4, nlmnlrol),  // nlmnyloc ROL
    row("NLMNLRUB", 8, 32, 12, 0, 28, 2, nlmnlrub),  // nlmnyloc RUB
    row("NLMNLRUR", 8, 32, 12, 0, 28, 2, nlmnlrur),  // nlmnyloc RUR
    row("NLMNLSEK", 8, 32, 12, 0, 28, 2, nlmnlsek),  // nlmnyloc SEK
    row("NLMNLSGD", 8, 32, 12, 0, 28, 2, nlmnlsgd),  // nlmnyloc SGD
    row("NLMNLSKK", 8, 32, 12, 0, 28, 4, nlmnlskk),  // nlmnyloc SKK
    row("NLMNLTHB", 8, 32, 12, 0, 28, 2, nlmnlthb),  // nlmnyloc THB
    row("NLMNLTRY", 8, 32, 12, 0, 28, 4, nlmnltry),  // nlmnyloc TRY
    row("NLMNLTWD", 8, 32, 12, 0, 28, 2, nlmnltwd),  // nlmnyloc TWD
    row("NLMNLUSD", 8, 32, 12, 0, 28, 2, nlmnlusd),  // nlmnyloc USD
    row("NLMNLZAR", 8, 32, 12, 0, 28, 2, nlmnlzar),  // nlmnyloc ZAR
};

}  // namespace xfmt::catalog
