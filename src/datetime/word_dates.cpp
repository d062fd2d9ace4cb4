// Dates written in words: WEEKDATE ("Tuesday, July 4, 2023"), WEEKDATX
// ("Tuesday, 4 July 2023"), WORDDATE ("July 4, 2023"), WORDDATX
// ("4 July 2023") and DTWKDATX (WEEKDATX of a datetime's date).
//
// Each format has a short list of layouts from the fullest to the barest;
// the first one whose text fits the width is written, right-justified. The
// choice goes by the text of the value, not by the width alone, so a field
// of 25 holds "Tuesday, July 4, 2023" in full but shortens the longer
// "Wednesday, September 27, 2023" to "Wed, Sep 27, 2023". Days have no
// leading zero; years keep all their digits (five from 10000 on), or the
// last two in the two-digit layouts.
#include "xfmt/xfmt.h"

#include <cstring>
#include <initializer_list>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

const char abbr_month[12][4] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const char abbr_day[7][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// The pieces of one calendar day that the layouts pick from.
struct day_words {
  ymd c;
  int32_t weekday;  // 0 = Sunday .. 6 = Saturday
};

day_words words_of_day(int64_t n) {
  // 1960-01-01, day 0, was a Friday (5).
  return {ymd_in_range(n), static_cast<int32_t>(n + 5 - floor_div(n + 5, 7) * 7)};
}

// A year of the long layouts with all its digits (five from 10000 on), or
// its last two. The four-digit years, nearly all, skip the digit count.
void put_year(xfmt::core::bounded_text &t, int64_t y, bool four) {
  if (!four)
    t.put2(y % 100);
  else if (y >= 1000 && y <= 9999)
    t.put4(y);
  else
    t.put_unsigned(static_cast<uint64_t>(y));
}

xf_status put_right(xf_frame *f, const char *text, int32_t n) {
  const int32_t w = f->width;
  char *out = xfmt::frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - n));
  std::memcpy(out + (w - n), text, static_cast<size_t>(n));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// Layouts of the four formats, fullest first.
enum class form { full, abbr4, abbr2, name, short_name };

// WEEKDATE: "Tuesday, July 4, 2023", "Tue, Jul 4, 2023", "Tue, Jul 4, 23",
// "Tuesday", "Tue".
size_t weekdate_text(const day_words &d, form k, char (&text)[40]) {
  xfmt::core::bounded_text t(text);
  const bool full = k == form::full;
  if (k == form::name) {
    t.put(weekdays[d.weekday]);
    return t.length();
  }
  t.put(full ? weekdays[d.weekday] : abbr_day[d.weekday]);
  if (k == form::short_name) return t.length();
  t.put(", ");
  t.put(full ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
  t.put_char(' ');
  t.put_unsigned(static_cast<uint64_t>(d.c.day));
  t.put(", ");
  put_year(t, d.c.year, k != form::abbr2);
  return t.length();
}

// WEEKDATX: "Tuesday, 4 July 2023", "Tue, 4 Jul 2023", "Tue, 4 Jul 23",
// "Tuesday", "Tue".
size_t weekdatx_text(const day_words &d, form k, char (&text)[40]) {
  xfmt::core::bounded_text t(text);
  const bool full = k == form::full;
  if (k == form::name) {
    t.put(weekdays[d.weekday]);
    return t.length();
  }
  t.put(full ? weekdays[d.weekday] : abbr_day[d.weekday]);
  if (k == form::short_name) return t.length();
  t.put(", ");
  t.put_unsigned(static_cast<uint64_t>(d.c.day));
  t.put_char(' ');
  t.put(full ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
  t.put_char(' ');
  put_year(t, d.c.year, k != form::abbr2);
  return t.length();
}

// WORDDATE: "July 4, 2023", "Jul 4, 2023", "Jul 4, 23", "July", "Jul".
size_t worddate_text(const day_words &d, form k, char (&text)[40]) {
  xfmt::core::bounded_text t(text);
  const bool full = k == form::full;
  if (k == form::name || k == form::short_name) {
    t.put(k == form::name ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
    return t.length();
  }
  t.put(full ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
  t.put_char(' ');
  t.put_unsigned(static_cast<uint64_t>(d.c.day));
  t.put(", ");
  put_year(t, d.c.year, k != form::abbr2);
  return t.length();
}

// WORDDATX: "4 July 2023", "4 Jul 2023", "4 Jul 23", "July", "Jul".
size_t worddatx_text(const day_words &d, form k, char (&text)[40]) {
  xfmt::core::bounded_text t(text);
  if (k == form::name || k == form::short_name) {
    t.put(k == form::name ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
    return t.length();
  }
  t.put_unsigned(static_cast<uint64_t>(d.c.day));
  t.put_char(' ');
  t.put(k == form::full ? months[d.c.month - 1] : abbr_month[d.c.month - 1]);
  t.put_char(' ');
  put_year(t, d.c.year, k != form::abbr2);
  return t.length();
}

// A layout writes its text into 40 bytes and returns the length.
using text_of = size_t (*)(const day_words &, form, char (&)[40]);

// The first layout that fits; stars when not even the three-letter name
// does (widths 1 and 2).
xf_status write_words(xf_frame *f, int64_t day, text_of layout) {
  const day_words d = words_of_day(day);
  for (form k : {form::full, form::abbr4, form::abbr2, form::name, form::short_name}) {
    char text[40];
    const size_t n = layout(d, k, text);
    if (n <= static_cast<size_t>(f->width)) return put_right(f, text, static_cast<int32_t>(n));
  }
  return too_narrow(f);
}

int64_t floor_day(double v) {
  auto n = static_cast<int64_t>(v);
  if (static_cast<double>(n) > v) --n;
  return n;
}

xf_status date_in_words(xf_frame *f, text_of layout) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  return write_words(f, floor_day(value_of(f)), layout);
}

}  // namespace

extern "C" {

XF_ROUTINE(zfmwkdt, f) { return date_in_words(f, weekdate_text); }
XF_ROUTINE(zfmwkdx, f) { return date_in_words(f, weekdatx_text); }
XF_ROUTINE(zfmwrdt, f) { return date_in_words(f, worddate_text); }
XF_ROUTINE(zfmwrdx, f) { return date_in_words(f, worddatx_text); }

// The datetime range is exactly the seconds of the valid days, so the day
// of an in-range datetime is always a valid date.
XF_ROUTINE(zfmdtwk, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  return write_words(f, day_of_datetime(value_of(f)), weekdatx_text);
}

}  // extern "C"
