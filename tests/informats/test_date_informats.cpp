// The date, time and datetime informats (their tables, and what every one
// of them shares, are in tests/data/informats): round trips through the date
// formats, where every day of a wide range printed by a format and read back
// gives the same day, and random texts against an oracle or strtod.
#include <gtest/gtest.h>

#include <cstdint>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"
#include "oracle/calendar_oracle.hpp"
#include "support/random.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::hex;
using xfmt::test::miss;
using xfmt::test::num;
using xfmt::test::print;
using xfmt::test::round_trip;
using xfmt::test::run_informat;

// --- Round trips through the date formats --------------------------------

const int64_t y1582 = days_from_ymd(1582, 1, 1);
const int64_t y1950 = days_from_ymd(1950, 1, 1), y2049 = days_from_ymd(2049, 12, 31);
const int64_t y2200 = days_from_ymd(2200, 12, 31), y9999 = days_from_ymd(9999, 12, 31);

TEST(DateInformatsRoundTrip, exhaustive_FourDigitYearsEveryDay) {
  round_trip(zfmdate, 9, zifmdate, y1582, y2200);
  round_trip(zfmdate, 11, zifmdate, y1582, y2200, 3);
  // Width 10 is the only one with four year digits: 8 prints "07/04/23".
  round_trip(zfmmdy, 10, zifmmdy, y1582, y2200);
  round_trip(zfmdmy, 10, zifmdmy, y1582, y2200);
  round_trip(zfmymd, 10, zifmymd, y1582, y2200);
  round_trip(zfmjul, 7, zifmjul, y1582, y2200);
  // Sparser up to the last four-digit year.
  round_trip(zfmdate, 9, zifmdate, y2200, y9999, 37);
  round_trip(zfmymd, 10, zifmymd, y2200, y9999, 41);
  round_trip(zfmjul, 7, zifmjul, y2200, y9999, 43);
}

TEST(DateInformatsRoundTrip, TwoDigitYearsEveryDay) {
  round_trip(zfmdate, 7, zifmdate, y1950, y2049);
  for (int32_t w : {6, 8}) {
    round_trip(zfmmdy, w, zifmmdy, y1950, y2049);
    round_trip(zfmdmy, w, zifmdmy, y1950, y2049);
    round_trip(zfmymd, w, zifmymd, y1950, y2049);
  }
  round_trip(zfmjul, 5, zifmjul, y1950, y2049);
}

// Every day-month-year layout (no separator, blank, colon, dash, period,
// slash) at every width that shows a whole date reads back with the matching
// informat ("01:01:1582", once refused, is a case line too).
TEST(DateInformatsRoundTrip, exhaustive_EverySeparatorAndWidth) {
  const struct {
    const char *prefix;
    xf_routine informat;
  } families[] = {{"DDMMYY", zifmdmy}, {"MMDDYY", zifmmdy}, {"YYMMDD", zifmymd}};
  const fmtinfo *m = jazwfdte();
  int layouts = 0;
  for (const auto &fam : families) {
    for (uint64_t i = 0; i < m->count; ++i) {
      const fmtinfo_eachfmt &r = m->rows[i];
      if (r.routine == nullptr || r.name_length < 6 || r.name_length > 7 ||
          std::string(r.name, 6) != fam.prefix)
        continue;
      ++layouts;
      for (int32_t w = std::max<int32_t>(6, r.min_width); w <= r.max_width; ++w) {
        const bool four_digits = print(r.routine, static_cast<double>(days_from_ymd(2023, 7, 4)), w)
                                     .find("2023") != std::string::npos;
        if (four_digits)
          round_trip(r.routine, w, fam.informat, y1582, y2200, 5);
        else
          round_trip(r.routine, w, fam.informat, y1950, y2049, 2);
      }
    }
  }
  EXPECT_EQ(layouts, 21);
}

// From the first day of the first era to the last day the printed era year
// has two digits: R.99 is 2117.
TEST(DateInformatsRoundTrip, EraEveryDay) {
  const int64_t last = days_from_ymd(2117, 12, 31);
  round_trip(zfmneng, 10, zifmneng, static_cast<int64_t>(reigns[0][0]), last);
  round_trip(zfmneng, 8, zifmneng, static_cast<int64_t>(reigns[0][0]), last, 7);
}

