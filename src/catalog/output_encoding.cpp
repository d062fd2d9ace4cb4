// Output encoding after a conversion, and the widening of user-defined
// character input.
#include "xfmt/xfmt.h"

#include <cstring>

#include "catalog/output_encoding.hpp"

namespace xfmt::catalog {

uint32_t widen_latin1(const xf_frame *frame, uint16_t (&wide)[512]) {
  uint32_t units = 0;
  if (frame->input == nullptr || frame->input_length == 0) return 0;
  LATIN1ToUNICODE(static_cast<const uint8_t *>(frame->input), frame->input_length, wide, 512, &units);
  return units <= 512 ? units : 512;
}

namespace {

// UTF-16 output of a label routine, narrowed to UTF-8 in place. The UTF-8
// text can be up to one and a half times the UTF-16 bytes, so the
// destination is bounded by the capacity too; the converter stops before a
// character that would not fit.
void narrow_to_utf8(xf_frame *f) {
  uint8_t utf8[256];
  uint32_t room = f->output_capacity < sizeof utf8 ? f->output_capacity : static_cast<uint32_t>(sizeof utf8);
  uint32_t in_bytes = f->output_length <= f->output_capacity ? f->output_length : f->output_capacity;
  // A character takes at least one UTF-8 byte, so 256 units are all that can
  // fit; copying them out also aligns them for the converter.
  uint16_t units[256];
  uint32_t n_units = in_bytes / 2 < 256 ? in_bytes / 2 : 256;
  if (n_units) std::memcpy(units, f->output, n_units * 2u);
  uint32_t chars = 0, bytes = 0;
  UNICODEToUTF8(units, n_units * 2u, utf8, room, &chars, &bytes);
  if (bytes > room) bytes = room;
  if (bytes) std::memcpy(f->output, utf8, bytes);
  f->output_length = bytes;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
}

// Single-byte output widened to UTF-16LE through the Windows-1252 table:
// 0x80 becomes U+20AC, 0xE9 U+00E9. Skipped (output unchanged) when the
// result would exceed 512 bytes or the capacity.
void widen_to_utf16(xf_frame *f) {
  uint32_t n = f->output_length;
  if (uint64_t{n} * 2 > 512 || uint64_t{n} * 2 > f->output_capacity) return;
  uint16_t wide[256];
  const auto *in = static_cast<const uint8_t *>(f->output);
  for (uint32_t i = 0; i < n; ++i) wide[i] = wlt1unic[in[i]];
  auto *out = static_cast<uint8_t *>(f->output);
  for (uint32_t i = 0; i < n; ++i) {  // little-endian units, whatever the host's byte order
    out[2 * i] = static_cast<uint8_t>(wide[i] & 0xFF);
    out[2 * i + 1] = static_cast<uint8_t>(wide[i] >> 8);
  }
  f->output_length = 2 * n;
  f->output_encoding = XF_ENC_UTF16LE;
}

}  // namespace

void encode_output(xf_frame *frame, bool user_handle) {
  bool wants_utf16 = frame->requested_output_encoding == XF_ENC_UTF16LE;
  if (user_handle && frame->output_encoding != XF_ENC_SINGLE_BYTE && !wants_utf16) {
    narrow_to_utf8(frame);
    return;
  }
  if (wants_utf16 && frame->output_encoding != XF_ENC_UTF16LE) widen_to_utf16(frame);
}

}  // namespace xfmt::catalog
