// Byte layouts of the binary number formats: scaled integers, two's
// complement, packed and zoned decimal, VAX D-floating.
#include "numeric/binary_codec.hpp"

#include <cmath>
#include <cstring>

#include "core/missing.hpp"

namespace xfmt::numeric {

namespace {

// 10^0 .. 10^31; up to 10^22 each is exact, above that the nearest double.
constexpr double pow10_doubles[32] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                      1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23,
                                      1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31};

// 2^112 (5.2e33): every scaled magnitude the fields can hold (at most 32
// decimal digits) lies below it, and u128 arithmetic on it never overflows.
constexpr double scaled_limit = 5192296858534827628530496329220096.0;

// The n low decimal digits of m (m below 10^38) into digits[0, n), most
// significant first. One u128 division splits off the low 19 digits; the
// rest runs on 64-bit words, since each u128 % 10 is a library call.
void decimal_digits(u128 m, int n, unsigned char *digits) {
  constexpr uint64_t ten19 = 10000000000000000000ull;
  uint64_t lo = static_cast<uint64_t>(m % ten19);
  uint64_t hi = static_cast<uint64_t>(m / ten19);
  for (int i = n - 1, k = 0; i >= 0; --i, ++k) {
    if (k == 19) lo = hi;
    digits[i] = static_cast<unsigned char>(lo % 10);
    lo /= 10;
  }
}

}  // namespace

double pow10_double(int32_t d) { return d >= 0 && d <= 31 ? pow10_doubles[d] : 1.0; }

scaled_int scale_value(double v, int32_t d) {
  double x = v * pow10_double(d);
  // Below 2^52 the integer part converts exactly and x - t is exact, so
  // the half-away rounding needs no library call (2.5 gives t 2, frac 0.5,
  // 3; -2.5 gives -3).
  if (std::fabs(x) < 4503599627370496.0) {
    int64_t t = static_cast<int64_t>(x);
    double frac = x - static_cast<double>(t);
    if (frac >= 0.5) ++t;
    else if (frac <= -0.5) --t;
    bool negative = t < 0;
    uint64_t m = negative ? 0 - static_cast<uint64_t>(t) : static_cast<uint64_t>(t);
    return {scaled_kind::ok, negative, m};
  }
  if (is_missing(v) || std::isnan(x)) return {scaled_kind::missing, false, 0};
  x = std::round(x);
  bool negative = x < 0;
  double m = negative ? -x : x;
  if (!(m < scaled_limit)) return {negative ? scaled_kind::too_low : scaled_kind::too_high, negative, 0};
  return {scaled_kind::ok, negative, static_cast<u128>(m)};
}

// Up to 8 bytes on a little-endian host: one store of the (byte-swapped
// when big) word instead of a byte loop.
void put_twos(unsigned char *out, int w, u128 x, bool big) {
  if (w <= 8) {
    uint64_t x64 = static_cast<uint64_t>(x);
    if constexpr (!host_big) {
      uint64_t y = big ? __builtin_bswap64(x64 << (64 - 8 * w)) : x64;
      std::memcpy(out, &y, static_cast<size_t>(w));
      return;
    }
    for (int i = 0; i < w; ++i, x64 >>= 8) out[big ? w - 1 - i : i] = static_cast<unsigned char>(x64 & 0xFF);
    return;
  }
  for (int i = 0; i < w; ++i) {
    unsigned char b = static_cast<unsigned char>(x & 0xFF);
    x >>= 8;
    out[big ? w - 1 - i : i] = b;
  }
}

uint64_t get_unsigned(const unsigned char *in, int w, bool big) {
  if constexpr (!host_big) {
    uint64_t x = 0;
    std::memcpy(&x, in, static_cast<size_t>(w));
    return big ? __builtin_bswap64(x) >> (64 - 8 * w) : x;
  }
  uint64_t x = 0;
  for (int i = 0; i < w; ++i) x = (x << 8) | in[big ? i : w - 1 - i];
  return x;
}

u128 all_nines(int n) { return pow10_u128.v[n] - 1; }

