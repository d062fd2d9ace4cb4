// ISO 8601 forms without a zone, and the spelled formats DOWNAME, MONNAME
// and YYMON: every width of the rows, bounds, missing values.
#include <gtest/gtest.h>

#include <string>

#include "support/format_rows.hpp"
#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

using xfmt::test::check;
using xfmt::test::row;

const double d20230704 = 23195;
const double dt20230704 = 23195 * 86400.0 + 45296.789;  // 2023-07-04T12:34:56.789

TEST(iso8601, dates_and_times) {
  const row rows[] = {
      {zfme8da, "E8601DA", d20230704, 10, 0, "2023-07-04", 0},
      {zfme8da, "E8601DA", -138061, 10, 0, "1582-01-01", 0},
      {zfme8da, "E8601DA", -138062, 10, 0, "**********", XF_E_DATE_RANGE},
      {zfme8da, "E8601DA", 6589335, 10, 0, "****-12-31", 0},
      {zfme8da, "E8601DA", -0.5, 10, 0, "1959-12-31", 0},
      {zfmb8da, "B8601DA", d20230704, 8, 0, "20230704", 0},
      {zfmb8da, "B8601DA", d20230704, 10, 0, "  20230704", 0},
      {zfme8dn, "E8601DN", dt20230704, 10, 0, "2023-07-04", 0},
      {zfme8dn, "E8601DN", -1, 10, 0, "1959-12-31", 0},
      {zfmb8dn, "B8601DN", dt20230704, 9, 0, " 20230704", 0},
      {zfme8tm, "E8601TM", 45296.789, 8, 0, "12:34:56", 0},
      {zfme8tm, "E8601TM", 45296.789, 12, 3, "12:34:56.789", 0},
      {zfme8tm, "E8601TM", 45296.789, 15, 6, "12:34:56.789000", 0},
      {zfme8tm, "E8601TM", 45296.789, 11, 3, "12:34:56.78", 0},
      {zfme8tm, "E8601TM", 45296.789, 9, 3, " 12:34:56", 0},
      {zfme8tm, "E8601TM", 86399.9999999, 15, 6, "23:59:59.999999", 0},
      {zfme8tm, "E8601TM", -1, 8, 0, "23:59:59", 0},
      {zfme8tm, "E8601TM", 90000, 8, 0, "01:00:00", 0},
      {zfmb8tm, "B8601TM", 45296.789, 6, 0, "123456", 0},
      {zfmb8tm, "B8601TM", 45296.789, 10, 2, " 123456.78", 0},
      {zfme8dt, "E8601DT", dt20230704, 19, 0, "2023-07-04T12:34:56", 0},
      {zfme8dt, "E8601DT", dt20230704, 16, 0, "2023-07-04T12:34", 0},
      {zfme8dt, "E8601DT", dt20230704, 18, 3, "  2023-07-04T12:34", 0},
      {zfme8dt, "E8601DT", dt20230704, 23, 3, "2023-07-04T12:34:56.789", 0},
      {zfme8dt, "E8601DT", dt20230704, 26, 6, "2023-07-04T12:34:56.789000", 0},
      {zfme8dt, "E8601DT", -0.5, 19, 0, "1959-12-31T23:59:59", 0},
      {zfme8dt, "E8601DT", 569318630400.0, 19, 0, "*******************", XF_E_DATE_RANGE},
      {zfmb8dt, "B8601DT", dt20230704, 15, 0, "20230704T123456", 0},
      {zfmb8dt, "B8601DT", dt20230704, 19, 3, "20230704T123456.789", 0},
      {zfmb8dt, "B8601DT", dt20230704, 17, 3, "20230704T123456.7", 0},
  };
  for (const auto &r : rows) check(r);
}

