// Second stage of number reading: the nearest double to a scanned decimal,
// rounded to nearest with ties to even, exactly as a correct strtod rounds.
#pragma once

#include <cstdint>

#include "informats/number_scan.hpp"

namespace xfmt::informats {

inline constexpr uint64_t double_infinity_bits = 0x7FF0000000000000ull;
inline constexpr uint64_t double_max_bits = 0x7FEFFFFFFFFFFFFFull;

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
