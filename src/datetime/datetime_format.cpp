// DATETIME w.d: day, month abbreviation and year, then ":hh:mm:ss" with the
// decimals that fit: 04JUL23:12:34:56 at width 16, 04JUL2023:12:34:56 at 18.
// Narrower fields drop the seconds, then the minutes, then the hours; the
// year has four digits from width 18 on.
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

}  // namespace

extern "C" {

// The seconds are rounded half up at the decimals shown, and the carry runs
// through minutes and hours into the date: 23:59:59.6 at DATETIME16 is
// 00:00:00 of the next day. Parts that are not shown are cut, not rounded
// (DATETIME13 of 12:34:56 is 04JUL23:12:34).
XF_ROUTINE(zfmdttm, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const int32_t w = f->width;
  if (w < 7) return too_narrow(f);
  const double v = value_of(f);
  const int32_t date_len = w >= 18 ? 9 : 7;
  const int32_t room = w - date_len;
  const int32_t parts = room >= 9 ? 3 : room >= 6 ? 2 : room >= 3 ? 1 : 0;
  int32_t dd = 0;
  if (parts == 3) {
    dd = f->decimals < 0 ? 0 : f->decimals;
    if (dd > 6) dd = 6;
    if (dd > room - 10) dd = room - 10;
    if (dd < 0) dd = 0;
  }

  // Day and time of day, rounded when the seconds show.
  const datetime_parts t = split_datetime(v, parts == 3, dd);
  const int64_t day = t.day, secs = t.second, frac = t.fraction;

  char text[40];
  const ymd c = ymd_from_days(day);
  put2(text, c.day);
  std::memcpy(text + 2, month_abbr[c.month - 1], 3);
  if (date_len == 9) put_year4(text + 5, c.year);
  else put2(text + 5, c.year % 100);
  int32_t len = date_len;
  const int64_t fields[3] = {secs / 3600, secs % 3600 / 60, secs % 60};
  for (int32_t i = 0; i < parts; ++i) {
    text[len] = ':';
    put2(text + len + 1, fields[i]);
    len += 3;
  }
  if (dd > 0) {
    text[len++] = '.';
    xfmt::core::put_digits(text + len + dd, static_cast<uint64_t>(frac), dd);
    len += dd;
  }
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  std::memcpy(out + (w - len), text, static_cast<size_t>(len));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // extern "C"