TEST(spelled, names_and_year_month) {
  const row rows[] = {
      {zfmdown, "DOWNAME", d20230704, 9, 0, "  Tuesday", 0},
      {zfmdown, "DOWNAME", d20230704, 3, 0, "Tue", 0},
      {zfmdown, "DOWNAME", 0, 9, 0, "   Friday", 0},
      {zfmdown, "DOWNAME", -131487, 9, 0, " Saturday", 0},  // 1600-01-01
      {zfmdown, "DOWNAME", -138061, 9, 0, "   Friday", 0},  // 1582-01-01 (proleptic)
      {zfmdown, "DOWNAME", -138062, 9, 0, "*********", XF_E_DATE_RANGE},
      {zfmmonn, "MONNAME", d20230704, 9, 0, "     July", 0},
      {zfmmonn, "MONNAME", 23345, 9, 0, " December", 0},
      {zfmmonn, "MONNAME", 23345, 3, 0, "Dec", 0},
      {zfmmonn, "MONNAME", 23345, 12, 0, "    December", 0},
      {zfmymon, "YYMON", d20230704, 7, 0, "2023JUL", 0},
      {zfmymon, "YYMON", d20230704, 5, 0, "23JUL", 0},
      {zfmymon, "YYMON", d20230704, 6, 0, " 23JUL", 0},
      {zfmymon, "YYMON", 16437, 9, 0, "  2005JAN", 0},
      {zfmymon, "YYMON", 6589335, 7, 0, "****DEC", 0},
  };
  for (const auto &r : rows) check(r);
}

TEST(spelled, missing_values) {
  const xf_routine routines[] = {zfme8da, zfmb8da, zfme8dn, zfmb8dn, zfme8tm, zfmb8tm,
                                 zfme8dt, zfmb8dt, zfmdown, zfmmonn, zfmymon};
  for (xf_routine r : routines) {
    frame_box b = frame_box::number(xfmt::missing_value(14), 10);
    EXPECT_EQ(r(&b.f), XF_OK);
    EXPECT_EQ(b.str(), "         M");
  }
}

}  // namespace

