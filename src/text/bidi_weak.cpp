// Weak types (W1-W7) over the isolating run sequence in p.seq[0, m). Each
// rule is a pass of its own because each reads what the one before decided.
#include "text/bidi.hpp"

namespace xfmt::text {

void bidi_weak_types(bidi_paragraph &p, uint32_t m, uint8_t sos, uint8_t /*eos*/) {
  uint8_t *t = p.type;
  const uint16_t *s = p.seq;

  // W1: a nonspacing mark takes the type before it (ON after an isolate
  // initiator or PDI, sos at the start).
  uint8_t prev = sos;
  for (uint32_t k = 0; k < m; ++k) {
    uint8_t &c = t[s[k]];
    if (c == bidi::NSM) c = prev;
    prev = bidi::is_isolate_initiator(c) || c == bidi::PDI ? uint8_t{bidi::ON} : c;
  }

  // W2: a European number after Arabic letters is an Arabic number. W3: AL
  // becomes R (done in the same pass, after W2 has looked at it).
  uint8_t strong = sos;
  for (uint32_t k = 0; k < m; ++k) {
    uint8_t &c = t[s[k]];
    if (c == bidi::L || c == bidi::R || c == bidi::AL) {
      strong = c;
      if (c == bidi::AL) c = bidi::R;
    } else if (c == bidi::EN && strong == bidi::AL) {
      c = bidi::AN;
    }
  }

  // W4: one separator between two numbers of the same kind joins them.
  for (uint32_t k = 1; k + 1 < m; ++k) {
    uint8_t &c = t[s[k]];
    uint8_t before = t[s[k - 1]], after = t[s[k + 1]];
    if (c == bidi::ES && before == bidi::EN && after == bidi::EN)
      c = bidi::EN;
    else if (c == bidi::CS && before == after && (before == bidi::EN || before == bidi::AN))
      c = before;
  }

  // W5: terminators next to a European number join it.
  for (uint32_t k = 0; k < m;) {
    if (t[s[k]] != bidi::ET) {
      ++k;
      continue;
    }
    uint32_t end = k;
    while (end < m && t[s[end]] == bidi::ET) ++end;
    bool touches = (k > 0 && t[s[k - 1]] == bidi::EN) || (end < m && t[s[end]] == bidi::EN);
    if (touches)
      for (uint32_t j = k; j < end; ++j) t[s[j]] = bidi::EN;
    k = end;
  }

  // W6: remaining separators and terminators are neutral. W7: a European
  // number under a left-to-right context is L.
  strong = sos;
  for (uint32_t k = 0; k < m; ++k) {
    uint8_t &c = t[s[k]];
    if (c == bidi::ES || c == bidi::ET || c == bidi::CS)
      c = bidi::ON;
    else if (c == bidi::L || c == bidi::R)
      strong = c;
    else if (c == bidi::EN && strong == bidi::L)
      c = bidi::L;
  }
}

}  // namespace xfmt::text
