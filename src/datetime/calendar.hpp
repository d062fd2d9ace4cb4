// The calendar of the library, typed: day numbers counted from 1960-01-01,
// the leap rule with the 4000-year exception, day numbers to and from year,
// month and day, the weekday, the day of the year, quarters, the three week
// rules (U weeks from Sunday, W weeks from Monday, V the ISO 8601 week and
// its year) and the split of a time of day. Every subsystem takes its
// calendar arithmetic from here; the exported routines on doubles (zjuldat,
// zyear, get_yywwdd, zhour, ...) are thin wrappers over it. The integer
// parts are constexpr so tests can pin anchors at compile time.
#pragma once

#include <cmath>
#include <cstdint>

#include "core/missing.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::datetime {

// Valid date values: 1582-01-01 up to 20000-12-31, inclusive.
inline constexpr int64_t date_min = -138061;
inline constexpr int64_t date_max = 6589335;
// Valid datetime values: [date_min * 86400, (date_max + 1) * 86400).
inline constexpr double datetime_min = -11928470400.0;
inline constexpr double datetime_end = 569318630400.0;
inline constexpr double seconds_per_day = 86400.0;

inline bool date_in_range(double v) {
  return v >= static_cast<double>(date_min) && v < static_cast<double>(date_max + 1);
}
inline bool datetime_in_range(double v) { return v >= datetime_min && v < datetime_end; }

