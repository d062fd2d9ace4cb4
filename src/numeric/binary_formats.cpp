// The binary number formats: IB, IBR (two's complement), PIB, PIBR
// (unsigned), PD (packed decimal), PK (packed, no sign), ZD (zoned decimal),
// RB (IEEE double, big-endian) and VAXRB (VAX D-floating). Each writes
// exactly w raw bytes of the value x 10^d rounded half away from zero.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "catalog/field.hpp"
#include "catalog/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "catalog/routine_guard.hpp"

namespace xfmt::numeric {
namespace {

// Checks the width against 1..max_w and the room; on failure nothing is
// written and the output length is 0.
bool field_ready(xf_frame *f, int max_w, xf_status &status) {
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

unsigned char *out_bytes(xf_frame *f) { return static_cast<unsigned char *>(f->output); }

xf_status done(xf_frame *f, xf_status status) {
  f->output_length = static_cast<uint32_t>(f->width);
  return status;
}

// Two's complement of w bytes: -2^(8w-1) .. 2^(8w-1) - 1; past either end
// the nearest end is stored with XF_E_OVERFLOW. Missing values store 0.
xf_status integer_binary(xf_frame *f, bool big) {
  xf_status status = XF_OK;
  if (!field_ready(f, 8, status)) return status;
  int w = f->width;
  scaled_int s = scale_value(frame_value(f), f->decimals);
  u128 half = u128{1} << (8 * w - 1);
  u128 x = 0;
  if (s.kind == scaled_kind::too_high || (s.kind == scaled_kind::ok && !s.negative && s.magnitude >= half)) {
    x = half - 1;
    status = XF_E_OVERFLOW;
  } else if (s.kind == scaled_kind::too_low || (s.kind == scaled_kind::ok && s.negative && s.magnitude > half)) {
    x = ~half + 1;  // -2^(8w-1)
    status = XF_E_OVERFLOW;
  } else if (s.kind == scaled_kind::ok) {
    x = s.negative ? ~s.magnitude + 1 : s.magnitude;
  }
  put_twos(out_bytes(f), w, x, big);
  return done(f, status);
}

// Unsigned w bytes: 0 .. 2^(8w) - 1; negative values store 0 and values
// past the top the top, both with XF_E_OVERFLOW.
xf_status unsigned_binary(xf_frame *f, bool big) {
  xf_status status = XF_OK;
  if (!field_ready(f, 8, status)) return status;
  int w = f->width;
  scaled_int s = scale_value(frame_value(f), f->decimals);
  u128 top = (u128{1} << (8 * w)) - 1;
  u128 x = 0;
  if (s.kind == scaled_kind::too_high || (s.kind == scaled_kind::ok && !s.negative && s.magnitude > top)) {
    x = top;
    status = XF_E_OVERFLOW;
  } else if (s.kind == scaled_kind::too_low || (s.kind == scaled_kind::ok && s.negative)) {
    status = XF_E_OVERFLOW;
  } else if (s.kind == scaled_kind::ok) {
    x = s.magnitude;
  }
  put_twos(out_bytes(f), w, x, big);
  return done(f, status);
}

// The decimal fields: a value with more digits than the field stores the
// largest magnitude (all nines) with its sign and XF_E_OVERFLOW.
enum class decimal_layout { packed, packed_unsigned, zoned };

int digits_of(decimal_layout layout, int w) {
  switch (layout) {
    case decimal_layout::packed: return 2 * w - 1;
    case decimal_layout::packed_unsigned: return 2 * w;
    case decimal_layout::zoned: return w;
  }
  return w;
}

void put_decimal(decimal_layout layout, unsigned char *out, int w, u128 m, bool negative) {
  switch (layout) {
    case decimal_layout::packed: put_packed(out, w, m, negative); break;
    case decimal_layout::packed_unsigned: put_packed_unsigned(out, w, m); break;
    case decimal_layout::zoned: put_zoned(out, w, m, negative); break;
  }
}

xf_status decimal_binary(xf_frame *f, decimal_layout layout, int max_w) {
  xf_status status = XF_OK;
  if (!field_ready(f, max_w, status)) return status;
  int w = f->width;
  int digits = digits_of(layout, w);
  scaled_int s = scale_value(frame_value(f), f->decimals);
  u128 m = 0;
  bool negative = false;
  if (s.kind == scaled_kind::missing) {
    // stored as zero
  } else if (layout == decimal_layout::packed_unsigned && (s.negative || s.kind == scaled_kind::too_low)) {
    status = XF_E_OVERFLOW;  // no sign to carry: 0
  } else if (s.kind != scaled_kind::ok || s.magnitude > all_nines(digits)) {
    m = all_nines(digits);
    negative = s.kind == scaled_kind::too_low || s.negative;
    status = XF_E_OVERFLOW;
  } else {
    m = s.magnitude;
    negative = s.negative;
  }
  put_decimal(layout, out_bytes(f), w, m, negative);
  return done(f, status);
}

}  // namespace
}  // namespace xfmt::numeric

using namespace xfmt::numeric;

XF_ROUTINE(zfmib, f) { return integer_binary(f, true); }
XF_ROUTINE(zfmibr, f) { return integer_binary(f, false); }
XF_ROUTINE(zfmpib, f) { return unsigned_binary(f, true); }
XF_ROUTINE(zfmpibr, f) { return unsigned_binary(f, false); }
XF_ROUTINE(zfmpd, f) { return decimal_binary(f, decimal_layout::packed, 16); }
XF_ROUTINE(zfmpk, f) { return decimal_binary(f, decimal_layout::packed_unsigned, 16); }
XF_ROUTINE(zfmzd, f) { return decimal_binary(f, decimal_layout::zoned, 32); }

// The first w bytes of the double's bits, most significant first whatever
// the host's order, so a short field keeps the sign, the exponent and the
// top of the fraction (RB4 of 1 is 3F F0 00 00). Missing values keep their
// bits: RB8 of ".A" reads back as ".A".
XF_ROUTINE(zfmrb, f) {
  xf_status status = XF_OK;
  if (!field_ready(f, 8, status)) return status;
  double v = xfmt::frame_value(f);
  if (!xfmt::is_missing(v) && f->decimals > 0) v *= pow10_double(f->decimals);
  put_twos(out_bytes(f), f->width, xfmt::double_bits(v) >> (64 - 8 * f->width), true);
  return done(f, status);
}

// VAX D-floating, cut to the first w bytes (the first 4 are F-floating).
// Missing values and NaN store 0 (VAX has no NaN, and its reserved operand
// traps on load); values past 1.7e38 store the largest magnitude with its
// sign and XF_E_OVERFLOW; values below 2.9e-39 store 0.
XF_ROUTINE(zfmvaxrb, f) {
  xf_status status = XF_OK;
  if (!field_ready(f, 8, status)) return status;
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
  std::memcpy(out_bytes(f), bytes, static_cast<size_t>(f->width));
  return done(f, status);
}
