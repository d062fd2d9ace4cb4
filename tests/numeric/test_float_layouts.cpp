// IEEE, IEEER, FLOAT, MRB and VAXRB: the bytes of known values and of the
// range edges, the informats' reading, and round trips within the stated
// precision of each width.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "binary_rows.hpp"
#include "numeric/binary_codec.hpp"
#include "support/random.hpp"

namespace {

using xfmt::test::check_get;
using xfmt::test::check_put;
using xfmt::test::frame_box;
using xfmt::test::get_row;
using xfmt::test::put_row;

const double dot = xfmt::missing_ordinary();
const double inf = std::numeric_limits<double>::infinity();

TEST(float_layouts, ieee_bytes) {
  const put_row ieee[] = {
      {1, 8, 0, "3FF0000000000000", XF_OK}, {1, 4, 0, "3F800000", XF_OK},   {1, 5, 0, "3FF0000000", XF_OK},
      {1, 3, 0, "3F8000", XF_OK},           {-2.5, 8, 0, "C004000000000000", XF_OK},
      {1, 8, 2, "4059000000000000", XF_OK}, {0.1, 2, 0, "3DCC", XF_OK},     {0.1, 6, 0, "3FB999999999", XF_OK},
      {dot, 8, 0, "0000000000000000", XF_OK}, {std::nan(""), 4, 0, "00000000", XF_OK},
      {1e39, 4, 0, "00000000", XF_E_OVERFLOW}, {-inf, 8, 0, "0000000000000000", XF_E_OVERFLOW},
      {1e308, 8, 1, "0000000000000000", XF_E_OVERFLOW},
      {static_cast<double>(FLT_MAX), 4, 0, "7F7FFFFF", XF_OK},
      {0x1.fffffefp+127, 4, 0, "7F7FFFFF", XF_OK},  // above FLT_MAX, rounds down to it
      {0x1.ffffffp+127, 4, 0, "00000000", XF_E_OVERFLOW},
      {1e-46, 4, 0, "00000000", XF_OK},             // below the smallest single: zero
  };
  for (const put_row &r : ieee) check_put(zfmieee, "IEEE", r);
  const put_row ieeer[] = {{1, 8, 0, "000000000000F03F", XF_OK}, {1, 5, 0, "000000F03F", XF_OK},
                           {1, 3, 0, "00803F", XF_OK},           {0.5, 4, 0, "0000003F", XF_OK}};
  for (const put_row &r : ieeer) check_put(zfmieeer, "IEEER", r);
  const get_row get[] = {{"3FF0000000000000", 8, 0, 1, XF_OK}, {"3F8000", 3, 0, 1, XF_OK}, {"3FF0000000", 5, 0, 1, XF_OK},
                         {"4059000000000000", 8, 2, 1, XF_OK}, {"FFFFFE0000000000", 8, 2, dot, XF_OK},
                         {"3F80", 2, 0, 1, XF_OK},             {"3F", 1, 0, dot, XF_IN_BAD_WIDTH}};
  for (const get_row &r : get) check_get(zifmieee, "@IEEE", r);
  check_get(zifmieeer, "@IEEER", {"0000003F", 4, 0, 0.5, XF_OK});
  check_get(zifmieeer, "@IEEER", {"000000000000F03F", 8, 1, 0.1, XF_OK});
}

TEST(float_layouts, float_bytes) {
  if (xfmt::numeric::host_big) GTEST_SKIP() << "the table holds little-endian singles";
  const put_row rows[] = {{-2.5, 4, 0, "000020C0", XF_OK}, {128, 4, 0, "00000043", XF_OK}, {0.1, 4, 0, "CDCCCC3D", XF_OK},
                          {1e39, 4, 0, "00000000", XF_E_OVERFLOW}, {dot, 4, 0, "00000000", XF_OK},
                          {1.28, 4, 2, "00000043", XF_OK}};
  for (const put_row &r : rows) check_put(zfmfloat, "FLOAT", r);
  frame_box b = frame_box::number(1, 3, 0);
  EXPECT_EQ(zfmfloat(&b.f), XF_E_OVERFLOW);
  check_get(zifmfloat, "@FLOAT", {"000020C0", 4, 0, -2.5, XF_OK});
  check_get(zifmfloat, "@FLOAT", {"00000043", 4, 1, 12.8, XF_OK});
  check_get(zifmfloat, "@FLOAT", {"000000", 3, 0, dot, XF_IN_BAD_WIDTH});
}

TEST(float_layouts, mrb_bytes) {
  const put_row rows[] = {
      {1, 4, 0, "00000081", XF_OK},   {-1, 4, 0, "00008081", XF_OK},  {0.5, 4, 0, "00000080", XF_OK},
      {10, 4, 0, "00002084", XF_OK},  {10, 3, 0, "002084", XF_OK},    {10, 2, 0, "2084", XF_OK},
      {0.1, 4, 0, "CDCC4C7D", XF_OK}, {1, 8, 0, "0000000000000081", XF_OK},
      {10, 8, 0, "0000000000002084", XF_OK}, {10, 5, 0, "0000002084", XF_OK},
      {0, 4, 0, "00000000", XF_OK},   {0, 7, 0, "00000000000000", XF_OK}, {dot, 4, 0, "00000000", XF_OK},
      {1, 4, 1, "00002084", XF_OK},
      {1e39, 4, 0, "FFFF7FFF", XF_E_OVERFLOW}, {-1e39, 8, 0, "FFFFFFFFFFFFFFFF", XF_E_OVERFLOW},
      {1e-40, 4, 0, "00000000", XF_OK},
      {0x1.ffffffp-1, 4, 0, "00000081", XF_OK},  // rounding carries into the exponent
  };
  for (const put_row &r : rows) check_put(zfmmrb, "MRB", r);
  const get_row get[] = {{"00000081", 4, 0, 1, XF_OK},  {"00008081", 4, 0, -1, XF_OK}, {"2084", 2, 0, 10, XF_OK},
                         {"0000002084", 5, 0, 10, XF_OK}, {"CDCC4C7D", 4, 0, 0x1.99999ap-4, XF_OK},
                         {"00002084", 4, 1, 1, XF_OK},  {"00000000", 4, 0, 0, XF_OK}, {"12345600", 4, 0, 0, XF_OK}};
  for (const get_row &r : get) check_get(zifmmrb, "@MRB", r);
}

TEST(float_layouts, vaxrb_informat) {
  const get_row get[] = {{"0041000000000000", 8, 0, 2, XF_OK},    {"80C0000000000000", 8, 0, -1, XF_OK},
                         {"0040000000000000", 8, 0, 0.5, XF_OK},  {"4041000000000000", 8, 0, 3, XF_OK},
                         {"0044000000000000", 8, 0, 128, XF_OK},  {"2042000000000000", 8, 0, 10, XF_OK},
                         {"2042", 2, 1, 1, XF_OK},                {"0000000000000000", 8, 0, 0, XF_OK},
                         {"0080000000000000", 8, 0, dot, XF_IN_INVALID}};  // the reserved operand
  for (const get_row &r : get) check_get(zifmvaxrb, "@VAXRB", r);
}

// Round trips: IEEE, IEEER and VAXRB w8 and MRB w8 of a double within the
// layout's range come back exactly when d is 0 (VAXRB and MRB double keep
// 55 fraction bits, more than the double's 52); w 4 within 2^-24 relative
// (the single's rounding); shorter cuts within 2^-(8w-12) relative, and
// VAXRB, whose cut keeps whole 16-bit words only, within 2^-(16(w/2)-10).
TEST(float_layouts, round_trips) {
  struct pair {
    xf_routine format, informat;
    int min_w;
    double range;
    const char *name;
  };
  const pair pairs[] = {{zfmieee, zifmieee, 2, 3e38, "IEEE"},
                        {zfmieeer, zifmieeer, 2, 3e38, "IEEER"},
                        {zfmmrb, zifmmrb, 2, 1.7e38, "MRB"},
                        {zfmvaxrb, zifmvaxrb, 2, 1.7e38, "VAXRB"}};
  std::mt19937_64 g = xfmt::test::rng(0xB6);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const pair &p = pairs[g() % 4];
    double v = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 200) - 150) * (g() % 2 ? -1 : 1);
    if (std::fabs(v) >= p.range || std::fabs(v) < 1e-30) continue;
    int w = p.min_w + static_cast<int>(g() % static_cast<uint64_t>(9 - p.min_w));
    frame_box out = frame_box::number(v, w, 0);
    ASSERT_EQ(p.format(&out.f), XF_OK) << p.name;
    frame_box in = frame_box::chars(out.str(), w, 0, 8);
    ASSERT_EQ(p.informat(&in.f), XF_OK) << p.name;
    double bound = w == 8                  ? 0
                   : p.format == zfmvaxrb ? std::ldexp(1.0, -(16 * (w / 2) - 10))
                   : w == 4               ? std::ldexp(1.0, -24)
                                          : std::ldexp(1.0, -(8 * w - 12));
    ASSERT_LE(std::fabs(in.result() - v), std::fabs(v) * bound) << p.name << " " << std::hexfloat << v << " w " << w;
  }
}

}  // namespace
