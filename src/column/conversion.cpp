// Open conversions of the column functions and the conversion of one value
// to UTF-8. A catalogued routine is called directly, as xffmt would on a
// handle the host owns, so a column pays for no dispatch per value; a
// user-defined format goes through its handle and xffmt.
#include "column/conversion.hpp"

#include <cstring>
#include <new>

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "catalog/handle_release.hpp"
#include "core/missing.hpp"
#include "catalog/written_format.hpp"
#include "column/utf8_text.hpp"

namespace xfmt::column {
namespace {

constexpr size_t wide_scratch_bytes = 2048;  // UTF-16 of the widest national field (200 units)
constexpr size_t label_scratch_bytes = 1024;  // user labels come back as at most 256 bytes

bool writes_ascii_only(const xfx_spec &s, route r) {
  if (r != route::windows_1252) return false;
  if (s.flags & (XFX_CHARACTER | XFX_NATIONAL | XFX_USER)) return false;
  // EURO, EUROX, YEN and the euro conversions write the euro and yen signs.
  return s.family != XFX_FAMILY_CURRENCY;
}

xfx_error open_user(const xfx_spec &spec, void *context, xfx_conversion &c) {
  void *handle = nullptr;
  int32_t kind = (spec.flags & XFX_INFORMAT) ? 73 : 0;
  if (context == nullptr ||
      xfname2(spec.name, static_cast<int32_t>(spec.name_length), kind, nullptr, &handle, context) != XF_OK)
    return XFX_E_UNKNOWN_NAME;
  auto *h = static_cast<xf_user_handle *>(handle);
  if (!catalog::is_user_handle(h) || h->routine == nullptr) {
    catalog::release_handle(handle);
    return XFX_E_NOT_BUILT;
  }
  c.user_handle = handle;
  c.route = route::user;
  return XFX_OK;
}

// The bidirectional formats read UTF-8 (or UTF-16) text and write the same.
bool reads_utf8(xf_routine r) {
  return r == zfmlogvs || r == zfmlogvsr || r == zfmvslog || r == zfmvslogr || r == zfmbidi;
}

xfx_error open_catalog(const xfx_spec &spec, xfx_conversion &c) {
  char name[sizeof spec.name + 1];
  uint32_t n = 0;
  if (spec.flags & XFX_INFORMAT) name[n++] = '@';
  std::memcpy(name + n, spec.name, spec.name_length);
  n += spec.name_length;
  catalog::catalog_match m;
  if (!catalog::find_catalog_name(name, n, m) || m.row->routine == nullptr) return XFX_E_NOT_BUILT;
  c.routine = m.row->routine;
  if (spec.flags & XFX_BYTES) c.route = route::bytes;
  else if (reads_utf8(c.routine)) c.route = route::utf8;
  else if (!m.intrinsic && std::memcmp(m.poss->module_name, "JAZWFNLS", 8) == 0) c.route = route::national;
  else c.route = route::windows_1252;
  return XFX_OK;
}

// The routine's single-byte text at out (n bytes) as UTF-8 in place.
xf_status expand_field(unsigned char *out, size_t n, size_t capacity, size_t &length, xf_status st) {
  size_t need = utf8_length_of_1252(out, n);
  if (need > capacity) {
    length = need;
    return XFX_S_FIELD_SMALL;
  }
  length = expand_1252_in_place(out, n);
  return st;
}

// Eight bytes at a time: no byte has its high bit set.
bool is_ascii(const unsigned char *p, size_t n) {
  size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    uint64_t w;
    std::memcpy(&w, p + i, 8);
    if (w & 0x8080808080808080ull) return false;
  }
  for (; i < n; ++i)
    if (p[i] & 0x80) return false;
  return true;
}

// The width of a text value: the conversion's, or for an informat without a
// width the text's own length within the informat's limits (it reads the
// whole text).
void set_width(const xfx_conversion &c, value_input &in, size_t chars) {
  in.width = c.spec.width;
  if ((c.spec.flags & XFX_INFORMAT) && !(c.spec.flags & XFX_WIDTH_GIVEN)) {
    size_t w = chars < c.spec.min_width ? c.spec.min_width : chars > c.spec.max_width ? c.spec.max_width : chars;
    in.width = static_cast<int32_t>(w);
  }
}

bool wrote_nothing(xf_status st) { return st == XF_E_CAPACITY || st == XF_E_NOT_BUILT || st == XF_E_NULL_ARGUMENT; }

}  // namespace

