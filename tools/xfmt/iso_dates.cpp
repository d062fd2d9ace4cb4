// ISO 8601 dates, times and datetimes of the command's values.
#include "iso_dates.hpp"

#include "terminal_text.hpp"
#include "xfmt/xfmt.h"
#include "xfmt/xfx.h"

namespace xfmt::cli {
namespace {

bool digit(char c) { return c >= '0' && c <= '9'; }

// Reads exactly n digits (n 0: one or more) at text[i]; false otherwise.
bool number(std::string_view t, size_t &i, size_t n, int64_t &v) {
  size_t start = i;
  v = 0;
  while (i < t.size() && digit(t[i]) && (n == 0 || i - start < n) && i - start < 12) v = v * 10 + (t[i++] - '0');
  return n == 0 ? i > start : i - start == n;
}

// yyyy-mm-dd (four or five digits of year) at t[i]: the date value, or
// nothing. bad: the form was right but the day does not exist.
std::optional<double> date_part(std::string_view t, size_t &i, bool &bad) {
  int64_t y = 0, m = 0, d = 0;
  size_t start = i;
  size_t year_digits = 0;
  while (start + year_digits < t.size() && digit(t[start + year_digits])) ++year_digits;
  if (year_digits != 4 && year_digits != 5) return std::nullopt;
  if (!number(t, i, year_digits, y) || i >= t.size() || t[i++] != '-' || !number(t, i, 2, m) || i >= t.size() ||
      t[i++] != '-' || !number(t, i, 2, d))
    return std::nullopt;
  double v = zmdy(static_cast<double>(m), static_cast<double>(d), static_cast<double>(y));
  if (y < 1582 || xfx_is_missing(v) != 0) {
    bad = true;
    return std::nullopt;
  }
  return v;
}

// h:mm[:ss[.fff]] at t[i]: seconds. any_hours allows hours past 24 (a
// duration); a time of day stops at 24:00:00.
std::optional<double> time_part(std::string_view t, size_t &i, bool any_hours, bool &bad) {
  int64_t h = 0, m = 0, s = 0;
  if (!number(t, i, 0, h) || i >= t.size() || t[i++] != ':' || !number(t, i, 2, m)) return std::nullopt;
  double frac = 0;
  if (i < t.size() && t[i] == ':') {
    ++i;
    if (!number(t, i, 2, s)) return std::nullopt;
    if (i < t.size() && (t[i] == '.' || t[i] == ',')) {
      ++i;
      double scale = 0.1;
      size_t start = i;
      for (; i < t.size() && digit(t[i]); ++i, scale /= 10) frac += (t[i] - '0') * scale;
      if (i == start) return std::nullopt;
    }
  }
  double secs = static_cast<double>(h * 3600 + m * 60 + s) + frac;
  if (m > 59 || s > 59 || (!any_hours && secs > 86400)) {
    bad = true;
    return std::nullopt;
  }
  return secs;
}

}  // namespace

std::optional<double> read_iso_8601(std::string_view text, uint32_t family, std::string &error) {
  size_t i = 0;
  bool bad = false, negative = false;
  std::optional<double> v;
  switch (family) {
    case XFX_FAMILY_DATE:
      v = date_part(text, i, bad);
      break;
    case XFX_FAMILY_TIME:
      v = time_part(text, i, false, bad);
      break;
    case XFX_FAMILY_DURATION:
      if (!text.empty() && text[0] == '-') {
        negative = true;
        ++i;
      }
      v = time_part(text, i, true, bad);
      if (v && negative) *v = -*v;
      break;
    case XFX_FAMILY_DATETIME: {
      v = date_part(text, i, bad);
      if (!v) break;
      double secs = 0;
      if (i < text.size() && (text[i] == 'T' || text[i] == 't' || text[i] == ' ')) {
        ++i;
        std::optional<double> t = time_part(text, i, false, bad);
        if (!t) {
          v.reset();
          break;
        }
        secs = *t;
      }
      *v = *v * 86400 + secs;
      if (i < text.size() && (text[i] == 'Z' || text[i] == 'z')) ++i;  // UTC, as the value is
      break;
    }
    default:
      return std::nullopt;
  }
  if (bad) {
    if (family == XFX_FAMILY_DATE)
      error = quoted(text) + " is not a date of the calendar (1582-01-01 to 20000-12-31)";
    else if (family == XFX_FAMILY_DATETIME)
      error = quoted(text) + " is not a date and time (1582-01-01 to 20000-12-31, hh:mm:ss up to 24:00:00)";
    else
      error = quoted(text) + " is not a time (minutes and seconds 00-59" +
              (family == XFX_FAMILY_TIME ? ", at most 24:00:00)" : ")");
    return std::nullopt;
  }
  if (!v || i != text.size()) return std::nullopt;
  return v;
}

std::string family_value_hint(uint32_t family) {
  switch (family) {
    case XFX_FAMILY_DATE: return "a day count from 1960-01-01 (0 is 1960-01-01) or a date as 2023-07-04";
    case XFX_FAMILY_TIME: return "seconds from midnight or a time as 12:34:56";
    case XFX_FAMILY_DURATION: return "seconds or a time as 12:34:56 (hours may pass 24)";
    case XFX_FAMILY_DATETIME:
      return "seconds from 1960-01-01T00:00:00 or a datetime as 2023-07-04T12:34:56 (a date alone is its midnight)";
    default: return "";
  }
}

}  // namespace xfmt::cli
