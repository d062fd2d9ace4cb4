// The member rules shared by every national date, datetime and time format.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"

#include <atomic>
#include <cmath>
#include <cstring>
#include <string_view>

#include "core/field.hpp"
#include "core/platform.hpp"
#include "core/bounded_text.hpp"
#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/nl_encode.hpp"
#include "nls/nl_result.hpp"
#include "nls/zkf.hpp"

namespace xfmt::nls {
namespace {

constexpr size_t text_room = 1024;
constexpr int code_short_form = 190;

bool wants_utf16(const xf_frame *f) { return f->requested_output_encoding == XF_ENC_UTF16LE; }

bool value_in_range(value_kind k, double v) {
  return k == value_kind::date ? date_value_in_range(v) : datetime_value_in_range(v);
}

// The week rules of the calendar, run only when a pattern asks for a week
// ("%G", "%g", "%V" and "%W").
void weeks_of_day(const moment &m, int *iso_year, int *iso_week, int *monday_week) {
  const datetime::week_date v = datetime::week_of(m.day_number, datetime::week_rule::iso);
  *iso_year = static_cast<int>(v.year);
  *iso_week = v.week;
  *monday_week = datetime::week_of(m.day_number, datetime::week_rule::monday).week;
}

// The moment of in-range day n, with the time parts given; the day of the
// year and the weekday are left to the steps that show them. One aggregate
// initialisation, each field written once: a zero fill of the whole struct
// first costs as much as the calendar split.
moment day_moment(int64_t n, bool has_hour = false, int64_t hour = 0, bool has_rest = false,
                  int minute = 0, double second = 0) {
  const datetime::ymd c = datetime::ymd_in_range(n);
  return moment{.has_date = true,
                .day_number = n,
                .year = static_cast<int>(c.year),
                .month = c.month,
                .day = c.day,
                .yday = 0,
                .wday = unknown_wday,
                .iso_year = 0,
                .iso_week = 0,
                .monday_week = 0,
                .weeks = &weeks_of_day,
                .has_hour = has_hour,
                .has_minute = has_rest,
                .has_second = has_rest,
                .hour = hour,
                .minute = minute,
                .second = second};
}

// floor of a value well inside the int64 range, without the library call.
int64_t floor_whole(double v) {
  const auto n = static_cast<int64_t>(v);
  return static_cast<double>(n) > v ? n - 1 : n;
}

// fmod(x, m) for a whole m and |x| far below 2^52: x less a whole multiple
// of m is exact there, so one division stands in for the library's long
// division; the quotient, off by one at worst, is put right after.
double remainder_of(double x, double m) {
  double r = x - static_cast<double>(static_cast<int64_t>(x / m)) * m;
  if (x >= 0) {
    if (r < 0) r += m;
    else if (r >= m) r -= m;
  } else {
    if (r > 0) r -= m;
    else if (r <= -m) r += m;
  }
  return r;
}

constexpr double powers_of_ten[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

// Rounds |v| to decimals the way the plain number printer does: add half a
// unit of the last place, nudge by one ulp, truncate.
double round_to(double v, int32_t decimals) {
  if (decimals <= 0 && v == std::floor(v)) return v;
  const double scale = powers_of_ten[decimals < 0 ? 0 : (decimals > 9 ? 9 : decimals)];
  const double mag = (std::fabs(v) + 0.5 / scale) * 1.0000000000000002;
  const double r = std::floor(mag * scale) / scale;
  return v < 0 ? -r : r;
}

// The moment of an in-range datetime (or time) value rounded to decimals:
// the date part and the time of day as zdatprt, zhour, zminute and zsecond
// split them, the remainder of the day worked out once.
moment datetime_moment(double value, int32_t decimals, bool with_date) {
  const double r = round_to(value, decimals);
  const bool in_range = datetime::datetime_in_range(r);
  const double f = remainder_of(r, datetime::seconds_per_day);
  const double rest = r < 0 ? datetime::seconds_per_day - std::fabs(f) : f;
  const int64_t hour =
      in_range ? static_cast<int64_t>((f < 0 ? f + datetime::seconds_per_day : f) / 3600.0) : 0;
  const int minute = static_cast<int>(
      static_cast<int64_t>(static_cast<double>(static_cast<int64_t>(remainder_of(rest, 3600.0))) /
                           60.0));
  const double second = remainder_of(rest, 60.0);
  if (with_date && in_range) {
    const int64_t day =
        (floor_whole(r) - static_cast<int64_t>(datetime::datetime_min)) / 86400 +
        datetime::date_min;
    return day_moment(day, true, hour, true, minute, second);
  }
  moment m;
  m.has_hour = in_range;
  m.hour = hour;
  m.has_minute = m.has_second = true;
  m.minute = minute;
  m.second = second;
  return m;
}

// The day of the year and the weekday filled in, for callers that read the
// moment's fields themselves.
moment with_day_fields(moment m) {
  if (m.has_date) {
    m.yday = datetime::day_of_year(m.year, m.month, m.day);
    m.wday = datetime::weekday(m.day_number);  // the true weekday, also before 1600
  }
  return m;
}

// The moment of a member's value (already checked against its range).
[[gnu::always_inline]] inline moment moment_for(value_kind k, double v, int32_t d) {
  switch (k) {
    case value_kind::date:
      return day_moment(floor_whole(v));
    case value_kind::datetime:
      return datetime_moment(v, d, true);
    case value_kind::date_of_datetime: {
      const double day = zdatprt(v);
      return is_missing(day) ? moment{} : day_moment(floor_whole(day));
    }
    case value_kind::time:
      return datetime_moment(v, d, false);
  }
  return moment{};
}

int32_t pattern_decimals(value_kind k, int32_t d) {
  return (k == value_kind::datetime || k == value_kind::time) && d > 0 ? d : 0;
}

// A pattern to expand: the text of a pattern, or (pattern null) a locale
// field code, which may ask for " %z" appended.
struct pattern_request {
  const char *pattern;
  size_t pattern_length;
  int code;
};

// The text of the request into out (room bytes), as the exported zkf
// routines make it: a kept plan for a locale's own pattern, else the pattern
// compiled here. done, too_long (the first room bytes stored) or unusable.
nl_result make_text(const moment &m, const field_reader &loc, int id, const pattern_request &q,
                    int32_t d, char *out, size_t room, bool tail_is_scratch, size_t *length,
                    bool *plain) {
  if (q.pattern == nullptr) {
    const pattern_plan *plan = plan_for_code(id, q.code);
    if (plan != nullptr)
      return run_pattern(m, loc, plan, {}, d, out, room, tail_is_scratch, length, plain);
  }
  std::string_view p;
  if (q.pattern != nullptr)
    p = std::string_view(q.pattern, q.pattern_length);
  else if (q.code <= 0 || !loc.get(q.code & 0xFF, &p))
    return nl_result::unusable;
  char joined[256], inlined[text_room];
  if (q.code > 0 && (q.code & code_with_zone) != 0) {
    if (p.size() + 3 > sizeof joined) return nl_result::unusable;
    std::memcpy(joined, p.data(), p.size());
    std::memcpy(joined + p.size(), " %z", 3);
    p = std::string_view(joined, p.size() + 3);
  }
  const std::string_view prepared =
      prepare_pattern(p.data(), p.size(), loc, inlined, sizeof inlined);
  return run_pattern(m, loc, nullptr, prepared, d, out, room, tail_is_scratch, length, plain);
}

// What the encoder answers, as a placing.
struct placed {
  nl_result result;
  uint32_t n;  // encoded bytes when done or shortened
};

placed encoded(bool utf16, const char *text, size_t length, const xf_frame *f, char *out) {
  uint32_t n = 0;
  const int r = encode_text(utf16, text, length, f->width, out, f->output_capacity, &n);
  if (r <= 0) return {nl_result::done, n};
  if (r == encode_shortened) return {nl_result::shortened, n};
  return {r == encode_no_room ? nl_result::no_room : nl_result::unusable, 0};
}

// The one write path of the members: the text made, then encoded into the
// field against the width. The encoder writes nothing when it fails, so a
// field that must stay as it was does. in_place says the caller overwrites
// the first min(w, capacity) bytes whatever the outcome (a later pattern, the
// short form or the stars): the text is then made straight in the field, and
// text that is plain ASCII and fits needs no encoding. Anything else goes
// through a buffer and the encoder, with the same result:
//   text longer than w whose first w bytes are plain: at least w + 1
//     characters, so the encoder would have shortened it;
//   text that fits but is not plain: encoded from a copy.
placed format_text(xf_frame *f, const moment &m, const field_reader &loc, int id,
                   const pattern_request &q, int32_t d, bool strip, bool in_place) {
  const bool utf16 = wants_utf16(f);
  char text[text_room];
  size_t len = 0;
  if (in_place && !utf16 && f->width > 0 && !strip) {
    const uint32_t w = static_cast<uint32_t>(f->width);
    // Never more than the buffer: a longer text fails there.
    uint32_t room = w < f->output_capacity ? w : f->output_capacity;
    if (room > text_room) room = static_cast<uint32_t>(text_room);
    char *field = frame_out(f);
    bool plain = true;
    const nl_result r = make_text(m, loc, id, q, d, field, room, true, &len, &plain);
    if (r == nl_result::unusable) return {r, 0};
    if (r == nl_result::done && plain) return {nl_result::done, static_cast<uint32_t>(len)};
    if (r == nl_result::too_long && room == w && plain_text(std::string_view(field, room)))
      return {nl_result::shortened, 0};
    if (r == nl_result::done) {  // escapes or Latin-1 bytes: encoded from a copy
      std::memcpy(text, field, len);
      return encoded(false, text, len, f, field);
    }
  }
  if (make_text(m, loc, id, q, d, text, sizeof text, false, &len, nullptr) != nl_result::done)
    return {nl_result::unusable, 0};
  const char *t = text;
  if (strip) {
    while (len > 0 && *t == ' ') ++t, --len;
    while (len > 0 && t[len - 1] == ' ') --len;
  }
  return encoded(utf16, t, len, f, frame_out(f));
}

// The date order of field 6 as three letters: "YMD" when the text is not an
// order, empty when the locale cannot be read (no short form then).
std::string_view date_order(const field_reader &loc) {
  std::string_view o;
  if (!loc.get(lf::date_order, &o)) return {};
  if (o.size() != 3) return "YMD";
  if (o.find('D') == o.npos || o.find('M') == o.npos || o.find('Y') == o.npos) return "YMD";
  return o;
}

std::string_view date_separator(const field_reader &loc) {
  std::string_view s;
  if (!loc.get(lf::date_separator, &s) || s.empty() || s.find('%') != s.npos || s.size() > 8)
    return "-";
  return s;
}

// The day, month and year of the locale's order, leaving out what skip names.
void put_dmy(core::bounded_text &t, std::string_view order, std::string_view sep, bool long_year,
             char skip) {
  bool first = true;
  for (char c : order) {
    if (c == skip) continue;
    if (!first) t.put(sep);
    first = false;
    t.put(c == 'D' ? "%d" : c == 'M' ? "%m" : long_year ? "%Y" : "%y");
  }
}

// The short numeric pattern for a form and width; empty when nothing fits.
//   date          dd.mm.yyyy (w >= 10), dd.mm.yy (8), ddmmyy (6), in locale order
//   year_month    yyyy-mm (7), yy-mm (5), yymm (4)
//   month_day     dd.mm (5), ddmm (4)
//   year_quarter  yyyyQn (6), yyQn (4)
//   datetime      date (10 or 8) and hh:mm:ss[.fff], or date (8) and hh:mm
void short_pattern(core::bounded_text &t, short_form form, int w, int32_t d,
                   const field_reader &loc, const moment &m) {
  const std::string_view order = date_order(loc);
  if (order.empty()) return;
  const std::string_view sep = date_separator(loc);
  const int s = static_cast<int>(sep.size());
  switch (form) {
    case short_form::none:
      break;
    case short_form::date:
      if (w >= 8 + 2 * s)
        put_dmy(t, order, sep, true, 0);
      else if (w >= 6 + 2 * s)
        put_dmy(t, order, sep, false, 0);
      else if (w >= 6)
        put_dmy(t, order, "", false, 0);
      break;
    case short_form::year_month:
      if (w >= 6 + s)
        put_dmy(t, order, sep, true, 'D');
      else if (w >= 4 + s)
        put_dmy(t, order, sep, false, 'D');
      else if (w >= 4)
        put_dmy(t, order, "", false, 'D');
      break;
    case short_form::month_day:
      if (w >= 4 + s)
        put_dmy(t, order, sep, false, 'Y');
      else if (w >= 4)
        put_dmy(t, order, "", false, 'Y');
      break;
    case short_form::year_quarter: {
      const char q[3] = {'Q', static_cast<char>('1' + (m.month - 1) / 3), '\0'};
      if (w >= 6)
        t.put("%Y");
      else if (w >= 4)
        t.put("%y");
      else
        break;
      t.put(q);
      break;
    }
    case short_form::datetime: {
      const int date10 = 8 + 2 * s, date8 = 6 + 2 * s;
      if (d > 0 && w >= date10 + 10 + d) {
        put_dmy(t, order, sep, true, 0);
        t.put(" %H:%M:%S");
      } else if (w >= date10 + 9) {
        put_dmy(t, order, sep, true, 0);
        t.put(" %H:%M:%s");
      } else if (w >= date8 + 9) {
        put_dmy(t, order, sep, false, 0);
        t.put(" %H:%M:%s");
      } else if (w >= date8 + 6) {
        put_dmy(t, order, sep, false, 0);
        t.put(" %H:%M");
      }
      break;
    }
  }
}

placed format_short(xf_frame *f, const member_spec &spec, const moment &m,
                    const field_reader &loc, int id) {
  char pattern[64];
  core::bounded_text t(pattern);
  short_pattern(t, spec.fallback, f->width, f->decimals, loc, m);
  if (t.written() == 0) return {nl_result::unusable, 0};
  return format_text(f, m, loc, id, {pattern, t.written(), 0},
                     pattern_decimals(spec.kind, f->decimals), true, false);
}

xf_status overflow(xf_frame *f, bool no_room) {
  return fail_stars(f, f->width, no_room ? XF_E_CAPACITY : XF_E_OVERFLOW);
}

// Validation, missing values and the range: 1 when the caller may go on.
bool prologue(xf_frame *f, const member_spec &spec, bool stars_out_of_range, xf_status *st) {
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  *st = validate(f, spec.min_width, spec.max_decimals);
  if (*st != XF_OK) return false;
  const double v = frame_value(f);
  if (is_missing(v)) {
    *st = write_missing(f, f->width, 0);
    return false;
  }
  if (!value_in_range(spec.kind, v)) {
    // The one-pattern members leave the field as it was: nothing delivered.
    if (stars_out_of_range)
      *st = fail_stars(f, f->width, XF_E_DATE_RANGE);
    else
      f->output_length = 0;
    return false;
  }
  return true;
}

}  // namespace

moment date_moment_of(double date) {
  if (is_missing(date) || !date_value_in_range(date)) return moment{};
  return with_day_fields(day_moment(floor_whole(date)));
}

moment datetime_moment_of(double value, int32_t decimals, bool with_date) {
  // Rounding may carry a value just below the end of the range onto it: the
  // day and the hour are then unknown, the minute and second still shown.
  return with_day_fields(datetime_moment(value, decimals, with_date));
}

xf_status validate_width_and_decimals(const xf_frame *f, int min_width, int max_decimals) {
  if (f->width < min_width) return XF_NL_WIDTH_LOW;
  if (f->width > nl_max_width) return XF_NL_WIDTH_HIGH;
  if (f->decimals < 0) return XF_NL_DECIMALS_LOW;
  if (f->decimals > max_decimals) return XF_NL_DECIMALS_HIGH;
  return XF_OK;
}

void place_left_utf16(xf_frame *f, uint32_t n) {
  char *out = frame_out(f);
  const uint32_t cap = f->output_capacity;
  for (uint32_t i = n; i + 1 < cap; i += 2) {
    out[i] = ' ';
    out[i + 1] = '\0';
  }
  if (cap > n && (cap - n) % 2) out[cap - 1] = ' ';
  f->output_length = n;
  f->output_encoding = XF_ENC_UTF16LE;
}

// The usual case, kept short: a kept plan written straight into a
// single-byte field, where plain text that fits is the result. False leaves
// the field to format_text, which comes to the same bytes the long way.
[[gnu::always_inline]] inline bool placed_directly(xf_frame *f, const pattern_plan *plan,
                                                  const moment &m, int32_t d,
                     uint32_t *n) {
  if (plan == nullptr || plan->state != plan_state::complete || wants_utf16(f) || f->width <= 0)
    return false;
  const auto w = static_cast<uint32_t>(f->width);
  uint32_t room = w < f->output_capacity ? w : f->output_capacity;
  if (room > text_room) room = static_cast<uint32_t>(text_room);
  bool plain = true;
  const size_t len = run_plan(*plan, m, d, frame_out(f), room, 0, true, &plain);
  if (len > room || !plain) return false;
  *n = static_cast<uint32_t>(len);
  return true;
}

// n blank bytes in 16-byte stores, the last overlapping (n >= 16), or as
// fill_bytes writes fewer; the stores depend on the field, not the value.
inline void blank_field(char *out, uint32_t n) {
  if (n < 16) {
    fill_bytes(out, n, ' ');
    return;
  }
  char blanks[16];
  std::memset(blanks, ' ', sizeof blanks);
  for (uint32_t i = 0; i + 16 < n; i += 16) std::memcpy(out + i, blanks, 16);
  std::memcpy(out + n - 16, blanks, 16);
}

// The day of a negative value with a fraction; out of line, so that the
// common test above stays a branch.
[[gnu::noinline]] int64_t day_before_fraction(double v) { return floor_whole(v); }

// The longest text (length bytes) fits a single-byte field.
[[gnu::always_inline]] inline bool fits_field(const xf_frame *f, uint32_t length) {
  if (wants_utf16(f) || f->width <= 0) return false;
  const uint32_t cap = f->output_capacity;
  const auto w = static_cast<uint32_t>(f->width);
  return length <= (w < cap ? w : cap);
}

// A date plan (see run_date_plan) whose longest text fits a plain
// single-byte field: its text is then the result for every day in range.
[[gnu::always_inline]] inline bool date_plan_fits(const xf_frame *f, const pattern_plan *plan) {
  return plan != nullptr && plan->date_only && fits_field(f, plan->date_length);
}

// The same for names outside ASCII in a UTF-8 codeset: the plan's text with
// the names' UTF-8 bytes is what the encoder makes of it there, and it fits.
[[gnu::always_inline]] inline bool utf8_date_plan_fits(const xf_frame *f,
                                                       const pattern_plan *plan) {
  return plan != nullptr && plan->utf8_date_length != 0 &&
         fits_field(f, plan->utf8_date_length) && platform::environment().codeset_utf8;
}

// The usual date case at its shortest, for a value in range: the field is
// blanked and the date plan's text written over its start, the bytes the
// long way writes, without a check of room per step.
// utf8: the locale's UTF-8 names, for a plan whose utf8_date_length fits.
template <bool Utf8>
[[gnu::noinline]] xf_status place_date(xf_frame *f, const pattern_plan &plan, double v,
                                       const utf8_names *utf8) {
  const uint32_t cap = f->output_capacity;
  char *out = frame_out(f);
  blank_field(out, cap);
  auto day = static_cast<int64_t>(v);
  if (static_cast<double>(day) > v) [[unlikely]]
    day = day_before_fraction(v);
  f->output_length = static_cast<uint32_t>(Utf8 ? run_date_plan_utf8(plan, *utf8, day, out, cap)
                                                     : run_date_plan(plan, day, out, cap));
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return XF_OK;
}

// The first pattern's plan is looked up once, after the checks every value
// passes: a date member whose plan is a date plan that fits takes the short
// way before the moment is worked out; any other locale goes on with the
// plan already in hand, paying one flag test for the short way.
xf_status run_two_pattern(xf_frame *f, const member_spec &spec) {
  xf_status st;
  if (!prologue(f, spec, true, &st)) return st;
  const int id = frame_locale_id(f);
  const pattern_plan *first = plan_for_code(id, spec.first);
  if (spec.kind == value_kind::date) {
    if (date_plan_fits(f, first)) return place_date<false>(f, *first, frame_value(f), nullptr);
    if (utf8_date_plan_fits(f, first))
      return place_date<true>(f, *first, frame_value(f), plans_of_locale(id)->utf8);
  }
  const field_reader loc = locale_reader(id);
  const moment m = moment_for(spec.kind, frame_value(f), f->decimals);
  const int32_t d = pattern_decimals(spec.kind, f->decimals);
  bool no_room = false;
  for (int k = 0; k < 2; ++k) {
    const int code = k == 0 ? spec.first : spec.second;
    if (code == 0) continue;
    uint32_t n = 0;
    if (placed_directly(f, k == 0 ? first : plan_for_code(id, code), m, d, &n)) {
      place_left(f, n, false);
      return XF_OK;
    }
    const placed p = format_text(f, m, loc, id, {nullptr, 0, code}, d, false, true);
    if (p.result == nl_result::done) {
      place_left(f, p.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || p.result == nl_result::no_room;
  }
  if (spec.fallback != short_form::none) {
    const placed p = format_short(f, spec, m, loc, id);
    if (p.result == nl_result::done) {
      place_left(f, p.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || p.result == nl_result::no_room;
  }
  return overflow(f, no_room);
}

xf_status run_one_pattern(xf_frame *f, const member_spec &spec, const xf_nl_pattern *table) {
  if (table[0].pattern == nullptr && table[0].code == code_short_form) return run_short(f, spec);
  xf_status st;
  if (!prologue(f, spec, false, &st)) return st;
  const int id = frame_locale_id(f);
  const field_reader loc = locale_reader(id);
  const moment m = moment_for(spec.kind, frame_value(f), f->decimals);
  const char *p = table[0].pattern;
  const pattern_request q{p, p != nullptr ? std::strlen(p) : 0, p != nullptr ? 0 : table[0].code};
  const placed r =
      format_text(f, m, loc, id, q, pattern_decimals(spec.kind, f->decimals), false, false);
  if (r.result == nl_result::done || r.result == nl_result::shortened) {
    place_left(f, r.n, wants_utf16(f));
    return XF_OK;
  }
  // Too long for the buffer, or unconvertible: the field stays as it was.
  f->output_length = 0;
  return r.result == nl_result::no_room ? XF_E_CAPACITY : XF_E_OVERFLOW;
}

xf_status run_short(xf_frame *f, const member_spec &spec) {
  xf_status st;
  if (!prologue(f, spec, true, &st)) return st;
  const int id = frame_locale_id(f);
  const field_reader loc = locale_reader(id);
  const moment m = moment_for(spec.kind, frame_value(f), f->decimals);
  const placed r = format_short(f, spec, m, loc, id);
  if (r.result == nl_result::done) {
    place_left(f, r.n, wants_utf16(f));
    return XF_OK;
  }
  return overflow(f, r.result == nl_result::no_room);
}

xf_status run_name(xf_frame *f, int full_first, int abbrev_first, int count) {
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  xf_status st = validate(f, 1, 3);
  if (st != XF_OK) return st;
  const double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, f->width, 0);
  if (!std::isfinite(v) || std::trunc(v) < 1 || std::trunc(v) > count)
    return fail_stars(f, f->width, XF_E_OVERFLOW);
  const int k = static_cast<int>(std::trunc(v)) - 1;
  const field_reader loc = locale_reader(frame_locale_id(f));
  bool no_room = false;
  // The full name when it fits whole, else the abbreviation, cut if need be.
  for (int first : {full_first, abbrev_first}) {
    std::string_view name;
    if (!loc.get(first + k, &name) || name.empty()) continue;
    const placed r = encoded(wants_utf16(f), name.data(), name.size(), f, frame_out(f));
    if (r.result == nl_result::done ||
        (r.result == nl_result::shortened && first == abbrev_first)) {
      place_left(f, r.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || r.result == nl_result::no_room;
  }
  return overflow(f, no_room);
}

}  // namespace xfmt::nls
