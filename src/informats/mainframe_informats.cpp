// The mainframe informats: the S370F family reads what an IBM mainframe
// program wrote: big-endian binary integers, packed and zoned decimal with
// EBCDIC zones (each form refusing the signs and zones it never writes),
// hexadecimal floating point, and EBCDIC text of a number or hex digits.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/missing.hpp"
#include "informats/binary_input.hpp"
#include "informats/informat_frame.hpp"
#include "numeric/binary_codec.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::informats {
namespace {

using numeric::u128;

constexpr unsigned char ebcdic_blank = 0x40, ebcdic_point = 0x4B, ebcdic_plus = 0x4E, ebcdic_minus = 0x60;

// Where a zoned field keeps its sign.
enum class zoned_sign { last_zone, first_zone, separate_first, separate_last, none };

struct zoned_rules {
  zoned_sign sign;
  bool blank_is_zero;  // @S370FZDB: card data with zeros punched as blanks
  bool point_allowed;  // @S370FZD: one EBCDIC point; its place overrides d
};

// -1 invalid, 0 plus, 1 minus: the sign zones C, F plus and D minus.
int zone_sign(unsigned char c) {
  unsigned zone = c >> 4;
  return zone == 0xD ? 1 : (zone == 0xC || zone == 0xF) ? 0 : -1;
}

// Every byte is a digit F0-F9 (or 40 where blanks read as 0, or one point
// where allowed), except that the sign rule lets the sign byte or sign
// zone through.
xf_status read_ebcdic_zoned(xf_frame *f, zoned_rules rules) {
  int d = 0;
  xf_status status = XF_OK;
  bool separate = rules.sign == zoned_sign::separate_first || rules.sign == zoned_sign::separate_last;
  if (!raw_ready(f, separate ? 2 : 1, 32, d, status)) return status;
  const unsigned char *p = input_bytes(f);
  int w = f->width, first = 0, end = w;
  int negative = 0;
  if (rules.sign == zoned_sign::separate_first || rules.sign == zoned_sign::separate_last) {
    unsigned char s = rules.sign == zoned_sign::separate_first ? p[first++] : p[--end];
    if (s != ebcdic_plus && s != ebcdic_minus) return refuse_invalid(f);
    negative = s == ebcdic_minus;
  }
  u128 m = 0;
  int point = -1;
  for (int i = first; i < end; ++i) {
    unsigned char c = p[i];
    bool sign_byte = (rules.sign == zoned_sign::last_zone && i == w - 1) ||
                     (rules.sign == zoned_sign::first_zone && i == 0);
    if (rules.blank_is_zero && c == ebcdic_blank) c = 0xF0;
    if (rules.point_allowed && c == ebcdic_point && point < 0 && !sign_byte) {
      point = i;
      continue;
    }
    if ((c & 0x0F) > 9) return refuse_invalid(f);
    if (sign_byte) {
      negative = zone_sign(c);
      if (negative < 0) return refuse_invalid(f);
    } else if ((c >> 4) != 0xF) {
      return refuse_invalid(f);
    }
    m = m * 10 + (c & 0x0Fu);
  }
  if (point >= 0) d = end - 1 - point;
  return store_double(f, scaled_down(negative == 1 && m != 0, m, d), XF_OK);
}

// Runs an ASCII informat on the field turned from EBCDIC into ASCII (at
// most 32 bytes, the width of the text forms).
xf_status through_ascii(xf_frame *f, xf_routine ascii) {
  unsigned char text[32];
  int64_t n = field_length(f);
  if (n > 32) n = 32;
  if (n < 0) n = 0;
  const unsigned char *p = input_bytes(f);
  for (int64_t i = 0; i < n; ++i) text[i] = eb2as[p[i]];
  xf_frame copy = *f;
  copy.input = text;
  copy.input_length = static_cast<uint32_t>(n);
  xf_status status = ascii(&copy);
  f->output_length = copy.output_length;
  return status;
}

}  // namespace
}  // namespace xfmt::informats

using namespace xfmt::informats;

XF_ROUTINE(zifms370ib, f) { return read_integer(f, true, true); }
XF_ROUTINE(zifms370ibu, f) { return read_integer(f, true, false); }
XF_ROUTINE(zifms370pib, f) { return read_integer(f, true, false); }
XF_ROUTINE(zifms370pd, f) { return read_packed(f, packed_signs::cdf); }
XF_ROUTINE(zifms370pdu, f) { return read_packed(f, packed_signs::f_only); }
XF_ROUTINE(zifms370zd, f) { return read_ebcdic_zoned(f, {zoned_sign::last_zone, false, true}); }
XF_ROUTINE(zifms370zdb, f) { return read_ebcdic_zoned(f, {zoned_sign::last_zone, true, false}); }
XF_ROUTINE(zifms370zdl, f) { return read_ebcdic_zoned(f, {zoned_sign::first_zone, false, false}); }
XF_ROUTINE(zifms370zds, f) {
  return read_ebcdic_zoned(f, {zoned_sign::separate_first, false, false});
}
XF_ROUTINE(zifms370zdt, f) { return read_ebcdic_zoned(f, {zoned_sign::separate_last, false, false}); }
XF_ROUTINE(zifms370zdu, f) { return read_ebcdic_zoned(f, {zoned_sign::none, false, false}); }

// The first w bytes of the IBM long form, the rest zero, divided by 10^d.
XF_ROUTINE(zifms370rb, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 2, 8, d, status)) return status;
  uint64_t top = xfmt::numeric::get_unsigned(input_bytes(f), f->width, true);
  double v = xfmt::numeric::ibm_hex_value(top << (64 - 8 * f->width));
  if (d > 0) v /= xfmt::numeric::pow10_double(d);
  return store_double(f, v, XF_OK);
}

// EBCDIC text read as @F reads ASCII text: blanks (40) around the number,
// a minus (60) against the first digit, a point (4B), E-notation; a field
// of only a point is the ordinary missing value.
XF_ROUTINE(zifms370f, f) {
  if (f->width < 1 || f->width > 32) {
    if (!can_store_double(f)) return refuse_small_output(f);
    return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  }
  return through_ascii(f, wzifmn);
}

// EBCDIC hex digits; at w 16 they are the bits of an IBM long form.
XF_ROUTINE(zifms370hex, f) {
  if (f->width < 1 || f->width > 16) {
    if (!can_store_double(f)) return refuse_small_output(f);
    return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  }
  xf_status status = through_ascii(f, zifmhex);
  if (f->width == 16 && status == XF_OK && f->output_length == 8) {
    double v;
    std::memcpy(&v, f->output, sizeof v);
    const unsigned char *p = input_bytes(f);
    int64_t n = field_length(f);
    bool blank = true;
    for (int64_t i = 0; i < n; ++i) blank = blank && p[i] == 0x40;
    if (!blank) v = xfmt::numeric::ibm_hex_value(xfmt::double_bits(v));
    return store_double(f, v, XF_OK);
  }
  return status;
}
