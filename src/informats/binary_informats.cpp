// The binary informats, mirrors of the native binary formats: @IB, @IBR,
// @PIB, @PIBR, @PD, @PK, @ZD, @RB read w raw bytes (@IB, @PIB and @RB in
// the host's byte order); @HEX, @OCTAL, @BINARY read
// digits of base 16, 8, 2; @$HEX, @$OCTAL, @$BINARY turn digits into bytes.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/missing.hpp"
#include "informats/binary_input.hpp"
#include "informats/decimal_to_double.hpp"
#include "informats/informat_frame.hpp"
#include "numeric/binary_codec.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::informats {

using numeric::u128;

// Up to 2^53 with d <= 22 this is one correctly rounded division; larger
// magnitudes round twice (to a double, then the quotient).
double scaled_down(bool negative, u128 m, int d) {
  double x;
  if (m <= (u128{1} << 53) && d <= 22) x = static_cast<double>(m) / exact_pow10[d];
  else x = static_cast<double>(m) / numeric::pow10_double(d);
  return negative ? -x : x;
}

xf_status refuse_invalid(xf_frame *f) { return store_double(f, missing_ordinary(), XF_IN_INVALID); }

bool raw_ready(xf_frame *f, int min_w, int max_w, int &d, xf_status &status) {
  if (!can_store_double(f)) {
    status = refuse_small_output(f);
    return false;
  }
  d = implied_decimals(f->decimals);
  if (f->width < min_w || f->width > max_w || d < 0) {
    status = store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
    return false;
  }
  if (f->input == nullptr || f->input_length < static_cast<uint32_t>(f->width)) {
    status = refuse_invalid(f);
    return false;
  }
  return true;
}

xf_status read_integer(xf_frame *f, bool big, bool is_signed) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 1, 8, d, status)) return status;
  int w = f->width;
  uint64_t x = numeric::get_unsigned(input_bytes(f), w, big);
  bool negative = is_signed && (x >> (8 * w - 1)) != 0;
  u128 m = x;
  if (negative) m = (u128{1} << (8 * w)) - x;
  return store_double(f, scaled_down(negative, m, d), XF_OK);
}

namespace {

int nibble(const unsigned char *p, int i) { return (i & 1) ? p[i / 2] & 0x0F : p[i / 2] >> 4; }

// -1 for a nibble the rule refuses, 1 minus, 0 plus.
int packed_sign(int s, packed_signs signs) {
  switch (signs) {
    case packed_signs::lenient: return s < 0xA ? -1 : (s == 0xB || s == 0xD);
    case packed_signs::cdf: return s == 0xD ? 1 : (s == 0xC || s == 0xF) ? 0 : -1;
    case packed_signs::f_only: return s == 0xF ? 0 : -1;
    case packed_signs::none: return 0;
  }
  return -1;
}

}  // namespace

// Packed decimal: digit nibbles 0-9 and the sign nibble the rule accepts;
// anything else makes the field invalid.
xf_status read_packed(xf_frame *f, packed_signs signs) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 1, 16, d, status)) return status;
  const unsigned char *p = input_bytes(f);
  bool has_sign = signs != packed_signs::none;
  int digits = 2 * f->width - (has_sign ? 1 : 0);
  u128 m = 0;
  for (int i = 0; i < digits; ++i) {
    int n = nibble(p, i);
    if (n > 9) return refuse_invalid(f);
    m = m * 10 + static_cast<unsigned>(n);
  }
  int negative = has_sign ? packed_sign(nibble(p, digits), signs) : 0;
  if (negative < 0) return refuse_invalid(f);
  return store_double(f, scaled_down(negative == 1, m, d), XF_OK);
}

