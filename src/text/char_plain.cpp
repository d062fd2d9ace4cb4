// $CHAR (and its shorthands "$", "$F"): character values as they are,
// left-aligned in the field.
#include "xfmt/xfmt.h"

#include <cstring>
#include "core/routine_guard.hpp"

XF_ROUTINE(zfmchar, frame) {
  // Field positions that can be written: min(w, capacity); w <= 0 is an
  // empty field rather than an error.
  uint32_t w = frame->width > 0 ? static_cast<uint32_t>(frame->width) : 0;
  uint32_t room = w < frame->output_capacity ? w : frame->output_capacity;
  uint32_t n = frame->input != nullptr ? frame->input_length : 0;
  if (n > room) n = room;
  auto *out = static_cast<char *>(frame->output);
  if (n) std::memcpy(out, frame->input, n);
  if (room > n) std::memset(out + n, ' ', room - n);
  frame->output_length = room;
  return w > frame->output_capacity ? XF_E_CAPACITY : XF_OK;
}
