// An open conversion of the column functions, and the conversion of one
// value to UTF-8 that they and the catalog's examples share.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfx.h"

namespace xfmt::column {

// How the routine's output becomes UTF-8.
enum class route : uint8_t {
  windows_1252,  // catalogued conversions: single-byte Windows-1252
  national,      // national-language formats: asked for UTF-16LE
  user,          // user-defined formats: UTF-8 already (labels)
  bytes,         // binary layouts: raw bytes, handed out as they are
  utf8,          // the bidirectional formats: they read and write UTF-8 themselves
};

// Column fast paths a conversion qualifies for (see fast_paths.hpp).
enum class kernel : uint8_t { none, fixed_number, plain_number };

// Room for the input of one text value in the routine's encoding: the
// widest character field of the catalog.
inline constexpr size_t text_scratch_bytes = 32768;

}  // namespace xfmt::column

struct xfx_conversion {
  xfx_spec spec;
  xfmt::column::route route;
  bool ascii_only;        // the routine writes only ASCII (no expansion to UTF-8)
  bool text_input;        // values are texts
  xfmt::column::kernel fast;  // a fast path for the common values
  xf_routine routine;     // catalogued conversions: called directly
  void *user_handle;      // user-defined formats: converted through xffmt
  uint64_t option_word;   // the locale id
};

namespace xfmt::column {

// Opens a conversion from a parsed record (as xfx_open does after
// parsing). Returns XFX_OK, XFX_E_NOT_BUILT or XFX_E_ARGUMENT.
xfx_error open_conversion(const xfx_spec &spec, void *context, uint32_t locale_id, xfx_conversion *&out);
void close_conversion(xfx_conversion *c);

// The input of one value: a double, or text already in the routine's
// encoding (input_encoding 0 single-byte, 25 UTF-16LE).
struct value_input {
  const void *data;
  uint32_t length;
  uint32_t encoding;
  int32_t width;  // the width of this call
};

// A frame with the conversion's width, decimals and option word, for the
// frame-reusing forms of convert_one and read_one (a column prepares it once).
xf_frame base_frame(const xfx_conversion &c);

// Converts one value and leaves its UTF-8 text (raw bytes for the bytes
// route) at out, at most capacity bytes; length receives its size. Returns
// the routine's status, XFX_S_FIELD_SMALL when the UTF-8 text does not fit
// capacity (length then says how much it needs, when known), or the
// routine's XF_E_CAPACITY.
xf_status convert_one(const xfx_conversion &c, const value_input &in, unsigned char *out, size_t capacity,
                      size_t &length);
xf_status convert_one(const xfx_conversion &c, xf_frame &frame, const value_input &in, unsigned char *out,
                      size_t capacity, size_t &length);

// Reads one value with a numeric informat into value (the ordinary missing
// value when the routine stores nothing). Returns the routine's status.
xf_status read_one(const xfx_conversion &c, const value_input &in, double &value);
xf_status read_one(const xfx_conversion &c, xf_frame &frame, const value_input &in, double &value);

// Makes a UTF-8 text the input of the conversion's routine: in place when it
// is ASCII (or the routine reads bytes or UTF-8; UTF-8 that is not valid is
// refused), else converted into scratch
// (text_scratch_bytes) to Windows-1252 or UTF-16. Returns 0 or an XFX_S_*
// status.
xf_status prepare_text(const xfx_conversion &c, const unsigned char *text, size_t n, unsigned char *scratch,
                       value_input &in);

}  // namespace xfmt::column
