// Truncated 128-bit powers of five, 5^-342 .. 5^308, used to scale a decimal
// mantissa by its power of ten. Generated data; see pow5_table.cpp.
#pragma once

#include <cstdint>

namespace xfmt::informats {

// 5^q = (hi * 2^64 + lo + r) * 2^(log2_floor - 127), 0 <= r < 1, hi >= 2^63.
struct pow5_entry {
  uint64_t hi;
  uint64_t lo;
  int32_t log2_floor;  // floor(log2(5^q))
};

inline constexpr int pow5_min_exponent = -342;
inline constexpr int pow5_max_exponent = 308;

extern const pow5_entry pow5_table[pow5_max_exponent - pow5_min_exponent + 1];

inline const pow5_entry &pow5(int q) { return pow5_table[q - pow5_min_exponent]; }

}  // namespace xfmt::informats
