// The value and the field of the bidirectional formats (see bidi_text.hpp).
#include "text/bidi_text.hpp"

#include <cstring>

namespace xfmt::text {

bool bidi_valid_utf8(const uint8_t *s, uint32_t n) {
  uint32_t i = 0;
  while (i < n) {
    // Eight ASCII bytes at a time: the common case of Latin text.
    if (i + 8 <= n) {
      uint64_t word;
      std::memcpy(&word, s + i, 8);
      if ((word & 0x8080808080808080u) == 0) {
        i += 8;
        continue;
      }
    }
    uint8_t b = s[i];
    if (b < 0x80) {
      ++i;
      continue;
    }
    uint32_t need;
    uint8_t lo = 0x80, hi = 0xBF;  // bounds of the second byte
    if (b >= 0xC2 && b <= 0xDF) {
      need = 1;
    } else if (b >= 0xE0 && b <= 0xEF) {
      need = 2;
      if (b == 0xE0) lo = 0xA0;  // overlong
      if (b == 0xED) hi = 0x9F;  // surrogates
    } else if (b >= 0xF0 && b <= 0xF4) {
      need = 3;
      if (b == 0xF0) lo = 0x90;  // overlong
      if (b == 0xF4) hi = 0x8F;  // above U+10FFFF
    } else {
      return false;
    }
    if (n - i - 1 < need) return false;
    if (s[i + 1] < lo || s[i + 1] > hi) return false;
    for (uint32_t k = 2; k <= need; ++k)
      if ((s[i + k] & 0xC0) != 0x80) return false;
    i += need + 1;
  }
  return true;
}

bidi_source bidi_open_source(const xf_frame *f) {
  bidi_source src{static_cast<const uint8_t *>(f->input), f->input != nullptr ? f->input_length : 0,
                  bidi_form::bytes};
  if (f->input_encoding == XF_ENC_UTF16LE || f->input_encoding == XF_ENC_UTF16BE) {
    src.form = f->input_encoding == XF_ENC_UTF16LE ? bidi_form::utf16le : bidi_form::utf16be;
    src.len &= ~1u;
  } else if (bidi_valid_utf8(src.p, src.len)) {
    src.form = bidi_form::utf8;
  }
  return src;
}

bidi_sink bidi_open_sink(const xf_frame *f, const bidi_source &src) {
  uint64_t w = f->width > 0 ? static_cast<uint64_t>(f->width) : 0;
  const bool utf16 = src.form == bidi_form::utf16le || src.form == bidi_form::utf16be ||
                     (src.form == bidi_form::utf8 && f->requested_output_encoding == XF_ENC_UTF16LE);
  uint64_t cap = utf16 ? f->output_capacity & ~1u : f->output_capacity;
  uint64_t field = utf16 ? 2 * w : w;
  const auto room = static_cast<size_t>(field < cap ? field : cap);
  return bidi_sink{core::bounded_text(static_cast<char *>(f->output), room), utf16, false};
}

xf_status bidi_close_sink(xf_frame *f, bidi_sink &sink) {
  if (sink.utf16) {
    while (sink.field.left() >= 2) sink.field.put(" \0", 2);
  } else {
    sink.field.put_repeat(' ', sink.field.left());
  }
  f->output_length = static_cast<uint32_t>(sink.field.room);
  f->output_encoding = sink.utf16 ? XF_ENC_UTF16LE : XF_ENC_SINGLE_BYTE;
  uint64_t w = f->width > 0 ? static_cast<uint64_t>(f->width) : 0;
  return (sink.utf16 ? 2 * w : w) > f->output_capacity ? XF_E_CAPACITY : XF_OK;
}

xf_status bidi_pass_through(xf_frame *f, const bidi_source &src) {
  uint32_t w = f->width > 0 ? static_cast<uint32_t>(f->width) : 0;
  uint32_t room = w < f->output_capacity ? w : f->output_capacity;
  uint32_t n = src.len < room ? src.len : room;
  auto *out = static_cast<uint8_t *>(f->output);
  if (n) std::memcpy(out, src.p, n);
  if (room > n) std::memset(out + n, ' ', room - n);
  f->output_length = room;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return w > f->output_capacity ? XF_E_CAPACITY : XF_OK;
}

}  // namespace xfmt::text