namespace {

const unsigned char *field_bytes(const xf_frame *f) { return input_bytes(f); }

// Zoned decimal as this host writes it: ASCII digits, the sign overpunched
// on the last ("{" "A".."I" plus, "}" "J".."R" minus, a plain digit
// unsigned). Zoned data that arrives in EBCDIC or with the ASCII zone 7
// for minus reads too: zones F or 3 before the last byte, the last byte's
// zone C, F, A, E or 3 plus, D, B or 7 minus. False for any other byte.
bool zoned_value(const unsigned char *p, int w, u128 &m, bool &negative) {
  m = 0;
  for (int i = 0; i < w - 1; ++i) {
    unsigned zone = p[i] >> 4, digit = p[i] & 0x0Fu;
    if (digit > 9 || (zone != 0xF && zone != 0x3)) return false;
    m = m * 10 + digit;
  }
  int last = numeric::ascii_overpunch_digit(p[w - 1], negative);
  if (last < 0) {
    unsigned zone = p[w - 1] >> 4, digit = p[w - 1] & 0x0Fu;
    negative = zone == 0xD || zone == 0xB || zone == 0x7;
    bool positive = zone == 0xC || zone == 0xF || zone == 0xA || zone == 0xE;
    if ((!negative && !positive) || digit > 9) return false;
    last = static_cast<int>(digit);
  }
  m = m * 10 + static_cast<unsigned>(last);
  negative = negative && m != 0;
  return true;
}

// The strict reading of @ZDV: either EBCDIC shape (zone F before the last
// byte, whose zone A-F carries the sign: B and D minus) or ASCII shape
// (digits 30-39, the last overpunched or a plain digit), never a mixture.
bool zoned_value_strict(const unsigned char *p, int w, u128 &m, bool &negative) {
  bool ebcdic = (p[0] >> 4) == 0xF || (w == 1 && (p[0] >> 4) >= 0xA);
  m = 0;
  for (int i = 0; i < w - 1; ++i) {
    unsigned zone = p[i] >> 4, digit = p[i] & 0x0Fu;
    if (digit > 9 || zone != (ebcdic ? 0xFu : 0x3u)) return false;
    m = m * 10 + digit;
  }
  unsigned zone = p[w - 1] >> 4, digit = p[w - 1] & 0x0Fu;
  int last;
  if (ebcdic) {
    if (zone < 0xA || digit > 9) return false;
    negative = zone == 0xB || zone == 0xD;
    last = static_cast<int>(digit);
  } else {
    last = numeric::ascii_overpunch_digit(p[w - 1], negative);
    if (last < 0) return false;
  }
  m = m * 10 + static_cast<unsigned>(last);
  negative = negative && m != 0;
  return true;
}

enum class zoned_kind { plain, blanks_are_zero, strict };

xf_status read_zoned(xf_frame *f, zoned_kind kind) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 1, 32, d, status)) return status;
  const unsigned char *p = field_bytes(f);
  int w = f->width;
  unsigned char filled[32];
  if (kind == zoned_kind::blanks_are_zero) {
    // Card data punched zeros as blanks: the ASCII blank, and the EBCDIC
    // one for fields that were never translated.
    for (int i = 0; i < w; ++i) filled[i] = p[i] == 0x20 ? '0' : p[i] == 0x40 ? 0xF0 : p[i];
    p = filled;
  }
  u128 m = 0;
  bool negative = false;
  bool ok = kind == zoned_kind::strict ? zoned_value_strict(p, w, m, negative) : zoned_value(p, w, m, negative);
  if (!ok) return refuse_invalid(f);
  return store_double(f, scaled_down(negative, m, d), XF_OK);
}

int digit_value(unsigned char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return 99;
}

// Digits of base 2^bits, blanks around them skipped; a blank field is
// missing (status 0). The value is unsigned. Returns false on a bad digit.
bool read_digits(const xf_frame *f, int bits, u128 &x, bool &blank) {
  const unsigned char *p = field_bytes(f);
  int64_t n = field_length(f);
  int64_t a = 0;
  while (a < n && p[a] == ' ') ++a;
  while (n > a && p[n - 1] == ' ') --n;
  blank = a == n;
  x = 0;
  for (int64_t i = a; i < n; ++i) {
    int v = digit_value(p[i]);
    if (v >= (1 << bits)) return false;
    x = (x << bits) | static_cast<unsigned>(v);
  }
  return true;
}

xf_status radix_informat(xf_frame *f, int bits, int max_w) {
  if (!can_store_double(f)) return refuse_small_output(f);
  if (f->width < 1 || f->width > max_w) return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  u128 x = 0;
  bool blank = false;
  if (!read_digits(f, bits, x, blank)) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  if (blank) return store_double(f, missing_ordinary(), XF_OK);
  // Sixteen hex digits are the bits of a double, left padded with zeros.
  if (bits == 4 && f->width == 16) return store_double(f, bits_double(static_cast<uint64_t>(x)), XF_OK);
  return store_double(f, static_cast<double>(x), XF_OK);
}

