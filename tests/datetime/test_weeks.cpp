// Week rules, week text, day counts and the digit writer. The ISO rule is
// checked against the ISO 8601 week date computed here from a day-by-day
// calendar (the week's Thursday decides the year), for every day of
// 1600-01-01 .. 2400-12-31; the Sunday and Monday rules against counts of
// Sundays and Mondays since 1 January.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "support/random.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

struct day_info {
  int32_t y, m, d, doy, iso_wd;  // iso_wd 1 = Monday .. 7 = Sunday
};

// Days from 1599-12-01 to 2401-01-31, kept by counting from a known Monday
// (1599-12-06 was one: 1600-01-01 was a Saturday).
struct day_table {
  int64_t first;
  std::vector<day_info> days;
  day_table() {
    first = xfmt::datetime::days_from_ymd(1599, 12, 1);
    int32_t y = 1599, m = 12, d = 1, doy = 335, wd = 3;  // 1599-12-01: Wednesday
    static const int32_t len[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    while (!(y == 2401 && m == 2)) {
      days.push_back({y, m, d, doy, wd});
      wd = wd % 7 + 1;
      ++doy;
      const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
      if (++d > (m == 2 && leap ? 29 : len[m])) {
        d = 1;
        if (++m > 12) { m = 1; ++y; doy = 1; }
      }
    }
  }
  const day_info &at(int64_t n) const { return days[static_cast<size_t>(n - first)]; }
};

TEST(week_rules, every_day_1600_to_2400) {
  const day_table t;
  const int64_t from = xfmt::datetime::days_from_ymd(1600, 1, 1);
  const int64_t to = xfmt::datetime::days_from_ymd(2400, 12, 31);
  const char v = 'V', u = 'U', w = 'W';
  int32_t sundays = 0, mondays = 0, year = 0;
  for (int64_t n = from; n <= to; ++n) {
    const day_info &di = t.at(n);
    if (di.y != year) { year = di.y; sundays = mondays = 0; }
    if (di.iso_wd == 7) ++sundays;
    if (di.iso_wd == 1) ++mondays;
    const day_info &thu = t.at(n - (di.iso_wd - 1) + 3);
    const double iso_year = thu.y, iso_week = (thu.doy - 1) / 7 + 1;
    double gy, gw, gd;
    get_yywwdd(&v, 0, &gy, &gw, &gd, static_cast<double>(n));
    if (gy != iso_year || gw != iso_week || gd != di.iso_wd)
      FAIL() << di.y << "-" << di.m << "-" << di.d << ": got " << gy << "-W" << gw << "-" << gd;
    get_yywwdd(&u, 0, &gy, &gw, &gd, static_cast<double>(n));
    if (gy != di.y || gw != sundays || gd != di.iso_wd % 7 + 1)
      FAIL() << "U " << di.y << "-" << di.m << "-" << di.d << ": got " << gw << " " << gd;
    get_yywwdd(&w, 0, &gy, &gw, &gd, static_cast<double>(n));
    if (gy != di.y || gw != mondays || gd != di.iso_wd)
      FAIL() << "W " << di.y << "-" << di.m << "-" << di.d << ": got " << gw << " " << gd;
  }
}

// The week texts of tests/data/datetime/week_text.txt.
TEST(week_text, texts_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("datetime/week_text.txt")) {
    char buf[24];
    std::memset(buf, '#', sizeof buf);
    int32_t w = std::stoi(r[2]);
    const double day = r[3] == "." ? xfmt::missing_ordinary()
                                   : zmdy(std::stod(r[3].substr(5, 2)), std::stod(r[3].substr(8, 2)),
                                          std::stod(r[3].substr(0, 4)));
    zkfweek(buf, &w, r[1].c_str(), 0, day);
    const std::string want = r[4].substr(1, r[4].size() - 2);
    EXPECT_EQ(std::string(buf, want.size()), want) << r[0];
    EXPECT_EQ(w, std::stoi(r[5])) << r[0];
    EXPECT_EQ(buf[want.size()], '#') << r[0];
  }
}

// Random pairs of dates in 1600..2400 against counting day by day.
TEST(day_counts, random_pairs_against_counting) {
  const day_table t;
  auto gen = xfmt::test::rng(41);
  const int64_t lo = xfmt::datetime::days_from_ymd(1600, 1, 1);
  const int64_t hi = xfmt::datetime::days_from_ymd(2400, 12, 31);
  std::uniform_int_distribution<int64_t> pick(lo, hi), span(0, 3000);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    const int64_t a = pick(gen), b = std::min(hi, a + (i % 2 ? span(gen) : pick(gen) - lo));
    const day_info &da = t.at(a), &db = t.at(b);
    double leap_days = 0, common_days = 0;
    for (int64_t n = a; n < b; ++n) {
      const int32_t y = t.at(n).y;
      ((y % 4 == 0 && y % 100 != 0) || y % 400 == 0 ? leap_days : common_days) += 1;
    }
    int64_t days = 0;
    double frac = 0;
    diff_actact(da.m, da.d, da.y, db.m, db.d, db.y, &days, &frac);
    ASSERT_EQ(days, b - a) << a << " " << b;
    ASSERT_NEAR(frac, leap_days / 366 + common_days / 365, 1e-9) << a << " " << b;
    if (b - a > 400) i += 20;  // long spans count slowly: fewer of them
  }
}

TEST(digits, i2s_fills) {
  char buf[24];
  EXPECT_EQ(i2s(7, buf, 3, '0'), 3);
  EXPECT_EQ(std::string(buf, 3), "007");
  EXPECT_EQ(i2s(7, buf, 3, ' '), 3);
  EXPECT_EQ(std::string(buf, 3), "  7");
  EXPECT_EQ(i2s(0, buf, 3, ' '), 3);
  EXPECT_EQ(std::string(buf, 3), "  0");
  EXPECT_EQ(i2s(12345, buf, 2, '0'), 2);
  EXPECT_EQ(std::string(buf, 2), "45");
  EXPECT_EQ(i2s(12345, buf, 1, '\0'), 5);
  EXPECT_EQ(std::string(buf, 5), "12345");
  EXPECT_EQ(i2s(0, buf, 9, '\0'), 1);
  EXPECT_EQ(buf[0], '0');
  EXPECT_EQ(i2s(INT64_MIN, buf, 0, '\0'), 19);
  EXPECT_EQ(std::string(buf, 19), "9223372036854775808");
  EXPECT_EQ(i2s(5, buf, 0, '0'), 0);
}

}  // namespace
