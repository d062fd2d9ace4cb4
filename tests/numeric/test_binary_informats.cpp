// The binary informats: exact bytes read, bad input, and round trips from
// each format through its informat.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// Format then informat: the character forms give back every byte string
// (the integer, packed and zoned pairs are test_mainframe's round_trips; RB's
// widths and the radix forms of a few values are case lines).
struct radix_pair {
  xf_routine format;
  xf_routine informat;
  int w;
};

TEST(binary_informats, round_trips) {
  std::string all;
  for (int c = 0; c < 256; ++c) all.push_back(static_cast<char>(c));
  const radix_pair chars[] = {{zfmchex, zifmchex, 2}, {zfmcoct, zifmcoct, 3}, {zfmcbin, zifmcbin, 8}};
  for (auto [f, inf, per] : chars) {
    frame_box out = frame_box::chars(all, 256 * per);
    ASSERT_EQ(f(&out.f), XF_OK);
    frame_box in = frame_box::chars(out.str(), 256 * per, 0, 256);
    ASSERT_EQ(inf(&in.f), XF_OK);
    EXPECT_EQ(in.str(), all);
  }
}

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
