// Module table of JAZWFDTE: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfdte_rows[] = {
    row("---NUMFMT------", 0, 0, 0, 0, 0, 0, nullptr),
    row("---CHARFMT-----", 0, 0, 0, 0, 0, 0, nullptr),
    row("---NUMINFMT----", 0, 0, 0, 0, 0, 0, nullptr),
    row("---CHARINFMT---", 0, 0, 0, 0, 0, 0, nullptr),
    row("$N8601B", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601BA", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601E", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601EA", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601EH", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601EX", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601H", 1, 200, 16, 0, 0, 0, nullptr),
    row("$N8601X", 1, 200, 16, 0, 0, 0, nullptr),
    row("B8601DA", 8, 10, 8, 0, 0, 0, nullptr),
    row("B8601DN", 8, 10, 8, 0, 0, 0, nullptr),
    row("B8601DT", 15, 26, 19, 0, 6, 0, nullptr),
    row("B8601DZ", 15, 26, 20, 0, 6, 0, nullptr),
    row("B8601LZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("B8601TM", 6, 15, 8, 0, 6, 0, nullptr),
    row("B8601TZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("DATE", 5, 11, 7, 0, 0, 0, nullptr),  // zfmdate
    row("DAY", 2, 32, 2, 0, 0, 0, nullptr),  // zfmday
    row("DDMMYY", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmy
    row("DDMMYYB", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmyb
    row("DDMMYYC", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmyc
    row("DDMMYYD", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmyd
    row("DDMMYYN", 2, 8, 8, 0, 0, 0, nullptr),  // zfmdmyn
    row("DDMMYYP", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmyp
    row("DDMMYYS", 2, 10, 8, 0, 0, 0, nullptr),  // zfmdmy
    row("DOWNAME", 1, 32, 9, 0, 0, 0, nullptr),
    row("E8601DA", 10, 10, 10, 0, 0, 0, nullptr),
    row("E8601DN", 10, 10, 10, 0, 0, 0, nullptr),
    row("E8601DT", 16, 26, 19, 0, 6, 0, nullptr),
    row("E8601DZ", 20, 35, 26, 0, 6, 0, nullptr),
    row("E8601LZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("E8601TM", 8, 15, 8, 0, 6, 0, nullptr),
    row("E8601TZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("IS8601DA", 10, 10, 10, 0, 0, 0, nullptr),
    row("IS8601DN", 10, 10, 10, 0, 0, 0, nullptr),
    row("IS8601DT", 16, 26, 19, 0, 6, 0, nullptr),
    row("IS8601DZ", 20, 35, 26, 0, 6, 0, nullptr),
    row("IS8601LZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("IS8601TM", 8, 15, 8, 0, 6, 0, nullptr),
    row("IS8601TZ", 9, 20, 14, 0, 6, 0, nullptr),
    row("JULDATE", 5, 32, 7, 0, 0, 0, nullptr),  // zfmjul
    row("JULDAY", 3, 32, 3, 0, 0, 0, nullptr),  // zfmjuld
    row("JULIAN", 5, 7, 5, 0, 0, 0, nullptr),  // zfmjul
    row("MMDDYY", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdy
    row("MMDDYYB", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdyb
    row("MMDDYYC", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdyc
    row("MMDDYYD", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdyd
    row("MMDDYYN", 2, 8, 8, 0, 0, 0, nullptr),  // zfmmdyn
    row("MMDDYYP", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdyp
    row("MMDDYYS", 2, 10, 8, 0, 0, 0, nullptr),  // zfmmdy
    row("MMYY", 5, 32, 7, 0, 0, 0, nullptr),  // zfmmmy
    row("MMYYC", 5, 32, 7, 0, 0, 0, nullptr),  // zfmmmyc
    row("MMYYD", 5, 32, 7, 0, 0, 0, nullptr),  // zfmmmyd
    row("MMYYN", 4, 32, 6, 0, 0, 0, nullptr),  // zfmmmyn
    row("MMYYP", 5, 32, 7, 0, 0, 0, nullptr),  // zfmmmyp
    row("MMYYS", 5, 32, 7, 0, 0, 0, nullptr),  // zfmmmys
    row("MONNAME", 1, 32, 9, 0, 0, 0, nullptr),
    row("MONTH", 1, 32, 2, 0, 0, 0, nullptr),  // zfmmont
    row("MONYY", 5, 7, 5, 0, 0, 0, nullptr),  // zfmmony
    row("NENGO", 2, 10, 10, 0, 0, 0, nullptr),  // zfmneng
    row("PDJULG", 4, 4, 4, 0, 0, 0, nullptr),
    row("PDJULI", 4, 4, 4, 0, 0, 0, nullptr),
    row("QTR", 1, 32, 1, 0, 0, 0, nullptr),  // zfmqtr
    row("QTRR", 3, 32, 3, 0, 0, 0, nullptr),  // zfmqtrr
    row("WEEKDATE", 3, 37, 29, 0, 0, 0, nullptr),
    row("WEEKDATX", 3, 37, 29, 0, 0, 0, nullptr),
    row("WEEKDAY", 1, 32, 1, 0, 0, 0, nullptr),  // zfmweek
    row("WORDDATE", 3, 32, 18, 0, 0, 0, nullptr),
    row("WORDDATX", 3, 32, 18, 0, 0, 0, nullptr),
    row("YEAR", 2, 32, 4, 0, 0, 0, nullptr),  // zfmyear
    row("YYMM", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyym
    row("YYMMC", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyymc
    row("YYMMD", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyymd
    row("YYMMDD", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymd
    row("YYMMDDB", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymdb
    row("YYMMDDC", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymdc
    row("YYMMDDD", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymd
    row("YYMMDDN", 2, 8, 8, 0, 0, 0, nullptr),  // zfmymdn
    row("YYMMDDP", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymdp
    row("YYMMDDS", 2, 10, 8, 0, 0, 0, nullptr),  // zfmymds
    row("YYMMN", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyymn
    row("YYMMP", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyymp
    row("YYMMS", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyyms
    row("YYMON", 5, 32, 7, 0, 0, 0, nullptr),
    row("YYQ", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyyq
    row("YYQC", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyyqc
    row("YYQD", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyyqd
    row("YYQN", 3, 32, 5, 0, 0, 0, nullptr),  // zfmyyqn
    row("YYQP", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyyqp
    row("YYQR", 6, 32, 8, 0, 0, 0, nullptr),  // zfmyyqr
    row("YYQRC", 6, 32, 8, 0, 0, 0, nullptr),  // zfmyqrc
    row("YYQRD", 6, 32, 8, 0, 0, 0, nullptr),  // zfmyqrd
    row("YYQRN", 5, 32, 7, 0, 0, 0, nullptr),  // zfmyqrn
    row("YYQRP", 6, 32, 8, 0, 0, 0, nullptr),  // zfmyqrp
    row("YYQRS", 6, 32, 8, 0, 0, 0, nullptr),  // zfmyqrs
    row("YYQS", 4, 32, 6, 0, 0, 0, nullptr),  // zfmyyqs
};

}  // namespace xfmt::catalog
