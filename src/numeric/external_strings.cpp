// Character fields handed to other programs: $XPORTCH (a transport file's
// character field, blank padded), $CSTR (a C string: the text without its
// trailing blanks, then NUL bytes) and $BYVAL (up to 8 bytes passed by
// value, NUL padded).
#include "xfmt/xfmt.h"

#include <cstring>
#include "core/routine_guard.hpp"

namespace {

// The first n bytes of the value, padded with pad to w; cut to the
// capacity with XF_E_CAPACITY. w outside min_w..max_w: XF_E_OVERFLOW and
// nothing written.
xf_status padded(xf_frame *f, uint32_t n, char pad, int32_t min_w, int32_t max_w) {
  f->output_length = 0;
  if (f->width < min_w || f->width > max_w) return XF_E_OVERFLOW;
  uint32_t w = static_cast<uint32_t>(f->width);
  uint32_t room = f->output == nullptr ? 0 : (w < f->output_capacity ? w : f->output_capacity);
  if (n > room) n = room;
  char *out = static_cast<char *>(f->output);
  if (n) std::memcpy(out, f->input, n);
  if (room > n) std::memset(out + n, pad, room - n);
  f->output_length = room;
  return room < w ? XF_E_CAPACITY : XF_OK;
}

uint32_t value_length(const xf_frame *f) { return f->input == nullptr ? 0 : f->input_length; }

}  // namespace

XF_ROUTINE(zfmxportch, f) { return padded(f, value_length(f), ' ', 1, 200); }

XF_ROUTINE(zfmcstr, f) {
  uint32_t n = value_length(f);
  const char *text = static_cast<const char *>(f->input);
  while (n > 0 && text[n - 1] == ' ') --n;
  return padded(f, n, '\0', 1, 32767);
}

XF_ROUTINE(zfmbyval, f) { return padded(f, value_length(f), '\0', 2, 8); }
