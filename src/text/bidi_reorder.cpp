// Line levels (L1), the visual order (L2) and mirroring (L4). The text of a
// paragraph is one line: a field has no line breaks.
#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"

namespace xfmt::text {
namespace {

// Characters whose level L1 puts back to the paragraph's when they trail
// the line or stand before a separator; removed characters go with them.
using bidi::bit;
constexpr uint32_t trailing_bits = bit(bidi::WS) | bit(bidi::LRI) | bit(bidi::RLI) | bit(bidi::FSI) | bit(bidi::PDI) |
                                   bit(bidi::BN) | bit(bidi::LRE) | bit(bidi::LRO) | bit(bidi::RLE) | bit(bidi::RLO) |
                                   bit(bidi::PDF);

bool trails(uint8_t c) { return (trailing_bits >> c) & 1u; }

}  // namespace

void bidi_line_levels(bidi_paragraph &p) {
  // Removed characters first take the level of the character before them.
  if (p.mask & bidi::explicit_bits) {
    uint8_t prev = p.base;
    for (uint32_t i = 0; i < p.n; ++i) {
      if (bidi::is_removed(p.cls[i]))
        p.level[i] = prev;
      else
        prev = p.level[i];
    }
  }
  // L1, from the end: a run of trailing characters reaching the end of the
  // line or a separator goes to the paragraph level, and so do separators.
  bool resetting = true;
  for (uint32_t i = p.n; i > 0; --i) {
    uint8_t c = p.cls[i - 1];
    if (c == bidi::S || c == bidi::B) {
      p.level[i - 1] = p.base;
      resetting = true;
    } else if (trails(c)) {
      if (resetting) p.level[i - 1] = p.base;
    } else {
      resetting = false;
    }
  }
}

void bidi_visual_order(const uint8_t *level, uint32_t n, uint16_t *order) {
  uint8_t highest = 0, lowest_odd = 0xFF;
  for (uint32_t i = 0; i < n; ++i) {
    order[i] = static_cast<uint16_t>(i);
    if (level[i] > highest) highest = level[i];
    if ((level[i] & 1) && level[i] < lowest_odd) lowest_odd = level[i];
  }
  if (highest == 0) return;  // all left to right at level 0
  // From the highest level down to the lowest odd one, every maximal run at
  // that level or above is reversed.
  for (uint32_t lv = highest; lv >= lowest_odd && lv > 0; --lv) {
    for (uint32_t k = 0; k < n;) {
      if (level[order[k]] < lv) {
        ++k;
        continue;
      }
      uint32_t end = k;
      while (end < n && level[order[end]] >= lv) ++end;
      for (uint32_t a = k, b = end - 1; a < b; ++a, --b) {
        uint16_t x = order[a];
        order[a] = order[b];
        order[b] = x;
      }
      k = end;
    }
  }
}

void bidi_mirror_odd(bidi_paragraph &p) {
  for (uint32_t i = 0; i < p.n; ++i)
    if ((p.level[i] & 1) && (p.flags[i] & bidi_mirrored_bit)) p.cp[i] = bidi_mirror(p.cp[i]);
}

}  // namespace xfmt::text
