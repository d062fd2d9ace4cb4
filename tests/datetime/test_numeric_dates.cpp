// The numeric date layouts (their tables are in tests/data/datetime): a
// random differential run against a layout built here from zfmcymd by the
// plain rules.
#include <gtest/gtest.h>

#include <string>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// The layouts rebuilt here from zfmcymd with string operations, over
// random dates and every width of each family.
std::string two(long v) { return std::string(1, static_cast<char>('0' + v / 10 % 10)) + static_cast<char>('0' + v % 10); }
std::string four(long v) { return v > 9999 ? "****" : std::to_string(v); }
std::string rjust(const std::string &s, size_t w) { return s.size() >= w ? s.substr(s.size() - w) : std::string(w - s.size(), ' ') + s; }

TEST(layouts_differential, random_dates_all_widths) {
  auto gen = xfmt::test::rng(61);
  std::uniform_int_distribution<int64_t> day(-138061, 6589335);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    const auto v = static_cast<double>(i % 2 ? day(gen) : day(gen) % 80000);
    double yd, md, dd;
    ASSERT_EQ(zfmcymd(&yd, &md, &dd, v), 1);
    const long y = static_cast<long>(yd), m = static_cast<long>(md), d = static_cast<long>(dd);
    for (int32_t w = 2; w <= 10; ++w) {
      // DDMMYYS: the fields that fit, separators from width 8 (and at 5).
      std::string want;
      const std::string yy = w >= 10 ? four(y) : two(y % 100);
      if (w >= 8) want = two(d) + "/" + two(m) + "/" + yy;
      else if (w >= 6) want = two(d) + two(m) + yy;
      else if (w == 5) want = two(d) + "/" + two(m);
      else if (w == 4) want = two(d) + two(m);
      else want = two(d);
      frame_box b = frame_box::number(v, w);
      ASSERT_EQ(zfmdmy(&b.f), XF_OK);
      ASSERT_EQ(b.str(), rjust(want, static_cast<size_t>(w))) << v << " w " << w;
    }
    for (int32_t w = 5; w <= 12; ++w) {
      const bool two_digit = w < 7;
      const std::string year = two_digit ? two(y % 100) : four(y);
      frame_box b = frame_box::number(v, w);
      ASSERT_EQ(zfmyym(&b.f), XF_OK);
      std::string yfield = two_digit ? rjust(year, static_cast<size_t>(w - 3)) : (y > 9999 && w - 3 == 4 ? "****" : rjust(std::to_string(y), static_cast<size_t>(w - 3)));
      ASSERT_EQ(b.str(), yfield + "M" + two(m)) << v << " w " << w;
    }
  }
}

}  // namespace
