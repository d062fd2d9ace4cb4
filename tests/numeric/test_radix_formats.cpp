// HEX, OCTAL and BINARY against the radix oracle over random values and
// widths (their fields, and those of $HEX, $OCTAL and $BINARY for every
// byte, are case lines of tests/data/numeric/radix_formats.txt).
#include <gtest/gtest.h>

#include <string>

#include "oracle/binary_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(radix_formats, oracle_random) {
  std::mt19937_64 g = xfmt::test::rng(0xB2);
  uint64_t n = xfmt::test::scaled(20000);
  struct entry { xf_routine r; int base; int max_w; };
  const entry routines[] = {{zfmhex, 16, 15}, {zfmoct, 8, 24}, {zfmbin, 2, 64}};
  for (uint64_t i = 0; i < n; ++i) {
    const entry &e = routines[g() % 3];
    int w = 1 + static_cast<int>(g() % static_cast<uint64_t>(e.max_w));
    double v = static_cast<double>(static_cast<int64_t>(g()) >> (g() % 64));
    if (g() % 4 == 0) v += 0.5;
    frame_box b = frame_box::number(v, w, 0);
    xf_status st = e.r(&b.f);
    xfmt::oracle::bytes_result want = xfmt::oracle::radix_oracle(e.base, v, w);
    ASSERT_EQ(b.str(), want.bytes) << "base " << e.base << " value " << v << " w " << w;
    ASSERT_EQ(st, want.status) << "base " << e.base << " value " << v << " w " << w;
  }
}

}  // namespace
