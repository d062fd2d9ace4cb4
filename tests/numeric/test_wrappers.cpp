// BESTX's wide field: the frame restored afterwards and the inner call's
// length kept (the other cases of BEST, BESTX, E, D and Z are case lines).
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
}

}  // namespace
