// Little-endian PC and transport-file number fields: PCPIB (unsigned,
// least significant byte first on every host), XPORTINT (a transport
// file's big-endian header integer) and XPORTFLT (its number field: IBM
// hexadecimal floating point, with a one-byte code for missing values).
#include "xfmt/xfmt.h"

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "numeric/binary_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::numeric;

XF_ROUTINE(zfmpcpib, f) { return integer_field(f, false, negative_rule::low_bytes); }
XF_ROUTINE(zfmxportint, f) { return integer_field(f, true, negative_rule::twos_complement); }

XF_ROUTINE(zfmxportflt, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status) || f->width < 2) {
    f->output_length = 0;
    return status == XF_OK ? XF_E_OVERFLOW : status;
  }
  uint64_t bits = xfmt::frame_value_bits(f);
  if (xfmt::is_missing_bits(bits)) bits = xport_missing_bits(bits);
  else bits = hex_float_of(xfmt::bits_double(bits), f->decimals, status);
  return hex_float_field(f, bits, status);
}
