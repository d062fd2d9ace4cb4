// Frame handling shared by the informats: the field length, the decimals
// check and storing the double.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/missing.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::informats {

// The double needs 8 bytes at output; with less room nothing is written.
inline bool can_store_double(const xf_frame *f) {
  return f->output != nullptr && f->output_capacity >= 8;
}

inline xf_status refuse_small_output(xf_frame *f) {
  f->output_length = 0;
  return XF_E_CAPACITY;
}

inline xf_status store_double(xf_frame *f, double v, xf_status status) {
  std::memcpy(f->output, &v, sizeof v);
  f->output_length = 8;
  return status;
}

// The number of input bytes to read: min(w, input length), negative when w is.
inline int64_t field_length(const xf_frame *f) {
  if (f->width < 0) return f->width;
  if (f->input == nullptr) return 0;
  int64_t w = f->width;
  int64_t len = f->input_length;
  return w < len ? w : len;
}

// One rule for every number informat (@F, @E, @BZ, @COMMA and the rest of
// their module): the whole field is read, however wide. A host that keeps
// to the catalog's maximum (32) never passes more, but a wider field is
// read as the same text in a narrower one would be, never cut or refused
// for its length. The routine entry guard bounds a width at 32767, so
// copies of the field fit in this many bytes.
inline constexpr size_t widest_number_field = 32767;

inline const char *field_text(const xf_frame *f) { return static_cast<const char *>(f->input); }

// Implied decimals 0..31 (98 and 99 count as 0); -1 for anything else.
inline int implied_decimals(int32_t d) {
  if (d == 98 || d == 99) return 0;
  return d >= 0 && d <= 31 ? d : -1;
}

}  // namespace xfmt::informats
