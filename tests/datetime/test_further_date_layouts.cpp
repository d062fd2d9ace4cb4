// DTDATE, DTMONYY, DTYEAR and DTYYQC against the date format of the same
// layout on every day of 1582..2400 at every width, at midnight and just
// before the next (their tables are in tests/data/datetime).
#include <gtest/gtest.h>

#include <string>

#include "datetime/calendar.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;

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

}  // namespace
