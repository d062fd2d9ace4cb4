// Weak types (W1-W7) over the isolating run sequence seq[0, m). A rule
// whose classes the paragraph lacks is skipped (p.mask): most text has no
// nonspacing marks, Arabic letters or separators between numbers. After W1
// every type is a class of the paragraph, L, R or ON, so the mask of the
// original classes is enough to decide.
#include "text/bidi.hpp"

namespace xfmt::text {
namespace {

using bidi::bit;

// W1-W3 in one pass: each only looks back, at what the pass already
// decided. W1: a nonspacing mark takes the type before it (ON after an
// isolate initiator or PDI, sos at the start). W2: a European number after
// an Arabic letter (the last strong type, before W3) is an Arabic number.
// W3: AL becomes R.
void marks_and_arabic(uint8_t *__restrict t, const uint16_t *__restrict s, uint32_t m, uint8_t sos) {
  uint8_t prev = sos, strong = sos;
  for (uint32_t k = 0; k < m; ++k) {
    uint8_t c = t[s[k]];
    if (c == bidi::NSM) c = prev;
    prev = bidi::is_isolate_initiator(c) || c == bidi::PDI ? uint8_t{bidi::ON} : c;
    if (c == bidi::L || c == bidi::R || c == bidi::AL) {
      strong = c;
      if (c == bidi::AL) c = bidi::R;
    } else if (c == bidi::EN && strong == bidi::AL) {
      c = bidi::AN;
    }
    t[s[k]] = c;
  }
}

// W4: one separator between two numbers of the same kind joins them.
void single_separators(uint8_t *__restrict t, const uint16_t *__restrict s, uint32_t m) {
  for (uint32_t k = 1; k + 1 < m; ++k) {
    uint8_t c = t[s[k]];
    if (c != bidi::ES && c != bidi::CS) continue;
    uint8_t before = t[s[k - 1]], after = t[s[k + 1]];
    if (c == bidi::ES && before == bidi::EN && after == bidi::EN)
      t[s[k]] = bidi::EN;
    else if (c == bidi::CS && before == after && (before == bidi::EN || before == bidi::AN))
      t[s[k]] = before;
  }
}

// W5: terminators next to a European number join it.
void terminators(uint8_t *__restrict t, const uint16_t *__restrict s, uint32_t m) {
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
}

// W6: remaining separators and terminators are neutral. W7: a European
// number under a left-to-right context is L.
void neutral_separators_and_numbers(uint8_t *__restrict t, const uint16_t *__restrict s, uint32_t m, uint8_t sos) {
  uint8_t strong = sos;
  for (uint32_t k = 0; k < m; ++k) {
    uint8_t c = t[s[k]];
    if (c == bidi::ES || c == bidi::ET || c == bidi::CS)
      t[s[k]] = bidi::ON;
    else if (c == bidi::L || c == bidi::R)
      strong = c;
    else if (c == bidi::EN && strong == bidi::L)
      t[s[k]] = bidi::L;
  }
}

}  // namespace

void bidi_weak_types(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos) {
  const uint32_t mask = p.mask;
  if (mask & (bit(bidi::NSM) | bit(bidi::AL))) marks_and_arabic(p.type, seq, m, sos);
  if ((mask & (bit(bidi::ES) | bit(bidi::CS))) && (mask & (bit(bidi::EN) | bit(bidi::AN))))
    single_separators(p.type, seq, m);
  if ((mask & bit(bidi::ET)) && (mask & bit(bidi::EN))) terminators(p.type, seq, m);
  if (mask & (bit(bidi::ES) | bit(bidi::ET) | bit(bidi::CS) | bit(bidi::EN)))
    neutral_separators_and_numbers(p.type, seq, m, sos);
}

}  // namespace xfmt::text
