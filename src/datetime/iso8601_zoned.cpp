// ISO 8601 datetimes and times marked as UTC: the DZ forms
// (2023-07-04T12:34:56+00:00, 20230704T123456+0000) and the TZ forms
// (12:34:56+00:00, 123456+0000). The value is taken to be in UTC already;
// nothing is shifted. The zone is written as an offset when the width holds
// it after the decimals asked for, otherwise as "Z" with the decimals that
// still fit; when even "Z" does not fit after the seconds, the seconds go
// (20230704T1234Z). Fractions are cut, as in the forms without a zone.
//   E8601DZ20 2023-07-04T12:34:56Z     E8601DZ25 2023-07-04T12:34:56+00:00
//   B8601DZ15 20230704T1234Z           B8601DZ20 20230704T123456+0000
//   E8601TZ9  12:34:56Z                E8601TZ14 12:34:56+00:00
//   B8601TZ9  123456Z                  B8601TZ11 123456+0000
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "catalog/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "datetime/iso8601_parts.hpp"

using namespace xfmt::datetime;

namespace {

// `head` bytes of date and "T" already in text (0 for a time), then the time
// of day s (0 <= s < 86400) and the zone, right-justified in the field.
xf_status with_zone(xf_frame *f, char *text, int32_t head, double s, bool extended) {
  const int32_t w = f->width;
  const int32_t clock_len = extended ? 8 : 6;
  const int32_t offset_len = extended ? 6 : 5;
  int32_t asked = f->decimals < 0 ? 0 : f->decimals;
  if (asked > 6) asked = 6;
  const int32_t full = head + clock_len + (asked > 0 ? asked + 1 : 0);

  bool offset = full + offset_len <= w;
  bool seconds = true;
  int32_t decimals = asked;
  if (!offset) {
    // "Z", with the decimals that fit beside it.
    if (decimals > w - head - clock_len - 2) decimals = w - head - clock_len - 2;
    if (decimals < 0) decimals = 0;
    seconds = head + clock_len + 1 <= w;
  }
  int32_t len = head + put_time(text + head, s, extended, seconds ? decimals : 0, seconds);
  if (offset) {
    std::memcpy(text + len, extended ? "+00:00" : "+0000", static_cast<size_t>(offset_len));
    len += offset_len;
  } else {
    text[len++] = 'Z';
  }
  if (len > w) return too_narrow(f);
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  std::memcpy(out + (w - len), text, static_cast<size_t>(len));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

xf_status zoned_datetime(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const double v = value_of(f);
  char text[48];
  int32_t head = put_date(text, static_cast<int64_t>(zdatprt(v)), extended);
  text[head++] = 'T';
  return with_zone(f, text, head, ztimprt(v), extended);
}

// The time of day of a time value: negative times and times past a day wrap
// like a clock, as in the forms without a zone.
xf_status zoned_time(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 3, st)) return st;
  double s = std::fmod(value_of(f), seconds_per_day);
  if (s < 0) s += seconds_per_day;
  if (s >= seconds_per_day) s = 0;  // -tiny + 86400 rounds up to a whole day
  char text[32];
  return with_zone(f, text, 0, s, extended);
}

}  // namespace

extern "C" {

XF_API xf_status zfme8dz(xf_frame *f) { return zoned_datetime(f, true); }
XF_API xf_status zfmb8dz(xf_frame *f) { return zoned_datetime(f, false); }
XF_API xf_status zfme8tz(xf_frame *f) { return zoned_time(f, true); }
XF_API xf_status zfmb8tz(xf_frame *f) { return zoned_time(f, false); }

}  // extern "C"
