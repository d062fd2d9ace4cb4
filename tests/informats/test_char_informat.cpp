// The character informats: @$CHAR/@$F (zifmc), @$CHARZB (zifmzbc) and
// @$QUOTE (zifmcq).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/cases.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(char_informat, bad_width_and_small_output) {
  frame_box b = frame_box::chars("abc", -1, 0, 4);
  EXPECT_EQ(zifmc(&b.f), XF_IN_BAD_WIDTH);
  EXPECT_EQ(b.f.output_length, 0u);
  EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));

  frame_box c = frame_box::chars("abcdef", 6, 0, 4);
  EXPECT_EQ(zifmc(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.str(), "abcd");
}

TEST(case_files, char_informat) { xfmt::test::run_case_file("informats/char_informat.txt"); }

}  // namespace
