// Times and datetimes split into parts (the single calls are in
// tests/data/datetime/calendar_calls.txt), and the range guard of the formats.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::missing_value;
using xfmt::test::frame_box;

// Splitting random datetimes and putting them together again.
TEST(time_parts, random_round_trip) {
  auto gen = xfmt::test::rng(51);
  std::uniform_real_distribution<double> dt(-11928470400.0, 569318630399.0);
  for (uint64_t i = 0; i < xfmt::test::scaled(100000); ++i) {
    const double v = std::floor(dt(gen)) + (i % 2 ? 0.5 : 0.0);
    const double date = zdatprt(v), t = ztimprt(v);
    ASSERT_EQ(date, std::floor(v / 86400)) << v;
    ASSERT_TRUE(t >= 0 && t < 86400) << v;
    ASSERT_EQ(date * 86400 + t, v) << v;
    ASSERT_EQ(zhms(zhour(v), zminute(v), zsecond(v)), t) << v;
  }
}

TEST(range_guard, kinds_and_bounds) {
  struct { double v; int32_t kind; int32_t result; const char *text; } rows[] = {
      {-138061, 1, 0, "\xEE\xEE\xEE\xEE\xEE"},  {-138062, 1, 1, "*****"},
      {6589335.9, 1, 0, "\xEE\xEE\xEE\xEE\xEE"}, {6589336, 1, 1, "*****"},
      {-11928470400.0, 2, 0, "\xEE\xEE\xEE\xEE\xEE"}, {-11928470401.0, 3, 1, "*****"},
      {569318630400.0, 2, 1, "*****"},           {1e300, 0, 0, "\xEE\xEE\xEE\xEE\xEE"},
      {std::nan(""), 1, 1, "*****"},
  };
  for (const auto &r : rows) {
    frame_box b = frame_box::number(r.v, 5);
    EXPECT_EQ(zdatrng(&b.f, r.kind), r.result) << r.v;
    EXPECT_EQ(b.buffer(), r.text) << r.v;
  }
  frame_box b = frame_box::number(missing_value(2), 5);
  EXPECT_EQ(zdatrng(&b.f, 1), 2);
  EXPECT_EQ(b.str(), "    A");
  b = frame_box::number(missing_value(1), 5, 0, 8);
  EXPECT_EQ(zdatrng(&b.f, 7), 2);
  EXPECT_EQ(b.buffer(), "    .   ");
  EXPECT_EQ(b.f.output_length, 5u);
}

}  // namespace
