// Whole-column conversion: n values per call into fixed-width fields, into
// trimmed UTF-8 texts with offsets, or (numeric informats) into doubles.
#include <cmath>
#include <cstring>

#include "catalog/missing.hpp"
#include "column/conversion.hpp"

namespace xfmt::column {
namespace {

bool is_column_status(xf_status st) { return st == XFX_S_UNREPRESENTABLE || st == XFX_S_BAD_UTF8 || st == XFX_S_FIELD_SMALL; }

// Statuses after which nothing of the value is handed out.
bool delivers_nothing(xf_status st) {
  return is_column_status(st) || st == XF_E_CAPACITY || st == XF_E_NOT_BUILT || st == XF_E_NULL_ARGUMENT;
}

bool inputs_ok(const xfx_conversion *c, size_t n, const double *values, const char *texts, const int64_t *offsets) {
  if (c == nullptr) return false;
  if (n == 0) return true;
  return c->text_input ? (texts != nullptr && offsets != nullptr) : values != nullptr;
}

bool numeric_informat(const xfx_conversion &c) {
  return (c.spec.flags & XFX_INFORMAT) && !(c.spec.flags & XFX_CHARACTER);
}

// Where value i comes from.
struct column_input {
  const xfx_conversion &c;
  const double *values;
  const char *texts;
  const int64_t *offsets;
  bool nan_missing;
  unsigned char *scratch;  // text_scratch_bytes

  xf_status get(size_t i, double &number, value_input &in) const {
    if (c.text_input) {
      int64_t a = offsets[i], b = offsets[i + 1];
      if (a < 0 || b < a) return XFX_S_BAD_UTF8;
      return prepare_text(c, reinterpret_cast<const unsigned char *>(texts) + a, static_cast<size_t>(b - a),
                          scratch, in);
    }
    number = values[i];
    if (nan_missing && std::isnan(number) && !is_missing(number)) number = missing_ordinary();
    in = value_input{&number, sizeof number, XF_ENC_SINGLE_BYTE, c.spec.width};
    return XF_OK;
  }
};

// Leading and trailing blanks out of text[0..n): moves the rest to the front.
size_t trim_in_place(unsigned char *text, size_t n) {
  size_t a = 0;
  while (a < n && text[a] == ' ') ++a;
  while (n > a && text[n - 1] == ' ') --n;
  if (a > 0) std::memmove(text, text + a, n - a);
  return n - a;
}

}  // namespace
}  // namespace xfmt::column

using namespace xfmt::column;

extern "C" {

xfx_error xfx_convert_fixed(const xfx_conversion *conversion, size_t n, const double *values, const char *texts,
                            const int64_t *text_offsets, uint32_t flags, char *fields, size_t stride, char pad,
                            xf_status *statuses) {
  if (!inputs_ok(conversion, n, values, texts, text_offsets) || (n > 0 && fields == nullptr) ||
      numeric_informat(*conversion))
    return XFX_E_ARGUMENT;
  unsigned char scratch[text_scratch_bytes];
  column_input src{*conversion, values, texts, text_offsets, (flags & XFX_COL_NAN_MISSING) != 0, scratch};
  for (size_t i = 0; i < n; ++i) {
    auto *field = reinterpret_cast<unsigned char *>(fields) + i * stride;
    double number;
    value_input in;
    size_t len = 0;
    xf_status st = src.get(i, number, in);
    if (st == XF_OK) st = convert_one(*conversion, in, field, stride, len);
    if (delivers_nothing(st)) len = 0;
    if (len < stride) std::memset(field + len, static_cast<unsigned char>(pad), stride - len);
    if (statuses != nullptr) statuses[i] = st;
  }
  return XFX_OK;
}

xfx_error xfx_convert_strings(const xfx_conversion *conversion, size_t n, const double *values, const char *texts,
                              const int64_t *text_offsets, uint32_t flags, char *data, size_t capacity,
                              int64_t *offsets, xf_status *statuses, size_t *done) {
  if (done != nullptr) *done = 0;
  if (!inputs_ok(conversion, n, values, texts, text_offsets) || offsets == nullptr ||
      (capacity > 0 && data == nullptr) || numeric_informat(*conversion))
    return XFX_E_ARGUMENT;
  unsigned char scratch[text_scratch_bytes];
  column_input src{*conversion, values, texts, text_offsets, (flags & XFX_COL_NAN_MISSING) != 0, scratch};
  const bool terminate = (flags & XFX_COL_NUL_AFTER) != 0;
  const bool raw = conversion->route == route::bytes;
  auto *out = reinterpret_cast<unsigned char *>(data);
  size_t pos = 0;
  offsets[0] = 0;
  for (size_t i = 0; i < n; ++i) {
    double number;
    value_input in;
    size_t len = 0, room = capacity - pos;
    xf_status st = src.get(i, number, in);
    if (st == XF_OK) {
      // The routine needs its whole width even when the trimmed text is
      // shorter; with less room the value waits for the next call.
      if (room < static_cast<size_t>(in.width < 0 ? 0 : in.width) + (terminate ? 1 : 0)) {
        if (done != nullptr) *done = i;
        return XFX_E_CAPACITY;
      }
      st = convert_one(*conversion, in, out + pos, room - (terminate ? 1 : 0), len);
      if (st == XFX_S_FIELD_SMALL) {
        if (done != nullptr) *done = i;
        return XFX_E_CAPACITY;
      }
    } else if (terminate && room < 1) {
      if (done != nullptr) *done = i;
      return XFX_E_CAPACITY;
    }
    if (delivers_nothing(st)) len = 0;
    else if (!raw) len = trim_in_place(out + pos, len);
    pos += len;
    if (terminate) out[pos++] = 0;
    offsets[i + 1] = static_cast<int64_t>(pos);
    if (statuses != nullptr) statuses[i] = st;
  }
  if (done != nullptr) *done = n;
  return XFX_OK;
}

xfx_error xfx_convert_numbers(const xfx_conversion *conversion, size_t n, const char *texts,
                              const int64_t *text_offsets, double *values, xf_status *statuses) {
  if (conversion == nullptr || !numeric_informat(*conversion) ||
      (n > 0 && (texts == nullptr || text_offsets == nullptr || values == nullptr)))
    return XFX_E_ARGUMENT;
  unsigned char scratch[text_scratch_bytes];
  column_input src{*conversion, nullptr, texts, text_offsets, false, scratch};
  for (size_t i = 0; i < n; ++i) {
    double number;
    value_input in;
    xf_status st = src.get(i, number, in);
    if (st == XF_OK) st = read_one(*conversion, in, values[i]);
    else values[i] = xfmt::missing_ordinary();
    if (statuses != nullptr) statuses[i] = st;
  }
  return XFX_OK;
}

}  // extern "C"
