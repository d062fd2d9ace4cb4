// $BASE64X: a character value shown as its Base64 encoding.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

#include "core/field.hpp"
#include "core/routine_guard.hpp"

XF_ROUTINE(zfmb64x, frame) {
  // The effective width: the field, cut to the buffer.
  const uint32_t eff = xfmt::field_room(frame, frame->width);
  char *out = xfmt::frame_out(frame);
  // An encoding that does not fit writes nothing and leaves the length as it
  // was on entry; the blanks then start there.
  uint32_t len = frame->output_length;
  static const uint8_t empty = 0;
  const uint8_t *in = frame->input != nullptr ? static_cast<const uint8_t *>(frame->input) : &empty;
  const uint32_t count = frame->input != nullptr ? frame->input_length : 0;
  uint32_t produced = 0;
  if (count <= 0x7FFFFFFFu && out != nullptr &&
      encode_base64(in, static_cast<int32_t>(count), out, static_cast<int32_t>(eff), &produced, 0) == 0)
    len = produced;
  if (len < eff) xfmt::fill_bytes(out + len, eff - len, ' ');
  frame->output_length = eff;
  return XF_OK;
}
