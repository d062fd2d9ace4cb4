// UTF-32 storage of code points and the drivers that convert whole texts to
// and from UTF-32 one character at a time.
#include "xfmt/xfmt.h"

#include <cstdint>

#include "text/codepage.hpp"

namespace {

inline void put_be32(uint8_t *p, uint32_t v) {
  p[0] = static_cast<uint8_t>(v >> 24);
  p[1] = static_cast<uint8_t>(v >> 16);
  p[2] = static_cast<uint8_t>(v >> 8);
  p[3] = static_cast<uint8_t>(v);
}
inline void put_le32(uint8_t *p, uint32_t v) {
  p[0] = static_cast<uint8_t>(v);
  p[1] = static_cast<uint8_t>(v >> 8);
  p[2] = static_cast<uint8_t>(v >> 16);
  p[3] = static_cast<uint8_t>(v >> 24);
}
inline uint32_t get32(const uint8_t *p, bool big_endian) {
  if (big_endian)
    return (uint32_t{p[0]} << 24) | (uint32_t{p[1]} << 16) | (uint32_t{p[2]} << 8) | p[3];
  return (uint32_t{p[3]} << 24) | (uint32_t{p[2]} << 16) | (uint32_t{p[1]} << 8) | p[0];
}

}  // namespace

extern "C" uint32_t COPY_UTF32(uint32_t code_point, uint8_t *dst, uint32_t space,
                               uint32_t *written) {
  if (space < 4 || dst == nullptr) {
    *written = 0;
    return XF_TX_OUTPUT_SMALL;
  }
  put_be32(dst, code_point);
  *written = 4;
  return XF_OK;
}

extern "C" uint32_t COPY_UTF32_SWAP(uint32_t code_point, uint8_t *dst, uint32_t space,
                                    uint32_t *written) {
  if (space < 4 || dst == nullptr) {
    *written = 0;
    return XF_TX_OUTPUT_SMALL;
  }
  put_le32(dst, code_point);
  *written = 4;
  return XF_OK;
}

extern "C" uint32_t ConvertToUTF32(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                                   uint32_t capacity, uint32_t *out_len, xf_tx_decoder decode,
                                   xf_tx_storer store) {
  *out_len = 0;
  if (src == nullptr || src_len == 0) return XF_OK;
  const uint32_t limit = capacity / 4;
  uint32_t pos = 0;
  uint32_t stored = 0;
  uint32_t result = XF_OK;
  while (stored < limit && pos < src_len) {
    uint32_t cp = 0, used = 0, written = 0;
    result = decode(src + pos, src_len - pos, &cp, &used);
    if (result != XF_OK) break;
    pos += used;
    result = store(cp, dst + 4 * stored, capacity - 4 * stored, &written);
    if (result != XF_OK) break;
    ++stored;
  }
  *out_len = 4 * stored;
  return result;
}

extern "C" uint32_t ConvertOSToUTF32(uint32_t encoding_id, uint32_t target_id, const uint8_t *src,
                                     uint32_t src_len, uint8_t *dst, uint32_t capacity,
                                     uint32_t *out_len) {
  const uint16_t *page = xfmt::text::codepage_for(encoding_id);
  const bool big = xfmt::text::big_endian_id(target_id);
  if (src == nullptr || dst == nullptr) src_len = 0;
  uint32_t n = capacity / 4 < src_len ? capacity / 4 : src_len;
  for (uint32_t i = 0; i < n; ++i) {
    if (big) put_be32(dst + 4 * i, page[src[i]]);
    else put_le32(dst + 4 * i, page[src[i]]);
  }
  *out_len = 4 * n;
  return XF_OK;
}

extern "C" uint32_t ConvertFromUTF32(const uint8_t *src, uint32_t src_len, int32_t big_endian,
                                     uint8_t *dst, uint32_t capacity, uint32_t *out_len,
                                     xf_tx_storer store) {
  *out_len = 0;
  if (src == nullptr) src_len = 0;
  if (dst == nullptr) capacity = 0;
  uint32_t pos = 0;
  uint32_t out = 0;
  while (src_len - pos >= 4) {
    uint32_t written = 0;
    const uint32_t r = store(get32(src + pos, big_endian != 0), dst + out, capacity - out, &written);
    if (r != XF_OK) {
      *out_len = out;
      return r;
    }
    out += written;
    pos += 4;
  }
  *out_len = out;
  return pos < src_len ? XF_TX_CUT_OFF : XF_OK;
}

extern "C" uint32_t ConvertOSFromUTF32(uint32_t encoding_id, uint32_t source_id, const uint8_t *src,
                                       uint32_t src_len, uint8_t *dst, uint32_t capacity,
                                       uint32_t *out_len) {
  const uint16_t *page = xfmt::text::codepage_for(encoding_id);
  const bool big = xfmt::text::big_endian_id(source_id);
  if (src == nullptr) src_len = 0;
  if (dst == nullptr) capacity = 0;
  uint32_t pos = 0;
  uint32_t out = 0;
  while (src_len - pos >= 4) {
    if (out >= capacity) {
      *out_len = out;
      return XF_TX_OUTPUT_SMALL;
    }
    const int32_t b = xfmt::text::codepage_byte(page, get32(src + pos, big));
    dst[out++] = static_cast<uint8_t>(b < 0 ? '?' : b);
    pos += 4;
  }
  *out_len = out;
  return pos < src_len ? XF_TX_CUT_OFF : XF_OK;
}
