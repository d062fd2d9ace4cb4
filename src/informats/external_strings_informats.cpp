// @$CSTR and @$BYVAL: the bytes before the first NUL of the field (all w
// when there is none), padded with blanks to w, as @$CHAR delivers text.
#include "xfmt/xfmt.h"

#include <cstring>
#include "core/routine_guard.hpp"

namespace {

xf_status before_nul(xf_frame *f, int32_t min_w, int32_t max_w) {
  if (f->width < min_w || f->width > max_w) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  uint32_t n = f->input == nullptr ? 0 : f->input_length;
  uint32_t w = static_cast<uint32_t>(f->width);
  if (n > w) n = w;
  const void *nul = n ? std::memchr(f->input, 0, n) : nullptr;
  if (nul != nullptr) n = static_cast<uint32_t>(static_cast<const char *>(nul) - static_cast<const char *>(f->input));
  xf_frame copy = *f;
  copy.input_length = n;
  xf_status status = zifmc(&copy);
  f->output_length = copy.output_length;
  f->output_encoding = copy.output_encoding;
  return status;
}

}  // namespace

XF_ROUTINE(zifmcstr, f) { return before_nul(f, 1, 32767); }
XF_ROUTINE(zifmbyval, f) { return before_nul(f, 2, 8); }
