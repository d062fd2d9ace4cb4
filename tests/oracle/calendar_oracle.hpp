// Slow, literal reference versions of the Julian-value routines, written
// step by step from their rules (month walks, year-by-year sums), for the
// differential tests of the fast era-based calendar.
#pragma once

#include <cstdint>

namespace xfmt::oracle {

bool leap_4000(int64_t y);
// Days in month m (1-12) of year y.
int64_t month_length(int64_t y, int64_t m);
// Date value of a Julian value by the closed sum over years; false when invalid.
bool datjul(double julian, int64_t &date);
// Julian value of year/month/day by summing month lengths; false when invalid.
bool julymd(double year, double month, double day, int64_t &julian);
// Year, month, day of a Julian value by walking the months; false when invalid.
bool ymdjul(double julian, int64_t &year, int64_t &month, int64_t &day);
// Julian value of an in-range date by walking whole years from 1960.
int64_t juldat(int64_t date);

}  // namespace xfmt::oracle
