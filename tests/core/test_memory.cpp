// Memory helpers: moves, fills, comparisons, byte order and sort keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

std::string s(const char *p, size_t n) { return std::string(p, n); }

TEST(moves, padded_copies) {
  char t[6];
  wzstmov("abc", 3, t, 6);
  EXPECT_EQ(s(t, 6), "abc   ");
  wzstmov("abcdefgh", 8, t, 6);
  EXPECT_EQ(s(t, 6), "abcdef");
  vzmp("xy", 0, t, 6);
  EXPECT_EQ(s(t, 6), "      ");
  char o[] = "abcdef";
  vzmp(o, 4, o + 1, 5);  // overlapping
  EXPECT_EQ(s(o, 6), "aabcd ");
  char p[] = "abcdef";
  vzMP(p + 2, 4, p, 6);
  EXPECT_EQ(s(p, 6), "cdef  ");
}

TEST(moves, limited_and_overlapping) {
  char t[] = "........";
  vzmi("abcdef", t, 6, 3);
  EXPECT_EQ(s(t, 8), "abc.....");
  MBL_OPT("xy", t, 2);
  EXPECT_EQ(s(t, 8), "xyc.....");
  char o[] = "123456789";
  vzni(o, o + 2, 9, 5);
  EXPECT_EQ(s(o, 9), "121234589");
  char q[] = "123456789";
  vznl(q + 3, q, 6);
  EXPECT_EQ(s(q, 9), "456789789");
  vzmi("abc", t, -1, 3);  // negative length: nothing
  EXPECT_EQ(s(t, 8), "xyc.....");
}

TEST(fills, zero_byte_blank) {
  char t[] = "abcdefgh";
  vzzl(t, 3, 8);
  EXPECT_EQ(s(t, 8), std::string("\0\0\0defgh", 8));
  vzzi(t + 3, 8, 2);
  EXPECT_EQ(s(t, 8), std::string("\0\0\0\0\0fgh", 8));
  vzfbl('x', t, 2);
  vzftl('y', t + 2, 2);
  wzbfcl('z', t + 4, 2);
  EXPECT_EQ(s(t, 8), "xxyyzzgh");
  vzBL(t, 3);
  vzbtl(t + 3, 3);
  EXPECT_EQ(s(t, 8), "      gh");
  vzBL(t, -5);
  EXPECT_EQ(s(t, 8), "      gh");
}

TEST(compares, all_equal_and_first_difference) {
  EXPECT_EQ(vzabl(' ', "   ", 3), 1);
  EXPECT_EQ(vzabl(' ', "  x", 3), 0);
  EXPECT_EQ(vzabl(' ', "", 0), 1);
  EXPECT_EQ(ATL('0', "000", 3), 1);
  EXPECT_EQ(ATL('0', "010", 3), 0);
  EXPECT_EQ(vzsntl("   a", 4, ' '), 3);
  EXPECT_EQ(vzsntl("    ", 4, ' '), -1);
}

TEST(vzbytrv, reverses) {
  char t[] = "abcde";
  vzbytrv(t, 5);
  EXPECT_STREQ(t, "edcba");
  vzbytrv(t, 1);
  vzbytrv(t, 0);
  EXPECT_STREQ(t, "edcba");
  vzbytrv(t, 4);
  EXPECT_STREQ(t, "bcdea");
}

TEST(wzctint, big_endian_and_clamping) {
  uint8_t a[8];
  EXPECT_EQ(wzctint(40000, a, 2), 8193);
  EXPECT_EQ(a[0], 0x7F);
  EXPECT_EQ(a[1], 0xFF);
  EXPECT_EQ(wzctint(-40000, a, 2), 8193);
  EXPECT_EQ(a[0], 0x80);
  EXPECT_EQ(a[1], 0x00);
  EXPECT_EQ(wzctint(32767, a, 2), 0);
  EXPECT_EQ(wzctint(0x01020304, a, 4), 0);
  EXPECT_EQ(std::vector<uint8_t>(a, a + 4), (std::vector<uint8_t>{1, 2, 3, 4}));
  EXPECT_EQ(wzctint(-2, a, 3), 0);
  EXPECT_EQ(std::vector<uint8_t>(a, a + 3), (std::vector<uint8_t>{0xFF, 0xFF, 0xFE}));
  EXPECT_EQ(wzctint(70000, a, 1), 0);  // one byte keeps the low byte
  EXPECT_EQ(a[0], 0x70);
  EXPECT_EQ(wzctint(-1, a, 8), 0);
  EXPECT_EQ(a[0], 0xFF);
}

TEST(wzctdbl, most_significant_bytes_first) {
  uint8_t a[8] = {};
  wzctdbl(a, 8, 1.0);
  EXPECT_EQ(std::vector<uint8_t>(a, a + 8), (std::vector<uint8_t>{0x3F, 0xF0, 0, 0, 0, 0, 0, 0}));
  uint8_t b[3] = {9, 9, 9};
  wzctdbl(b, 2, -2.0);
  EXPECT_EQ(std::vector<uint8_t>(b, b + 3), (std::vector<uint8_t>{0xC0, 0x00, 9}));
}

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
