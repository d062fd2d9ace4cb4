// The native binary number formats: IB, IBR (two's complement), PIB, PIBR
// (unsigned), PD (packed decimal), PK (packed, no sign), ZD (ASCII zoned
// decimal), RB (the host's double) and VAXRB (VAX D-floating). IB, PIB and
// RB follow the host's byte order. Each writes exactly w raw bytes of the
// value x 10^d, integers rounded half away from zero.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "numeric/binary_field.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::numeric {

bool binary_field_ready(xf_frame *f, int max_w, xf_status &status) {
  f->output_length = 0;
  if (f->width < 1 || f->width > max_w) {
    status = XF_E_OVERFLOW;
    return false;
  }
  if (f->output == nullptr || f->output_capacity < static_cast<uint32_t>(f->width)) {
    status = XF_E_CAPACITY;
    return false;
  }
  return true;
}

namespace {

// The w-byte pattern of a scaled value under a negative rule; status
// becomes XF_E_OVERFLOW when the value had to be saturated.
u128 integer_pattern(const scaled_int &s, int w, negative_rule rule, xf_status &status) {
  u128 half = u128{1} << (8 * w - 1);
  u128 top = (u128{1} << (8 * w)) - 1;
  u128 lowest = top - half + 1;  // the pattern of -2^(8w-1): 80 00..
  if (s.kind == scaled_kind::missing) return 0;
  bool negative = s.kind == scaled_kind::too_low || (s.kind == scaled_kind::ok && s.negative && s.magnitude != 0);
  bool huge = s.kind != scaled_kind::ok;
  if (!negative) {
    u128 limit = rule == negative_rule::twos_complement ? half - 1 : top;
    if (huge || s.magnitude > limit) {
      status = XF_E_OVERFLOW;
      return limit;
    }
    return s.magnitude;
  }
  switch (rule) {
    case negative_rule::all_ones:
      status = XF_E_OVERFLOW;
      return top;
    case negative_rule::absolute:
      if (huge || s.magnitude > top) {
        status = XF_E_OVERFLOW;
        return top;
      }
      return s.magnitude;
    case negative_rule::twos_complement:
    case negative_rule::low_bytes:
      if (huge || s.magnitude > half) {
        status = XF_E_OVERFLOW;
        return lowest;
      }
      return (~s.magnitude + 1) & top;
  }
  return 0;
}

int digits_of(decimal_layout layout, int w) {
  switch (layout) {
    case decimal_layout::packed:
    case decimal_layout::packed_f: return 2 * w - 1;
    case decimal_layout::packed_unsigned: return 2 * w;
    case decimal_layout::zoned_sep_leading:
    case decimal_layout::zoned_sep_trailing: return w - 1;
    default: return w;
  }
}

constexpr unsigned char ebcdic_plus = 0x4E, ebcdic_minus = 0x60;

void put_decimal(decimal_layout layout, unsigned char *out, int w, u128 m, bool negative) {
  switch (layout) {
    case decimal_layout::packed: put_packed(out, w, m, negative); break;
    case decimal_layout::packed_unsigned: put_packed_unsigned(out, w, m); break;
    case decimal_layout::packed_f:
      put_packed(out, w, m, false);
      out[w - 1] = static_cast<unsigned char>(out[w - 1] | 0x0F);
      break;
    case decimal_layout::zoned_ascii:
      put_digits(out, w, m, 0x30);
      out[w - 1] = ascii_overpunch[negative][out[w - 1] & 0x0F];
      break;
    case decimal_layout::zoned_trailing: put_zoned(out, w, m, negative); break;
    case decimal_layout::zoned_leading:
      put_digits(out, w, m, 0xF0);
      out[0] = static_cast<unsigned char>((out[0] & 0x0F) | (negative ? 0xD0 : 0xC0));
      break;
    case decimal_layout::zoned_sep_leading:
      out[0] = negative ? ebcdic_minus : ebcdic_plus;
      put_digits(out + 1, w - 1, m, 0xF0);
      break;
    case decimal_layout::zoned_sep_trailing:
      put_digits(out, w - 1, m, 0xF0);
      out[w - 1] = negative ? ebcdic_minus : ebcdic_plus;
      break;
    case decimal_layout::zoned_unsigned: put_digits(out, w, m, 0xF0); break;
  }
}

}  // namespace

