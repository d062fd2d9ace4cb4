// $N8601B, $N8601BA, $N8601E, $N8601EA, $N8601EH, $N8601EX, $N8601H and
// $N8601X: the library's internal ISO 8601 value (a character value of 8 or
// 16 bytes) as text, left-justified.
//
// One element is 8 bytes, 16 nibbles, first nibble first: year (4 BCD
// digits), month (one nibble, 1-9 and A-C), day, hour, minute, second (2 BCD
// digits each), then 12 bits whose lowest is the kind (0 duration,
// 1 datetime) and whose upper 11 hold the fraction of a second times 2000
// (7FE: none). A component that is left out has every nibble F. Sixteen
// bytes hold an interval: two datetimes, or a duration and a datetime in
// either order; a second element of only FF, only 00 or only blank bytes
// is no element, the value is the first alone.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

enum component { year, month, day, hour, minute, second, component_count };

struct element {
  bool datetime = false;
  bool present[component_count] = {};
  int32_t value[component_count] = {};
  int32_t fraction = -1;  // 1/2000 s; -1 none
};

constexpr int32_t no_fraction = 0x7FE;

int nibble(const unsigned char *p, int i) { return (i & 1) ? p[i / 2] & 0x0F : p[i / 2] >> 4; }

// The BCD digits of nibbles [first, first + n): all F is left out (false in
// *present), all decimal a value; anything else fails.
bool read_digits(const unsigned char *p, int first, int n, bool &present, int32_t &v) {
  int f_count = 0;
  v = 0;
  for (int i = first; i < first + n; ++i) {
    const int x = nibble(p, i);
    if (x == 0xF) ++f_count;
    else if (x > 9) return false;
    v = v * 10 + x;
  }
  if (f_count == n) {
    present = false;
    return true;
  }
  present = true;
  return f_count == 0;
}

// ISO 8601 counts with the plain 4/100/400 rule.
int32_t days_in_month_of(int32_t y, int32_t m) {
  static const int32_t days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && is_leap_plain(y) ? 29 : days[m - 1];
}

bool decode(const unsigned char *p, element &e) {
  const int tail = nibble(p, 13) << 8 | nibble(p, 14) << 4 | nibble(p, 15);
  e.datetime = (tail & 1) != 0;
  const int32_t frac = tail >> 1;
  if (frac != no_fraction && frac >= 2000) return false;
  e.fraction = frac == no_fraction ? -1 : frac;
  if (!read_digits(p, 0, 4, e.present[year], e.value[year])) return false;
  const int m = nibble(p, 4);
  e.present[month] = m != 0xF;
  e.value[month] = m;
  if (m > 12 && m != 0xF) return false;
  const int firsts[] = {5, 7, 9, 11};
  for (int c = day; c <= second; ++c)
    if (!read_digits(p, firsts[c - day], 2, e.present[c], e.value[c])) return false;
  if (e.fraction >= 0 && !e.present[second]) return false;
  if (!e.datetime) return true;
  // A point in time: the calendar's and the clock's limits.
  if (e.present[month] && e.value[month] < 1) return false;
  if (e.present[day]) {
    int32_t last = 31;
    if (e.present[month]) last = days_in_month_of(e.present[year] ? e.value[year] : 2000, e.value[month]);
    if (e.value[day] < 1 || e.value[day] > last) return false;
  }
  return !(e.present[hour] && e.value[hour] > 23) && !(e.present[minute] && e.value[minute] > 59) &&
         !(e.present[second] && e.value[second] > 59);
}

enum class notation { designators, alternative_basic, alternative_extended };
enum class left_out { dropped, dash, x };

struct style {
  notation duration;
  bool extended_datetime;
  left_out duration_left_out;
  left_out datetime_left_out;
  bool three_fraction_digits;
};

// ".25" (significant digits), ".250" (three), or d digits when d is 1..3;
// cut, never rounded up into the next second.
void put_fraction(xfmt::core::bounded_text &t, const element &e, bool three, int32_t d) {
  if (d >= 1 && d <= 3) {
    const int32_t tenths = e.fraction < 0 ? 0 : e.fraction * 5;  // 1/10000 s
    int32_t v = tenths;
    for (int i = 4; i > d; --i) v /= 10;
    t.put_char('.');
    t.put_unsigned(static_cast<uint64_t>(v), d);
    return;
  }
  if (e.fraction < 0) return;
  int32_t v = e.fraction * 5, digits = 4;
  if (three) {
    v /= 10;
    digits = 3;
  } else {
    if (v == 0) return;
    while (v % 10 == 0) v /= 10, --digits;
  }
  t.put_char('.');
  t.put_unsigned(static_cast<uint64_t>(v), digits);
}

