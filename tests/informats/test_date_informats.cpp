// The date, time and datetime informats: tables of accepted and refused
// texts, the frame checks, and round trips through the date formats: every
// day of a wide range printed by a format and read back gives the same day.
#include <gtest/gtest.h>

#include <cstdint>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"
#include "oracle/calendar_oracle.hpp"
#include "support/random.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;
using xfmt::test::hex;
using xfmt::test::miss;
using xfmt::test::num;
using xfmt::test::run_informat;

constexpr xf_status ok = XF_OK;
constexpr xf_status bad = XF_IN_INVALID;
constexpr xf_status width = XF_IN_BAD_WIDTH;

struct row {
  xf_routine routine;
  const char *name;
  std::string text;
  int32_t w;
  xf_status status;
  uint64_t bits;
};

uint64_t day(int64_t y, int32_t m, int32_t d) { return num(static_cast<double>(days_from_ymd(y, m, d))); }
uint64_t at(int64_t y, int32_t m, int32_t d, int64_t h, int64_t mi, double s) {
  return num(static_cast<double>(days_from_ymd(y, m, d)) * 86400.0 +
             static_cast<double>(h * 3600 + mi * 60) + s);
}
uint64_t secs(double s) { return num(s); }
const uint64_t none = miss('.');

void check(const std::vector<row> &rows) {
  for (const row &r : rows) {
    auto got = run_informat(r.routine, r.text, r.w);
    EXPECT_EQ(got.status, r.status) << r.name << " [" << r.text << "] w " << r.w;
    EXPECT_EQ(hex(got.bits), hex(r.bits)) << r.name << " [" << r.text << "] w " << r.w;
    EXPECT_EQ(got.length, 8u) << r.name << " [" << r.text << "]";
  }
}

TEST(DateInformats, DateShapes) {
  check({
      {zifmdate, "DATE", "04JUL2023", 9, ok, day(2023, 7, 4)},
      {zifmdate, "DATE", "4jul23", 6, ok, day(2023, 7, 4)},
      {zifmdate, "DATE", "04-JUL-2023", 11, ok, day(2023, 7, 4)},
      {zifmdate, "DATE", "4 July 2023", 11, ok, day(2023, 7, 4)},
      {zifmdate, "DATE", "  01jan60  ", 11, ok, day(1960, 1, 1)},
      {zifmdate, "DATE", "31dec49", 7, ok, day(2049, 12, 31)},
      {zifmdate, "DATE", "01jan50", 7, ok, day(1950, 1, 1)},
      {zifmdate, "DATE", "29FEB2000", 9, ok, day(2000, 2, 29)},
      {zifmdate, "DATE", "01JAN1582", 9, ok, day(1582, 1, 1)},
      {zifmdate, "DATE", "31DEC9999", 9, ok, day(9999, 12, 31)},
      {zifmdate, "DATE", "04JUL2023", 7, ok, day(2020, 7, 4)},  // only "04JUL20" is read
      {zifmdate, "DATE", "29FEB2023", 9, bad, none},
      {zifmdate, "DATE", "31DEC1581", 9, bad, none},
      {zifmdate, "DATE", "32JAN2023", 9, bad, none},
      {zifmdate, "DATE", "00JAN2023", 9, bad, none},
      {zifmdate, "DATE", "04JUX2023", 9, bad, none},
      {zifmdate, "DATE", "04JUL023", 8, bad, none},
      {zifmdate, "DATE", "04JUL20235", 10, bad, none},
      {zifmdate, "DATE", "123JUL2023", 10, bad, none},
      {zifmdate, "DATE", "JUL2023", 7, bad, none},
      {zifmdate, "DATE", "04JUL2023x", 10, bad, none},
      {zifmdate, "DATE", "04JULY2023", 10, ok, day(2023, 7, 4)},
      {zifmdate, "DATE", "04 JULI 2023", 12, bad, none},
      {zifmdate, "DATE", "01JAN0023", 9, bad, none},
  });
}

