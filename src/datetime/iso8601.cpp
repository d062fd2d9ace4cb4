// ISO 8601 dates, times and datetimes without a zone: the extended forms
// (E8601 and IS8601: 2023-07-04, 12:34:56.25, 2023-07-04T12:34:56) and the
// basic forms (B8601: 20230704, 123456.25, 20230704T123456). Texts are
// right-justified in the field; fractions of a second are cut, not rounded,
// so a time never reads 24:00:00.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "datetime/iso8601_parts.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;
using xfmt::frame_out;

namespace {

// The text right-justified in the field.
xf_status place(xf_frame *f, const char *text, int32_t len) {
  const int32_t w = f->width;
  if (len > w) return too_narrow(f);
  char *out = frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  std::memcpy(out + (w - len), text, static_cast<size_t>(len));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

xf_status date_of_date(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const double v = value_of(f);
  auto n = static_cast<int64_t>(v);
  if (static_cast<double>(n) > v) --n;
  char text[16];
  return place(f, text, put_date(text, n, extended));
}

xf_status date_of_datetime(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  char text[16];
  return place(f, text, put_date(text, day_of_datetime(value_of(f)), extended));
}

// Time of day: negative times and times past a day wrap like a clock.
// Decimals: those requested that fit after hh:mm:ss and the point.
xf_status time_of_day(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 3, st)) return st;
  const double v = value_of(f);
  double s = std::fmod(v, seconds_per_day);
  if (s < 0) s += seconds_per_day;
  if (s >= seconds_per_day) s = 0;  // -tiny + 86400 rounds up to a whole day
  const int32_t base = extended ? 8 : 6;
  int32_t decimals = f->decimals < 0 ? 0 : f->decimals;
  if (decimals > 6) decimals = 6;
  if (decimals > f->width - base - 1) decimals = f->width - base - 1;
  char text[32];
  return place(f, text, put_time(text, s, extended, decimals, true));
}

// Datetime: the date, "T", the time; the seconds go first when the width is
// short (E8601DT16 2023-07-04T12:34), then the decimals that fit.
xf_status datetime(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const double v = value_of(f);
  const int64_t day = day_of_datetime(v);
  const double s = second_of_day(v);
  char text[48];
  int32_t len = put_date(text, day, extended);
  text[len++] = 'T';
  const int32_t full = len + (extended ? 8 : 6);
  const bool with_seconds = f->width >= full;
  int32_t decimals = f->decimals < 0 ? 0 : f->decimals;
  if (decimals > 6) decimals = 6;
  if (decimals > f->width - full - 1) decimals = f->width - full - 1;
  len += put_time(text + len, s, extended, decimals, with_seconds);
  return place(f, text, len);
}

}  // namespace

extern "C" {

XF_ROUTINE(zfme8da, f) { return date_of_date(f, true); }
XF_ROUTINE(zfmb8da, f) { return date_of_date(f, false); }
XF_ROUTINE(zfme8dn, f) { return date_of_datetime(f, true); }
XF_ROUTINE(zfmb8dn, f) { return date_of_datetime(f, false); }
XF_ROUTINE(zfme8tm, f) { return time_of_day(f, true); }
XF_ROUTINE(zfmb8tm, f) { return time_of_day(f, false); }
XF_ROUTINE(zfme8dt, f) { return datetime(f, true); }
XF_ROUTINE(zfmb8dt, f) { return datetime(f, false); }

}  // extern "C"