constexpr int64_t floor_div(int64_t a, int64_t b) {
  int64_t q = a / b;
  return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

// Leap rule of date values: multiples of 4000 are common years, then the
// usual 400/100/4 rule.
constexpr bool is_leap(int64_t y) {
  if (y % 4000 == 0) return false;
  if (y % 400 == 0) return true;
  if (y % 100 == 0) return false;
  return y % 4 == 0;
}
// The plain 4/100/400 rule (week rules and the actual/actual day counts).
constexpr bool is_leap_plain(int64_t y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

constexpr int64_t days_in_year(int64_t y) { return is_leap(y) ? 366 : 365; }

// Two-digit years of the Julian routines: 0..49 are 2000..2049, 50..99 are
// 1950..1999. The pivot is fixed on purpose.
constexpr int64_t expand_year(int64_t y) {
  if (y >= 0 && y <= 49) return y + 2000;
  if (y >= 50 && y <= 99) return y + 1900;
  return y;
}

// Days from 0000-03-01 (proleptic, 4/100/400) to 1960-01-01.
inline constexpr int64_t shift_1960 = 715815;
// 4000-03-01 as a date value: from here on every multiple of 4000 has
// dropped one 29 February, and the cycle of the rule is 1460969 days.
inline constexpr int64_t first_skip_day = 745154;
inline constexpr int64_t days_per_4000 = 1460969;

struct ymd {
  int64_t year;
  int32_t month;  // 1..12
  int32_t day;    // 1..31
};

// Date value of a calendar day. Works in 400-year eras of the plain rule,
// counted from 1 March so the leap day is last, then removes one day for
// every multiple of 4000 whose March has passed: y_march / 4000 counts them.
//   yoe in [0, 399], doy in [0, 365], doe in [0, 146096].
constexpr int64_t days_from_ymd(int64_t y, int32_t m, int32_t d) {
  const int64_t y_march = y - (m <= 2 ? 1 : 0);
  const int64_t era = floor_div(y_march, 400);
  const int64_t yoe = y_march - era * 400;
  const int64_t mp = (m + 9) % 12;  // March = 0 .. February = 11
  const int64_t doy = (153 * mp + 2) / 5 + d - 1;
  const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - shift_1960 - floor_div(y_march, 4000);
}

// Date value of day ddd (1-based) of year y.
constexpr int64_t days_from_year_day(int64_t y, int64_t ddd) { return days_from_ymd(y, 1, 1) - 1 + ddd; }

// Calendar day of a date value: the inverse of days_from_ymd. First the
// dropped 29 Februaries before n are put back (one per 4000-year cycle
// whose March has begun), then the plain era split applies.
constexpr ymd ymd_from_days(int64_t n) {
  const int64_t g = n + floor_div(n - first_skip_day, days_per_4000) + 1;
  const int64_t z = g + shift_1960;
  const int64_t era = floor_div(z, 146097);
  const int64_t doe = z - era * 146097;                                        // [0, 146096]
  const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;  // [0, 399]
  const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);                // [0, 365]
  const int64_t mp = (5 * doy + 2) / 153;                                      // [0, 11]
  const int32_t d = static_cast<int32_t>(doy - (153 * mp + 2) / 5 + 1);
  const int32_t m = static_cast<int32_t>(mp < 10 ? mp + 3 : mp - 9);
  return ymd{yoe + era * 400 + (m <= 2 ? 1 : 0), m, d};
}

// The same split for a date value inside the valid range, the formats' hot
// path: unsigned 32-bit arithmetic in which every division by a constant is
// a multiply and shift, with the year and the day of the year taken from one
// product (Euclidean affine functions, after Neri and Schneider, 2022):
//   z   days since 0000-03-01 with the dropped 29 Februaries put back
//       (577754 .. 7305155 over the valid range);
//   4z + 3 = 146097 c + r gives the century c and r = 4 x day of century;
//   2939745 / 2^32 is close enough to 4 / 1461 that over a century the high
//       half of 2939745 (r | 3) is the year of the century and the low half,
//       divided by 2939745 x 4, the day of the year counted from 1 March;
//   2141 / 2^16 stands for 5 / 153: the month from March in the high half,
//       the day of the month times 2141 in the low half.
// The whole-range sweep of the tests checks it against ymd_from_days.
constexpr ymd ymd_in_range(int64_t n) {
  const auto shifted = static_cast<uint32_t>(n + shift_1960);
  uint32_t z = shifted;
  if (shifted >= static_cast<uint32_t>(days_per_4000)) [[unlikely]]  // from 4000-03-01 on
    z += shifted / static_cast<uint32_t>(days_per_4000);
  const uint32_t n1 = 4 * z + 3;
  const uint32_t century = n1 / 146097, r = n1 % 146097;
  const uint64_t p2 = uint64_t{2939745} * (r | 3);
  const auto year_of_century = static_cast<uint32_t>(p2 >> 32);
  const uint32_t day_from_march = static_cast<uint32_t>(p2) / 2939745 / 4;  // 0..365
  const uint32_t n3 = 2141 * day_from_march + 197913;
  const uint32_t jan_feb = day_from_march >= 306 ? 1 : 0;
  return ymd{static_cast<int64_t>(100 * century + year_of_century + jan_feb),
             static_cast<int32_t>((n3 >> 16) - 12 * jan_feb),
             static_cast<int32_t>((n3 & 0xFFFF) / 2141 + 1)};
}

// Days of a common year before the first of each month (index 1..12). At
// namespace scope: a table local to the function was built on the stack
// at every call.
inline constexpr int32_t common_days_before[13] = {0,   0,   31,  59,  90,  120, 151,
                                                  181, 212, 243, 273, 304, 334};

// Day of the year (1-based) of a calendar day.
constexpr int32_t day_of_year(int64_t y, int32_t m, int32_t d) {
  return common_days_before[m] + d + (m > 2 && is_leap(y) ? 1 : 0);
}

// Weekday of a day number, 0 = Sunday .. 6 = Saturday, true on every day
// (1960-01-01 was a Friday). zwekday keeps a shifted count before
// 1600-01-02 for its own callers; everything else uses this one.
constexpr int32_t weekday(int64_t n) {
  const int64_t w = (n + 5) % 7;
  return static_cast<int32_t>(w < 0 ? w + 7 : w);
}

constexpr int32_t quarter(int32_t month) { return (month - 1) / 3 + 1; }

// Days of each month of a common year (index 1..12).
inline constexpr int32_t common_month_days[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

constexpr int32_t days_in_month(int64_t y, int32_t m) {
  return m == 2 && is_leap(y) ? 29 : common_month_days[m];
}

// Julian value yyyyddd of a calendar day (year 1582 on: no pivot applies).
constexpr int64_t julian(const ymd &c) { return c.year * 1000 + day_of_year(c.year, c.month, c.day); }

// Day of the year by the plain 4/100/400 rule, the count the week rules
// use: in a year divisible by 4000 it runs one ahead of day_of_year from
// March on, and the week numbers of those years have always followed it.
constexpr int32_t day_of_year_plain(int64_t y, int32_t m, int32_t d) {
  return common_days_before[m] + d + (m > 2 && is_leap_plain(y) ? 1 : 0);
}

// Week of the year whose weeks begin on Sunday (U): days before the first
// Sunday are week 0. yday is 1-based, wday 0 = Sunday.
constexpr int32_t sunday_week(int32_t yday, int32_t wday) { return (yday - 1 + 7 - wday) / 7; }

// Week of the year whose weeks begin on Monday (W): days before the first
// Monday are week 0.
constexpr int32_t monday_week(int32_t yday, int32_t wday) {
  return (yday - 1 + 7 - (wday + 6) % 7) / 7;
}

// Weekday counted from Monday: 1 = Monday .. 7 = Sunday.
constexpr int32_t monday_weekday(int32_t wday) { return wday == 0 ? 7 : wday; }

struct iso_week {
  int64_t year;  // the week-year: the previous or next year near 1 January
  int32_t week;  // 1..53
};

// ISO 8601 week of day yday (1-based, plain rule) of year y with weekday
// wday (0 = Sunday). t is the day's offset from the Monday of week 1 plus a
// shift of 3 that the integer division removes again; a negative t means
// the day belongs to the last week of the previous year, a non-negative
// `next` to week 1 of the following one.
constexpr iso_week iso_week_of(int64_t y, int32_t yday, int32_t wday) {
  const int64_t d = yday - 1, wd = wday + 1;
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
  return iso_week{wy, static_cast<int32_t>(t / 7 + 1)};
}

enum class week_rule : char { sunday = 'U', iso = 'V', monday = 'W' };

struct week_date {
  int64_t year;     // the calendar year; the ISO week-year for week_rule::iso
  int32_t week;     // U and W 0..53, V 1..53
  int32_t weekday;  // U 1 = Sunday .. 7; W and V 1 = Monday .. 7 = Sunday
};

// A date value's week by one of the three rules (n within date_min..date_max).
constexpr week_date week_of(int64_t n, week_rule rule) {
  const ymd c = ymd_in_range(n);
  const int32_t wday = weekday(n);
  const int32_t yday = day_of_year_plain(c.year, c.month, c.day);
  switch (rule) {
    case week_rule::sunday: return {c.year, sunday_week(yday, wday), wday + 1};
    case week_rule::monday: return {c.year, monday_week(yday, wday), monday_weekday(wday)};
    case week_rule::iso: break;
  }
  const iso_week v = iso_week_of(c.year, yday, wday);
  return {v.year, v.week, monday_weekday(wday)};
}

// Day number of a value, by floor (the value must fit an int64).
inline int64_t day_floor(double v) {
  auto n = static_cast<int64_t>(v);
  if (static_cast<double>(n) > v) --n;  // floor for negative fractions
  return n;
}

// The calendar day of an in-range date value (fraction dropped by floor).
inline ymd ymd_of_value(double v) { return ymd_in_range(day_floor(v)); }

// A time of day taken apart. The hour comes from the remainder of the day
// moved into [0, 86400); minute and second count back from midnight for
// negative values, so a negative whole day gives 0:00:00 and -1 gives
// 23:59:59. Whole hours and minutes, the second keeps its fraction.
struct time_parts {
  double hour;    // 0..23
  double minute;  // 0..59
  double second;  // [0, 60)
};

inline time_parts split_time(double v) {
  const double r = std::fmod(v, seconds_per_day);
  const double back = v < 0 ? seconds_per_day - std::fabs(r) : r;
  return time_parts{std::trunc(std::fabs((r < 0 ? r + seconds_per_day : r) / 3600.0)),
                     std::trunc(std::trunc(std::fmod(back, 3600.0)) / 60.0),
                     std::fmod(back, 60.0)};
}

// Seconds of a time given in parts: hours may pass 23, the second keeps its
// fraction.
constexpr double time_value(double hour, double minute, double second) {
  return second + (hour * 60.0 + minute) * 60.0;
}

// The datetime value of an in-range date value at `seconds` into the day.
constexpr double datetime_value(double date, double seconds) { return seconds + date * seconds_per_day; }

// The day number of an in-range datetime value, floor(dt / 86400): floor(dt)
// is a whole number of seconds that fits an int64, and the integer floor
// division by 86400 is a multiply.
inline int64_t day_of_datetime(double dt) { return floor_div(static_cast<int64_t>(std::floor(dt)), 86400); }

// The second of the day of an in-range datetime value, [0, 86400).
// Shifting non-positive values by a whole number of days keeps fmod's
// remainder non-negative: -1 gives 86399.
inline double second_of_day(double dt) {
  return std::fmod(dt <= 0 ? dt - datetime_min : dt, seconds_per_day);
}

// An in-range datetime value split for display: the day, and the time of
// day in units of 10^-decimals seconds (below 8.64e10: exact in a double),
// rounded half up when the seconds show (a carry moves to the next day),
// cut otherwise. decimals 0..6.
struct datetime_parts {
  int64_t day;
  int64_t second;    // 0..86399
  int64_t fraction;  // 0 .. 10^decimals - 1
};

inline datetime_parts split_datetime(double dt, bool round_seconds, int32_t decimals) {
  constexpr int64_t pow10[7] = {1, 10, 100, 1000, 10000, 100000, 1000000};
  int64_t day = day_of_datetime(dt);
  const double tod = second_of_day(dt);
  const int64_t scale = pow10[decimals];
  int64_t units = round_seconds ? static_cast<int64_t>(std::floor(tod * static_cast<double>(scale) + 0.5))
                                : static_cast<int64_t>(tod) * scale;
  if (units >= 86400 * scale) {
    units -= 86400 * scale;
    ++day;
  }
  return {day, units / scale, units % scale};
}

using ::xfmt::is_missing;

inline double missing() { return missing_ordinary(); }

// Missing in the library's sense, or any other NaN (which no routine can
// place on the calendar either).
inline bool unusable(double v) { return is_missing(v) || std::isnan(v); }

static_assert(days_from_ymd(1960, 1, 1) == 0);
static_assert(days_from_ymd(1582, 1, 1) == date_min);
static_assert(days_from_ymd(20000, 12, 31) == date_max);
static_assert(days_from_ymd(4000, 3, 1) == first_skip_day);
static_assert(days_from_ymd(4000, 2, 28) == first_skip_day - 1);
static_assert(days_from_ymd(2000, 2, 29) == 14669);
static_assert(ymd_from_days(first_skip_day).month == 3 && ymd_from_days(first_skip_day).day == 1);
static_assert(ymd_from_days(first_skip_day - 1).day == 28);
static_assert(ymd_from_days(date_max).year == 20000 && ymd_from_days(date_max).day == 31);
static_assert(ymd_from_days(-1).year == 1959 && ymd_from_days(-1).month == 12);
static_assert(ymd_in_range(date_min).year == 1582 && ymd_in_range(date_min).day == 1);
static_assert(ymd_in_range(first_skip_day).month == 3 && ymd_in_range(first_skip_day - 1).day == 28);
static_assert(ymd_in_range(date_max).year == 20000 && ymd_in_range(date_max).month == 12);
static_assert(weekday(0) == 5 && weekday(-1) == 4 && weekday(date_min) == 5);
static_assert(days_in_month(2000, 2) == 29 && days_in_month(4000, 2) == 28 && days_in_month(2023, 12) == 31);
static_assert(days_in_month(2023, 4) == 30 && days_in_month(2023, 1) == 31);
// 2021-01-03, a Sunday: week 53 of ISO year 2020, week 1 by U, week 0 by W.
static_assert(week_of(days_from_ymd(2021, 1, 3), week_rule::iso).year == 2020);
static_assert(week_of(days_from_ymd(2021, 1, 3), week_rule::iso).week == 53);
static_assert(week_of(days_from_ymd(2021, 1, 3), week_rule::sunday).week == 1);
static_assert(week_of(days_from_ymd(2021, 1, 3), week_rule::monday).week == 0);
// 2024-12-30, a Monday: week 1 of ISO year 2025.
static_assert(week_of(days_from_ymd(2024, 12, 30), week_rule::iso).year == 2025);

}  // namespace xfmt::datetime
