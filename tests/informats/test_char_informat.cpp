// The character informats: @$CHAR/@$F (zifmc), @$CHARZB (zifmzbc) and
// @$QUOTE (zifmcq).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  std::string text;
  int32_t w;
  xf_status status;
  std::string field;  // every byte of the delivered field
};

void check_rows(xf_routine routine, const std::vector<row> &rows) {
  for (const row &r : rows) {
    frame_box b = frame_box::chars(r.text, r.w);
    EXPECT_EQ(routine(&b.f), r.status) << "[" << r.text << "] w " << r.w;
    EXPECT_EQ(b.str(), r.field) << "[" << r.text << "] w " << r.w;
    EXPECT_EQ(b.f.output_encoding, 0u);
  }
}

TEST(char_informat, pads_and_cuts_to_the_width) {
  check_rows(zifmc, {
      // text       w  status  field
      {"abc",       5, XF_OK, "abc  "},
      {"abcdef",    3, XF_OK, "abc"},
      {"  ab",      4, XF_OK, "  ab"},    // leading blanks stay
      {".",         3, XF_OK, ".  "},
      {"",          2, XF_OK, "  "},
      {"abc",       0, XF_OK, ""},
      {std::string("a\0b", 3), 3, XF_OK, std::string("a\0b", 3)},
  });
}

TEST(char_informat, bad_width_and_small_output) {
  frame_box b = frame_box::chars("abc", -1, 0, 4);
  EXPECT_EQ(zifmc(&b.f), XF_IN_BAD_WIDTH);
  EXPECT_EQ(b.f.output_length, 0u);
  EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));

  frame_box c = frame_box::chars("abcdef", 6, 0, 4);
  EXPECT_EQ(zifmc(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.str(), "abcd");
}

TEST(charzb_informat, binary_zeros_become_blanks) {
  check_rows(zifmzbc, {
      {std::string("a\0b", 3),  3, XF_OK, "a b"},
      {std::string("\0\0", 2),  4, XF_OK, "    "},
      {"ab",                    3, XF_OK, "ab "},
  });
}

TEST(quote_informat, removes_one_pair_of_matching_quotes) {
  check_rows(zifmcq, {
      {"'abc'",        8, XF_OK, "abc     "},
      {"\"a b\"",      5, XF_OK, "a b  "},
      {"  'x'  ",      7, XF_OK, "x      "},
      {"'a''b'",       6, XF_OK, "a''b  "},   // inner quotes stay as they are
      {"''",           2, XF_OK, "  "},
      {"'",            1, XF_OK, "'"},
      {"'abc\"",       5, XF_OK, "'abc\""},   // quotes that do not match
      {"abc",          4, XF_OK, "abc "},
      {"'abc'",        4, XF_OK, "'abc"},     // the closing quote is beyond w
  });
}

}  // namespace
