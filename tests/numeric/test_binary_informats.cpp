// The binary informats: exact bytes read, bad input, and round trips from
// each format through its informat.
#include <gtest/gtest.h>


#include "core/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// HEX16 then @HEX16 gives back every double's bits (the integer, packed and
// zoned pairs are test_mainframe's round_trips; RB's widths, the radix forms
// of a few values and the character forms of every byte are case lines).
TEST(binary_informats, hex16_round_trips_every_value) {
  std::mt19937_64 g = xfmt::test::rng(0xB4);
  for (uint64_t i = 0; i < xfmt::test::scaled(2000); ++i) {
    uint64_t bits = g();
    frame_box out = frame_box::number(xfmt::bits_double(bits), 16, 0);
    ASSERT_EQ(zfmhex(&out.f), XF_OK);
    frame_box in = frame_box::chars(out.str(), 16, 0, 8);
    ASSERT_EQ(zifmhex(&in.f), XF_OK);
    ASSERT_EQ(xfmt::double_bits(in.result()), bits);
  }
}

}  // namespace
