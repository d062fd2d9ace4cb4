// UTF-8 to and from the encodings the routines use inside.
#include "column/utf8_text.hpp"

#include "xfmt/xfmt.h"

namespace xfmt::column {
namespace {

size_t utf8_size(uint32_t cp) { return cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4; }

// Writes cp at dst (room checked by the caller); returns the bytes written.
size_t put_utf8(uint32_t cp, unsigned char *dst) {
  if (cp < 0x80) {
    dst[0] = static_cast<unsigned char>(cp);
    return 1;
  }
  if (cp < 0x800) {
    dst[0] = static_cast<unsigned char>(0xC0 | (cp >> 6));
    dst[1] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    return 2;
  }
  if (cp < 0x10000) {
    dst[0] = static_cast<unsigned char>(0xE0 | (cp >> 12));
    dst[1] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
    dst[2] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    return 3;
  }
  dst[0] = static_cast<unsigned char>(0xF0 | (cp >> 18));
  dst[1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
  dst[2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
  dst[3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
  return 4;
}

}  // namespace

size_t utf8_length_of_1252(const unsigned char *src, size_t n) {
  size_t total = n;
  for (size_t i = 0; i < n; ++i)
    if (src[i] >= 0x80) total += utf8_size(wlt1unic[src[i]]) - 1;
  return total;
}

size_t expand_1252_in_place(unsigned char *buf, size_t n) {
  size_t total = utf8_length_of_1252(buf, n);
  // From the back, so that no byte is overwritten before it is read.
  size_t out = total;
  for (size_t i = n; i-- > 0;) {
    unsigned char b = buf[i];
    if (b < 0x80) {
      buf[--out] = b;
      continue;
    }
    unsigned char tmp[4];
    size_t k = put_utf8(wlt1unic[b], tmp);
    out -= k;
    for (size_t j = 0; j < k; ++j) buf[out + j] = tmp[j];
  }
  return total;
}

size_t utf8_from_utf16le(const unsigned char *src, size_t bytes, unsigned char *dst, size_t capacity) {
  size_t units = bytes / 2, total = 0;
  for (size_t i = 0; i < units; ++i) {
    uint32_t u = static_cast<uint32_t>(src[2 * i] | (src[2 * i + 1] << 8));
    if (u >= 0xD800 && u < 0xDC00 && i + 1 < units) {
      uint32_t lo = static_cast<uint32_t>(src[2 * i + 2] | (src[2 * i + 3] << 8));
      if (lo >= 0xDC00 && lo < 0xE000) {
        u = 0x10000 + ((u - 0xD800) << 10) + (lo - 0xDC00);
        ++i;
      }
    }
    if (u >= 0xD800 && u < 0xE000) u = 0xFFFD;
    size_t k = utf8_size(u);
    if (total + k <= capacity) put_utf8(u, dst + total);
    total += k;
  }
  return total;
}

int32_t next_code_point(const unsigned char *src, size_t n, size_t &i) {
  unsigned char b = src[i];
  if (b < 0x80) {
    ++i;
    return b;
  }
  size_t len;
  uint32_t cp, min;
  if ((b & 0xE0) == 0xC0) len = 2, cp = b & 0x1Fu, min = 0x80;
  else if ((b & 0xF0) == 0xE0) len = 3, cp = b & 0x0Fu, min = 0x800;
  else if ((b & 0xF8) == 0xF0) len = 4, cp = b & 0x07u, min = 0x10000;
  else return -1;
  if (n - i < len) return -1;
  for (size_t k = 1; k < len; ++k) {
    if ((src[i + k] & 0xC0) != 0x80) return -1;
    cp = (cp << 6) | (src[i + k] & 0x3Fu);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp < 0xE000)) return -1;
  i += len;
  return static_cast<int32_t>(cp);
}

int windows_1252_byte(int32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return cp;
  for (int b = 0x80; b < 0xA0; ++b)
    if (wlt1unic[b] == cp) return b;
  return -1;
}

text_result utf8_to_1252(const unsigned char *src, size_t n, unsigned char *dst, size_t capacity,
                         size_t &written) {
  written = 0;
  for (size_t i = 0; i < n;) {
    if (src[i] < 0x80) {  // the common case: ASCII
      if (written == capacity) return text_result::too_long;
      dst[written++] = src[i++];
      continue;
    }
    int32_t cp = next_code_point(src, n, i);
    if (cp < 0) return text_result::bad_utf8;
    int b = windows_1252_byte(cp);
    if (b < 0) return text_result::unrepresentable;
    if (written == capacity) return text_result::too_long;
    dst[written++] = static_cast<unsigned char>(b);
  }
  return text_result::ok;
}

text_result utf8_to_utf16(const unsigned char *src, size_t n, uint16_t *dst, size_t capacity, size_t &units) {
  units = 0;
  for (size_t i = 0; i < n;) {
    int32_t cp = next_code_point(src, n, i);
    if (cp < 0) return text_result::bad_utf8;
    size_t need = cp >= 0x10000 ? 2 : 1;
    if (units + need > capacity) return text_result::too_long;
    if (need == 2) {
      uint32_t v = static_cast<uint32_t>(cp) - 0x10000;
      dst[units++] = static_cast<uint16_t>(0xD800 + (v >> 10));
      dst[units++] = static_cast<uint16_t>(0xDC00 + (v & 0x3FF));
    } else {
      dst[units++] = static_cast<uint16_t>(cp);
    }
  }
  return text_result::ok;
}

}  // namespace xfmt::column
