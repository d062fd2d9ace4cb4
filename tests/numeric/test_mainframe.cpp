// Round trips through every integer, packed and zoned format and informat
// pair, the native ones and the S370F ones (their bytes and refusals are case
// lines in tests/data/numeric).
#include <gtest/gtest.h>

#include <cmath>

#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// Format then informat: integers that fit come back exactly (S370FRB's
// round trips are test_float_layouts').
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
      {zfmzd, zifmzd, 1, 32, true, "ZD"},                 {zfmib, zifmib, 1, 8, true, "IB"},
      {zfmibr, zifmibr, 1, 8, true, "IBR"},               {zfmpib, zifmpib, 1, 8, false, "PIB"},
      {zfmpibr, zifmpibr, 1, 8, false, "PIBR"},           {zfmpd, zifmpd, 1, 16, true, "PD"},
      {zfmpk, zifmpk, 1, 16, false, "PK"},
  };
  std::mt19937_64 g = xfmt::test::rng(0xB5);
  const uint64_t n = xfmt::test::scaled(40000);
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
    ASSERT_EQ(p.informat(&in.f), XF_OK) << p.name << " " << xfmt::test::shown(out.str());
    double want = std::round(v * std::pow(10.0, d)) / std::pow(10.0, d);
    ASSERT_EQ(in.result(), want) << p.name << " k " << k << " w " << w << " d " << d;
  }
}

}  // namespace
