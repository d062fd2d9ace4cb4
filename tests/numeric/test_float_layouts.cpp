// IEEE, IEEER, FLOAT, MRB, VAXRB and S370FRB: the bytes of known values and of the
// range edges, the informats' reading, and round trips within the stated
// precision of each width.
#include <gtest/gtest.h>

#include <cmath>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// Round trips: IEEE, IEEER and VAXRB w8 and MRB w8 of a double within the
// layout's range come back exactly when d is 0 (VAXRB and MRB double keep
// 55 fraction bits, more than the double's 52), and S370FRB w8 too (its 56
// bits hold every double); w 4 within 2^-24 relative (the single's
// rounding); shorter cuts within 2^-(8w-12) relative, VAXRB, whose cut keeps
// whole 16-bit words only, within 2^-(16(w/2)-10), and S370FRB within
// 16^-(2w-3) (2w - 2 hex digits of fraction are kept, the first at least 1).
TEST(float_layouts, round_trips) {
  struct pair {
    xf_routine format, informat;
    double range, tiny;
    const char *name;
  };
  const pair pairs[] = {{zfmieee, zifmieee, 3e38, 1e-30, "IEEE"},
                        {zfmieeer, zifmieeer, 3e38, 1e-30, "IEEER"},
                        {zfmmrb, zifmmrb, 1.7e38, 1e-30, "MRB"},
                        {zfmvaxrb, zifmvaxrb, 1.7e38, 1e-30, "VAXRB"},
                        {zfms370rb, zifms370rb, 1e76, 0, "S370FRB"}};  // every value drawn
  std::mt19937_64 g = xfmt::test::rng(0xB6);
  uint64_t n = xfmt::test::scaled(40000);
  for (uint64_t i = 0; i < n; ++i) {
    const pair &p = pairs[g() % std::size(pairs)];
    double v = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 400) - 200) * (g() % 2 ? -1 : 1);
    if (std::fabs(v) >= p.range || std::fabs(v) < p.tiny) continue;
    int w = 2 + static_cast<int>(g() % 7);
    frame_box out = frame_box::number(v, w, 0);
    ASSERT_EQ(p.format(&out.f), XF_OK) << p.name;
    frame_box in = frame_box::chars(out.str(), w, 0, 8);
    ASSERT_EQ(p.informat(&in.f), XF_OK) << p.name;
    double bound = w == 8                  ? 0
                   : p.format == zfms370rb ? std::pow(16.0, -(2 * w - 3))
                   : p.format == zfmvaxrb  ? std::ldexp(1.0, -(16 * (w / 2) - 10))
                   : w == 4                ? std::ldexp(1.0, -24)
                                           : std::ldexp(1.0, -(8 * w - 12));
    ASSERT_LE(std::fabs(in.result() - v), std::fabs(v) * bound) << p.name << " " << std::hexfloat << v << " w " << w;
  }
}

}  // namespace
