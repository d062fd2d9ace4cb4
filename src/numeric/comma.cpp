// COMMA w.d (zfmcma): zfmt lays the number out first, then commas go between
// groups of three integral digits when the longer text still fits w; when it
// does not, the plain text stays (no error, no stars).
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/digits.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;

XF_ROUTINE(zfmcma, f) {
  int32_t w = f->width;
  int32_t d = f->decimals;
  if (is_missing(frame_value(f))) return write_missing(f, w, d < 0 || d >= w ? 0 : d);

  // Step 1: the plain text; any status but 0 (reduced decimals, stars, a cut
  // to the capacity) comes back as it is, without commas.
  uint32_t flags = f->option_flags;
  f->option_flags |= XF_FLAG_COMMA_INNER;
  xf_status status = zfmt(f);
  f->option_flags = flags;
  if (status != XF_OK) return status;

  // Step 2: E notation and stars stay as they are.
  const char *out = frame_out(f);
  uint32_t len = f->output_length;
  if (std::memchr(out, 'E', len) != nullptr) return XF_OK;
  uint32_t stars = 0;
  while (stars < len && out[stars] == '*') ++stars;
  if (stars == len) return XF_OK;

  // Step 3: the text between the blanks, its sign and its integral digits.
  uint32_t start = 0;
  while (start < len && out[start] == ' ') ++start;
  uint32_t end = len;
  while (end > start && out[end - 1] == ' ') --end;
  bool neg = start < end && out[start] == '-';
  if (neg) ++start;
  uint32_t text_len = end - start;
  uint32_t int_digits = text_len;
  if (d != 0) {
    const void *point = std::memchr(out + start, '.', text_len);
    if (point != nullptr) int_digits = static_cast<uint32_t>(static_cast<const char *>(point) - (out + start));
  }
  if (int_digits <= 3) return XF_OK;

  // Step 4: 1234567.89 needs (7 - 1) / 3 = 2 commas: 1,234,567.89.
  uint32_t commas = (int_digits - 1) / 3;
  uint32_t new_len = (neg ? 1u : 0u) + commas + text_len;
  if (new_len > static_cast<uint32_t>(w)) return XF_OK;
  if (new_len > f->output_capacity) return XF_E_CAPACITY;
  char text[2 * numeric::max_field];
  char *p = text + new_len;
  uint32_t frac_len = text_len - int_digits;
  p -= frac_len;
  std::memcpy(p, out + start + int_digits, frac_len);
  for (uint32_t i = 0; i < int_digits; ++i) {
    if (i > 0 && i % 3 == 0) *--p = ',';
    *--p = out[start + int_digits - 1 - i];
  }
  if (neg) *--p = '-';
  char *field = frame_out(f);
  uint32_t wu = static_cast<uint32_t>(w);
  core::put_blanks(field, static_cast<int>(wu - new_len));
  std::memcpy(field + (wu - new_len), text, new_len);
  f->output_length = wu;
  return XF_OK;
}
