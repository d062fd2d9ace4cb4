// WORDS, WORDF, FRACT, ROMAN and SSN: tables of the field's blanks, bounds,
// missing values and stars, then sweeps against the slow oracle.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "oracle/spelled_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

TEST(Words, AgainstOracle) {
  auto g = xfmt::test::rng(101);
  std::uniform_int_distribution<int64_t> cents(0, 99999999999999999LL);
  // Up to 10^13 units: there a double of whole cents is never a tie of half
  // a cent, where printf (half to even) and the format (half away from zero)
  // would part.
  std::uniform_int_distribution<int> magnitude(0, 15);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    int64_t c = cents(g) % static_cast<int64_t>(std::pow(10.0, magnitude(g)) + 1);
    double v = static_cast<double>(c) / 100.0;
    if (i % 2) v = -v;
    for (bool figures : {false, true}) {
      std::string want = xfmt::oracle::amount_words(v, figures);
      if (want.empty()) continue;
      auto w = static_cast<int32_t>(want.size() + 3);
      frame_box b = frame_box::number(v, w);
      ASSERT_EQ((figures ? zfmwordf : zfmwords)(&b.f), XF_OK) << v;
      ASSERT_EQ(b.str(), want + "   ") << v;
    }
  }
}

TEST(Roman, EveryNumeral) {
  for (int n = 1; n <= 3999; ++n) {
    frame_box b = frame_box::number(n + 0.5, 15);
    ASSERT_EQ(zfmroman(&b.f), XF_OK);
    std::string want = xfmt::oracle::roman(n);
    ASSERT_EQ(b.str(), std::string(15 - want.size(), ' ') + want);
  }
}

TEST(Ssn, AgainstOracle) {
  auto g = xfmt::test::rng(102);
  std::uniform_int_distribution<int64_t> n(0, 999999999);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    int64_t k = n(g);
    frame_box b = frame_box::number(static_cast<double>(k), 11);
    ASSERT_EQ(zfmssn(&b.f), XF_OK);
    ASSERT_EQ(b.str(), xfmt::oracle::ssn(k));
  }
}

TEST(Fract, CloseToTheValue) {
  // Every delivered fraction is a convergent: within 1/q^2 of the value.
  auto g = xfmt::test::rng(103);
  std::uniform_real_distribution<double> u(-1000, 1000);
  for (uint64_t i = 0; i < xfmt::test::scaled(5000); ++i) {
    double v = u(g);
    frame_box b = frame_box::number(v, 16);
    ASSERT_EQ(zfmfract(&b.f), XF_OK) << v;
    std::string s = b.str();
    long long whole = 0, p = 0, q = 1;
    size_t slash = s.find('/');
    const char *t = s.c_str();
    while (*t == ' ') ++t;
    bool neg = *t == '-';
    if (neg) ++t;
    if (slash == std::string::npos) {
      whole = std::atoll(t);
    } else if (std::strchr(t, ' ')) {
      ASSERT_EQ(std::sscanf(t, "%lld %lld/%lld", &whole, &p, &q), 3) << s;
    } else {
      ASSERT_EQ(std::sscanf(t, "%lld/%lld", &p, &q), 2) << s;
    }
    // The fraction part of |v| is exact in double; p/q and the bound carry
    // rounding of a few units in the last place of v, which a large q can
    // bring level with 1/q^2 (134.01756756609257 gives 16082/915437).
    const double part = std::fabs(v) - static_cast<double>(whole);
    const double slack = 8 * std::numeric_limits<double>::epsilon() * std::fabs(v);
    EXPECT_LE(std::fabs(part - static_cast<double>(p) / static_cast<double>(q)),
              1.0 / static_cast<double>(q * q) + slack)
        << v << " " << s;
    EXPECT_LT(p, q) << s;
  }
}

}  // namespace
