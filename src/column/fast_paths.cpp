// Column fast paths for F w.d and @F. They follow the routines' own rules
// step for step on the cases they accept:
//   F: r = (m + 0.5 * 10^-d) * (1 + 2^-52), then the digits of floor(r * 10^d)
//      computed exactly (the routine prints the exact digits of r's
//      fraction, truncated);
//   @F: the nearest double to the decimal text, which for a mantissa of at
//      most 2^53 and at most 22 decimals is one IEEE division.
#include "column/fast_paths.hpp"

#include <cstring>

#include "core/missing.hpp"
#include "core/bounded_text.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::column {
namespace {

__extension__ using u128 = unsigned __int128;

constexpr double pow10_exact[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr double rounding_nudge = 1.0000000000000002;  // as the routine: one ulp above 1

}  // namespace

bool fixed_fast(double v, int32_t w, int32_t d, char *out) {
  if (w < 2 || w > 32 || d < 1 || d > 9) return false;
  uint64_t bits = double_bits(v) & ~(uint64_t{1} << 63);
  int biased = static_cast<int>(bits >> 52);
  if (biased == 0x7FF || (biased == 0 && bits != 0)) return false;  // NaN, infinity, missing, subnormal
  const bool neg = v < 0;
  const double m = neg ? -v : v;
  const int a = neg ? w - 1 : w;

  // The routine's decimal estimate and its test for whole numbers.
  int e10 = 0;
  bool integral = true;
  if (bits != 0) {
    e10 = (biased - 1022) * 77 / 256;
    int e = biased - 1023;
    integral = e >= 52 || (e >= 0 && (bits & ((uint64_t{1} << (52 - e)) - 1)) == 0);
  }
  const int iw = a - d - 1;  // positions for the integral digits
  if (iw < (e10 > 0 ? e10 : 0)) return false;  // the routine would give up decimals
  if (!integral && d > 15 - e10) return false;

  const double r = integral ? m : (m + zpowten[d]) * rounding_nudge;
  uint64_t total = 0;  // floor(r * 10^d), exact
  if (r != 0) {
    uint64_t rb = double_bits(r);
    int shift = 1075 - static_cast<int>(rb >> 52);  // r = mantissa / 2^shift
    if (shift <= 0 || shift >= 128) return false;
    u128 mantissa = (rb & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    u128 t = (mantissa * core::powers_of_ten.v[d]) >> shift;
    if (static_cast<uint64_t>(t >> 64) != 0) return false;
    total = static_cast<uint64_t>(t);
  }
  // The d fraction digits come first (constant divisors compile to
  // multiplications); what is left is the integral part.
  char frac_digits[9];
  const uint64_t ip = core::put_digits(frac_digits + d, total, d);
  const int n = ip == 0 ? 0 : core::digit_count(ip);
  if (n + d > 15 || n > iw) return false;

  // Layout: blanks, the sign against the digits, integral digits ending at
  // position iw of the last a positions, the point, d fraction digits.
  std::memset(out, ' ', static_cast<size_t>(w));
  char *base = out + (w - a);
  int start = iw - n;
  if (n == 0) {
    if (iw > 0) base[--start] = '0';
  } else {
    core::put_digits(base + iw, ip, n);
  }
  if (neg) out[(w - a) + start - 1] = '-';
  base[iw] = '.';
  std::memcpy(base + iw + 1, frac_digits, static_cast<size_t>(d));
  return true;
}

bool plain_number_fast(const unsigned char *text, size_t n, int32_t implied, double &out) {
  const unsigned char *p = text, *end = text + n;
  while (p < end && *p == ' ') ++p;
  const bool neg = p < end && *p == '-';
  p += neg ? 1 : 0;
  // Integral digits, then the fraction digits: two tight loops.
  const unsigned char *first = p;
  uint64_t mantissa = 0;
  while (p < end && static_cast<unsigned char>(*p - '0') < 10) mantissa = mantissa * 10 + (*p++ - '0');
  const unsigned char *integral_end = p;
  int decimals = implied;
  if (p < end && *p == '.') {
    const unsigned char *f = ++p;
    while (p < end && static_cast<unsigned char>(*p - '0') < 10) mantissa = mantissa * 10 + (*p++ - '0');
    decimals = static_cast<int>(p - f);
  }
  // Digits read, the point excluded: at most 19 keeps the mantissa exact.
  const ptrdiff_t digits = (p - first) - (p != integral_end ? 1 : 0);
  if (digits <= 0 || digits > 19) return false;
  while (p < end && *p == ' ') ++p;
  if (p != end || decimals < 0 || decimals > 22 || mantissa > (uint64_t{1} << 53)) return false;
  if (mantissa == 0) {
    out = 0.0;  // "-0" reads +0
    return true;
  }
  double q = static_cast<double>(mantissa) / pow10_exact[decimals];
  out = neg ? -q : q;
  return true;
}

}  // namespace xfmt::column
