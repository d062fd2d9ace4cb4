// Whole-column conversion: n values per call into fixed-width fields, into
// trimmed UTF-8 texts with offsets, or (numeric informats) into doubles.
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/missing.hpp"
#include "core/status.hpp"
#include "column/conversion.hpp"
#include "column/fast_paths.hpp"
#include "column/utf8_text.hpp"

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

// n bytes (at most 64): two overlapping 8-byte moves for 8 to 16 bytes, the
// usual date widths, instead of a call to memcpy.
inline void copy_short(unsigned char *dst, const unsigned char *src, size_t n) {
  if (n >= 8 && n <= 16) {
    uint64_t a, b;
    std::memcpy(&a, src, 8);
    std::memcpy(&b, src + n - 8, 8);
    std::memcpy(dst, &a, 8);
    std::memcpy(dst + n - 8, &b, 8);
  } else {
    std::memcpy(dst, src, n);
  }
}

// A whole number of days within +-1e9 (a NaN fails the range test), tested
// without a call to floor.
inline bool whole_day(double v) {
  if (!(v >= -1e9 && v <= 1e9)) return false;
  return static_cast<double>(static_cast<int64_t>(v)) == v;
}

// Each distinct day of a date column converted once: a column of a million
// dates rarely spans more than a few thousand days, and the text of a day is
// the same every time (the date formats keep no state and read no clock).
// One table per call, of the days between the column's first and last
// whole-day values; values that are not whole days, or missing, go to the
// routine as usual.
class day_memo {
 public:
  day_memo() = default;
  day_memo(const day_memo &) = delete;
  day_memo &operator=(const day_memo &) = delete;
  ~day_memo() { std::free(block_); }

  void prepare(const xfx_conversion &c, const double *values, size_t n) {
    constexpr size_t min_values = 64, max_days = size_t{1} << 18;
    if (c.spec.family != XFX_FAMILY_DATE || c.route != route::windows_1252 || !c.ascii_only || c.text_input ||
        c.spec.width < 1 || c.spec.width > 64 || n < min_values)
      return;
    double lo = 0, hi = -1;
    for (size_t i = 0; i < n; ++i) {
      double v = values[i];
      if (!whole_day(v)) continue;
      if (hi < lo) lo = hi = v;
      else if (v < lo) lo = v;
      else if (v > hi) hi = v;
    }
    if (hi < lo) return;
    size_t days = static_cast<size_t>(hi - lo) + 1;
    if (days > max_days || days > n) return;
    width_ = static_cast<size_t>(c.spec.width);
    // Per day: the text, its length, its status, and whether it is filled.
    size_t per_day = width_ + sizeof(uint32_t) + sizeof(xf_status) + 1;
    block_ = static_cast<unsigned char *>(std::calloc(days, per_day));
    if (block_ == nullptr) return;
    lengths_ = reinterpret_cast<uint32_t *>(block_);
    statuses_ = reinterpret_cast<xf_status *>(block_ + days * sizeof(uint32_t));
    filled_ = block_ + days * (sizeof(uint32_t) + sizeof(xf_status));
    texts_ = filled_ + days;
    lo_ = lo;
    hi_ = hi;
  }

  // The text of value v when it is a whole day of the table (converted on
  // first use through frame); false otherwise.
  bool get(const xfx_conversion &c, xf_frame &frame, double v, unsigned char *out, size_t capacity, size_t &length,
           xf_status &st) {
    if (block_ == nullptr || !(v >= lo_ && v <= hi_) || capacity < width_ || !whole_day(v)) return false;
    size_t k = static_cast<size_t>(v - lo_);
    unsigned char *text = texts_ + k * width_;
    if (!filled_[k]) {
      value_input in{&v, sizeof v, XF_ENC_SINGLE_BYTE, c.spec.width};
      size_t len = 0;
      statuses_[k] = convert_one(c, frame, in, text, width_, len);
      lengths_[k] = static_cast<uint32_t>(len);
      filled_[k] = 1;
    }
    length = lengths_[k];
    st = statuses_[k];
    copy_short(out, text, length);
    return true;
  }

 private:
  unsigned char *block_ = nullptr;
  uint32_t *lengths_ = nullptr;
  xf_status *statuses_ = nullptr;
  unsigned char *filled_ = nullptr;
  unsigned char *texts_ = nullptr;
  size_t width_ = 0;
  double lo_ = 0, hi_ = -1;
};

