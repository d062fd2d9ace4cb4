// The field step shared by every binary format: width and room checks, and
// the integer, packed and zoned encoders with their rules for negative,
// missing and oversized values. The native, mainframe and transport names
// are rows over these few routines.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::numeric {

// Checks w against 1..max_w and the room; on failure nothing is written,
// the output length is 0 and status is XF_E_OVERFLOW (bad w) or
// XF_E_CAPACITY.
bool binary_field_ready(xf_frame *f, int max_w, xf_status &status);

inline unsigned char *binary_out(xf_frame *f) { return static_cast<unsigned char *>(f->output); }

inline xf_status binary_done(xf_frame *f, xf_status status) {
  f->output_length = static_cast<uint32_t>(f->width);
  return status;
}

// What an integer field stores for a negative value.
enum class negative_rule {
  twos_complement,  // signed: down to -2^(8w-1), below it 80 00.. (IB, S370FIB, XPORTINT)
  all_ones,         // unsigned: every negative value is FF.. (PIB, PIBR)
  absolute,         // unsigned: the absolute value (S370FIBU)
  low_bytes,        // unsigned: the w low bytes of the two's complement, saturating at
                    // 80 00.. (S370FPIB, PCPIB)
};

// w bytes (1..8) of round(v x 10^d), most significant first when big.
// Missing values and NaN store 0; values past the field store its extreme
// with XF_E_OVERFLOW.
xf_status integer_field(xf_frame *f, bool big, negative_rule rule);

// The decimal layouts: where the digits and the sign go.
enum class decimal_layout {
  packed,             // 2w-1 digits, sign nibble C or D; missing: minus zero (PD, S370FPD)
  packed_unsigned,    // 2w digits, no sign; negatives store 0 (PK)
  packed_f,           // 2w-1 digits of |x|, sign nibble F (S370FPDU)
  zoned_ascii,        // ASCII digits, sign overpunched on the last (ZD)
  zoned_trailing,     // EBCDIC digits, zone C or D on the last (S370FZD)
  zoned_leading,      // EBCDIC digits, zone C or D on the first (S370FZDL)
  zoned_sep_leading,  // "+" 4E or "-" 60, then w-1 EBCDIC digits (S370FZDS)
  zoned_sep_trailing, // w-1 EBCDIC digits, then 4E or 60 (S370FZDT)
  zoned_unsigned,     // EBCDIC digits of |x|, every zone F (S370FZDU)
};

// round(v x 10^d) in the layout; past the digits: all nines with the sign
// and XF_E_OVERFLOW. Missing values and NaN store zero (packed: minus zero).
xf_status decimal_field(xf_frame *f, decimal_layout layout, int max_w);

// IBM hexadecimal floating point (S370FRB, XPORTFLT): the long-form bits
// of v x 10^d; missing values and NaN give the true zero; past 7.2e75 the
// largest magnitude with its sign and XF_E_OVERFLOW in status.
uint64_t hex_float_of(double v, int32_t d, xf_status &status);
// Writes the first w bytes of the bits, most significant first.
xf_status hex_float_field(xf_frame *f, uint64_t bits, xf_status status);

}  // namespace xfmt::numeric
