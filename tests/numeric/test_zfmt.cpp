// The plain-number printer, case by case: every blank of the field shown,
// boundaries and bad input first, then the layouts and their fallbacks.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  double value;
  int32_t w;
  int32_t d;
  const char *field;
  xf_status status;
};

void check(xf_routine routine, const row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(b.f.output_length, std::string(r.field).size());
}

TEST(fixed_format, width_below_one_writes_nothing) {
  for (int32_t w : {0, -1, -40}) {
    frame_box b = frame_box::number(1.5, w, 0, 4);
    b.f.output_length = 77;
    EXPECT_EQ(zfmt(&b.f), XF_E_OVERFLOW);
    EXPECT_EQ(b.f.output_length, 77u);
    EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));
  }
}

TEST(fixed_format, width_above_32_is_32_stars_and_the_width_becomes_32) {
  frame_box b = frame_box::number(1.5, 40, 0, 40);
  EXPECT_EQ(zfmt(&b.f), XF_E_OVERFLOW);
  EXPECT_EQ(b.str(), std::string(32, '*'));
  EXPECT_EQ(b.f.width, 32);
  EXPECT_EQ(b.buffer().substr(32), std::string(8, '\xEE'));
}

TEST(fixed_format, capacity_below_width_cuts_the_field) {
  frame_box b = frame_box::number(3.14159, 8, 2, 5);
  EXPECT_EQ(zfmt(&b.f), XF_E_CAPACITY);
  EXPECT_EQ(b.str(), "    3");
  frame_box z = frame_box::number(3.14159, 8, 2, 0);
  EXPECT_EQ(zfmt(&z.f), XF_E_CAPACITY);
  EXPECT_EQ(z.f.output_length, 0u);
}