// The values of one call and their conversion, one at a time.
class column_runner {
 public:
  column_runner(const xfx_conversion &c, size_t n, const double *values, const char *texts, const int64_t *offsets,
                uint32_t flags)
      : c_(c), values_(values), texts_(texts), offsets_(offsets),
        nan_missing_((flags & XFX_COL_NAN_MISSING) != 0), frame_(base_frame(c)) {
    if (!c.text_input) memo_.prepare(c, values, n);
  }

  // The input of value i; XF_OK or an XFX_S_* status.
  xf_status input(size_t i, value_input &in) {
    if (c_.text_input) {
      int64_t a = offsets_[i], b = offsets_[i + 1];
      if (a < 0 || b < a) return XFX_S_BAD_UTF8;
      return prepare_text(c_, reinterpret_cast<const unsigned char *>(texts_) + a, static_cast<size_t>(b - a),
                          scratch_, in);
    }
    number_ = values_[i];
    if (nan_missing_ && std::isnan(number_) && !is_missing(number_)) number_ = missing_ordinary();
    in = value_input{&number_, sizeof number_, XF_ENC_SINGLE_BYTE, c_.spec.width};
    return XF_OK;
  }

  // Converts value i (input already taken) into out.
  xf_status convert(const value_input &in, unsigned char *out, size_t capacity, size_t &length) {
    xf_status st;
    if (c_.fast == kernel::fixed_number && capacity >= static_cast<size_t>(c_.spec.width) &&
        fixed_fast(number_, c_.spec.width, c_.spec.decimals, reinterpret_cast<char *>(out))) {
      length = static_cast<size_t>(c_.spec.width);
      return XF_OK;
    }
    if (!c_.text_input && memo_.get(c_, frame_, number_, out, capacity, length, st)) return st;
    return convert_one(c_, frame_, in, out, capacity, length);
  }

  xf_status read(const value_input &in, double &value) { return read_one(c_, frame_, in, value); }

