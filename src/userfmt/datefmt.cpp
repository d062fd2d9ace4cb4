// The date-directive formatter of date pictures: a template of %-directives
// rendered for a DATE (days), TIME (seconds) or DATETIME (seconds) value.
//   %a %A  weekday, abbreviated / full     %b %B  month, abbreviated / full
//   %d     day of month                    %m     month number
//   %y %Y  year in two / four digits       %j     day of year
//   %H %I  hour 00-23 / 01-12              %M %S  minute, second
//   %p     AM or PM                        %w     weekday 0 (Sunday) - 6
//   %U     week of the year, weeks starting on Sunday (days before the first
//          Sunday are week 0)              %%     a percent sign
// Numbers are written without padding unless the flag 0 follows the percent
// sign (%0d: two digits, %0j three, %0Y four). Any other character, and a
// directive not listed, is copied as it stands.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "userfmt/datefmt.hpp"

namespace xfmt::userfmt {
namespace {

using nls::part;

// The English names the directives show, laid out as a locale's names are:
// the abbreviations are the first three letters of the full names.
nls::locale_names english_names() {
  nls::locale_names t{};
  auto set = [&t](int field, const char *text, size_t length) {
    nls::name_entry &e = t.names[field - nls::first_name_field];
    e.text = text;
    e.length = static_cast<uint16_t>(length);
    e.chars = e.length;
    std::memcpy(t.slots[field - nls::first_name_field], text, length);
  };
  for (int k = 0; k < 12; ++k) {
    set(nls::lf::month_abbr_jan + k, months[k], 3);
    set(nls::lf::month_full_jan + k, months[k], std::strlen(months[k]));
  }
  for (int k = 0; k < 7; ++k) {
    set(nls::lf::weekday_abbr_sun + k, weekdays[k], 3);
    set(nls::lf::weekday_full_sun + k, weekdays[k], std::strlen(weekdays[k]));
  }
  set(nls::lf::am_marker, "AM", 2);
  set(nls::lf::pm_marker, "PM", 2);
  return t;
}

const nls::locale_names &english() {
  static const nls::locale_names names = english_names();
  return names;
}

// One directive as steps; false when it does not apply (it is then copied
// as it stands). Numbers have no padding unless zero is set.
bool directive(nls::plan_maker &b, char c, bool zero, bool has_date, bool has_time) {
  auto num = [&](part p, uint8_t width, uint8_t needs) {
    return b.least(p, zero ? width : 1, false, needs);
  };
  constexpr uint8_t date = nls::need_date, time = nls::need_hour;
  switch (c) {
    case 'a': case 'A': case 'b': case 'B': case 'd': case 'j': case 'm':
    case 'U': case 'w': case 'y': case 'Y':
      if (!has_date) return false;
      break;
    case 'H': case 'I': case 'M': case 'S': case 'p':
      if (!has_time) return false;
      break;
    default: return false;
  }
  switch (c) {
    case 'a': return b.name(nls::lf::weekday_abbr_sun, 7, part::wday, false, date);
    case 'A': return b.name(nls::lf::weekday_full_sun, 7, part::wday, false, date);
    case 'b': return b.name(nls::lf::month_abbr_jan, 12, part::month_index, false, date);
    case 'B': return b.name(nls::lf::month_full_jan, 12, part::month_index, false, date);
    case 'd': return num(part::day, 2, date);
    case 'j': return num(part::yday, 3, date);
    case 'm': return num(part::month, 2, date);
    case 'U': return num(part::sunday_week, 2, date);
    case 'w': return num(part::wday, 1, date);
    case 'y': return num(part::year_of_century, 2, date);
    case 'Y': return num(part::year, 4, date);
    case 'H': return num(part::hour, 2, time);
    case 'I': return num(part::hour_12, 2, time);
    case 'M': return num(part::minute, 2, time);
    case 'S': return num(part::second, 2, time);
    default: return b.name(nls::lf::am_marker, 2, part::half_of_count, false, time);  // 'p'
  }
}

// Compiles the picture from position i into plan; returns where the steps
// stop (the picture's end when the plan is complete).
int32_t compile_picture(const char *picture, int32_t length, int32_t i, bool has_date,
                        bool has_time, nls::pattern_plan *plan) {
  nls::plan_maker b(english(), plan);
  for (; i < length; ++i) {
    if (!b.room_for(1, 2)) break;
    const char c = picture[i];
    if (c != '%' || i + 1 >= length) {
      b.literal(&c, 1);
      continue;
    }
    int32_t j = i + 1;
    const bool zero = picture[j] == '0';
    if (zero && j + 1 < length) ++j;
    if (picture[j] == '%') {
      b.literal("%", 1);
      i = j;
    } else if (directive(b, picture[j], zero, has_date, has_time)) {
      i = j;
    } else {
      b.literal(&c, 1);
    }
  }
  b.finish(i < length ? nls::plan_state::partial : nls::plan_state::complete);
  return i;
}

// The date of a value: the calendar's day, with the weekday as the host
// has always counted it (whole days from 1600-01-02 truncated, so a
// fractional date before then takes the weekday of the day after).
bool date_parts(double date, nls::moment &m) {
  if (datetime::unusable(date) || !datetime::date_in_range(date)) return false;
  const datetime::ymd c = datetime::ymd_of_value(date);
  const int64_t n = static_cast<int64_t>(date + 131486.0);
  m.has_date = true;
  m.year = static_cast<int>(c.year);
  m.month = c.month;
  m.day = c.day;
  m.yday = datetime::day_of_year(c.year, c.month, c.day);
  m.wday = static_cast<int>((n % 7 + 7) % 7);
  return true;
}

bool time_parts(double t, nls::moment &m) {
  if (datetime::unusable(t) || !datetime::datetime_in_range(t)) return false;
  const datetime::time_parts p = datetime::split_time(t);
  m.has_hour = m.has_minute = m.has_second = true;
  m.hour = static_cast<int>(p.hour);
  m.minute = static_cast<int>(p.minute);
  m.second = static_cast<int>(p.second);  // whole seconds, as shown
  return true;
}

// The moment of value for datatype; false when the value writes a single
// character instead (a missing value its letter or ".", an unusable one
// "*"), which is then stored and counted in *written.
bool moment_of(int32_t datatype, double value, nls::moment &m, char *work, size_t room,
               int32_t *written) {
  char single = 0;
  if (xfmt::is_missing(value)) {
    const char symbol = xfmt::missing_symbol(xfmt::double_bits(value));
    single = symbol == ' ' ? '.' : symbol;
  } else {
    bool ok = true;
    if (datatype == 1) ok = date_parts(value, m);
    else if (datatype == 2) ok = time_parts(value, m);
    else if (datatype == 3) ok = date_parts(zdatprt(value), m) && time_parts(ztimprt(value), m);
    if (ok && !std::isnan(value)) return true;
    single = '*';
  }
  if (room > 0) work[0] = single;
  *written = room > 0 ? 1 : 0;
  return false;
}

size_t room_of(int32_t capacity) { return capacity > 0 ? static_cast<size_t>(capacity) : 0; }

}  // namespace

// The plans stand after a label's text, copied byte for byte.
static_assert(std::is_trivially_copyable_v<nls::pattern_plan>);

size_t compile_date_template(const char *t, int32_t length, int32_t datatype,
                             nls::pattern_plan *plans) {
  const bool has_date = datatype == 1 || datatype == 3, has_time = datatype == 2 || datatype == 3;
  size_t count = 0;
  int32_t at = 0;
  do {
    if (count == date_plans_max) return 0;
    at = compile_picture(t, length, at, has_date, has_time, &plans[count++]);
  } while (plans[count - 1].state == nls::plan_state::partial);
  return count;
}

int32_t run_date_template(const nls::pattern_plan *plans, size_t count, int32_t datatype,
                          double value, char *work, int32_t capacity) {
  const size_t room = room_of(capacity);
  nls::moment m;
  int32_t written = 0;
  if (!moment_of(datatype, value, m, work, room, &written)) return written;
  size_t n = 0;
  for (size_t k = 0; k < count; ++k) n = nls::run_plan(plans[k], m, 0, work, room, n, false);
  return static_cast<int32_t>(n < room ? n : room);
}

}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

extern "C" int32_t datefmt(const char *picture, int32_t picture_length, int32_t datatype,
                           const char *language, int32_t language_length, double value,
                           char *work, int32_t work_capacity) {
  // Only English names are held: "English", an empty language and any
  // other language all use them.
  (void)language;
  (void)language_length;
  const size_t room = room_of(work_capacity);
  xfmt::nls::moment m;
  int32_t written = 0;
  if (!moment_of(datatype, value, m, work, room, &written)) return written;
  // The directives compile into the national pattern engine's steps, a
  // plan's worth at a time for a long picture.
  xfmt::nls::pattern_plan plan;
  size_t n = 0;
  int32_t at = 0;
  do {
    at = compile_picture(picture, picture_length, at, m.has_date, m.has_hour, &plan);
    n = xfmt::nls::run_plan(plan, m, 0, work, room, n, false);
  } while (plan.state == xfmt::nls::plan_state::partial);
  return static_cast<int32_t>(n < room ? n : room);
}
