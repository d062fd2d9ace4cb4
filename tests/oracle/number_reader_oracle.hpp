// A slow, literal transcription of the number informat's reading procedure:
// digits folded nine at a time into a double, then one multiplication or
// division by a power of ten. It is exact while the digits fit 15 places and
// the scale stays within 22; the fast reader must agree with it there to the
// bit, and on the status of every text.
#pragma once

#include <cstdint>
#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

struct informat_result {
  xf_status status;
  double value;
  int significant_digits;  // digits folded into the value (trailing zeros not counted)
  int64_t scale;           // the power of ten applied
};

// Reads text as @F w.d does (w = text length); host missing values come
// from the library's own table.
informat_result read_number_literally(const std::string &text, int w, int d);

}  // namespace xfmt::oracle
