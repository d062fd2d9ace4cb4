// HHMM and MMSS: a time as two parts, the larger unit without a limit and
// the smaller one with the decimals that fit: HHMM5. of 12:34:56 is 12:35,
// HHMM8.2 12:34.93; MMSS6. of the same time 754:57, MMSS9.2 754:56.79.
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

// Decimals of the smaller part that fit beside a larger part of lb digits.
int32_t decimals_for(int32_t d, int32_t w, int32_t lb, bool neg, double total) {
  int32_t dd = w - (neg ? 1 : 0) - lb - 4;
  if (d < dd) dd = d;
  if (dd < 0) dd = 0;
  // Keep the scaled count of the smaller unit exact in a double.
  while (dd > 0 && total * std::pow(10.0, dd) >= two_pow_53) --dd;
  return dd;
}

// seconds_per_small: 60 for HHMM (minutes beside hours), 1 for MMSS
// (seconds beside minutes); 60 small units make one large unit.
xf_status two_parts(xf_frame *f, double seconds_per_small) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  const int32_t d = f->decimals < 0 ? 0 : f->decimals;
  const double v = value_of(f);
  const bool neg = v < 0;
  const double total = std::fabs(v) / seconds_per_small;  // in small units

  // The larger part before rounding gives the first estimate of the room;
  // a carry that lengthens it (9:59.7 -> 10:00) is sized again.
  auto big = static_cast<uint64_t>(total / 60);
  int32_t lb = digit_count(big);
  int32_t dd = decimals_for(d, w, lb, neg, total);
  uint64_t scale = 1, units = 0;
  for (int pass = 0; pass < 2; ++pass) {
    scale = 1;
    for (int32_t i = 0; i < dd; ++i) scale *= 10;
    units = static_cast<uint64_t>(std::floor(total * static_cast<double>(scale) + 0.5));
    big = units / (60 * scale);
    const int32_t lb2 = digit_count(big);
    if (lb2 == lb) break;
    lb = lb2;
    dd = decimals_for(d, w, lb, neg, total);
  }
  const uint64_t small = units % (60 * scale);

  const int32_t head = (neg ? 1 : 0) + lb;
  if (w < head) return xfmt::fail_stars(f, w, XF_OK);
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w));
  char *p = out + w;
  if (w >= head + 3) {
    if (dd > 0) {
      xfmt::core::put_digits(p, small % scale, dd);
      p -= dd;
      *--p = '.';
    }
    p -= 2;
    put2(p, static_cast<int64_t>(small / scale));
    *--p = ':';
  } else {
    big = static_cast<uint64_t>(total / 60);  // the larger part alone: cut
    if (digit_count(big) > lb) return xfmt::fail_stars(f, w, XF_OK);
  }
  const int32_t big_digits = digit_count(big);
  xfmt::core::put_digits(p, big, big_digits);
  p -= big_digits;
  if (neg) *--p = '-';
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // namespace

extern "C" {

XF_ROUTINE(zfmhhmm, f) { return two_parts(f, 60.0); }
XF_ROUTINE(zfmmmss, f) { return two_parts(f, 1.0); }

}  // extern "C"
