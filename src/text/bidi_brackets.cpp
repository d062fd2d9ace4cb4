// Bracket pairs (BD16) and their resolution (N0) over the isolating run
// sequence in seq[0, m). Pairs are found with a stack of 63 openings, as
// the algorithm fixes it: a 64th unclosed opening ends the search for the
// rest of the sequence.
#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"

namespace xfmt::text {
namespace {

constexpr uint32_t bracket_stack_size = 63;

struct bracket_pair {
  uint16_t open;   // positions in p.seq
  uint16_t close;
};

// L, R (numbers count as R) or ON for anything without a strong direction.
uint8_t strong_of(uint8_t t) {
  if (t == bidi::L) return bidi::L;
  if (t == bidi::R || t == bidi::EN || t == bidi::AN) return bidi::R;
  return bidi::ON;
}

// BD16: the pairs of the sequence, sorted by their opening position; returns
// their count. pairs has room for m / 2 entries.
uint32_t find_pairs(const bidi_paragraph &p, const uint16_t *seq, uint32_t m, bracket_pair *pairs) {
  uint32_t keys[bracket_stack_size];
  uint16_t where[bracket_stack_size];
  uint32_t depth = 0, count = 0;
  for (uint32_t k = 0; k < m; ++k) {
    uint32_t i = seq[k];
    if ((p.flags[i] & (bidi_bracket_open | bidi_bracket_close)) == 0 || p.type[i] != bidi::ON) continue;
    if (p.flags[i] & bidi_bracket_open) {
      if (depth == bracket_stack_size) break;
      keys[depth] = bidi_bracket_key_of(p.cp[i]);
      where[depth++] = static_cast<uint16_t>(k);
      continue;
    }
    uint32_t key = bidi_bracket_key_of(p.cp[i]);
    for (uint32_t d = depth; d > 0; --d) {
      if (keys[d - 1] != key) continue;
      // Insert in order of the opening bracket; pairs close inner first, so
      // the new pair usually goes near the end.
      uint32_t at = count++;
      while (at > 0 && pairs[at - 1].open > where[d - 1]) {
        pairs[at] = pairs[at - 1];
        --at;
      }
      pairs[at] = {where[d - 1], static_cast<uint16_t>(k)};
      depth = d - 1;
      break;
    }
  }
  return count;
}

// Nonspacing marks right after a bracket that N0 changed follow it.
void carry_to_marks(bidi_paragraph &p, const uint16_t *seq, uint32_t k, uint32_t m, uint8_t dir) {
  for (++k; k < m && p.cls[seq[k]] == bidi::NSM; ++k) p.type[seq[k]] = dir;
}

bool has_brackets(const bidi_paragraph &p, const uint16_t *seq, uint32_t m) {
  uint8_t any = 0;
  for (uint32_t k = 0; k < m; ++k) any |= p.flags[seq[k]];
  return (any & (bidi_bracket_open | bidi_bracket_close)) != 0;
}

}  // namespace

void bidi_bracket_pairs(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos, uint8_t level) {
  if (!(p.mask & bidi::bit(bidi::ON)) || !has_brackets(p, seq, m)) return;
  bracket_pair pairs[bidi_max / 2];
  uint32_t count = find_pairs(p, seq, m, pairs);
  const uint8_t embedding = (level & 1) ? bidi::R : bidi::L;
  const uint8_t opposite = embedding == bidi::L ? bidi::R : bidi::L;
  for (uint32_t n = 0; n < count; ++n) {
    const bracket_pair pr = pairs[n];
    bool same = false, other = false;
    for (uint32_t k = pr.open + 1u; k < pr.close && !same; ++k) {
      uint8_t d = strong_of(p.type[seq[k]]);
      same = d == embedding;
      other = other || d == opposite;
    }
    uint8_t dir;
    if (same) {
      dir = embedding;  // N0 b
    } else if (other) {  // N0 c: the context before the opening bracket decides
      uint8_t context = sos;
      for (uint32_t k = pr.open; k > 0; --k) {
        uint8_t d = strong_of(p.type[seq[k - 1]]);
        if (d != bidi::ON) {
          context = d;
          break;
        }
      }
      dir = context == opposite ? opposite : embedding;
    } else {
      continue;  // N0 d: no strong type inside, the pair stays neutral
    }
    p.type[seq[pr.open]] = dir;
    p.type[seq[pr.close]] = dir;
    if (p.mask & bidi::bit(bidi::NSM)) {
      carry_to_marks(p, seq, pr.open, m, dir);
      carry_to_marks(p, seq, pr.close, m, dir);
    }
  }
}

}  // namespace xfmt::text
