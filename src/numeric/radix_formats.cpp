// The radix text formats: HEX, OCTAL and BINARY show the integer value in
// base 16, 8 or 2, zero padded to w digits; $HEX, $OCTAL and $BINARY show
// the bytes of a character value, two, three or eight digits a byte.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::numeric {
namespace {

constexpr char hex_digits[] = "0123456789ABCDEF";

// Copies the n-byte text to the field, cut to the capacity (XF_E_CAPACITY).
xf_status deliver(xf_frame *f, const char *text, uint32_t n) {
  uint32_t room = f->output == nullptr ? 0 : f->output_capacity;
  uint32_t k = n < room ? n : room;
  if (k) std::memcpy(f->output, text, k);
  f->output_length = k;
  return k < n ? XF_E_CAPACITY : XF_OK;
}

// Writes the low bits*w bits of x as w digits of 'bits' bits each.
void put_radix(char *out, int w, u128 x, int bits) {
  unsigned mask = (1u << bits) - 1;
  for (int i = w - 1; i >= 0; --i) {
    out[i] = hex_digits[static_cast<unsigned>(x) & mask];
    x >>= bits;
  }
}

// w digits of 'bits' bits each (at most 72 bits in all). The value is
// rounded to an integer (half away from zero; d plays no part). Values
// from 0 to base^w - 1 show as they are; negative values down to
// -base^w / 2 in w-digit two's complement (HEX4 of -1 is FFFF, OCTAL3 of
// -8 is 770). Anything else: w '*' and XF_E_OVERFLOW. Missing values: the
// standard display.
xf_status radix_integer(xf_frame *f, int bits, int max_w) {
  int w = f->width;
  if (w < 1 || w > max_w) return fail_stars(f, w, XF_E_OVERFLOW);
  double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, 0);
  scaled_int s = scale_value(v, 0);
  int total = bits * w;
  u128 span = u128{1} << total;
  if (s.kind != scaled_kind::ok || (!s.negative && s.magnitude >= span) ||
      (s.negative && s.magnitude > span / 2)) {
    return fail_stars(f, w, XF_E_OVERFLOW);
  }
  u128 x = s.negative ? span - s.magnitude : s.magnitude;
  char text[72];
  put_radix(text, w, x, bits);
  return deliver(f, text, static_cast<uint32_t>(w));
}

// The bytes of the character value, each as 'per' digits of base 2^bits
// (octal: three digits, the first 0..3). Positions past the value show the
// digits of a blank, as a host pads a character value with blanks. The
// field is cut at w, even inside a byte.
xf_status radix_chars(xf_frame *f, int bits, int per) {
  int w = f->width;
  if (w < 1) return fail_stars(f, w, XF_E_OVERFLOW);
  uint32_t room = f->output == nullptr ? 0 : f->output_capacity;
  uint32_t field = static_cast<uint32_t>(w);
  uint32_t k = field < room ? field : room;
  const unsigned char *in = static_cast<const unsigned char *>(f->input);
  uint32_t n = in == nullptr ? 0 : f->input_length;
  char *out = frame_out(f);
  char digits[8];
  uint32_t pos = 0;
  uint32_t per_u = static_cast<uint32_t>(per);
  for (uint32_t i = 0; pos < k; ++i) {
    unsigned char c = i < n ? in[i] : static_cast<unsigned char>(' ');
    put_radix(digits, per, c, bits);
    uint32_t take = k - pos < per_u ? k - pos : per_u;
    std::memcpy(out + pos, digits, take);
    pos += take;
  }
  f->output_length = k;
  return k < field ? XF_E_CAPACITY : XF_OK;
}

}  // namespace
}  // namespace xfmt::numeric

using namespace xfmt::numeric;

// HEX w.: w 16 shows the 16 hex digits of the double's bits, whatever the
// value (missing values too: HEX16 of 1 is 3FF0000000000000); narrower
// fields the integer value.
XF_ROUTINE(zfmhex, f) {
  if (f->width != 16) return radix_integer(f, 4, 15);
  char text[16];
  put_radix(text, 16, xfmt::frame_value_bits(f), 4);
  return deliver(f, text, 16);
}
XF_ROUTINE(zfmoct, f) { return radix_integer(f, 3, 24); }
XF_ROUTINE(zfmbin, f) { return radix_integer(f, 1, 64); }

XF_ROUTINE(zfmchex, f) { return radix_chars(f, 4, 2); }
XF_ROUTINE(zfmcoct, f) { return radix_chars(f, 3, 3); }
XF_ROUTINE(zfmcbin, f) { return radix_chars(f, 1, 8); }
