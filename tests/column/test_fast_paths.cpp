// The column fast paths against the routines they stand in for: F w.d
// against zfmt and @F against wzifmn, over random values and texts, byte for
// byte and bit for bit. A fast path may decline a value; it may never differ.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "column/fast_paths.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::column::fixed_fast;
using xfmt::column::plain_number_fast;
using xfmt::test::frame_box;

std::string routine_field(double v, int32_t w, int32_t d) {
  frame_box b = frame_box::number(v, w, d, 64);
  zfmt(&b.f);
  return b.str();
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

// Values at the fast path's edges come first: missing, infinite, NaN, too
// wide for its decimals, no decimals, a field wider than a number's,
// subnormal, signed zero, the routine's nudge (1.005 rounds up) and no room
// for the 0 (-0.5 in 4.2).
struct fixed_edge {
  double v;
  int32_t w, d;
};
const fixed_edge fixed_edges[] = {{xfmt::missing_ordinary(), 8, 2}, {INFINITY, 8, 2}, {NAN, 8, 2},
                                  {123456.0, 8, 2}, {1.5, 8, 0}, {1.5, 40, 2}, {1e-310, 8, 2},
                                  {-0.0, 5, 2}, {1.005, 4, 2}, {-0.5, 4, 2}};

TEST(column_fast_paths, fixed_matches_zfmt_on_random_values) {
  auto g = xfmt::test::rng(71);
  uint64_t n = xfmt::test::scaled(3000000), taken = 0;
  for (uint64_t i = 0; i < n + std::size(fixed_edges); ++i) {
    const bool edge = i < std::size(fixed_edges);
    double v = edge ? fixed_edges[i].v : random_value(g);
    int32_t w = edge ? fixed_edges[i].w : 2 + static_cast<int32_t>(g() % 19);
    int32_t d = edge ? fixed_edges[i].d : 1 + static_cast<int32_t>(g() % 9);
    char out[48];
    if (!fixed_fast(v, w, d, out)) continue;
    ++taken;
    ASSERT_EQ(std::string(out, static_cast<size_t>(w)), routine_field(v, w, d))
        << "F" << w << "." << d << " of " << v << " bits " << std::hex << xfmt::double_bits(v)
        << " seed " << std::dec << xfmt::test::test_seed();
  }
  EXPECT_GT(taken, n / 4);  // the common values do take the fast path
}

double routine_number(const std::string &text, int32_t w, int32_t d, xf_status &st) {
  frame_box b = frame_box::chars(text, w, d, 8);
  st = wzifmn(&b.f);
  return b.result();
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

// Texts at the fast path's edges come first: empty, blank, the missing
// notation, exponents, a plus sign, two points, 20 digits, above 2^53, a
// negative zero, implied decimals and a point that overrides them.
struct plain_edge {
  const char *text;
  int32_t d;
};
const plain_edge plain_edges[] = {{"", 0}, {"   ", 0}, {".", 0}, {".A", 0}, {"1e5", 0}, {"+1", 0},
                                  {"1.2.3", 0}, {"12345678901234567890", 0}, {"9007199254740993", 0},
                                  {" -0.00 ", 0}, {"12345", 2}, {"1.5", 2}};

TEST(column_fast_paths, plain_number_matches_the_reader_bit_for_bit) {
  auto g = xfmt::test::rng(72);
  uint64_t n = xfmt::test::scaled(2000000), taken = 0;
  for (uint64_t i = 0; i < n + std::size(plain_edges); ++i) {
    const bool edge = i < std::size(plain_edges);
    std::string t = edge ? plain_edges[i].text : random_text(g);
    int32_t d = edge ? plain_edges[i].d : static_cast<int32_t>(g() % 6);
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

}  // namespace