TEST(DateInformats, NumericDateShapes) {
  check({
      {zifmmdy, "MMDDYY", "07/04/2023", 10, ok, day(2023, 7, 4)},
      {zifmmdy, "MMDDYY", "070423", 6, ok, day(2023, 7, 4)},
      {zifmmdy, "MMDDYY", "07042023", 8, ok, day(2023, 7, 4)},
      {zifmmdy, "MMDDYY", "7-4-23", 6, ok, day(2023, 7, 4)},
      {zifmmdy, "MMDDYY", "7.4.1999", 8, ok, day(1999, 7, 4)},
      {zifmmdy, "MMDDYY", "12 31 50", 8, ok, day(1950, 12, 31)},
      {zifmmdy, "MMDDYY", "13/01/2023", 10, bad, none},
      {zifmmdy, "MMDDYY", "02/30/2023", 10, bad, none},
      {zifmmdy, "MMDDYY", "0704023", 7, bad, none},
      {zifmmdy, "MMDDYY", "07/04/023", 9, bad, none},
      {zifmmdy, "MMDDYY", "07/04", 5, bad, none},
      {zifmmdy, "MMDDYY", "07//04/23", 9, bad, none},
      {zifmmdy, "MMDDYY", "007/04/23", 9, bad, none},
      {zifmmdy, "MMDDYY", "07/04/2023", 9, bad, none},  // "07/04/202": a three-digit year
      {zifmmdy, "MMDDYY", "07/04/2023", 8, ok, day(2020, 7, 4)},
      {zifmdmy, "DDMMYY", "04/07/2023", 10, ok, day(2023, 7, 4)},
      {zifmdmy, "DDMMYY", "040723", 6, ok, day(2023, 7, 4)},
      {zifmdmy, "DDMMYY", "04072023", 8, ok, day(2023, 7, 4)},
      {zifmdmy, "DDMMYY", "4.7.23", 6, ok, day(2023, 7, 4)},
      {zifmdmy, "DDMMYY", "31/04/2023", 10, bad, none},
      {zifmymd, "YYMMDD", "2023-07-04", 10, ok, day(2023, 7, 4)},
      {zifmymd, "YYMMDD", "230704", 6, ok, day(2023, 7, 4)},
      {zifmymd, "YYMMDD", "20230704", 8, ok, day(2023, 7, 4)},
      {zifmymd, "YYMMDD", "23/7/4", 6, ok, day(2023, 7, 4)},
      {zifmymd, "YYMMDD", "20000-01-01", 11, bad, none},
      {zifmymd, "YYMMDD", "2023-7-", 7, bad, none},
      {zifmymd, "YYMMDD", "2023-07-04T", 11, bad, none},
  });
}

TEST(DateInformats, JulianMonthQuarterShapes) {
  check({
      {zifmjul, "JULIAN", "2023185", 7, ok, day(2023, 7, 4)},
      {zifmjul, "JULIAN", "23185", 5, ok, day(2023, 7, 4)},
      {zifmjul, "JULIAN", "2000366", 7, ok, day(2000, 12, 31)},
      {zifmjul, "JULIAN", "60001", 5, ok, day(1960, 1, 1)},
      {zifmjul, "JULIAN", "2023366", 7, bad, none},
      {zifmjul, "JULIAN", "2023000", 7, bad, none},
      {zifmjul, "JULIAN", "1581365", 7, bad, none},
      {zifmjul, "JULIAN", "231855", 6, bad, none},
      {zifmjul, "JULIAN", "2023-185", 8, bad, none},
      {zifmmony, "MONYY", "JUL2023", 7, ok, day(2023, 7, 1)},
      {zifmmony, "MONYY", "jul23", 5, ok, day(2023, 7, 1)},
      {zifmmony, "MONYY", "Jul-2023", 8, ok, day(2023, 7, 1)},
      {zifmmony, "MONYY", "December 1999", 13, ok, day(1999, 12, 1)},
      {zifmmony, "MONYY", "JUL", 3, bad, none},
      {zifmmony, "MONYY", "04JUL2023", 9, bad, none},
      {zifmmony, "MONYY", "JUL202", 6, bad, none},
      {zifmyyq, "YYQ", "2023Q3", 6, ok, day(2023, 7, 1)},
      {zifmyyq, "YYQ", "23q1", 4, ok, day(2023, 1, 1)},
      {zifmyyq, "YYQ", "1999-Q4", 7, ok, day(1999, 10, 1)},
      {zifmyyq, "YYQ", "2023Q5", 6, bad, none},
      {zifmyyq, "YYQ", "2023Q0", 6, bad, none},
      {zifmyyq, "YYQ", "2023Q", 5, bad, none},
      {zifmyyq, "YYQ", "2023Q12", 7, bad, none},
      {zifmyyq, "YYQ", "2023", 4, bad, none},
  });
}

