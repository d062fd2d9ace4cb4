// The date informats of the further module: @MINGUO (the Republic of China
// calendar), @XYYMMDD, @YYQZ, @YYMMN and the datetime reader @YMDDTTM. Each
// reads the text its format of the same name writes, and the shapes users
// type for it; the frame handling is date_field_reader.hpp's.
#include "xfmt/xfmt.h"

#include "datetime/calendar.hpp"
#include "informats/date_field_reader.hpp"
#include "informats/date_scanner.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

// One or two digits.
bool read_one_or_two(date_cursor &c, int64_t &v) {
  const size_t n = c.digit_run();
  if (n < 1 || n > 2) return false;
  v = c.fixed(n);
  return true;
}

// One separator of @YMDDTTM: "-", "/", ":", "." or a blank.
bool take_stamp_separator(date_cursor &c) {
  return c.take('-') || c.take('/') || c.take(':') || c.take('.') || c.take(' ');
}

// @YYQZ and @YYMMN: a year of two or four digits, then two digits ("2303",
// "202303"). False for any other run of digits or a year before 1582.
bool read_year_and_two(date_cursor &c, date_parts &d, int64_t &two) {
  const size_t run = c.digit_run();
  if (run != 4 && run != 6) return false;
  const int64_t y = c.fixed(run - 2);
  d.year = run == 4 ? datetime::expand_year(y) : y;
  two = c.fixed(2);
  return d.year >= 1582;
}

}  // namespace

// @MINGUO: year of the Republic (1 is 1912), month and day, either separated
// by one date separator each ("112/07/04", "112-7-4", "1 1 1") or all digits,
// the last four being month and day ("1120704", "590101"). Year 0 does not
// exist.
XF_ROUTINE(zifmmingo, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    const size_t run = c.digit_run();
    date_parts d{};
    if (run == static_cast<size_t>(c.end - c.p)) {  // digits only
      if (run < 5 || run > 9) return false;
      d.year = c.fixed(run - 4);
      d.month = c.fixed(2);
      d.day = c.fixed(2);
    } else {
      if (run < 1 || run > 5) return false;
      d.year = c.fixed(run);
      if (!c.take_date_separator() || !read_one_or_two(c, d.month)) return false;
      if (!c.take_date_separator() || !read_one_or_two(c, d.day)) return false;
    }
    if (d.year < 1) return false;
    d.year += 1911;
    v = date_value(d);
    return true;
  });
}

// @XYYMMDD: "2023-07-04", "23-07-04", "20230704", "230704" (and the other
// separators and one-digit parts @YYMMDD takes).
XF_ROUTINE(zifmxymd, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{};
    if (!read_numeric_date(c, date_order::ymd, d)) return false;
    v = date_value(d);
    return true;
  });
}

// @YYQZ: year and a two-digit quarter, "2303" or "202303": the first day of
// the quarter.
XF_ROUTINE(zifmyyqz, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{0, 0, 1};
    int64_t q = 0;
    if (!read_year_and_two(c, d, q) || q < 1 || q > 4) return false;
    d.month = 3 * q - 2;
    v = date_value(d);
    return true;
  });
}

// @YYMMN: year and month in digits only, "202307" or "2307": the first of
// the month.
XF_ROUTINE(zifmyymn, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{0, 0, 1};
    if (!read_year_and_two(c, d, d.month)) return false;
    v = date_value(d);
    return true;
  });
}

// @YMDDTTM: year (two or four digits), month, day, hour, minute and
// optionally seconds with a fraction: "2023-07-04 12:30:00",
// "23/07/04 12:30", "2023.07.04.12.30.15.5". Each separator is one of "-",
// "/", ":", "." or a blank; between the day and the hour a "T" also serves.
// d does not scale anything: the seconds carry their own fraction.
XF_ROUTINE(zifmymdt, f) {
  return read_field(
      f,
      [](date_cursor &c, double &v) {
        date_parts d{};
        int64_t hour = 0, minute = 0;
        if (!read_year(c, d.year) || !take_stamp_separator(c)) return false;
        if (!read_one_or_two(c, d.month) || !take_stamp_separator(c)) return false;
        if (!read_one_or_two(c, d.day)) return false;
        if (!c.take('T') && !take_stamp_separator(c)) return false;
        if (!read_one_or_two(c, hour) || !take_stamp_separator(c)) return false;
        if (!read_one_or_two(c, minute) || hour > 23 || minute > 59) return false;
        double second = 0;
        if (!c.at_end()) {
          if (!take_stamp_separator(c) || !read_seconds(c, second)) return false;
        }
        const double day = date_value(d);
        if (datetime::unusable(day)) return false;
        v = datetime::datetime_value(
            day, datetime::time_value(static_cast<double>(hour), static_cast<double>(minute), second));
        return true;
      },
      39);
}
