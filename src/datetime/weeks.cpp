// Week numbers of a date (Sunday weeks, Monday weeks, ISO 8601 weeks), their
// text, the actual/actual day count, and the fixed-width digit writer.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/bounded_text.hpp"
#include "datetime/calendar.hpp"

using namespace xfmt::datetime;

namespace {

// Days before month m (1..12) in a year: 31 per month, less the shortfall
// of the 30-day months and February from March on, which int(0.4m + 2.3)
// gives (March 3, December 7), plus the leap day.
int64_t days_before_month(int64_t m, bool leap) {
  int64_t n = 31 * (m - 1);
  if (m >= 3) n -= (4 * m + 23) / 10 - (leap ? 1 : 0);
  return n;
}

int64_t day_of_year_plain(int32_t m, int32_t d, int32_t y) {
  return days_before_month(m, is_leap_plain(y)) + d;  // 64-bit: any int32 input is safe
}

// Leap years (4/100/400) among 1..y; meaningful as differences for any y.
int64_t leaps_through(int64_t y) { return floor_div(y, 4) - floor_div(y, 100) + floor_div(y, 400); }

}  // namespace

extern "C" {

// Worked split for 2020-07-01 .. 2022-03-01: 2020 holds 366 - 183 + 1 = 184
// days (counted /366), 2021 is whole (365, /365), 2022 holds 60 - 1 = 59
// days before 1 March (/365): 608 days, 184/366 + 424/365 years.
XF_API void diff_actact(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                        int64_t *days, double *year_fraction) {
  const bool later_first = y1 > y2 || (y1 == y2 && day_of_year_plain(m1, d1, y1) > day_of_year_plain(m2, d2, y2));
  if (later_first) {
    diff_actact(m2, d2, y2, m1, d1, y1, days, year_fraction);
    *days = -*days;
    *year_fraction = -*year_fraction;
    return;
  }
  const int64_t doy1 = day_of_year_plain(m1, d1, y1);
  const int64_t doy2 = day_of_year_plain(m2, d2, y2);
  if (y1 == y2) {
    *days = doy2 - doy1;
    *year_fraction = static_cast<double>(*days) / (is_leap_plain(y1) ? 366.0 : 365.0);
    return;
  }
  const int64_t len1 = is_leap_plain(y1) ? 366 : 365;
  const int64_t first = len1 - doy1 + 1;  // from the first date to 1 January of y1 + 1
  const int64_t last = doy2 - 1;          // from 1 January of y2 to the second date
  const int64_t whole_years = static_cast<int64_t>(y2) - y1 - 1;
  const int64_t whole_leaps = leaps_through(static_cast<int64_t>(y2) - 1) - leaps_through(y1);
  const int64_t whole_common = whole_years - whole_leaps;
  int64_t in_leap = whole_leaps * 366, in_common = whole_common * 365;
  (is_leap_plain(y1) ? in_leap : in_common) += first;
  (is_leap_plain(y2) ? in_leap : in_common) += last;
  *days = in_leap + in_common;
  *year_fraction = static_cast<double>(in_leap) / 366.0 + static_cast<double>(in_common) / 365.0;
}

// A thin wrapper over week_of. A rule letter other than U, V and W leaves
// the week at -1 and gives a weekday counted from the day of the year.
XF_API int32_t get_yywwdd(const char *rule, int32_t ignored, double *year, double *week,
                          double *weekday, double date) {
  (void)ignored;
  *year = *week = *weekday = -1.0;
  if (unusable(date) || !date_in_range(date)) return 0;
  const int64_t n = day_floor(date);
  const char letter = rule != nullptr ? *rule : '\0';
  if (letter != 'U' && letter != 'V' && letter != 'W') {
    const ymd c = ymd_in_range(n);
    *year = static_cast<double>(c.year);
    *weekday = static_cast<double>((day_of_year_plain(c.year, c.month, c.day) + 1) % 7 + 1);
    return 0;
  }
  const week_date wd = week_of(n, static_cast<week_rule>(letter));
  *year = static_cast<double>(wd.year);
  *week = static_cast<double>(wd.week);
  *weekday = static_cast<double>(wd.weekday);
  return 0;
}

XF_API int32_t i2s(int64_t value, char *out, int32_t digits, char fill) {
  const uint64_t mag = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  if (fill == '\0') digits = xfmt::core::digit_count(mag);
  if (digits <= 0) return 0;
  if (digits > 20) digits = 20;
  xfmt::core::bounded_text t(out, static_cast<size_t>(digits));
  t.put_unsigned(mag, digits, fill == '\0' ? '0' : fill);
  return digits;
}

XF_API void zkfweek(char *out, int32_t *width, const char *rule, int32_t ignored, double date) {
  const int32_t w = *width;
  const int32_t layout = w <= 2 ? 2 : w <= 4 ? 3 : w <= 6 ? 5 : w <= 8 ? 7 : w <= 10 ? 9 : 11;
  if (w > 0) std::memset(out, ' ', static_cast<size_t>(w));
  *width = layout;
  (void)ignored;
  const char letter = rule != nullptr ? *rule : '\0';
  if (unusable(date) || !date_in_range(date) || (letter != 'U' && letter != 'V' && letter != 'W')) {
    std::memset(out, '*', static_cast<size_t>(layout));
    return;
  }
  const week_date week = week_of(day_floor(date), static_cast<week_rule>(letter));
  const int64_t y = week.year, ww = week.week, wd = week.weekday;
  char *p = out;
  if (layout == 2) {
    i2s(ww, p, 2, '0');
    return;
  }
  if (layout >= 9) {
    p += i2s(y / 100, p, 2, '0');
  }
  if (layout >= 5) p += i2s(y % 100, p, 2, '0');
  if (layout == 11) *p++ = '-';
  *p++ = 'W';
  p += i2s(ww, p, 2, '0');
  if (layout >= 7) {
    if (layout == 11) *p++ = '-';
    i2s(wd, p, 2, '0');
  }
}

}  // extern "C"