xfx_error open_conversion(const xfx_spec &spec, void *context, uint32_t locale_id, xfx_conversion *&out) {
  out = nullptr;
  auto *c = new (std::nothrow) xfx_conversion{};
  if (c == nullptr) return XFX_E_ARGUMENT;
  c->spec = spec;
  c->option_word = locale_id & XF_OPT_LOCALE_MASK;
  c->text_input = (spec.flags & (XFX_CHARACTER | XFX_INFORMAT)) != 0;
  xfx_error e = (spec.flags & XFX_USER) ? open_user(spec, context, *c) : open_catalog(spec, *c);
  if (e != XFX_OK) {
    delete c;
    return e;
  }
  c->ascii_only = writes_ascii_only(spec, c->route);
  if (c->routine == zfmt && spec.width >= 2 && spec.width <= 32 && spec.decimals >= 1 && spec.decimals <= 9)
    c->fast = kernel::fixed_number;
  else if (c->routine == wzifmn && spec.decimals >= 0 && spec.decimals <= 22)
    c->fast = kernel::plain_number;
  out = c;
  return XFX_OK;
}

void close_conversion(xfx_conversion *c) {
  if (c == nullptr) return;
  catalog::release_handle(c->user_handle);
  delete c;
}

xf_frame base_frame(const xfx_conversion &c) {
  xf_frame f{};
  f.width = c.spec.width;
  f.decimals = c.spec.decimals;
  f.option_word = c.option_word;
  return f;
}

xf_status convert_one(const xfx_conversion &c, xf_frame &f, const value_input &in, unsigned char *out,
                      size_t capacity, size_t &length) {
  f.width = in.width;
  f.decimals = c.spec.decimals;
  f.input = in.data;
  f.input_length = in.length;
  f.input_encoding = in.encoding;
  uint32_t cap32 = capacity > UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(capacity);
  length = 0;
  switch (c.route) {
    case route::windows_1252:
    case route::bytes:
    case route::utf8: {
      f.output = out;
      f.output_capacity = cap32;
      xf_status st = c.routine(&f);
      if (wrote_nothing(st)) return st;
      size_t n = f.output_length < cap32 ? f.output_length : cap32;
      if (c.ascii_only || c.route != route::windows_1252) {
        length = n;
        return st;
      }
      return expand_field(out, n, capacity, length, st);
    }
    case route::national: {
      unsigned char wide[wide_scratch_bytes];
      f.output = wide;
      f.output_capacity = sizeof wide;
      f.requested_output_encoding = XF_ENC_UTF16LE;
      f.output_encoding = 0;
      xf_status st = c.routine(&f);
      if (wrote_nothing(st)) return st;
      size_t n = f.output_length < sizeof wide ? f.output_length : sizeof wide;
      if (f.output_encoding == XF_ENC_UTF16LE) {
        length = utf8_from_utf16le(wide, n, out, capacity);
        return length > capacity ? XFX_S_FIELD_SMALL : st;
      }
      // Single-byte answers (a field of "*") are Windows-1252 like the rest.
      if (n > capacity) {
        length = n;
        return XFX_S_FIELD_SMALL;
      }
      std::memcpy(out, wide, n);
      return expand_field(out, n, capacity, length, st);
    }
    case route::user: {
      unsigned char labels[label_scratch_bytes];
      f.output = labels;
      f.output_capacity = sizeof labels;
      f.requested_output_encoding = 0;
      f.output_encoding = 0;
      xf_status st = xffmt(&f, c.user_handle);
      if (wrote_nothing(st)) return st;
      size_t n = f.output_length < sizeof labels ? f.output_length : sizeof labels;
      if (f.output_encoding == XF_ENC_UTF16LE) {
        length = utf8_from_utf16le(labels, n, out, capacity);
        return length > capacity ? XFX_S_FIELD_SMALL : st;
      }
      length = n;
      if (n > capacity) return XFX_S_FIELD_SMALL;
      std::memcpy(out, labels, n);
      return st;
    }
  }
  return XF_E_NOT_BUILT;
}

xf_status convert_one(const xfx_conversion &c, const value_input &in, unsigned char *out, size_t capacity,
                      size_t &length) {
  xf_frame f = base_frame(c);
  return convert_one(c, f, in, out, capacity, length);
}

