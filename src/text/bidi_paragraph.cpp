// The bidirectional algorithm's driver: classification of the code points,
// the paragraph level (P2, P3) and the stages in order.
#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"

namespace xfmt::text {

void bidi_classify(bidi_paragraph &p) {
  for (uint32_t i = 0; i < p.n; ++i) {
    uint8_t props = bidi_props(p.cp[i]);
    p.cls[i] = props & bidi_class_bits;
    p.flags[i] = props & static_cast<uint8_t>(~bidi_class_bits);
  }
}

int bidi_first_strong(const bidi_paragraph &p, uint32_t from, uint32_t to) {
  for (uint32_t i = from; i < to; ++i) {
    uint8_t c = p.cls[i];
    if (c == bidi::L) return 0;
    if (c == bidi::R || c == bidi::AL) return 1;
    if (bidi::is_isolate_initiator(c)) {
      // Skip to the matching PDI; an isolate left open runs to the end.
      if (p.match[i] == bidi::none) return -1;
      i = p.match[i];
    }
  }
  return -1;
}

namespace {

constexpr struct identity_table {
  uint16_t v[bidi_max];
  constexpr identity_table() : v() {
    for (uint32_t i = 0; i < bidi_max; ++i) v[i] = static_cast<uint16_t>(i);
  }
} identity{};

}  // namespace

void bidi_resolve(bidi_paragraph &p, int direction) {
  uint32_t mask = 0;
  for (uint32_t i = 0; i < p.n; ++i) mask |= bidi::bit(p.cls[i]);
  p.mask = mask;
  // Without isolates nothing is matched, and first_strong never reads match.
  if (mask & bidi::explicit_bits) bidi_match_isolates(p);
  if (direction == bidi_auto)
    p.base = bidi_first_strong(p, 0, p.n) == 1 ? 1 : 0;
  else
    p.base = direction == bidi_rtl ? 1 : 0;
  if (p.n == 0) return;
  if (mask & bidi::explicit_bits) {
    bidi_explicit_levels(p);
    bidi_resolve_sequences(p);
  } else {
    // The common case: no embeddings, isolates or removed characters, so
    // the whole paragraph is one isolating run sequence at the paragraph
    // level, bounded by it on both sides.
    for (uint32_t i = 0; i < p.n; ++i) {
      p.type[i] = p.cls[i];
      p.level[i] = p.base;
    }
    const uint8_t edge = p.base ? bidi::R : bidi::L;
    bidi_weak_types(p, identity.v, p.n, edge);
    bidi_bracket_pairs(p, identity.v, p.n, edge, p.base);
    bidi_neutral_types(p, identity.v, p.n, edge, edge, p.base);
  }
  bidi_implicit_levels(p);
  bidi_line_levels(p);
}

}  // namespace xfmt::text
