// IB, IBR, PIB, PIBR, PD, PK, ZD, PCPIB, RB and VAXRB and the mainframe
// integer, packed and zoned forms: exact bytes, boundaries of every width, rounding
// with d, and the slow oracle over random values.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "oracle/binary_oracle.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

using routine_entry = std::pair<xf_routine, char>;
constexpr bool big = xfmt::numeric::host_big;
const routine_entry integer_routines[] = {
    {zfmib, big ? 'I' : 'i'}, {zfmibr, 'i'},    {zfmpib, big ? 'P' : 'p'}, {zfmpibr, 'p'},   {zfmpd, 'D'},
    {zfmpk, 'K'},             {zfmzd, 'z'},     {zfms370ib, 'I'},          {zfms370ibu, 'U'}, {zfms370pib, 'Q'},
    {zfms370pd, 'D'},         {zfms370zd, 'Z'}, {zfmpcpib, 'q'}};

int max_width(char kind) {
  return kind == 'Z' || kind == 'z' ? 32 : kind == 'D' || kind == 'K' ? 16 : 8;
}

// The field and status of the routine against the oracle's.
void matches_oracle(const routine_entry &e, double v, int w, int d) {
  frame_box b = frame_box::number(v, w, d);
  const xf_status st = e.first(&b.f);
  const xfmt::oracle::bytes_result want = xfmt::oracle::binary_oracle(e.second, v, w, d);
  EXPECT_EQ(xfmt::test::shown(b.str()), xfmt::test::shown(want.bytes))
      << e.second << " bits " << std::hex << xfmt::double_bits(v) << std::dec << " (" << v << ") w " << w << " d " << d;
  EXPECT_EQ(st, want.status) << e.second << " bits " << std::hex << xfmt::double_bits(v);
}

// The extremes of every width: the largest and the most negative value fit,
// one past either stores the extreme with XF_E_OVERFLOW.
TEST(binary_formats, extremes_of_every_width) {
  for (const routine_entry &e : integer_routines) {
    for (int w = 1; w <= max_width(e.second); ++w) {
      for (double v : {std::ldexp(1.0, 8 * w - 1), std::ldexp(1.0, 8 * w), -std::ldexp(1.0, 8 * w - 1),
                       std::pow(10.0, w) - 1, std::pow(10.0, 2 * w - 1), -std::pow(10.0, w), 0.0}) {
        if (std::fabs(v) >= 1e15) continue;  // exactness of the double; the random test covers the rest
        matches_oracle(e, v, w, 0);
      }
    }
  }
}

double random_value(std::mt19937_64 &g) {
  switch (g() % 4) {
    case 0: return static_cast<double>(static_cast<int64_t>(g()) >> (g() % 64));
    case 1: return static_cast<double>(static_cast<int64_t>(g() % 2000001) - 1000000) / 1000.0;
    case 2: return std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 120) - 60) *
                   (g() % 2 ? -1 : 1);
    default: return xfmt::bits_double(g());
  }
}

TEST(binary_formats, oracle_random) {
  std::mt19937_64 g = xfmt::test::rng(0xB1);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const routine_entry &e = integer_routines[g() % std::size(integer_routines)];
    double v = random_value(g);
    int w = 1 + static_cast<int>(g() % static_cast<uint64_t>(max_width(e.second)));
    int d = g() % 3 ? static_cast<int>(g() % 6) : static_cast<int>(g() % 32);
    matches_oracle(e, v, w, d);
    if (HasFailure()) return;
  }
}

}  // namespace
