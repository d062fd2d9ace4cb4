// Development-time helper of gen_locale_data.py: prints, for each locale id
// given on the command line, the date, time and number patterns and the
// quarter, weekday and AM/PM names that the installed ICU data holds, one
// "locale<TAB>key<TAB>value" line each (UTF-8). Never part of the library.
//   c++ -std=c++17 -O1 icu_dump.cpp -o icu_dump $(pkg-config --cflags --libs icu-i18n icu-uc)
#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/uversion.h>

#include <cstdio>
#include <memory>
#include <string>

using icu::UnicodeString;

static void put(const char *loc, const std::string &key, const UnicodeString &v) {
  std::string s;
  v.toUTF8String(s);
  for (char &c : s)
    if (c == '\t' || c == '\n') c = ' ';
  std::printf("%s\t%s\t%s\n", loc, key.c_str(), s.c_str());
}

static void date_pattern(const char *loc, const icu::Locale &l, const char *key,
                         icu::DateFormat::EStyle ds, icu::DateFormat::EStyle ts) {
  std::unique_ptr<icu::DateFormat> f(icu::DateFormat::createDateTimeInstance(ds, ts, l));
  UnicodeString p;
  if (auto *s = dynamic_cast<icu::SimpleDateFormat *>(f.get())) s->toPattern(p);
  put(loc, key, p);
}

static void names(const char *loc, const char *key, const UnicodeString *v, int32_t n, int32_t from) {
  for (int32_t i = from; i < n; ++i) put(loc, std::string(key) + std::to_string(i - from), v[i]);
}

static void number_pattern(const char *loc, const icu::Locale &l, const char *key, UNumberFormatStyle st) {
  UErrorCode e = U_ZERO_ERROR;
  std::unique_ptr<icu::NumberFormat> f(icu::NumberFormat::createInstance(l, st, e));
  UnicodeString p;
  if (U_SUCCESS(e))
    if (auto *d = dynamic_cast<icu::DecimalFormat *>(f.get())) d->toPattern(p);
  put(loc, key, p);
}

int main(int argc, char **argv) {
  std::printf("-\ticu\t%s\n", U_ICU_VERSION);
  for (int a = 1; a < argc; ++a) {
    const char *loc = argv[a];
    icu::Locale l(loc);
    using DF = icu::DateFormat;
    date_pattern(loc, l, "date_short", DF::kShort, DF::kNone);
    date_pattern(loc, l, "date_medium", DF::kMedium, DF::kNone);
    date_pattern(loc, l, "date_long", DF::kLong, DF::kNone);
    date_pattern(loc, l, "date_full", DF::kFull, DF::kNone);
    date_pattern(loc, l, "time_short", DF::kNone, DF::kShort);
    date_pattern(loc, l, "time_medium", DF::kNone, DF::kMedium);

    UErrorCode e = U_ZERO_ERROR;
    std::unique_ptr<icu::DateTimePatternGenerator> g(icu::DateTimePatternGenerator::createInstance(l, e));
    for (const char *sk : {"yMMMM", "yMMM", "MMMMd", "MMMd", "y", "yy", "yQQQQ", "yQQQ"}) {
      e = U_ZERO_ERROR;
      put(loc, std::string("skel_") + sk, g->getBestPattern(UnicodeString(sk), e));
    }

    e = U_ZERO_ERROR;
    icu::DateFormatSymbols sy(l, e);
    using DS = icu::DateFormatSymbols;
    int32_t n = 0;
    const UnicodeString *v = sy.getQuarters(n, DS::FORMAT, DS::ABBREVIATED);
    names(loc, "q_abbr", v, n, 0);
    v = sy.getQuarters(n, DS::FORMAT, DS::WIDE);
    names(loc, "q_wide", v, n, 0);
    v = sy.getQuarters(n, DS::STANDALONE, DS::ABBREVIATED);
    names(loc, "q_sa_abbr", v, n, 0);
    v = sy.getQuarters(n, DS::STANDALONE, DS::WIDE);
    names(loc, "q_sa_wide", v, n, 0);
    v = sy.getWeekdays(n, DS::STANDALONE, DS::ABBREVIATED);  // index 1 is Sunday
    names(loc, "wd_sa_abbr", v, n, 1);
    v = sy.getWeekdays(n, DS::STANDALONE, DS::WIDE);
    names(loc, "wd_sa_wide", v, n, 1);
    v = sy.getAmPmStrings(n);
    names(loc, "ampm", v, n, 0);

    number_pattern(loc, l, "num_decimal", UNUM_DECIMAL);
    number_pattern(loc, l, "num_currency", UNUM_CURRENCY);
    number_pattern(loc, l, "num_percent", UNUM_PERCENT);
    e = U_ZERO_ERROR;
    icu::DecimalFormatSymbols ds(l, e);
    put(loc, "cur_symbol", ds.getSymbol(icu::DecimalFormatSymbols::kCurrencySymbol));
    put(loc, "cur_code", ds.getSymbol(icu::DecimalFormatSymbols::kIntlCurrencySymbol));
  }
  return 0;
}
