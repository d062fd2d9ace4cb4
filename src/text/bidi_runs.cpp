// Level runs and isolating run sequences (BD13, X10), each resolved through
// the weak, bracket and neutral stages; then the implicit levels (I1, I2).
// A sequence is gathered into p.seq as logical indices, removed characters
// left out, so the stages see the characters X9 leaves and nothing else.
#include "text/bidi.hpp"

namespace xfmt::text {
namespace {

uint8_t direction_of_level(uint32_t level) { return (level & 1) ? bidi::R : bidi::L; }

// Level of the first character before i that X9 keeps, or the paragraph's.
uint8_t level_before(const bidi_paragraph &p, uint32_t i) {
  while (i > 0) {
    --i;
    if (!bidi::is_removed(p.cls[i])) return p.level[i];
  }
  return p.base;
}

uint8_t level_after(const bidi_paragraph &p, uint32_t i) {
  for (++i; i < p.n; ++i)
    if (!bidi::is_removed(p.cls[i])) return p.level[i];
  return p.base;
}

// Appends the level run that starts at i (a kept character) to p.seq from
// position m; returns the new length and the run's last character in last.
uint32_t append_run(bidi_paragraph &p, uint32_t i, uint32_t m, uint32_t &last) {
  const uint8_t level = p.level[i];
  for (; i < p.n; ++i) {
    if (bidi::is_removed(p.cls[i])) continue;
    if (p.level[i] != level) break;
    p.seq[m++] = static_cast<uint16_t>(i);
    last = i;
  }
  return m;
}

}  // namespace

void bidi_resolve_sequences(bidi_paragraph &p) {
  bool have_prev = false;
  uint8_t prev_level = 0;
  for (uint32_t i = 0; i < p.n; ++i) {
    if (bidi::is_removed(p.cls[i])) continue;
    bool run_start = !have_prev || p.level[i] != prev_level;
    have_prev = true;
    prev_level = p.level[i];
    if (!run_start) continue;
    // A run that opens with a matched PDI continues its initiator's
    // sequence and was resolved with it.
    if (p.cls[i] == bidi::PDI && p.match[i] != bidi::none) continue;

    const uint8_t level = p.level[i];
    uint32_t m = 0, last = i;
    m = append_run(p, i, m, last);
    while (bidi::is_isolate_initiator(p.cls[last]) && p.match[last] != bidi::none)
      m = append_run(p, p.match[last], m, last);

    uint32_t before = level_before(p, i);
    uint8_t sos = direction_of_level(before > level ? before : level);
    uint32_t after = bidi::is_isolate_initiator(p.cls[last]) ? p.base : level_after(p, last);
    uint8_t eos = direction_of_level(after > level ? after : level);

    bidi_weak_types(p, p.seq, m, sos);
    bidi_bracket_pairs(p, p.seq, m, sos, level);
    bidi_neutral_types(p, p.seq, m, sos, eos, level);
  }
}

namespace {

// What I1 (even levels) and I2 (odd levels) add, by resolved type. After the
// neutral stage only L, R, EN and AN are left among the kept characters;
// removed ones keep their type and add nothing.
struct implicit_table {
  uint8_t add[2][bidi::class_count];
  constexpr implicit_table() : add() {
    add[0][bidi::R] = 1;
    add[0][bidi::AN] = 2;
    add[0][bidi::EN] = 2;
    add[1][bidi::L] = 1;
    add[1][bidi::EN] = 1;
    add[1][bidi::AN] = 1;
  }
};
constexpr implicit_table implicit{};

}  // namespace

void bidi_implicit_levels(bidi_paragraph &p) {
  const bool removed = p.mask & bidi::explicit_bits;
  for (uint32_t i = 0; i < p.n; ++i) {
    if (removed && bidi::is_removed(p.cls[i])) continue;
    p.level[i] = static_cast<uint8_t>(p.level[i] + implicit.add[p.level[i] & 1][p.type[i]]);
  }
}

}  // namespace xfmt::text
