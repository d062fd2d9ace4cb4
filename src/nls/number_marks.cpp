// Fields 172-174 and 182 of a locale, read once per locale, and the grouped
// number of NLNUM and the NLPCT formats built on the F layout's digits.
#include "xfmt/xfmt.h"

#include "nls/number_marks.hpp"

#include <array>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "nls/locale_fields.hpp"
#include "nls/locale_reader.hpp"
#include "nls/nl_encode.hpp"
#include "numeric/digits.hpp"
#include "numeric/engine.hpp"

namespace xfmt::nls {
namespace {

// 32 digits with a mark of up to 16 bytes between each pair, and the suffix.
constexpr size_t text_room = 640;

std::string_view field_or_empty(const field_reader &loc, int field) {
  std::string_view t;
  return loc.get(field, &t) ? t : std::string_view{};
}

int small_number(std::string_view t) {
  int v = 0;
  for (char c : t) {
    if (c < '0' || c > '9') return -1;
    v = v * 10 + (c - '0');
    if (v > 64) return -1;
  }
  return t.empty() ? -1 : v;
}

// "3" -> 3, 6, 9 ...; "3;2" -> 3, 5, 7 ... (the last size repeats); "0",
// empty or unreadable -> no marks.
uint64_t grouping_bits(std::string_view t) {
  uint64_t bits = 0;
  int at = 0, size = 0;
  while (!t.empty()) {
    size_t semi = t.find(';');
    int g = small_number(t.substr(0, semi));
    if (g <= 0) break;
    size = g;
    at += g;
    if (at < 64) bits |= uint64_t{1} << at;
    t = semi == std::string_view::npos ? std::string_view{} : t.substr(semi + 1);
  }
  if (size > 0)
    for (at += size; at < 64; at += size) bits |= uint64_t{1} << at;
  return bits;
}

struct appender {
  char *p;
  size_t room;
  size_t n = 0;
  bool over = false;
  void put(const char *s, size_t k) {
    if (n + k > room) {
      over = true;
      return;
    }
    std::memcpy(p + n, s, k);
    n += k;
  }
  void put(std::string_view s) { put(s.data(), s.size()); }
  void put(char c) { put(&c, 1); }
};

// "-1,234.50%" from the split F layout; -1 when longer than room.
int compose(const numeric::plain_parts &p, const number_marks &m, bool grouped,
            std::string_view suffix, char *out, size_t room) {
  appender a{out, room};
  if (p.neg) a.put('-');
  if (grouped && m.group_bits != 0) {
    for (int i = 0; i < p.int_len; ++i) {
      const int right = p.int_len - i;  // digits from this one to the units
      if (i > 0 && right < 64 && ((m.group_bits >> right) & 1)) a.put(m.separator);
      a.put(p.int_digits[i]);
    }
  } else {
    a.put(p.int_digits, static_cast<size_t>(p.int_len));
  }
  if (p.frac_len >= 0) {
    a.put(m.point);
    a.put(p.frac, static_cast<size_t>(p.frac_len));
  }
  a.put(suffix);
  return a.over ? -1 : static_cast<int>(a.n);
}

bool plain_ascii(std::string_view t) {
  for (char c : t)
    if (static_cast<unsigned char>(c) >= 0x80 || c == '<') return false;
  return true;
}

// Encodes text against the width and places it; false when it does not fit.
// ASCII text for a single-byte field (the usual case) goes straight in.
bool place_if_fits(xf_frame *f, const char *text, int n, int32_t w, bool utf16, bool ascii) {
  if (n < 0) return false;
  if (ascii && !utf16) {
    if (n > w) return false;
    char *out = frame_out(f);
    core::put_blanks(out, w - n);
    std::memcpy(out + (w - n), text, static_cast<size_t>(n));
    f->output_length = static_cast<uint32_t>(w);
    return true;
  }
  char enc[text_room * 2];
  uint32_t len = 0;
  int r = encode_text(utf16, text, static_cast<size_t>(n), w, enc, f->output_capacity, &len);
  if (r > 0) return false;
  place_encoded_right(f, enc, len, w, utf16);
  return true;
}

}  // namespace

number_marks read_number_marks(const field_reader &loc) {
  number_marks m;
  std::string_view point = field_or_empty(loc, lf::decimal_point);
  if (!point.empty()) m.point = point;
  if (m.point.size() == 1 && static_cast<unsigned char>(m.point[0]) < 0x80) m.point_byte = m.point[0];
  m.separator = field_or_empty(loc, lf::thousands_separator);
  m.ascii = plain_ascii(m.point) && plain_ascii(m.separator);
  m.group_bits = m.separator.empty() ? 0 : grouping_bits(field_or_empty(loc, lf::grouping));
  // 2: the sign follows the number; 3 and 4 put it beside the currency
  // symbol, which follows the number only where it does not precede negatives.
  const int position = small_number(field_or_empty(loc, lf::negative_sign_position));
  const int precedes = small_number(field_or_empty(loc, lf::symbol_precedes_negative));
  m.minus_after = position == 2 || ((position == 3 || position == 4) && precedes == 0);
  return m;
}

const number_marks &locale_number_marks(int id) {
  static const auto table = [] {
    std::array<number_marks, locale_count + 1> t{};
    for (int i = 0; i <= locale_count; ++i)
      t[static_cast<size_t>(i)] = read_number_marks(locale_reader(i));
    return t;
  }();
  return table[static_cast<size_t>(id >= 1 && id <= locale_count ? id : 0)];
}

const number_marks &international_marks() {
  static const number_marks m{".", '.', ",", grouping_bits("3"), false, true};
  return m;
}

xf_status check_frame_limits(const xf_frame *f, int32_t min_w, int32_t max_w, int32_t min_d,
                             int32_t max_d) {
  if (!(f->option_word & XF_OPT_VALIDATE)) return XF_OK;
  if (f->width < min_w) return XF_NL_WIDTH_LOW;
  if (f->width > max_w) return XF_NL_WIDTH_HIGH;
  if (f->decimals < min_d) return XF_NL_DECIMALS_LOW;
  if (f->decimals > max_d) return XF_NL_DECIMALS_HIGH;
  return XF_OK;
}

void put_locale_point(char *out, uint32_t n, const number_marks &m) {
  if (m.point_byte == '.') return;
  for (uint32_t i = 0; i < n; ++i)
    if (out[i] == '.') out[i] = m.point_byte;
}

xf_status grouped_number(xf_frame *f, const number_marks &m, const number_shape &s) {
  const int32_t w = f->width;
  const int32_t d = f->decimals;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  if (w < 1) return XF_E_OVERFLOW;
  if (w > numeric::max_field) return fail_stars(f, w, XF_E_OVERFLOW);
  const double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, d < 0 || d >= w ? 0 : d);
  const bool utf16 = f->requested_output_encoding == XF_ENC_UTF16LE;
  if (static_cast<uint64_t>(w) * (utf16 ? 2 : 1) > f->output_capacity)
    return fail_stars(f, w, XF_E_CAPACITY);

