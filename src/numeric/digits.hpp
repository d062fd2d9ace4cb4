// Exact decimal digits of doubles without printf: powers of ten and five,
// 128-bit digit counts and writers, and the exact truncated fraction digits
// floor(x * 10^p) of a double x in [0, 1) through 128-bit integers.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/bounded_text.hpp"

namespace xfmt::numeric {

// The 64-bit digit writers are the core's; the 128-bit ones below extend them.
using core::digit_count;
using core::put_digits;

__extension__ typedef unsigned __int128 u128;

// 10^i as u128 for i = 0..38 (10^38 < 2^128 = 3.4e38).
struct pow10_table {
  u128 v[39];
};
constexpr pow10_table make_pow10() {
  pow10_table t{};
  u128 p = 1;
  for (int i = 0; i < 39; ++i) {
    t.v[i] = p;
    p *= 10;
  }
  return t;
}
inline constexpr pow10_table pow10_u128 = make_pow10();

// 5^i as u128 for i = 0..31 (5^31 < 2^72): the odd part of 10^i.
struct pow5_table {
  u128 v[32];
};
constexpr pow5_table make_pow5() {
  pow5_table t{};
  u128 p = 1;
  for (int i = 0; i < 32; ++i) {
    t.v[i] = p;
    p *= 5;
  }
  return t;
}
inline constexpr pow5_table pow5_u128 = make_pow5();

// Number of decimal digits of v (1 for 0), for v below 10^38.
inline int digit_count(u128 v) {
  if (static_cast<uint64_t>(v >> 64) == 0) return core::digit_count(static_cast<uint64_t>(v));
  int n = 20;
  while (n < 38 && v >= pow10_u128.v[n]) ++n;
  return n;
}

// put_digits for values that may need more than 19 digits (count <= 38).
inline void put_digits(char *end, u128 v, int count) {
  const uint64_t chunk = 10000000000000000ull;  // 10^16
  while (count > 19) {
    put_digits(end, static_cast<uint64_t>(v % chunk), 16);
    v /= chunk;
    end -= 16;
    count -= 16;
  }
  put_digits(end, static_cast<uint64_t>(v), count);
}

// floor(x * 10^p), exactly, for a double 0 <= x < 1 and 0 <= p <= 31.
// x = M * 2^-q with q >= 53, so x * 10^p = M * 5^p * 2^(p - q): the product
// M * 5^p stays below 2^53 * 2^72 and the power of two is a right shift.
inline u128 scaled_fraction(double x, int p) {
  uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  int biased = static_cast<int>((bits >> 52) & 0x7FF);
  uint64_t mant = bits & ((uint64_t{1} << 52) - 1);
  if (biased == 0) {
    if (mant == 0) return 0;
    biased = 1;  // subnormal: same scale as the smallest normal, no hidden bit
  } else {
    mant |= uint64_t{1} << 52;
  }
  int q = 1075 - biased;  // x = mant * 2^-q, q >= 53 because x < 1
  int shift = q - p;
  if (shift >= 128) return 0;
  return (static_cast<u128>(mant) * pow5_u128.v[p]) >> shift;
}

// floor(r) for a finite r >= 0. Returns false when floor(r) has more than 32
// digits (no field of at most 32 positions can show it).
inline bool integer_part(double r, u128 &out) {
  if (r < 18446744073709551616.0) {  // 2^64
    out = static_cast<uint64_t>(r);
    return true;
  }
  uint64_t bits;
  std::memcpy(&bits, &r, sizeof bits);
  int e = static_cast<int>((bits >> 52) & 0x7FF) - 1075;  // r = mant * 2^e, e >= 12
  if (e > 127 - 53) return false;
  u128 v = static_cast<u128>((bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52)) << e;
  if (v >= pow10_u128.v[32]) return false;
  out = v;
  return true;
}

}  // namespace xfmt::numeric
