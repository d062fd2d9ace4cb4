// Week text, day counts and the digit writer. The week rules themselves are
// swept over the whole range in test_calendar (typed_weeks_and_weekdays) and
// reached through get_yywwdd by the rows of calendar_calls.txt.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "support/random.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

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

// Random pairs of dates in 1600..2400 against the days of each year between
// them (the day numbers and calendar dates are those the whole-range sweep of
// test_calendar proves against counting).
TEST(day_counts, random_pairs_against_counting) {
  using xfmt::datetime::days_from_ymd;
  auto gen = xfmt::test::rng(41);
  const int64_t lo = days_from_ymd(1600, 1, 1), hi = days_from_ymd(2400, 12, 31);
  std::uniform_int_distribution<int64_t> pick(lo, hi), span(0, 3000);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    const int64_t a = pick(gen), b = std::min(hi, a + (i % 2 ? span(gen) : pick(gen) - lo));
    const auto da = xfmt::datetime::ymd_from_days(a), db = xfmt::datetime::ymd_from_days(b);
    double leap_days = 0, common_days = 0;
    for (int64_t y = da.year; y <= db.year; ++y) {
      const int64_t in_year = std::min(b, days_from_ymd(y + 1, 1, 1)) - std::max(a, days_from_ymd(y, 1, 1));
      ((y % 4 == 0 && y % 100 != 0) || y % 400 == 0 ? leap_days : common_days) += static_cast<double>(in_year);
    }
    int64_t days = 0;
    double frac = 0;
    diff_actact(da.month, da.day, static_cast<int32_t>(da.year), db.month, db.day, static_cast<int32_t>(db.year),
                &days, &frac);
    ASSERT_EQ(days, b - a) << a << " " << b;
    ASSERT_NEAR(frac, leap_days / 366 + common_days / 365, 1e-9) << a << " " << b;
  }
}

// The digit writer on the rows of tests/data/datetime/i2s.txt.
TEST(digits, i2s_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("datetime/i2s.txt")) {
    char buf[24];
    const std::string want = r.size() > 5 ? r[5] : "";
    EXPECT_EQ(i2s(std::stoll(r[1]), buf, std::stoi(r[2]), xfmt::test::unescaped(r[3]).at(0)), std::stoi(r[4])) << r[0];
    EXPECT_EQ(std::string(buf, want.size()), want) << r[0];
  }
}

}  // namespace
