// One character at a time between UTF-16 (with surrogate pairs) and code
// points, in both byte orders, and whole UTF-32 texts to UTF-16.
#include "xfmt/xfmt.h"

#include <cstdint>

namespace {

constexpr uint32_t replacement = 0xFFFD;

inline uint32_t unit_at(const uint8_t *p, bool big_endian) {
  return big_endian ? (uint32_t{p[0]} << 8 | p[1]) : (uint32_t{p[1]} << 8 | p[0]);
}
inline void put_unit(uint8_t *p, uint32_t u, bool big_endian) {
  p[big_endian ? 0 : 1] = static_cast<uint8_t>(u >> 8);
  p[big_endian ? 1 : 0] = static_cast<uint8_t>(u);
}

uint32_t decode16(const uint8_t *src, uint32_t avail, uint32_t *cp, uint32_t *used, bool big) {
  if (src == nullptr || avail < 2) {
    *cp = replacement;
    *used = src == nullptr ? 0 : avail;
    return XF_TX_CUT_OFF;
  }
  const uint32_t u = unit_at(src, big);
  if (u < 0xD800 || u > 0xDFFF) {
    *cp = u;
    *used = 2;
    return XF_OK;
  }
  if (u >= 0xDC00) {  // a low surrogate with no high one before it
    *cp = replacement;
    *used = 2;
    return XF_TX_BAD_LEAD;
  }
  if (avail < 4) {
    *cp = replacement;
    *used = avail;
    return XF_TX_CUT_OFF;
  }
  const uint32_t low = unit_at(src + 2, big);
  if (low < 0xDC00 || low > 0xDFFF) {  // the partner is not a low surrogate: keep it for next time
    *cp = replacement;
    *used = 2;
    return XF_TX_BAD_LEAD;
  }
  // D83D DE00: 0x10000 + (0x3D << 10) + 0x200 = U+1F600.
  *cp = 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00);
  *used = 4;
  return XF_OK;
}

uint32_t encode16(uint32_t cp, uint8_t *dst, uint32_t space, uint32_t *written, bool big) {
  *written = 0;
  if (cp > 0x10FFFF) return XF_TX_BAD_LEAD;
  const uint32_t need = cp < 0x10000 ? 2u : 4u;
  if (dst == nullptr || space < need) return XF_TX_OUTPUT_SMALL;
  if (need == 2) {
    put_unit(dst, cp, big);
  } else {
    const uint32_t v = cp - 0x10000;
    put_unit(dst, 0xD800 + (v >> 10), big);
    put_unit(dst + 2, 0xDC00 + (v & 0x3FF), big);
  }
  *written = need;
  return XF_OK;
}

}  // namespace

extern "C" uint32_t UTF16_UTF32(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                                uint32_t *used) {
  return decode16(src, avail, code_point, used, true);
}

extern "C" uint32_t UTF16_UTF32_SWAP(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                                     uint32_t *used) {
  return decode16(src, avail, code_point, used, false);
}

extern "C" uint32_t UTF32_UTF16(uint32_t code_point, uint8_t *dst, uint32_t space, uint32_t *written) {
  return encode16(code_point, dst, space, written, true);
}

extern "C" uint32_t UTF32_UTF16_SWAP(uint32_t code_point, uint8_t *dst, uint32_t space,
                                     uint32_t *written) {
  return encode16(code_point, dst, space, written, false);
}

extern "C" uint32_t UTF32_UTF16s(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                                 uint32_t capacity, uint32_t *out_len) {
  return ConvertFromUTF32(src, src_len, 1, dst, capacity, out_len, UTF32_UTF16);
}

extern "C" uint32_t UTF32_UTF16s_SWAP(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                                      uint32_t capacity, uint32_t *out_len) {
  return ConvertFromUTF32(src, src_len, 0, dst, capacity, out_len, UTF32_UTF16_SWAP);
}
