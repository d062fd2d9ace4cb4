// Explicit levels and directions: the matching of isolate initiators and
// PDIs (BD9) and the directional status stack (X1-X8). X9's removal is not
// a copy: the removed characters keep their place and every later stage
// steps over them (bidi::is_removed on the original class).
#include "text/bidi.hpp"

namespace xfmt::text {

void bidi_match_isolates(bidi_paragraph &p) {
  // p.seq serves as the stack of open initiators; it is scratch until X10.
  uint32_t depth = 0;
  for (uint32_t i = 0; i < p.n; ++i) {
    p.match[i] = bidi::none;
    uint8_t c = p.cls[i];
    if (bidi::is_isolate_initiator(c)) {
      p.seq[depth++] = static_cast<uint16_t>(i);
    } else if (c == bidi::PDI && depth > 0) {
      uint16_t open = p.seq[--depth];
      p.match[open] = static_cast<uint16_t>(i);
      p.match[i] = open;
    }
  }
}

namespace {

struct status_entry {
  uint8_t level;
  uint8_t override_type;  // bidi::L, bidi::R, or bidi::ON for none
  bool isolate;
};

uint8_t next_odd(uint8_t level) { return static_cast<uint8_t>((level + 1) | 1); }
uint8_t next_even(uint8_t level) { return static_cast<uint8_t>((level + 2) & ~1); }

}  // namespace

void bidi_explicit_levels(bidi_paragraph &p) {
  // X1: the stack starts with the paragraph level; 125 levels plus the base
  // and one spare fit.
  status_entry stack[bidi::max_depth + 2];
  uint32_t top = 0;
  stack[0] = {p.base, bidi::ON, false};
  uint32_t overflow_isolates = 0;
  uint32_t overflow_embeddings = 0;
  uint32_t valid_isolates = 0;

  for (uint32_t i = 0; i < p.n; ++i) {
    uint8_t c = p.cls[i];
    p.type[i] = c;
    switch (c) {
      case bidi::RLE:
      case bidi::LRE:
      case bidi::RLO:
      case bidi::LRO: {  // X2-X5
        bool rtl = c == bidi::RLE || c == bidi::RLO;
        uint8_t level = rtl ? next_odd(stack[top].level) : next_even(stack[top].level);
        p.level[i] = stack[top].level;
        if (level <= bidi::max_depth && overflow_isolates == 0 && overflow_embeddings == 0) {
          uint8_t over = c == bidi::RLO ? bidi::R : c == bidi::LRO ? bidi::L : bidi::ON;
          stack[++top] = {level, over, false};
        } else if (overflow_isolates == 0) {
          ++overflow_embeddings;
        }
        break;
      }
      case bidi::RLI:
      case bidi::LRI:
      case bidi::FSI: {  // X5a-X5c
        p.level[i] = stack[top].level;
        if (stack[top].override_type != bidi::ON) p.type[i] = stack[top].override_type;
        bool rtl = c == bidi::RLI;
        if (c == bidi::FSI) {
          uint32_t end = p.match[i] != bidi::none ? p.match[i] : p.n;
          rtl = bidi_first_strong(p, i + 1, end) == 1;
        }
        uint8_t level = rtl ? next_odd(stack[top].level) : next_even(stack[top].level);
        if (level <= bidi::max_depth && overflow_isolates == 0 && overflow_embeddings == 0) {
          ++valid_isolates;
          stack[++top] = {level, bidi::ON, true};
        } else {
          ++overflow_isolates;
        }
        break;
      }
      case bidi::PDI:  // X6a
        if (overflow_isolates > 0) {
          --overflow_isolates;
        } else if (valid_isolates > 0) {
          overflow_embeddings = 0;
          while (!stack[top].isolate) --top;
          --top;
          --valid_isolates;
        }
        p.level[i] = stack[top].level;
        if (stack[top].override_type != bidi::ON) p.type[i] = stack[top].override_type;
        break;
      case bidi::PDF:  // X7
        p.level[i] = stack[top].level;
        if (overflow_isolates > 0) {
        } else if (overflow_embeddings > 0) {
          --overflow_embeddings;
        } else if (!stack[top].isolate && top > 0) {
          --top;
        }
        break;
      case bidi::B:  // X8: a paragraph separator ends every embedding
        p.level[i] = p.base;
        break;
      case bidi::BN:  // removed by X9
        p.level[i] = stack[top].level;
        break;
      default:  // X6
        p.level[i] = stack[top].level;
        if (stack[top].override_type != bidi::ON) p.type[i] = stack[top].override_type;
        break;
    }
  }
}

}  // namespace xfmt::text