TEST(DateInformats, EraShapes) {
  check({
      {zifmneng, "NENGO", "R.01/05/01", 10, ok, day(2019, 5, 1)},
      {zifmneng, "NENGO", "H01/01/08", 9, ok, day(1989, 1, 8)},
      {zifmneng, "NENGO", "R010501", 7, ok, day(2019, 5, 1)},
      {zifmneng, "NENGO", "h1-1-8", 6, ok, day(1989, 1, 8)},
      {zifmneng, "NENGO", "M.01/04/06", 10, ok, day(1868, 4, 6)},
      {zifmneng, "NENGO", "S.64/01/07", 10, ok, day(1989, 1, 7)},
      {zifmneng, "NENGO", "S.64/12/31", 10, ok, day(1989, 12, 31)},  // era years count on
      {zifmneng, "NENGO", "M.01/04/05", 10, bad, none},               // before the first era
      {zifmneng, "NENGO", "H01/01/07", 9, bad, none},                 // the day before H began
      {zifmneng, "NENGO", "R.00/05/01", 10, bad, none},
      {zifmneng, "NENGO", "X.01/05/01", 10, bad, none},
      {zifmneng, "NENGO", "01/05/01", 8, bad, none},
      {zifmneng, "NENGO", "R.01/02/30", 10, bad, none},
      {zifmneng, "NENGO", "R.01/05", 7, bad, none},
  });
}

TEST(DateInformats, TimeShapes) {
  check({
      {zifmtime, "TIME", "12:34:56", 8, ok, secs(45296)},
      {zifmtime, "TIME", "12:34", 5, ok, secs(45240)},
      {zifmtime, "TIME", "1:02:03.5", 9, ok, secs(3723.5)},
      {zifmtime, "TIME", "0:00:00.1", 9, ok, secs(0.1)},
      {zifmtime, "TIME", "12:34:56 PM", 11, ok, secs(45296)},
      {zifmtime, "TIME", "12:34:56 am", 11, ok, secs(2096)},
      {zifmtime, "TIME", "1:00PM", 6, ok, secs(46800)},
      {zifmtime, "TIME", "11:59:59 p", 10, ok, secs(86399)},
      {zifmtime, "TIME", "100:00:00", 9, ok, secs(360000)},
      {zifmtime, "TIME", "23:59:59.999", 12, ok, secs(86399.999)},
      {zifmtime, "TIME", "13:00 PM", 8, bad, none},
      {zifmtime, "TIME", "0:30 AM", 7, bad, none},
      {zifmtime, "TIME", "12:60", 5, bad, none},
      {zifmtime, "TIME", "12:34:60", 8, bad, none},
      {zifmtime, "TIME", "12:34:5.", 8, bad, none},
      {zifmtime, "TIME", "12", 2, bad, none},
      {zifmtime, "TIME", "12:345", 6, bad, none},
      {zifmtime, "TIME", ":34", 3, bad, none},
      {zifmtime, "TIME", "12:34 XM", 8, bad, none},
      {zifmtime, "TIME", "-1:00", 5, bad, none},
      {zifmtime, "TIME", "1234567:00", 10, bad, none},
  });
}