// MONYY and YYQ of any day read back as the first day of its month or
// quarter: steps of 27 and 89 days reach every month and quarter.
TEST(DateInformatsRoundTrip, MonthsAndQuarters) {
  round_trip(zfmmony, 7, zifmmony, y1582, y9999, 27, false, xfmt::test::month_start);
  round_trip(zfmyyq, 6, zifmyyq, y1582, y9999, 89, false, xfmt::test::quarter_start);
}

TEST(DateInformatsRoundTrip, TimesAndDatetimes) {
  round_trip(zfmtime, 8, zifmtime, 0, 86399);  // every second of a day
  auto gen = xfmt::test::rng(0xDA7E);
  std::uniform_int_distribution<int64_t> pick(y1582 * 86400, (y9999 + 1) * 86400 - 1);
  const uint64_t count = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < count; ++i) {
    const double v = static_cast<double>(pick(gen));
    const std::string text = print(zfmdttm, v, 18);
    ASSERT_EQ(hex(run_informat(zifmdttm, text, 18).bits), hex(num(v))) << text;
  }
}

// Random calendar days, existing or not, written with snprintf in the
// separated and compact shapes, against the calendar oracle's day number.
TEST(DateInformatsRandom, ShapesAgainstOracle) {
  auto gen = xfmt::test::rng(0x3D47);
  std::uniform_int_distribution<int> year(1582, 9999), month(1, 12), dd(1, 31), sep(0, 3);
  const char seps[] = "/-. ";
  const uint64_t count = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < count; ++i) {
    const int y = year(gen), m = month(gen), d = dd(gen);
    const char s1 = seps[sep(gen)], s2 = seps[sep(gen)];
    int64_t julian = 0, expected_day = 0;
    const bool exists = xfmt::oracle::julymd(y, m, d, julian) &&
                        xfmt::oracle::datjul(static_cast<double>(julian), expected_day);
    const std::string expected = hex(exists ? num(static_cast<double>(expected_day)) : miss('.'));
    const xf_status status = exists ? XF_OK : XF_IN_INVALID;
    char text[40];
    std::snprintf(text, sizeof text, "%d%c%d%c%04d", m, s1, d, s2, y);
    auto got = run_informat(zifmmdy, text, 32);
    ASSERT_EQ(got.status, status) << text;
    ASSERT_EQ(hex(got.bits), expected) << text;
    std::snprintf(text, sizeof text, "%02d%02d%04d", d, m, y);
    ASSERT_EQ(hex(run_informat(zifmdmy, text, 8).bits), expected) << text;
    std::snprintf(text, sizeof text, "%04d%c%02d%c%d", y, s1, m, s2, d);
    ASSERT_EQ(hex(run_informat(zifmymd, text, 32).bits), expected) << text;
    std::snprintf(text, sizeof text, "%d%c%s%c%04d", d, s1, datestgs[11 + m], s2, y);
    ASSERT_EQ(hex(run_informat(zifmdate, text, 32).bits), expected) << text;
  }
}

// Random times with up to six decimals of a second, optionally on the
// twelve-hour clock, against the sum of the parts with the seconds read by
// strtod.
TEST(DateInformatsRandom, TimesAgainstStrtod) {
  auto gen = xfmt::test::rng(0x71AE);
  std::uniform_int_distribution<int> hour(0, 23), sixty(0, 59), places(0, 6), clock(0, 1);
  std::uniform_int_distribution<long> fraction(0, 999999);
  const long cut[7] = {1000000, 100000, 10000, 1000, 100, 10, 1};  // k of the six digits kept
  const uint64_t count = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < count; ++i) {
    const int h = hour(gen), m = sixty(gen), s = sixty(gen), k = places(gen);
    char sec[16];
    if (k == 0)
      std::snprintf(sec, sizeof sec, "%02d", s);
    else
      std::snprintf(sec, sizeof sec, "%02d.%0*ld", s, k, fraction(gen) / cut[k]);
    char text[40];
    if (clock(gen) == 1)
      std::snprintf(text, sizeof text, "%d:%02d:%s %s", h % 12 == 0 ? 12 : h % 12, m, sec, h < 12 ? "AM" : "PM");
    else
      std::snprintf(text, sizeof text, "%d:%02d:%s", h, m, sec);
    const double expected = static_cast<double>(h * 3600 + m * 60) + std::strtod(sec, nullptr);
    auto got = run_informat(zifmtime, text, 32);
    ASSERT_EQ(got.status, XF_OK) << text;
    ASSERT_EQ(hex(got.bits), hex(num(expected))) << text;
  }
}

}  // namespace
