// The pieces the date and time informats are made of: a cursor over the
// trimmed field, digit runs, years, month names, numeric dates in three
// orders and a time of day. Each reader either consumes its piece and
// returns true, or returns false; the caller then refuses the whole text.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::informats {

struct date_cursor {
  const char *p;
  const char *end;

  bool at_end() const { return p == end; }
  char peek() const { return p < end ? *p : '\0'; }
  // Takes c (letters case-insensitively) when it is next.
  bool take(char c);
  // Takes one of the date separators "/-. " when it is next.
  bool take_date_separator();
  // The same and ':', between the numbers of a day-month-year date: the
  // separator letters B, C, D, N, P and S of the numeric date formats give
  // blank, colon, dash, nothing, period and slash, and all read back.
  bool take_numeric_date_separator();
  // Skips blanks and tabs; true when there was at least one.
  bool skip_blanks();
  // Length of the digit run at the cursor (not consumed).
  size_t digit_run() const;
  // Reads exactly n digits (n <= 9).
  int64_t fixed(size_t n);
};

// Calendar parts as read; the year already four digits.
struct date_parts {
  int64_t year;
  int64_t month;
  int64_t day;
};

enum class date_order { mdy, dmy, ymd };

// A year of 2 digits (0..49 -> 20xx, 50..99 -> 19xx) or 4 digits; the whole
// digit run must be 2 or 4 long, so "2023" never reads as "20" then "23".
bool read_year(date_cursor &c, int64_t &year);

// "JAN".."DEC" in any case, or the full English name ("July", "SEPTEMBER");
// returns the month 1..12 or 0 with nothing consumed.
int read_month_name(date_cursor &c);

// Three numbers in the given order: compact ("070423" or "07042023", year
// four digits at its end or start) or separated by one of "/-. " each
// ("7-4-23", "2023/07/04"); day and month one or two digits.
bool read_numeric_date(date_cursor &c, date_order order, date_parts &out);

// Day, month name, year with optional separators: "04JUL2023", "4jul23",
// "04-JUL-2023", "4 July 2023".
bool read_name_date(date_cursor &c, date_parts &out);

// Hours, minutes and seconds (fraction kept) of a time of day:
// "h:mm", "h:mm:ss", "h:mm:ss.fff", then optionally blanks and AM/PM (A, AM,
// P, PM in any case; then the hour must be 1..12 and 12 AM is midnight).
// Hours are at most max_hour; minutes and whole seconds 0..59.
struct time_parts {
  double hour;
  double minute;
  double second;
};
bool read_time_of_day(date_cursor &c, int64_t max_hour, time_parts &out);

// Seconds of a time: one or two digits, optionally a point and more digits
// ("05", "5.25"); below 60.
bool read_seconds(date_cursor &c, double &second);

// The date value of the parts, or the ordinary missing value when the day
// does not exist or lies outside 1582-01-01 .. 20000-12-31.
double date_value(const date_parts &d);

}  // namespace xfmt::informats
