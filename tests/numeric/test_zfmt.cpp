// The plain-number printer's exported helpers (its fields are case lines of
// tests/data/numeric/zfmt.txt and its random differential's).
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "xfmt/xfmt.h"

namespace {

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
