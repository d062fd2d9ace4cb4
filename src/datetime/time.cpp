// TIME w.d: elapsed hours (no wrap at 24), minutes and seconds with the
// decimals that fit; the parts that do not fit are dropped from the right.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

constexpr double two_pow_53 = 9007199254740992.0;

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
  if (dd == 0 && f < 0.4999) [[likely]] {
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
XF_ROUTINE(zfmtime, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  const int32_t d = f->decimals < 0 ? 0 : f->decimals;
  const double v = value_of(f);

  // 1. Sign, whole days and the second of the day. Within the datetime
  //    range |v| < 2^53, so the whole seconds are exact integers and the
  //    fraction t - whole is exact; every remainder below (by 86400, 3600
  //    and 60) then equals the floating fmod of the same value, bit for bit.
  const bool neg = v < 0;
  const double t = std::fabs(v);
  const auto whole = static_cast<uint64_t>(static_cast<int64_t>(t));
  double frac = t - static_cast<double>(whole);
  uint64_t hours;
  int64_t minutes;
  double si;
  if (frac == 0 && d == 0 && whole < 0xFFFFFFFFull) [[likely]] {
    // Whole seconds without decimals, the usual column: the half-unit of 0
    // decimals cannot carry (3599 + 0.5 < 3600, 59 + 0.5 < 60), so the parts
    // come straight from 32-bit integer arithmetic; same values as below.
    const auto s32 = static_cast<uint32_t>(whole);
    hours = s32 / 3600;
    minutes = static_cast<int64_t>(s32 / 60 % 60);
    si = static_cast<double>(s32 % 60);
  } else {
    uint64_t in_day = whole % 86400;
    hours = whole / 86400 * 24;
    // 2. Carries that the rounding of the seconds will cause, taken before
    //    the split so that 59:59.6 becomes the next hour, not 59:60.
    const double r = zpowten[d < 30 ? d : 30] + 1e-8;
    uint64_t minute_carry = 0;
    if (static_cast<double>(in_day % 3600) + frac + r >= 3600) {
      in_day -= in_day % 3600;
      frac = 0;
      hours += 1;
    } else if (static_cast<double>(in_day % 60) + frac + r >= 60) {
      in_day -= in_day % 60;
      frac = 0;
      minute_carry = 1;
    }
    // 3. Hours, minutes, seconds.
    hours += in_day / 3600;
    if (static_cast<double>(hours) > two_pow_53) return xfmt::fail_stars(f, w, XF_E_HOURS_RANGE);
    minutes = static_cast<int64_t>(in_day % 3600 / 60 + minute_carry);
    si = static_cast<double>(in_day % 60);
  }
  int32_t lh = digit_count(hours);
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
        lh = digit_count(hours);
        dd = decimals_that_fit(d, w, lh, neg);
      }
    }
  }

  // 5. Assembly, sized first: hours, then ":MM" and ":SS[.fff]" while
  //    they fit, right-justified.
  int32_t len = (neg ? 1 : 0) + lh;
  if (w < len) return xfmt::fail_stars(f, w, XF_OK);
  const bool with_minutes = w >= len + 3;
  if (with_minutes) len += 3;
  const bool with_seconds = with_minutes && w >= len + 3;
  int32_t ddp = 0;
  if (with_seconds) {
    ddp = w - (len + 1) - 3;
    if (dd < ddp) ddp = dd;
    if (ddp < 1) ddp = 0;
  }
  // Written from the right end of the field: blanks first (two overlapping
  // 8-byte stores for the usual widths), then the parts right to left. Only
  // stores, so nothing waits on a partly written buffer.
  char *out = xfmt::frame_out(f);
  if (w >= 8 && w <= 16) {
    std::memcpy(out, "        ", 8);
    std::memcpy(out + w - 8, "        ", 8);
  } else {
    std::memset(out, ' ', static_cast<size_t>(w));
  }
  char *p = out + w;
  if (with_seconds) {
    p -= 2 + (ddp > 0 ? 1 + ddp : 0);
    put_seconds(p, si, frac, ddp);
    *--p = ':';
  }
  if (with_minutes) {
    p -= 2;
    put2(p, minutes);
    *--p = ':';
  }
  if (hours < 100 && p - out >= 2) {
    // Two digits, the first blanked again for hours below 10 (no branch
    // on the hour's length, which alternates from value to value).
    p[-1] = xfmt::core::digit_pairs.c[2 * hours + 1];
    p[-2] = hours < 10 ? ' ' : xfmt::core::digit_pairs.c[2 * hours];
  } else {
    xfmt::core::put_digits(p, hours, lh);
  }
  p -= lh;
  if (neg) p[-1] = '-';
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // extern "C"
