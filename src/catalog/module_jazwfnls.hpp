// Module table of JAZWFNLS: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfnls_rows[] = {
    row("NLBEST", 1, 32, 12, 0, 0, 0, nullptr, 1),
    row("NLD", 1, 32, 12, 0, 16, 3, nullptr, 1),
    row("NLDATE", 10, 200, 20, 0, 0, 0, nullptr, 1),
    row("NLDATEL", 2, 200, 18, 0, 0, 0, nullptr, 1),
    row("NLDATEM", 2, 200, 14, 0, 0, 0, nullptr, 1),
    row("NLDATEMD", 6, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATEMDL", 5, 200, 12, 0, 0, 0, nullptr, 1),
    row("NLDATEMDM", 5, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATEMDS", 5, 200, 5, 0, 0, 0, nullptr, 1),
    row("NLDATEMN", 4, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATES", 2, 200, 8, 0, 0, 0, nullptr, 1),
    row("NLDATEW", 10, 200, 29, 0, 0, 0, nullptr, 1),
    row("NLDATEWN", 4, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATEYM", 6, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATEYML", 5, 200, 14, 0, 0, 0, nullptr, 1),
    row("NLDATEYMM", 5, 200, 11, 0, 0, 0, nullptr, 1),
    row("NLDATEYMS", 5, 200, 7, 0, 0, 0, nullptr, 1),
    row("NLDATEYQ", 4, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATEYQL", 4, 200, 18, 0, 0, 0, nullptr, 1),
    row("NLDATEYQM", 4, 200, 7, 0, 0, 0, nullptr, 1),
    row("NLDATEYQS", 4, 200, 6, 0, 0, 0, nullptr, 1),
    row("NLDATEYR", 2, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATEYW", 5, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATM", 10, 200, 30, 0, 3, 0, nullptr, 1),
    row("NLDATMAP", 16, 200, 32, 0, 3, 0, nullptr, 1),
    row("NLDATMDT", 10, 200, 18, 0, 0, 0, nullptr, 1),
    row("NLDATML", 19, 200, 30, 0, 3, 0, nullptr, 1),
    row("NLDATMM", 19, 200, 24, 0, 3, 0, nullptr, 1),
    row("NLDATMMD", 6, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATMMDL", 5, 200, 12, 0, 0, 0, nullptr, 1),
    row("NLDATMMDM", 5, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATMMDS", 5, 200, 5, 0, 0, 0, nullptr, 1),
    row("NLDATMMN", 4, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATMS", 19, 200, 19, 0, 3, 0, nullptr, 1),
    row("NLDATMTM", 16, 200, 16, 0, 3, 0, nullptr, 1),
    row("NLDATMTZ", 16, 200, 32, 0, 3, 0, nullptr, 1),
    row("NLDATMW", 16, 200, 41, 0, 3, 0, nullptr, 1),
    row("NLDATMWN", 4, 200, 9, 0, 0, 0, nullptr, 1),
    row("NLDATMWZ", 16, 200, 40, 0, 3, 0, nullptr, 1),
    row("NLDATMYM", 6, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATMYML", 5, 200, 14, 0, 0, 0, nullptr, 1),
    row("NLDATMYMM", 5, 200, 11, 0, 0, 0, nullptr, 1),
    row("NLDATMYMS", 5, 200, 7, 0, 0, 0, nullptr, 1),
    row("NLDATMYQ", 4, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATMYQL", 4, 200, 18, 0, 0, 0, nullptr, 1),
    row("NLDATMYQM", 4, 200, 7, 0, 0, 0, nullptr, 1),
    row("NLDATMYQS", 4, 200, 6, 0, 0, 0, nullptr, 1),
    row("NLDATMYR", 2, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATMYW", 5, 200, 16, 0, 0, 0, nullptr, 1),
    row("NLDATMZ", 16, 200, 40, 0, 3, 0, nullptr, 1),
    row("NLMNY", 1, 32, 9, 0, 9, 0, nullptr, 1),
    row("NLMNYI", 1, 32, 9, 0, 9, 0, nullptr, 1),
    row("NLNUM", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLNUMI", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLPCT", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLPCTI", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLPCTN", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLPCTP", 1, 32, 6, 0, 9, 0, nullptr, 1),
    row("NLPVALUE", 3, 32, 6, 1, 30, 4, nullptr, 1),
    row("NLSTRMON", 1, 200, 20, 0, 3, 0, nullptr, 1),
    row("NLSTRQTR", 1, 200, 20, 0, 3, 0, nullptr, 1),
    row("NLSTRWK", 1, 200, 20, 0, 3, 0, nullptr, 1),
    row("NLTIMAP", 4, 200, 10, 0, 3, 0, nullptr, 1),
    row("NLTIME", 10, 200, 20, 0, 3, 0, nullptr, 1),
    row("NLMNIAED", 8, 32, 12, 0, 28, 3, nullptr),  // nlmnyint AED
    row("NLMNIAUD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint AUD
    row("NLMNIBGN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint BGN
    row("NLMNIBRL", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint BRL
    row("NLMNICAD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint CAD
    row("NLMNICHF", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint CHF
    row("NLMNICNY", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint CNY
    row("NLMNICZK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint CZK
    row("NLMNIDKK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint DKK
    row("NLMNIEEK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint EEK
    row("NLMNIEGP", 8, 32, 12, 0, 28, 3, nullptr),  // nlmnyint EGP
    row("NLMNIEUR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint EUR
    row("NLMNIGBP", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint GBP
    row("NLMNIHKD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint HKD
    row("NLMNIHRK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint HRK
    row("NLMNIHUF", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint HUF
    row("NLMNIIDR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint IDR
    row("NLMNIILS", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint ILS
    row("NLMNIINR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint INR
    row("NLMNIJPY", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint JPY
    row("NLMNIKRW", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint KRW
    row("NLMNILTL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint LTL
    row("NLMNILVL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint LVL
    row("NLMNIMOP", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint MOP
    row("NLMNIMXN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint MXN
    row("NLMNIMYR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint MYR
    row("NLMNINOK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint NOK
    row("NLMNINZD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint NZD
    row("NLMNIPLN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint PLN
    row("NLMNIROL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint ROL
    row("NLMNIRUB", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint RUB
    row("NLMNIRUR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint RUR
    row("NLMNISEK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint SEK
    row("NLMNISGD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint SGD
    row("NLMNISKK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint SKK
    row("NLMNITHB", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint THB
    row("NLMNITRY", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyint TRY
    row("NLMNITWD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint TWD
    row("NLMNIUSD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint USD
    row("NLMNIZAR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyint ZAR
    row("NLMNLAED", 8, 32, 12, 0, 28, 3, nullptr),  // nlmnyloc AED
    row("NLMNLAUD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc AUD
    row("NLMNLBGN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc BGN
    row("NLMNLBRL", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc BRL
    row("NLMNLCAD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc CAD
    row("NLMNLCHF", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc CHF
    row("NLMNLCNY", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc CNY
    row("NLMNLCZK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc CZK
    row("NLMNLDKK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc DKK
    row("NLMNLEEK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc EEK
    row("NLMNLEGP", 8, 32, 12, 0, 28, 3, nullptr),  // nlmnyloc EGP
    row("NLMNLEUR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc EUR
    row("NLMNLGBP", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc GBP
    row("NLMNLHKD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc HKD
    row("NLMNLHRK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc HRK
    row("NLMNLHUF", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc HUF
    row("NLMNLIDR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc IDR
    row("NLMNLILS", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc ILS
    row("NLMNLINR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc INR
    row("NLMNLJPY", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc JPY
    row("NLMNLKRW", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc KRW
    row("NLMNLLTL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc LTL
    row("NLMNLLVL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc LVL
    row("NLMNLMOP", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc MOP
    row("NLMNLMXN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc MXN
    row("NLMNLMYR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc MYR
    row("NLMNLNOK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc NOK
    row("NLMNLNZD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc NZD
    row("NLMNLPLN", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc PLN
    row("NLMNLROL", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc ROL
    row("NLMNLRUB", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc RUB
    row("NLMNLRUR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc RUR
    row("NLMNLSEK", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc SEK
    row("NLMNLSGD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc SGD
    row("NLMNLSKK", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc SKK
    row("NLMNLTHB", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc THB
    row("NLMNLTRY", 8, 32, 12, 0, 28, 4, nullptr),  // nlmnyloc TRY
    row("NLMNLTWD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc TWD
    row("NLMNLUSD", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc USD
    row("NLMNLZAR", 8, 32, 12, 0, 28, 2, nullptr),  // nlmnyloc ZAR
};

}  // namespace xfmt::catalog
