// Readers of the date and time pieces; see date_scanner.hpp.
#include "xfmt/xfmt.h"

#include "informats/date_scanner.hpp"

#include "datetime/calendar.hpp"
#include "informats/number_reader.hpp"

namespace xfmt::informats {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// One or two digits of a day, a month or an era year.
bool read_small(date_cursor &c, int64_t &v) {
  const size_t n = c.digit_run();
  if (n < 1 || n > 2) return false;
  v = c.fixed(n);
  return true;
}

bool read_year_digits(date_cursor &c, size_t n, int64_t &year) {
  year = c.fixed(n);
  if (n == 2) {
    year = datetime::expand_year(year);
    return true;
  }
  return year >= 1582;  // "0023" is no year of the calendar
}

}  // namespace

bool date_cursor::take(char c) {
  if (p < end && upper(*p) == c) {
    ++p;
    return true;
  }
  return false;
}

bool date_cursor::take_date_separator() {
  if (p < end && (*p == '/' || *p == '-' || *p == '.' || *p == ' ')) {
    ++p;
    return true;
  }
  return false;
}

bool date_cursor::take_numeric_date_separator() { return take(':') || take_date_separator(); }

bool date_cursor::skip_blanks() {
  const char *start = p;
  while (p < end && is_blank_or_tab(*p)) ++p;
  return p != start;
}

size_t date_cursor::digit_run() const {
  const char *q = p;
  while (q < end && is_digit(*q)) ++q;
  return static_cast<size_t>(q - p);
}

int64_t date_cursor::fixed(size_t n) {
  int64_t v = 0;
  for (size_t i = 0; i < n; ++i) v = v * 10 + (*p++ - '0');
  return v;
}

bool read_year(date_cursor &c, int64_t &year) {
  const size_t n = c.digit_run();
  if (n != 2 && n != 4) return false;
  return read_year_digits(c, n, year);
}

int read_month_name(date_cursor &c) {
  if (c.end - c.p < 3) return 0;
  for (int m = 1; m <= 12; ++m) {
    const char *abbr = datestgs[11 + m];
    if (upper(c.p[0]) != abbr[0] || upper(c.p[1]) != abbr[1] || upper(c.p[2]) != abbr[2]) continue;
    // The rest of the full name, when the text goes on with it: "JULY".
    const char *full = months[m - 1];
    const char *q = c.p + 3;
    size_t i = 3;
    while (full[i] != '\0' && q < c.end && upper(*q) == upper(full[i])) ++q, ++i;
    c.p = full[i] == '\0' ? q : c.p + 3;
    return m;
  }
  return 0;
}

bool read_numeric_date(date_cursor &c, date_order order, date_parts &out) {
  const size_t run = c.digit_run();
  if (run == 6 || run == 8) {  // compact: 2-2-2, or the year in four digits
    const size_t yn = run == 6 ? 2 : 4;
    int64_t a = 0, b = 0;
    if (order == date_order::ymd) {
      if (!read_year_digits(c, yn, out.year)) return false;
      a = c.fixed(2);
      b = c.fixed(2);
      out.month = a;
      out.day = b;
      return true;
    }
    a = c.fixed(2);
    b = c.fixed(2);
    if (!read_year_digits(c, yn, out.year)) return false;
    out.month = order == date_order::mdy ? a : b;
    out.day = order == date_order::mdy ? b : a;
    return true;
  }
  int64_t first = 0, second = 0;
  if (order == date_order::ymd) {
    if (!read_year(c, out.year) || !c.take_numeric_date_separator()) return false;
    if (!read_small(c, out.month) || !c.take_numeric_date_separator()) return false;
    return read_small(c, out.day);
  }
  if (!read_small(c, first) || !c.take_numeric_date_separator()) return false;
  if (!read_small(c, second) || !c.take_numeric_date_separator()) return false;
  if (!read_year(c, out.year)) return false;
  out.month = order == date_order::mdy ? first : second;
  out.day = order == date_order::mdy ? second : first;
  return true;
}

bool read_name_date(date_cursor &c, date_parts &out) {
  if (!read_small(c, out.day)) return false;
  c.take_date_separator();
  out.month = read_month_name(c);
  if (out.month == 0) return false;
  c.take_date_separator();
  return read_year(c, out.year);
}

// Seconds: one or two digits, then optionally a point and at least one more
// digit; the text goes through the number reader, so "03.1" is the double
// nearest 3.1 rather than 3 + 1/10 rounded twice.
bool read_seconds(date_cursor &c, double &second) {
  const char *start = c.p;
  const size_t n = c.digit_run();
  if (n < 1 || n > 2) return false;
  c.p += n;
  if (c.peek() == '.') {
    ++c.p;
    const size_t f = c.digit_run();
    if (f == 0) return false;
    c.p += f;
  }
  if (read_number(start, static_cast<size_t>(c.p - start), 0, second) != XF_OK) return false;
  return second < 60.0;
}

bool read_time_of_day(date_cursor &c, int64_t max_hour, time_parts &out) {
  const size_t hn = c.digit_run();
  if (hn < 1 || hn > 6) return false;
  const int64_t hour = c.fixed(hn);
  int64_t minute = 0;
  if (!c.take(':') || !read_small(c, minute) || minute > 59) return false;
  out.second = 0;
  if (c.take(':') && !read_seconds(c, out.second)) return false;
  // AM/PM may follow the time directly or after blanks.
  const char *before = c.p;
  c.skip_blanks();
  const bool am = c.take('A');
  const bool pm = !am && c.take('P');
  if (am || pm) {
    c.take('M');
    if (hour < 1 || hour > 12) return false;
    out.hour = static_cast<double>(hour % 12 + (pm ? 12 : 0));
  } else {
    c.p = before;
    if (hour > max_hour) return false;
    out.hour = static_cast<double>(hour);
  }
  out.minute = static_cast<double>(minute);
  return true;
}

double date_value(const date_parts &d) {
  if (d.month < 1 || d.month > 12 || d.day < 1 || d.day > 31) return datetime::missing();
  // Years 0..99 take the fixed pivot; 100..1581 and past 20000 are off the calendar.
  if (d.year < 0 || (d.year > 99 && d.year < 1582) || d.year > 20000) return datetime::missing();
  const int64_t y = datetime::expand_year(d.year);
  const auto m = static_cast<int32_t>(d.month), day = static_cast<int32_t>(d.day);
  if (day > datetime::days_in_month(y, m)) return datetime::missing();
  return static_cast<double>(datetime::days_from_ymd(y, m, day));
}

}  // namespace xfmt::informats