xf_status integer_field(xf_frame *f, bool big, negative_rule rule) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status)) return status;
  scaled_int s = scale_value(frame_value(f), f->decimals);
  put_twos(binary_out(f), f->width, integer_pattern(s, f->width, rule, status), big);
  return binary_done(f, status);
}

xf_status decimal_field(xf_frame *f, decimal_layout layout, int max_w) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, max_w, status)) return status;
  int w = f->width;
  if (w < 2 && (layout == decimal_layout::zoned_sep_leading || layout == decimal_layout::zoned_sep_trailing)) {
    f->output_length = 0;
    return XF_E_OVERFLOW;
  }
  int digits = digits_of(layout, w);
  scaled_int s = scale_value(frame_value(f), f->decimals);
  bool absolute = layout == decimal_layout::packed_f || layout == decimal_layout::zoned_unsigned;
  u128 m = 0;
  bool negative = false;
  if (s.kind == scaled_kind::missing) {
    negative = layout == decimal_layout::packed;  // minus zero marks the missing value
  } else if (layout == decimal_layout::packed_unsigned && (s.negative || s.kind == scaled_kind::too_low)) {
    status = XF_E_OVERFLOW;  // no sign to carry: 0
  } else if (s.kind != scaled_kind::ok || s.magnitude > all_nines(digits)) {
    m = all_nines(digits);
    negative = !absolute && (s.kind == scaled_kind::too_low || s.negative);
    status = XF_E_OVERFLOW;
  } else {
    m = s.magnitude;
    negative = !absolute && s.negative && m != 0;
  }
  put_decimal(layout, binary_out(f), w, m, negative);
  return binary_done(f, status);
}

}  // namespace xfmt::numeric

using namespace xfmt::numeric;

XF_ROUTINE(zfmib, f) { return integer_field(f, host_big, negative_rule::twos_complement); }
XF_ROUTINE(zfmibr, f) { return integer_field(f, false, negative_rule::twos_complement); }
XF_ROUTINE(zfmpib, f) { return integer_field(f, host_big, negative_rule::all_ones); }
XF_ROUTINE(zfmpibr, f) { return integer_field(f, false, negative_rule::all_ones); }
XF_ROUTINE(zfmpd, f) { return decimal_field(f, decimal_layout::packed, 16); }
XF_ROUTINE(zfmpk, f) { return decimal_field(f, decimal_layout::packed_unsigned, 16); }
XF_ROUTINE(zfmzd, f) { return decimal_field(f, decimal_layout::zoned_ascii, 32); }

// The native double. A short field keeps the w most significant bytes in
// the host's order: on a little-endian host the last w bytes in memory (RB4
// of 1 is 00 00 F0 3F). A value that overflows the double after scaling
// stores the NaN 0xFFFFD10000000000 (bytes 00 00 00 00 00 D1 FF FF here)
// with XF_E_OVERFLOW. Missing values keep their bits: RB8 of ".A" reads
// back as ".A".
XF_ROUTINE(zfmrb, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status)) return status;
  double v = xfmt::frame_value(f);
  if (!xfmt::is_missing(v) && f->decimals > 0) v *= pow10_double(f->decimals);
  uint64_t bits = xfmt::double_bits(v);
  if (std::isinf(v)) {
    bits = 0xFFFFD10000000000ull;
    status = XF_E_OVERFLOW;
  }
  put_twos(binary_out(f), f->width, bits >> (64 - 8 * f->width), host_big);
  return binary_done(f, status);
}

// VAX D-floating, cut to the first w bytes (the first 4 are F-floating).
// Missing values and NaN store 0 (VAX has no NaN, and its reserved operand
// traps on load); values past 1.7e38 store the largest magnitude with its
// sign and XF_E_OVERFLOW; values below 2.9e-39 store 0.
XF_ROUTINE(zfmvaxrb, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status)) return status;
  double v = xfmt::frame_value(f);
  unsigned char bytes[8] = {};
  if (!xfmt::is_missing(v) && !std::isnan(v)) {
    if (f->decimals > 0) v *= pow10_double(f->decimals);
    if (!vax_d_bits(v, bytes)) {
      std::memset(bytes, 0xFF, sizeof bytes);
      bytes[1] = v < 0 ? 0xFF : 0x7F;  // byte 1 holds the sign and top exponent bits
      status = XF_E_OVERFLOW;
    }
  }
  std::memcpy(binary_out(f), bytes, static_cast<size_t>(f->width));
  return binary_done(f, status);
}
