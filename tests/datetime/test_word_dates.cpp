// Dates in words (WEEKDATE, WEEKDATX, WORDDATE, WORDDATX, DTWKDATX) and the
// 12-hour datetimes (DATEAMPM, MDYAMPM): every layout step by width for a
// few days, the range bounds, missing values, and a differential test of
// random values against a plain snprintf transcription of the layouts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "support/format_rows.hpp"
#include "catalog/missing.hpp"
#include "catalog/platform.hpp"
#include "oracle/word_dates_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

using xfmt::test::check;
using xfmt::test::row;

const double jul4 = 23195;    // 2023-07-04, a Tuesday
const double sep27 = 23280;   // 2023-09-27, a Wednesday
const double dt_jul4 = 23195 * 86400.0 + 45296.789;  // 2023-07-04T12:34:56.789

TEST(word_dates, weekdate_every_step) {
  const row rows[] = {
      {zfmwkdt, "WEEKDATE", jul4, 29, 0, "        Tuesday, July 4, 2023", 0},
      {zfmwkdt, "WEEKDATE", jul4, 21, 0, "Tuesday, July 4, 2023", 0},
      {zfmwkdt, "WEEKDATE", jul4, 20, 0, "    Tue, Jul 4, 2023", 0},
      {zfmwkdt, "WEEKDATE", jul4, 16, 0, "Tue, Jul 4, 2023", 0},
      {zfmwkdt, "WEEKDATE", jul4, 15, 0, " Tue, Jul 4, 23", 0},
      {zfmwkdt, "WEEKDATE", jul4, 14, 0, "Tue, Jul 4, 23", 0},
      {zfmwkdt, "WEEKDATE", jul4, 13, 0, "      Tuesday", 0},
      {zfmwkdt, "WEEKDATE", jul4, 7, 0, "Tuesday", 0},
      {zfmwkdt, "WEEKDATE", jul4, 6, 0, "   Tue", 0},
      {zfmwkdt, "WEEKDATE", jul4, 3, 0, "Tue", 0},
      {zfmwkdt, "WEEKDATE", jul4, 2, 0, "**", XF_E_OVERFLOW},
      {zfmwkdt, "WEEKDATE", sep27, 29, 0, "Wednesday, September 27, 2023", 0},
      {zfmwkdt, "WEEKDATE", sep27, 28, 0, "           Wed, Sep 27, 2023", 0},
      {zfmwkdt, "WEEKDATE", sep27, 37, 0, "        Wednesday, September 27, 2023", 0},
      {zfmwkdt, "WEEKDATE", sep27, 8, 0, "     Wed", 0},
      {zfmwkdt, "WEEKDATE", 0, 29, 0, "      Friday, January 1, 1960", 0},
      {zfmwkdt, "WEEKDATE", -0.5, 29, 0, "  Thursday, December 31, 1959", 0},
      {zfmwkdt, "WEEKDATE", -138061, 29, 0, "      Friday, January 1, 1582", 0},
      {zfmwkdt, "WEEKDATE", 6589335, 29, 0, "  Tuesday, December 31, 20000", 0},
      {zfmwkdt, "WEEKDATE", 6589335, 18, 0, "Tue, Dec 31, 20000", 0},
      {zfmwkdt, "WEEKDATE", -138062, 5, 0, "*****", XF_E_DATE_RANGE},
      {zfmwkdt, "WEEKDATE", 6589336, 5, 0, "*****", XF_E_DATE_RANGE},
  };
  for (const row &r : rows) check(r);
}

