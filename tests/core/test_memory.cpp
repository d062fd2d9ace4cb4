// Memory helpers: moves, fills, comparisons and byte order, one call a row
// of core/memory.tsv; sort keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/byte_area_rows.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::byte_call;

const xfmt::test::byte_helper helpers[] = {
    {"wzstmov", nullptr, [](const byte_call &c) { wzstmov(c.s, c.n, c.p, c.m); }},
    {"vzmp", nullptr, [](const byte_call &c) { vzmp(c.s, c.n, c.p, c.m); }},
    {"vzMP", nullptr, [](const byte_call &c) { vzMP(c.s, c.n, c.p, c.m); }},
    {"vzmi", nullptr, [](const byte_call &c) { vzmi(c.s, c.p, c.n, c.m); }},
    {"MBL_OPT", nullptr, [](const byte_call &c) { MBL_OPT(c.s, c.p, c.n); }},
    {"vzni", nullptr, [](const byte_call &c) { vzni(c.s, c.p, c.n, c.m); }},
    {"vznl", nullptr, [](const byte_call &c) { vznl(c.s, c.p, c.n); }},
    {"vzzl", nullptr, [](const byte_call &c) { vzzl(c.p, c.n, c.m); }},
    {"vzzi", nullptr, [](const byte_call &c) { vzzi(c.p, c.n, c.m); }},
    {"vzfbl", nullptr, [](const byte_call &c) { vzfbl(c.byte(), c.p, c.n); }},
    {"vzftl", nullptr, [](const byte_call &c) { vzftl(c.byte(), c.p, c.n); }},
    {"wzbfcl", nullptr, [](const byte_call &c) { wzbfcl(c.byte(), c.p, c.n); }},
    {"vzBL", nullptr, [](const byte_call &c) { vzBL(c.p, c.n); }},
    {"vzbtl", nullptr, [](const byte_call &c) { vzbtl(c.p, c.n); }},
    {"vzabl", [](const byte_call &c) { return vzabl(c.byte(), c.p, c.n); }, nullptr},
    {"ATL", [](const byte_call &c) { return ATL(c.byte(), c.p, c.n); }, nullptr},
    {"vzsntl", [](const byte_call &c) { return vzsntl(c.p, c.n, c.byte()); }, nullptr},
    {"vzbytrv", nullptr, [](const byte_call &c) { vzbytrv(c.p, c.n); }},
    {"wzctint", [](const byte_call &c) { return wzctint(c.m, c.p, c.n); }, nullptr},
    {"wzctdbl", nullptr, [](const byte_call &c) { wzctdbl(c.p, c.n, c.m); }},
};

TEST(memory, calls_of_the_memory_table) { xfmt::test::run_byte_area_rows("core/memory.tsv", helpers); }

// The key of a double, read back in the stored (reversed) order, compares
// like the numbers.
std::vector<uint8_t> key(double v) {
  uint8_t a[8];
  wzctdbl(a, 8, v);
  wzcsdbl(a, 8);
  std::vector<uint8_t> k(a, a + 8);
  std::reverse(k.begin(), k.end());
  return k;
}

TEST(wzcsdbl, keys_sort_like_numbers) {
  EXPECT_EQ(key(1.0), (std::vector<uint8_t>{0xBF, 0xF0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(key(-1.0), (std::vector<uint8_t>{0x40, 0x0F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}));
  auto g = xfmt::test::rng(11);
  std::uniform_real_distribution<double> d(-1e6, 1e6);
  const uint64_t cases = xfmt::test::scaled(20000);
  for (uint64_t c = 0; c < cases; ++c) {
    const double a = d(g), b = c % 3 ? d(g) : -a;
    ASSERT_EQ(a < b, key(a) < key(b)) << a << " " << b;
  }
}

}  // namespace
