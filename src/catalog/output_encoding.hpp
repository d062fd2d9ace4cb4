// Text encodings around a conversion: the UTF-16 input of user-defined
// character formats, and the output encoding the host asked for.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::catalog {

// Widens the frame's single-byte input (Latin-1) into wide (512 units; longer
// input is cut); returns the number of units.
uint32_t widen_latin1(const xf_frame *frame, uint16_t (&wide)[512]);

// After a successful conversion (status 0 or 2) on frame:
//  - user-defined output in UTF-16 without a UTF-16 request becomes UTF-8
//    (at most 256 bytes and never more than the capacity, whole characters);
//  - otherwise a UTF-16 request widens single-byte output through the
//    Windows-1252 table, when the result fits 512 bytes and the capacity;
//    else the output stays single-byte.
void encode_output(xf_frame *frame, bool user_handle);

}  // namespace xfmt::catalog
