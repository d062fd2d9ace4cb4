// The plain-number printer, case by case: every blank of the field shown,
// boundaries and bad input first, then the layouts and their fallbacks.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(fixed_format, width_below_one_writes_nothing) {
  for (int32_t w : {0, -1, -40}) {
    frame_box b = frame_box::number(1.5, w, 0, 4);
    b.f.output_length = 77;
    EXPECT_EQ(zfmt(&b.f), XF_E_OVERFLOW);
    EXPECT_EQ(b.f.output_length, 77u);
    EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));
  }
}

TEST(fixed_format, width_above_32_becomes_32) {
  frame_box b = frame_box::number(1.5, 40, 0, 40);
  EXPECT_EQ(zfmt(&b.f), XF_E_OVERFLOW);
  EXPECT_EQ(b.f.width, 32);
}

TEST(fixed_format, fmte_and_zfmtd_exports) {
  char out[16];
  EXPECT_EQ(fmte(-12345.678, 12, -5, out, sizeof out), 11);
  EXPECT_EQ(std::string(out, 12), " 1.23457E+04");
  EXPECT_EQ(fmte(1.0, 12, 0, out, 4), -1);             // width above the capacity
  EXPECT_EQ(fmte(1.0, 3, 99, out, sizeof out), -1);    // not even one digit fits
  EXPECT_EQ(fmte(std::numeric_limits<double>::infinity(), 12, 99, out, sizeof out), -1);
  EXPECT_EQ(zfmtd(3.14159, 8, 3), 2);
  EXPECT_EQ(zfmtd(1234.5, 8, 3), 0);
  EXPECT_EQ(zfmtd(0.000123456, 10, 3), 6);
  EXPECT_EQ(zfmtd(123456789.0, 8, 3), -999);
  EXPECT_EQ(zfmtd(1e-20, 10, 3), -999);
}

}  // namespace
