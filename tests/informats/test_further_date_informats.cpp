// The date informats of the further module: @MINGUO, @XYYMMDD, @YYQZ, @YYMMN
// and @YMDDTTM. Tables of accepted and refused texts, then round trips: the
// text each format of this family writes, at every width that keeps the
// whole date, reads back as the day (or the first day of its month or
// quarter) on every day of 1582..2400.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"
#include "support/random.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;
using xfmt::test::hex;
using xfmt::test::miss;
using xfmt::test::num;
using xfmt::test::run_informat;

constexpr xf_status ok = XF_OK;

// Nothing past input_length is read: the frame's text ends before a digit
// that would complete the date.
TEST(FurtherDateInformats, StopsAtInputLength) {
  const std::string text = "2023-07-04 12:30:45";
  for (xf_routine r : {zifmmingo, zifmxymd, zifmyyqz, zifmyymn, zifmymdt}) {
    for (uint32_t n = 0; n < text.size(); ++n) {
      frame_box b = frame_box::chars(std::string(text, 0, n), 40, 0, 8);
      r(&b.f);  // the exact-size copy shows any over-read under ASan
      EXPECT_EQ(b.f.output_length, 8u);
    }
  }
}

// --- Round trips ------------------------------------------------------------

using first_of = int64_t (*)(int64_t);
int64_t same(int64_t d) { return d; }
int64_t month_start(int64_t d) {
  double y = 0, m = 0, dd = 0;
  zfmcymd(&y, &m, &dd, static_cast<double>(d));
  return days_from_ymd(static_cast<int64_t>(y), static_cast<int32_t>(m), 1);
}
int64_t quarter_start(int64_t d) {
  double y = 0, m = 0, dd = 0;
  zfmcymd(&y, &m, &dd, static_cast<double>(d));
  return days_from_ymd(static_cast<int64_t>(y), static_cast<int32_t>((static_cast<int>(m) - 1) / 3 * 3 + 1), 1);
}

// Every day of [first, last] written at width w (times 86400 for a datetime
// format) reads back through the informat as expect(day). XFMT_TEST_SCALE
// below 1 (the sanitizer run) thins the days out: 0.05 takes every 20th.
void round_trip(xf_routine format, bool datetime, int32_t w, xf_routine informat, int64_t first, int64_t last,
                first_of expect) {
  const auto step = static_cast<int64_t>(1000 / xfmt::test::scaled(1000));
  for (int64_t n = first; n <= last; n += step) {
    frame_box b = frame_box::number(static_cast<double>(n) * (datetime ? 86400.0 : 1.0) + (datetime ? 3599 : 0), w);
    ASSERT_EQ(format(&b.f), ok) << n;
    const std::string text = b.str();
    auto got = run_informat(informat, text, w);
    ASSERT_EQ(got.status, ok) << "[" << text << "] w " << w;
    ASSERT_EQ(hex(got.bits), hex(num(static_cast<double>(expect(n))))) << "[" << text << "] w " << w;
  }
}

const int64_t y1582 = days_from_ymd(1582, 1, 1), y1912 = days_from_ymd(1912, 1, 1);
const int64_t y1950 = days_from_ymd(1950, 1, 1), y2049 = days_from_ymd(2049, 12, 31);
const int64_t y2400 = days_from_ymd(2400, 12, 31);

TEST(FurtherDateInformatsRoundTrip, EveryDayEveryWidth) {
  for (int32_t w = 7; w <= 10; ++w) round_trip(zfmmingo, false, w, zifmmingo, y1912, y2400, same);
  for (int32_t w = 10; w <= 12; ++w) round_trip(zfmxymd, false, w, zifmxymd, y1582, y2400, same);
  for (int32_t w = 6; w <= 9; ++w) round_trip(zfmxymd, false, w, zifmxymd, y1950, y2049, same);
  round_trip(zfmyyqz, false, 6, zifmyyqz, y1582, y2400, quarter_start);
  for (int32_t w = 4; w <= 5; ++w) round_trip(zfmyyqz, false, w, zifmyyqz, y1950, y2049, quarter_start);
  // The DT forms read back with the informat of their date layout.
  round_trip(zfmdtdat, true, 9, zifmdate, y1582, y2400, same);
  for (int32_t w = 7; w <= 8; ++w) round_trip(zfmdtdat, true, w, zifmdate, y1950, y2049, same);
  round_trip(zfmdtmy, true, 7, zifmmony, y1582, y2400, month_start);
  for (int32_t w = 5; w <= 6; ++w) round_trip(zfmdtmy, true, w, zifmmony, y1950, y2049, month_start);
}

}  // namespace
