// Transcoding between any two of the Unicode encodings and the single-byte
// code pages, one character at a time through its code point.
#include "xfmt/xfmt.h"

#include <cstdint>

#include "text/codepage.hpp"

namespace {

using xfmt::text::codepage_byte;
using xfmt::text::codepage_for;

// Reads one character of encoding id; the single-byte pages never fail.
uint32_t read_char(uint32_t id, const uint8_t *src, uint32_t avail, uint32_t *cp, uint32_t *used) {
  switch (id) {
    case XF_ENC_UTF8: {
      uint32_t r = UTF8_UTF32(src, avail, cp, used);
      if (r != XF_OK) return r;
      // The one-character decoder trusts continuation bytes; a transcoder
      // must not: E0 80 80 (an overlong NUL) or ED A0 80 (a surrogate) stop here.
      int32_t bad = 0;
      if (*used > 1 && !isLegalUTF8(src, static_cast<int32_t>(*used), &bad)) {
        *cp = 0xFFFD;
        return XF_TX_BAD_LEAD;
      }
      return XF_OK;
    }
    case XF_ENC_UTF16BE: return UTF16_UTF32(src, avail, cp, used);
    case XF_ENC_UTF16LE: return UTF16_UTF32_SWAP(src, avail, cp, used);
    case XF_ENC_UTF32BE:
    case XF_ENC_UTF32LE:
      if (avail < 4) {
        *cp = 0xFFFD;
        *used = avail;
        return XF_TX_CUT_OFF;
      }
      *cp = id == XF_ENC_UTF32BE
                ? (uint32_t{src[0]} << 24 | uint32_t{src[1]} << 16 | uint32_t{src[2]} << 8 | src[3])
                : (uint32_t{src[3]} << 24 | uint32_t{src[2]} << 16 | uint32_t{src[1]} << 8 | src[0]);
      *used = 4;
      return XF_OK;
    default:
      *cp = codepage_for(id)[src[0]];
      *used = 1;
      return XF_OK;
  }
}

uint32_t write_char(uint32_t id, uint32_t cp, uint8_t *dst, uint32_t space, uint32_t *written) {
  switch (id) {
    case XF_ENC_UTF8:
      if (cp > 0x10FFFF) {  // would need the retired five- and six-byte forms
        *written = 0;
        return XF_TX_BAD_LEAD;
      }
      return UTF32_UTF8(cp, dst, space, written);
    case XF_ENC_UTF16BE: return UTF32_UTF16(cp, dst, space, written);
    case XF_ENC_UTF16LE: return UTF32_UTF16_SWAP(cp, dst, space, written);
    case XF_ENC_UTF32BE: return COPY_UTF32(cp, dst, space, written);
    case XF_ENC_UTF32LE: return COPY_UTF32_SWAP(cp, dst, space, written);
    default: {
      if (space < 1 || dst == nullptr) {
        *written = 0;
        return XF_TX_OUTPUT_SMALL;
      }
      const int32_t b = codepage_byte(codepage_for(id), cp);
      dst[0] = static_cast<uint8_t>(b < 0 ? '?' : b);
      *written = 1;
      return XF_OK;
    }
  }
}

}  // namespace

extern "C" uint32_t sanlsTranscodeUnicode(uint32_t from_id, const uint8_t *src, uint32_t src_len,
                                          uint32_t to_id, uint8_t *dst, uint32_t capacity,
                                          uint32_t *out_len, uint32_t *src_used) {
  if (src == nullptr) src_len = 0;
  if (dst == nullptr) capacity = 0;
  uint32_t pos = 0;
  uint32_t out = 0;
  uint32_t result = XF_OK;
  while (pos < src_len) {
    uint32_t cp = 0, used = 0, written = 0;
    result = read_char(from_id, src + pos, src_len - pos, &cp, &used);
    if (result != XF_OK) break;
    result = write_char(to_id, cp, dst + out, capacity - out, &written);
    if (result != XF_OK) break;
    pos += used;
    out += written;
  }
  *out_len = out;
  *src_used = pos;
  return result;
}