TEST(DateInformats, DatetimeShapes) {
  check({
      {zifmdttm, "DATETIME", "04JUL2023:12:34:56", 18, ok, at(2023, 7, 4, 12, 34, 56)},
      {zifmdttm, "DATETIME", "4jul23 12:34", 12, ok, at(2023, 7, 4, 12, 34, 0)},
      {zifmdttm, "DATETIME", "04JUL2023T01:02:03.25", 21, ok, at(2023, 7, 4, 1, 2, 3.25)},
      {zifmdttm, "DATETIME", "04JUL2023:01:02:03 PM", 21, ok, at(2023, 7, 4, 13, 2, 3)},
      {zifmdttm, "DATETIME", "04JUL2023", 9, ok, at(2023, 7, 4, 0, 0, 0)},
      {zifmdttm, "DATETIME", "01JAN1960:00:00:00", 18, ok, secs(0)},
      {zifmdttm, "DATETIME", "31DEC1959:23:59:59", 18, ok, secs(-1)},
      {zifmdttm, "DATETIME", "04JUL2023:24:00:00", 18, bad, none},
      {zifmdttm, "DATETIME", "04JUL2023:", 10, bad, none},
      {zifmdttm, "DATETIME", "04JUL2023:12", 12, bad, none},
      {zifmdttm, "DATETIME", "31JUN2023:12:00", 15, bad, none},
      {zifmdyam, "MDYAMPM", "07/04/2023 12:34:56 PM", 22, ok, at(2023, 7, 4, 12, 34, 56)},
      {zifmdyam, "MDYAMPM", "07/04/2023 12:34:56 AM", 22, ok, at(2023, 7, 4, 0, 34, 56)},
      {zifmdyam, "MDYAMPM", "7-4-23 0:15", 11, ok, at(2023, 7, 4, 0, 15, 0)},
      {zifmdyam, "MDYAMPM", "070423 1:00AM", 13, ok, at(2023, 7, 4, 1, 0, 0)},
      {zifmdyam, "MDYAMPM", "07/04/2023, 5:06 pm", 19, ok, at(2023, 7, 4, 17, 6, 0)},
      {zifmdyam, "MDYAMPM", "07/04/2023", 10, ok, at(2023, 7, 4, 0, 0, 0)},
      {zifmdyam, "MDYAMPM", "07/04/2023 13:00 PM", 19, bad, none},
      {zifmdyam, "MDYAMPM", "07/04/202312:00", 15, bad, none},
      {zifmdyam, "MDYAMPM", "07/04/2023 24:00", 16, bad, none},
  });
}

// What every informat shares: blanks, missing notations, width, decimals
// and the output room.
TEST(DateInformats, FrameRules) {
  const xf_routine all[] = {zifmdate, zifmdttm, zifmdmy, zifmjul, zifmdyam, zifmmdy,
                            zifmmony, zifmneng, zifmtime, zifmymd, zifmyyq};
  for (xf_routine r : all) {
    check({
        {r, "any", "", 8, ok, none},
        {r, "any", "        ", 8, ok, none},
        {r, "any", " \t . ", 5, ok, none},
        {r, "any", ".", 1, ok, none},
        {r, "any", ".A", 2, ok, miss('A')},
        {r, "any", ".z", 2, ok, miss('Z')},
        {r, "any", "._", 2, ok, miss('_')},
        {r, "any", "..", 2, bad, none},
        {r, "any", "x", 1, bad, none},
        {r, "any", "04JUL2023", -1, width, none},
        {r, "any", "anything", 0, ok, none},
    });
    auto d_bad = run_informat(r, "2023", 4, 32);
    EXPECT_EQ(d_bad.status, width);
    EXPECT_EQ(hex(d_bad.bits), hex(none));
    EXPECT_EQ(run_informat(r, "", 4, 99).status, ok);
    // Below 8 bytes of output nothing is written.
    frame_box small = frame_box::chars("04JUL2023", 9, 0, 7);
    std::fill(small.out.begin(), small.out.end(), static_cast<unsigned char>(0xEE));
    EXPECT_EQ(r(&small.f), XF_E_CAPACITY);
    EXPECT_EQ(small.f.output_length, 0u);
    for (unsigned char byte : small.out) EXPECT_EQ(byte, 0xEEu);
    frame_box null_out = frame_box::chars("04JUL2023", 9, 0, 8);
    null_out.f.output = nullptr;
    EXPECT_EQ(r(&null_out.f), XF_E_CAPACITY);
  }
}

// The field is w bytes at most and never more than input_length.
TEST(DateInformats, ReadsOnlyTheField) {
  frame_box b = frame_box::chars("04JUL2023:12:00", 32, 0, 8);
  b.f.input_length = 9;
  EXPECT_EQ(zifmdttm(&b.f), ok);
  EXPECT_EQ(hex(num(b.result())), hex(at(2023, 7, 4, 0, 0, 0)));
  EXPECT_EQ(hex(run_informat(zifmmdy, "070423999", 6).bits), hex(day(2023, 7, 4)));
}

// --- Round trips through the date formats --------------------------------

std::string print(xf_routine format, double v, int32_t w) {
  frame_box b = frame_box::number(v, w);
  EXPECT_EQ(format(&b.f), ok);
  return b.str();
}

