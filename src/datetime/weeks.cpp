// Week numbers of a date (Sunday weeks, Monday weeks, ISO 8601 weeks), their
// text, the actual/actual day count, and the fixed-width digit writer.
#include "xfmt/xfmt.h"

#include <cmath>
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

XF_API int32_t get_yywwdd(const char *rule, int32_t ignored, double *year, double *week,
                          double *weekday, double date) {
  (void)ignored;
  *year = *week = *weekday = -1.0;
  if (unusable(date) || !date_in_range(date)) return 0;
  const ymd c = ymd_of_value(date);
  const int32_t y = static_cast<int32_t>(c.year);
  // 1 = Sunday. Not zwekday, which keeps a shifted count before 1600-01-02
  // for its own callers: the week rules need the true weekday on every day,
  // 1600-01-01 (a Saturday) included.
  const int64_t days = static_cast<int64_t>(std::floor(date)) + 131486;
  const int64_t wd = days - floor_div(days, 7) * 7 + 1;
  int64_t d = 0;
  double fraction = 0;
  diff_actact(1, 1, y, c.month, c.day, y, &d, &fraction);
  *year = static_cast<double>(y);
  const char letter = rule != nullptr ? *rule : '\0';
  const int64_t monday_based = wd - 1 == 0 ? 7 : wd - 1;
  switch (letter) {
    case 'U':
      *week = static_cast<double>((d - wd + 8) / 7);
      *weekday = static_cast<double>(wd);
      break;
    case 'W':
      *week = static_cast<double>((d - (wd + 5) % 7 + 7) / 7);
      *weekday = static_cast<double>(monday_based);
      break;
    case 'V': {
      // t is the day's offset from the Monday of week 1, plus a shift of 3
      // that the later integer division removes again.
      int64_t wy = y;
      int64_t t = d - (d - wd + 383) % 7 + 3;
      if (t < 0) {
        wy = y - 1;
        const int64_t leap = is_leap_plain(wy) ? 1 : 0;
        t = d + leap - (leap + d - wd + 748) % 7 + 368;
      } else {
        const int64_t leap = is_leap_plain(y) ? 1 : 0;
        const int64_t next = (d - leap) - (d - wd - leap + 18) % 7 - 362;
        if (next >= 0) {
          wy = y + 1;
          t = next;
        }
      }
      *year = static_cast<double>(wy);
      *week = static_cast<double>(t / 7 + 1);
      *weekday = static_cast<double>(monday_based);
      break;
    }
    default:
      *weekday = static_cast<double>((d + 2) % 7 + 1);
      break;
  }
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
  double year = 0, week = 0, weekday = 0;
  get_yywwdd(rule, ignored, &year, &week, &weekday, date);
  if (week < 0 || weekday < 0) {
    std::memset(out, '*', static_cast<size_t>(layout));
    return;
  }
  const int64_t y = static_cast<int64_t>(year), ww = static_cast<int64_t>(week);
  const int64_t wd = static_cast<int64_t>(weekday);
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
