// Collating keys of numbers: 8 bytes, big-endian, ordered as unsigned bytes.
// Held in memory as big-endian bytes (the record layout hosts build); the
// lookups load them as 64-bit integers, which order the same way.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/missing.hpp"

namespace xfmt::userfmt {

inline constexpr uint64_t sign_bit = 0x8000000000000000ull;
// LOW: above the largest missing key (.Z is 0x00001BFF...), below -inf
// (0x000FFFFF...). HIGH: above every value.
inline constexpr uint64_t key_low = 0x0001000000000000ull;
inline constexpr uint64_t key_high = ~0ull;

// Key as an integer. -0 (the sign bit alone) keys as +0: 0x8000000000000000.
// A missing value (0xFFFFxx0000000000) is negative, so it is complemented to
// 0x0000yyFFFFFFFFFF with yy = ~xx: ._ 00, . 01, .A 02 ... .Z 1B.
inline constexpr uint64_t key_of_bits(uint64_t b) {
  if (b == sign_bit) b = 0;
  return (b & sign_bit) ? ~b : (b | sign_bit);
}
inline uint64_t key_of(double v) { return key_of_bits(double_bits(v)); }

inline uint64_t load_key(const uint8_t k[8]) {
  uint64_t v;
  std::memcpy(&v, k, sizeof v);
  return __builtin_bswap64(v);
}
inline void store_key(uint8_t k[8], uint64_t v) {
  v = __builtin_bswap64(v);
  std::memcpy(k, &v, sizeof v);
}

}  // namespace xfmt::userfmt
