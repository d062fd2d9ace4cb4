// Value families and descriptions of the catalogued names. One rule covers a
// whole family of names ("DDMMYY*" is seven formats, "NLMNI???" forty), so
// the table stays a page long; the first rule whose pattern matches wins.
#include "catalog/name_families.hpp"

#include <string_view>

namespace xfmt::catalog {
namespace {

enum side : uint8_t { both, format_only, informat_only };

// pattern: '?' matches one character, '*' any run (at most one '*').
// description placeholders: {sep} the separator named by the letters the
// '*' matched (B blank, C colon, D dash, N none, P period, S slash), {cur}
// the last three letters (a currency code), {lang} the first three (a
// language code).
struct name_rule {
  const char *pattern;
  side applies;
  uint32_t family;
  uint32_t flags;
  const char *description;
};

constexpr uint32_t NUM = XFX_FAMILY_NUMBER, CUR = XFX_FAMILY_CURRENCY, PCT = XFX_FAMILY_PERCENT,
                   DAT = XFX_FAMILY_DATE, TIM = XFX_FAMILY_TIME, DTM = XFX_FAMILY_DATETIME,
                   DUR = XFX_FAMILY_DURATION, BIN = XFX_FAMILY_BINARY, CHR = XFX_FAMILY_CHARACTER,
                   NAT = XFX_FAMILY_NATIONAL;
constexpr uint32_t RAW = XFX_BYTES, NL = XFX_NATIONAL;

constexpr name_rule rules[] = {
    // Text.
    {"$CHAR", both, CHR, 0, "text as it stands, padded or cut to the width"},
    {"$CHARZB", informat_only, CHR, 0, "text with binary zeros read as blanks"},
    {"$QUOTE", format_only, CHR, 0, "text in double quotes, inner quotes doubled"},
    {"$QUOTE", informat_only, CHR, 0, "text without one pair of enclosing quotes"},
    {"$UPCASE", both, CHR, 0, "text in upper case"},
    {"$REVERS", both, CHR, 0, "text reversed, trailing blanks first dropped"},
    {"$REVERJ", both, CHR, 0, "whole field reversed, blanks included"},
    {"$ASCII", both, CHR, 0, "text in ASCII"},
    {"$BASE64X", both, CHR, 0, "text in Base64"},
    {"$BIDI", both, CHR, 0, "bidirectional text reordered for display"},
    {"$LOGVS*", both, CHR, 0, "bidirectional text from logical to visual order"},
    {"$VSLOG*", both, CHR, 0, "bidirectional text from visual to logical order"},
    {"$N8601*", both, DUR, 0, "ISO 8601 duration, datetime or interval held as text"},
    {"$EBCDIC", both, BIN, RAW, "text in EBCDIC (code page 1047)"},
    {"$XPORTCH", both, BIN, RAW, "text in the transport-file layout"},
    {"$BINARY", both, BIN, 0, "each byte of a text as eight binary digits"},
    {"$HEX", both, BIN, 0, "each byte of a text as two hexadecimal digits"},
    {"$OCTAL", both, BIN, 0, "each byte of a text as three octal digits"},
    {"$PHEX", both, BIN, RAW, "packed hexadecimal text"},
    {"$CB", both, BIN, RAW, "column-binary text"},
    {"$*", both, CHR, 0, "text, in a layout this library does not describe"},
    // Plain and punctuated numbers.
    {"F", both, NUM, 0, "number with w positions and d decimals"},
    {"BEST", both, NUM, 0, "number with as many significant digits as fit"},
    {"BESTX", both, NUM, 0, "number with as many significant digits as fit, up to 32 positions"},
    {"E", both, NUM, 0, "number in scientific notation"},
    {"D", both, NUM, 0, "number with d significant digits, decimal points aligned"},
    {"Z", both, NUM, 0, "number padded with leading zeros"},
    {"BZ", both, NUM, 0, "number with blanks read as zeros"},
    {"COMMA", both, NUM, 0, "number with commas between digit groups"},
    {"COMMAX", both, NUM, 0, "number with periods between digit groups and a decimal comma"},
    {"NUMX", both, NUM, 0, "number with a decimal comma"},
    {"NEGPAREN", both, NUM, 0, "number with negative values in parentheses"},
    {"DOLLAR", both, CUR, 0, "amount with a dollar sign and commas between digit groups"},
    {"DOLLARX", both, CUR, 0, "amount with a dollar sign, periods between digit groups, decimal comma"},
    {"EURO", both, CUR, 0, "amount with a euro sign and commas between digit groups"},
    {"EUROX", both, CUR, 0, "amount with a euro sign, periods between digit groups, decimal comma"},
    {"YEN", both, CUR, 0, "amount with a yen sign and commas between digit groups"},
    {"EURFR???", both, CUR, 0, "amount in {cur} shown in euros"},
    {"EURTO???", both, CUR, 0, "amount in euros shown in {cur}"},
    {"PERCENT", both, PCT, 0, "proportion times 100 with a percent sign, negatives in parentheses"},
    {"PERCENTN", both, PCT, 0, "proportion times 100 with a percent sign, negatives with a minus"},
    {"WORDS", both, NUM, 0, "number spelled in English words"},
    {"WORDF", both, NUM, 0, "amount in English words with the cents as a fraction"},
    {"ROMAN", both, NUM, 0, "whole number in Roman numerals"},
    {"FRACT", both, NUM, 0, "number as the closest fraction that fits"},
    {"SSN", both, NUM, 0, "nine-digit social security number with dashes"},
    {"ODDSR", both, NUM, 0, "odds ratio, extremes as <.001 and >999.999"},
    {"PVALUE", both, NUM, 0, "probability, small values as <.001"},
    {"LOGPROB", both, NUM, 0, "probability from its negative base-10 logarithm"},
    {"SIZEK", both, NUM, 0, "size in units of 1024"},
    {"SIZEKB", both, NUM, 0, "size in units of 1024 with KB"},
    {"SIZEKMG", both, NUM, 0, "size in KB, MB, GB or TB (powers of 1024)"},
    // Binary and radix layouts.
    {"IB", both, BIN, RAW, "integer binary in the host's byte order"},
    {"IBR", both, BIN, RAW, "integer binary, little-endian"},
    {"PIB", both, BIN, RAW, "positive integer binary in the host's byte order"},
    {"PIBR", both, BIN, RAW, "positive integer binary, little-endian"},
    {"PCPIB", both, BIN, RAW, "positive integer binary in the byte order of a PC"},
    {"PD", both, BIN, RAW, "packed decimal"},
    {"PK", both, BIN, RAW, "unsigned packed decimal"},
    {"ZD", both, BIN, RAW, "zoned decimal"},
    {"ZDB", both, BIN, RAW, "zoned decimal with blanks read as zeros"},
    {"ZDV", both, BIN, RAW, "zoned decimal with its zones validated"},
    {"RB", both, BIN, RAW, "real binary: the double's bytes in the host's byte order"},
    {"MRB", both, BIN, RAW, "real binary with the bytes reversed"},
    {"VAXRB", both, BIN, RAW, "real binary in the D-floating layout"},
    {"IEEE", both, BIN, RAW, "IEEE floating point, big-endian"},
    {"IEEER", both, BIN, RAW, "IEEE floating point, little-endian"},
    {"FLOAT", both, BIN, RAW, "4-byte IEEE floating point"},
    {"S370F*", both, BIN, RAW, "mainframe layout (integer, packed, zoned or hexadecimal float)"},
    {"XPORT*", both, BIN, RAW, "number in the transport-file layout"},
    {"HEX", both, BIN, 0, "number in hexadecimal digits"},
    {"OCTAL", both, BIN, 0, "number in octal digits"},
    {"BINARY", both, BIN, 0, "number in binary digits"},
    {"BITS", both, BIN, RAW, "bit field"},
    {"CB", both, BIN, RAW, "column-binary number"},
    {"PUNCH", both, BIN, RAW, "punched-card column"},
    {"ROW", both, BIN, RAW, "punched-card row"},
    // Dates.
    {"DATE", both, DAT, 0, "date as day, month abbreviation and year"},
    {"DAY", both, DAT, 0, "day of the month of a date"},
    {"DDMMYY*", both, DAT, 0, "date as day, month and year{sep}"},
    {"MMDDYY*", both, DAT, 0, "date as month, day and year{sep}"},
    {"YYMMDD*", both, DAT, 0, "date as year, month and day{sep}"},
    {"XYYMMDD", both, DAT, 0, "date as year, month and day"},
    {"MMYY*", both, DAT, 0, "month and year of a date{sep}"},
    {"YYMON", both, DAT, 0, "year and month abbreviation of a date"},
    {"YYMM*", both, DAT, 0, "year and month of a date{sep}"},
    {"YYQR*", both, DAT, 0, "year and quarter in Roman numerals of a date{sep}"},
    {"YYQZ", both, DAT, 0, "year and quarter of a date, zero padded"},
    {"YYQ*", both, DAT, 0, "year and quarter of a date{sep}"},
    {"MONYY", both, DAT, 0, "month abbreviation and year of a date"},
    {"MONNAME", both, DAT, 0, "name of the month of a date"},
    {"MONTH", both, DAT, 0, "month number of a date"},
    {"YEAR", both, DAT, 0, "year of a date"},
    {"QTR", both, DAT, 0, "quarter of a date"},
    {"QTRR", both, DAT, 0, "quarter of a date in Roman numerals"},
    {"DOWNAME", both, DAT, 0, "name of the weekday of a date"},
    {"WEEKDAY", both, DAT, 0, "weekday number of a date (1 = Sunday)"},
    {"WEEKDATE", both, DAT, 0, "date as weekday, month name, day and year"},
    {"WEEKDATX", both, DAT, 0, "date as weekday, day, month name and year"},
    {"WORDDATE", both, DAT, 0, "date as month name, day and year"},
    {"WORDDATX", both, DAT, 0, "date as day, month name and year"},
    {"JULIAN", both, DAT, 0, "date as year and day of the year"},
    {"JULDATE", both, DAT, 0, "date as year and day of the year"},
    {"JULDAY", both, DAT, 0, "day of the year of a date"},
    {"NENGO", both, DAT, 0, "date in the Japanese era calendar"},
    {"MINGUO", both, DAT, 0, "date in the Minguo calendar"},
    {"PDJULG", both, DAT, RAW, "date as packed decimal yyyydddF"},
    {"PDJULI", both, DAT, RAW, "date as packed decimal 0cyydddF, century from 1900"},
    {"*8601DA", both, DAT, 0, "ISO 8601 date"},
    {"*8601DN", both, DTM, 0, "ISO 8601 date of a datetime"},
    {"*8601DT", both, DTM, 0, "ISO 8601 datetime"},
    {"*8601DZ", both, DTM, 0, "ISO 8601 datetime in UTC with its zone"},
    {"*8601LZ", both, TIM, 0, "ISO 8601 time of day with the local zone offset"},
    {"*8601TM", both, TIM, 0, "ISO 8601 time of day"},
    {"*8601TZ", both, TIM, 0, "ISO 8601 time of day in UTC with its zone"},
    // Times and datetimes.
    {"TIME", both, DUR, 0, "seconds as hours, minutes and seconds, hours not wrapped"},
    {"HHMM", both, DUR, 0, "seconds as hours and minutes"},
    {"HOUR", both, DUR, 0, "seconds as hours with decimals"},
    {"MMSS", both, DUR, 0, "seconds as minutes and seconds"},
    {"TOD", both, TIM, 0, "time of day with two-digit hours"},
    {"TIMEAMPM", both, TIM, 0, "time of day on a 12-hour clock with AM or PM"},
    {"DATETIME", both, DTM, 0, "datetime as day, month abbreviation, year and time"},
    {"DATEAMPM", both, DTM, 0, "datetime with the time on a 12-hour clock"},
    {"MDYAMPM", both, DTM, 0, "datetime as month/day/year and a 12-hour time"},
    {"DTWKDATX", both, DTM, 0, "date of a datetime as weekday, day, month name and year"},
    {"DTDATE", both, DTM, 0, "date of a datetime as day, month abbreviation and year"},
    {"DTMONYY", both, DTM, 0, "month abbreviation and year of a datetime"},
    {"DTYEAR", both, DTM, 0, "year of a datetime"},
    {"DTYYQC", both, DTM, 0, "year and quarter of a datetime, colon separated"},
    {"YMDDTTM", both, DTM, 0, "datetime as year, month, day and time"},
    {"MSEC", both, DUR, RAW, "mainframe time in milliseconds"},
    {"PDTIME", both, TIM, RAW, "packed decimal time of day"},
    {"RMFDUR", both, DUR, RAW, "packed decimal duration of a performance record"},
    {"TU", both, DUR, RAW, "mainframe timer units"},
    {"*STAMP", both, DTM, RAW, "mainframe time stamp"},
    // National language.
    {"???DFDE", both, DAT, NL, "date in language {lang}, day-month-year order"},
    {"???DFDT", both, DTM, NL, "datetime in language {lang}"},
    {"???DFMY", both, DAT, NL, "month and year of a date in language {lang}"},
    {"NLDATM*", both, DTM, NL, "datetime written the locale's way"},
    {"NLDATE*", both, DAT, NL, "date written the locale's way"},
    {"NLTIMAP", both, TIM, NL, "time of day on the locale's 12-hour clock"},
    {"NLTIME", both, TIM, NL, "time of day written the locale's way"},
    {"NLSTRMON", both, NAT, NL, "month number (1-12) as the locale's month name"},
    {"NLSTRQTR", both, NAT, NL, "quarter number (1-4) as the locale's name of the quarter"},
    {"NLSTRWK", both, NAT, NL, "weekday number (1 = Sunday) as the locale's weekday name"},
    {"NLMNI???", both, CUR, NL, "amount in {cur} with the international currency code"},
    {"NLMNL???", both, CUR, NL, "amount in {cur} with the local currency sign"},
    {"NLMNYI", both, CUR, NL, "amount in the locale's currency with its international code"},
    {"NLMNY", both, CUR, NL, "amount in the locale's currency"},
    {"NLPCT*", both, PCT, NL, "percentage written the locale's way"},
    {"NLPVALUE", both, NUM, NL, "probability with the locale's decimal mark"},
    {"NLNUMI", both, NUM, NL, "number with the locale's international separators"},
    {"NLNUM", both, NUM, NL, "number with the locale's separators"},
    {"NLBEST", both, NUM, NL, "number with as many digits as fit, locale's decimal mark"},
    {"NLD", both, NUM, NL, "number with d significant digits, locale's decimal mark"},
    // Anything else (a user-defined numeric format).
    {"*", both, NUM, 0, "number, in a layout this library does not describe"},
};

// Glob match; on success star holds what '*' matched.
bool matches(std::string_view pattern, std::string_view name, std::string_view &star) {
  size_t p = 0;
  for (; p < pattern.size() && pattern[p] != '*'; ++p) {
    if (p >= name.size() || (pattern[p] != '?' && pattern[p] != name[p])) return false;
  }
  if (p == pattern.size()) return name.size() == p;
  std::string_view tail = pattern.substr(p + 1);
  if (name.size() < p + tail.size()) return false;
  size_t tail_at = name.size() - tail.size();
  for (size_t i = 0; i < tail.size(); ++i) {
    if (tail[i] != '?' && tail[i] != name[tail_at + i]) return false;
  }
  star = name.substr(p, tail_at - p);
  return true;
}

const name_rule *rule_of(const char *name, uint32_t length, bool informat, std::string_view &star) {
  std::string_view n(name, length);
  for (const name_rule &r : rules) {
    if (r.applies == (informat ? format_only : informat_only)) continue;
    if (matches(r.pattern, n, star)) return &r;
  }
  return &rules[sizeof rules / sizeof rules[0] - 1];
}

std::string_view separator_words(std::string_view suffix) {
  if (suffix.size() != 1) return "";
  switch (suffix[0]) {
    case 'B': return ", separated by blanks";
    case 'C': return ", separated by colons";
    case 'D': return ", separated by dashes";
    case 'N': return ", without separators";
    case 'P': return ", separated by periods";
    case 'S': return ", separated by slashes";
    default: return "";
  }
}

}  // namespace

name_traits traits_of(const char *name, uint32_t length, bool informat) {
  std::string_view star;
  const name_rule *r = rule_of(name, length, informat, star);
  name_traits t;
  t.family = r->family;
  t.flags = r->flags;
  return t;
}

void describe_name(const char *name, uint32_t length, bool informat, text_sink &sink) {
  std::string_view star;
  std::string_view n(name, length);
  const name_rule *r = rule_of(name, length, informat, star);
  if (informat) sink.put("reads ");
  std::string_view d = r->description;
  for (size_t i = 0; i < d.size(); ++i) {
    if (d.substr(i, 5) == "{sep}") {
      sink.put(separator_words(star));
      i += 4;
    } else if (d.substr(i, 5) == "{cur}") {
      sink.put(n.substr(n.size() >= 3 ? n.size() - 3 : 0));
      i += 4;
    } else if (d.substr(i, 6) == "{lang}") {
      sink.put(n.substr(0, 3));
      i += 5;
    } else {
      sink.put(d[i]);
    }
  }
}

}  // namespace xfmt::catalog
