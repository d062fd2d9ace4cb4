// Literal transcriptions of the Julian-value rules; see calendar_oracle.hpp.
#include "oracle/calendar_oracle.hpp"

#include <cmath>

namespace xfmt::oracle {
namespace {

const int month_days[12] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

int64_t fdiv(int64_t a, int64_t b) {
  return static_cast<int64_t>(std::floor(static_cast<double>(a) / static_cast<double>(b)));
}

int64_t expand(int64_t y) { return y < 50 ? y + 2000 : (y < 100 ? y + 1900 : y); }

bool split(double v, int64_t &y, int64_t &ddd) {
  if (std::isnan(v) || v == 0 || v < 0 || v > 20000365) return false;
  y = static_cast<int64_t>(std::trunc(v / 1000));
  if (y >= 100 && y <= 1581) return false;
  ddd = static_cast<int64_t>(std::trunc(v)) - y * 1000;
  if (ddd > 366) return false;
  y = expand(y);
  if (ddd > 365 + (leap_4000(y) ? 1 : 0)) return false;
  return true;
}

}  // namespace

bool leap_4000(int64_t y) {
  if (y % 4000 == 0) return false;
  if (y % 400 == 0) return true;
  if (y % 100 == 0) return false;
  return y % 4 == 0;
}

int64_t month_length(int64_t y, int64_t m) { return m == 2 ? 28 + (leap_4000(y) ? 1 : 0) : month_days[m - 1]; }

bool datjul(double julian, int64_t &date) {
  int64_t y, ddd;
  if (!split(julian, y, ddd)) return false;
  date = ddd + 365 * y + fdiv(y - 1, 4) - fdiv(y - 1, 100) + fdiv(y - 1, 400) - fdiv(y - 1, 4000) -
         715875;
  return true;
}

bool julymd(double year, double month, double day, int64_t &julian) {
  if (std::isnan(year) || std::isnan(month) || std::isnan(day)) return false;
  if (month < 1 || month > 12 || day < 1 || day > 31 || year < 0) return false;
  if (year > 99 && year < 1582) return false;
  if (year > 20000) return false;
  int64_t y = expand(static_cast<int64_t>(std::trunc(year)));
  int64_t m = static_cast<int64_t>(std::trunc(month)), d = static_cast<int64_t>(std::trunc(day));
  if (d > month_length(y, m)) return false;
  int64_t sum = 0;
  for (int64_t k = 1; k < m; ++k) sum += month_length(y, k);
  julian = y * 1000 + sum + d;
  return true;
}

bool ymdjul(double julian, int64_t &year, int64_t &month, int64_t &day) {
  int64_t y, ddd;
  if (!split(julian, y, ddd)) return false;
  int64_t m = 1;
  while (m < 12 && ddd > month_length(y, m)) ddd -= month_length(y, m++);
  year = y;
  month = m;
  day = ddd;
  return true;
}

int64_t juldat(int64_t date) {
  int64_t y = 1960, rest = date;  // rest: days after 1 January of y
  while (rest < 0) rest += 365 + (leap_4000(--y) ? 1 : 0);
  while (rest >= 365 + (leap_4000(y) ? 1 : 0)) rest -= 365 + (leap_4000(y++) ? 1 : 0);
  return y * 1000 + rest + 1;
}

}  // namespace xfmt::oracle
