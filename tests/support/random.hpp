// Seeded random cases for differential and property tests.
//   XFMT_SEED        fixes the seed (decimal); otherwise one is drawn and printed.
//   XFMT_TEST_SCALE  multiplies case counts (default 1; CI's sanitizer run lowers it).
#pragma once

#include <cstdint>
#include <random>

namespace xfmt::test {

// The seed of this process, printed once to stderr so a failure can be replayed.
uint64_t test_seed();

// n scaled by XFMT_TEST_SCALE, at least 1.
uint64_t scaled(uint64_t n);

// A generator seeded from test_seed() and a per-test salt.
std::mt19937_64 rng(uint64_t salt = 0);

}  // namespace xfmt::test
