// The mainframe formats: the S370F family writes the bytes an IBM mainframe
// program writes with its own native forms, whatever the host: big-endian
// binary integers, packed and zoned decimal with EBCDIC zones, hexadecimal
// floating point, and EBCDIC text of a number or of its hex digits.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "numeric/binary_field.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::numeric {
namespace {

// Turns the n bytes the ASCII routine wrote into EBCDIC, in place.
xf_status to_ebcdic(xf_frame *f, xf_status status) {
  uint32_t n = f->output_length < f->output_capacity ? f->output_length : f->output_capacity;
  unsigned char *out = static_cast<unsigned char *>(f->output);
  if (out != nullptr)
    for (uint32_t i = 0; i < n; ++i) out[i] = as2eb[out[i]];
  return status;
}

}  // namespace

// A missing value is a NaN and stays one when scaled: it gives zero bits.
uint64_t hex_float_of(double v, int32_t d, xf_status &status) {
  if (d > 0) v *= pow10_double(d);
  uint64_t bits = 0;
  if (!ibm_hex_bits(v, bits)) {
    bits = (std::signbit(v) ? 0x8000000000000000ull : 0) | 0x7FFFFFFFFFFFFFFFull;
    status = XF_E_OVERFLOW;
  }
  return bits;
}

xf_status hex_float_field(xf_frame *f, uint64_t bits, xf_status status) {
  put_twos(binary_out(f), f->width, bits >> (64 - 8 * f->width), true);
  return binary_done(f, status);
}

}  // namespace xfmt::numeric

using namespace xfmt::numeric;
using xfmt::fail_stars;
using xfmt::frame_value;
using xfmt::is_missing;

XF_ROUTINE(zfms370ib, f) { return integer_field(f, true, negative_rule::twos_complement); }
XF_ROUTINE(zfms370ibu, f) { return integer_field(f, true, negative_rule::absolute); }
XF_ROUTINE(zfms370pib, f) { return integer_field(f, true, negative_rule::low_bytes); }
XF_ROUTINE(zfms370pd, f) { return decimal_field(f, decimal_layout::packed, 16); }
XF_ROUTINE(zfms370pdu, f) { return decimal_field(f, decimal_layout::packed_f, 16); }
XF_ROUTINE(zfms370zd, f) { return decimal_field(f, decimal_layout::zoned_trailing, 32); }
XF_ROUTINE(zfms370zdl, f) { return decimal_field(f, decimal_layout::zoned_leading, 32); }
XF_ROUTINE(zfms370zds, f) { return decimal_field(f, decimal_layout::zoned_sep_leading, 32); }
XF_ROUTINE(zfms370zdt, f) { return decimal_field(f, decimal_layout::zoned_sep_trailing, 32); }
XF_ROUTINE(zfms370zdu, f) { return decimal_field(f, decimal_layout::zoned_unsigned, 32); }

XF_ROUTINE(zfms370rb, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status) || f->width < 2) {
    f->output_length = 0;
    return status == XF_OK ? XF_E_OVERFLOW : status;
  }
  uint64_t bits = hex_float_of(frame_value(f), f->decimals, status);
  return hex_float_field(f, bits, status);
}

// The plain w.d text (right-aligned, missing values with their symbol),
// each byte then turned into EBCDIC: blanks become 40, "-" 60, "." 4B.
XF_ROUTINE(zfms370f, f) {
  f->output_length = 0;
  return to_ebcdic(f, zfmt(f));
}

// As HEX in EBCDIC digits; at w 16 the digits of the IBM long form instead
// of the double's own bits.
XF_ROUTINE(zfms370hex, f) {
  f->output_length = 0;
  if (f->width != 16 || is_missing(frame_value(f))) return to_ebcdic(f, zfmhex(f));
  xf_status status = XF_OK;
  uint64_t bits = 0;
  double v = frame_value(f);
  if (std::isnan(v) || !ibm_hex_bits(v, bits)) return to_ebcdic(f, fail_stars(f, 16, XF_E_OVERFLOW));
  char text[16];
  for (int i = 0; i < 16; ++i) text[i] = "0123456789ABCDEF"[(bits >> (60 - 4 * i)) & 0xF];
  uint32_t k = f->output == nullptr ? 0 : (f->output_capacity < 16 ? f->output_capacity : 16);
  if (k) std::memcpy(f->output, text, k);
  f->output_length = k;
  if (k < 16) status = XF_E_CAPACITY;
  return to_ebcdic(f, status);
}
