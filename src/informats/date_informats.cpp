// The date, time and datetime informats: text in, a date value (days since
// 1960-01-01), a time value (seconds since midnight) or a datetime value
// (seconds since 1960-01-01 00:00:00) out, as the date formats print them.
// Every routine trims blanks and tabs around the field, reads one shape
// (date_scanner.hpp) and refuses anything left over.
#include "xfmt/xfmt.h"

#include "datetime/calendar.hpp"
#include "informats/date_field_reader.hpp"
#include "informats/date_scanner.hpp"
#include "informats/informat_frame.hpp"
#include "informats/number_reader.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

bool numeric_date(date_cursor &c, date_order order, double &v) {
  date_parts d{};
  if (!read_numeric_date(c, order, d)) return false;
  v = date_value(d);
  return true;
}

// A date, then optionally a time of day (hours 0..23, or 1..12 with AM/PM)
// after the separator; the date alone is its midnight.
template <class Separator>
bool date_then_time(date_cursor &c, double date, Separator separator, double &v) {
  if (datetime::unusable(date)) return false;
  time_parts t{0, 0, 0};
  if (!c.at_end() && (!separator(c) || !read_time_of_day(c, 23, t))) return false;
  v = datetime::datetime_value(date, datetime::time_value(t.hour, t.minute, t.second));
  return true;
}

}  // namespace

// @DATE: "04JUL2023", "4jul23", "04-JUL-2023", "4 July 2023".
XF_ROUTINE(zifmdate, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{};
    if (!read_name_date(c, d)) return false;
    v = date_value(d);
    return true;
  });
}

// @DDMMYY: "04/07/2023", "040723", "04072023", "4-7-23", "4.7.2023".
XF_ROUTINE(zifmdmy, f) {
  return read_field(f, [](date_cursor &c, double &v) { return numeric_date(c, date_order::dmy, v); });
}

// @MMDDYY: "07/04/2023", "070423", "07042023", "7-4-23".
XF_ROUTINE(zifmmdy, f) {
  return read_field(f, [](date_cursor &c, double &v) { return numeric_date(c, date_order::mdy, v); });
}

// @YYMMDD: "2023-07-04", "230704", "20230704", "23/7/4".
XF_ROUTINE(zifmymd, f) {
  return read_field(f, [](date_cursor &c, double &v) { return numeric_date(c, date_order::ymd, v); });
}

// @JULIAN: "2023185" (year, day of the year 001..366) or "23185"; nothing
// else around the digits. Day 000 (which the Julian routines take as the
// last day of the year before) is refused here: no printed date has it.
XF_ROUTINE(zifmjul, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    const size_t run = c.digit_run();
    if (run != 5 && run != 7) return false;
    int64_t year = c.fixed(run - 3);
    const int64_t ddd = c.fixed(3);
    if (run == 5) year = datetime::expand_year(year);
    if (year < 1582 || ddd < 1 || ddd > datetime::days_in_year(year)) return false;
    v = static_cast<double>(datetime::days_from_year_day(year, ddd));
    return true;
  });
}

// @MONYY: "JUL2023", "jul23", "JUL-2023", "July 2023": the first of the month.
XF_ROUTINE(zifmmony, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{0, read_month_name(c), 1};
    if (d.month == 0) return false;
    c.take_date_separator();
    if (!read_year(c, d.year)) return false;
    v = date_value(d);
    return true;
  });
}

// @YYQ: "2023Q3", "23q3", "2023-Q3": the first day of the quarter.
XF_ROUTINE(zifmyyq, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{0, 0, 1};
    if (!read_year(c, d.year)) return false;
    c.take_date_separator();
    if (!c.take('Q') || c.digit_run() != 1) return false;
    const int64_t q = c.fixed(1);
    if (q < 1 || q > 4) return false;
    d.month = 3 * q - 2;
    v = date_value(d);
    return true;
  });
}

// @NENGO: era letter M, T, S, H or R (any case), an optional point, then era
// year, month and day: "R.01/05/01", "H01/01/08", "R010501", "h1-1-8".
// The day must not precede the first day of its era; an era year running
// past the next era's start ("S64/12/31") is still read, as it counts on.
XF_ROUTINE(zifmneng, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    int era = 0;
    for (int i = 1; i <= 5 && era == 0; ++i)
      if (c.take(letters[i])) era = i;
    if (era == 0) return false;
    c.take('.');
    date_parts d{};
    if (c.digit_run() == 6) {
      d.year = c.fixed(2);
      d.month = c.fixed(2);
      d.day = c.fixed(2);
    } else {
      const size_t n = c.digit_run();
      if (n < 1 || n > 2) return false;
      d.year = c.fixed(n);
      if (!c.take_date_separator()) return false;
      size_t k = c.digit_run();
      if (k < 1 || k > 2) return false;
      d.month = c.fixed(k);
      if (!c.take_date_separator()) return false;
      k = c.digit_run();
      if (k < 1 || k > 2) return false;
      d.day = c.fixed(k);
    }
    if (d.year < 1) return false;
    d.year += static_cast<int64_t>(reigns[era - 1][1]) - 1;
    v = date_value(d);
    if (!datetime::unusable(v) && v < reigns[era - 1][0]) return false;
    return true;
  });
}

// @TIME: "12:34", "12:34:56", "1:02:03.5", "12:34:56 PM", "100:00:00"
// (hours up to 999999 without AM/PM; minutes and seconds below 60).
XF_ROUTINE(zifmtime, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    time_parts t{};
    if (!read_time_of_day(c, 999999, t)) return false;
    v = datetime::time_value(t.hour, t.minute, t.second);
    return true;
  });
}

// @DATETIME: a date as @DATE reads it, then ':', 'T' or blanks and a time of
// day: "04JUL2023:12:34:56", "4jul23 12:34", "04JUL2023:12:34:56.25",
// "04JUL2023:01:02:03 PM"; the date alone reads as its midnight.
XF_ROUTINE(zifmdttm, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{};
    if (!read_name_date(c, d)) return false;
    return date_then_time(c, date_value(d), [](date_cursor &s) {
      return s.take(':') || s.take('T') || s.skip_blanks();
    }, v);
  });
}

// @MDYAMPM: a date as @MMDDYY reads it, then blanks (or a comma and blanks)
// and a time of day: "07/04/2023 12:34:56 PM", "7-4-23 0:15", "070423 1:00AM";
// the date alone reads as its midnight.
XF_ROUTINE(zifmdyam, f) {
  return read_field(f, [](date_cursor &c, double &v) {
    date_parts d{};
    if (!read_numeric_date(c, date_order::mdy, d)) return false;
    return date_then_time(c, date_value(d), [](date_cursor &s) {
      const bool comma = s.take(',');
      return s.skip_blanks() || comma;
    }, v);
  });
}
