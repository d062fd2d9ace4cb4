// DTDATE, DTMONYY, DTYEAR, DTYYQC, MINGUO, XYYMMDD and YYQZ: tables at each
// width, the bounds (1582, 1912, 20000), negative datetimes, missing values;
// the DT forms against the date format of the same layout on every day of
// 1582..2400 at every width, at midnight and just before the next.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "catalog/missing.hpp"
#include "datetime/calendar.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;

struct row {
  xf_routine routine;
  const char *name;
  double value;
  int32_t width;
  const char *text;
  xf_status status;
};

void check(const row &r) {
  frame_box b = frame_box::number(r.value, r.width);
  const xf_status st = r.routine(&b.f);
  EXPECT_EQ(b.str(), r.text) << r.name << r.width << " of " << r.value;
  EXPECT_EQ(b.f.output_length, static_cast<uint32_t>(r.width)) << r.name << r.width;
  EXPECT_EQ(st, r.status) << r.name << r.width << " of " << r.value;
}

constexpr double leap_noon = 1267444800;      // 2000-02-29T12:00:00
constexpr double before_1960 = -3600;         // 1959-12-31T23:00:00
constexpr double nov_2024 = 2046412800;       // 2024-11-05T08:00:00
constexpr double d20230704 = 23195, d19700101 = 3653;
constexpr xf_status range = XF_E_DATE_RANGE;

TEST(datetime_date_layouts, examples) {
  const row rows[] = {
      {zfmdtdat, "DTDATE", leap_noon, 7, "29FEB00", 0},    {zfmdtdat, "DTDATE", leap_noon, 9, "29FEB2000", 0},
      {zfmdtdat, "DTDATE", leap_noon, 5, "29FEB", 0},      {zfmdtdat, "DTDATE", leap_noon, 6, " 29FEB", 0},
      {zfmdtdat, "DTDATE", leap_noon, 8, " 29FEB00", 0},   {zfmdtdat, "DTDATE", before_1960, 9, "31DEC1959", 0},
      {zfmdtdat, "DTDATE", -0.001, 9, "31DEC1959", 0},     {zfmdtdat, "DTDATE", 86399.999, 9, "01JAN1960", 0},
      {zfmdtmy, "DTMONYY", leap_noon, 5, "FEB00", 0},      {zfmdtmy, "DTMONYY", leap_noon, 6, " FEB00", 0},
      {zfmdtmy, "DTMONYY", leap_noon, 7, "FEB2000", 0},    {zfmdtmy, "DTMONYY", nov_2024, 7, "NOV2024", 0},
      {zfmdtyr, "DTYEAR", leap_noon, 4, "2000", 0},        {zfmdtyr, "DTYEAR", leap_noon, 2, "00", 0},
      {zfmdtyr, "DTYEAR", leap_noon, 3, " 00", 0},         {zfmdtyqc, "DTYYQC", leap_noon, 4, "00:1", 0},
      {zfmdtyqc, "DTYYQC", leap_noon, 5, " 00:1", 0},      {zfmdtyqc, "DTYYQC", leap_noon, 6, "2000:1", 0},
      {zfmdtyqc, "DTYYQC", before_1960, 6, "1959:4", 0},   {zfmdtyqc, "DTYYQC", nov_2024, 6, "2024:4", 0},
      // The calendar's bounds, as datetimes.
      {zfmdtdat, "DTDATE", -11928470400.0, 9, "01JAN1582", 0},
      {zfmdtdat, "DTDATE", -11928470400.5, 9, "*********", range},
      {zfmdtdat, "DTDATE", 569318630399.0, 9, "31DEC****", 0},
      {zfmdtyqc, "DTYYQC", 569318630400.0, 6, "******", range},
      {zfmdtmy, "DTMONYY", 1e300, 7, "*******", range},
  };
  for (const auto &r : rows) check(r);
}

TEST(datetime_date_layouts, missing_values) {
  for (xf_routine r : {zfmdtdat, zfmdtmy, zfmdtyr, zfmdtyqc}) {
    frame_box b = frame_box::number(xfmt::missing_value(5), 5);  // .D
    EXPECT_EQ(r(&b.f), XF_OK);
    EXPECT_EQ(b.str(), "    D");
  }
}

