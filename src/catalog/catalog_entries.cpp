// The catalog as data: every catalogued name (and the three intrinsic names)
// with its record, a description derived from the name rules, and an example
// that the library converts at the moment it is asked for, so the example
// output is always what the conversion really writes.
#include <cstring>
#include <string_view>

#include "catalog/catalog.hpp"
#include "core/missing.hpp"
#include "catalog/written_format.hpp"
#include "column/conversion.hpp"

namespace xfmt::catalog {
namespace {

constexpr uint32_t intrinsic_count = 3;

// The example value of each family: a moment with distinct parts
// (2023-07-04 12:34:56), an amount with decimals, a text.
struct example_value {
  double number;
  const char *text;      // the value of a "$" format
  const char *fallback;  // what an informat reads when no format writes its text
};

example_value family_example(uint32_t family) {
  switch (family) {
    case XFX_FAMILY_CURRENCY: return {1234.56, "Hello", "$1,234.56"};
    case XFX_FAMILY_PERCENT: return {0.1234, "Hello", "12.34%"};
    case XFX_FAMILY_DATE: return {23195, "Hello", "04JUL2023"};
    case XFX_FAMILY_TIME:
    case XFX_FAMILY_DURATION: return {45296, "Hello", "12:34:56"};
    case XFX_FAMILY_DATETIME: return {23195.0 * 86400 + 45296, "Hello", "04JUL2023:12:34:56"};
    case XFX_FAMILY_BINARY: return {1234, "Hello", "1234"};
    case XFX_FAMILY_NATIONAL: return {3, "Hello", "3"};
    case XFX_FAMILY_NONE: return {0, "DATE", "0"};
    default: return {1234.5678, "Hello", "1234.5678"};
  }
}

// Names whose family value would make a poor example.
struct example_override {
  const char *name;
  double number;
};
constexpr example_override overrides[] = {
    {"SSN", 123456789}, {"PVALUE", 0.0123}, {"NLPVALUE", 0.0123}, {"LOGPROB", 2.5},
    {"ODDSR", 2.5},     {"FRACT", 3.25},    {"ROMAN", 1234},
};

example_value example_for(const xfx_spec &s) {
  example_value v = family_example(s.family);
  for (const example_override &o : overrides)
    if (std::string_view(o.name) == std::string_view(s.name, s.name_length)) v.number = o.number;
  return v;
}

// Informats that read a byte layout no format writes (or a text no family
// value gives): the example input is bytes of their layout that read to the
// family's moment (2023-07-04 12:34:56) or a plain number, with the width and
// decimals the layout wants (width < 0: the input's length).
struct example_input {
  const char *name;
  std::string_view bytes;
  int32_t width;
  int32_t decimals;
};
using namespace std::string_view_literals;
constexpr example_input example_inputs[] = {
    {"CB", "\x04\x00\x02\x00\x01\x00\x00\x20"sv, -1, 0},         // punches 1, 2, 3, 4: 1234
    {"PUNCH", "\x04\x10"sv, 0, 1},                                  // rows 1 and 5; row 1 punched: 1
    {"ROW", "\x00\x10"sv, 3, 4},                                    // row 5, third of rows 3-6: 3
    {"S370FZDB", "\xF1\xF2\xF3\xF4"sv, -1, 0},                      // EBCDIC zoned 1234
    {"PDTIME", "\x01\x23\x45\x6F"sv, -1, 0},                        // 12:34:56
    {"RMFDUR", "\x01\x30\x50\x0F"sv, -1, 0},                        // 1 minute 30.5 seconds
    {"RMFSTAMP", "\x01\x23\x45\x6F\x01\x23\x18\x5F"sv, -1, 0},  // 12:34:56, day 185 of 2023
    {"SMFSTAMP", "\x00\x45\x1D\xC0\x01\x23\x18\x5F"sv, -1, 0},  // 4529600 hundredths, day 185 of 2023
    {"SHRSTAMP", "\x01\x23\x18\x5F\x12\x34\x56\x00"sv, -1, 0},  // day 185 of 2023, 12:34:56.00
    {"TODSTAMP", "\xDD\x8B\x8C\xB7\x0F\xC0\x00\x00"sv, -1, 0},  // microseconds since 1900, shifted 12
    {"TU", "\x67\xAC\xA0\x00"sv, -1, 0},                            // 45296 * 38400 timer units
    {"MSEC", "\x00\x00\xA8\xBD\xA1\xC0\x00\x00"sv, -1, 0},      // 45296 seconds in microseconds, shifted 12
    {"YMDDTTM", "2023-07-04 12:34:56"sv, -1, 0},
};

const example_input *example_input_for(const xfx_spec &s) {
  for (const example_input &x : example_inputs)
    if (std::string_view(x.name) == std::string_view(s.name, s.name_length)) return &x;
  return nullptr;
}

// Copies bytes into a NUL-terminated field of N bytes, writing \xHH for
// every byte when raw (the bytes of a layout, which read back unambiguously),
// and for controls otherwise; a UTF-8 sequence is never split.
template <size_t N>
void put_shown(char (&field)[N], const unsigned char *src, size_t n, bool raw) {
  size_t out = 0;
  for (size_t i = 0; i < n;) {
    unsigned char b = src[i];
    bool escape = raw || b < 0x20 || b == 0x7F;
    size_t take = 1;
    if (!escape && b >= 0x80) take = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : 2;
    size_t need = escape ? 4 : take;
    if (out + need >= N || i + take > n) break;
    if (escape) {
      constexpr char hex[] = "0123456789ABCDEF";
      field[out++] = '\\';
      field[out++] = 'x';
      field[out++] = hex[b >> 4];
      field[out++] = hex[b & 15];
    } else {
      std::memcpy(field + out, src + i, take);
      out += take;
    }
    i += take;
  }
  field[out] = '\0';
}

std::string_view trim(const unsigned char *p, size_t n) {
  std::string_view s(reinterpret_cast<const char *>(p), n);
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

// Converts the example value (or text) with the format of record s; text receives
// the output (UTF-8, or raw bytes), length its size.
xf_status run_format(const xfx_spec &s, const example_value &v, unsigned char *text, size_t capacity,
                     size_t &length) {
  length = 0;
  xfx_conversion *c = nullptr;
  if (column::open_conversion(s, nullptr, 0, c) != XFX_OK) return XF_E_NOT_BUILT;
  unsigned char scratch[column::text_scratch_bytes];
  column::value_input in{&v.number, sizeof v.number, XF_ENC_SINGLE_BYTE, s.width};
  xf_status st = XF_OK;
  if (c->text_input)
    st = column::prepare_text(*c, reinterpret_cast<const unsigned char *>(v.text), std::strlen(v.text), scratch, in);
  if (st == XF_OK) st = column::convert_one(*c, in, text, capacity, length);
  column::close_conversion(c);
  return st;
}

// A default width too narrow for the example value (PIB1., ROMAN6.,
// WORDS10.) would show only stars: the example then doubles the width while
// the stars stay, up to the limit or 64.
bool widen_for_example(xfx_spec &s) {
  constexpr int32_t widest = 64;
  int32_t limit = s.max_width < widest ? s.max_width : widest;
  if (s.width >= limit) return false;
  s.width = s.width * 2 < limit ? (s.width < 1 ? 1 : s.width * 2) : limit;
  return true;
}

// A stored value as text: the missing notation, or BEST32. without its
// blanks (the library's own shortest form; no locale can change it).
void value_text(double v, char *out, size_t capacity) {
  text_sink sink(out, capacity);
  if (is_missing(v)) {
    char sym = missing_symbol(double_bits(v));
    sink.put('.');
    if (sym != '.') sink.put(sym);
    return;
  }
  unsigned char buf[32];
  xf_frame f{};
  f.width = 32;
  f.input = &v;
  f.input_length = sizeof v;
  f.output = buf;
  f.output_capacity = sizeof buf;
  if (zfmb(&f) != XF_OK) return;
  sink.put(trim(buf, f.output_length < sizeof buf ? f.output_length : sizeof buf));
}

void format_example(xfx_catalog_entry &e) {
  xfx_spec s = e.spec;
  example_value v = example_for(s);
  if (s.flags & XFX_CHARACTER) {
    int32_t len = static_cast<int32_t>(std::strlen(v.text));
    if (s.width < len) s.width = len < s.max_width ? len : s.max_width;
    put_shown(e.example_value, reinterpret_cast<const unsigned char *>(v.text), std::strlen(v.text), false);
  } else {
    value_text(v.number, e.example_value, sizeof e.example_value);
  }
  unsigned char out[sizeof e.example_output];
  size_t n = 0;
  e.example_status = run_format(s, v, out, sizeof out, n);
  while (e.example_status == XF_E_OVERFLOW && widen_for_example(s))
    e.example_status = run_format(s, v, out, sizeof out, n);
  xfx_spec_text(&s, e.example_spec, sizeof e.example_spec);
  if (e.example_status == XF_E_NOT_BUILT) return;
  put_shown(e.example_output, out, n < sizeof out ? n : sizeof out, (s.flags & XFX_BYTES) != 0);
}

// An informat reads what its format writes for the family's value, or a
// usual text of the family when no format writes one.
void informat_example(xfx_catalog_entry &e) {
  xfx_spec s = e.spec;
  example_value v = example_for(s);
  unsigned char input[256];
  size_t n = 0;
  catalog_match m;
  xfx_spec f{};
  bool from_format = false;
  const example_input *given = example_input_for(s);
  if (given == nullptr && find_catalog_name(s.name, s.name_length, m) && !m.intrinsic) {
    fill_from_catalog(f, m);
    if (f.flags & XFX_CHARACTER) {
      int32_t len = static_cast<int32_t>(std::strlen(v.text));
      if (f.width < len) f.width = len < f.max_width ? len : f.max_width;
    }
    xf_status st = run_format(f, v, input, sizeof input, n);
    while (st == XF_E_OVERFLOW && widen_for_example(f)) st = run_format(f, v, input, sizeof input, n);
    from_format = (st == XF_OK || st == XF_REDUCED) && n > 0;
  }
  std::string_view text;
  bool raw = (s.flags & XFX_BYTES) != 0;
  if (given) text = given->bytes;
  else if (from_format) text = raw ? std::string_view(reinterpret_cast<const char *>(input), n) : trim(input, n);
  else text = (s.flags & XFX_CHARACTER) ? v.text : v.fallback;
  put_shown(e.example_value, reinterpret_cast<const unsigned char *>(text.data()), text.size(), raw);

  int32_t w = given && given->width >= 0 ? given->width : static_cast<int32_t>(text.size());
  s.width = w < s.min_width ? s.min_width : w > s.max_width ? s.max_width : w;
  s.flags |= XFX_WIDTH_GIVEN;
  if (given && given->decimals > 0) {
    s.decimals = given->decimals;
    s.flags |= XFX_DECIMALS_GIVEN;
  }
  xfx_spec_text(&s, e.example_spec, sizeof e.example_spec);
  xfx_conversion *c = nullptr;
  if (column::open_conversion(s, nullptr, 0, c) != XFX_OK) {
    e.example_status = XF_E_NOT_BUILT;
    return;
  }
  unsigned char scratch[column::text_scratch_bytes];
  column::value_input in{};
  xf_status st = column::prepare_text(*c, reinterpret_cast<const unsigned char *>(text.data()), text.size(),
                                      scratch, in);
  if (st == XF_OK && (s.flags & XFX_CHARACTER)) {
    unsigned char out[sizeof e.example_output];
    size_t len = 0;
    st = column::convert_one(*c, in, out, sizeof out, len);
    put_shown(e.example_output, out, len < sizeof out ? len : sizeof out, false);
  } else if (st == XF_OK) {
    double value = 0;
    st = column::read_one(*c, in, value);
    value_text(value, e.example_output, sizeof e.example_output);
  }
  e.example_status = st;
  column::close_conversion(c);
}

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" {

uint32_t xfx_catalog_count(void) { return static_cast<uint32_t>(fmtposs_count) + intrinsic_count; }

xfx_error xfx_catalog_entry_at(uint32_t index, xfx_catalog_entry *entry) {
  if (entry == nullptr || index >= xfx_catalog_count()) return XFX_E_ARGUMENT;
  std::memset(entry, 0, sizeof *entry);
  catalog_match m;
  if (index < fmtposs_count) {
    const fmtinfo_eachfmt &r = fmtposs[index].row;
    if (!find_catalog_name(r.name, r.name_length, m)) return XFX_E_ARGUMENT;
  } else {
    const fmtposs_row *rows[intrinsic_count] = {&crashfmt, &ver_num[0], &ver_num[1]};
    m.poss = rows[index - fmtposs_count];
    m.row = &m.poss->row;
    m.intrinsic = true;
  }
  fill_from_catalog(entry->spec, m);
  xfx_describe(&entry->spec, entry->description, sizeof entry->description);
  if (entry->spec.flags & XFX_SEPARATOR) {
    entry->example_status = XF_E_NOT_BUILT;
    return XFX_OK;
  }
  if (entry->spec.flags & XFX_INFORMAT) informat_example(*entry);
  else format_example(*entry);
  return XFX_OK;
}

}  // extern "C"
