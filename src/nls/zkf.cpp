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

// The moments of values come from the one builder beside the members
// (nl_member.cpp).

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
