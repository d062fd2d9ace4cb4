// The bidirectional algorithm's driver: classification of the code points,
// the paragraph level (P2, P3) and the stages in order.
#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"

namespace xfmt::text {

void bidi_classify(bidi_paragraph &p) {
  for (uint32_t i = 0; i < p.n; ++i) {
    uint8_t props = bidi_props(p.cp[i]);
    p.cls[i] = props & bidi_class_bits;
    p.bracket[i] = props & (bidi_bracket_open | bidi_bracket_close);
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

void bidi_resolve(bidi_paragraph &p, int direction) {
  bidi_match_isolates(p);
  if (direction == bidi_auto)
    p.base = bidi_first_strong(p, 0, p.n) == 1 ? 1 : 0;
  else
    p.base = direction == bidi_rtl ? 1 : 0;
  if (p.n == 0) return;
  bidi_explicit_levels(p);
  bidi_resolve_sequences(p);
  bidi_implicit_levels(p);
  bidi_line_levels(p);
}

}  // namespace xfmt::text
