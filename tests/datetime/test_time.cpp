// TIME w.d against the literal oracle (its table is in tests/data/datetime).
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "oracle/time_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

const double half_band[] = {0.49989, 0.4999, 0.49999999, 0.4999999999999, 0.5, 0.50001};

// Random times of every magnitude, widths 2-20 and decimals 0-19 against
// the literal oracle (which prints every seconds field through zfmt).
TEST(time_format, random_against_oracle) {
  auto gen = xfmt::test::rng(71);
  std::uniform_real_distribution<double> unit(0, 1);
  std::uniform_int_distribution<int32_t> width(2, 20), dec(0, 19), scale(0, 11);
  for (uint64_t i = 0; i < xfmt::test::scaled(100000); ++i) {
    double v = unit(gen) * std::pow(10.0, scale(gen));
    if (i % 3 == 0) v = std::round(v * 100) / 100;  // values on hundredths, where rounding ties live
    if (i % 5 == 0) v = std::round(v);  // whole seconds, the common case
    if (i % 7 == 0) v = std::floor(v / 60) * 60 + 59.5 + unit(gen) * 0.5;  // near a minute's end
    if (i % 2) v = -v;
    int32_t w = width(gen), d = dec(gen);
    // Every whole second of a minute with seconds fractions at and just
    // below one half, where the direct two-digit path hands over to the
    // printer (all 360 by the 3240th case).
    if (i % 9 == 0) {
      const uint64_t k = i / 9;
      v = 7200 + static_cast<double>(k / std::size(half_band) % 60) + half_band[k % std::size(half_band)];
      w = 8;
      d = 0;
    }
    xf_status want_status = 0;
    const std::string want = xfmt::oracle::time_field(v, w, d, want_status);
    frame_box b = frame_box::number(v, w, d);
    const xf_status st = zfmtime(&b.f);
    ASSERT_EQ(b.str(), want) << std::hexfloat << v << " " << w << "." << d;
    ASSERT_EQ(st, want_status);
  }
}

}  // namespace
