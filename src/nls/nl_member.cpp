// The member rules shared by every national date, datetime and time format.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"

#include <cmath>
#include <cstring>
#include <optional>
#include <string_view>

#include "catalog/field.hpp"
#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/nl_encode.hpp"
#include "nls/zkf.hpp"

namespace xfmt::nls {
namespace {

constexpr size_t text_room = 1024;
constexpr int code_short_form = 190;
constexpr int field_date_order = 6;
constexpr int field_date_separator = 153;
// Beyond the encoder's results: the pattern could not be read or expanded.
constexpr int format_failed = 8;

bool wants_utf16(const xf_frame *f) { return f->requested_output_encoding == XF_ENC_UTF16LE; }

bool value_in_range(value_kind k, double v) {
  return k == value_kind::date ? date_value_in_range(v) : datetime_value_in_range(v);
}

moment moment_for(value_kind k, double v, int32_t d) {
  switch (k) {
    case value_kind::date:
      return date_moment_of(v);
    case value_kind::datetime:
      return datetime_moment_of(v, d, true);
    case value_kind::date_of_datetime:
      return date_moment_of(zdatprt(v));
    case value_kind::time:
      return datetime_moment_of(v, d, false);
  }
  return moment{};
}

int32_t pattern_decimals(value_kind k, int32_t d) {
  return (k == value_kind::datetime || k == value_kind::time) && d > 0 ? d : 0;
}

// The encoded text goes straight to the output field: the encoder writes
// nothing when it fails, so a field that must stay as it was does.
struct encoded {
  uint32_t n = 0;
};

// Expands one pattern (or locale field code) and encodes it against w.
int format_one(xf_frame *f, const moment &m, const field_reader &loc, const char *pattern,
               size_t pattern_length, int code, int32_t d, bool strip, encoded &out) {
  char text[text_room];
  int32_t len = static_cast<int32_t>(sizeof text);
  if (zkf_expand(m, loc, pattern, pattern_length, code, text, &len, d) != expand_fits)
    return format_failed;
  const char *t = text;
  if (strip) {
    while (len > 0 && *t == ' ') ++t, --len;
    while (len > 0 && t[len - 1] == ' ') --len;
  }
  return encode_text(wants_utf16(f), t, static_cast<size_t>(len), f->width, frame_out(f),
                     f->output_capacity, &out.n);
}

// format_one for callers that overwrite the first min(w, capacity) bytes of
// the field whatever the outcome (a later pattern, the short form or the
// stars), so the expander may write there straight away. Text that is plain
// ASCII and fits needs no encoding: that is the result. Anything else goes
// the general way, whose result is the same by construction:
//   text longer than w whose first w bytes are plain: at least w + 1
//     characters, so the encoder would have shortened it;
//   text that fits but is not plain: encoded from a copy;
//   text cut short otherwise: the expansion is repeated with full room.
int format_one_in_place(xf_frame *f, const moment &m, const field_reader &loc, int code,
                        int32_t d, encoded &out) {
  if (wants_utf16(f) || f->width <= 0)
    return format_one(f, m, loc, nullptr, 0, code, d, false, out);
  const uint32_t w = static_cast<uint32_t>(f->width);
  // Never more than the general way's buffer: a longer text fails there.
  uint32_t room = w < f->output_capacity ? w : f->output_capacity;
  if (room > text_room) room = static_cast<uint32_t>(text_room);
  char *field = frame_out(f);
  int32_t len = static_cast<int32_t>(room);
  const int r = zkf_expand(m, loc, nullptr, 0, code, field, &len, d);
  if (r == expand_fits && plain_text(std::string_view(field, static_cast<size_t>(len)))) {
    out.n = static_cast<uint32_t>(len);
    return len - f->width;  // zero or negative: fits whole
  }
  if (r == expand_too_long && room == w && plain_text(std::string_view(field, room)))
    return encode_shortened;
  if (r == expand_fits) {  // escapes or Latin-1 bytes: encode from a copy
    char text[text_room];
    std::memcpy(text, field, static_cast<size_t>(len));
    return encode_text(false, text, static_cast<size_t>(len), f->width, field, f->output_capacity,
                       &out.n);
  }
  if (r != expand_too_long) return format_failed;
  return format_one(f, m, loc, nullptr, 0, code, d, false, out);
}

// The moment of the frame's value, taken apart only when a pattern goes
// through the expander: the compiled date patterns need just the day.
class lazy_moment {
 public:
  lazy_moment(value_kind kind, double value, int32_t decimals)
      : kind_(kind), value_(value), decimals_(decimals) {}
  const moment &get() {
    if (!m_) m_.emplace(moment_for(kind_, value_, decimals_));
    return *m_;
  }

