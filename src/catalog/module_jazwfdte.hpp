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
    row("$N8601B", 1, 200, 16, 0, 0, 0, zfmn8b),  // zfmn8b
    row("$N8601BA", 1, 200, 16, 0, 0, 0, zfmn8ba),  // zfmn8ba
    row("$N8601E", 1, 200, 16, 0, 0, 0, zfmn8e),  // zfmn8e
    row("$N8601EA", 1, 200, 16, 0, 0, 0, zfmn8ea),  // zfmn8ea
    row("$N8601EH", 1, 200, 16, 0, 0, 0, zfmn8eh),  // zfmn8eh
    row("$N8601EX", 1, 200, 16, 0, 0, 0, zfmn8ex),  // zfmn8ex
    row("$N8601H", 1, 200, 16, 0, 0, 0, zfmn8h),  // zfmn8h
    row("$N8601X", 1, 200, 16, 0, 0, 0, zfmn8x),  // zfmn8x
    row("B8601DA", 8, 10, 8, 0, 0, 0, zfmb8da),
    row("B8601DN", 8, 10, 8, 0, 0, 0, zfmb8dn),
    row("B8601DT", 15, 26, 19, 0, 6, 0, zfmb8dt),
    row("B8601DZ", 15, 26, 20, 0, 6, 0, zfmb8dz),
    row("B8601LZ", 9, 20, 14, 0, 6, 0, zfmb8lz),
    row("B8601TM", 6, 15, 8, 0, 6, 0, zfmb8tm),
    row("B8601TZ", 9, 20, 14, 0, 6, 0, zfmb8tz),
    row("DATE", 5, 11, 7, 0, 0, 0, zfmdate),  // zfmdate
    row("DAY", 2, 32, 2, 0, 0, 0, zfmday),  // zfmday
    row("DDMMYY", 2, 10, 8, 0, 0, 0, zfmdmy),  // zfmdmy
    row("DDMMYYB", 2, 10, 8, 0, 0, 0, zfmdmyb),  // zfmdmyb
    row("DDMMYYC", 2, 10, 8, 0, 0, 0, zfmdmyc),  // zfmdmyc
    row("DDMMYYD", 2, 10, 8, 0, 0, 0, zfmdmyd),  // zfmdmyd
    row("DDMMYYN", 2, 8, 8, 0, 0, 0, zfmdmyn),  // zfmdmyn
    row("DDMMYYP", 2, 10, 8, 0, 0, 0, zfmdmyp),  // zfmdmyp
    row("DDMMYYS", 2, 10, 8, 0, 0, 0, zfmdmy),  // zfmdmy
    row("DOWNAME", 1, 32, 9, 0, 0, 0, zfmdown),
    row("E8601DA", 10, 10, 10, 0, 0, 0, zfme8da),
    row("E8601DN", 10, 10, 10, 0, 0, 0, zfme8dn),
    row("E8601DT", 16, 26, 19, 0, 6, 0, zfme8dt),
    row("E8601DZ", 20, 35, 26, 0, 6, 0, zfme8dz),
    row("E8601LZ", 9, 20, 14, 0, 6, 0, zfme8lz),
    row("E8601TM", 8, 15, 8, 0, 6, 0, zfme8tm),
    row("E8601TZ", 9, 20, 14, 0, 6, 0, zfme8tz),
    row("IS8601DA", 10, 10, 10, 0, 0, 0, zfme8da),
    row("IS8601DN", 10, 10, 10, 0, 0, 0, zfme8dn),
    row("IS8601DT", 16, 26, 19, 0, 6, 0, zfme8dt),
    row("IS8601DZ", 20, 35, 26, 0, 6, 0, zfme8dz),
    row("IS8601LZ", 9, 20, 14, 0, 6, 0, zfme8lz),
    row("IS8601TM", 8, 15, 8, 0, 6, 0, zfme8tm),
    row("IS8601TZ", 9, 20, 14, 0, 6, 0, zfme8tz),
    row("JULDATE", 5, 32, 7, 0, 0, 0, zfmjul),  // zfmjul
    row("JULDAY", 3, 32, 3, 0, 0, 0, zfmjuld),  // zfmjuld
    row("JULIAN", 5, 7, 5, 0, 0, 0, zfmjul),  // zfmjul
    row("MMDDYY", 2, 10, 8, 0, 0, 0, zfmmdy),  // zfmmdy
    row("MMDDYYB", 2, 10, 8, 0, 0, 0, zfmmdyb),  // zfmmdyb
    row("MMDDYYC", 2, 10, 8, 0, 0, 0, zfmmdyc),  // zfmmdyc
    row("MMDDYYD", 2, 10, 8, 0, 0, 0, zfmmdyd),  // zfmmdyd
    row("MMDDYYN", 2, 8, 8, 0, 0, 0, zfmmdyn),  // zfmmdyn
    row("MMDDYYP", 2, 10, 8, 0, 0, 0, zfmmdyp),  // zfmmdyp
    row("MMDDYYS", 2, 10, 8, 0, 0, 0, zfmmdy),  // zfmmdy
    row("MMYY", 5, 32, 7, 0, 0, 0, zfmmmy),  // zfmmmy
    row("MMYYC", 5, 32, 7, 0, 0, 0, zfmmmyc),  // zfmmmyc
    row("MMYYD", 5, 32, 7, 0, 0, 0, zfmmmyd),  // zfmmmyd
    row("MMYYN", 4, 32, 6, 0, 0, 0, zfmmmyn),  // zfmmmyn
    row("MMYYP", 5, 32, 7, 0, 0, 0, zfmmmyp),  // zfmmmyp
    row("MMYYS", 5, 32, 7, 0, 0, 0, zfmmmys),  // zfmmmys
    row("MONNAME", 1, 32, 9, 0, 0, 0, zfmmonn),
    row("MONTH", 1, 32, 2, 0, 0, 0, zfmmont),  // zfmmont
    row("MONYY", 5, 7, 5, 0, 0, 0, zfmmony),  // zfmmony
    row("NENGO", 2, 10, 10, 0, 0, 0, zfmneng),  // zfmneng
    row("PDJULG", 4, 4, 4, 0, 0, 0, zfmpdjg),
    row("PDJULI", 4, 4, 4, 0, 0, 0, zfmpdji),
    row("QTR", 1, 32, 1, 0, 0, 0, zfmqtr),  // zfmqtr
    row("QTRR", 3, 32, 3, 0, 0, 0, zfmqtrr),  // zfmqtrr
    row("WEEKDATE", 3, 37, 29, 0, 0, 0, zfmwkdt),
    row("WEEKDATX", 3, 37, 29, 0, 0, 0, zfmwkdx),
    row("WEEKDAY", 1, 32, 1, 0, 0, 0, zfmweek),  // zfmweek
    row("WORDDATE", 3, 32, 18, 0, 0, 0, zfmwrdt),
    row("WORDDATX", 3, 32, 18, 0, 0, 0, zfmwrdx),
    row("YEAR", 2, 32, 4, 0, 0, 0, zfmyear),  // zfmyear
    row("YYMM", 5, 32, 7, 0, 0, 0, zfmyym),  // zfmyym
    row("YYMMC", 5, 32, 7, 0, 0, 0, zfmyymc),  // zfmyymc
    row("YYMMD", 5, 32, 7, 0, 0, 0, zfmyymd),  // zfmyymd
    row("YYMMDD", 2, 10, 8, 0, 0, 0, zfmymd),  // zfmymd
    row("YYMMDDB", 2, 10, 8, 0, 0, 0, zfmymdb),  // zfmymdb
    row("YYMMDDC", 2, 10, 8, 0, 0, 0, zfmymdc),  // zfmymdc
    row("YYMMDDD", 2, 10, 8, 0, 0, 0, zfmymd),  // zfmymd
    row("YYMMDDN", 2, 8, 8, 0, 0, 0, zfmymdn),  // zfmymdn
    row("YYMMDDP", 2, 10, 8, 0, 0, 0, zfmymdp),  // zfmymdp
    row("YYMMDDS", 2, 10, 8, 0, 0, 0, zfmymds),  // zfmymds
    row("YYMMN", 4, 32, 6, 0, 0, 0, zfmyymn),  // zfmyymn
    row("YYMMP", 5, 32, 7, 0, 0, 0, zfmyymp),  // zfmyymp
    row("YYMMS", 5, 32, 7, 0, 0, 0, zfmyyms),  // zfmyyms
    row("YYMON", 5, 32, 7, 0, 0, 0, zfmymon),
    row("YYQ", 4, 32, 6, 0, 0, 0, zfmyyq),  // zfmyyq
    row("YYQC", 4, 32, 6, 0, 0, 0, zfmyyqc),  // zfmyyqc
    row("YYQD", 4, 32, 6, 0, 0, 0, zfmyyqd),  // zfmyyqd
    row("YYQN", 3, 32, 5, 0, 0, 0, zfmyyqn),  // zfmyyqn
    row("YYQP", 4, 32, 6, 0, 0, 0, zfmyyqp),  // zfmyyqp
    row("YYQR", 6, 32, 8, 0, 0, 0, zfmyyqr),  // zfmyyqr
    row("YYQRC", 6, 32, 8, 0, 0, 0, zfmyqrc),  // zfmyqrc
    row("YYQRD", 6, 32, 8, 0, 0, 0, zfmyqrd),  // zfmyqrd
    row("YYQRN", 5, 32, 7, 0, 0, 0, zfmyqrn),  // zfmyqrn
    row("YYQRP", 6, 32, 8, 0, 0, 0, zfmyqrp),  // zfmyqrp
    row("YYQRS", 6, 32, 8, 0, 0, 0, zfmyqrs),  // zfmyqrs
    row("YYQS", 4, 32, 6, 0, 0, 0, zfmyyqs),  // zfmyyqs
};

}  // namespace xfmt::catalog
