// Whole texts between UTF-16 code units and UTF-8 or Latin-1, one code unit
// per character (no surrogate pairing). Mixed text is short ASCII runs broken
// by two- and three-byte characters: the safe zone of a text (where a whole
// step fits) goes through block loops, the last bytes through a checked loop.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

#include "text/utf16_kernels.hpp"

namespace xfmt::text {

void widen_blocks(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t cap, uint32_t *pos,
                  uint32_t *n) {
  while (src_len - *pos >= 32 && cap - *n >= 32) widen_step(src, dst, pos, n);
}

void narrow_blocks(const uint16_t *src, uint32_t units, uint8_t *dst, uint32_t capacity, uint32_t *i,
                   uint32_t *out) {
  while (units - *i >= 8 && capacity - *out >= 32) {
    const uint32_t k = narrow_ascii(src + *i, dst + *out);
    if (k == 8) {
      *out += 8;
    } else {
      narrow_block_scalar(src + *i, dst, out);
    }
    *i += 8;
  }
}

uint32_t utf8_to_units(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t dst_capacity_bytes,
                       uint32_t *chars, uint32_t *bytes_written, bool ssse3) {
  const uint32_t cap = dst == nullptr ? 0 : dst_capacity_bytes / 2;
  if (src == nullptr) src_len = 0;
  uint32_t pos = 0;
  uint32_t n = 0;
  // Safe zone: 32 source bytes and 32 units of room remain, so no step (16
  // ASCII bytes and one sequence of at most six, or one block of sixteen
  // bytes) runs past either end.
  if (ssse3) widen_blocks_ssse3(src, src_len, dst, cap, &pos, &n);
  else widen_blocks(src, src_len, dst, cap, &pos, &n);
  // The last bytes, with every check.
  uint32_t result = 0;
  while (pos < src_len) {
    if (n >= cap) {
      result = 2;
      break;
    }
    const uint32_t trail = trailing(src[pos]);
    if (trail >= src_len - pos) {
      result = 1;
      break;
    }
    dst[n++] = decode_sequence(src + pos, trail);
    pos += trail + 1;
  }
  *chars = n;
  *bytes_written = 2 * n;
  return result;
}

uint32_t units_to_utf8(const uint16_t *src, uint32_t src_len_bytes, uint8_t *dst, uint32_t dst_capacity,
                       uint32_t *chars_done, uint32_t *bytes_written, bool ssse3) {
  const uint32_t units = src == nullptr ? 0 : src_len_bytes / 2;
  if (dst == nullptr) dst_capacity = 0;
  uint32_t i = 0;
  uint32_t out = 0;
  // Safe zone: eight units remain and room for 32 bytes (eight characters of
  // up to three bytes, the last store four bytes wide).
  if (ssse3) narrow_blocks_ssse3(src, units, dst, dst_capacity, &i, &out);
  else narrow_blocks(src, units, dst, dst_capacity, &i, &out);
  uint32_t result = 0;
  uint8_t bytes[4];
  for (; i < units; ++i) {
    const uint32_t need = encode_one(src[i], bytes);
    if (dst_capacity - out < need) {
      result = 2;
      break;
    }
    std::memcpy(dst + out, bytes, need);
    out += need;
  }
  *chars_done = i;
  *bytes_written = out;
  return result;
}

}  // namespace xfmt::text

extern "C" uint32_t UTF8ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                  uint32_t dst_capacity_bytes, uint32_t *chars,
                                  uint32_t *bytes_written) {
  return xfmt::text::utf8_to_units(src, src_len, dst, dst_capacity_bytes, chars, bytes_written,
                                   xfmt::text::have_ssse3());
}

extern "C" uint32_t UNICODEToUTF8(const uint16_t *src, uint32_t src_len_bytes, uint8_t *dst,
                                  uint32_t dst_capacity, uint32_t *chars_done,
                                  uint32_t *bytes_written) {
  return xfmt::text::units_to_utf8(src, src_len_bytes, dst, dst_capacity, chars_done, bytes_written,
                                   xfmt::text::have_ssse3());
}

extern "C" uint32_t LATIN1ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                    uint32_t dst_capacity_units, uint32_t *units_written) {
  if (src == nullptr) src_len = 0;
  if (dst == nullptr) dst_capacity_units = 0;
  const uint32_t n = src_len < dst_capacity_units ? src_len : dst_capacity_units;
  for (uint32_t i = 0; i < n; ++i) dst[i] = src[i];
  *units_written = n;
  return n < src_len ? 2u : 0u;
}
