// Byte layouts of the binary number formats, shared by the formats and the
// informats: the scaled integer of a value, two's complement and packed or
// zoned decimal fields, and the VAX D-floating layout. Plain functions over
// caller buffers; nothing here reads a frame.
#pragma once

#include <bit>
#include <cstdint>

#include "core/missing.hpp"
#include "numeric/digits.hpp"

namespace xfmt::numeric {

// The byte order of the machine the library is built for: the native forms
// (IB, PIB, RB and their informats) follow it.
inline constexpr bool host_big = std::endian::native == std::endian::big;

// Result of scaling a value to an integer field.
enum class scaled_kind { ok, missing, too_low, too_high };

struct scaled_int {
  scaled_kind kind;
  bool negative;
  u128 magnitude;  // |round(v * 10^d)|, below 2^112 whenever kind is ok
};

// round(v * 10^d), half away from zero, for d 0..31 (others count as 0).
// Missing values and NaN give missing; a magnitude of 2^112 (5.2e33) or more (or infinity)
// gives too_low or too_high by sign. The product is one double
// multiplication: 1.005 with d 2 is 100.49999999999999 and stores 100, the
// value the double really holds.
scaled_int scale_value(double v, int32_t d);

// 10^d as a double for d 0..31 (others: 1).
double pow10_double(int32_t d);

// Writes the low 8*w bits of x (two's complement), most significant byte
// first (big) or last (little). w 1..16.
void put_twos(unsigned char *out, int w, u128 x, bool big);
// Reads w bytes (1..8) as an unsigned integer.
uint64_t get_unsigned(const unsigned char *in, int w, bool big);

// Packed decimal: 2w - 1 digits and a sign nibble (0xC plus, 0xD minus).
// magnitude must fit; returns false (nothing written) otherwise.
bool put_packed(unsigned char *out, int w, u128 magnitude, bool negative);
// Packed without sign: 2w digits.
bool put_packed_unsigned(unsigned char *out, int w, u128 magnitude);
// Zoned: w digits 0xF0-0xF9, the last with zone 0xC (plus) or 0xD (minus).
bool put_zoned(unsigned char *out, int w, u128 magnitude, bool negative);
// The n low decimal digits of m as bytes zone | digit, most significant
// first (zone 0xF0: EBCDIC digits, 0x30: ASCII digits). m below 10^38.
void put_digits(unsigned char *out, int n, u128 m, unsigned char zone);

// ASCII zoned decimal: the sign is overpunched on the last digit,
// "{" "A".."I" for plus, "}" "J".."R" for minus.
extern const unsigned char ascii_overpunch[2][10];
// The digit and sign of an overpunched last byte: digit 0..9 with negative
// set, or -1 for a byte that is not a zoned last byte. Plain digits 30-39
// read as unsigned (plus).
int ascii_overpunch_digit(unsigned char c, bool &negative);

// The largest magnitude of n decimal digits (n 0..38): 10^n - 1.
u128 all_nines(int n);

// VAX D-floating in its memory order (16-bit words little-endian, the most
// significant word first). Returns false when |v| is past the largest
// D-floating value; values below the smallest give zero.
bool vax_d_bits(double v, unsigned char out[8]);
// The inverse: false for the reserved operand (sign set, exponent 0).
bool vax_d_value(const unsigned char in[8], double &v);

// IBM hexadecimal floating point, long form: sign, excess-64 power of 16,
// 56-bit fraction whose first hex digit is not 0 (zero is all zero bits).
// Every double fits the fraction exactly. Returns false (bits 0) when |v|
// is 16^63 (7.2e75) or more or infinite; NaN and values below 16^-65 give
// 0.
inline bool ibm_hex_bits(double v, uint64_t &bits);
// The value of IBM long-form bits (the top w bytes of a shorter field, the
// rest zero). Unnormalized fractions read as their value.
double ibm_hex_value(uint64_t bits);

// Transport files mark a missing value in their IBM long form by its code
// in the first byte, the rest zero: "." 2E, "_" 5F, "A".."Z" 41..5A (any
// other missing pattern is written as "."). The value of such a field reads
// back as the missing value; any other field as its IBM value.
uint64_t xport_missing_bits(uint64_t missing);
double xport_float_value(const unsigned char *in, int w);

// Microsoft Binary Format: n fraction bytes (3 single, 7 double) least
// significant first, then the excess-128 exponent (0: zero); the top
// fraction bit gives way to the sign. Single precision rounds to nearest.
// Returns false (largest magnitude stored) past 2^127; below 2^-128: zero.
bool mbf_bytes(double v, bool is_double, unsigned char out[8]);
double mbf_value(const unsigned char *in, bool is_double);

// A normal double is M x 2^(E - 1075) with M of 53 bits; as a fraction
// below 1 that is (M / 2^53) x 2^e2 with e2 = E - 1022. IBM wants a power
// of 16: e2 = 4h - s with s 0..3, so h = ceil(e2 / 4), which makes the
// biased exponent h + 64 = floor((E + 1) / 4) - 191 and the 56-bit fraction
// M << ((E + 1) mod 4), exact. One range test covers the usual case; zero,
// subnormals (far below 16^-65), infinities and NaN fail it and are sorted
// out after.
inline bool ibm_hex_bits(double v, uint64_t &bits) {
  uint64_t b = double_bits(v);
  unsigned e = static_cast<unsigned>((b >> 52) & 0x7FF);
  unsigned biased = ((e + 1) >> 2) - 191u;  // wraps around below the range
  uint64_t m = (b & 0x000FFFFFFFFFFFFFull) | (uint64_t{1} << 52);
  bits = (b & 0x8000000000000000ull) | (static_cast<uint64_t>(biased & 0x7F) << 56) | (m << ((e + 1) & 3));
  if (biased <= 127u) return true;
  bits = 0;
  if (e == 0x7FF) return (b & 0x000FFFFFFFFFFFFFull) != 0;  // NaN: zero; infinity: out of range
  return ((e + 1) >> 2) < 191u;                              // below the range: zero; above: out
}

}  // namespace xfmt::numeric
