// The date and time pieces shared by the ISO 8601 forms with and without a
// zone: yyyy-mm-dd / yyyymmdd and hh:mm:ss / hhmmss with a cut fraction.
#pragma once

#include <cstdint>
#include <cstring>

#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"

namespace xfmt::datetime {

// yyyy-mm-dd or yyyymmdd at out; returns the length. Years past 9999 show "****".
inline int32_t put_date(char *out, int64_t day, bool extended) {
  const ymd c = ymd_in_range(day);
  put_year4(out, c.year);
  char *p = out + 4;
  if (extended) *p++ = '-';
  put2(p, c.month);
  p += 2;
  if (extended) *p++ = '-';
  put2(p, c.day);
  return extended ? 10 : 8;
}

// hh:mm:ss or hhmmss, then "." and `decimals` digits of the fraction (cut),
// for a second of the day 0 <= s < 86400; returns the length.
inline int32_t put_time(char *out, double s, bool extended, int32_t decimals, bool with_seconds) {
  const auto whole = static_cast<int64_t>(s);
  const double frac = s - static_cast<double>(whole);
  char *p = out;
  put2(p, whole / 3600);
  p += 2;
  if (extended) *p++ = ':';
  put2(p, whole % 3600 / 60);
  p += 2;
  if (!with_seconds) return static_cast<int32_t>(p - out);
  if (extended) *p++ = ':';
  put2(p, whole % 60);
  p += 2;
  if (decimals > 0) {
    // Microseconds to the nearest first (45296.789 holds 0.78899999999703
    // as its fraction and must show .789), then cut to the decimals asked;
    // the last microsecond of a second stays .999999 rather than carrying.
    auto micro = static_cast<int64_t>(frac * 1e6 + 0.5);
    if (micro > 999999) micro = 999999;
    char digits[6];
    core::put_digits(digits + 6, static_cast<uint64_t>(micro), 6);
    *p++ = '.';
    std::memcpy(p, digits, static_cast<size_t>(decimals));
    p += decimals;
  }
  return static_cast<int32_t>(p - out);
}

}  // namespace xfmt::datetime
