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

// Big-endian bytes in the host's order: the native informats read these.

// Format then informat gives back round(v x 10^d) / 10^d for every value
// that fits, and the character forms give back every byte string.
struct pair_entry {
  xf_routine format;
  xf_routine informat;
  int max_w;
  bool is_signed;
  const char *name;
};

struct radix_pair {
  xf_routine format;
  xf_routine informat;
  int w;
};

TEST(binary_informats, round_trips) {
  const pair_entry pairs[] = {{zfmib, zifmib, 8, true, "IB"},     {zfmibr, zifmibr, 8, true, "IBR"},
                              {zfmpib, zifmpib, 8, false, "PIB"}, {zfmpibr, zifmpibr, 8, false, "PIBR"},
                              {zfmpd, zifmpd, 16, true, "PD"},    {zfmpk, zifmpk, 16, false, "PK"},
                              {zfmzd, zifmzd, 32, true, "ZD"}};
  std::mt19937_64 g = xfmt::test::rng(0xB3);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const pair_entry &p = pairs[g() % 7];
    int w = 1 + static_cast<int>(g() % static_cast<uint64_t>(p.max_w));
    int d = static_cast<int>(g() % 4);
    // At most 2^53 after scaling, so the integer is exact and the informat
    // divides it once.
    int64_t k = static_cast<int64_t>(g() >> (11 + g() % 53));
    if (p.is_signed && g() % 2) k = -k;
    double v = static_cast<double>(k) / std::pow(10.0, d);
    frame_box out = frame_box::number(v, w, d);
    xf_status st = p.format(&out.f);
    if (st != XF_OK) continue;
    frame_box in = frame_box::chars(out.str(), w, d, 8);
    ASSERT_EQ(p.informat(&in.f), XF_OK) << p.name;
    double want = std::round(v * std::pow(10.0, d)) / std::pow(10.0, d);
    ASSERT_EQ(in.result(), want) << p.name << " k " << k << " w " << w << " d " << d;
  }
  for (int w = 1; w <= 8; ++w) {  // RB: the top w bytes of the double
    double v = -1234.5678;
    frame_box out = frame_box::number(v, w, 0);
    ASSERT_EQ(zfmrb(&out.f), XF_OK);
    frame_box in = frame_box::chars(out.str(), w, 0, 8);
    ASSERT_EQ(zifmrb(&in.f), XF_OK);
    uint64_t mask = w == 8 ? ~uint64_t{0} : ~(~uint64_t{0} >> (8 * w));
    EXPECT_EQ(xfmt::double_bits(in.result()), xfmt::double_bits(v) & mask) << "w " << w;
  }
  for (double v : {0.0, 1.0, 255.0, 4095.0, 65535.0}) {
    const radix_pair radix[] = {{zfmhex, zifmhex, 4}, {zfmoct, zifmoct, 6}, {zfmbin, zifmbin, 16}};
    for (auto [f, inf, w] : radix) {
      frame_box out = frame_box::number(v, w, 0);
      ASSERT_EQ(f(&out.f), XF_OK);
      frame_box in = frame_box::chars(out.str(), w, 0, 8);
      ASSERT_EQ(inf(&in.f), XF_OK);
      EXPECT_EQ(in.result(), v);
    }
  }
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
