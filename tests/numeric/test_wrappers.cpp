// BEST, BESTX, E, D and Z: the decimals code or width each sets, the frame
// restored afterwards, and the text of their odd branches.
#include <gtest/gtest.h>

#include <string>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(bestx_format, wide_fields_print_32_positions_then_blanks) {
  frame_box b = frame_box::number(1.0 / 3, 40, 0);
  EXPECT_EQ(zfmbx(&b.f), XF_OK);
  EXPECT_EQ(b.f.width, 40);
  EXPECT_EQ(b.f.decimals, 0);
  EXPECT_EQ(b.f.output_length, 32u);  // the inner call's length is kept
  EXPECT_EQ(b.buffer(), "               0.333333333333333        ");
  frame_box c = frame_box::number(7, 40, 0, 36);  // blanks only up to the capacity
  EXPECT_EQ(zfmbx(&c.f), XF_OK);
  EXPECT_EQ(c.buffer(), std::string(31, ' ') + "7" + std::string(4, ' '));
}

// A wide field is starred by the inner call over the point placed before
// it, which stays past the delivered length (width 0 is a case line).
TEST(d_format, point_placed_before_the_inner_call_stays_when_it_is_not_overwritten) {
  frame_box c = frame_box::number(5, 33, 3, 33);
  EXPECT_EQ(zfmd(&c.f), XF_E_OVERFLOW);
  EXPECT_EQ(c.buffer(), std::string(32, '*') + ".");
}

}  // namespace
