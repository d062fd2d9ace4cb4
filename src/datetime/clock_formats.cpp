// Members of the time family built on TIME and the plain-number printer:
// TOD (the time of day, hours with two digits), TIMEAMPM (the time of day
// on a 12-hour clock) and HOUR (hours as a number with decimals).
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

// Runs a routine on a copy of the frame that reads `value` instead.
xf_status with_value(xf_frame *f, xf_routine routine, double value) {
  xf_frame inner = *f;
  inner.input = &value;
  inner.input_length = sizeof value;
  const xf_status st = routine(&inner);
  f->output_length = inner.output_length;
  return st;
}

}  // namespace

extern "C" {

// TOD w.d: TIME of the time of day (negative times and whole days wrap
// like a clock), with a one-digit hour made two ("01:00:00") where the
// field has the room, and a rounding carry to 24 shown as 00.
XF_ROUTINE(zfmtod, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  double t = std::fmod(value_of(f), seconds_per_day);
  if (t < 0) t += seconds_per_day;
  if (t >= seconds_per_day) t = 0;
  st = with_value(f, zfmtime, t);
  if (st != XF_OK) return st;
  char *out = xfmt::frame_out(f);
  const int32_t w = f->width;
  int32_t first = 0;
  while (first < w && out[first] == ' ') ++first;
  int32_t digits = 0;
  while (first + digits < w && out[first + digits] >= '0' && out[first + digits] <= '9') ++digits;
  if (digits == 2 && out[first] == '2' && out[first + 1] == '4') out[first] = out[first + 1] = '0';
  if (digits == 1 && first > 0) out[first - 1] = '0';
  return XF_OK;
}

// TIMEAMPM w.d: the time of day on a 12-hour clock, " AM" or " PM" after it
// when the width has room for them and the hours (11:59:59 PM; midnight and
// noon are 12). The hour shown decides AM or PM after the rounding of the
// seconds: 11:59:59.6 at TIMEAMPM11. is 12:00:00 PM.
XF_ROUTINE(zfmtimm, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  double t = std::fmod(value_of(f), seconds_per_day);
  if (t < 0) t += seconds_per_day;
  if (t >= seconds_per_day) t = 0;
  const int32_t w = f->width;
  const bool suffix = w >= 5;
  xf_frame inner = *f;
  inner.width = suffix ? w - 3 : w;
  // First pass: the hour TIME shows at this width (0..24 after rounding).
  char probe[64];
  xf_frame pf = inner;
  pf.output = probe;
  pf.output_capacity = sizeof probe;
  if (with_value(&pf, zfmtime, t) != XF_OK) return xfmt::fail_stars(f, w, XF_OK);
  int32_t i = 0;
  while (i < pf.width && probe[i] == ' ') ++i;
  int32_t hour = 0;
  for (; i < pf.width && probe[i] >= '0' && probe[i] <= '9'; ++i) hour = hour * 10 + (probe[i] - '0');
  const int32_t clock = hour == 24 ? 0 : hour;
  const bool pm = clock >= 12;
  const int32_t shown = clock % 12 == 0 ? 12 : clock % 12;
  // Whole hours move the value without touching its rounding, so TIME now
  // shows the 12-hour clock's hour.
  st = with_value(&inner, zfmtime, t - static_cast<double>(hour - shown) * 3600.0);
  if (st != XF_OK) return st;
  if (suffix) std::memcpy(xfmt::frame_out(f) + w - 3, pm ? " PM" : " AM", 3);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// HOUR w.d: the hours of a time value as a plain number with d decimals
// (HOUR4.1 of 12:34:56 is "12.6"); no wrap at 24, negative times negative.
XF_ROUTINE(zfmhour, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  return with_value(f, zfmt, value_of(f) / 3600.0);
}

}  // extern "C"