  const std::string_view suffix = s.suffix;
  const bool ascii = m.ascii && plain_ascii(suffix);
  const double x = v * s.scale;
  // The F layout gets the field less the suffix; a negative value's layout
  // holds its own minus, a positive one leaves that position when reserved.
  const int32_t room = w - static_cast<int32_t>(suffix.size()) - (s.reserve_minus && !(x < 0) ? 1 : 0);
  if (room < 1) return fail_stars(f, w, XF_E_OVERFLOW);
  const int dd = d < 0 ? 0 : (d > 31 ? 31 : d);

  char buf[numeric::max_field];
  char text[text_room];
  for (int k = dd;;) {
    const xf_status st = numeric::layout_number(x, room, k, buf);
    numeric::plain_parts p;
    if (st == XF_E_OVERFLOW || !numeric::split_plain(buf, room, p)) break;
    const int shown = p.frac_len > 0 ? p.frac_len : 0;
    if (place_if_fits(f, text, compose(p, m, true, suffix, text, sizeof text), w, utf16, ascii))
      return shown < dd ? XF_REDUCED : XF_OK;
    if (shown == 0) break;
    k = shown - 1;
  }
  // No decimal place left to shed: the F layout without grouping.
  const xf_status st = numeric::layout_number(x, room, dd, buf);
  if (st == XF_E_OVERFLOW) return fail_stars(f, w, XF_E_OVERFLOW);
  numeric::plain_parts p;
  int n;
  if (numeric::split_plain(buf, room, p)) {
    n = compose(p, m, false, suffix, text, sizeof text);
  } else {  // E notation: the point is the only mark
    int i = 0;
    while (i < room && buf[i] == ' ') ++i;
    appender a{text, sizeof text};
    for (; i < room; ++i) {
      if (buf[i] == '.') a.put(m.point);
      else a.put(buf[i]);
    }
    a.put(suffix);
    n = a.over ? -1 : static_cast<int>(a.n);
  }
  if (!place_if_fits(f, text, n, w, utf16, ascii)) return fail_stars(f, w, XF_E_OVERFLOW);
  return st;
}

}  // namespace xfmt::nls