 private:
  value_kind kind_;
  double value_;
  int32_t decimals_;
  // Not filled in until asked for: clearing a moment costs more than a
  // compiled pattern takes to write.
  std::optional<moment> m_;
};

// The day of a date value, for compiled patterns; ok is false when the
// expander must write the field: UTF-16, no width, no usable day.
struct planned_day {
  bool ok = false;
  day_fields day{};
};

// v is the frame's value, already checked by the prologue.
planned_day plan_day_of(const xf_frame *f, value_kind kind, double v) {
  if (kind != value_kind::date && kind != value_kind::date_of_datetime) return {};
  if (wants_utf16(f) || f->width <= 0) return {};
  if (kind == value_kind::date_of_datetime) {
    v = zdatprt(v);
    if (is_missing(v) || !date_value_in_range(v)) return {};
  }
  int64_t n = static_cast<int64_t>(v);
  if (static_cast<double>(n) > v) --n;  // floor for negative fractions
  return {true, day_fields_of(n)};
}

// format_one_in_place for a compiled pattern: the same bytes reach the field
// and the same result comes back, the text now made by the plan. False when
// the text outgrows the local buffer; the caller then takes the expander's way.
bool format_planned(xf_frame *f, const date_plan &plan, const day_fields &day,
                    const zav_locale_field *record, encoded &out, int *result) {
  const uint32_t w = static_cast<uint32_t>(f->width);
  uint32_t room = w < f->output_capacity ? w : f->output_capacity;
  if (room > text_room) room = static_cast<uint32_t>(text_room);
  char *field = frame_out(f);
  if (plan.literals_plain) {  // the usual case: written where it goes, nothing to check
    bool plain = false;
    const size_t len = run_date_plan(plan, day, record, field, room, &plain);
    if (len <= room && plain) {
      out.n = static_cast<uint32_t>(len);
      *result = static_cast<int>(len) - f->width;
      return true;
    }
  }
  // Too long for the field, or text that needs encoding: made whole in a
  // buffer first.
  char text[256];
  const size_t len = run_date_plan(plan, day, record, text, sizeof text);
  if (len > sizeof text) return false;
  const size_t shown = len < room ? len : room;
  if (shown != 0) std::memcpy(field, text, shown);
  if (len <= room && plain_text(std::string_view(text, len))) {
    out.n = static_cast<uint32_t>(len);
    *result = static_cast<int>(len) - f->width;
    return true;
  }
  if (len > room && room == w && plain_text(std::string_view(text, room))) {
    *result = encode_shortened;
    return true;
  }
  *result = encode_text(false, text, len, f->width, field, f->output_capacity, &out.n);
  return true;
}

// The date order of field 6 as three letters: "YMD" when the text is not an
// order, empty when the locale cannot be read (no short form then).
std::string_view date_order(const field_reader &loc) {
  std::string_view o;
  if (!loc.get(field_date_order, &o)) return {};
  if (o.size() != 3) return "YMD";
  if (o.find('D') == o.npos || o.find('M') == o.npos || o.find('Y') == o.npos) return "YMD";
  return o;
}

std::string_view date_separator(const field_reader &loc) {
  std::string_view s;
  if (!loc.get(field_date_separator, &s) || s.empty() || s.find('%') != s.npos || s.size() > 8)
    return "-";
  return s;
}

struct pattern_text {
  char p[64];
  size_t n = 0;
  void put(std::string_view s) {
    for (char c : s)
      if (n < sizeof p) p[n++] = c;
  }
};

// The day, month and year of the locale's order, leaving out what skip names.
void put_dmy(pattern_text &t, std::string_view order, std::string_view sep, bool long_year,
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
pattern_text short_pattern(short_form form, int w, int32_t d, const field_reader &loc,
                           const moment &m) {
  pattern_text t;
  const std::string_view order = date_order(loc);
  if (order.empty()) return t;
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
  return t;
}

int format_short(xf_frame *f, const member_spec &spec, short_form form, const moment &m,
                 const field_reader &loc, encoded &out) {
  pattern_text t = short_pattern(form, f->width, f->decimals, loc, m);
  if (t.n == 0) return format_failed;
  return format_one(f, m, loc, t.p, t.n, 0, pattern_decimals(spec.kind, f->decimals), true, out);
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

xf_status run_two_pattern(xf_frame *f, const member_spec &spec) {
  xf_status st;
  if (!prologue(f, spec, true, &st)) return st;
  const int id = frame_locale_id(f);
  const field_reader loc = locale_reader(id);
  const double v = frame_value(f);
  lazy_moment m(spec.kind, v, f->decimals);
  const int32_t d = pattern_decimals(spec.kind, f->decimals);
  const planned_day day = plan_day_of(f, spec.kind, v);
  encoded out;
  bool no_room = false;
  for (int code : {spec.first, spec.second}) {
    if (code == 0) continue;
    const date_plan *plan = day.ok ? date_plan_for(id, code) : nullptr;
    int r = 0;
    if (plan == nullptr || !format_planned(f, *plan, day.day, loc.record, out, &r))
      r = format_one_in_place(f, m.get(), loc, code, d, out);
    if (r <= 0) {
      place_left(f, out.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || r == encode_no_room;
  }
  if (spec.fallback != short_form::none) {
    int r = format_short(f, spec, spec.fallback, m.get(), loc, out);
    if (r <= 0) {
      place_left(f, out.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || r == encode_no_room;
  }
  return overflow(f, no_room);
}

xf_status run_one_pattern(xf_frame *f, const member_spec &spec, const xf_nl_pattern *table) {
  if (table[0].pattern == nullptr && table[0].code == code_short_form) return run_short(f, spec);
  xf_status st;
  if (!prologue(f, spec, false, &st)) return st;
  const field_reader loc = locale_reader(frame_locale_id(f));
  const moment m = moment_for(spec.kind, frame_value(f), f->decimals);
  const char *p = table[0].pattern;
  encoded out;
  int r =
      format_one(f, m, loc, p, p != nullptr ? std::strlen(p) : 0, p != nullptr ? 0 : table[0].code,
                 pattern_decimals(spec.kind, f->decimals), false, out);
  if (r <= encode_shortened) {
    place_left(f, out.n, wants_utf16(f));
    return XF_OK;
  }
  // Too long for the buffer, or unconvertible: the field stays as it was.
  f->output_length = 0;
  return r == encode_no_room ? XF_E_CAPACITY : XF_E_OVERFLOW;
}

xf_status run_short(xf_frame *f, const member_spec &spec) {
  xf_status st;
  if (!prologue(f, spec, true, &st)) return st;
  const field_reader loc = locale_reader(frame_locale_id(f));
  const moment m = moment_for(spec.kind, frame_value(f), f->decimals);
  encoded out;
  int r = format_short(f, spec, spec.fallback, m, loc, out);
  if (r <= 0) {
    place_left(f, out.n, wants_utf16(f));
    return XF_OK;
  }
  return overflow(f, r == encode_no_room);
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
  encoded out;
  bool no_room = false;
  // The full name when it fits whole, else the abbreviation, cut if need be.
  for (int first : {full_first, abbrev_first}) {
    std::string_view name;
    if (!loc.get(first + k, &name) || name.empty()) continue;
    int r = encode_text(wants_utf16(f), name.data(), name.size(), f->width, frame_out(f),
                        f->output_capacity, &out.n);
    if (r <= 0 || (r == encode_shortened && first == abbrev_first)) {
      place_left(f, out.n, wants_utf16(f));
      return XF_OK;
    }
    no_room = no_room || r == encode_no_room;
  }
  return overflow(f, no_room);
}

}  // namespace xfmt::nls
