// Output-field helpers shared by every conversion.
#include "core/field.hpp"

#include "core/bounded_text.hpp"

namespace xfmt {

xf_status write_missing(xf_frame *f, int32_t w, int32_t d) {
  char *out = frame_out(f);
  fill_bytes(out, f->output_capacity, ' ');
  f->output_length = field_room(f, w);
  if (d == 98 || d == 99) d = 0;
  char sym = missing_symbol(frame_value_bits(f));
  if (sym == '-') sym = '_';
  int64_t pos = static_cast<int64_t>(w) - 1 - d;
  if (pos >= 0 && pos < static_cast<int64_t>(f->output_capacity) && pos < w)
    out[pos] = sym;
  return XF_OK;
}

bool write_int_right(char *out, int width, int64_t value) {
  if (width <= 0) return false;
  bool neg = value < 0;
  uint64_t mag = neg ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  const int n = core::digit_count(mag);
  int need = n + (neg ? 1 : 0);
  if (need > width) {
    std::memset(out, '*', static_cast<size_t>(width));
    return false;
  }
  int pad = width - need;
  std::memset(out, ' ', static_cast<size_t>(pad));
  char *p = out + pad;
  if (neg) *p++ = '-';
  core::put_digits(p + n, mag, n);
  return true;
}

bool write_int_zero(char *out, int width, int64_t value) {
  if (width <= 0) return false;
  if (value < 0) {
    std::memset(out, '*', static_cast<size_t>(width));
    return false;
  }
  // The last width digits; any left above them do not fit.
  if (core::put_digits(out + width, static_cast<uint64_t>(value), width) != 0) {
    std::memset(out, '*', static_cast<size_t>(width));
    return false;
  }
  return true;
}

}  // namespace xfmt
