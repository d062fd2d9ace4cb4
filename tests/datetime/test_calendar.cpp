// Day numbers, Julian values, weekdays and month lengths: anchors first,
// then a day-by-day sweep of the whole valid range against a calendar kept
// by counting, then random Julian values against the literal oracle.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "oracle/calendar_oracle.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::is_missing;
using xfmt::missing_value;

const uint64_t ordinary = 0xFFFFFE0000000000ull;
uint64_t bits(double v) { return xfmt::double_bits(v); }
bool is_ordinary(double v) { return bits(v) == ordinary; }

// The calendar a person would keep by hand: one day after another, with
// the 4000-year exception.
struct counter {
  int64_t y, m, d, doy;
  static bool leap(int64_t yy) { return yy % 4000 != 0 && (yy % 400 == 0 || (yy % 100 != 0 && yy % 4 == 0)); }
  int64_t month_len() const {
    static const int64_t len[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && leap(y) ? 29 : len[m];
  }
  void next() {
    ++doy;
    if (++d > month_len()) {
      d = 1;
      if (++m > 12) { m = 1; ++y; doy = 1; }
    }
  }
};

TEST(calendar_anchors, mdy_edge_cases) {
  EXPECT_EQ(zmdy(1, 1, 1960), 0.0);
  EXPECT_TRUE(is_ordinary(zmdy(2, 29, 1900)));
  EXPECT_EQ(zmdy(2, 29, 2000), 14669.0);
  EXPECT_TRUE(is_ordinary(zmdy(2, 29, 4000)));
  EXPECT_EQ(zmdy(3, 1, 4000), 745154.0);
  EXPECT_TRUE(is_ordinary(zmdy(12, 31, 1581)));
  EXPECT_TRUE(is_ordinary(zmdy(1, 1, 100)));
  EXPECT_TRUE(is_ordinary(zmdy(6, 15, 1000)));
  EXPECT_EQ(zmdy(1, 1, 49), zmdy(1, 1, 2049));
  EXPECT_EQ(zmdy(1, 1, 50), zmdy(1, 1, 1950));
  EXPECT_EQ(zmdy(1, 1, 0), zmdy(1, 1, 2000));
  EXPECT_EQ(zmdy(12, 31, 99), zmdy(12, 31, 1999));
  EXPECT_EQ(zmdy(1, 1, 1582), -138061.0);
  EXPECT_EQ(zmdy(12, 31, 20000), 6589335.0);
  EXPECT_TRUE(is_ordinary(zmdy(1, 1, 20001)));
  EXPECT_TRUE(is_ordinary(zmdy(13, 1, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(0, 1, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(4, 31, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(1, 32, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(1, 0.5, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(1, 1, -1)));
  EXPECT_EQ(zmdy(1.9, 1.9, 1960.9), 0.0);  // parts are truncated, not rounded
  EXPECT_TRUE(is_ordinary(zmdy(missing_value(5), 1, 2000)));
  EXPECT_TRUE(is_ordinary(zmdy(1, 1, std::nan(""))));
}

TEST(calendar_anchors, julian_edge_cases) {
  EXPECT_EQ(zjuldat(-138061), 1582001.0);
  EXPECT_TRUE(is_ordinary(zjuldat(-138062)));
  EXPECT_TRUE(is_ordinary(zjuldat(6589336)));
  EXPECT_EQ(zjuldat(6589335), 20000365.0);
  EXPECT_EQ(zjuldat(-0.5), 1959365.0);
  EXPECT_EQ(zjuldat(0), 1960001.0);
  EXPECT_EQ(zjuldat(-1), 1959365.0);
  EXPECT_EQ(bits(zjuldat(missing_value(10))), bits(missing_value(10)));  // passes through as it came
  EXPECT_EQ(zdatjul(20000365), 6589335.0);
  EXPECT_TRUE(is_ordinary(zdatjul(20000366)));
  EXPECT_EQ(zdatjul(2000000), 14609.0);  // day 0: the last day of the year before
  EXPECT_EQ(zdatjul(1960001), 0.0);
  EXPECT_TRUE(is_ordinary(zdatjul(0)));
  EXPECT_TRUE(is_ordinary(zdatjul(-5)));
  EXPECT_TRUE(is_ordinary(zdatjul(1581365)));
  EXPECT_TRUE(is_ordinary(zdatjul(100001)));
  EXPECT_TRUE(is_ordinary(zdatjul(2001366)));
  EXPECT_TRUE(is_ordinary(zdatjul(2000367)));
  EXPECT_EQ(zdatjul(2000366), zmdy(12, 31, 2000));
  EXPECT_EQ(zdatjul(60001), zmdy(1, 1, 1960));
  EXPECT_EQ(zdatjul(49001), zmdy(1, 1, 2049));
  EXPECT_EQ(zjulymd(60, 1, 1), 1960001.0);
  EXPECT_EQ(zjulymd(2023, 7, 4), 2023185.0);
  EXPECT_TRUE(is_ordinary(zjulymd(99.5, 1, 1)));

  double y, m, d;
  EXPECT_EQ(zymdjul(&y, &m, &d, 2000000), 0);
  EXPECT_EQ(y, 2000.0);
  EXPECT_EQ(m, 1.0);
  EXPECT_EQ(d, 0.0);
  EXPECT_EQ(zymdjul(&y, &m, &d, 2000366), 0);
  EXPECT_EQ(m, 12.0);
  EXPECT_EQ(d, 31.0);
  EXPECT_EQ(zymdjul(&y, &m, &d, 1999366), 0);
  EXPECT_TRUE(is_ordinary(y) && is_ordinary(m) && is_ordinary(d));
  EXPECT_EQ(zymdjul(&y, &m, &d, 49060), 0);
  EXPECT_EQ(y, 2049.0);
  EXPECT_EQ(m, 3.0);
  EXPECT_EQ(d, 1.0);
}

TEST(calendar_anchors, parts_and_weekday) {
  const double d = zmdy(7, 4, 2023);
  EXPECT_EQ(zyear(d), 2023.0);
  EXPECT_EQ(zmonth(d), 7.0);
  EXPECT_EQ(zday(d), 4.0);
  EXPECT_EQ(zqtr(d), 3.0);
  EXPECT_EQ(zqtr(zmdy(12, 31, 2023)), 4.0);
  EXPECT_EQ(zqtr(zmdy(3, 31, 2023)), 1.0);
  EXPECT_EQ(bits(zyear(missing_value(0))), bits(missing_value(0)));
  EXPECT_EQ(bits(zqtr(missing_value(27))), bits(missing_value(27)));
  EXPECT_TRUE(is_ordinary(zyear(6589336)));
  EXPECT_TRUE(is_ordinary(zqtr(-138062)));

  EXPECT_EQ(zwekday(0), 6.0);
  EXPECT_EQ(zwekday(-131486), 1.0);
  EXPECT_EQ(zwekday(-131487), 0.0);  // kept as hosts know it: not a true weekday
  EXPECT_EQ(zwekday(-131492), -5.0);
  EXPECT_EQ(zwekday(-131493), 1.0);
  EXPECT_TRUE(is_ordinary(zwekday(-138062)));
  EXPECT_TRUE(is_ordinary(zwekday(missing_value(1))));

  int32_t mm = -1, dd = -1, yy = -1;
  EXPECT_EQ(getMonthDayYear(&mm, &dd, &yy, d + 0.75), 7);
  EXPECT_EQ(dd, 4);
  EXPECT_EQ(yy, 2023);
  EXPECT_EQ(getMonthDayYear(&mm, &dd, &yy, missing_value(1)), 0);
  EXPECT_EQ(mm + dd + yy, 0);
}

TEST(calendar_anchors, last_day_rule) {
  struct { int32_t m, y; double days; } rows[] = {
      {2, 1804, 28}, {2, 1904, 29}, {2, 2000, 29}, {2, 2096, 29}, {2, 2104, 28}, {2, 1900, 28},
      {2, 1600, 29}, {2, 4000, 28}, {2, 2001, 28}, {24, 1999, 31}, {12, 1999, 31}, {14, 2001, 28},
      {14, 2004, 29}, {13, 2000, 31}, {4, 2000, 30}, {0, 2000, 0},  {-3, 2000, 0},  {36, 7, 31},
  };
  for (const auto &r : rows) EXPECT_EQ(get_lastday(r.m, r.y), r.days) << r.m << "/" << r.y;
}

TEST(calendar_tables, contents) {
  int32_t sum = 0;
  for (int i = 0; i < 12; ++i) sum += dpm[i];
  EXPECT_EQ(sum + 28, 365);
  sum = 0;
  for (int i = 1; i <= 12; ++i) sum += daysinmonth[i];
  EXPECT_EQ(sum, 365);
  EXPECT_EQ(daysinmonth[0], 0);
  EXPECT_STREQ(datestgs[0], "January");
  EXPECT_STREQ(datestgs[12 + 6], "JUL");
  EXPECT_STREQ(datestgs[24 + 6], "Saturday");
  for (int i = 0; i < 12; ++i) EXPECT_STREQ(months[i], datestgs[i]);
  for (int i = 0; i < 7; ++i) EXPECT_STREQ(weekdays[i], datestgs[24 + i]);
  EXPECT_STREQ(letters, " MTSHR ");
  const int start[5][3] = {{1868, 4, 6}, {1912, 7, 30}, {1926, 12, 25}, {1989, 1, 8}, {2019, 5, 1}};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(reigns[i][0], zmdy(start[i][1], start[i][2], start[i][0]));
    EXPECT_EQ(reigns[i][1], start[i][0]);
  }
  EXPECT_EQ(reigns[5][0], 0.0);
  EXPECT_EQ(reigns[5][1], 0.0);
}

// Every day of the range and one day beyond each end, against the counting
// calendar: day number, Julian value both ways, parts, and a weekday that
// steps by one from 1600-01-02 on.
TEST(calendar_sweep, whole_range_against_counting) {
  const int64_t total = xfmt::datetime::date_max - xfmt::datetime::date_min + 1;
  const uint64_t checks = xfmt::test::scaled(static_cast<uint64_t>(total));
  const int64_t stride = checks >= static_cast<uint64_t>(total) ? 1 : total / static_cast<int64_t>(checks);
  counter c{1582, 1, 1, 1};
  int64_t weekday = 0;  // 1 = Sunday from 1600-01-02 on
  for (int64_t n = xfmt::datetime::date_min; n <= xfmt::datetime::date_max; ++n, c.next()) {
    if (n == -131486) weekday = 1;
    const bool check = (n - xfmt::datetime::date_min) % stride == 0 || n == xfmt::datetime::date_max ||
                       (c.m == 2 && c.d >= 28) || (c.m == 3 && c.d == 1);
    if (check) {
      const auto v = static_cast<double>(n);
      const double jul = static_cast<double>(c.y * 1000 + c.doy);
      const auto e = xfmt::datetime::ymd_from_days(n);
      // Plain comparisons with one assertion keep the sweep fast in debug builds.
      const bool ok =
          e.year == c.y && e.month == c.m && e.day == c.d &&
          xfmt::datetime::ymd_in_range(n).year == c.y && xfmt::datetime::ymd_in_range(n).month == c.m &&
          xfmt::datetime::ymd_in_range(n).day == c.d &&
          xfmt::datetime::days_from_ymd(c.y, static_cast<int32_t>(c.m), static_cast<int32_t>(c.d)) == n &&
          zjuldat(v + 0.999) == jul && zdatjul(jul) == v &&
          (weekday == 0 || zwekday(v) == static_cast<double>(weekday)) &&
          // The compositions of the routines above: every 13th day (all
          // weekdays and month positions over time) and every month's ends.
          ((n % 13 != 0 && c.d > 1 && c.d < 28) ||
           (zmdy(static_cast<double>(c.m), static_cast<double>(c.d), static_cast<double>(c.y)) == v &&
            zjulymd(static_cast<double>(c.y), static_cast<double>(c.m), static_cast<double>(c.d)) == jul &&
            zyear(v) == static_cast<double>(c.y) && zmonth(v) == static_cast<double>(c.m) &&
            zday(v) == static_cast<double>(c.d)));
      if (!ok) FAIL() << "day " << n << " (" << c.y << "-" << c.m << "-" << c.d << ")";
    }
    if (weekday) weekday = weekday % 7 + 1;
  }
  EXPECT_EQ(c.y, 20001);
  EXPECT_TRUE(is_ordinary(zjuldat(static_cast<double>(xfmt::datetime::date_max + 1))));
  EXPECT_TRUE(is_ordinary(zjuldat(static_cast<double>(xfmt::datetime::date_min - 1))));
  EXPECT_TRUE(is_ordinary(zwekday(static_cast<double>(xfmt::datetime::date_max + 1))));
}

// Julian values of every shape (valid, day 0, day 366, centuries 100..1581,
// two-digit years, fractions) against the literal oracle.
TEST(calendar_differential, julian_values_against_oracle) {
  auto gen = xfmt::test::rng(31);
  const uint64_t n = xfmt::test::scaled(200000);
  std::uniform_int_distribution<int64_t> year_dist(0, 20001), ddd_dist(0, 400);
  std::uniform_real_distribution<double> frac(0, 1);
  for (uint64_t i = 0; i < n; ++i) {
    const int64_t y = i % 3 == 0 ? year_dist(gen) % 120 : year_dist(gen);
    const double v = static_cast<double>(y * 1000 + ddd_dist(gen)) + (i % 5 == 0 ? frac(gen) : 0.0);
    int64_t want = 0;
    const bool ok = xfmt::oracle::datjul(v, want);
    const double got = zdatjul(v);
    if (!ok) {
      ASSERT_TRUE(is_ordinary(got)) << v;
    } else {
      ASSERT_EQ(got, static_cast<double>(want)) << v;
    }
    int64_t oy, om, od;
    double ly, lm, ld;
    zymdjul(&ly, &lm, &ld, v);
    if (!xfmt::oracle::ymdjul(v, oy, om, od)) {
      ASSERT_TRUE(is_ordinary(ly) && is_ordinary(lm) && is_ordinary(ld)) << v;
    } else {
      ASSERT_TRUE(ly == static_cast<double>(oy) && lm == static_cast<double>(om) && ld == static_cast<double>(od)) << v;
    }
  }
}

TEST(calendar_differential, ymd_against_oracle) {
  auto gen = xfmt::test::rng(32);
  const uint64_t n = xfmt::test::scaled(200000);
  std::uniform_real_distribution<double> y(-5, 20010), m(-1, 14), d(-1, 33);
  for (uint64_t i = 0; i < n; ++i) {
    const double yy = i % 4 == 0 ? std::trunc(y(gen)) : y(gen), mm = i % 2 ? std::trunc(m(gen)) : m(gen);
    const double dd = i % 2 ? std::trunc(d(gen)) : d(gen);
    int64_t want = 0;
    const double got = zjulymd(yy, mm, dd);
    if (!xfmt::oracle::julymd(yy, mm, dd, want)) {
      ASSERT_TRUE(is_ordinary(got)) << yy << " " << mm << " " << dd;
    } else {
      ASSERT_EQ(got, static_cast<double>(want)) << yy << " " << mm << " " << dd;
    }
  }
  // The year-walking oracle is slow: a few thousand dates.
  std::uniform_int_distribution<int64_t> day(xfmt::datetime::date_min, xfmt::datetime::date_max);
  for (uint64_t i = 0; i < xfmt::test::scaled(3000); ++i) {
    const int64_t v = day(gen);
    ASSERT_EQ(zjuldat(static_cast<double>(v)), static_cast<double>(xfmt::oracle::juldat(v))) << v;
  }
}

}  // namespace

namespace {

// The typed calendar against the counting one over the whole range: the
// weekday stepping from 1960-01-01 (a Friday), month lengths, the U and W
// weeks by counting Sundays and Mondays, the ISO week by counting Mondays
// from the Monday of week 1 (the one from 29 December to 4 January). Week
// numbers of years divisible by 4000 and the ISO weeks next to them follow
// the plain day count (one 29 February more), which counting cannot give;
// their anchor is pinned below.
TEST(calendar_sweep, typed_weeks_and_weekdays_against_counting) {
  using namespace xfmt::datetime;
  counter c{1582, 1, 1, 1};
  int64_t sundays = 0, mondays = 0, iso_year = 0, iso_w = 0;
  int32_t wd = weekday(date_min);  // checked against the step below from 1960 on
  for (int64_t n = date_min; n <= date_max; ++n, c.next(), wd = (wd + 1) % 7) {
    if (c.doy == 1) sundays = mondays = 0;
    if (wd == 0) ++sundays;
    if (wd == 1) {
      ++mondays;
      const bool first = (c.m == 12 && c.d >= 29) || (c.m == 1 && c.d <= 4);
      if (first) iso_year = c.m == 12 ? c.y + 1 : c.y;
      if (iso_year != 0) iso_w = first ? 1 : iso_w + 1;
    }
    if (n == 0 && wd != 5) FAIL() << "1960-01-01 is not a Friday";
    const bool plain_count_differs = c.y % 4000 == 0 || (c.y % 4000 == 1 && c.doy <= 7) ||
                                     (c.y % 4000 == 3999 && c.doy >= 358);
    if (weekday(n) != wd || days_in_month(c.y, static_cast<int32_t>(c.m)) != c.month_len())
      FAIL() << "weekday or month length on day " << n;
    if (plain_count_differs) continue;
    const week_date u = week_of(n, week_rule::sunday), w = week_of(n, week_rule::monday);
    const week_date v = week_of(n, week_rule::iso);
    const int32_t monday_based = wd == 0 ? 7 : wd;
    if (u.year != c.y || u.week != sundays || u.weekday != wd + 1 || w.year != c.y || w.week != mondays ||
        w.weekday != monday_based || (iso_year != 0 && (v.year != iso_year || v.week != iso_w)) ||
        v.weekday != monday_based)
      FAIL() << "weeks of " << c.y << "-" << c.m << "-" << c.d << ": U " << u.week << " W " << w.week
             << " V " << v.year << "-" << v.week;
  }
}

TEST(calendar_anchors, weeks_of_a_4000_year_count_its_plain_29_february) {
  using namespace xfmt::datetime;
  // 20000-01-01 is a Tuesday, so 20000-03-01 (a Friday, day 60) follows
  // eight Mondays; the week rules count it as day 61 and give week 9.
  const int64_t n = days_from_ymd(20000, 3, 1);
  ASSERT_EQ(weekday(n), 5);
  ASSERT_EQ(weekday(days_from_ymd(20000, 1, 1)), 2);
  EXPECT_EQ(day_of_year(20000, 3, 1), 60);
  EXPECT_EQ(day_of_year_plain(20000, 3, 1), 61);
  EXPECT_EQ(week_of(n, week_rule::monday).week, 9);
  EXPECT_EQ(week_of(n - 1, week_rule::monday).week, 8);  // 28 February
}

TEST(calendar_anchors, time_of_day_split) {
  using xfmt::datetime::split_time;
  const struct {
    double v, h, m, s;
  } cases[] = {{0, 0, 0, 0},           {90061.25, 1, 1, 1.25}, {86399.5, 23, 59, 59.5},
               {-1, 23, 59, 59},       {-0.5, 23, 59, 59.5},   {-86400, 0, 0, 0},
               {-90061, 22, 58, 59},   {172800 + 3600, 1, 0, 0}};
  for (const auto &t : cases) {
    const auto p = split_time(t.v);
    EXPECT_EQ(p.hour, t.h) << t.v;
    EXPECT_EQ(p.minute, t.m) << t.v;
    EXPECT_EQ(p.second, t.s) << t.v;
    EXPECT_EQ(zhour(t.v), t.h);
  }
  for (int64_t day : {xfmt::datetime::date_min, int64_t{-1}, int64_t{0}, int64_t{23196}, xfmt::datetime::date_max})
    for (double s : {0.0, 0.5, 43200.0, 86399.999})
      EXPECT_EQ(xfmt::datetime::day_of_datetime(static_cast<double>(day) * 86400 + s), day);
}

}  // namespace
