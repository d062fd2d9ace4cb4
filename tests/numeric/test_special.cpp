// ODDSR, PVALUE, LOGPROB, NUMX and the byte sizes: bounds on both sides,
// every blank of the field, missing values, stars, and the F digits they
// share with zfmt.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  double value;
  int32_t w;
  int32_t d;
  const char *field;
  xf_status status;
};

void check(xf_routine routine, const row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << "value " << r.value << " w " << r.w << " d " << r.d;
}

// zfmt's field for the same value, width and decimals.
std::string plain(double v, int32_t w, int32_t d) {
  frame_box b = frame_box::number(v, w, d);
  zfmt(&b.f);
  return b.str();
}

TEST(Oddsr, Table) {
  const row rows[] = {
      {1.2345, 7, 3, "  1.235", XF_OK},
      {0.0005, 7, 3, "  <.001", XF_OK},
      {0.001, 7, 3, "  0.001", XF_OK},
      {0, 7, 3, "  <.001", XF_OK},
      {999.9994, 8, 3, " 999.999", XF_OK},
      {1000, 8, 3, ">999.999", XF_OK},
      {1000, 7, 3, "*******", XF_E_OVERFLOW},
      {5000, 4, 0, ">999", XF_OK},
      {0.2, 3, 0, " <1", XF_OK},
      {-1, 7, 3, "*******", XF_E_OVERFLOW},
      {NAN, 7, 3, "*******", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmoddsr, r);
  frame_box m = frame_box::number(xfmt::missing_ordinary(), 7, 3);
  EXPECT_EQ(zfmoddsr(&m.f), XF_OK);
  EXPECT_EQ(m.str(), "   .   ");
}

TEST(Pvalue, Table) {
  const row rows[] = {
      {0.05, 6, 4, "0.0500", XF_OK},
      {0.00005, 6, 4, "<.0001", XF_OK},
      {0.0001, 6, 4, "0.0001", XF_OK},
      {0, 6, 4, "<.0001", XF_OK},
      {0.00005, 8, 4, "  <.0001", XF_OK},
      {0.00005, 5, 4, "*****", XF_E_OVERFLOW},
      {1, 6, 4, "1.0000", XF_OK},
      {0.5, 4, 1, " 0.5", XF_OK},
      {0.01, 4, 1, " <.1", XF_OK},
      {-0.1, 6, 4, "******", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmpval, r);
  frame_box m = frame_box::number(xfmt::missing_value(2), 6, 4);
  EXPECT_EQ(zfmpval(&m.f), XF_OK);
  EXPECT_EQ(m.str(), " A    ");
}

TEST(Logprob, Table) {
  const row rows[] = {
      {0, 5, 0, "1.000", XF_OK},
      {1.301029995663981, 5, 0, "0.050", XF_OK},
      {2, 5, 0, "0.010", XF_OK},
      {12.3, 8, 0, "5.01E-13", XF_OK},
      {12.3, 7, 0, "5.0E-13", XF_OK},
      {12.3, 6, 0, " 5E-13", XF_OK},
      {12.3, 5, 0, "5E-13", XF_OK},
      {400, 6, 0, "1E-400", XF_OK},
      {400, 5, 0, "*****", XF_E_OVERFLOW},
      {3.0000001, 6, 0, "0.0010", XF_OK},
      {4.5, 6, 0, "3.2E-5", XF_OK},
      {4.0001, 6, 0, "1.0E-4", XF_OK},
      {9.001, 5, 0, " 1E-9", XF_OK},  // 9.977E-10 at no decimals: 1E-9
      {9.99, 4, 0, "****", XF_E_OVERFLOW},  // 1.02E-10 needs five positions
      {-1, 5, 0, "*****", XF_E_OVERFLOW},
      {HUGE_VAL, 5, 0, "*****", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmlogp, r);
}

TEST(Numx, Table) {
  const row rows[] = {
      {1234.5, 7, 2, "1234,50", XF_OK},
      {-0.25, 6, 2, " -0,25", XF_OK},
      {42, 4, 0, "  42", XF_OK},
      {123456, 4, 0, "1E5 ", XF_OK},
  };
  for (const row &r : rows) {
    std::string want = plain(r.value, r.w, r.d);
    for (char &c : want)
      if (c == '.') c = ',';
    frame_box b = frame_box::number(r.value, r.w, r.d);
    zfmnumx(&b.f);
    EXPECT_EQ(b.str(), want);
  }
  check(zfmnumx, rows[0]);
  check(zfmnumx, rows[1]);
  check(zfmnumx, rows[2]);
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

TEST(Sizes, Table) {
  check(zfmsizek, {126976, 9, 0, "     124K", XF_OK});
  check(zfmsizek, {1536, 6, 1, "  1.5K", XF_OK});
  check(zfmsizek, {1536, 2, 1, "2K", XF_REDUCED});
  check(zfmsizek, {1e15, 3, 0, "***", XF_E_OVERFLOW});
  check(zfmsizekb, {126976, 9, 0, "    124KB", XF_OK});
  check(zfmsizekb, {2048, 2, 0, "**", XF_E_OVERFLOW});
  check(zfmsizekmg, {1536, 9, 2, "   1.50KB", XF_OK});
  check(zfmsizekmg, {5 * 1048576.0, 9, 2, "   5.00MB", XF_OK});
  check(zfmsizekmg, {3 * 1073741824.0, 9, 1, "    3.0GB", XF_OK});
  check(zfmsizekmg, {2048 * 1099511627776.0, 9, 0, "   2048TB", XF_OK});
  check(zfmsizekmg, {-1048576, 9, 0, "     -1MB", XF_OK});
  frame_box m = frame_box::number(xfmt::missing_ordinary(), 9, 0);
  EXPECT_EQ(zfmsizekmg(&m.f), XF_OK);
  EXPECT_EQ(m.str(), "        .");
}

TEST(Special, CapacityAndWidth) {
  for (xf_routine r : {zfmoddsr, zfmpval, zfmlogp, zfmnumx, zfmsizek, zfmsizekb, zfmsizekmg, zfmroman, zfmssn,
                       zfmwords, zfmwordf, zfmfract}) {
    frame_box z = frame_box::number(1.5, 0, 0);
    EXPECT_EQ(r(&z.f), XF_E_OVERFLOW);
    EXPECT_EQ(z.f.output_length, 0u);
    frame_box c = frame_box::number(0.5, 11, 2, 4);
    xf_status st = r(&c.f);
    EXPECT_LE(c.f.output_length, 4u);
    EXPECT_TRUE(st == XF_E_CAPACITY || st == XF_E_OVERFLOW) << st;
  }
}

}  // namespace
