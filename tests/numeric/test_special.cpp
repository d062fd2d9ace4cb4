// ODDSR, PVALUE, LOGPROB, NUMX and the byte sizes: bounds on both sides,
// every blank of the field, missing values, stars, and the F digits they
// share with zfmt.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// zfmt's field for the same value, width and decimals.
std::string plain(double v, int32_t w, int32_t d) {
  frame_box b = frame_box::number(v, w, d);
  zfmt(&b.f);
  return b.str();
}

TEST(Numx, AgainstPlainNumbers) {
  auto g = xfmt::test::rng(201);
  std::uniform_real_distribution<double> u(-1e6, 1e6);
  std::uniform_int_distribution<int32_t> wd(1, 32), dd(0, 8);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    double v = u(g);
    int32_t w = wd(g), d = dd(g);
    std::string want = plain(v, w, d);
    for (char &c : want)
      if (c == '.') c = ',';
    frame_box b = frame_box::number(v, w, d);
    zfmnumx(&b.f);
    ASSERT_EQ(b.str(), want) << v << " " << w << "." << d;
  }
}

}  // namespace
