// The output field: reading the frame's value, blank and star filling, the
// standard missing display and the right-justified integer writer. Every
// conversion writes through these so that no routine exceeds the capacity.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/missing.hpp"
#include "xfmt/xfmt.h"

namespace xfmt {

// The numeric value of a frame (8 bytes at input; shorter input reads as the
// ordinary missing value rather than past the end).
inline double frame_value(const xf_frame *f) {
  if (f->input == nullptr || f->input_length < 8) return missing_ordinary();
  double v;
  std::memcpy(&v, f->input, sizeof v);
  return v;
}

inline uint64_t frame_value_bits(const xf_frame *f) { return double_bits(frame_value(f)); }

inline char *frame_out(xf_frame *f) { return static_cast<char *>(f->output); }

// Number of field positions that may be written: min(w, capacity), never negative.
inline uint32_t field_room(const xf_frame *f, int32_t w) {
  if (w <= 0) return 0;
  uint32_t uw = static_cast<uint32_t>(w);
  return uw < f->output_capacity ? uw : f->output_capacity;
}

// Short runs (the blanks after a text, a few stars) are written with two
// overlapping stores instead of a call.
inline void fill_bytes(char *out, uint32_t n, char c) {
  const uint64_t eight = 0x0101010101010101u * static_cast<unsigned char>(c);
  if (n >= 8 && n <= 16) {
    std::memcpy(out, &eight, 8);
    std::memcpy(out + n - 8, &eight, 8);
  } else if (n >= 4 && n < 8) {
    const auto four = static_cast<uint32_t>(eight);
    std::memcpy(out, &four, 4);
    std::memcpy(out + n - 4, &four, 4);
  } else if (n < 4) {
    for (uint32_t i = 0; i < n; ++i) out[i] = c;
  } else {
    std::memset(out, c, n);
  }
}

// Fills min(w, capacity) positions with '*', sets the output length to that
// count and returns the given status: the one shape of every star overflow.
inline xf_status fail_stars(xf_frame *f, int32_t w, xf_status status) {
  uint32_t n = field_room(f, w);
  fill_bytes(frame_out(f), n, '*');
  f->output_length = n;
  return status;
}

// Blank-fills min(w, capacity) positions and sets the output length to that count.
inline uint32_t blank_field(xf_frame *f, int32_t w) {
  uint32_t n = field_room(f, w);
  fill_bytes(frame_out(f), n, ' ');
  f->output_length = n;
  return n;
}

// Standard display of a missing value: the whole capacity blank, the symbol
// d places left of the right end of the w-wide field (d 98/99 count as 0).
xf_status write_missing(xf_frame *f, int32_t w, int32_t d);

// Writes value right-justified in exactly width positions at out, blank
// padded on the left, "-" before the first digit when negative. A value that
// does not fit fills the positions with '*' and returns false.
bool write_int_right(char *out, int width, int64_t value);

// Writes value in exactly width digits with leading zeros (no sign; value >= 0).
// Returns false (and writes '*') when the value needs more digits.
bool write_int_zero(char *out, int width, int64_t value);

}  // namespace xfmt
