// PCPIB, XPORTINT, XPORTFLT, $XPORTCH, $CSTR, $BYVAL and their informats:
// the bytes of known values, missing codes, padding and cutting, and round
// trips.
#include <gtest/gtest.h>

#include <cmath>

#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(transport, xportflt_reads_back) {
  // The decoder reads the codes back and every other field as its value.
  for (int i = 0; i < 28; ++i) {
    frame_box b = frame_box::number(xfmt::missing_value(i), 8, 0);
    ASSERT_EQ(zfmxportflt(&b.f), XF_OK);
    double back = xfmt::numeric::xport_float_value(reinterpret_cast<const unsigned char *>(b.str().data()), 8);
    EXPECT_EQ(xfmt::double_bits(back), xfmt::double_bits(xfmt::missing_value(i))) << i;
  }
  std::mt19937_64 g = xfmt::test::rng(0xB8);
  for (uint64_t i = 0; i < xfmt::test::scaled(5000); ++i) {
    double v = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 300) - 150) * (g() % 2 ? -1 : 1);
    frame_box b = frame_box::number(v, 8, 0);
    ASSERT_EQ(zfmxportflt(&b.f), XF_OK);
    ASSERT_EQ(xfmt::numeric::xport_float_value(reinterpret_cast<const unsigned char *>(b.str().data()), 8), v);
  }
}

}  // namespace
