// The plain-number printer: zfmt (format F, and the engine behind BEST, E, D,
// Z and the punctuated formats), its second entry name zfmn, and the table of
// rounding addends zpowten.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/digits.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"

// zpowten[d] = 0.5 * 10^-d: added before truncating to d decimals.
extern "C" XF_API const double zpowten[32] = {
    0.5,   0.05,  0.005, 5e-4,  5e-5,  5e-6,  5e-7,  5e-8,  5e-9,  5e-10, 5e-11,
    5e-12, 5e-13, 5e-14, 5e-15, 5e-16, 5e-17, 5e-18, 5e-19, 5e-20, 5e-21, 5e-22,
    5e-23, 5e-24, 5e-25, 5e-26, 5e-27, 5e-28, 5e-29, 5e-30, 5e-31, 5e-32};

namespace xfmt::numeric {

int decimal_estimate(double m) {
  uint64_t bits = double_bits(m);
  int biased = static_cast<int>((bits >> 52) & 0x7FF);
  int e2;
  if (biased != 0) {
    e2 = biased - 1022;  // m = f * 2^e2 with f in [0.5, 1)
  } else {
    if (m == 0) return 0;
    std::frexp(m, &e2);  // subnormal
  }
  return e2 * 77 / 256;  // C++ division truncates toward zero
}

namespace {

constexpr double two_pow_53 = 9007199254740992.0;

// m == trunc(m) from the bits alone (no libm call, no conversion round
// trip): the mantissa bits below the binary point must be zero. Every double
// from 2^52 on is integral; below 1 only zero is.
inline bool is_integral(double m) {
  uint64_t bits = double_bits(m);
  int e = static_cast<int>((bits >> 52) & 0x7FF) - 1023;  // m in [2^e, 2^(e+1))
  if (e >= 52) return true;
  if (e < 0) return (bits << 1) == 0;
  return (bits & ((uint64_t{1} << (52 - e)) - 1)) == 0;
}

inline void fill_blanks(char *buf, int32_t w) { core::put_blanks(buf, w); }

xf_status stars(char *buf, int32_t w) {
  std::memset(buf, '*', static_cast<size_t>(w));
  return XF_E_OVERFLOW;
}

// Integral value of at most 2^53 in w <= 16 positions: digits and a floating
// minus sign, no floating-point digit generation. False when it does not fit.
bool layout_integer(uint64_t v, bool neg, int32_t w, char *buf) {
  int n = digit_count(v);
  int need = n + (neg ? 1 : 0);
  if (need > w) return false;
  core::put_blanks(buf, w - need);
  put_digits(buf + w, v, n);
  if (neg) buf[w - n - 1] = '-';
  return true;
}

// E notation of the magnitude in the last `room` positions, a minus sign
// just before it; stars when even that does not fit.
xf_status layout_e(double m, bool neg, int32_t w, int room, int code, char *buf) {
  fill_blanks(buf, w);
  if (room < 1) return stars(buf, w);
  int len = e_layout(m, room, code, buf + (w - room));
  if (len < 0) return stars(buf, w);
  if (neg) buf[w - len - 1] = '-';
  return XF_OK;
}

// m rounded for dd decimals: the addend only while the digit it rounds at is
// among the first 15 significant ones.
double round_for(double m, int dd, int e10) {
  if (dd <= 15 - e10) return (m + zpowten[dd]) * rounding_nudge;
  return m * rounding_nudge;
}

// Writes the dd fraction digits of r after the point at p: the exact digits
// of r's fraction, truncated (the rounding addend is already in r), but never
// more than 15 significant digits in all; the rest are zeros. n is the count
// of integral digits (0 when the integral part is zero).
void put_fraction(char *p, double r, double ip, int n, int dd) {
  if (n >= 15) {
    std::memset(p, '0', static_cast<size_t>(dd));
    return;
  }
  double frac = r - ip;  // exact: the low bits of r
  int k;
  u128 digits;
  if (n > 0) {
    k = dd < 15 - n ? dd : 15 - n;
    digits = scaled_fraction(frac, k);
  } else {
    // Leading zeros of a pure fraction are not significant: 0.000123 keeps
    // 15 digits from the 1 on.
    digits = scaled_fraction(frac, dd);
    int lz = digits == 0 ? dd : dd - digit_count(digits);
    k = dd < 15 + lz ? dd : 15 + lz;
    if (k < dd) digits /= pow10_u128.v[dd - k];
  }
  if (static_cast<uint64_t>(digits >> 64) == 0)
    put_digits(p + k, static_cast<uint64_t>(digits), k);
  else
    put_digits(p + k, digits, k);
  if (k < dd) std::memset(p + k, '0', static_cast<size_t>(dd - k));
}

// Under the best code: drops trailing fraction zeros (and a point left bare)
// and moves the text [start, w) right so that it still ends at position w.
// Only called when the text has a point, which stops the scan.
void strip_best(char *buf, int32_t w, int start) {
  int end = w;
  while (buf[end - 1] == '0') --end;
  if (buf[end - 1] == '.') --end;
  int shift = w - end;
  if (shift == 0) return;
  std::memmove(buf + start + shift, buf + start, static_cast<size_t>(end - start));
  core::put_blanks(buf + start, shift);
}

}  // namespace

xf_status layout_number(double v, int32_t w, int32_t d, char *buf) {
  if (!std::isfinite(v)) return stars(buf, w);  // an infinity or a non-missing NaN

  // Step 1: sign. One position is kept for "-"; it floats against the digits.
  bool neg = v < 0;
  double m = neg ? -v : v;
  int a = neg ? w - 1 : w;
  bool integral = is_integral(m);

  // Step 2: integers in at most 16 positions skip floating-point digits.
  if ((d == 0 || d == 99) && integral && m <= two_pow_53 && w <= 16 &&
      layout_integer(static_cast<uint64_t>(m), neg, w, buf))
    return XF_OK;

  // Step 3: decimals codes. 98 and 80-89 ask for significant digits; -999
  // (from E) becomes the decimals implied by the width: E12. keeps 5.
  int wd = d;
  if (d == 98) wd = significant_decimals(m, a, 3);
  else if (d >= 80 && d <= 89) wd = significant_decimals(m, a, d - 80);
  if (wd == -999) wd = 7 - w < 0 ? 7 - w : -1;

  fill_blanks(buf, w);
  int e10 = decimal_estimate(m);
  if (wd < 0 && a > 4) return layout_e(m, neg, w, a, wd, buf);

  // Step 4: working decimals; the best code shows as many digits as fit.
  bool best = wd < 0 || wd > 32;
  int dd = wd <= 32 ? (wd < 0 ? 99 : wd) : (m == 0 ? 0 : 99);
  if (e10 < 1 && dd > 32) {
    // Magnitudes below about 8: fixed with all but the "0." as decimals,
    // unless the value is so small that E notation says more.
    bool fixed = true;
    if (a >= 3) {
      int k = (e10 < -99) + (e10 < -9);
      fixed = (k == 0 || a <= k + 3) && (a < 5 || (m >= 1e-05 && e10 + a > 2));
    }
    if (!fixed) return layout_e(m, neg, w, a, 99, buf);
    dd = a - 2 < 2 ? a - 1 : a - 2;
    if (dd < 0) dd = 0;
  } else if (!(e10 <= a && e10 != 32)) {
    return layout_e(m, neg, w, a, 99, buf);
  }

  // Step 5: a negative value in one position shows 0 when it rounds to 0.
  if (a == 0 && m < 0.5) {
    neg = false;
    a = 1;
    dd = 0;
  }

  // Step 6: room for the integral digits; give up decimals when the
  // estimate says they do not fit (status 2, except under the best code).
  xf_status status = XF_OK;
  int e10c = e10 > 0 ? e10 : 0;
  int iw = a - dd - (dd > 0 ? 1 : 0);
  if (iw < e10c) {
    dd = e10c == a ? 0 : a - e10c - 1;
    iw = a - dd - (dd > 0 ? 1 : 0);
    if (!best) status = XF_REDUCED;
  }

  // Step 7: round. The integral digits are those of floor(r): F4.1 of 3.5
  // is r = 3.55.., digits "3" and ".5"; F5.2 of 9.999 is r = 10.004.., "10.00".
  // Both candidates are computed and one is picked: integral and fractional
  // values alternate unpredictably in a column.
  double rounded = round_for(m, dd, e10);
  double r = integral ? m : rounded;
  if (integral && best) {
    dd = 0;
    iw = a;
  }
  u128 ip = 0;
  int n = 0;
  for (int attempt = 0;; ++attempt) {
    n = integer_part(r, ip) ? (ip == 0 ? 0 : digit_count(ip)) : max_field + 1;
    if (n <= iw) break;
    // Rounding carried into a new digit (F5.1 of 999.96 is 1000.0): one
    // decimal fewer, once; then E notation.
    if (dd == 0 || attempt == 1) return layout_e(m, neg, w, a, 99, buf);
    --dd;
    iw = a - dd - (dd > 0 ? 1 : 0);
    r = integral ? m : round_for(m, dd, e10);
    if (!best) status = XF_REDUCED;
  }

  // Step 8: write. The layout occupies the last a positions.
  char *base = buf + (w - a);
  int start = iw - n;
  if (n == 0) {
    if (iw > 0) base[--start] = '0';
  } else if (static_cast<uint64_t>(ip >> 64) == 0) {
    put_digits(base + iw, static_cast<uint64_t>(ip), n);
  } else {
    put_digits(base + iw, ip, n);
  }
  // The position before the text is a blank unless the sign goes there.
  int before = static_cast<int>(base - buf) + start - 1;
  if (before >= 0) buf[before] = neg ? '-' : ' ';
  start -= neg ? 1 : 0;
  if (dd > 0) {
    base[iw] = '.';
    // floor(r) as a double is only needed below 15 digits, where ip is exact.
    double ipd = n < 15 ? static_cast<double>(static_cast<uint64_t>(ip)) : 0.0;
    put_fraction(base + iw + 1, r, ipd, n, dd);
  }
  if (best && dd > 0) strip_best(buf, w, static_cast<int>(base - buf) + start);
  return status;
}

xf_status deliver_field(xf_frame *f, const char *buf, int32_t w, xf_status status) {
  uint32_t n = field_room(f, w);
  if (n) std::memcpy(f->output, buf, n);
  f->output_length = n;
  if (n < static_cast<uint32_t>(w) && (status == XF_OK || status == XF_REDUCED)) return XF_E_CAPACITY;
  return status;
}

}  // namespace xfmt::numeric

using namespace xfmt;

XF_ROUTINE(zfmt, f) {
  int32_t w = f->width;
  if (w < 1) return XF_E_OVERFLOW;  // nothing written, output length untouched
  if (w > numeric::max_field) {
    f->width = numeric::max_field;
    return fail_stars(f, numeric::max_field, XF_E_OVERFLOW);
  }
  double v = frame_value(f);
  if (is_missing(v)) {
    int32_t d = f->decimals;
    return write_missing(f, w, d < 0 || d >= w ? 99 : d);
  }
  // Straight into the caller's buffer when the field fits it; a local field
  // cut to the capacity otherwise.
  if (f->output_capacity >= static_cast<uint32_t>(w)) {
    xf_status status = numeric::layout_number(v, w, f->decimals, frame_out(f));
    f->output_length = static_cast<uint32_t>(w);
    return status;
  }
  char buf[numeric::max_field];
  xf_status status = numeric::layout_number(v, w, f->decimals, buf);
  return numeric::deliver_field(f, buf, w, status);
}

XF_ROUTINE(zfmn, f) { return zfmt(f); }
