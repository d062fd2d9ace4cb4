// The S370F formats and informats that the shared integer tables do not
// cover: hexadecimal floating point, EBCDIC text, the informats' bytes and
// refusals, and round trips through every format and informat pair.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "binary_rows.hpp"
#include "support/random.hpp"

namespace {

using xfmt::test::check_get;
using xfmt::test::check_put;
using xfmt::test::frame_box;
using xfmt::test::get_row;
using xfmt::test::put_row;

const double dot = xfmt::missing_ordinary();
const double inf = std::numeric_limits<double>::infinity();

TEST(mainframe, s370frb_bytes) {
  const put_row rows[] = {
      {1, 8, 0, "4110000000000000", XF_OK},      {0.5, 8, 0, "4080000000000000", XF_OK},
      {100, 4, 0, "42640000", XF_OK},            {-1, 4, 0, "C1100000", XF_OK},
      {0.1, 8, 0, "401999999999999A", XF_OK},    {2.5, 4, 1, "42190000", XF_OK},
      {0, 8, 0, "0000000000000000", XF_OK},      {-0.0, 4, 0, "00000000", XF_OK},
      {dot, 8, 0, "0000000000000000", XF_OK},    {std::nan(""), 2, 0, "0000", XF_OK},
      {0.1, 2, 0, "4019", XF_OK},                // cut, not rounded
      {1e76, 8, 0, "7FFFFFFFFFFFFFFF", XF_E_OVERFLOW}, {-inf, 4, 0, "FFFFFFFF", XF_E_OVERFLOW},
      {1e-80, 8, 0, "0000000000000000", XF_OK},  // below 16^-65
      {std::ldexp(1.0, 251), 8, 0, "7F80000000000000", XF_OK},  // the top power of 16 with room
      {std::ldexp(1.0, -260), 8, 0, "0010000000000000", XF_OK},  // 16^-65, the smallest normal
  };
  for (const put_row &r : rows) check_put(zfms370rb, "S370FRB", r);
  frame_box b = frame_box::number(1, 1, 0, 8);
  EXPECT_EQ(zfms370rb(&b.f), XF_E_OVERFLOW);
  EXPECT_EQ(b.f.output_length, 0u);
}

TEST(mainframe, s370ff_and_s370fhex_bytes) {
  const put_row ff[] = {
      {-1.5, 5, 2, "60F14BF5F0", XF_OK}, {7, 3, 0, "4040F7", XF_OK}, {dot, 3, 0, "40404B", XF_OK},
      {xfmt::missing_value(2), 2, 0, "40C1", XF_OK}, {1234, 3, 0, "5C5C5C", XF_E_OVERFLOW},
  };
  for (const put_row &r : ff) check_put(zfms370f, "S370FF", r);
  const put_row hex[] = {
      {255, 4, 0, "F0F0C6C6", XF_OK},
      {-1, 4, 0, "C6C6C6C6", XF_OK},
      {1, 16, 0, "F4F1F1F0F0F0F0F0F0F0F0F0F0F0F0F0", XF_OK},
      {-0.5, 16, 0, "C3F0F8F0F0F0F0F0F0F0F0F0F0F0F0F0", XF_OK},
      {dot, 3, 0, "40404B", XF_OK},
      {1e80, 16, 0, "5C5C5C5C5C5C5C5C5C5C5C5C5C5C5C5C", XF_E_OVERFLOW},
  };
  for (const put_row &r : hex) check_put(zfms370hex, "S370FHEX", r);
}

TEST(mainframe, informat_bytes) {
  const get_row ib[] = {{"FED4", 2, 0, -300, XF_OK}, {"0064", 2, 2, 1, XF_OK}, {"80", 1, 0, -128, XF_OK},
                        {"01", 2, 0, dot, XF_IN_INVALID}, {"0102", 9, 0, dot, XF_IN_BAD_WIDTH}};
  for (const get_row &r : ib) check_get(zifms370ib, "@S370FIB", r);
  for (xf_routine u : {zifms370ibu, zifms370pib}) check_get(u, "@S370FIBU/@S370FPIB", {"FFFB", 2, 0, 65531, XF_OK});
  const get_row pd[] = {{"04567D", 3, 0, -4567, XF_OK}, {"12345C", 3, 0, 12345, XF_OK}, {"12345F", 3, 2, 123.45, XF_OK},
                        {"12345B", 3, 0, dot, XF_IN_INVALID}, {"1234", 2, 0, dot, XF_IN_INVALID},
                        {"1A3C", 2, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : pd) check_get(zifms370pd, "@S370FPD", r);
  const get_row pdu[] = {{"045F", 2, 0, 45, XF_OK}, {"045C", 2, 0, dot, XF_IN_INVALID}, {"045D", 2, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : pdu) check_get(zifms370pdu, "@S370FPDU", r);
  const get_row zd[] = {{"F0F0C0", 3, 0, 0, XF_OK},       {"F0F0F4D5", 4, 0, -45, XF_OK},
                        {"F0F7F2C5", 4, 2, 7.25, XF_OK},  {"F1F2F3", 3, 0, 123, XF_OK},
                        {"F14BF2C5", 4, 3, -0.0 + 1.25, XF_OK},  // the point wins over d
                        {"F1C2F3", 3, 0, dot, XF_IN_INVALID},    {"F1F2A3", 3, 0, dot, XF_IN_INVALID},
                        {"F1F2CA", 3, 0, dot, XF_IN_INVALID},    {"4BF14BC2", 4, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zd) check_get(zifms370zd, "@S370FZD", r);
  const get_row zdb[] = {{"4040F1", 3, 0, 1, XF_OK}, {"F240C5", 3, 0, 205, XF_OK}, {"40F1D0", 3, 0, -10, XF_OK},
                         {"404040", 3, 1, 0, XF_OK}, {"F14BC5", 3, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zdb) check_get(zifms370zdb, "@S370FZDB", r);
  const get_row zdl[] = {{"C0F4F5", 3, 0, 45, XF_OK}, {"D0F4F5", 3, 0, -45, XF_OK}, {"F0F4D5", 3, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zdl) check_get(zifms370zdl, "@S370FZDL", r);
  const get_row zds[] = {{"4EF0F4F5", 4, 0, 45, XF_OK}, {"60F0F4F5", 4, 1, -4.5, XF_OK}, {"F0F0F4F5", 4, 0, dot, XF_IN_INVALID},
                         {"4E", 1, 0, dot, XF_IN_BAD_WIDTH}};
  for (const get_row &r : zds) check_get(zifms370zds, "@S370FZDS", r);
  const get_row zdt[] = {{"F0F4F54E", 4, 0, 45, XF_OK}, {"F0F4F560", 4, 0, -45, XF_OK}, {"F0F4F5C5", 4, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zdt) check_get(zifms370zdt, "@S370FZDT", r);
  const get_row zdu[] = {{"F0F4F5", 3, 0, 45, XF_OK}, {"F0F4C5", 3, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zdu) check_get(zifms370zdu, "@S370FZDU", r);
  const get_row rb[] = {{"4110000000000000", 8, 0, 1, XF_OK}, {"C110", 2, 0, -1, XF_OK}, {"42190000", 4, 1, 2.5, XF_OK},
                        {"0000000000000000", 8, 0, 0, XF_OK}, {"41", 1, 0, dot, XF_IN_BAD_WIDTH}};
  for (const get_row &r : rb) check_get(zifms370rb, "@S370FRB", r);
  const get_row ff[] = {{"40F4F5", 3, 0, 45, XF_OK}, {"60F14BF5", 4, 0, -1.5, XF_OK}, {"4B", 1, 0, dot, XF_OK},
                        {"F1C5F2", 3, 0, 100, XF_OK}, {"6040F1", 3, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : ff) check_get(zifms370f, "@S370FF", r);
  const get_row hex[] = {{"F0F0C6C6", 4, 0, 255, XF_OK},
                         {"F4F1F1F0F0F0F0F0F0F0F0F0F0F0F0F0", 16, 0, 1, XF_OK},
                         {"C6C6C6C6C6C6C6C6C6C6C6C6C6C6C6C6", 16, 0, -std::ldexp(1.0 - std::ldexp(1.0, -56), 252), XF_OK},
                         {"40404040", 4, 0, dot, XF_OK},
                         {"F0C7", 2, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : hex) check_get(zifms370hex, "@S370FHEX", r);
}

// Format then informat: integers that fit come back exactly; S370FRB w8 is
// exact (the 56-bit fraction holds every double), shorter widths within
// 16^-(2w-3) relative (2w - 2 hex digits of fraction are kept, the first
// of them at least 1).
TEST(mainframe, round_trips) {
  struct pair {
    xf_routine format, informat;
    int min_w, max_w;
    bool is_signed;
    const char *name;
  };
  const pair pairs[] = {
      {zfms370ib, zifms370ib, 1, 8, true, "S370FIB"},     {zfms370ibu, zifms370ibu, 1, 8, false, "S370FIBU"},
      {zfms370pib, zifms370pib, 1, 8, false, "S370FPIB"}, {zfms370pd, zifms370pd, 1, 16, true, "S370FPD"},
      {zfms370pdu, zifms370pdu, 1, 16, false, "S370FPDU"}, {zfms370zd, zifms370zd, 1, 32, true, "S370FZD"},
      {zfms370zdl, zifms370zdl, 1, 32, true, "S370FZDL"}, {zfms370zds, zifms370zds, 2, 32, true, "S370FZDS"},
      {zfms370zdt, zifms370zdt, 2, 32, true, "S370FZDT"}, {zfms370zdu, zifms370zdu, 1, 32, false, "S370FZDU"},
      {zfms370zd, zifms370zdb, 1, 32, true, "S370FZDB"},  {zfms370f, zifms370f, 4, 32, true, "S370FF"},
      {zfmzd, zifmzd, 1, 32, true, "ZD"},
  };
  std::mt19937_64 g = xfmt::test::rng(0xB5);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const pair &p = pairs[g() % (sizeof pairs / sizeof pairs[0])];
    int w = p.min_w + static_cast<int>(g() % static_cast<uint64_t>(p.max_w - p.min_w + 1));
    int d = static_cast<int>(g() % 4);
    int64_t k = static_cast<int64_t>(g() >> (11 + g() % 53));
    if (p.is_signed && g() % 2) k = -k;
    if (p.format == zfms370f && std::llabs(k) >= 1000000000000000) continue;  // the text keeps 15 digits
    double v = static_cast<double>(k) / std::pow(10.0, d);
    frame_box out = frame_box::number(v, w, d);
    if (p.format(&out.f) != XF_OK) continue;
    if (out.str().find('\xC5') != std::string::npos) continue;  // S370FF in E notation keeps fewer digits
    frame_box in = frame_box::chars(out.str(), w, d, 8);
    ASSERT_EQ(p.informat(&in.f), XF_OK) << p.name << " " << xfmt::test::to_hex(out.str());
    double want = std::round(v * std::pow(10.0, d)) / std::pow(10.0, d);
    ASSERT_EQ(in.result(), want) << p.name << " k " << k << " w " << w << " d " << d;
  }
  for (uint64_t i = 0; i < n; ++i) {
    double v = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 400) - 200) * (g() % 2 ? -1 : 1);
    int w = 2 + static_cast<int>(g() % 7);
    frame_box out = frame_box::number(v, w, 0);
    ASSERT_EQ(zfms370rb(&out.f), XF_OK);
    frame_box in = frame_box::chars(out.str(), w, 0, 8);
    ASSERT_EQ(zifms370rb(&in.f), XF_OK);
    if (w == 8) ASSERT_EQ(in.result(), v) << std::hexfloat << v;
    else ASSERT_LE(std::fabs(in.result() - v), std::fabs(v) * std::pow(16.0, -(2 * w - 3))) << std::hexfloat << v << " w " << w;
  }
}

}  // namespace
