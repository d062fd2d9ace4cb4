// Datetimes on a 12-hour clock: DATEAMPM ("04JUL23:12:34:56 PM", the
// DATETIME layout with " AM" or " PM") and MDYAMPM ("7/04/2023 12:34 PM").
// Midnight is 12 AM and noon 12 PM. Seconds are rounded half up at the
// decimals shown, and the carry runs through the minutes and hours into the
// date (23:59:59.6 shown to the second is 12:00:00 AM of the next day);
// parts that are not shown are cut, as in DATETIME.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

const char month_abbr[12][4] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

int64_t hour12(int64_t secs) {
  const int64_t h = secs / 3600 % 12;
  return h == 0 ? 12 : h;
}

char *put_decimals(char *p, int64_t frac, int32_t dd) {
  *p++ = '.';
  xfmt::core::put_digits(p + dd, static_cast<uint64_t>(frac), dd);
  return p + dd;
}

char *put_suffix(char *p, int64_t secs) {
  std::memcpy(p, secs < 43200 ? " AM" : " PM", 3);
  return p + 3;
}

xf_status put_right(xf_frame *f, const char *text, int32_t len) {
  const int32_t w = f->width;
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  std::memcpy(out + (w - len), text, static_cast<size_t>(len));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// A number without leading zeros (1..12 hours and months).
char *put_small(char *p, int64_t v) { return xfmt::core::put_unsigned(p, static_cast<uint64_t>(v)); }

// One MDYAMPM text: "m/dd/yyyy" or "m/dd/yy", then when time_parts is 2 or
// 3 " h:mm" or " h:mm:ss" with dd decimals, and the " AM"/" PM". The year
// keeps all its digits (five from 10000 on). Returns the length (at most 33).
int32_t mdy_text(char *text, double v, int32_t time_parts, int32_t dd, bool year4) {
  const datetime_parts t = split_datetime(v, time_parts == 3, dd);
  const ymd c = ymd_from_days(t.day);
  char *p = put_small(text, c.month);
  *p++ = '/';
  put2(p, c.day);
  p += 2;
  *p++ = '/';
  if (year4 && c.year >= 10000) {
    p = xfmt::core::put_unsigned(p, static_cast<uint64_t>(c.year));
  } else if (year4) {
    put_year4(p, c.year);
    p += 4;
  } else {
    put2(p, c.year % 100);
    p += 2;
  }
  if (time_parts >= 2) {
    *p++ = ' ';
    p = put_small(p, hour12(t.second));
    *p++ = ':';
    put2(p, t.second % 3600 / 60);
    p += 2;
    if (time_parts == 3) {
      *p++ = ':';
      put2(p, t.second % 60);
      p += 2;
      if (dd > 0) p = put_decimals(p, t.fraction, dd);
    }
    p = put_suffix(p, t.second);
  }
  return static_cast<int32_t>(p - text);
}

int32_t decimals_asked(const xf_frame *f) {
  const int32_t d = f->decimals < 0 ? 0 : f->decimals;
  return d > 6 ? 6 : d;
}

}  // namespace

extern "C" {

// DATEAMPM w.d: the date as DATETIME writes it (two-digit year below width
// 21, four digits from 21 on), then ":hh", ":hh:mm" or ":hh:mm:ss" with the
// decimals that fit, and " AM" / " PM". Without room for the hour and the
// suffix (widths 7 to 12) only the date shows: an hour without its AM or PM
// would be misread.
//   7-12 04JUL23   13-15 04JUL23:12 PM   16-18 04JUL23:12:34 PM
//   19-20 04JUL23:12:34:56 PM   21- 04JUL2023:12:34:56 PM (decimals from 23)
XF_ROUTINE(zfmdtmm, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  if (w < 7) return too_narrow(f);
  const int32_t date_len = w >= 21 ? 9 : 7;
  const int32_t room = w - date_len - 3;
  const int32_t parts = room >= 9 ? 3 : room >= 6 ? 2 : room >= 3 ? 1 : 0;
  int32_t dd = 0;
  if (parts == 3) {
    dd = decimals_asked(f);
    if (dd > room - 10) dd = room - 10;
    if (dd < 0) dd = 0;
  }
  const datetime_parts t = split_datetime(value_of(f), parts == 3, dd);

  char text[40];
  const ymd c = ymd_from_days(t.day);
  put2(text, c.day);
  std::memcpy(text + 2, month_abbr[c.month - 1], 3);
  if (date_len == 9) put_year4(text + 5, c.year);
  else put2(text + 5, c.year % 100);
  char *p = text + date_len;
  const int64_t fields[3] = {hour12(t.second), t.second % 3600 / 60, t.second % 60};
  for (int32_t i = 0; i < parts; ++i) {
    *p = ':';
    put2(p + 1, fields[i]);
    p += 3;
  }
  if (dd > 0) p = put_decimals(p, t.fraction, dd);
  if (parts > 0) p = put_suffix(p, t.second);
  return put_right(f, text, static_cast<int32_t>(p - text));
}

// MDYAMPM w.d: the fullest of these layouts whose text fits, right-justified:
//   7/04/2023 12:34:56.789 PM   (seconds, with up to d decimals)
//   7/04/2023 12:34 PM          (the default width 19)
//   7/04/23 12:34 PM
//   7/04/2023
//   7/04/23
// The month and the hour have no leading zero, so the fit is judged on the
// value's own text: at width 20 "7/04/2023 1:05:09 AM" shows its seconds,
// "12/04/2023 12:05 AM" does not.
XF_ROUTINE(zfmdyam, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  const double v = value_of(f);
  char text[40];
  for (int32_t dd = decimals_asked(f); dd >= 0; --dd) {
    const int32_t len = mdy_text(text, v, 3, dd, true);
    if (len <= w) return put_right(f, text, len);
  }
  const struct {
    int32_t parts;
    bool year4;
  } shorter[] = {{2, true}, {2, false}, {0, true}, {0, false}};
  for (const auto &s : shorter) {
    const int32_t len = mdy_text(text, v, s.parts, 0, s.year4);
    if (len <= w) return put_right(f, text, len);
  }
  return too_narrow(f);
}

}  // extern "C"