TEST(word_dates, weekdatx_worddate_worddatx_every_step) {
  const row rows[] = {
      {zfmwkdx, "WEEKDATX", jul4, 29, 0, "         Tuesday, 4 July 2023", 0},
      {zfmwkdx, "WEEKDATX", jul4, 19, 0, "    Tue, 4 Jul 2023", 0},
      {zfmwkdx, "WEEKDATX", jul4, 15, 0, "Tue, 4 Jul 2023", 0},
      {zfmwkdx, "WEEKDATX", jul4, 14, 0, " Tue, 4 Jul 23", 0},
      {zfmwkdx, "WEEKDATX", jul4, 12, 0, "     Tuesday", 0},
      {zfmwkdx, "WEEKDATX", jul4, 3, 0, "Tue", 0},
      {zfmwkdx, "WEEKDATX", sep27, 29, 0, " Wednesday, 27 September 2023", 0},
      {zfmwrdt, "WORDDATE", jul4, 18, 0, "      July 4, 2023", 0},
      {zfmwrdt, "WORDDATE", jul4, 12, 0, "July 4, 2023", 0},
      {zfmwrdt, "WORDDATE", jul4, 11, 0, "Jul 4, 2023", 0},
      {zfmwrdt, "WORDDATE", jul4, 10, 0, " Jul 4, 23", 0},
      {zfmwrdt, "WORDDATE", jul4, 9, 0, "Jul 4, 23", 0},
      {zfmwrdt, "WORDDATE", jul4, 8, 0, "    July", 0},
      {zfmwrdt, "WORDDATE", jul4, 3, 0, "Jul", 0},
      {zfmwrdt, "WORDDATE", sep27, 18, 0, "September 27, 2023", 0},
      {zfmwrdt, "WORDDATE", sep27, 17, 0, "     Sep 27, 2023", 0},
      {zfmwrdt, "WORDDATE", sep27, 8, 0, "     Sep", 0},
      {zfmwrdt, "WORDDATE", 6589335, 32, 0, "              December 31, 20000", 0},
      {zfmwrdx, "WORDDATX", jul4, 18, 0, "       4 July 2023", 0},
      {zfmwrdx, "WORDDATX", jul4, 10, 0, "4 Jul 2023", 0},
      {zfmwrdx, "WORDDATX", jul4, 8, 0, "4 Jul 23", 0},
      {zfmwrdx, "WORDDATX", jul4, 7, 0, "   July", 0},
      {zfmwrdx, "WORDDATX", jul4, 3, 0, "Jul", 0},
      {zfmwrdx, "WORDDATX", sep27, 17, 0, "27 September 2023", 0},
      {zfmwrdx, "WORDDATX", -138062, 4, 0, "****", XF_E_DATE_RANGE},
      {zfmdtwk, "DTWKDATX", dt_jul4, 29, 0, "         Tuesday, 4 July 2023", 0},
      {zfmdtwk, "DTWKDATX", dt_jul4, 14, 0, " Tue, 4 Jul 23", 0},
      {zfmdtwk, "DTWKDATX", -1, 29, 0, "   Thursday, 31 December 1959", 0},
      {zfmdtwk, "DTWKDATX", -11928470400.0, 25, 0, "   Friday, 1 January 1582", 0},
      {zfmdtwk, "DTWKDATX", 569318630399.5, 26, 0, "Tuesday, 31 December 20000", 0},
      {zfmdtwk, "DTWKDATX", 569318630400.0, 3, 0, "***", XF_E_DATE_RANGE},
      {zfmdtwk, "DTWKDATX", jul4, 29, 0, "       Friday, 1 January 1960", 0},
  };
  for (const row &r : rows) check(r);
}