TEST(fixed_format, missing_values) {
  const row rows[] = {
      {xfmt::missing_ordinary(), 8, 2, "     .  ", XF_OK},
      {xfmt::missing_ordinary(), 5, 0, "    .", XF_OK},
      {xfmt::missing_value(0), 5, 0, "    _", XF_OK},
      {xfmt::missing_value(2), 5, 1, "   A ", XF_OK},
      {xfmt::missing_value(27), 3, 0, "  Z", XF_OK},
      {xfmt::missing_ordinary(), 4, 7, "   .", XF_OK},    // d >= w counts as 99
      {xfmt::missing_ordinary(), 4, -3, "   .", XF_OK},   // negative d too
      {xfmt::missing_ordinary(), 6, 99, "     .", XF_OK},
      {xfmt::bits_double(0xFFFF000000000000ull), 3, 0, "   ", XF_OK},  // byte 5 = 0: blank
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, missing_blanks_the_whole_capacity) {
  frame_box b = frame_box::number(xfmt::missing_ordinary(), 4, 0, 10);
  EXPECT_EQ(zfmt(&b.f), XF_OK);
  EXPECT_EQ(b.buffer(), "   .      ");
  EXPECT_EQ(b.f.output_length, 4u);
}

TEST(fixed_format, a_nan_that_is_not_missing_and_infinities_are_stars) {
  const row rows[] = {
      {std::numeric_limits<double>::quiet_NaN(), 4, 0, "****", XF_E_OVERFLOW},
      {std::numeric_limits<double>::infinity(), 4, 0, "****", XF_E_OVERFLOW},
      {-std::numeric_limits<double>::infinity(), 6, 2, "******", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, integers) {
  const row rows[] = {
      {0, 1, 0, "0", XF_OK},
      {-0.0, 3, 0, "  0", XF_OK},                      // negative zero is not negative
      {42, 6, 0, "    42", XF_OK},
      {-42, 3, 0, "-42", XF_OK},
      {-42, 2, 0, "**", XF_E_OVERFLOW},                // E needs 5 positions
      {12345, 5, 0, "12345", XF_OK},
      {123456, 5, 0, "1E+05", XF_OK},                  // E notation with 99 fits
      {9007199254740992.0, 16, 0, "9007199254740992", XF_OK},
      {9007199254740992.0, 20, 0, "    9007199254740992", XF_OK},
      {1e17, 20, 0, "  100000000000000000", XF_OK},
      {1e31, 32, 0, " 9999999999999999635896294965248", XF_OK},  // every digit of the double
      {3, 8, 2, "    3.00", XF_OK},
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, decimals_and_rounding) {
  const row rows[] = {
      {3.14159, 8, 2, "    3.14", XF_OK},
      {-3.14159, 8, 2, "   -3.14", XF_OK},              // the sign floats against the digits
      {3.5, 4, 1, " 3.5", XF_OK},                        // a fraction never rounds its integer part
      {9.999, 5, 2, "10.00", XF_OK},                     // the carry comes from the addend
      {1.005, 4, 2, "1.01", XF_OK},                      // the nudge: 1.00499999... shows 1.01
      {2.675, 5, 2, " 2.68", XF_OK},
      {0.125, 5, 2, " 0.13", XF_OK},
      {-0.01, 4, 1, "-0.0", XF_OK},                      // the sign stays on a rounded zero
      {0.5, 3, 2, ".50", XF_OK},                         // no room for the leading zero
      {-0.5, 3, 1, "-.5", XF_OK},
      {0.5, 1, 0, "1", XF_OK},
      {0.4, 1, 0, "0", XF_OK},
      {-0.3, 1, 0, "0", XF_OK},                          // w = 1: an unsigned zero, not "-"
      {-0.7, 1, 0, "*", XF_E_OVERFLOW},
      {123.456, 10, 31, "123.456000", XF_REDUCED},       // decimals given up for the digits
      {1.0 / 3, 25, 20, "   0.33333333333333300000", XF_OK},  // 15 significant digits at most
      {0.000123456789012345678, 32, 31, ".0001234567890123450000000000000", XF_OK},  // no room for "0"
      {1234567890123456.7, 24, 3, "    1234567890123457.000", XF_OK},  // past 15 digits: zeros
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, fewer_decimals_when_the_integer_needs_room) {
  const row rows[] = {
      {123456.7, 8, 2, "123456.7", XF_REDUCED},
      {1234567.8, 8, 2, " 1234568", XF_REDUCED},
      {99999.5, 8, 2, "99999.50", XF_OK},
      {999.96, 5, 1, " 1000", XF_REDUCED},               // the carry costs the decimal
      {-999.96, 6, 1, " -1000", XF_REDUCED},
      {1000, 5, 2, " 1000", XF_REDUCED},
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, e_notation_and_stars_when_the_digits_overflow) {
  const row rows[] = {
      {1e300, 8, 0, "  1E+300", XF_OK},
      {1e300, 5, 0, "*****", XF_E_OVERFLOW},
      {-1e300, 7, 2, "-1E+300", XF_OK},
      {1.5e300, 8, 0, "1.5E+300", XF_OK},
      {123456789.0, 8, 2, "1.23E+08", XF_OK},
      {1e33, 32, 0, "                           1E+33", XF_OK},
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, decimals_code_98_keeps_three_significant_digits) {
  const row rows[] = {
      {3.14159, 8, 98, "    3.14", XF_OK},
      {1234.5, 8, 98, "    1235", XF_OK},
      {0.000123456, 10, 98, "  0.000123", XF_OK},
      {1e-6, 12, 98, "  0.00000100", XF_OK},            // the double just below 1e-6 counts as 1e-6
      {1e-20, 10, 98, " 1.000E-20", XF_OK},             // no fixed layout shows a digit
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, e_codes) {
  const row rows[] = {
      {12345.678, 12, -999, " 1.23457E+04", XF_OK},
      {-12345.678, 12, -999, "-1.23457E+04", XF_OK},
      {0, 12, -999, " 0.00000E+00", XF_OK},
      {1e100, 12, -999, "1.00000E+100", XF_OK},
      {-1e100, 12, -999, "-1.0000E+100", XF_OK},         // fewer decimals for the third digit
      {12345.678, 7, -999, "1.2E+04", XF_OK},
      {12345.678, 5, -999, "1E+04", XF_OK},
      {12345.678, 4, -999, "****", XF_E_OVERFLOW},       // a <= 4: best layout, which needs 5
      {0.5, 4, -999, " 0.5", XF_OK},
      {12345.678, 12, -2, "    1.23E+04", XF_OK},        // other negatives: -d decimals
      {9.9999999, 10, -3, " 1.000E+01", XF_OK},          // the mantissa carries into the exponent
      {5e-324, 12, -999, "4.94066E-324", XF_OK},
  };
  for (const row &r : rows) check(zfmt, r);
}

TEST(fixed_format, zpowten_holds_the_rounding_addends) {
  for (int d = 0; d < 32; ++d) EXPECT_DOUBLE_EQ(zpowten[d], 0.5 * std::pow(10.0, -d)) << d;
  EXPECT_EQ(zpowten[31], 5e-32);
}

TEST(fixed_format, zfmn_is_zfmt) {
  frame_box a = frame_box::number(-3.14159, 8, 2);
  frame_box b = frame_box::number(-3.14159, 8, 2);
  EXPECT_EQ(zfmt(&a.f), zfmn(&b.f));
  EXPECT_EQ(a.str(), b.str());
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