xf_status read_one(const xfx_conversion &c, xf_frame &f, const value_input &in, double &value) {
  f.width = in.width;
  f.decimals = c.spec.decimals;
  f.input = in.data;
  f.input_length = in.length;
  f.input_encoding = in.encoding;
  f.output = &value;
  f.output_capacity = sizeof value;
  value = missing_ordinary();
  if (c.route == route::user) return xffmt(&f, c.user_handle);
  return c.routine(&f);
}

xf_status read_one(const xfx_conversion &c, const value_input &in, double &value) {
  xf_frame f = base_frame(c);
  return read_one(c, f, in, value);
}

xf_status prepare_text(const xfx_conversion &c, const unsigned char *text, size_t n, unsigned char *scratch,
                       value_input &in) {
  size_t written = 0;
  text_result r;
  if (c.route == route::bytes || (c.route != route::user && is_ascii(text, n))) {
    // Bytes as they are, and ASCII, which is the same in Windows-1252: the
    // routine reads the caller's text in place.
    in.data = text;
    in.length = static_cast<uint32_t>(n > UINT32_MAX ? UINT32_MAX : n);
    in.encoding = XF_ENC_SINGLE_BYTE;
    set_width(c, in, in.length);
    return XF_OK;
  }
  if (c.route == route::utf8) {
    // The routine reads the caller's UTF-8 in place once it is known valid.
    for (size_t i = 0; i < n;)
      if (next_code_point(text, n, i) < 0) return XFX_S_BAD_UTF8;
    in.data = text;
    in.length = static_cast<uint32_t>(n > UINT32_MAX ? UINT32_MAX : n);
    in.encoding = XF_ENC_SINGLE_BYTE;
    set_width(c, in, in.length);
    return XF_OK;
  }
  if (c.route == route::user && (c.spec.flags & XFX_CHARACTER)) {
    size_t units = 0;
    r = utf8_to_utf16(text, n, reinterpret_cast<uint16_t *>(scratch), text_scratch_bytes / 2, units);
    written = units * 2;
    in.encoding = XF_ENC_UTF16LE;
  } else {
    r = utf8_to_1252(text, n, scratch, text_scratch_bytes, written);
    in.encoding = XF_ENC_SINGLE_BYTE;
  }
  // A text longer than any field is cut: no routine reads past its width.
  if (r == text_result::too_long) r = text_result::ok;
  if (r == text_result::unrepresentable) return XFX_S_UNREPRESENTABLE;
  if (r == text_result::bad_utf8) return XFX_S_BAD_UTF8;
  in.data = scratch;
  in.length = static_cast<uint32_t>(written);
  set_width(c, in, in.encoding == XF_ENC_UTF16LE ? written / 2 : written);
  return XF_OK;
}

}  // namespace xfmt::column

using namespace xfmt::column;

extern "C" {

xfx_error xfx_open(const char *text, size_t length, uint32_t options, uint32_t locale_id, void *context,
                   xfx_conversion **conversion) {
  if (conversion == nullptr) return XFX_E_ARGUMENT;
  *conversion = nullptr;
  xfx_spec spec;
  xfx_error e = xfx_parse_spec(text, length, options, context, &spec);
  if (e != XFX_OK) return e;
  return open_conversion(spec, context, locale_id, *conversion);
}

void xfx_close(xfx_conversion *conversion) { close_conversion(conversion); }

const xfx_spec *xfx_conversion_spec(const xfx_conversion *conversion) {
  return conversion != nullptr ? &conversion->spec : nullptr;
}

size_t xfx_max_field_bytes(const xfx_conversion *c) {
  if (c == nullptr) return 0;
  size_t w = static_cast<size_t>(c->spec.width < 0 ? 0 : c->spec.width);
  if ((c->spec.flags & XFX_INFORMAT) && !(c->spec.flags & XFX_WIDTH_GIVEN)) w = c->spec.max_width;
  switch (c->route) {
    case route::bytes:
    case route::utf8: return w;  // the width counts bytes of UTF-8
    case route::user: return w * 4 < 256 ? w * 4 : 256;
    case route::national: return w * 3;
    case route::windows_1252: return c->ascii_only ? w : w * 3;
  }
  return w * 3;
}

}  // extern "C"