bool put_packed(unsigned char *out, int w, u128 magnitude, bool negative) {
  int n = 2 * w - 1;
  if (magnitude > all_nines(n)) return false;
  unsigned char d[32];
  decimal_digits(magnitude, n, d);
  d[n] = negative ? 0xD : 0xC;  // the sign takes the last nibble
  for (int i = 0; i < w; ++i) out[i] = static_cast<unsigned char>((d[2 * i] << 4) | d[2 * i + 1]);
  return true;
}

bool put_packed_unsigned(unsigned char *out, int w, u128 magnitude) {
  int n = 2 * w;
  if (magnitude > all_nines(n)) return false;
  unsigned char d[32];
  decimal_digits(magnitude, n, d);
  for (int i = 0; i < w; ++i) out[i] = static_cast<unsigned char>((d[2 * i] << 4) | d[2 * i + 1]);
  return true;
}

void put_digits(unsigned char *out, int n, u128 m, unsigned char zone) {
  decimal_digits(m, n, out);
  for (int i = 0; i < n; ++i) out[i] = static_cast<unsigned char>(out[i] | zone);
}

const unsigned char ascii_overpunch[2][10] = {{'{', 'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I'},
                                              {'}', 'J', 'K', 'L', 'M', 'N', 'O', 'P', 'Q', 'R'}};

int ascii_overpunch_digit(unsigned char c, bool &negative) {
  negative = false;
  if (c >= '0' && c <= '9') return c - '0';
  if (c == '{') return 0;
  if (c >= 'A' && c <= 'I') return c - 'A' + 1;
  negative = true;
  if (c == '}') return 0;
  if (c >= 'J' && c <= 'R') return c - 'J' + 1;
  negative = false;
  return -1;
}

bool put_zoned(unsigned char *out, int w, u128 magnitude, bool negative) {
  if (magnitude > all_nines(w)) return false;
  decimal_digits(magnitude, w, out);
  for (int i = 0; i < w - 1; ++i) out[i] = static_cast<unsigned char>(out[i] | 0xF0u);
  out[w - 1] = static_cast<unsigned char>(out[w - 1] | (negative ? 0xD0u : 0xC0u));
  return true;
}

// D-floating: sign bit 63, excess-128 exponent in bits 62-55, 55 fraction
// bits after a hidden leading 1, value 0.1f x 2^(e - 128). A normal double
// 1.f x 2^(E - 1023) is 0.1f x 2^(E - 1022), so e = E - 894 and the 52
// fraction bits move up by 3 without rounding. e must be 1..255: doubles
// from 2^-128 up to just below 2^127 (1.7e38).
bool vax_d_bits(double v, unsigned char out[8]) {
  std::memset(out, 0, 8);
  uint64_t b = double_bits(v);
  int64_t e = static_cast<int64_t>((b >> 52) & 0x7FF);
  if (e == 0x7FF) return false;  // infinity (NaN is sorted out by the caller)
  if (e == 0) return true;       // zero and subnormals: far below the range
  int64_t vax_e = e - 894;
  if (vax_e > 255) return false;
  if (vax_e < 1) return true;
  uint64_t word = (b & 0x8000000000000000ull) | (static_cast<uint64_t>(vax_e) << 55) |
                  ((b & 0x000FFFFFFFFFFFFFull) << 3);
  for (int i = 0; i < 4; ++i) {
    uint64_t w16 = (word >> (48 - 16 * i)) & 0xFFFF;
    out[2 * i] = static_cast<unsigned char>(w16 & 0xFF);
    out[2 * i + 1] = static_cast<unsigned char>(w16 >> 8);
  }
  return true;
}

