// Missing numeric values: reserved NaN patterns 0xFFFFxx0000000000 whose
// byte 5 selects the symbol from " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ".
#pragma once

#include <cstdint>
#include <cstring>

#include "xfmt/xfmt.h"

namespace xfmt {

inline constexpr uint64_t missing_ordinary_bits = 0xFFFFFE0000000000ull;  // "."
inline constexpr uint64_t missing_underscore_bits = 0xFFFFFF0000000000ull;  // "._"
inline constexpr char missing_symbols[] = " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ";

inline uint64_t double_bits(double v) {
  uint64_t b;
  std::memcpy(&b, &v, sizeof b);
  return b;
}

inline double bits_double(uint64_t b) {
  double v;
  std::memcpy(&v, &b, sizeof v);
  return v;
}

// Bytes 0-4 zero and bytes 6-7 0xFF; byte 5 may be anything.
inline bool is_missing_bits(uint64_t b) {
  return (b & 0xFFFF00FFFFFFFFFFull) == 0xFFFF000000000000ull;
}
inline bool is_missing(double v) { return is_missing_bits(double_bits(v)); }

// The symbol shown for a missing value; a value that is not of the missing
// pattern gives the blank of index 0.
inline char missing_symbol(uint64_t b) {
  if ((b >> 48) != 0xFFFF) return missing_symbols[0];
  int idx = -static_cast<int>(static_cast<int8_t>((b >> 40) & 0xFF));
  if (idx < 0 || idx > 28) return missing_symbols[0];
  return missing_symbols[idx];
}

// The ordinary missing value and missing value i of the library's own table
// (0 "._", 1 ".", 2 "A" ... 27 "Z").
inline double missing_value(int i) {
  return bits_double(missing_underscore_bits - static_cast<uint64_t>(i) * uint64_t{0x10000000000});
}
inline double missing_ordinary() { return bits_double(missing_ordinary_bits); }

}  // namespace xfmt
