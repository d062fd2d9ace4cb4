// Differential test: the fast printer against the slow snprintf reference
// over random values, every width 1-32 (and a few outside), every decimals
// code, capacities at and below the width.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/missing.hpp"
#include "oracle/zfmt_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

double pick_value(std::mt19937_64 &g) {
  auto u = [&](uint64_t n) { return g() % n; };
  double sign = u(2) ? -1.0 : 1.0;
  switch (u(12)) {
    case 0: {  // any finite double
      uint64_t b = g() & 0x7FFFFFFFFFFFFFFFull;
      if ((b >> 52) == 0x7FF) b ^= uint64_t{1} << 62;
      return sign * xfmt::bits_double(b);
    }
    case 1:  // integers of every size
      return sign * std::ldexp(static_cast<double>(g() >> 11), -static_cast<int>(u(53)) + static_cast<int>(u(80)));
    case 2:  // small integers
      return sign * static_cast<double>(u(100000));
    case 3:  // money: cents
      return sign * static_cast<double>(u(100000000)) / 100.0;
    case 4:  // halfway cases x.5, x.x5, x.xx5, ...
      return sign * (static_cast<double>(u(1000000)) + 0.5) / std::pow(10.0, static_cast<double>(u(6)));
    case 5: {  // magnitudes 1e-10 .. 1e15, log-uniform
      double e = -10.0 + 25.0 * static_cast<double>(g() >> 11) / 9007199254740992.0;
      return sign * std::pow(10.0, e);
    }
    case 6: {  // whole range log-uniform
      double e = -320.0 + 628.0 * static_cast<double>(g() >> 11) / 9007199254740992.0;
      return sign * std::pow(10.0, e);
    }
    case 7: {  // powers of ten and their neighbours
      double p = std::pow(10.0, static_cast<double>(static_cast<int>(u(60)) - 30));
      int step = static_cast<int>(u(5)) - 2;
      for (; step > 0; --step) p = std::nextafter(p, 1e308);
      for (; step < 0; ++step) p = std::nextafter(p, 0.0);
      return sign * p;
    }
    case 8:  // nines that carry: 9.99..., 99.99...
      return sign * (std::pow(10.0, static_cast<double>(u(12))) - std::pow(10.0, -static_cast<double>(u(12))) * static_cast<double>(u(6)));
    case 9:  // zeros and missing values
      switch (u(4)) {
        case 0: return 0.0;
        case 1: return -0.0;
        default: return xfmt::missing_value(static_cast<int>(u(28)));
      }
    case 10:  // values below 1
      return sign * static_cast<double>(g() >> 11) / 9007199254740992.0;
    default:  // a few non-finite and near-limit values
      switch (u(6)) {
        case 0: return std::numeric_limits<double>::infinity() * sign;
        case 1: return std::numeric_limits<double>::quiet_NaN();
        case 2: return sign * std::numeric_limits<double>::max();
        case 3: return sign * std::numeric_limits<double>::denorm_min();
        default: return sign * 9007199254740992.0 + static_cast<double>(u(5)) - 2;
      }
  }
}

int pick_decimals(std::mt19937_64 &g) {
  switch (g() % 10) {
    case 0: return 99;
    case 1: return 98;
    case 2: return 80 + static_cast<int>(g() % 10);
    case 3: return -999;
    case 4: return -static_cast<int>(g() % 40) - 1;
    case 5: return static_cast<int>(g() % 100);  // includes 32-97
    default: return static_cast<int>(g() % 32);
  }
}

void run_shard(uint64_t salt) {
  auto g = xfmt::test::rng(salt);
  const uint64_t count = xfmt::test::scaled(1000000);
  int failures = 0;
  for (uint64_t i = 0; i < count && failures < 10; ++i) {
    double v = pick_value(g);
    int32_t w = g() % 50 == 0 ? static_cast<int32_t>(g() % 45) - 5 : 1 + static_cast<int32_t>(g() % 32);
    int32_t d = pick_decimals(g);
    int64_t cap = w > 0 ? w : 0;
    if (g() % 20 == 0) cap = static_cast<int64_t>(g() % 40);
    frame_box b = frame_box::number(v, w, d, cap);
    b.f.output_length = 12345;
    xf_status st = zfmt(&b.f);
    auto want = xfmt::oracle::zfmt_oracle(v, w, d, static_cast<uint32_t>(cap));
    std::string got = w < 1 ? std::string() : b.str();
    uint32_t want_len = w < 1 ? 12345u : want.length;
    if (st != want.status || got != want.text || b.f.output_length != want_len || b.f.width != want.width_after) {
      ++failures;
      ADD_FAILURE() << "seed " << xfmt::test::test_seed() << " salt " << salt << " value " << v << " bits 0x"
                    << std::hex << xfmt::double_bits(v) << std::dec << " w " << w << " d " << d << " cap " << cap
                    << "\n  got  [" << got << "] status 0x" << std::hex << st << std::dec << " len " << b.f.output_length
                    << "\n  want [" << want.text << "] status 0x" << std::hex << want.status << std::dec << " len "
                    << want_len;
    }
  }
}

// Ten shards of a million cases each (XFMT_TEST_SCALE scales them) so ctest
// runs them side by side; named exhaustive_, they run in the Release build
// only, not under the sanitizers.
class zfmt_oracle_shard : public testing::TestWithParam<uint64_t> {};
TEST_P(zfmt_oracle_shard, exhaustive_shard) { run_shard(GetParam()); }
INSTANTIATE_TEST_SUITE_P(salt, zfmt_oracle_shard, testing::Range<uint64_t>(100, 110));

// Every width and decimals code over a fixed set of awkward values.
TEST(zfmt_oracle, sweep_widths_and_codes) {
  const double values[] = {0.0, -0.0, 0.5, -0.5, 0.05, 0.005, 1.005, 2.675, 3.5, 9.999, 9.5, 99.95,
                           999.96, 1234.5, 123456.789, 1e15, 1e16, 9007199254740992.0, 1e22, 1e31,
                           1e32, 1e-5, 1e-6, 1.5e-10, 1e-300, 5e-324, 1.7976931348623157e308,
                           0.1, 0.3, 1.0 / 3, 2.0 / 3, 12345678.9, 0.000123456};
  int failures = 0;
  for (double base : values)
    for (double v : {base, -base})
      for (int32_t w = 1; w <= 32; ++w)
        for (int32_t d : {0, 1, 2, 3, 5, 9, 15, 16, 20, 31, 99, 98, 80, 83, 89, -999, -1, -7, -30}) {
          frame_box b = frame_box::number(v, w, d);
          xf_status st = zfmt(&b.f);
          auto want = xfmt::oracle::zfmt_oracle(v, w, d, static_cast<uint32_t>(w));
          if ((st != want.status || b.str() != want.text) && ++failures < 10)
            ADD_FAILURE() << "value " << v << " w " << w << " d " << d << " got [" << b.str() << "] 0x"
                          << std::hex << st << " want [" << want.text << "] 0x" << want.status;
        }
  EXPECT_EQ(failures, 0);
}

}  // namespace
