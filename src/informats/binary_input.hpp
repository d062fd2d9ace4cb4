// Steps shared by the binary informats: the entry checks, the division by
// 10^d, and the integer and packed readers every family reuses.
#pragma once

#include <cstdint>

#include "numeric/digits.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::informats {

inline const unsigned char *input_bytes(const xf_frame *f) { return static_cast<const unsigned char *>(f->input); }

// sign x m / 10^d.
double scaled_down(bool negative, numeric::u128 m, int d);

// The room for the double, w in min_w..max_w, d in 0..31 and w bytes of
// input. Returns false with the status set (missing stored where there is
// room).
bool raw_ready(xf_frame *f, int min_w, int max_w, int &d, xf_status &status);

// w bytes (1..8) as an integer, most significant first when big.
xf_status read_integer(xf_frame *f, bool big, bool is_signed);

// Which sign nibbles a packed field accepts.
enum class packed_signs {
  lenient,  // B D minus; A C E F plus (PD)
  cdf,      // D minus; C F plus (S370FPD)
  f_only,   // F only (S370FPDU)
  none,     // no sign nibble: 2w digits (PK)
};
xf_status read_packed(xf_frame *f, packed_signs signs);

// Stores the ordinary missing value with XF_IN_INVALID.
xf_status refuse_invalid(xf_frame *f);

}  // namespace xfmt::informats
