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

#include "catalog/missing.hpp"
#include "oracle/spelled_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  double value;
  int32_t w;
  const char *field;
  xf_status status;
};

void check(xf_routine routine, const row &r) {
  frame_box b = frame_box::number(r.value, r.w);
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "value " << r.value << " w " << r.w;
  EXPECT_EQ(st, r.status) << "value " << r.value << " w " << r.w;
  EXPECT_EQ(b.f.output_length, static_cast<uint32_t>(r.w));
}

TEST(Words, Table) {
  const row rows[] = {
      {0, 10, "zero      ", XF_OK},
      {7, 5, "seven", XF_OK},
      {7, 4, "****", XF_E_OVERFLOW},
      {15, 10, "fifteen   ", XF_OK},
      {40, 6, "forty ", XF_OK},
      {99, 11, "ninety-nine", XF_OK},
      {100, 12, "one hundred ", XF_OK},
      {123.45, 50, "one hundred twenty-three and forty-five hundredths", XF_OK},
      {0.01, 24, "zero and one hundredth  ", XF_OK},
      {-0.01, 30, "minus zero and one hundredth  ", XF_OK},
      {-0.004, 6, "zero  ", XF_OK},
      {2.999, 5, "three", XF_OK},
      {1002003, 31, "one million two thousand three ", XF_OK},
      {1e12, 12, "one trillion", XF_OK},
      {1e15, 10, "**********", XF_E_OVERFLOW},
      {HUGE_VAL, 10, "**********", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmwords, r);
}

TEST(Words, HalfCentRoundsAwayFromZero) {
  // 816443561034921.625 is a double: its cents are a tie.
  frame_box b = frame_box::number(816443561034921.625, 200);
  EXPECT_EQ(zfmwords(&b.f), XF_OK);
  EXPECT_NE(b.str().find("nine hundred twenty-one and sixty-three hundredths "), std::string::npos) << b.str();
  frame_box c = frame_box::number(0.125, 25);
  EXPECT_EQ(zfmwordf(&c.f), XF_OK);
  EXPECT_EQ(c.str(), "zero and 13/100          ");
}

TEST(Words, Largest) {
  std::string nines = "nine hundred ninety-nine";
  std::string want = nines + " trillion " + nines + " billion " + nines + " million " + nines + " thousand " + nines;
  frame_box b = frame_box::number(999999999999999.0, 200);
  EXPECT_EQ(zfmwords(&b.f), XF_OK);
  EXPECT_EQ(b.str(), want + std::string(200 - want.size(), ' '));
  frame_box c = frame_box::number(999999999999999.0, static_cast<int32_t>(want.size() - 1));
  EXPECT_EQ(zfmwords(&c.f), XF_E_OVERFLOW);
}

TEST(Wordf, Table) {
  const row rows[] = {
      {123.45, 35, "one hundred twenty-three and 45/100", XF_OK},
      {7, 16, "seven and 00/100", XF_OK},
      {7, 15, "***************", XF_E_OVERFLOW},
      {0.05, 17, "zero and 05/100  ", XF_OK},
      {-20.5, 23, "minus twenty and 50/100", XF_OK},
      {1000000, 25, "one million and 00/100   ", XF_OK},
  };
  for (const row &r : rows) check(zfmwordf, r);
}

TEST(Words, MissingAndCapacity) {
  frame_box b = frame_box::number(xfmt::missing_ordinary(), 10);
  EXPECT_EQ(zfmwords(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "         .");
  frame_box c = frame_box::number(21, 20, 0, 6);
  EXPECT_EQ(zfmwords(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.buffer(), "twenty");
  frame_box z = frame_box::number(21, 0);
  EXPECT_EQ(zfmwords(&z.f), XF_E_OVERFLOW);
}

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

TEST(Roman, Table) {
  const row rows[] = {
      {1, 6, "     I", XF_OK},
      {4, 2, "IV", XF_OK},
      {1999.9, 8, " MCMXCIX", XF_OK},
      {3888, 15, "MMMDCCCLXXXVIII", XF_OK},
      {3888, 14, "**************", XF_E_OVERFLOW},
      {3999, 11, "  MMMCMXCIX", XF_OK},
      {4000, 6, "******", XF_E_OVERFLOW},
      {0.9, 6, "******", XF_E_OVERFLOW},
      {-5, 6, "******", XF_E_OVERFLOW},
      {NAN, 6, "******", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmroman, r);
}

TEST(Roman, EveryNumeral) {
  for (int n = 1; n <= 3999; ++n) {
    frame_box b = frame_box::number(n + 0.5, 15);
    ASSERT_EQ(zfmroman(&b.f), XF_OK);
    std::string want = xfmt::oracle::roman(n);
    ASSERT_EQ(b.str(), std::string(15 - want.size(), ' ') + want);
  }
}

TEST(Ssn, Table) {
  const row rows[] = {
      {0, 11, "000-00-0000", XF_OK},
      {123456789, 11, "123-45-6789", XF_OK},
      {12345678.9, 11, "012-34-5678", XF_OK},
      {999999999, 11, "999-99-9999", XF_OK},
      {1e9, 11, "***********", XF_E_OVERFLOW},
      {-1, 11, "***********", XF_E_OVERFLOW},
      {123456789, 10, "**********", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmssn, r);
  frame_box m = frame_box::number(xfmt::missing_value(3), 11);
  EXPECT_EQ(zfmssn(&m.f), XF_OK);
  EXPECT_EQ(m.str(), "          B");
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

TEST(Fract, Table) {
  const row rows[] = {
      {2.25, 10, "     2 1/4", XF_OK},
      {1.0 / 3.0, 10, "       1/3", XF_OK},
      {-0.5, 4, "-1/2", XF_OK},
      {3, 4, "   3", XF_OK},
      {0, 4, "   0", XF_OK},
      {-2.75, 8, "  -2 3/4", XF_OK},
      {3.14159265358979, 10, "  3 16/113", XF_OK},
      {3.14159265358979, 6, " 3 1/7", XF_OK},
      {0.7, 4, "7/10", XF_OK},
      {0.7, 3, "2/3", XF_OK},
      {0.7, 2, " 1", XF_OK},
      // The double 0.3 lies just below 3/10: its expansion is 0; 3, 2, 1, ...
      // so 2/7 (off by 0.014) comes before 3/10 and beats 1/3 (off by 0.033).
      {-0.3, 4, "-2/7", XF_OK},
      {-0.3, 5, "-3/10", XF_OK},
      {-0.3, 2, " 0", XF_OK},
      {12345, 4, "****", XF_E_OVERFLOW},
      {1e20, 10, "**********", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmfract, r);
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