// PnYnMnDTnHnMnS with the left-out components dropped (and "T" with the
// clock's when none is left). False when nothing at all is given.
bool put_designators(xfmt::core::bounded_text &t, const element &e, int32_t d) {
  static const char letters[component_count] = {'Y', 'M', 'D', 'H', 'M', 'S'};
  const size_t start = t.length();
  t.put_char('P');
  for (int c = year; c <= second; ++c) {
    if (c == hour && (e.present[hour] || e.present[minute] || e.present[second])) t.put_char('T');
    if (!e.present[c]) continue;
    t.put_unsigned(static_cast<uint64_t>(e.value[c]));
    if (c == second) put_fraction(t, e, false, d);
    t.put_char(letters[c]);
  }
  return t.length() > start + 1;
}

// yyyy-mm-ddThh:mm:ss (extended) or yyyymmddThhmmss (basic); a left-out
// component is one "-" or an "x" for each digit.
void put_calendar(xfmt::core::bounded_text &t, const element &e, bool extended, left_out lo, bool three, int32_t d) {
  static const int digits[component_count] = {4, 2, 2, 2, 2, 2};
  for (int c = year; c <= second; ++c) {
    if (c == hour) t.put_char('T');
    else if (c != year && extended) t.put_char(c < hour ? '-' : ':');
    if (e.present[c]) {
      t.put_unsigned(static_cast<uint64_t>(e.value[c]), digits[c]);
      if (c == second) put_fraction(t, e, three, d);
    } else if (lo == left_out::x) {
      t.put_repeat('x', static_cast<size_t>(digits[c]));
    } else {
      t.put_char('-');
    }
  }
}

bool put_element(xfmt::core::bounded_text &t, const element &e, const style &s, int32_t d) {
  if (e.datetime) {
    put_calendar(t, e, s.extended_datetime, s.datetime_left_out, s.three_fraction_digits, d);
    return true;
  }
  if (s.duration == notation::designators) return put_designators(t, e, d);
  t.put_char('P');
  put_calendar(t, e, s.duration == notation::alternative_extended, s.duration_left_out, s.three_fraction_digits,
               d);
  return true;
}

bool no_element(const unsigned char *p) {
  static constexpr unsigned char fills[] = {0xFF, 0x00, 0x20};
  for (unsigned char blank : fills) {
    int i = 0;
    while (i < 8 && p[i] == blank) ++i;
    if (i == 8) return true;
  }
  return false;
}

xf_status n8601(xf_frame *f, const style &s) {
  xf_status st = XF_OK;
  if (!width_usable(f, st)) return st;
  const int32_t w = f->width;
  const auto *p = static_cast<const unsigned char *>(f->input);
  const uint32_t len = p == nullptr ? 0 : f->input_length;
  // A blank (or empty) value is a blank field.
  uint32_t k = 0;
  while (k < len && k < 16 && p[k] == ' ') ++k;
  if (k == len || k == 16) {
    xfmt::blank_field(f, w);
    f->output_length = static_cast<uint32_t>(w);
    return XF_OK;
  }
  if (len < 8) return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  element first, second_part;
  if (!decode(p, first)) return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  const bool interval = len >= 16 && !no_element(p + 8);
  if (interval && (!decode(p + 8, second_part) || (!first.datetime && !second_part.datetime)))
    return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  char text[96];  // an element writes at most 40 bytes
  xfmt::core::bounded_text t(text);
  if (!put_element(t, first, s, f->decimals)) return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  if (interval) {
    t.put_char('/');
    if (!put_element(t, second_part, s, f->decimals)) return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  }
  const size_t n = t.length();
  if (n > static_cast<size_t>(w)) return xfmt::fail_stars(f, w, XF_E_OVERFLOW);
  char *out = xfmt::frame_out(f);
  std::memcpy(out, text, n);
  std::memset(out + n, ' ', static_cast<size_t>(w) - n);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

using n = notation;
using lo = left_out;
constexpr style b_style{n::designators, false, lo::dropped, lo::dash, false};
constexpr style ba_style{n::alternative_basic, false, lo::dash, lo::dash, false};
constexpr style e_style{n::designators, true, lo::dropped, lo::dash, false};
constexpr style ea_style{n::alternative_extended, true, lo::dash, lo::dash, true};
constexpr style eh_style{n::alternative_extended, true, lo::dash, lo::dash, false};
constexpr style ex_style{n::alternative_extended, true, lo::x, lo::x, false};
constexpr style h_style{n::designators, true, lo::dropped, lo::dash, false};
constexpr style x_style{n::designators, true, lo::dropped, lo::x, false};

}  // namespace

extern "C" {

XF_ROUTINE(zfmn8b, f) { return n8601(f, b_style); }
XF_ROUTINE(zfmn8ba, f) { return n8601(f, ba_style); }
XF_ROUTINE(zfmn8e, f) { return n8601(f, e_style); }
XF_ROUTINE(zfmn8ea, f) { return n8601(f, ea_style); }
XF_ROUTINE(zfmn8eh, f) { return n8601(f, eh_style); }
XF_ROUTINE(zfmn8ex, f) { return n8601(f, ex_style); }
XF_ROUTINE(zfmn8h, f) { return n8601(f, h_style); }
XF_ROUTINE(zfmn8x, f) { return n8601(f, x_style); }

}  // extern "C"
