// The generated bidirectional property tables (bidi_tables.cpp) and their
// lookups: the class, the mirroring glyph and the bracket key of a code point.
#pragma once

#include <cstdint>

namespace xfmt::text {

extern const char bidi_unicode_version[];
extern const uint16_t bidi_stage1[];
extern const uint8_t bidi_stage2[];
extern const uint32_t bidi_mirror_count;
extern const uint32_t bidi_mirror_from[];
extern const uint32_t bidi_mirror_to[];
extern const uint32_t bidi_bracket_count;
extern const uint32_t bidi_bracket_cp[];
extern const uint32_t bidi_bracket_key[];

// Bits of a property byte.
inline constexpr uint8_t bidi_class_bits = 0x1F;
inline constexpr uint8_t bidi_mirrored_bit = 0x20;
inline constexpr uint8_t bidi_bracket_open = 0x40;
inline constexpr uint8_t bidi_bracket_close = 0x80;

// The property byte of a code point; a value above U+10FFFF (a decoder's
// garbage) reads as plain left to right, 0.
inline uint8_t bidi_props(uint32_t cp) {
  if (cp >= 0x110000) return 0;
  return bidi_stage2[(uint32_t{bidi_stage1[cp >> 7]} << 7) | (cp & 0x7F)];
}

// Index of cp in a sorted table of count code points, or count when absent.
inline uint32_t bidi_find(const uint32_t *table, uint32_t count, uint32_t cp) {
  uint32_t lo = 0, hi = count;
  while (lo < hi) {
    uint32_t mid = (lo + hi) / 2;
    if (table[mid] < cp)
      lo = mid + 1;
    else
      hi = mid;
  }
  return lo < count && table[lo] == cp ? lo : count;
}

// The mirroring glyph of cp, or cp itself when it has none.
inline uint32_t bidi_mirror(uint32_t cp) {
  uint32_t k = bidi_find(bidi_mirror_from, bidi_mirror_count, cp);
  return k < bidi_mirror_count ? bidi_mirror_to[k] : cp;
}

// The key that pairs brackets: an opening bracket's is the canonical form of
// its partner, a closing bracket's its own canonical form. 0 for others.
inline uint32_t bidi_bracket_key_of(uint32_t cp) {
  uint32_t k = bidi_find(bidi_bracket_cp, bidi_bracket_count, cp);
  return k < bidi_bracket_count ? bidi_bracket_key[k] : 0;
}

}  // namespace xfmt::text
