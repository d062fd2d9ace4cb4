// zkfdate, zkfdttm, zkftime and the exported expand: values taken apart with
// the calendar, then handed to the expander.
#include "xfmt/xfmt.h"

#include "nls/zkf.hpp"

#include <cmath>
#include <cstring>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "nls/locale_reader.hpp"

namespace xfmt::nls {
namespace {

// The week rules of the calendar, run only when a pattern asks for a week.
void week_rules(const moment &m, int *iso_year, int *iso_week, int *monday_week) {
  const datetime::week_date v = datetime::week_of(m.day_number, datetime::week_rule::iso);
  *iso_year = static_cast<int>(v.year);
  *iso_week = v.week;
  *monday_week = datetime::week_of(m.day_number, datetime::week_rule::monday).week;
}

// Rounds |v| to decimals the way the plain number printer does: add half a
// unit of the last place, nudge by one ulp, truncate.
double round_to(double v, int32_t decimals) {
  if (decimals <= 0 && v == std::floor(v)) return v;
  const int d = decimals < 0 ? 0 : (decimals > 9 ? 9 : decimals);
  const double scale = std::pow(10.0, d);
  const double mag = (std::fabs(v) + 0.5 / scale) * 1.0000000000000002;
  const double r = std::floor(mag * scale) / scale;
  return v < 0 ? -r : r;
}

}  // namespace

moment date_moment_of(double date) {
  const bool usable = !is_missing(date) && date_value_in_range(date);
  // The range check above keeps the value within int64 for the floor.
  const int64_t n = usable ? datetime::day_floor(date) : 0;
  // Inside the valid range the fast split equals ymd_from_days (the
  // calendar's whole-range sweep checks it).
  const datetime::ymd c = usable ? datetime::ymd_in_range(n) : datetime::ymd{0, 0, 0};
  // One aggregate initialisation, each field written once: a zero fill of
  // the whole struct followed by the calendar fields cost a quarter of a
  // date value's time.
  return moment{
      .has_date = usable,
      .day_number = n,
      .year = static_cast<int>(c.year),
      .month = c.month,
      .day = c.day,
      .yday = usable ? datetime::day_of_year(c.year, c.month, c.day) : 0,
      .wday = usable ? datetime::weekday(n) : -1,  // the true weekday, also before 1600
      .iso_year = 0,
      .iso_week = 0,
      .monday_week = 0,
      .weeks = usable ? &week_rules : nullptr,
      .has_hour = false,
      .has_minute = false,
      .has_second = false,
      .hour = 0,
      .minute = 0,
      .second = 0,
  };
}

moment datetime_moment_of(double value, int32_t decimals, bool with_date) {
  const double r = round_to(value, decimals);
  // Rounding may carry a value just below the end of the range onto it: the
  // day and the hour are then unknown, the minute and second still shown.
  const bool in_range = datetime::datetime_in_range(r);
  moment m = with_date ? date_moment_of(in_range ? static_cast<double>(datetime::day_of_datetime(r))
                                                : missing_ordinary())
                       : moment{};
  const datetime::time_parts t = datetime::split_time(r);
  m.has_hour = in_range;
  m.has_minute = m.has_second = !is_missing(r) && std::isfinite(r);
  if (m.has_hour) m.hour = static_cast<int64_t>(t.hour);
  if (m.has_minute) m.minute = static_cast<int>(t.minute);
  if (m.has_second) m.second = t.second;
  return m;
}

int zkf_expand(const moment &m, const field_reader &loc, const char *pattern, size_t pattern_length,
               int code, char *text, int32_t *length, int32_t decimals) {
  // A locale pattern with " %z" appended: patterns are short, 200 is ample.
  char joined[256];
  std::string_view p;
  if (pattern != nullptr) {
    p = std::string_view(pattern, pattern_length);
  } else {
    if (code <= 0 || !loc.get(code & 0xFF, &p)) return zkf_unreadable;
  }
  if (code > 0 && (code & code_with_zone) != 0) {
    if (p.size() + 3 > sizeof joined) return zkf_unreadable;
    std::memcpy(joined, p.data(), p.size());
    std::memcpy(joined + p.size(), " %z", 3);
    p = std::string_view(joined, p.size() + 3);
  }
  const size_t room = *length > 0 ? static_cast<size_t>(*length) : 0;
  size_t n = 0;
  const int r = expand_text(m, loc, p.data(), p.size(), text, room, &n, decimals);
  if (r != expand_fits) return r;
  if (n > room) return expand_too_long;  // text holds its first room bytes
  *length = static_cast<int32_t>(n);
  return expand_fits;
}

}  // namespace xfmt::nls

namespace {

size_t pattern_size(const char *p) { return p != nullptr ? std::strlen(p) : 0; }

}  // namespace

extern "C" int expand(double date, double hours, double minutes, double seconds, int32_t locale_id,
                      const char *pattern, int32_t pattern_length, char *out, int32_t *width,
                      int32_t decimals) {
  using namespace xfmt::nls;
  if (pattern == nullptr || pattern_length < 0 || out == nullptr || width == nullptr)
    return expand_bad_letter;
  moment m = date_moment_of(date);
  if (!xfmt::is_missing(hours) && std::isfinite(hours)) {
    m.has_hour = true;
    m.hour = static_cast<int64_t>(hours);
  }
  if (!xfmt::is_missing(minutes) && std::isfinite(minutes)) {
    m.has_minute = true;
    m.minute = static_cast<int>(minutes);
  }
  if (!xfmt::is_missing(seconds) && std::isfinite(seconds)) {
    m.has_second = true;
    m.second = seconds;
  }
  const field_reader loc = locale_reader(resolve_locale_id(locale_id));
  return zkf_expand(m, loc, pattern, static_cast<size_t>(pattern_length), 0, out, width, decimals);
}

extern "C" int zkfdate(double date, int32_t locale_id, char *text, int32_t *length,
                       const char *pattern, int32_t code) {
  using namespace xfmt::nls;
  if (!date_value_in_range(date)) return zkf_out_of_range;
  const field_reader loc = locale_reader(resolve_locale_id(locale_id));
  return zkf_expand(date_moment_of(date), loc, pattern, pattern_size(pattern), code, text, length,
                    0);
}

extern "C" int zkfdttm(double dt, int32_t locale_id, char *text, int32_t *length,
                       const char *pattern, int32_t code, int32_t decimals) {
  using namespace xfmt::nls;
  if (!datetime_value_in_range(dt)) return zkf_out_of_range;
  const field_reader loc = locale_reader(resolve_locale_id(locale_id));
  return zkf_expand(datetime_moment_of(dt, decimals, true), loc, pattern, pattern_size(pattern),
                    code, text, length, decimals);
}

extern "C" int zkftime(double t, int32_t locale_id, char *text, int32_t *length,
                       const char *pattern, int32_t code, int32_t decimals) {
  using namespace xfmt::nls;
  if (!datetime_value_in_range(t)) return zkf_out_of_range;
  const field_reader loc = locale_reader(resolve_locale_id(locale_id));
  return zkf_expand(datetime_moment_of(t, decimals, false), loc, pattern, pattern_size(pattern),
                    code, text, length, decimals);
}
