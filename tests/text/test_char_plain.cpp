// $CHAR: the value's bytes left-aligned in the field.
#include <gtest/gtest.h>

#include <string>

#include "oracle/char_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(char_format, reads_no_more_than_the_input_length) {
  // The input pointer names 3 bytes of a longer string.
  std::string s = "abcXYZ";
  frame_box b = frame_box::chars("", 6);
  b.f.input = s.data();
  b.f.input_length = 3;
  EXPECT_EQ(zfmchar(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "abc   ");
}

TEST(char_format, random_against_the_oracle) {
  auto gen = xfmt::test::rng(0xC4A2);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    std::string text(gen() % 40, ' ');
    for (char &c : text) c = static_cast<char>(gen() % 256);
    int32_t w = static_cast<int32_t>(gen() % 50) - 3;
    uint32_t cap = static_cast<uint32_t>(gen() % 50);
    frame_box b = frame_box::chars(text, w, 0, cap);
    xf_status st = zfmchar(&b.f);
    std::string want = xfmt::oracle::char_field(text, w, cap);
    ASSERT_EQ(b.str(), want) << "case " << i << " w=" << w << " cap=" << cap << " seed "
                             << xfmt::test::test_seed();
    ASSERT_EQ(st, (w > 0 && static_cast<uint32_t>(w) > cap) ? XF_E_CAPACITY : XF_OK);
  }
}

}  // namespace
