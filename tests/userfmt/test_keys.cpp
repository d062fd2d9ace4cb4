// The inline key of the lookups against the shared key helper. Given the
// big-endian double of wzctdbl, wzcsdbl hands back the key least significant
// byte first; one more reversal (vzbytrv) gives the stored order, in which
// keys compare as unsigned bytes. -0 keys as +0.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "support/random.hpp"
#include "userfmt/keys.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

namespace {

std::vector<uint8_t> shared_key(double v) {
  if (v == 0) v = 0.0;  // -0 keys as +0
  std::vector<uint8_t> k(8);
  wzctdbl(k.data(), 8, v);
  wzcsdbl(k.data(), 8);
  vzbytrv(k.data(), 8);
  return k;
}

TEST(numeric_key, equals_the_shared_key_helper) {
  auto g = xfmt::test::rng(5);
  uint64_t n = xfmt::test::scaled(200000);
  for (uint64_t i = 0; i < n; ++i) {
    uint64_t bits = g();
    double v;
    std::memcpy(&v, &bits, 8);
    ASSERT_EQ(xfmt::test::key(v), shared_key(v)) << "seed " << xfmt::test::test_seed() << " bits " << std::hex << bits;
  }
  for (double v : {0.0, -0.0, 1.0, -1.0, HUGE_VAL, -HUGE_VAL, xfmt::test::missing_letter('Z')})
    EXPECT_EQ(xfmt::test::key(v), shared_key(v)) << v;
}

}  // namespace