 private:
  const xfx_conversion &c_;
  const double *values_;
  const char *texts_;
  const int64_t *offsets_;
  bool nan_missing_;
  double number_ = 0;
  xf_frame frame_;
  day_memo memo_;
  unsigned char scratch_[text_scratch_bytes];
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

const char *xfx_status_text(xf_status status) {
  switch (status) {
    case XFX_S_UNREPRESENTABLE: return "a character has no place in the encoding the conversion reads";
    case XFX_S_BAD_UTF8: return "the text is not valid UTF-8";
    case XFX_S_FIELD_SMALL: return "the text is longer than the field";
    default: return xfmt::status_name(status);
  }
}

xfx_error xfx_convert_fixed(const xfx_conversion *conversion, size_t n, const double *values, const char *texts,
                            const int64_t *text_offsets, uint32_t flags, char *fields, size_t stride, char pad,
                            xf_status *statuses) {
  if (!inputs_ok(conversion, n, values, texts, text_offsets) || (n > 0 && fields == nullptr) ||
      numeric_informat(*conversion))
    return XFX_E_ARGUMENT;
  column_runner run(*conversion, n, values, texts, text_offsets, flags);
  for (size_t i = 0; i < n; ++i) {
    auto *field = reinterpret_cast<unsigned char *>(fields) + i * stride;
    value_input in;
    size_t len = 0;
    xf_status st = run.input(i, in);
    if (st == XF_OK) st = run.convert(in, field, stride, len);
    if (delivers_nothing(st)) len = 0;
    if (len < stride) std::memset(field + len, static_cast<unsigned char>(pad), stride - len);
    if (statuses != nullptr) statuses[i] = st;
  }
  return XFX_OK;
}

xfx_error xfx_convert_fixed_utf32(const xfx_conversion *conversion, size_t n, const double *values,
                                  const char *texts, const int64_t *text_offsets, uint32_t flags, uint32_t *fields,
                                  size_t stride, uint32_t pad, xf_status *statuses) {
  if (!inputs_ok(conversion, n, values, texts, text_offsets) || (n > 0 && fields == nullptr) ||
      numeric_informat(*conversion))
    return XFX_E_ARGUMENT;
  size_t room = xfx_max_field_bytes(conversion);
  auto *text = static_cast<unsigned char *>(std::malloc(room > 0 ? room : 1));
  if (text == nullptr) return XFX_E_ARGUMENT;
  column_runner run(*conversion, n, values, texts, text_offsets, flags);
  for (size_t i = 0; i < n; ++i) {
    uint32_t *field = fields + i * stride;
    value_input in;
    size_t len = 0, chars = 0;
    xf_status st = run.input(i, in);
    if (st == XF_OK) st = run.convert(in, text, room, len);
    if (delivers_nothing(st)) len = 0;
    if (conversion->ascii_only && len <= stride) {
      // The usual case: one byte, one position, no decoding.
      for (; chars < len; ++chars) field[chars] = text[chars];
    } else if (conversion->route == route::bytes) {
      // Raw bytes keep their values, one a position.
      if (len > stride) st = XFX_S_FIELD_SMALL, len = 0;
      for (; chars < len; ++chars) field[chars] = text[chars];
    } else {
      for (size_t k = 0; k < len;) {
        if (text[k] < 0x80 && chars < stride) {  // ASCII: one byte, one position
          field[chars++] = text[k++];
          continue;
        }
        int32_t cp = next_code_point(text, len, k);
        if (chars == stride || cp < 0) {
          st = XFX_S_FIELD_SMALL;
          chars = 0;
          break;
        }
        field[chars++] = static_cast<uint32_t>(cp);
      }
    }
    for (size_t k = chars; k < stride; ++k) field[k] = pad;
    if (statuses != nullptr) statuses[i] = st;
  }
  std::free(text);
  return XFX_OK;
}

xfx_error xfx_convert_strings(const xfx_conversion *conversion, size_t n, const double *values, const char *texts,
                              const int64_t *text_offsets, uint32_t flags, char *data, size_t capacity,
                              int64_t *offsets, xf_status *statuses, size_t *done) {
  if (done != nullptr) *done = 0;
  if (!inputs_ok(conversion, n, values, texts, text_offsets) || offsets == nullptr ||
      (capacity > 0 && data == nullptr) || numeric_informat(*conversion))
    return XFX_E_ARGUMENT;
  column_runner run(*conversion, n, values, texts, text_offsets, flags);
  const bool terminate = (flags & XFX_COL_NUL_AFTER) != 0;
  const bool raw = conversion->route == route::bytes;
  auto *out = reinterpret_cast<unsigned char *>(data);
  size_t pos = 0;
  offsets[0] = 0;
  for (size_t i = 0; i < n; ++i) {
    value_input in;
    size_t len = 0, room = capacity - pos;
    xf_status st = run.input(i, in);
    if (st == XF_OK) {
      // The routine needs its whole width even when the trimmed text is
      // shorter; with less room the value waits for the next call.
      if (room < static_cast<size_t>(in.width < 0 ? 0 : in.width) + (terminate ? 1 : 0)) {
        if (done != nullptr) *done = i;
        return XFX_E_CAPACITY;
      }
      st = run.convert(in, out + pos, room - (terminate ? 1 : 0), len);
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
  column_runner run(*conversion, n, nullptr, texts, text_offsets, 0);
  const xfx_spec &s = conversion->spec;
  const bool width_given = (s.flags & XFX_WIDTH_GIVEN) != 0;
  for (size_t i = 0; i < n; ++i) {
    if (conversion->fast == kernel::plain_number) {
      // The plain texts straight from the caller's bytes: the field is the
      // text within the width (without one, the text itself within the
      // informat's limits), as the routine reads it.
      int64_t a = text_offsets[i], b = text_offsets[i + 1];
      if (a >= 0 && b >= a) {
        size_t len = static_cast<size_t>(b - a);
        size_t w = width_given ? static_cast<size_t>(s.width)
                               : (len < s.min_width ? s.min_width : len > s.max_width ? s.max_width : len);
        if (w >= 1 && plain_number_fast(reinterpret_cast<const unsigned char *>(texts) + a, len < w ? len : w,
                                        s.decimals, values[i])) {
          if (statuses != nullptr) statuses[i] = XF_OK;
          continue;
        }
      }
    }
    value_input in;
    xf_status st = run.input(i, in);
    if (st == XF_OK) st = run.read(in, values[i]);
    else values[i] = xfmt::missing_ordinary();
    if (statuses != nullptr) statuses[i] = st;
  }
  return XFX_OK;
}

}  // extern "C"
