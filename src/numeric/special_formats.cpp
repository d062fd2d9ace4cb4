// Numbers in the shapes of particular trades: ROMAN, SSN, ODDSR, PVALUE,
// LOGPROB, NUMX and the byte sizes SIZEK, SIZEKB and SIZEKMG. The plain
// digits come from the F layout (layout_number); these routines only bound,
// scale and decorate them. All of them: w < 1 writes nothing and returns
// XF_E_OVERFLOW, as F does; a missing value is the standard display; a value
// the format cannot show is a field of '*' with XF_E_OVERFLOW.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"
#include "core/bounded_text.hpp"

namespace xfmt::numeric {
namespace {

constexpr int text_max = 64;

// Right-justifies text (n bytes, n <= w <= text_max) in the w-wide field and
// hands it to the frame.
xf_status deliver_text(xf_frame *f, const char *text, int n, int32_t w, xf_status status) {
  char buf[text_max];
  std::memset(buf, ' ', static_cast<size_t>(w - n));
  std::memcpy(buf + (w - n), text, static_cast<size_t>(n));
  return deliver_field(f, buf, w, status);
}

// 10^-d for d = 0..31 (zpowten holds half of it; doubling is exact).
double tenth_power(int32_t d) { return 2.0 * zpowten[d < 0 ? 0 : (d > 31 ? 31 : d)]; }

// "<.001" for d = 3, "<.1" for d = 1, "<1" for d <= 0: the least value the
// d decimals can show, with a "<" before it. Returns the length.
int below_text(int32_t d, char *out) {
  int n = 0;
  out[n++] = '<';
  if (d <= 0) {
    out[n++] = '1';
    return n;
  }
  out[n++] = '.';
  for (int32_t i = 1; i < d; ++i) out[n++] = '0';
  out[n++] = '1';
  return n;
}

// The F layout of v in w - suffix positions, then the suffix: "12.5KB".
xf_status number_with_suffix(xf_frame *f, double v, const char *suffix) {
  int32_t w = f->width;
  int32_t d = f->decimals;
  int sl = static_cast<int>(std::strlen(suffix));
  int32_t nw = w - sl;
  if (nw < 1 || nw > max_field) return fail_stars(f, w, XF_E_OVERFLOW);
  char buf[text_max];
  xf_status st = layout_number(v, nw, d, buf);
  if (st == XF_E_OVERFLOW) return fail_stars(f, w, XF_E_OVERFLOW);
  std::memcpy(buf + nw, suffix, static_cast<size_t>(sl));
  return deliver_field(f, buf, w, st);
}

// Checks shared by every routine of this file: returns true when the frame
// is settled (status in st), false when v is to be formatted.
bool settled(xf_frame *f, int32_t max_w, int32_t missing_d, double &v, xf_status &st) {
  int32_t w = f->width;
  if (w < 1) {
    st = XF_E_OVERFLOW;
    return true;
  }
  if (w > max_w) {
    st = fail_stars(f, w, XF_E_OVERFLOW);
    return true;
  }
  v = frame_value(f);
  if (is_missing(v)) {
    st = write_missing(f, w, missing_d < 0 || missing_d >= w ? 0 : missing_d);
    return true;
  }
  return false;
}

struct roman_step {
  int value;
  const char *text;
};
constexpr roman_step roman_steps[] = {{1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"},
                                      {90, "XC"},  {50, "L"},   {40, "XL"},  {10, "X"},   {9, "IX"},
                                      {5, "V"},    {4, "IV"},   {1, "I"}};

}  // namespace
}  // namespace xfmt::numeric

using namespace xfmt;
using namespace xfmt::numeric;

// ROMAN w: the integral part (truncated) in upper-case Roman numerals,
// right-justified: 1999 -> MCMXCIX, 3888 -> MMMDCCCLXXXVIII (15 letters).
// Values whose integral part is outside 1..3999 have no numeral: '*'.
XF_ROUTINE(zfmroman, f) {
  double v;
  xf_status st;
  if (settled(f, 32, 0, v, st)) return st;
  int32_t w = f->width;
  if (!(v >= 1.0 && v < 4000.0)) return fail_stars(f, w, XF_E_OVERFLOW);
  int n = static_cast<int>(v);
  char text[text_max];
  int len = 0;
  for (const roman_step &s : roman_steps) {
    int sl = static_cast<int>(std::strlen(s.text));
    while (n >= s.value) {
      std::memcpy(text + len, s.text, static_cast<size_t>(sl));
      len += sl;
      n -= s.value;
    }
  }
  if (len > w) return fail_stars(f, w, XF_E_OVERFLOW);
  return deliver_text(f, text, len, w, XF_OK);
}

// SSN 11: the integral part (truncated) as 999-99-9999 with leading zeros.
// Negative values and values of ten digits or more: '*'.
XF_ROUTINE(zfmssn, f) {
  double v;
  xf_status st;
  if (settled(f, 32, 0, v, st)) return st;
  int32_t w = f->width;
  if (!(v >= 0.0 && v < 1e9) || w < 11) return fail_stars(f, w, XF_E_OVERFLOW);
  auto n = static_cast<int64_t>(v);
  char text[11];
  write_int_zero(text, 3, n / 1000000);
  text[3] = '-';
  write_int_zero(text + 4, 2, n / 10000 % 100);
  text[6] = '-';
  write_int_zero(text + 7, 4, n % 10000);
  return deliver_text(f, text, 11, w, XF_OK);
}

// ODDSR w.d: an odds ratio as F w.d, bounded on both sides by what d
// decimals can show: below 10^-d "<.001" (d = 3), from 1000 on ">999.999".
// A negative ratio does not exist: '*'.
XF_ROUTINE(zfmoddsr, f) {
  double v;
  xf_status st;
  if (settled(f, 32, f->decimals, v, st)) return st;
  int32_t w = f->width;
  int32_t d = f->decimals < 0 ? 0 : (f->decimals > 31 ? 31 : f->decimals);
  if (!(v >= 0.0)) return fail_stars(f, w, XF_E_OVERFLOW);
  char text[text_max];
  int len = -1;
  if (v < tenth_power(d)) {
    len = below_text(d, text);
  } else if (v >= 1000.0) {
    len = 0;
    text[len++] = '>';
    for (int i = 0; i < 3; ++i) text[len++] = '9';
    if (d > 0) text[len++] = '.';
    for (int32_t i = 0; i < d; ++i) text[len++] = '9';
  }
  if (len >= 0) {
    if (len > w) return fail_stars(f, w, XF_E_OVERFLOW);
    return deliver_text(f, text, len, w, XF_OK);
  }
  char buf[text_max];
  st = layout_number(v, w, d, buf);
  return deliver_field(f, buf, w, st);
}

// PVALUE w.d: a probability as F w.d ("0.0500"), and "<.0001" (d = 4) for
// values below 10^-d, which F would show as zero. Negative values are not
// probabilities: '*'.
XF_ROUTINE(zfmpval, f) {
  double v;
  xf_status st;
  if (settled(f, 32, f->decimals, v, st)) return st;
  int32_t w = f->width;
  int32_t d = f->decimals < 0 ? 0 : (f->decimals > 31 ? 31 : f->decimals);
  if (!(v >= 0.0)) return fail_stars(f, w, XF_E_OVERFLOW);
  if (v < tenth_power(d)) {
    char text[text_max];
    int len = below_text(d, text);
    if (len > w) return fail_stars(f, w, XF_E_OVERFLOW);
    return deliver_text(f, text, len, w, XF_OK);
  }
  char buf[text_max];
  st = layout_number(v, w, d, buf);
  return deliver_field(f, buf, w, st);
}

// LOGPROB w.: the value is -log10 of a probability p; the field shows p.
// p from 10^-(w-2) up to 1 shows as F w.(w-2) (LOGPROB5. of 1.30103:
// "0.050"); smaller p, which may be far below the double range, shows as
// mantissa and exponent "5.0E-13", "1E-400", with as many mantissa decimals
// as fit. Negative values (p above 1) and infinities: '*'.
XF_ROUTINE(zfmlogp, f) {
  double v;
  xf_status st;
  if (settled(f, 32, 0, v, st)) return st;
  int32_t w = f->width;
  if (!(v >= 0.0) || !std::isfinite(v) || v >= 1e15) return fail_stars(f, w, XF_E_OVERFLOW);
  int32_t d = w - 2;
  if (d >= 1 && v <= static_cast<double>(d)) {
    double p = std::pow(10.0, -v);
    if (p >= tenth_power(d)) {
      char buf[text_max];
      st = layout_number(p, w, d, buf);
      return deliver_field(f, buf, w, st);
    }
  }
  // p = m * 10^-e with m in [1, 10): e = ceil(v), m = 10^(e - v). The
  // mantissa shows k decimals; one that rounds up to 10 is 1 of the next
  // power: v = 4.0001 at k = 1 gives m = 9.9977 -> "1.0E-4", not "10.0E-5".
  auto exponent = static_cast<int64_t>(std::ceil(v));
  double m = std::pow(10.0, static_cast<double>(exponent) - v);
  const int el = core::digit_count(static_cast<uint64_t>(exponent));
  int room = w - 2 - el;  // positions of the mantissa
  if (room < 1) return fail_stars(f, w, XF_E_OVERFLOW);
  int k = room >= 3 ? room - 2 : 0;  // mantissa decimals
  if (k > 15) k = 15;
  int64_t scale = 1;
  for (int i = 0; i < k; ++i) scale *= 10;
  auto digits = static_cast<int64_t>(std::llround(m * static_cast<double>(scale)));
  if (digits >= 10 * scale) {
    digits = scale;
    --exponent;
  } else if (digits < scale) {
    digits = scale;  // m a hair below 1 from the rounding of pow
  }
  char text[text_max];
  core::bounded_text t(text);
  // One digit before the point, k after it.
  t.put_decimal(static_cast<uint64_t>(digits / scale), static_cast<uint64_t>(digits % scale), k);
  if (exponent > 0) {
    // 10^0 (p rounded to 1, only at widths without room for F) has no exponent.
    t.put("E-");
    t.put_unsigned(static_cast<uint64_t>(exponent));
  }
  const auto len = static_cast<int32_t>(t.length());
  if (len > w) return fail_stars(f, w, XF_E_OVERFLOW);
  return deliver_text(f, text, len, w, XF_OK);
}

// NUMX w.d: F w.d with a comma as the decimal mark: 1234.5 -> "1234,50".
XF_ROUTINE(zfmnumx, f) {
  double v;
  xf_status st;
  if (settled(f, 32, f->decimals, v, st)) return st;
  int32_t w = f->width;
  char buf[text_max];
  st = layout_number(v, w, f->decimals, buf);
  if (st != XF_E_OVERFLOW) {
    for (int32_t i = 0; i < w; ++i)
      if (buf[i] == '.') buf[i] = ',';
  }
  return deliver_field(f, buf, w, st);
}

// SIZEK w.d: a count of bytes in kilobytes (1024 bytes) with d decimals and
// a "K": 126976 -> "124K". SIZEKB the same with "KB".
XF_ROUTINE(zfmsizek, f) {
  double v;
  xf_status st;
  if (settled(f, 33, f->decimals, v, st)) return st;
  return number_with_suffix(f, v / 1024.0, "K");
}

XF_ROUTINE(zfmsizekb, f) {
  double v;
  xf_status st;
  if (settled(f, 33, f->decimals, v, st)) return st;
  return number_with_suffix(f, v / 1024.0, "KB");
}

// SIZEKMG w.d: bytes in the largest unit of KB, MB, GB and TB (powers of
// 1024) below which the magnitude stays: 1536 -> "1.50KB" (w.2), 5 MB and
// more of bytes -> "5.00MB"; TB for everything from 1024 GB on.
XF_ROUTINE(zfmsizekmg, f) {
  double v;
  xf_status st;
  if (settled(f, 33, f->decimals, v, st)) return st;
  constexpr double kb = 1024.0, mb = kb * 1024.0, gb = mb * 1024.0, tb = gb * 1024.0;
  double a = std::fabs(v);
  if (a < mb) return number_with_suffix(f, v / kb, "KB");
  if (a < gb) return number_with_suffix(f, v / mb, "MB");
  if (a < tb) return number_with_suffix(f, v / gb, "GB");
  return number_with_suffix(f, v / tb, "TB");
}
