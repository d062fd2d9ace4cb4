// Two more members of the time family built on TIME and the plain-number
// printer: TOD (the time of day, hours with two digits) and HOUR (hours as
// a number with decimals).
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "catalog/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"

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
XF_API xf_status zfmtod(xf_frame *f) {
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

// HOUR w.d: the hours of a time value as a plain number with d decimals
// (HOUR4.1 of 12:34:56 is "12.6"); no wrap at 24, negative times negative.
XF_API xf_status zfmhour(xf_frame *f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  return with_value(f, zfmt, value_of(f) / 3600.0);
}

}  // extern "C"
