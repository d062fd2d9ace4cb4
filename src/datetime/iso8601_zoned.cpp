// ISO 8601 datetimes and times marked as UTC: the DZ forms
// (2023-07-04T12:34:56+00:00, 20230704T123456+0000) and the TZ forms
// (12:34:56+00:00, 123456+0000). The value is taken to be in UTC already;
// nothing is shifted. The zone is written as an offset when the width holds
// it after the decimals asked for, otherwise as "Z" with the decimals that
// still fit; when even "Z" does not fit after the seconds, the seconds go
// (20230704T1234Z). Fractions are cut, as in the forms without a zone.
// The LZ forms write a local time of day with the process zone's standard
// offset (12:34:56+01:00, 123456+0100), never "Z": narrower fields drop the
// decimals, then the seconds (12:34+01:00, 1234+0100).
//   E8601DZ20 2023-07-04T12:34:56Z     E8601DZ25 2023-07-04T12:34:56+00:00
//   B8601DZ15 20230704T1234Z           B8601DZ20 20230704T123456+0000
//   E8601TZ9  12:34:56Z                E8601TZ14 12:34:56+00:00
//   B8601TZ9  123456Z                  B8601TZ11 123456+0000
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/platform.hpp"  // current_clock: the process zone of the LZ forms
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "datetime/iso8601_parts.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

// The zone as written after the time: an offset ("+00:00" or "+0000"),
// and whether "Z" may stand for it when the offset does not fit.
struct zone_text {
  char text[8];
  int32_t len;
  bool z_allowed;
};

zone_text utc_zone(bool extended) {
  zone_text z{};
  std::memcpy(z.text, extended ? "+00:00" : "+0000", extended ? 6 : 5);
  z.len = extended ? 6 : 5;
  z.z_allowed = true;
  return z;
}

// `head` bytes of date and "T" already in text (0 for a time), then the time
// of day s (0 <= s < 86400) and the zone, right-justified in the field.
xf_status with_zone(xf_frame *f, char *text, int32_t head, double s, bool extended, const zone_text &zone) {
  const int32_t w = f->width;
  const int32_t clock_len = extended ? 8 : 6;
  int32_t asked = f->decimals < 0 ? 0 : f->decimals;
  if (asked > 6) asked = 6;
  const int32_t full = head + clock_len + (asked > 0 ? asked + 1 : 0);

  // The offset when it fits after the decimals asked; otherwise "Z" where
  // allowed, or the offset still, with the decimals that fit beside it.
  const bool offset = full + zone.len <= w || !zone.z_allowed;
  const int32_t zone_len = offset ? zone.len : 1;
  int32_t decimals = asked;
  if (decimals > w - head - clock_len - zone_len - 1) decimals = w - head - clock_len - zone_len - 1;
  if (decimals < 0) decimals = 0;
  const bool seconds = head + clock_len + zone_len <= w;
  int32_t len = head + put_time(text + head, s, extended, seconds ? decimals : 0, seconds);
  if (offset) {
    std::memcpy(text + len, zone.text, static_cast<size_t>(zone.len));
    len += zone.len;
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

double clock_seconds(double v) {
  double s = std::fmod(v, seconds_per_day);
  if (s < 0) s += seconds_per_day;
  if (s >= seconds_per_day) s = 0;  // -tiny + 86400 rounds up to a whole day
  return s;
}

// The process zone's standard offset, east of UTC, in seconds: the clock's
// answer (for the system clock the platform's zone snapshot, read once under
// a once-guard, so no value pays for the zone lookup; a test's fixed clock
// gives its own).
int32_t process_offset_east() { return -xfmt::platform::current_clock().zone_seconds_west(); }

// "+hh:mm" / "+hhmm" of an offset in seconds east (whole minutes; zones lie
// within a day, so hh stays two digits).
zone_text local_zone(bool extended) {
  int32_t east = process_offset_east();
  zone_text z{};
  z.text[0] = east < 0 ? '-' : '+';
  if (east < 0) east = -east;
  put2(z.text + 1, east / 3600 % 100);
  char *p = z.text + 3;
  if (extended) *p++ = ':';
  put2(p, east / 60 % 60);
  z.len = extended ? 6 : 5;
  z.z_allowed = false;
  return z;
}

xf_status zoned_datetime(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const double v = value_of(f);
  char text[48];
  int32_t head = put_date(text, day_of_datetime(v), extended);
  text[head++] = 'T';
  return with_zone(f, text, head, second_of_day(v), extended, utc_zone(extended));
}

// The time of day of a time value: negative times and times past a day wrap
// like a clock, as in the forms without a zone.
xf_status zoned_time(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 3, st)) return st;
  char text[32];
  return with_zone(f, text, 0, clock_seconds(value_of(f)), extended, utc_zone(extended));
}

// A local time of day with the process zone's offset; the value is not
// shifted.
xf_status local_time(xf_frame *f, bool extended) {
  xf_status st = XF_OK;
  if (!guard_value(f, 3, st)) return st;
  char text[32];
  return with_zone(f, text, 0, clock_seconds(value_of(f)), extended, local_zone(extended));
}

}  // namespace

extern "C" {

XF_ROUTINE(zfme8dz, f) { return zoned_datetime(f, true); }
XF_ROUTINE(zfmb8dz, f) { return zoned_datetime(f, false); }
XF_ROUTINE(zfme8tz, f) { return zoned_time(f, true); }
XF_ROUTINE(zfmb8tz, f) { return zoned_time(f, false); }
XF_ROUTINE(zfme8lz, f) { return local_time(f, true); }
XF_ROUTINE(zfmb8lz, f) { return local_time(f, false); }

}  // extern "C"
