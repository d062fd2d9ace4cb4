// Seed and scale of the random tests (see random.hpp).
#include "support/random.hpp"

#include <cstdio>
#include <cstdlib>

namespace xfmt::test {

uint64_t test_seed() {
  static const uint64_t seed = [] {
    uint64_t s;
    if (const char *e = std::getenv("XFMT_SEED")) {
      s = std::strtoull(e, nullptr, 10);
    } else {
      std::random_device rd;
      s = (static_cast<uint64_t>(rd()) << 32) ^ rd();
    }
    std::fprintf(stderr, "random tests: XFMT_SEED=%llu\n", static_cast<unsigned long long>(s));
    return s;
  }();
  return seed;
}

uint64_t scaled(uint64_t n) {
  static const double scale = [] {
    const char *e = std::getenv("XFMT_TEST_SCALE");
    double v = e ? std::strtod(e, nullptr) : 1.0;
    return v > 0 ? v : 1.0;
  }();
  double r = static_cast<double>(n) * scale;
  return r < 1 ? 1 : static_cast<uint64_t>(r);
}

std::mt19937_64 rng(uint64_t salt) { return std::mt19937_64(test_seed() ^ (salt * 0x9E3779B97F4A7C15ull)); }

}  // namespace xfmt::test
