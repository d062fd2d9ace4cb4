// Slow reference of the plain-number printer: the layout steps written out
// one by one, with every digit taken from snprintf. The differential tests
// hold the fast printer to the bytes, status and length this produces.
#pragma once

#include <cstdint>
#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

struct field_result {
  std::string text;       // the output_length bytes delivered
  xf_status status = 0;
  uint32_t length = 0;    // output_length (unchanged when w < 1)
  int32_t width_after = 0;  // frame width after the call
};

// zfmt on a value with width w, decimals code d and an output capacity.
field_result zfmt_oracle(double value, int32_t w, int32_t d, uint32_t capacity);

}  // namespace xfmt::oracle
