// Slow literal national date and datetime members of the two-pattern kind:
// each locale pattern expanded through the exported zkfdate/zkfdttm into a
// buffer, encoded by the literal encoder, the first that fits placed on the
// left of a blank field; then the short numeric member; then stars.
#pragma once

#include <cstdint>
#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

struct member_case {
  double value;        // inside the valid range, not missing
  int32_t width;       // at least 1
  int32_t decimals;    // at least 0
  int locale;          // 1..136
  uint32_t capacity;   // output bytes, all 0xEE before the call (as frame_box leaves them)
};

struct member_outcome {
  xf_status status;
  uint32_t length;     // output_length
  std::string buffer;  // the whole capacity after the call
  bool short_form;     // both patterns failed: decided by the short member
};

// first and second are locale field codes as the members pass them (a
// datetime code may carry 4096 and 256); second 0 for none. short_member is
// the S member of the same short form, or null when the member has none.
member_outcome two_pattern_literally(const member_case &c, bool datetime, int first, int second,
                                     xf_routine short_member);

}  // namespace xfmt::oracle