namespace {

TEST(clock_formats, tod_and_hour) {
  const row rows[] = {
      {zfmtod, "TOD", 3600, 8, 0, "01:00:00", 0},
      {zfmtod, "TOD", 45296.789, 8, 0, "12:34:57", 0},
      {zfmtod, "TOD", 45296.789, 12, 3, "12:34:56.789", 0},
      {zfmtod, "TOD", 90000, 8, 0, "01:00:00", 0},
      {zfmtod, "TOD", -1, 8, 0, "23:59:59", 0},
      {zfmtod, "TOD", 86399.6, 8, 0, "00:00:00", 0},
      {zfmtod, "TOD", 0, 5, 0, "00:00", 0},
      {zfmtod, "TOD", 3600, 7, 0, "1:00:00", 0},
      {zfmtod, "TOD", 3600, 2, 0, "01", 0},
      {zfmtod, "TOD", 569318630400.0, 8, 0, "********", XF_E_DATE_RANGE},
      {zfmhour, "HOUR", 45296, 2, 0, "13", 0},
      {zfmhour, "HOUR", 45296, 4, 1, "12.6", 0},
      {zfmhour, "HOUR", 90000, 2, 0, "25", 0},
      {zfmhour, "HOUR", -5400, 4, 1, "-1.5", 0},
      {zfmhour, "HOUR", 569318630400.0, 4, 0, "****", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
  frame_box b = frame_box::number(xfmt::missing_value(1), 8);
  EXPECT_EQ(zfmtod(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "       .");
}

}  // namespace

namespace {

TEST(datetime_format, widths_decimals_and_carries) {
  const double noon = 23195 * 86400.0 + 45296.789;  // 2023-07-04 12:34:56.789
  const row rows[] = {
      {zfmdttm, "DATETIME", 0, 16, 0, "01JAN60:00:00:00", 0},
      {zfmdttm, "DATETIME", 0, 18, 0, "01JAN1960:00:00:00", 0},
      {zfmdttm, "DATETIME", 0, 19, 0, " 01JAN1960:00:00:00", 0},
      {zfmdttm, "DATETIME", noon, 7, 0, "04JUL23", 0},
      {zfmdttm, "DATETIME", noon, 9, 0, "  04JUL23", 0},
      {zfmdttm, "DATETIME", noon, 10, 0, "04JUL23:12", 0},
      {zfmdttm, "DATETIME", noon, 13, 0, "04JUL23:12:34", 0},
      {zfmdttm, "DATETIME", noon, 16, 0, "04JUL23:12:34:57", 0},
      {zfmdttm, "DATETIME", noon, 17, 1, " 04JUL23:12:34:57", 0},
      {zfmdttm, "DATETIME", noon, 20, 1, "04JUL2023:12:34:56.8", 0},
      {zfmdttm, "DATETIME", noon, 22, 3, "04JUL2023:12:34:56.789", 0},
      {zfmdttm, "DATETIME", noon, 40, 6, "               04JUL2023:12:34:56.789000", 0},
      {zfmdttm, "DATETIME", 86399.6, 16, 0, "02JAN60:00:00:00", 0},
      {zfmdttm, "DATETIME", 86399.6, 13, 0, "01JAN60:23:59", 0},
      {zfmdttm, "DATETIME", -0.25, 18, 0, "01JAN1960:00:00:00", 0},
      {zfmdttm, "DATETIME", -1, 18, 0, "31DEC1959:23:59:59", 0},
      {zfmdttm, "DATETIME", -11928470400.0, 18, 0, "01JAN1582:00:00:00", 0},
      {zfmdttm, "DATETIME", 569318630399.0, 18, 0, "31DEC****:23:59:59", 0},
      {zfmdttm, "DATETIME", 569318630400.0, 16, 0, "****************", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
  frame_box b = frame_box::number(xfmt::missing_value(1), 16);
  EXPECT_EQ(zfmdttm(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "               .");
}

}  // namespace

namespace {

TEST(two_part_times, hhmm_and_mmss) {
  const row rows[] = {
      {zfmhhmm, "HHMM", 45296, 5, 0, "12:35", 0},
      {zfmhhmm, "HHMM", 45296, 8, 2, "12:34.93", 0},
      {zfmhhmm, "HHMM", 45296, 7, 2, "12:34.9", 0},
      {zfmhhmm, "HHMM", 45296, 6, 2, " 12:35", 0},
      {zfmhhmm, "HHMM", 3600, 5, 0, " 1:00", 0},
      {zfmhhmm, "HHMM", 35970, 5, 0, "10:00", 0},   // 9:59.5 carries to 10:00
      {zfmhhmm, "HHMM", 35970, 4, 0, "   9", 0},    // the hours alone are cut, as TIME does
      {zfmhhmm, "HHMM", 90000, 5, 0, "25:00", 0},
      {zfmhhmm, "HHMM", -5400, 5, 0, "-1:30", 0},
      {zfmhhmm, "HHMM", 36000, 2, 0, "10", 0},
      {zfmhhmm, "HHMM", 360000, 2, 0, "**", 0},
      {zfmhhmm, "HHMM", 569318630400.0, 5, 0, "*****", XF_E_DATE_RANGE},
      {zfmmmss, "MMSS", 45296.789, 6, 0, "754:57", 0},
      {zfmmmss, "MMSS", 45296.789, 9, 2, "754:56.79", 0},
      {zfmmmss, "MMSS", 59.5, 5, 0, " 1:00", 0},
      {zfmmmss, "MMSS", 59.4, 5, 0, " 0:59", 0},
      {zfmmmss, "MMSS", 45296, 3, 0, "754", 0},
      {zfmmmss, "MMSS", -61, 5, 0, "-1:01", 0},
  };
  for (const auto &r : rows) check(r);
}

}  // namespace

namespace {

TEST(clock_formats, timeampm) {
  const row rows[] = {
      {zfmtimm, "TIMEAMPM", 3600, 11, 0, " 1:00:00 AM", 0},
      {zfmtimm, "TIMEAMPM", 0, 11, 0, "12:00:00 AM", 0},
      {zfmtimm, "TIMEAMPM", 43200, 11, 0, "12:00:00 PM", 0},
      {zfmtimm, "TIMEAMPM", 45296, 11, 0, "12:34:56 PM", 0},
      {zfmtimm, "TIMEAMPM", 49696, 11, 0, " 1:48:16 PM", 0},
      {zfmtimm, "TIMEAMPM", 86399, 11, 0, "11:59:59 PM", 0},
      {zfmtimm, "TIMEAMPM", 43199.6, 11, 0, "12:00:00 PM", 0},
      {zfmtimm, "TIMEAMPM", 86399.6, 11, 0, "12:00:00 AM", 0},
      {zfmtimm, "TIMEAMPM", 86399.6, 8, 0, "12:00 AM", 0},  // the carry of TIME5. (like 3599.6 -> 1:00)
      {zfmtimm, "TIMEAMPM", 49696, 14, 2, " 1:48:16.00 PM", 0},
      {zfmtimm, "TIMEAMPM", 49696, 5, 0, " 1 PM", 0},
      {zfmtimm, "TIMEAMPM", 49696, 4, 0, "1:48", 0},  // no room for the suffix
      {zfmtimm, "TIMEAMPM", 86400 + 49696, 11, 0, " 1:48:16 PM", 0},
      {zfmtimm, "TIMEAMPM", -1, 11, 0, "11:59:59 PM", 0},
  };
  for (const auto &r : rows) check(r);
}

}  // namespace
