// TIME w.d: elapsed hours (no wrap at 24), minutes and seconds with the
// decimals that fit; the parts that do not fit are dropped from the right.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "catalog/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"

using namespace xfmt::datetime;

namespace {

constexpr double two_pow_53 = 9007199254740992.0;

// Decimal digits of an integral value 0 <= v < 2^53 written at out; returns
// the count. No leading zeros, no padding.
int32_t put_integer(char *out, uint64_t v) {
  char tmp[20];
  int32_t n = 0;
  do {
    tmp[n++] = static_cast<char>('0' + v % 10);
    v /= 10;
  } while (v != 0);
  for (int32_t i = 0; i < n; ++i) out[i] = tmp[n - 1 - i];
  return n;
}

double pow10_int(int32_t k) {
  double c = 1;
  while (k-- > 0) c *= 10;
  return c;
}

// The seconds Si + f in sw = 2 + (dd > 0) + dd positions with dd decimals,
// through the plain-number printer, a leading blank made "0" (" 5.25" ->
// "05.25"). With no decimals and a fraction clearly below one half the
// printer's text is the two digits of Si, made here directly; the fraction
// band near 0.5 still goes through the printer, whose rounding nudge may
// carry it (30.4999999999999964 prints 31).
int32_t put_seconds(char *out, double si, double f, int32_t dd) {
  if (dd == 0 && f < 0.4999) {
    put2(out, static_cast<int64_t>(si));
    return 2;
  }
  const int32_t sw = 2 + (dd > 0 ? 1 : 0) + dd;
  double value = si + f;
  char buf[32];
  xf_frame sf{};
  sf.width = sw;
  sf.decimals = dd;
  sf.input = &value;
  sf.input_length = sizeof value;
  sf.output = buf;
  sf.output_capacity = sizeof buf;
  zfmt(&sf);
  if (buf[0] == ' ') buf[0] = '0';
  std::memcpy(out, buf, static_cast<size_t>(sw));
  return sw;
}

int32_t decimals_that_fit(int32_t d, int32_t w, int32_t lh, bool neg) {
  int32_t dd = w - lh - (neg ? 1 : 0) - 7;
  if (d < dd) dd = d;
  if (dd > 29) dd = 29;  // the seconds' field stays within the printer's 32 positions
  return dd < 0 ? 0 : dd;
}

}  // namespace

extern "C" {

// Worked example: TIME5. of 3599.6. The half-unit of 0 decimals takes
// 59:59.6 past the hour, so the hour carries before the split (1:00:00);
// only "1:00" fits five positions, right-justified as " 1:00".
XF_API xf_status zfmtime(xf_frame *f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  const int32_t d = f->decimals < 0 ? 0 : f->decimals;
  const double v = xfmt::frame_value(f);

  // 1. Sign and whole days.
  const bool neg = v < 0;
  double t = std::fabs(v);
  double base_hours = 0;
  if (t >= seconds_per_day) {
    base_hours = 24 * std::trunc(t / seconds_per_day);
    t = std::fmod(t, seconds_per_day);
  }
  // 2. Carries that the rounding of the seconds will cause, taken before
  //    the split so that 59:59.6 becomes the next hour, not 59:60.
  const double r = zpowten[d < 30 ? d : 30] + 1e-8;
  double hour_carry = 0, minute_carry = 0;
  if (std::fmod(t, 3600) + r >= 3600) {
    t -= std::fmod(t, 3600);
    hour_carry = 1;
  } else if (std::fmod(t, 60) + r >= 60) {
    t -= std::fmod(t, 60);
    minute_carry = 1;
  }
  // 3. Hours, minutes, seconds.
  double hours = base_hours + zhour(t) + hour_carry;
  if (hours > two_pow_53) return xfmt::fail_stars(f, w, XF_E_HOURS_RANGE);
  auto minutes = static_cast<int64_t>(minute_carry + zminute(t));
  const double s = zsecond(t);
  double si = std::trunc(s), frac = s - si;

  char hours_text[20];
  int32_t lh = put_integer(hours_text, static_cast<uint64_t>(hours));
  int32_t dd = decimals_that_fit(d, w, lh, neg);

  // 4. Rounding of the seconds at the decimals that fit, with its carries.
  bool up = false;
  if (dd > 0) {
    const double c = pow10_int(dd), fc = frac * c;
    up = frac > 0.9 && c - fc < 1 && fc - std::trunc(fc) > 0.4999999;
  } else {
    up = frac >= 0.5;
  }
  if (up) {
    si += 1;
    frac = 0;
    if (si == 60) {
      si = 0;
      if (++minutes == 60) {
        minutes = 0;
        hours += 1;
        lh = put_integer(hours_text, static_cast<uint64_t>(hours));
        dd = decimals_that_fit(d, w, lh, neg);
      }
    }
  }

  // 5. Assembly: hours, then ":MM" and ":SS[.fff]" while they fit.
  char text[64];
  int32_t len = 0;
  if (neg) text[len++] = '-';
  std::memcpy(text + len, hours_text, static_cast<size_t>(lh));
  len += lh;
  if (w < len) return xfmt::fail_stars(f, w, XF_OK);
  if (w >= len + 3) {
    text[len] = ':';
    put2(text + len + 1, minutes);
    len += 3;
    if (w >= len + 3) {
      int32_t ddp = w - (len + 1) - 3;
      if (dd < ddp) ddp = dd;
      if (ddp < 1) ddp = 0;
      text[len++] = ':';
      len += put_seconds(text + len, si, frac, ddp);
    }
  }
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  std::memcpy(out + (w - len), text, static_cast<size_t>(len));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // extern "C"
