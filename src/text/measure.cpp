// Counting characters of a text and how many of them fit a field.
#include "xfmt/xfmt.h"

#include <cstdint>

namespace {

bool double_byte_id(uint32_t id) {
  return (id >= 117 && id <= 160) || (id >= 165 && id <= 169) || id == 172 || id == 205 ||
         id == 206;
}

// UTF-8 characters in n bytes: each sequence by its lead byte's length, a
// sequence cut off by the end still counting once.
int32_t utf8_chars(const uint8_t *p, int32_t n) {
  int32_t count = 0;
  for (int32_t i = 0; i < n; i += bytesFromUTF8[p[i]]) ++count;
  return count;
}

inline int32_t min32(int32_t a, int32_t b) { return a < b ? a : b; }

}  // namespace

extern "C" int32_t getUnicodeWidthFromNarrow(uint32_t encoding_id, const void *text,
                                             int32_t characters, int32_t width) {
  if (characters < 0) characters = 0;
  if (width < 1) return 0;
  switch (encoding_id) {
    case 24:
    case 25: return min32(width / 2, characters);
    case 26:
    case 27: return min32(width / 4, characters);
    case XF_ENC_UTF8:
      if (text == nullptr) return 0;
      return min32(width, utf8_chars(static_cast<const uint8_t *>(text), characters));
    default: break;
  }
  if (!double_byte_id(encoding_id)) return min32(characters, width);
  if (text == nullptr) return 0;
  // A character whose high byte is set, or whose low byte is 0x80 or more,
  // is a double-width glyph; plain ASCII takes one position.
  const uint16_t *chars = static_cast<const uint16_t *>(text);
  int32_t used = 0;
  int32_t taken = 0;
  while (taken < characters) {
    const uint16_t c = chars[taken];
    const int32_t w = ((c >> 8) != 0 || (c & 0xFF) >= 0x80) ? 2 : 1;
    if (used + w > width) break;
    used += w;
    ++taken;
  }
  return taken;
}

extern "C" int32_t NLSNUMCHAR(uint32_t encoding_id, const uint8_t *text, int32_t length) {
  if (text == nullptr || length < 1) return 0;
  switch (encoding_id) {
    case XF_ENC_UTF8: return utf8_chars(text, length);
    case 24:
    case 25: {
      const int32_t hi = encoding_id == 24 ? 0 : 1;
      int32_t count = 0;
      for (int32_t i = 0; i + 1 < length; i += 2) {
        const uint8_t high_byte = text[i + hi];
        // A high surrogate followed by a low one is a single character.
        if (high_byte >= 0xD8 && high_byte <= 0xDB && i + 3 < length) {
          const uint8_t next = text[i + 2 + hi];
          if (next >= 0xDC && next <= 0xDF) i += 2;
        }
        ++count;
      }
      return count;
    }
    case 26:
    case 27: return length / 4;
    default: return length;
  }
}
