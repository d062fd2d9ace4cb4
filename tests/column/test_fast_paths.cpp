// The column fast paths against the routines they stand in for: F w.d
// against zfmt and @F against wzifmn, over random values and texts, byte for
// byte and bit for bit. A fast path may decline a value; it may never differ.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "column/fast_paths.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::column::fixed_fast;
using xfmt::column::plain_number_fast;

std::string routine_field(double v, int32_t w, int32_t d) {
  char out[64];
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input = &v;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  zfmt(&f);
  return std::string(out, f.output_length);
}

// Money, whole numbers, magnitudes across the fast path's edge, halfway
// cases (x.xx5 and their neighbours), signed zeros and missing values.
double random_value(std::mt19937_64 &g) {
  double sign = g() % 2 ? -1.0 : 1.0;
  switch (g() % 7) {
    case 0: return sign * static_cast<double>(g() % 10000000) / 100.0;
    case 1: return sign * static_cast<double>(g() % 1000000000);
    case 2: return sign * std::pow(10.0, -12.0 + 30.0 * static_cast<double>(g() % 1000000) / 1e6);
    case 3: return sign * (static_cast<double>(g() % 100000) + 0.5) / std::pow(10.0, static_cast<double>(g() % 10));
    case 4: return std::nextafter(sign * static_cast<double>(g() % 100000) / 1000.0 + sign * 0.0005,
                                  g() % 2 ? 1e300 : -1e300);
    case 5: return g() % 3 == 0 ? -0.0 : (g() % 3 == 1 ? 0.0 : xfmt::missing_ordinary());
    default: {
      uint64_t bits = g();  // any double at all
      double v;
      std::memcpy(&v, &bits, 8);
      return v;
    }
  }
}

TEST(column_fast_paths, fixed_matches_zfmt_on_random_values) {
  auto g = xfmt::test::rng(71);
  uint64_t n = xfmt::test::scaled(3000000), taken = 0;
  for (uint64_t i = 0; i < n; ++i) {
    double v = random_value(g);
    int32_t w = 2 + static_cast<int32_t>(g() % 19);
    int32_t d = 1 + static_cast<int32_t>(g() % 9);
    char out[32];
    if (!fixed_fast(v, w, d, out)) continue;
    ++taken;
    ASSERT_EQ(std::string(out, static_cast<size_t>(w)), routine_field(v, w, d))
        << "F" << w << "." << d << " of " << v << " bits " << std::hex << xfmt::double_bits(v)
        << " seed " << std::dec << xfmt::test::test_seed();
  }
  EXPECT_GT(taken, n / 4);  // the common values do take the fast path
}

TEST(column_fast_paths, fixed_declines_what_it_does_not_cover) {
  char out[32];
  EXPECT_FALSE(fixed_fast(xfmt::missing_ordinary(), 8, 2, out));
  EXPECT_FALSE(fixed_fast(INFINITY, 8, 2, out));
  EXPECT_FALSE(fixed_fast(NAN, 8, 2, out));
  EXPECT_FALSE(fixed_fast(123456.0, 8, 2, out));  // decimals would be reduced
  EXPECT_FALSE(fixed_fast(1.5, 8, 0, out));       // no decimals: the integer layouts
  EXPECT_FALSE(fixed_fast(1.5, 40, 2, out));      // wider than a number field
  EXPECT_FALSE(fixed_fast(1e-310, 8, 2, out));    // subnormal
  ASSERT_TRUE(fixed_fast(-0.0, 5, 2, out));
  EXPECT_EQ(std::string(out, 5), " 0.00");
  ASSERT_TRUE(fixed_fast(1.005, 4, 2, out));  // the routine's nudge rounds it up
  EXPECT_EQ(std::string(out, 4), "1.01");
  ASSERT_TRUE(fixed_fast(-0.5, 4, 2, out));  // no room for the 0: "-.50"
  EXPECT_EQ(std::string(out, 4), routine_field(-0.5, 4, 2));
}

double routine_number(const std::string &text, int32_t w, int32_t d, xf_status &st) {
  double v = 0;
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input = text.data();
  f.input_length = static_cast<uint32_t>(text.size());
  f.output = &v;
  f.output_capacity = 8;
  st = wzifmn(&f);
  return v;
}

// Texts near and beyond the fast path's limits: up to 22 digits, points,
// signs, blanks, and now and then a character the reader alone handles.
std::string random_text(std::mt19937_64 &g) {
  static const char extra[] = "eE+.,$ab\t";
  std::string t(g() % 3, ' ');
  if (g() % 3 == 0) t += '-';
  size_t digits = 1 + g() % 22;
  size_t point = g() % 2 ? g() % (digits + 1) : digits + 1;
  for (size_t k = 0; k < digits; ++k) {
    if (k == point) t += '.';
    t += static_cast<char>('0' + g() % 10);
  }
  if (g() % 10 == 0) t.insert(g() % (t.size() + 1), 1, extra[g() % (sizeof extra - 1)]);
  t.append(g() % 3, ' ');
  return t;
}

TEST(column_fast_paths, plain_number_matches_the_reader_bit_for_bit) {
  auto g = xfmt::test::rng(72);
  uint64_t n = xfmt::test::scaled(2000000), taken = 0;
  for (uint64_t i = 0; i < n; ++i) {
    std::string t = random_text(g);
    int32_t d = static_cast<int32_t>(g() % 6);
    int32_t w = static_cast<int32_t>(t.size() < 32 ? t.size() : 32);
    size_t field = t.size() < static_cast<size_t>(w) ? t.size() : static_cast<size_t>(w);
    double fast = 0;
    if (!plain_number_fast(reinterpret_cast<const unsigned char *>(t.data()), field, d, fast)) continue;
    ++taken;
    xf_status st;
    double slow = routine_number(t, w, d, st);
    ASSERT_EQ(st, XF_OK) << "[" << t << "] seed " << xfmt::test::test_seed();
    ASSERT_EQ(xfmt::double_bits(fast), xfmt::double_bits(slow))
        << "[" << t << "] d " << d << " seed " << xfmt::test::test_seed();
  }
  EXPECT_GT(taken, n / 3);
}

TEST(column_fast_paths, plain_number_declines_what_it_does_not_cover) {
  double v;
  auto fast = [&](const char *t, int32_t d = 0) {
    return plain_number_fast(reinterpret_cast<const unsigned char *>(t), std::strlen(t), d, v);
  };
  EXPECT_FALSE(fast(""));
  EXPECT_FALSE(fast("   "));
  EXPECT_FALSE(fast("."));    // the missing notation
  EXPECT_FALSE(fast(".A"));
  EXPECT_FALSE(fast("1e5"));  // exponents: the reader
  EXPECT_FALSE(fast("+1"));
  EXPECT_FALSE(fast("1.2.3"));
  EXPECT_FALSE(fast("12345678901234567890"));  // 20 digits
  EXPECT_FALSE(fast("9007199254740993"));      // above 2^53
  ASSERT_TRUE(fast(" -0.00 "));
  EXPECT_EQ(xfmt::double_bits(v), 0u);  // "-0" reads +0
  ASSERT_TRUE(fast("12345", 2));
  EXPECT_EQ(v, 123.45);
  ASSERT_TRUE(fast("1.5", 2));  // a point overrides the implied decimals
  EXPECT_EQ(v, 1.5);
}

}  // namespace
