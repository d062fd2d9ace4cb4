// The thin wrappers over zfmt: BEST (zfmb), BESTX (zfmbx), E (zfmexp),
// D (zfmd) and Z (zfmz). Each sets a decimals code or a width on the caller's
// frame for the inner call and restores it afterwards.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;

namespace {

xf_status with_decimals(xf_frame *f, int32_t code) {
  int32_t saved = f->decimals;
  f->decimals = code;
  xf_status status = zfmt(f);
  f->decimals = saved;
  return status;
}

}  // namespace

XF_ROUTINE(zfmb, f) { return with_decimals(f, 99); }

XF_ROUTINE(zfmexp, f) { return with_decimals(f, -999); }

XF_ROUTINE(zfmbx, f) {
  int32_t w = f->width;
  if (w <= numeric::max_field) return zfmb(f);
  f->width = numeric::max_field;
  int32_t saved = f->decimals;
  f->decimals = 99;
  xf_status status = zfmn(f);
  f->decimals = saved;
  f->width = w;
  uint32_t end = field_room(f, w);
  if (end > static_cast<uint32_t>(numeric::max_field))
    fill_bytes(frame_out(f) + numeric::max_field, end - numeric::max_field, ' ');
  return status;
}

XF_ROUTINE(zfmd, f) {
  int32_t d = f->decimals;
  if (is_missing(frame_value(f))) {
    f->decimals = 0;
    xf_status status = write_missing(f, f->width, 0);
    f->decimals = d;
    return status;
  }
  // The point in the last position stays where the inner call writes nothing.
  uint32_t n = blank_field(f, f->width);
  if (n) frame_out(f)[n - 1] = '.';
  uint32_t flags = f->option_flags;
  f->option_flags |= XF_FLAG_NESTED;
  f->decimals = d + 80;
  xf_status status = zfmt(f);
  f->decimals = d;
  f->option_flags = flags;
  return status;
}

XF_ROUTINE(zfmz, f) {
  if (is_missing(frame_value(f))) return write_missing(f, f->width, f->decimals);
  xf_status status = zfmt(f);
  if (f->width < 1) return status;
  char *out = frame_out(f);
  uint32_t len = f->output_length;
  if (len > f->output_capacity) len = f->output_capacity;
  bool blank = false, other = false;
  for (uint32_t i = 0; i < len; ++i) {
    if (out[i] == ' ') blank = true;
    else if (out[i] != '.') other = true;
  }
  if (!blank || !other) return status;  // no blank, or nothing but blanks and points
  // "  -1.50" -> "0-01.50" -> "-01.50": zeros for blanks, the sign to the front.
  char *minus = frame_value(f) < 0 ? static_cast<char *>(std::memchr(out, '-', len)) : nullptr;
  for (uint32_t i = 0; i < len; ++i)
    if (out[i] == ' ') out[i] = '0';
  if (minus) {
    *minus = '0';
    out[0] = '-';
  }
  return XF_OK;
}