// Each group of 'per' digits becomes one byte; an incomplete last group is
// dropped. A bad digit, or an octal group above 377, gives XF_IN_INVALID
// with the bytes blank.
xf_status radix_char_informat(xf_frame *f, int bits, int per) {
  if (f->width < 0) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  const unsigned char *p = field_bytes(f);
  int64_t n = field_length(f);
  uint32_t bytes = static_cast<uint32_t>(n / per);
  uint32_t room = f->output == nullptr ? 0 : f->output_capacity;
  uint32_t k = bytes < room ? bytes : room;
  unsigned char *out = static_cast<unsigned char *>(f->output);
  for (uint32_t i = 0; i < k; ++i) {
    unsigned v = 0;
    for (int j = 0; j < per; ++j) {
      int dv = digit_value(p[static_cast<int64_t>(i) * per + j]);
      if (dv >= (1 << bits)) v = 0x100;
      else v = (v << bits) | static_cast<unsigned>(dv);
    }
    if (v > 0xFF) {
      std::memset(out, ' ', k);
      f->output_length = k;
      return XF_IN_INVALID;
    }
    out[i] = static_cast<unsigned char>(v);
  }
  f->output_length = k;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return k < bytes ? XF_E_CAPACITY : XF_OK;
}

}  // namespace
}  // namespace xfmt::informats

using namespace xfmt::informats;

XF_ROUTINE(zifmib, f) { return read_integer(f, xfmt::numeric::host_big, true); }
XF_ROUTINE(zifmibr, f) { return read_integer(f, false, true); }
XF_ROUTINE(zifmpib, f) { return read_integer(f, xfmt::numeric::host_big, false); }
XF_ROUTINE(zifmpibr, f) { return read_integer(f, false, false); }
XF_ROUTINE(zifmpcpib, f) { return read_integer(f, false, false); }
XF_ROUTINE(zifmpd, f) { return read_packed(f, packed_signs::lenient); }
XF_ROUTINE(zifmpk, f) { return read_packed(f, packed_signs::none); }
XF_ROUTINE(zifmzd, f) { return read_zoned(f, zoned_kind::plain); }
XF_ROUTINE(zifmzdb, f) { return read_zoned(f, zoned_kind::blanks_are_zero); }
XF_ROUTINE(zifmzdv, f) { return read_zoned(f, zoned_kind::strict); }

// $PHEX: each byte as two hex digits, the last nibble (the sign's place)
// left out: w bytes give 2w - 1 characters.
XF_ROUTINE(zifmcphex, f) {
  if (f->width < 1) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  int64_t n = field_length(f);
  uint32_t want = n > 0 ? static_cast<uint32_t>(2 * n - 1) : 0;
  uint32_t room = f->output == nullptr ? 0 : f->output_capacity;
  uint32_t k = want < room ? want : room;
  const unsigned char *p = field_bytes(f);
  char *out = static_cast<char *>(f->output);
  for (uint32_t i = 0; i < k; ++i) out[i] = "0123456789ABCDEF"[(i & 1) ? p[i / 2] & 0x0F : p[i / 2] >> 4];
  f->output_length = k;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return k < want ? XF_E_CAPACITY : XF_OK;
}

// BITS w.d: the w bits (1-64) that follow the first d bits (0-63), counted
// from the high bit of the first byte, as an unsigned number.
XF_ROUTINE(zifmbits, f) {
  if (!can_store_double(f)) return refuse_small_output(f);
  int w = f->width, d = f->decimals;
  if (w < 1 || w > 64 || d < 0 || d > 63) return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  int64_t bytes = (d + w + 7) / 8;
  if (f->input == nullptr || f->input_length < bytes) return refuse_invalid(f);
  const unsigned char *p = field_bytes(f);
  uint64_t x = 0;
  for (int i = d; i < d + w; ++i) x = (x << 1) | ((p[i / 8] >> (7 - i % 8)) & 1u);
  return store_double(f, static_cast<double>(x), XF_OK);
}

// The w most significant bytes of the host's double, in the host's order
// (on a little-endian host the last w bytes of it); the rest zero.
XF_ROUTINE(zifmrb, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 1, 8, d, status)) return status;
  uint64_t top = xfmt::numeric::get_unsigned(field_bytes(f), f->width, xfmt::numeric::host_big);
  double v = xfmt::bits_double(top << (64 - 8 * f->width));
  if (d > 0 && !xfmt::is_missing(v)) v /= xfmt::numeric::pow10_double(d);
  return store_double(f, v, XF_OK);
}

XF_ROUTINE(zifmhex, f) { return radix_informat(f, 4, 16); }
XF_ROUTINE(zifmoct, f) { return radix_informat(f, 3, 24); }
XF_ROUTINE(zifmbin, f) { return radix_informat(f, 1, 64); }
XF_ROUTINE(zifmchex, f) { return radix_char_informat(f, 4, 2); }
XF_ROUTINE(zifmcoct, f) { return radix_char_informat(f, 3, 3); }
XF_ROUTINE(zifmcbin, f) { return radix_char_informat(f, 1, 8); }
