// TIME w.d: layouts, carries, the decimals that fit, the star rules and
// their statuses; then random values against the literal oracle.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "catalog/missing.hpp"
#include "oracle/time_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  double value;
  int32_t w, d;
  const char *text;
  xf_status status;
};

TEST(time_format, table) {
  const row rows[] = {
      {3600, 8, 0, " 1:00:00", 0},          {0, 8, 0, " 0:00:00", 0},
      {90000, 8, 0, "25:00:00", 0},         {3599.6, 5, 0, " 1:00", 0},
      {59.999, 11, 2, " 0:01:00.00", 0},    {-3600, 8, 0, "-1:00:00", 0},
      {36000, 2, 0, "10", 0},               {36000, 1, 0, "*", 0},
      {36000, 3, 0, " 10", 0},              {36000, 4, 0, "  10", 0},
      {36000, 5, 0, "10:00", 0},            {36000, 7, 0, "  10:00", 0},
      {45296.789, 12, 3, "12:34:56.789", 0}, {45296.789, 11, 3, "12:34:56.79", 0},
      {45296.789, 10, 3, "12:34:56.8", 0},  {45296.789, 9, 3, " 12:34:57", 0},
      {45296.25, 8, 0, "12:34:56", 0},      {45296.5, 8, 0, "12:34:57", 0},
      {3599.5, 8, 0, " 1:00:00", 0},        {3599.4, 8, 0, " 0:59:59", 0},
      {86399.5, 8, 0, "24:00:00", 0},       {-0.4, 8, 0, "-0:00:00", 0},
      {-59.6, 8, 0, "-0:01:00", 0},         {5, 20, 19, "0:00:05.000000000000", 0},
      {1e10, 13, 0, "2777777:46:40", 0},     {1e10, 12, 0, "  2777777:46", 0},
      {569318630399.0, 16, 0, " 158144063:59:59", 0}, {569318630400.0, 8, 0, "********", XF_E_DATE_RANGE},
      {-11928470401.0, 8, 0, "********", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) {
    frame_box b = frame_box::number(r.value, r.w, r.d);
    const xf_status st = zfmtime(&b.f);
    if (std::string(r.text).size() != static_cast<size_t>(r.w)) {
      ADD_FAILURE() << "bad row " << r.text;
      continue;
    }
    EXPECT_EQ(b.str(), r.text) << r.value << " " << r.w << "." << r.d;
    EXPECT_EQ(st, r.status) << r.value << " " << r.w << "." << r.d;
  }
}

TEST(time_format, missing_and_bad_frames) {
  frame_box b = frame_box::number(xfmt::missing_value(3), 8);
  EXPECT_EQ(zfmtime(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "       B");
  frame_box c = frame_box::number(xfmt::missing_ordinary(), 8, 2);
  EXPECT_EQ(zfmtime(&c.f), XF_OK);
  EXPECT_EQ(c.str(), "     .  ");
  frame_box e = frame_box::number(60, 8, 0, 7);
  EXPECT_EQ(zfmtime(&e.f), XF_E_CAPACITY);
  EXPECT_EQ(e.buffer(), std::string(7, '\xEE'));
  frame_box n = frame_box::number(std::nan(""), 8);
  EXPECT_EQ(zfmtime(&n.f), XF_E_DATE_RANGE);
  EXPECT_EQ(n.str(), "********");
}

// Random times of every magnitude, widths 2-20 and decimals 0-19 against
// the literal oracle (which prints every seconds field through zfmt).
TEST(time_format, random_against_oracle) {
  auto gen = xfmt::test::rng(71);
  std::uniform_real_distribution<double> unit(0, 1);
  std::uniform_int_distribution<int32_t> width(2, 20), dec(0, 19), scale(0, 11);
  for (uint64_t i = 0; i < xfmt::test::scaled(100000); ++i) {
    double v = unit(gen) * std::pow(10.0, scale(gen));
    if (i % 3 == 0) v = std::round(v * 100) / 100;  // values on hundredths, where rounding ties live
    if (i % 7 == 0) v = std::floor(v / 60) * 60 + 59.5 + unit(gen) * 0.5;  // near a minute's end
    if (i % 2) v = -v;
    const int32_t w = width(gen), d = dec(gen);
    xf_status want_status = 0;
    const std::string want = xfmt::oracle::time_field(v, w, d, want_status);
    frame_box b = frame_box::number(v, w, d);
    const xf_status st = zfmtime(&b.f);
    ASSERT_EQ(b.str(), want) << std::hexfloat << v << " " << w << "." << d;
    ASSERT_EQ(st, want_status);
  }
}

// Seconds fractions at and just below one half, where the direct two-digit
// path hands over to the printer.
TEST(time_format, half_second_band) {
  const double fractions[] = {0.49989, 0.4999, 0.49999999, 0.4999999999999, 0.5, 0.50001};
  for (int s = 0; s < 60; ++s) {
    for (double fr : fractions) {
      const double v = 7200 + s + fr;
      xf_status want_status = 0;
      const std::string want = xfmt::oracle::time_field(v, 8, 0, want_status);
      frame_box b = frame_box::number(v, 8, 0);
      EXPECT_EQ(zfmtime(&b.f), want_status);
      EXPECT_EQ(b.str(), want) << std::hexfloat << v;
    }
  }
}

}  // namespace
