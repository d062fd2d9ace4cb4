// Day numbers, Julian values, weekdays and month lengths: anchors first,
// then a day-by-day sweep of the whole valid range against a calendar kept
// by counting, then random Julian values against the literal oracle.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "oracle/calendar_oracle.hpp"
#include "support/random.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::is_missing;
using xfmt::missing_value;

bool is_ordinary(double v) { return xfmt::double_bits(v) == xfmt::missing_ordinary_bits; }

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

// A value of calendar_calls.txt: see the file's head.
double value_of(const std::string &t) {
  if (t == "ord") return xfmt::missing_ordinary();
  if (t == "nan") return std::nan("");
  if (t[0] == '.') return missing_value(t.size() == 1 ? 1 : t[1] == '_' ? 0 : t[1] - 'A' + 2);
  if (t[0] == 'd') return zmdy(std::stod(t.substr(6, 2)), std::stod(t.substr(9, 2)), std::stod(t.substr(1, 4)));
  return std::stod(t);
}

std::vector<double> values_of(const std::string &field) {
  std::vector<double> v;
  std::istringstream in(field);
  for (std::string t; in >> t;) v.push_back(t == "*" ? 0 : value_of(t));
  return v;
}

// The routines of one double.
const std::pair<const char *, double (*)(double)> one_value[] = {
    {"zjuldat", zjuldat}, {"zdatjul", zdatjul}, {"zyear", zyear},     {"zmonth", zmonth},
    {"zday", zday},       {"zqtr", zqtr},       {"zwekday", zwekday}, {"zdatprt", zdatprt},
    {"ztimprt", ztimprt}, {"zhour", zhour},     {"zminute", zminute}, {"zsecond", zsecond}};

std::vector<double> call(const std::string &name, const std::vector<double> &a) {
  const auto i = [&](size_t k) { return static_cast<int32_t>(a[k]); };
  double y = -9, m = -9, d = -9;
  for (const auto &[n, routine] : one_value)
    if (name == n) return {routine(a[0])};
  if (name == "zmdy") return {zmdy(a[0], a[1], a[2])};
  if (name == "zjulymd") return {zjulymd(a[0], a[1], a[2])};
  if (name == "zhms") return {zhms(a[0], a[1], a[2])};
  if (name == "zdhms") return {zdhms(a[0], a[1], a[2], a[3])};
  if (name == "get_lastday") return {get_lastday(i(0), i(1))};
  if (name == "diff_actact") {
    int64_t days = 0;
    diff_actact(i(0), i(1), i(2), i(3), i(4), i(5), &days, &d);
    return {static_cast<double>(days), d};
  }
  if (name == "zymdjul") return {static_cast<double>(zymdjul(&y, &m, &d, a[0])), y, m, d};
  if (name.rfind("week_", 0) == 0)
    return {static_cast<double>(get_yywwdd(&name[5], 0, &y, &m, &d, a[0])), y, m, d};
  if (name == "getMonthDayYear") {
    int32_t mm = -1, dd = -1, yy = -1;
    const int32_t rc = getMonthDayYear(&mm, &dd, &yy, a[0]);
    return {static_cast<double>(rc), static_cast<double>(mm), static_cast<double>(dd), static_cast<double>(yy)};
  }
  ADD_FAILURE() << "no routine " << name;
  return {};
}

TEST(calendar_anchors, calls_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("datetime/calendar_calls.txt")) {
    const std::vector<double> got = call(r[1], values_of(r[2])), want = values_of(r[3]);
    ASSERT_EQ(got.size(), want.size()) << r[0];
    std::istringstream tokens(r[3]);
    std::string t;
    for (size_t k = 0; k < got.size() && tokens >> t; ++k) {
      if (t == "*") continue;
      if (is_missing(want[k]) || is_missing(got[k]))
        EXPECT_EQ(xfmt::double_bits(got[k]), xfmt::double_bits(want[k])) << r[0] << ": result " << k;
      else
        EXPECT_DOUBLE_EQ(got[k], want[k]) << r[0] << ": result " << k;
    }
  }
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

// Every day of the range against the counting calendar (the days one past
// either end are rows of calendar_calls.txt): day number, Julian value both
// ways, parts, and a weekday that steps by one from 1600-01-02 on.
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
// their anchor is pinned in calendar_calls.txt.
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

}  // namespace
