// BEST, BESTX, E, D and Z: the decimals code or width each sets, the frame
// restored afterwards, and the text of their odd branches.
#include <gtest/gtest.h>

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
  b.f.option_flags = 0x40;
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(b.f.decimals, r.d);
  EXPECT_EQ(b.f.width, r.w);
  EXPECT_EQ(b.f.option_flags, 0x40u);
}

TEST(best_format, layouts) {
  const row rows[] = {
      {100, 12, 0, "         100", XF_OK},          // the integer path
      {-100, 4, 0, "-100", XF_OK},
      {3.14159, 12, 0, "     3.14159", XF_OK},
      {1234.5678, 12, 0, "   1234.5678", XF_OK},
      {1.0 / 3, 12, 0, "0.3333333333", XF_OK},
      {-1.0 / 3, 12, 0, "-0.333333333", XF_OK},
      {0.1 + 0.2, 32, 0, "                             0.3", XF_OK},  // 15 digits hide the noise
      {1e-5, 12, 0, "     0.00001", XF_OK},
      {1e-6, 12, 0, "       1E-06", XF_OK},             // below 1e-5: E notation
      {0.05, 3, 0, ".05", XF_OK},
      {1e20, 12, 0, "       1E+20", XF_OK},
      {123456789012345678.0, 12, 0, "1.234568E+17", XF_OK},
      {12345678.9, 8, 0, "12345679", XF_OK},            // decimals dropped without status 2
      {123456.7, 6, 0, "123457", XF_OK},
      {0, 20, 0, "                   0", XF_OK},
      {9.5, 1, 0, "*", XF_E_OVERFLOW},
      {xfmt::missing_ordinary(), 6, 0, "     .", XF_OK},
  };
  for (const row &r : rows) check(zfmb, r);
}

TEST(bestx_format, wide_fields_print_32_positions_then_blanks) {
  frame_box b = frame_box::number(1.0 / 3, 40, 0);
  EXPECT_EQ(zfmbx(&b.f), XF_OK);
  EXPECT_EQ(b.f.width, 40);
  EXPECT_EQ(b.f.decimals, 0);
  EXPECT_EQ(b.f.output_length, 32u);  // the inner call's length is kept
  EXPECT_EQ(b.buffer(), "               0.333333333333333        ");
  check(zfmbx, {2.5, 12, 0, "         2.5", XF_OK});
  frame_box c = frame_box::number(7, 40, 0, 36);  // blanks only up to the capacity
  EXPECT_EQ(zfmbx(&c.f), XF_OK);
  EXPECT_EQ(c.buffer(), std::string(31, ' ') + "7" + std::string(4, ' '));
}

TEST(e_format, layouts) {
  const row rows[] = {
      {12345.678, 12, 0, " 1.23457E+04", XF_OK},
      {-12345.678, 12, 0, "-1.23457E+04", XF_OK},
      {1, 10, 0, " 1.000E+00", XF_OK},
      {0.00123, 10, 3, " 1.230E-03", XF_OK},
      {xfmt::missing_ordinary(), 10, 0, "         .", XF_OK},
  };
  for (const row &r : rows) check(zfmexp, r);
}

TEST(d_format, significant_digits) {
  const row rows[] = {
      {3.14159, 12, 3, "        3.14", XF_OK},
      {1234.5, 12, 3, "        1235", XF_OK},
      {0.000123456, 12, 3, "    0.000123", XF_OK},
      {-2.5, 8, 2, "    -2.5", XF_OK},
      {xfmt::missing_ordinary(), 8, 3, "       .", XF_OK},  // d counts as 0
  };
  for (const row &r : rows) check(zfmd, r);
}

TEST(d_format, point_placed_before_the_inner_call_stays_when_it_is_not_overwritten) {
  // Width 0 after the inner call's check: nothing written by zfmt.
  frame_box b = frame_box::number(5, 0, 3, 0);
  EXPECT_EQ(zfmd(&b.f), XF_E_OVERFLOW);
  // A wide field is starred by the inner call over the point.
  frame_box c = frame_box::number(5, 33, 3, 33);
  EXPECT_EQ(zfmd(&c.f), XF_E_OVERFLOW);
  EXPECT_EQ(c.buffer(), std::string(32, '*') + ".");
}

TEST(z_format, zero_padding) {
  const row rows[] = {
      {-1.5, 6, 2, "-01.50", XF_OK},
      {42, 6, 0, "000042", XF_OK},
      {-42, 6, 0, "-00042", XF_OK},
      {0, 4, 1, "00.0", XF_OK},
      {123456, 6, 0, "123456", XF_OK},                   // no blank: as it is
      {123456.7, 8, 2, "123456.7", XF_REDUCED},          // no blank: zfmt's status stays
      {1234567.8, 8, 2, "01234568", XF_OK},             // padded: status 0 even after 2
      {12345678, 4, 0, "****", XF_E_OVERFLOW},
      {xfmt::missing_ordinary(), 4, 0, "   .", XF_OK},
  };
  for (const row &r : rows) check(zfmz, r);
}

}  // namespace
