// Missing-value tables, recognition, display and the host's table.
#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <string>

#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

double from_bits(uint64_t b) { return std::bit_cast<double>(b); }

TEST(missing_values, table_rows_and_symbols) {
  EXPECT_EQ(missing_values[0], 0xFFFFFF0000000000ull);
  EXPECT_EQ(missing_values[1], 0xFFFFFE0000000000ull);
  EXPECT_EQ(missing_values[2], 0xFFFFFD0000000000ull);
  EXPECT_EQ(missing_values[27], 0xFFFFE40000000000ull);
  EXPECT_EQ(std::string(misscoll), " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(std::bit_cast<uint64_t>(std_miss_val), 0xFFFFFE0000000000ull);
  for (int i = 0; i < 28; ++i) {
    const int8_t byte5 = static_cast<int8_t>((missing_values[i] >> 40) & 0xFF);
    EXPECT_EQ(misscoll[-byte5], "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ"[i]) << i;
    EXPECT_EQ(std::bit_cast<uint64_t>(ZMISSV(i)), missing_values[i]);
  }
  EXPECT_EQ(std::bit_cast<uint64_t>(ZMISSV(28)), 0xFFFFFE0000000000ull);
  EXPECT_EQ(std::bit_cast<uint64_t>(ZMISSV(-1)), 0xFFFFFE0000000000ull);
}

// The bit patterns of core/zmiss.tsv, each given to zmiss both ways.
TEST(zmiss, recognises_only_the_missing_pattern) {
  for (const auto &r : xfmt::test::tab_rows("core/zmiss.tsv")) {
    ASSERT_EQ(r.size(), 3u) << r[0];
    const double v = from_bits(std::stoull(r[1], nullptr, 16));
    const auto missing = static_cast<int32_t>(xfmt::test::int_of(r[2]));
    EXPECT_EQ(zmiss(nullptr, &v, 0.0), missing) << r[0];
    EXPECT_EQ(zmiss(nullptr, nullptr, v), missing) << r[0];
  }
}

TEST(wzmisv, library_table_until_the_host_sets_its_block) {
  ASSERT_EQ(ej_global_gcb_anchor, nullptr);
  EXPECT_EQ(std::bit_cast<uint64_t>(wzmisv(2)), 0xFFFFFD0000000000ull);
  double host_table[28];
  for (int i = 0; i < 28; ++i) host_table[i] = 100.0 + i;
  void *block[12] = {};
  ej_global_gcb_anchor = block;
  EXPECT_EQ(std::bit_cast<uint64_t>(wzmisv(3)), 0xFFFFFC0000000000ull);  // word 9 still NULL
  block[9] = host_table;
  EXPECT_EQ(wzmisv(3), 103.0);
  EXPECT_EQ(wzmisv(27), 127.0);
  EXPECT_EQ(std::bit_cast<uint64_t>(wzmisv(28)), 0xFFFFFE0000000000ull);
  ej_global_gcb_anchor = nullptr;
}

TEST(wzmisc, prints_and_returns_the_low_byte) {
  testing::internal::CaptureStdout();
  const int32_t r = wzmisc(from_bits(0x40000000000000ABull));
  std::fflush(stdout);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "in wzmisc in mvsextra...\n");
  EXPECT_EQ(r, 0xAB);
}

}  // namespace
