// Text in and out of the bidirectional formats: the value read as code
// points (UTF-16 in either byte order, or UTF-8) and the field written as
// UTF-8 or UTF-16LE, w positions wide, never splitting a character.
#pragma once

#include <cstdint>

#include "core/bounded_text.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::text {

enum class bidi_form : uint8_t {
  bytes,     // not UTF-8: passed through as it stands
  utf8,
  utf16le,
  utf16be,
};

struct bidi_source {
  const uint8_t *p;
  uint32_t len;     // bytes that may be read
  bidi_form form;
};

// The value of a frame: UTF-16 when the input encoding says so (an odd last
// byte is no character and is left out), else UTF-8 when the bytes are
// valid UTF-8, else bytes.
bidi_source bidi_open_source(const xf_frame *f);

// True when s[0, n) is well-formed UTF-8 (no overlong forms, surrogates or
// code points above U+10FFFF).
bool bidi_valid_utf8(const uint8_t *s, uint32_t n);

// Decodes the character at pos (pos < src.len) into cp; returns its bytes.
// UTF-16 surrogates that do not pair are returned as they are, so they are
// written back unchanged.
inline uint32_t bidi_decode(const bidi_source &src, uint32_t pos, uint32_t &cp) {
  const uint8_t *s = src.p + pos;
  if (src.form == bidi_form::utf8) {
    uint8_t b = s[0];
    if (b < 0x80) {
      cp = b;
      return 1;
    }
    if (b < 0xE0) {
      cp = (uint32_t{b} & 0x1F) << 6 | (s[1] & 0x3Fu);
      return 2;
    }
    if (b < 0xF0) {
      cp = (uint32_t{b} & 0x0F) << 12 | (s[1] & 0x3Fu) << 6 | (s[2] & 0x3Fu);
      return 3;
    }
    cp = (uint32_t{b} & 0x07) << 18 | (s[1] & 0x3Fu) << 12 | (s[2] & 0x3Fu) << 6 | (s[3] & 0x3Fu);
    return 4;
  }
  auto unit = [&](uint32_t at) -> uint32_t {
    return src.form == bidi_form::utf16le ? uint32_t{s[at]} | uint32_t{s[at + 1]} << 8
                                          : uint32_t{s[at]} << 8 | uint32_t{s[at + 1]};
  };
  uint32_t u = unit(0);
  if (u >= 0xD800 && u < 0xDC00 && pos + 4 <= src.len) {
    uint32_t v = unit(2);
    if (v >= 0xDC00 && v < 0xE000) {
      cp = 0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00);
      return 4;
    }
  }
  cp = u;
  return 2;
}

// Bytes the character cp took in the source's form.
inline uint32_t bidi_encoded_size(bidi_form form, uint32_t cp) {
  if (form == bidi_form::utf8) return cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4;
  return cp < 0x10000 ? 2 : 4;
}

// The output field: its bytes filled from the left, never past the room.
struct bidi_sink {
  core::bounded_text field;
  bool utf16;  // UTF-16LE, else UTF-8
  bool full;   // a character did not fit: nothing more is written

  // A character goes in whole or ends the field; stored in place with byte
  // stores, then counted.
  void put(uint32_t cp) {
    if (full) return;
    // Only whole characters are counted, so the count never passes the room.
    uint8_t *o = reinterpret_cast<uint8_t *>(field.p) + field.n;
    const size_t left = field.room - field.n;
    if (utf16) {
      if (cp < 0x10000) {
        if (left < 2) { full = true; return; }
        o[0] = static_cast<uint8_t>(cp);
        o[1] = static_cast<uint8_t>(cp >> 8);
        field.skip(2);
      } else {
        if (left < 4) { full = true; return; }
        uint32_t v = cp - 0x10000;
        uint32_t hi = 0xD800 + (v >> 10), lo = 0xDC00 + (v & 0x3FF);
        o[0] = static_cast<uint8_t>(hi);
        o[1] = static_cast<uint8_t>(hi >> 8);
        o[2] = static_cast<uint8_t>(lo);
        o[3] = static_cast<uint8_t>(lo >> 8);
        field.skip(4);
      }
      return;
    }
    if (cp < 0x80) {
      if (left < 1) { full = true; return; }
      o[0] = static_cast<uint8_t>(cp);
      field.skip(1);
    } else if (cp < 0x800) {
      if (left < 2) { full = true; return; }
      o[0] = static_cast<uint8_t>(0xC0 | cp >> 6);
      o[1] = static_cast<uint8_t>(0x80 | (cp & 0x3F));
      field.skip(2);
    } else if (cp < 0x10000) {
      if (left < 3) { full = true; return; }
      o[0] = static_cast<uint8_t>(0xE0 | cp >> 12);
      o[1] = static_cast<uint8_t>(0x80 | (cp >> 6 & 0x3F));
      o[2] = static_cast<uint8_t>(0x80 | (cp & 0x3F));
      field.skip(3);
    } else {
      if (left < 4) { full = true; return; }
      o[0] = static_cast<uint8_t>(0xF0 | cp >> 18);
      o[1] = static_cast<uint8_t>(0x80 | (cp >> 12 & 0x3F));
      o[2] = static_cast<uint8_t>(0x80 | (cp >> 6 & 0x3F));
      o[3] = static_cast<uint8_t>(0x80 | (cp & 0x3F));
      field.skip(4);
    }
  }
};

// Opens the field of a frame for src: UTF-16LE when the value is UTF-16 or
// the host asks for UTF-16 (w then counts 16-bit units, two bytes each),
// else single bytes; room is the field cut to the capacity.
bidi_sink bidi_open_sink(const xf_frame *f, const bidi_source &src);

// Pads the field with blanks, sets the output length and encoding and
// returns XF_E_CAPACITY when the w-wide field was cut to the capacity.
xf_status bidi_close_sink(xf_frame *f, bidi_sink &sink);

// The bytes form: the value's first bytes as $CHAR writes them.
xf_status bidi_pass_through(xf_frame *f, const bidi_source &src);

}  // namespace xfmt::text
