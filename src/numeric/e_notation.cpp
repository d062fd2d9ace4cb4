// E notation: fmte and the layout behind it (d.dddE+xx, three exponent digits
// from 100 on). Used by E, by BEST for values too large or too small for the
// fixed layout, and by F when the integral digits overflow the width.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "numeric/digits.hpp"
#include "numeric/engine.hpp"

namespace xfmt::numeric {
namespace {

// 10^i for i = 0..27, each exact in long double (5^27 < 2^63).
struct pow10l_table {
  long double v[28];
};
constexpr pow10l_table make_pow10l() {
  pow10l_table t{};
  long double p = 1;
  for (int i = 0; i < 28; ++i) {
    t.v[i] = p;
    p *= 10;
  }
  return t;
}
constexpr pow10l_table pow10l = make_pow10l();

// 10^i for i = 0..22, each exact in a double (5^22 < 2^53).
struct pow10d_table {
  double v[23];
};
constexpr pow10d_table make_pow10d() {
  pow10d_table t{};
  double p = 1;
  for (int i = 0; i < 23; ++i) {
    t.v[i] = p;
    p *= 10;
  }
  return t;
}
constexpr pow10d_table pow10d = make_pow10d();

// m * 10^-e. Within 10^+-22 one correctly rounded double operation by an
// exact power; beyond, long double steps of exact powers (at most 12
// roundings of 2^-64 each) and one rounding to double.
double scale_by_pow10(double m, int e) {
  if (e >= 0 && e <= 22) return m / pow10d.v[e];
  if (e < 0 && e >= -22) return m * pow10d.v[-e];
  long double x = m;
  if (e > 0) {
    while (e > 27) {
      x /= pow10l.v[27];
      e -= 27;
    }
    x /= pow10l.v[e];
  } else {
    e = -e;
    while (e > 27) {
      x *= pow10l.v[27];
      e -= 27;
    }
    x *= pow10l.v[e];
  }
  return static_cast<double>(x);
}

// Mantissa digits kept when the mantissa text has mw positions: one digit,
// or a digit, the point and mw - 2 more.
int digits_for(int mw) { return mw >= 3 ? mw - 1 : 1; }

}  // namespace

double decimal_mantissa(double m, int &e10) {
  uint64_t bits;
  std::memcpy(&bits, &m, sizeof bits);
  int e2 = static_cast<int>((bits >> 52) & 0x7FF) - 1022;  // m = f * 2^e2, f in [0.5, 1)
  if (e2 == -1022) std::frexp(m, &e2);                       // subnormal
  int e = e2 * 77;
  e = e >= 0 ? e / 256 : -((-e + 255) / 256);  // toward minus infinity
  if (e > 308) e = 308;
  double mant = scale_by_pow10(m, e);
  while (mant >= 1.0) {
    mant /= 10;
    ++e;
  }
  while (mant < 0.1) {
    mant *= 10;
    --e;
  }
  e10 = e;
  return mant;
}

int e_layout(double m, int room, int code, char *out) {
  if (room < 1) return -1;
  // Step 1: mantissa in [0.1, 1) and the exponent x of the shown d.ddd form.
  double mant = 0;
  int x = 0;
  if (m != 0) {
    int e10;
    mant = decimal_mantissa(m, e10);
    x = e10 - 1;
  }
  auto exp_digits = [](int e) { return e >= 100 || e <= -100 ? 3 : 2; };
  int mw = room - 2 - exp_digits(x);  // positions for the mantissa text
  if (mw < 1) return -1;

  // Step 2: digits kept. code 99 (best): all that fit; -k: k decimals.
  // A code of any magnitude asks for at most the digits that fit; it is
  // compared before it is negated so that INT32_MIN stays defined.
  bool best = code > 31;
  int k = best || code < -digits_for(mw) ? digits_for(mw) : (code < 0 ? -code : code) + 1;
  if (k > digits_for(mw)) k = digits_for(mw);

  // Step 3: round at the k-th digit (only within 15 digits), nudge, carry.
  if (m != 0) {
    if (k < 15) mant += zpowten[k];
    mant *= e_nudge;
    if (mant >= 1.0) {
      ++x;
      mant *= e_carry;
      mw = room - 2 - exp_digits(x);
      if (mw < 1) return -1;
      if (k > digits_for(mw)) k = digits_for(mw);  // the digits dropped are zeros
    }
  }

  // Step 4: the digits, at most 15 real ones, the rest zeros; under the
  // best code trailing zeros go (the zeros past the 15th with them).
  int real = k < 15 ? k : 15;
  uint64_t digits = static_cast<uint64_t>(scaled_fraction(mant, real));
  int kept = k;
  if (best) {
    kept = real;
    while (kept > 1 && digits % 10 == 0) {
      digits /= 10;
      --kept;
    }
  }
  int shown = kept < real ? kept : real;  // real digits written
  int xd = exp_digits(x);
  int len = (kept > 1 ? kept + 1 : 1) + 2 + xd;

  // Step 5: written in place, right-justified: "d.ddd" then "E+xx".
  core::put_blanks(out, room - len);
  char *p = out + room - len;
  put_digits(p + 1 + shown, digits, shown);  // at p+1 .. p+shown
  p[0] = p[1];
  char *q = p + 1;
  if (kept > 1) {
    *q++ = '.';
    q += shown - 1;
    if (kept > shown) {
      std::memset(q, '0', static_cast<size_t>(kept - shown));
      q += kept - shown;
    }
  }
  *q++ = 'E';
  *q++ = x < 0 ? '-' : '+';
  put_digits(q + xd, static_cast<uint64_t>(x < 0 ? -x : x), xd);
  return len;
}

}  // namespace xfmt::numeric

extern "C" XF_API int32_t fmte(double magnitude, int32_t width, int32_t decimals, char *out,
                               uint32_t capacity) {
  if (out == nullptr || width < 1 || width > 64 || static_cast<uint32_t>(width) > capacity ||
      !std::isfinite(magnitude))
    return -1;
  return xfmt::numeric::e_layout(std::fabs(magnitude), width, decimals, out);
}