bool vax_d_value(const unsigned char in[8], double &v) {
  uint64_t word = 0;
  for (int i = 0; i < 4; ++i) word = (word << 16) | static_cast<uint64_t>(in[2 * i] | (in[2 * i + 1] << 8));
  bool negative = (word >> 63) != 0;
  int e = static_cast<int>((word >> 55) & 0xFF);
  if (e == 0) {
    v = 0;
    return !negative;  // sign with exponent 0 is the reserved operand
  }
  uint64_t fraction = (word & ((uint64_t{1} << 55) - 1)) | (uint64_t{1} << 55);
  v = std::ldexp(static_cast<double>(fraction), e - 128 - 56);
  if (negative) v = -v;
  return true;
}

namespace {

// 2^k as a double for k inside the normal range.
double pow2(int k) { return bits_double(static_cast<uint64_t>(1023 + k) << 52); }

}  // namespace

double ibm_hex_value(uint64_t bits) {
  uint64_t fraction = bits & 0x00FFFFFFFFFFFFFFull;
  int h = static_cast<int>((bits >> 56) & 0x7F) - 64;
  // Below 2^56, so the signed conversion (one instruction) serves; the sign
  // bit is copied over rather than branched on, as signs come in any order.
  double v = static_cast<double>(static_cast<int64_t>(fraction)) * pow2(4 * h - 56);
  return bits_double(double_bits(v) | (bits & 0x8000000000000000ull));
}

uint64_t xport_missing_bits(uint64_t missing) {
  char symbol = missing_symbol(missing);
  unsigned char code = symbol == '_' || (symbol >= 'A' && symbol <= 'Z') ? static_cast<unsigned char>(symbol) : '.';
  return static_cast<uint64_t>(code) << 56;
}

double xport_float_value(const unsigned char *in, int w) {
  uint64_t top = get_unsigned(in, w, true) << (64 - 8 * w);
  unsigned char code = static_cast<unsigned char>(top >> 56);
  if ((top << 8) == 0) {
    if (code == '.') return missing_ordinary();
    if (code == '_') return missing_value(0);
    if (code >= 'A' && code <= 'Z') return missing_value(code - 'A' + 2);
  }
  return ibm_hex_value(top);
}

// MBF exponent e stands for 0.1f x 2^(e - 128); a double's (M / 2^53) x
// 2^(E - 1022) has e = E - 894, as for VAX. Single precision keeps 24 bits
// of M, rounded to nearest, ties to even; a carry out moves e up.
bool mbf_bytes(double v, bool is_double, unsigned char out[8]) {
  std::memset(out, 0, 8);
  uint64_t b = double_bits(v);
  int n = is_double ? 7 : 3;
  int e = static_cast<int>((b >> 52) & 0x7FF);
  bool fits = e != 0x7FF;
  if (e == 0) return true;
  uint64_t m = (b & 0x000FFFFFFFFFFFFFull) | (uint64_t{1} << 52);
  e -= 894;
  uint64_t fraction = m << 3;
  if (!is_double) {
    uint64_t kept = m >> 29, rest = m & ((uint64_t{1} << 29) - 1), half = uint64_t{1} << 28;
    if (rest > half || (rest == half && (kept & 1))) ++kept;
    if (kept >> 24) {
      kept >>= 1;
      ++e;
    }
    fraction = kept;
  }
  if (!fits || e > 255) {
    e = 255;
    fraction = ~uint64_t{0};
    fits = false;
  }
  if (e < 1) return true;
  for (int i = 0; i < n; ++i, fraction >>= 8) out[i] = static_cast<unsigned char>(fraction & 0xFF);
  out[n - 1] = static_cast<unsigned char>((out[n - 1] & 0x7F) | ((b >> 56) & 0x80));
  out[n] = static_cast<unsigned char>(e);
  return fits;
}

double mbf_value(const unsigned char *in, bool is_double) {
  int n = is_double ? 7 : 3;
  int e = in[n];
  if (e == 0) return 0;
  uint64_t fraction = 0;
  for (int i = n - 1; i >= 0; --i) fraction = (fraction << 8) | in[i];
  fraction |= uint64_t{1} << (8 * n - 1);
  double v = static_cast<double>(fraction) * pow2(e - 128 - 8 * n);
  return (in[n - 1] & 0x80) ? -v : v;
}

}  // namespace xfmt::numeric
