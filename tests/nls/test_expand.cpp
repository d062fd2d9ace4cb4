// Expanding patterns on a test record, against the texts written out by
// hand in tests/data/nls/expand.txt (every letter and flag, hours at
// midnight, noon and past 99, padding, years past 9999, the seconds'
// fraction, missing parts, unreadable and escaped names, weeks at year
// edges, eras, fitting into a field, zones).
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include "datetime/calendar.hpp"
#include "nls/expand.hpp"
#include "nls/zkf.hpp"
#include "record.hpp"
#include "support/cases.hpp"
#include "support/rows.hpp"

namespace {

using xfmt::nls::expand;
using xfmt::nls::moment;
using xfmt::test::test_record;

// The English-like record, or it with the one change the name says.
test_record record_of(const std::string &kind) {
  test_record r = xfmt::test::english_like();
  if (kind == "comma_point") r.fields[172] = ",";
  if (kind == "unreadable") {
    r.fields.erase(114 + 6);
    r.fields.erase(151);
    r.fields.erase(152);
  }
  if (kind == "escaped") {
    for (int i = 0; i < 12; ++i) r.fields[71 + i] = "Xyz";
    r.fields[71 + 2] = "M<U00E4>rz";  // 4 characters
    r.fields[71 + 8] = "Sept";
  }
  if (kind == "thai" || kind == "taiwan" || kind == "japan")
    r.fields[5] = kind == "thai" ? "TH" : kind == "taiwan" ? "TW" : "JP";
  return r;
}

// "YYYY-MM-DD", a time "H:MM" or "H:MM:SS.s" after it or alone, "-": the
// date through the library's calendar, the time as written (hours past 23
// and a time without seconds are moments no value makes).
moment moment_of(const std::string &s) {
  moment m;
  int y = 0, mo = 0, d = 0, used = 0;
  const char *p = s.c_str();
  if (std::sscanf(p, "%d-%d-%d%n", &y, &mo, &d, &used) == 3) {
    m = xfmt::nls::date_moment_of(static_cast<double>(xfmt::datetime::days_from_ymd(y, mo, d)));
    p += used;
  }
  long long h = 0;
  int mi = 0;
  double sec = 0;
  const int parts = std::sscanf(p, " %lld:%d:%lf", &h, &mi, &sec);
  m.has_hour = m.has_minute = parts >= 2;
  m.has_second = parts == 3;
  m.hour = h;
  m.minute = mi;
  m.second = sec;
  return m;
}

// The expansion in a field of width (negative: right aligned): its code and
// the text (the whole field unless it fits left aligned).
std::pair<int, std::string> run(const std::string &pattern, const moment &m,
                                const test_record &rec, int32_t width, int32_t decimals) {
  char out[256];
  int32_t w = width;
  const int code = expand(m, rec.reader(), pattern.data(), pattern.size(), out, &w, decimals);
  const auto field = static_cast<size_t>(width < 0 ? -width : width);
  return {code, std::string(out, code == 0 && width >= 0 ? static_cast<size_t>(w) : field)};
}

TEST(expand, texts_of_the_file) {
  std::optional<xfmt::test::variable_scope> zone;  // from the row that names one on
  for (const auto &r : xfmt::test::tab_rows("nls/expand.txt")) {
    ASSERT_GE(r.size(), 8u) << r[0];
    if (r.size() > 8) {
      zone.reset();
      zone.emplace("TZ", r[8].c_str());
    }
    const auto [code, text] = run(xfmt::test::unescaped(r[5]), moment_of(r[2]), record_of(r[1]),
                                  std::stoi(r[4]), std::stoi(r[3]));
    EXPECT_EQ(code, r[6] == "fits" ? 0
                    : r[6] == "too_long" ? xfmt::nls::expand_too_long
                                         : xfmt::nls::expand_bad_letter)
        << r[0];
    if (r[7] != "*") {
      EXPECT_EQ(text, r[7]) << r[0];
    }
  }
  EXPECT_EQ(xfmt::nls::escaped_length("M<U00E4>rz"), 4u);
  EXPECT_EQ(xfmt::nls::escaped_length("<U00E4"), 6u);
}

}  // namespace