void round_trip(xf_routine format, int32_t w, xf_routine informat, int64_t first, int64_t last,
                int64_t step = 1) {
  for (int64_t n = first; n <= last; n += step) {
    const double v = static_cast<double>(n);
    const std::string text = print(format, v, w);
    auto got = run_informat(informat, text, w);
    ASSERT_EQ(got.status, ok) << "[" << text << "] w " << w;
    ASSERT_EQ(hex(got.bits), hex(num(v))) << "[" << text << "] w " << w;
  }
}

const int64_t y1582 = days_from_ymd(1582, 1, 1);
const int64_t y1950 = days_from_ymd(1950, 1, 1), y2049 = days_from_ymd(2049, 12, 31);
const int64_t y2200 = days_from_ymd(2200, 12, 31), y9999 = days_from_ymd(9999, 12, 31);

TEST(DateInformatsRoundTrip, FourDigitYearsEveryDay) {
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
// informat; "01:01:1582" was once refused.
TEST(DateInformatsRoundTrip, EverySeparatorAndWidth) {
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
  const std::string colon = print(zfmmdyc, static_cast<double>(y1582), 10);
  EXPECT_EQ(colon, "01:01:1582");
  EXPECT_EQ(hex(run_informat(zifmmdy, colon, 10).bits), hex(num(static_cast<double>(y1582))));
}

// From the first day of the first era to the last day the printed era year
// has two digits: R.99 is 2117.
TEST(DateInformatsRoundTrip, EraEveryDay) {
  const int64_t last = days_from_ymd(2117, 12, 31);
  round_trip(zfmneng, 10, zifmneng, static_cast<int64_t>(reigns[0][0]), last);
  round_trip(zfmneng, 8, zifmneng, static_cast<int64_t>(reigns[0][0]), last, 7);
}

// MONYY and YYQ print a day inside the month or quarter; reading back gives
// its first day.
TEST(DateInformatsRoundTrip, MonthsAndQuarters) {
  for (int64_t y = 1582; y <= 9999; ++y) {
    for (int32_t m = 1; m <= 12; ++m) {
      const double first = static_cast<double>(days_from_ymd(y, m, 1));
      const std::string monyy = print(zfmmony, first + 14, 7);
      ASSERT_EQ(hex(run_informat(zifmmony, monyy, 7).bits), hex(num(first))) << monyy;
      if (m % 3 == 1) {
        const std::string yyq = print(zfmyyq, first + 70, 6);
        ASSERT_EQ(hex(run_informat(zifmyyq, yyq, 6).bits), hex(num(first))) << yyq;
      }
    }
  }
}

TEST(DateInformatsRoundTrip, TimesAndDatetimes) {
  for (int64_t s = 0; s < 86400; ++s) {
    const std::string text = print(zfmtime, static_cast<double>(s), 8);
    ASSERT_EQ(hex(run_informat(zifmtime, text, 8).bits), hex(num(static_cast<double>(s)))) << text;
  }
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
    const std::string expected = hex(exists ? num(static_cast<double>(expected_day)) : none);
    const xf_status status = exists ? ok : bad;
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
  const uint64_t count = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < count; ++i) {
    const int h = hour(gen), m = sixty(gen), s = sixty(gen), k = places(gen);
    char sec[16];
    if (k == 0)
      std::snprintf(sec, sizeof sec, "%02d", s);
    else
      std::snprintf(sec, sizeof sec, "%02d.%0*ld", s, k, fraction(gen) % 1000000 / [k] {
        long p = 1;
        for (int j = k; j < 6; ++j) p *= 10;
        return p;
      }());
    char text[40];
    if (clock(gen) == 1)
      std::snprintf(text, sizeof text, "%d:%02d:%s %s", h % 12 == 0 ? 12 : h % 12, m, sec, h < 12 ? "AM" : "PM");
    else
      std::snprintf(text, sizeof text, "%d:%02d:%s", h, m, sec);
    const double expected = static_cast<double>(h * 3600 + m * 60) + std::strtod(sec, nullptr);
    auto got = run_informat(zifmtime, text, 32);
    ASSERT_EQ(got.status, ok) << text;
    ASSERT_EQ(hex(got.bits), hex(num(expected))) << text;
  }
}

}  // namespace