TEST(ampm_datetimes, dateampm_every_step) {
  const double midnight = 23195 * 86400.0;
  const row rows[] = {
      {zfmdtmm, "DATEAMPM", dt_jul4, 7, 0, "04JUL23", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 12, 0, "     04JUL23", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 13, 0, "04JUL23:12 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 15, 0, "  04JUL23:12 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 16, 0, "04JUL23:12:34 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 19, 0, "04JUL23:12:34:57 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 19, 2, "04JUL23:12:34:57 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 20, 0, " 04JUL23:12:34:57 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 21, 0, "04JUL2023:12:34:57 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 23, 2, "04JUL2023:12:34:56.8 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 24, 2, "04JUL2023:12:34:56.79 PM", 0},
      {zfmdtmm, "DATEAMPM", dt_jul4, 40, 6, "            04JUL2023:12:34:56.789000 PM", 0},
      {zfmdtmm, "DATEAMPM", midnight, 19, 0, "04JUL23:12:00:00 AM", 0},
      {zfmdtmm, "DATEAMPM", midnight + 3600, 19, 0, "04JUL23:01:00:00 AM", 0},
      {zfmdtmm, "DATEAMPM", midnight + 13 * 3600, 19, 0, "04JUL23:01:00:00 PM", 0},
      {zfmdtmm, "DATEAMPM", midnight - 0.4, 19, 0, "04JUL23:12:00:00 AM", 0},
      {zfmdtmm, "DATEAMPM", midnight - 0.4, 16, 0, "03JUL23:11:59 PM", 0},
      {zfmdtmm, "DATEAMPM", -11928470400.0, 21, 0, "01JAN1582:12:00:00 AM", 0},
      {zfmdtmm, "DATEAMPM", 569318630399.0, 21, 0, "31DEC****:11:59:59 PM", 0},
      {zfmdtmm, "DATEAMPM", -11928470401.0, 7, 0, "*******", XF_E_DATE_RANGE},
      {zfmdtmm, "DATEAMPM", dt_jul4, 6, 0, "******", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(r);
}

TEST(ampm_datetimes, mdyampm_every_step) {
  const double midnight = 23195 * 86400.0;
  const double nov30 = 23344 * 86400.0 + 5 * 60 + 9;  // 2023-11-30T00:05:09
  const row rows[] = {
      {zfmdyam, "MDYAMPM", dt_jul4, 40, 3, "               7/04/2023 12:34:56.789 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 24, 3, "7/04/2023 12:34:56.79 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 23, 3, "7/04/2023 12:34:56.8 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 22, 3, " 7/04/2023 12:34:57 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 21, 0, "7/04/2023 12:34:57 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 20, 0, "  7/04/2023 12:34 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 19, 0, " 7/04/2023 12:34 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 18, 0, "7/04/2023 12:34 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 17, 0, " 7/04/23 12:34 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 16, 0, "7/04/23 12:34 PM", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 15, 0, "      7/04/2023", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 9, 0, "7/04/2023", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 8, 0, " 7/04/23", 0},
      {zfmdyam, "MDYAMPM", dt_jul4, 6, 0, "******", XF_E_OVERFLOW},
      {zfmdyam, "MDYAMPM", midnight + 3909, 20, 0, "7/04/2023 1:05:09 AM", 0},
      {zfmdyam, "MDYAMPM", nov30, 20, 0, " 11/30/2023 12:05 AM", 0},
      {zfmdyam, "MDYAMPM", midnight - 0.5, 21, 0, "7/04/2023 12:00:00 AM", 0},
      {zfmdyam, "MDYAMPM", midnight - 0.5, 19, 0, " 7/03/2023 11:59 PM", 0},
      {zfmdyam, "MDYAMPM", 569318630399.0, 23, 0, "12/31/20000 11:59:59 PM", 0},
      {zfmdyam, "MDYAMPM", 569318630400.0, 8, 0, "********", XF_E_DATE_RANGE},
  };
  for (const row &r : rows) check(r);
}

TEST(word_dates, missing_values_show_the_missing_display) {
  for (xf_routine r : {zfmwkdt, zfmwkdx, zfmwrdt, zfmwrdx, zfmdtwk, zfmdtmm, zfmdyam}) {
    frame_box b = frame_box::number(xfmt::missing_ordinary(), 9);
    EXPECT_EQ(r(&b.f), XF_OK);
    EXPECT_EQ(b.str(), "        .");
  }
}

TEST(word_dates, width_past_capacity_writes_nothing) {
  for (xf_routine r : {zfmwkdt, zfmwkdx, zfmwrdt, zfmwrdx, zfmdtwk, zfmdtmm, zfmdyam}) {
    frame_box b = frame_box::number(jul4, 29, 0, 28);
    EXPECT_EQ(r(&b.f), XF_E_CAPACITY);
    EXPECT_EQ(b.f.output_length, 0u);
    EXPECT_EQ(b.buffer(), std::string(28, '\xEE'));
  }
}

// Random days over the whole range and every width of the rows, against the
// snprintf transcription.
TEST(word_dates, random_days_match_the_oracle) {
  std::mt19937_64 gen = xfmt::test::rng(41);
  const struct {
    xf_routine routine;
    char family;
    int32_t max_w;
  } formats[] = {{zfmwkdt, 'E', 37}, {zfmwkdx, 'X', 37}, {zfmwrdt, 'W', 32}, {zfmwrdx, 'V', 32}};
  const uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const int64_t day = -138061 + static_cast<int64_t>(gen() % 6727397);
    for (const auto &fm : formats) {
      const auto w = static_cast<int32_t>(1 + gen() % static_cast<uint64_t>(fm.max_w));
      frame_box b = frame_box::number(static_cast<double>(day), w);
      fm.routine(&b.f);
      ASSERT_EQ(b.str(), xfmt::oracle::words_field(fm.family, day, w))
          << fm.family << w << " of day " << day << " seed " << xfmt::test::test_seed();
    }
    // DTWKDATX is WEEKDATX of the day of any second in it.
    const auto w = static_cast<int32_t>(3 + gen() % 35);
    frame_box b = frame_box::number(static_cast<double>(day) * 86400.0 + static_cast<double>(gen() % 86400), w);
    zfmdtwk(&b.f);
    ASSERT_EQ(b.str(), xfmt::oracle::words_field('X', day, w)) << "DTWKDATX" << w << " of day " << day;
  }
}

// Random datetimes in quarter seconds (exact in a double, so the rounding of
// half seconds is exercised) against the snprintf transcription.
TEST(ampm_datetimes, random_datetimes_match_the_oracle) {
  std::mt19937_64 gen = xfmt::test::rng(42);
  const uint64_t n = xfmt::test::scaled(20000);
  const int64_t first = -11928470400LL * 4, span = (569318630400LL + 11928470400LL) * 4;
  for (uint64_t i = 0; i < n; ++i) {
    // Half the cases near a day's end, where rounding carries into the date.
    int64_t q = first + static_cast<int64_t>(gen() % static_cast<uint64_t>(span));
    if (i % 2 == 1) q = q - q % 345600 + 345600 - 1 - static_cast<int64_t>(gen() % 8);
    if (q >= first + span) q = first + span - 1;
    const double v = static_cast<double>(q) / 4.0;
    const auto d = static_cast<int32_t>(gen() % 8);
    const auto w1 = static_cast<int32_t>(8 + gen() % 33);
    frame_box b = frame_box::number(v, w1, d);
    zfmdyam(&b.f);
    ASSERT_EQ(b.str(), xfmt::oracle::mdyampm_field(q, w1, d))
        << "MDYAMPM" << w1 << "." << d << " of " << v << " seed " << xfmt::test::test_seed();
    const auto w2 = static_cast<int32_t>(7 + gen() % 34);
    frame_box c = frame_box::number(v, w2, d);
    zfmdtmm(&c.f);
    ASSERT_EQ(c.str(), xfmt::oracle::dateampm_field(q, w2, d))
        << "DATEAMPM" << w2 << "." << d << " of " << v << " seed " << xfmt::test::test_seed();
  }
}

}  // namespace

namespace {

using xfmt::test::frame_box;

// ISO 8601 marked as UTC: offset, then "Z", then no seconds, by width.
TEST(iso8601_zoned, every_step) {
  const double dt = 23195 * 86400.0 + 45296.789;  // 2023-07-04T12:34:56.789
  const row rows[] = {
      {zfme8dz, "E8601DZ", dt, 20, 0, "2023-07-04T12:34:56Z", 0},
      {zfme8dz, "E8601DZ", dt, 24, 0, "    2023-07-04T12:34:56Z", 0},
      {zfme8dz, "E8601DZ", dt, 25, 0, "2023-07-04T12:34:56+00:00", 0},
      {zfme8dz, "E8601DZ", dt, 26, 0, " 2023-07-04T12:34:56+00:00", 0},
      {zfme8dz, "E8601DZ", dt, 26, 6, "2023-07-04T12:34:56.78900Z", 0},
      {zfme8dz, "E8601DZ", dt, 29, 3, "2023-07-04T12:34:56.789+00:00", 0},
      {zfme8dz, "E8601DZ", dt, 35, 6, "   2023-07-04T12:34:56.789000+00:00", 0},
      {zfme8dz, "E8601DZ", dt, 19, 0, "  2023-07-04T12:34Z", 0},
      {zfme8dz, "E8601DZ", dt, 16, 0, "****************", XF_E_OVERFLOW},
      {zfme8dz, "E8601DZ", -11928470400.0, 20, 0, "1582-01-01T00:00:00Z", 0},
      {zfme8dz, "E8601DZ", -11928470401.0, 20, 0, "********************", XF_E_DATE_RANGE},
      {zfmb8dz, "B8601DZ", dt, 15, 0, " 20230704T1234Z", 0},
      {zfmb8dz, "B8601DZ", dt, 16, 0, "20230704T123456Z", 0},
      {zfmb8dz, "B8601DZ", dt, 20, 0, "20230704T123456+0000", 0},
      {zfmb8dz, "B8601DZ", dt, 27, 6, "20230704T123456.789000+0000", 0},
      {zfmb8dz, "B8601DZ", dt, 26, 6, "   20230704T123456.789000Z", 0},
      {zfme8tz, "E8601TZ", 45296.789, 9, 0, "12:34:56Z", 0},
      {zfme8tz, "E8601TZ", 45296.789, 14, 0, "12:34:56+00:00", 0},
      {zfme8tz, "E8601TZ", 45296.789, 14, 2, "  12:34:56.78Z", 0},
      {zfme8tz, "E8601TZ", 45296.789, 20, 3, "  12:34:56.789+00:00", 0},
      {zfme8tz, "E8601TZ", -1, 9, 0, "23:59:59Z", 0},
      {zfmb8tz, "B8601TZ", 45296.789, 9, 0, "  123456Z", 0},
      {zfmb8tz, "B8601TZ", 45296.789, 14, 0, "   123456+0000", 0},
      {zfmb8tz, "B8601TZ", 45296.789, 20, 6, "  123456.789000+0000", 0},
  };
  for (const row &r : rows) check(r);
  frame_box b = frame_box::number(xfmt::missing_ordinary(), 9);
  EXPECT_EQ(zfme8tz(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "        .");
}

}  // namespace

namespace {

using xfmt::test::frame_box;

std::string packed(xf_routine r, double v, int32_t w, xf_status &st) {
  frame_box b = frame_box::number(v, w);
  st = r(&b.f);
  std::string hex;
  char two[3];
  for (char ch : b.str()) {
    std::snprintf(two, sizeof two, "%02X", static_cast<unsigned>(static_cast<unsigned char>(ch)));
    hex += two;
  }
  return hex;
}

TEST(packed_julian, layouts_and_bounds) {
  const struct {
    xf_routine routine;
    double value;
    int32_t w;
    const char *hex;
    xf_status status;
  } rows[] = {
      {zfmpdjg, 23195, 4, "2023185F", 0},            // 2023-07-04
      {zfmpdjg, 0, 4, "1960001F", 0},                // 1960-01-01
      {zfmpdjg, 14975, 4, "2000366F", 0},            // 2000-12-31, a leap year
      {zfmpdjg, -138061, 4, "1582001F", 0},          // first valid day
      {zfmpdjg, 2936547, 4, "9999365F", 0},          // 9999-12-31
      {zfmpdjg, 2936548, 4, "2A2A2A2A", XF_E_DATE_RANGE},  // 10000-01-01
      {zfmpdjg, 23195, 6, "00002023185F", 0},
      {zfmpdjg, 23195, 3, "2A2A2A", XF_E_OVERFLOW},
      {zfmpdjg, -138062, 4, "2A2A2A2A", XF_E_DATE_RANGE},
      {zfmpdji, 23195, 4, "0123185F", 0},
      {zfmpdji, -0.5, 4, "0059365F", 0},             // 1959-12-31
      {zfmpdji, -21914, 4, "0000001F", 0},           // 1900-01-01
      {zfmpdji, -21915, 4, "2A2A2A2A", XF_E_DATE_RANGE},  // 1899-12-31
      {zfmpdji, 343328, 4, "0999365F", 0},           // 2899-12-31
      {zfmpdji, 343329, 4, "2A2A2A2A", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) {
    xf_status st = 0;
    EXPECT_EQ(packed(r.routine, r.value, r.w, st), r.hex) << r.value;
    EXPECT_EQ(st, r.status) << r.value;
  }
  xf_status st = 0;
  EXPECT_EQ(packed(zfmpdjg, xfmt::missing_ordinary(), 4, st), "2020202E");
  EXPECT_EQ(st, XF_OK);
}

// Every day of 1900..2899 packs its Julian value.
TEST(packed_julian, every_day_packs_its_julian_value) {
  for (int64_t day = -21914; day <= 343328; ++day) {
    frame_box g = frame_box::number(static_cast<double>(day), 4);
    frame_box i = frame_box::number(static_cast<double>(day), 4);
    ASSERT_EQ(zfmpdjg(&g.f), XF_OK);
    ASSERT_EQ(zfmpdji(&i.f), XF_OK);
    const auto julian = static_cast<int64_t>(zjuldat(static_cast<double>(day)));  // yyyyddd
    char want[24];
    std::snprintf(want, sizeof want, "%07lld", static_cast<long long>(julian));
    std::string got;
    for (unsigned char byte : g.out) got += {static_cast<char>('0' + (byte >> 4)), static_cast<char>('0' + (byte & 15))};
    ASSERT_EQ(got, std::string(want) + "?") << day;  // '0' + 15 is '?'
    std::snprintf(want, sizeof want, "%07lld", static_cast<long long>(julian - 1900000));
    got.clear();
    for (unsigned char byte : i.out) got += {static_cast<char>('0' + (byte >> 4)), static_cast<char>('0' + (byte & 15))};
    ASSERT_EQ(got, std::string(want) + "?") << day;
  }
}

}  // namespace

namespace {

using namespace xfmt::platform;

// Clocks in zones east and west of UTC with minutes in the offset.
wall_time zero_now() { return {0, 0}; }
bool no_local(int64_t, local_time *) { return false; }
int32_t kolkata_like() { return -19800; }  // 5:30 east
int32_t newfoundland_like() { return 12600; }  // 3:30 west
constexpr clock_source east_clock{zero_now, no_local, kolkata_like};
constexpr clock_source west_clock{zero_now, no_local, newfoundland_like};

struct local_zone_forms : testing::Test {
  void TearDown() override { set_clock(nullptr); }
};

TEST_F(local_zone_forms, offset_of_the_installed_clock) {
  set_clock(&east_clock);
  const row east[] = {
      {zfme8lz, "E8601LZ", 45296.789, 14, 0, "12:34:56+05:30", 0},
      {zfme8lz, "E8601LZ", 45296.789, 20, 3, "  12:34:56.789+05:30", 0},
      {zfme8lz, "E8601LZ", 45296.789, 16, 3, "12:34:56.7+05:30", 0},
      {zfme8lz, "E8601LZ", 45296.789, 13, 0, "  12:34+05:30", 0},
      {zfme8lz, "E8601LZ", 45296.789, 10, 0, "**********", XF_E_OVERFLOW},
      {zfme8lz, "E8601LZ", -1, 14, 0, "23:59:59+05:30", 0},
      {zfmb8lz, "B8601LZ", 45296.789, 14, 0, "   123456+0530", 0},
      {zfmb8lz, "B8601LZ", 45296.789, 9, 0, "1234+0530", 0},
  };
  for (const row &r : east) check(r);
  set_clock(&west_clock);
  const row west[] = {
      {zfme8lz, "E8601LZ", 45296.789, 14, 0, "12:34:56-03:30", 0},
      {zfmb8lz, "B8601LZ", 45296.789, 18, 2, "    123456.78-0330", 0},
  };
  for (const row &r : west) check(r);
  frame_box b = frame_box::number(xfmt::missing_ordinary(), 9);
  EXPECT_EQ(zfmb8lz(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "        .");
}

}  // namespace
