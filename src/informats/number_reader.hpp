// The core number reader shared by every numeric informat: trims the field,
// scans it, converts it and maps the outcome to the stored double and status.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::informats {

// The missing value the host has for index i (0 "._", 1 ".", 2 "A" ... 27
// "Z"): its own table when it set ej_global_gcb_anchor, the library's otherwise.
double host_missing(int index);

// Reads text[0, n) as a number with implied_decimals (0..31) and a further
// power of ten (exp10_adjust: -2 divides exactly by 100). Stores into out:
//   blank field or a missing notation   missing value, XF_OK
//   zero (also "-0")                    +0, XF_OK
//   a number                            the nearest double, XF_OK
//   rounds to 0 or past the largest     ordinary missing, XF_IN_RANGE_WARNING
//   anything else                       ordinary missing, XF_IN_INVALID
// Reads no byte outside text[0, n).
xf_status read_number(const char *text, size_t n, int implied_decimals, double &out,
                      int exp10_adjust = 0);

inline bool is_blank_or_tab(char c) { return c == ' ' || c == '\t'; }

}  // namespace xfmt::informats
