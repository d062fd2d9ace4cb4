// Second stage of number reading: the nearest double to a scanned decimal,
// rounded to nearest with ties to even, exactly as a correct strtod rounds.
#pragma once

#include <bit>
#include <cstdint>

#include "informats/number_scan.hpp"

namespace xfmt::informats {

inline constexpr uint64_t double_infinity_bits = 0x7FF0000000000000ull;
inline constexpr uint64_t double_max_bits = 0x7FEFFFFFFFFFFFFFull;

// Every power of ten up to 1e22 is a double exactly (5^22 < 2^53).
inline constexpr double exact_pow10[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                           1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr uint64_t pow10_u64[20] = {
    1ull,           10ull,           100ull,           1000ull,           10000ull,
    100000ull,      1000000ull,      10000000ull,      100000000ull,      1000000000ull,
    10000000000ull, 100000000000ull, 1000000000000ull, 10000000000000ull, 100000000000000ull,
    1000000000000000ull, 10000000000000000ull, 100000000000000000ull, 1000000000000000000ull,
    10000000000000000000ull};

// The exact case: an integer mantissa of at most 53 bits and a power of ten
// that is itself a double; one IEEE multiplication or division then rounds
// the exact quotient or product once, correctly. A larger positive exponent
// is usable when the surplus can move into the mantissa without passing
// 2^53 ("15E30" is 15e8 * 1e22).
inline bool exact_small_bits(uint64_t w, int64_t q, uint64_t &bits) {
  constexpr uint64_t two53 = uint64_t{1} << 53;
  if (w > two53) return false;
  if (q >= 0 && q <= 22) {
    bits = std::bit_cast<uint64_t>(static_cast<double>(w) * exact_pow10[q]);
    return true;
  }
  if (q < 0 && q >= -22) {
    bits = std::bit_cast<uint64_t>(static_cast<double>(w) / exact_pow10[-q]);
    return true;
  }
  if (q > 22 && q <= 22 + 16) {
    uint64_t p = pow10_u64[q - 22];
    if (w > two53 / p) return false;
    bits = std::bit_cast<uint64_t>(static_cast<double>(w * p) * exact_pow10[22]);
    return true;
  }
  return false;
}

// Bits of the nearest non-negative double to num (which is nonzero): 0 when
// it rounds to zero, double_infinity_bits when it rounds beyond the largest
// double. Tries the exact small case, then the 128-bit scaled product, and
// settles the rare undecided case by exact big-integer comparison.
uint64_t decimal_to_bits(const decimal_number &num);

// The 128-bit product method alone: true with the correctly rounded bits,
// false when the product cannot decide (then nothing is stored). w != 0,
// q within the power table.
bool scaled_product_bits(uint64_t w, int q, uint64_t &bits);

// A double no larger than head * 10^q (and so no larger than the value),
// within a few units in the last place of it: the start of the exact search.
uint64_t lower_bound_bits(uint64_t head, int64_t q);

// The exact method alone (big-integer comparison of the decimal with the
// midpoints between neighbouring doubles). Slow; used when the others cannot
// decide, and by tests.
uint64_t exact_decimal_bits(const decimal_number &num);

}  // namespace xfmt::informats