// The DT form of a datetime writes exactly what the date form writes for its
// day, at midnight and at the last millisecond of the day (every 20th day
// when XFMT_TEST_SCALE is 0.05).
TEST(datetime_date_layouts, every_day_as_the_date_format) {
  struct pair { xf_routine dt, date; int32_t w0, w1; };
  const pair pairs[] = {{zfmdtdat, zfmdate, 5, 9}, {zfmdtmy, zfmmony, 5, 7},
                        {zfmdtyr, zfmyear, 2, 4}, {zfmdtyqc, zfmyyqc, 4, 6}};
  const auto step = static_cast<int64_t>(1000 / xfmt::test::scaled(1000));
  for (const pair &p : pairs)
    for (int64_t day = days_from_ymd(1582, 1, 1); day <= days_from_ymd(2400, 12, 31); day += step)
      for (int32_t w = p.w0; w <= p.w1; ++w)
        for (double t : {0.0, 86399.999}) {
          frame_box a = frame_box::number(static_cast<double>(day) * 86400 + t, w);
          frame_box b = frame_box::number(static_cast<double>(day), w);
          ASSERT_EQ(p.dt(&a.f), p.date(&b.f));
          ASSERT_EQ(a.buffer(), b.buffer()) << day << " w " << w;
        }
}

TEST(minguo, every_width) {
  const row rows[] = {
      {zfmmingo, "MINGUO", d20230704, 10, "0112/07/04", 0}, {zfmmingo, "MINGUO", d20230704, 9, "112/07/04", 0},
      {zfmmingo, "MINGUO", d20230704, 8, "1120704 ", 0},    {zfmmingo, "MINGUO", d20230704, 7, "1120704", 0},
      {zfmmingo, "MINGUO", d20230704, 6, "******", XF_E_OVERFLOW},
      {zfmmingo, "MINGUO", d19700101, 10, "0059/01/01", 0}, {zfmmingo, "MINGUO", d19700101, 8, "59/01/01", 0},
      {zfmmingo, "MINGUO", d19700101, 6, "590101", 0},      {zfmmingo, "MINGUO", d19700101, 7, "590101 ", 0},
      {zfmmingo, "MINGUO", d19700101, 1, "*", XF_E_OVERFLOW},
      {zfmmingo, "MINGUO", -18000, 8, "********", 0},  // 1910-09-20
      {zfmmingo, "MINGUO", static_cast<double>(days_from_ymd(1912, 1, 1)), 8, "1/01/01 ", 0},
      {zfmmingo, "MINGUO", static_cast<double>(days_from_ymd(1911, 12, 31)), 5, "*****", 0},
      {zfmmingo, "MINGUO", static_cast<double>(days_from_ymd(20000, 12, 31)), 10, "180891231 ", 0},
      {zfmmingo, "MINGUO", 6589336, 10, "**********", range},
  };
  for (const auto &r : rows) check(r);
}

TEST(xyymmdd_and_yyqz, every_width) {
  const row rows[] = {
      {zfmxymd, "XYYMMDD", d20230704, 6, "230704", 0},       {zfmxymd, "XYYMMDD", d20230704, 7, " 230704", 0},
      {zfmxymd, "XYYMMDD", d20230704, 8, "23-07-04", 0},     {zfmxymd, "XYYMMDD", d20230704, 9, " 23-07-04", 0},
      {zfmxymd, "XYYMMDD", d20230704, 10, "2023-07-04", 0},  {zfmxymd, "XYYMMDD", d20230704, 11, " 2023-07-04", 0},
      {zfmxymd, "XYYMMDD", d20230704, 12, "  2023-07-04", 0},
      {zfmyyqz, "YYQZ", d20230704, 4, "2303", 0},            {zfmyyqz, "YYQZ", d20230704, 5, " 2303", 0},
      {zfmyyqz, "YYQZ", d20230704, 6, "202303", 0},          {zfmyyqz, "YYQZ", 14518, 4, "9904", 0},
      {zfmyyqz, "YYQZ", static_cast<double>(days_from_ymd(1582, 1, 1)), 6, "158201", 0},
      {zfmyyqz, "YYQZ", static_cast<double>(days_from_ymd(20000, 12, 31)), 6, "****04", 0},
      {zfmyyqz, "YYQZ", -138062, 6, "******", range},
  };
  for (const auto &r : rows) check(r);
}

}  // namespace
