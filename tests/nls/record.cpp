// The test record and hand-built moments (plain day counting, good for the
// Gregorian dates the tests use).
#include "record.hpp"

#include <gtest/gtest.h>

namespace xfmt::test {
namespace {

bool leap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int64_t days_before_year(int y) {  // days from 1960-01-01 to y-01-01
  int64_t d = 0;
  for (int k = 1960; k < y; ++k) d += leap(k) ? 366 : 365;
  for (int k = y; k < 1960; ++k) d -= leap(k) ? 366 : 365;
  return d;
}

int day_of_year(int y, int m, int d) {
  static const int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  return before[m - 1] + d + (m > 2 && leap(y) ? 1 : 0);
}

int weekday(int64_t day_number) {  // 0 Sunday; 1960-01-01 was a Friday
  int64_t r = (day_number + 5) % 7;
  return static_cast<int>(r < 0 ? r + 7 : r);
}

}  // namespace

nls::moment date_moment(int y, int m, int d) {
  nls::moment t;
  t.has_date = true;
  t.year = y;
  t.month = m;
  t.day = d;
  t.yday = day_of_year(y, m, d);
  t.day_number = days_before_year(y) + t.yday - 1;
  t.wday = weekday(t.day_number);
  // ISO week: the Thursday of this week decides the year.
  int iso_wd = t.wday == 0 ? 7 : t.wday;
  int64_t thursday = t.day_number + 4 - iso_wd;
  int ty = y;
  if (thursday < days_before_year(y))
    ty = y - 1;
  else if (thursday >= days_before_year(y + 1))
    ty = y + 1;
  t.iso_year = ty;
  t.iso_week = static_cast<int>((thursday - days_before_year(ty)) / 7 + 1);
  int monday_wd = (t.wday + 6) % 7;  // 0 Monday
  t.monday_week = (t.yday - 1 + 7 - monday_wd) / 7;
  return t;
}

nls::moment datetime_moment(int y, int m, int d, int hh, int mi, double ss) {
  nls::moment t = date_moment(y, m, d);
  t.has_hour = t.has_minute = t.has_second = true;
  t.hour = hh;
  t.minute = mi;
  t.second = ss;
  return t;
}

test_record english_like() {
  test_record r;
  r.fields[5] = "US";
  r.fields[28] = "%B %d, %Y";
  r.fields[29] = "%m/%d/%y";
  r.fields[53] = "%H:%M:%S";
  r.set_range(59,
              {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
  r.set_range(71, {"January", "February", "March", "April", "May", "June", "July", "August",
                   "September", "October", "November", "December"});
  r.set_range(83,
              {"jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"});
  r.set_range(95, {"january", "february", "march", "april", "may", "june", "july", "august",
                   "september", "october", "november", "december"});
  r.set_range(107, {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"});
  r.set_range(114, {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});
  r.set_range(121, {"sun", "mon", "tue", "wed", "thu", "fri", "sat"});
  r.set_range(128, {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"});
  r.set_range(135, {"Q1", "Q2", "Q3", "Q4"});
  r.set_range(139, {"1st quarter", "2nd quarter", "3rd quarter", "4th quarter"});
  r.set_range(143, {"q1", "q2", "q3", "q4"});
  r.set_range(147, {"first quarter", "second quarter", "third quarter", "fourth quarter"});
  r.fields[151] = "AM";
  r.fields[152] = "PM";
  r.fields[172] = ".";
  return r;
}

}  // namespace xfmt::test
