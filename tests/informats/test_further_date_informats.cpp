// The date informats of the further module: @MINGUO, @XYYMMDD, @YYQZ, @YYMMN
// and @YMDDTTM. Tables of accepted and refused texts, then round trips: the
// text each format of this family writes, at every width that keeps the
// whole date, reads back as the day (or the first day of its month or
// quarter) on every day of 1582..2400.
#include <gtest/gtest.h>

#include <cstdint>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::month_start;
using xfmt::test::quarter_start;
using xfmt::test::round_trip;

const int64_t y1582 = days_from_ymd(1582, 1, 1), y1912 = days_from_ymd(1912, 1, 1);
const int64_t y1950 = days_from_ymd(1950, 1, 1), y2049 = days_from_ymd(2049, 12, 31);
const int64_t y2400 = days_from_ymd(2400, 12, 31);
const int64_t step = xfmt::test::day_step();

TEST(FurtherDateInformatsRoundTrip, EveryDayEveryWidth) {
  for (int32_t w = 7; w <= 10; ++w) round_trip(zfmmingo, w, zifmmingo, y1912, y2400, step);
  for (int32_t w = 10; w <= 12; ++w) round_trip(zfmxymd, w, zifmxymd, y1582, y2400, step);
  for (int32_t w = 6; w <= 9; ++w) round_trip(zfmxymd, w, zifmxymd, y1950, y2049, step);
  round_trip(zfmyyqz, 6, zifmyyqz, y1582, y2400, step, false, quarter_start);
  for (int32_t w = 4; w <= 5; ++w) round_trip(zfmyyqz, w, zifmyyqz, y1950, y2049, step, false, quarter_start);
  // The DT forms read back with the informat of their date layout.
  round_trip(zfmdtdat, 9, zifmdate, y1582, y2400, step, true);
  for (int32_t w = 7; w <= 8; ++w) round_trip(zfmdtdat, w, zifmdate, y1950, y2049, step, true);
  round_trip(zfmdtmy, 7, zifmmony, y1582, y2400, step, true, month_start);
  for (int32_t w = 5; w <= 6; ++w) round_trip(zfmdtmy, w, zifmmony, y1950, y2049, step, true, month_start);
}

}  // namespace
