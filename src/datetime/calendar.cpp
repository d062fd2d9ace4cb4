// The exported calendar routines on day numbers: Julian values, year, month,
// day, quarter, weekday and month lengths, each a wrapper over calendar.hpp.
#include "xfmt/xfmt.h"

#include <cmath>

#include "datetime/calendar.hpp"

namespace xfmt::datetime {
namespace {

// Splits a Julian value into an expanded year and a day of year 0..366,
// applying every validity test the Julian routines share. A day of year of
// 0 stands for the last day of the previous year (2000000 is 1999-12-31).
bool split_julian(double v, int64_t &year, int64_t &ddd) {
  if (unusable(v) || v <= 0 || v > 20000365.0) return false;
  const int64_t n = static_cast<int64_t>(v);  // truncated, 1..20000365
  int64_t y = n / 1000;
  ddd = n - y * 1000;
  if (y >= 100 && y <= 1581) return false;
  if (ddd > 366) return false;
  y = expand_year(y);
  if (ddd > days_in_year(y)) return false;
  year = y;
  return true;
}

// The guard of the routines that take one part of a date: a missing value
// comes back as it is, anything off the calendar (NaN included) as missing.
template <class Part>
double date_part(double date, Part part) {
  if (is_missing(date)) return date;
  return date_in_range(date) ? static_cast<double>(part(ymd_of_value(date))) : missing();
}

}  // namespace
}  // namespace xfmt::datetime

using namespace xfmt::datetime;

extern "C" {

XF_API double zjulymd(double year, double month, double day) {
  if (unusable(year) || unusable(month) || unusable(day)) return missing();
  if (month < 1 || month > 12 || day < 1 || day > 31 || year < 0) return missing();
  if ((year > 99 && year < 1582) || year > 20000) return missing();
  const int64_t y = expand_year(static_cast<int64_t>(year));
  const int32_t m = static_cast<int32_t>(month);
  const int32_t d = static_cast<int32_t>(day);
  if (d > days_in_month(y, m)) return missing();
  return static_cast<double>(y * 1000 + day_of_year(y, m, d));
}

XF_API double zdatjul(double julian) {
  int64_t y = 0, ddd = 0;
  if (!split_julian(julian, y, ddd)) return missing();
  return static_cast<double>(days_from_ymd(y, 1, 1) - 1 + ddd);
}

XF_API int32_t zymdjul(double *year, double *month, double *day, double julian) {
  int64_t y = 0, ddd = 0;
  if (!split_julian(julian, y, ddd)) {
    *year = *month = *day = missing();
    return 0;
  }
  int32_t m = 1;
  while (m < 12 && ddd > days_in_month(y, m)) {
    ddd -= days_in_month(y, m);
    ++m;
  }
  *year = static_cast<double>(y);
  *month = static_cast<double>(m);
  *day = static_cast<double>(ddd);
  return 0;
}

XF_API double zjuldat(double date) {
  if (is_missing(date)) return date;
  if (!date_in_range(date)) return missing();
  return static_cast<double>(julian(ymd_of_value(date)));
}

XF_API double zmdy(double month, double day, double year) {
  const double j = zjulymd(year, month, day);
  if (is_missing(j)) return j;
  return zdatjul(j);
}

XF_API double zyear(double date) { return date_part(date, [](const ymd &c) { return c.year; }); }
XF_API double zmonth(double date) { return date_part(date, [](const ymd &c) { return int64_t{c.month}; }); }
XF_API double zday(double date) { return date_part(date, [](const ymd &c) { return int64_t{c.day}; }); }
XF_API double zqtr(double date) {
  return date_part(date, [](const ymd &c) { return int64_t{quarter(c.month)}; });
}

// Day 0 (1960-01-01) is a Friday. The offset 131486 makes 1600-01-02 the
// first day with n = 0; earlier days have n < 0 and the truncating remainder
// gives -5..1 there (1600-01-01 gives 0). Hosts rely on exactly that.
XF_API double zwekday(double date) {
  if (unusable(date) || !date_in_range(date)) return missing();
  const int64_t n = static_cast<int64_t>(date + 131486.0);
  return static_cast<double>(n % 7 + 1);
}

XF_API int32_t getMonthDayYear(int32_t *month, int32_t *day, int32_t *year, double date) {
  if (unusable(date) || !date_in_range(date)) {
    *month = *day = *year = 0;
    return 0;
  }
  const ymd c = ymd_of_value(date);
  *month = c.month;
  *day = c.day;
  *year = static_cast<int32_t>(c.year);
  return c.month;
}

// February follows a rule of its own here: every fourth year inside
// 1901..2099, outside it only multiples of 400 that are not multiples of
// 4000 (so 1804 and 2104 have 28 days).
XF_API double get_lastday(int32_t month, int32_t year) {
  if (month > 12) {
    month %= 12;
    if (month == 0) return 31.0;
  }
  if (month < 1) return 0.0;
  if (month != 2) return static_cast<double>(daysinmonth[month]);
  if (year % 4 != 0) return 28.0;
  if (year >= 1901 && year <= 2099) return 29.0;
  return (year % 400 == 0 && year % 4000 != 0) ? 29.0 : 28.0;
}

}  // extern "C"
