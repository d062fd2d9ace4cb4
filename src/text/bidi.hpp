// The Unicode Bidirectional Algorithm over one paragraph held in fixed-size
// work arrays. The stages live one per file:
//   bidi_paragraph.cpp  the driver, the paragraph level (P2, P3)
//   bidi_explicit.cpp   matching isolates (BD9), explicit levels (X1-X9)
//   bidi_runs.cpp       level runs and isolating run sequences (X10), I1-I2
//   bidi_weak.cpp       weak types (W1-W7)
//   bidi_brackets.cpp   bracket pairs (BD16) and their resolution (N0)
//   bidi_neutral.cpp    neutral and isolate types (N1, N2)
//   bidi_reorder.cpp    line levels (L1), visual order (L2), mirroring (L4)
// Nothing allocates; a paragraph holds at most bidi_max characters and the
// callers split longer text before it gets here.
#pragma once

#include <cstdint>

namespace xfmt::text {

namespace bidi {
// Bidi_Class values, in the order the generated table numbers them.
enum cls : uint8_t { L, R, AL, EN, ES, ET, AN, CS, NSM, BN, B, S, WS, ON, LRE, LRO, RLE, RLO, PDF, LRI, RLI, FSI, PDI };
inline constexpr uint8_t class_count = 23;
inline constexpr uint8_t max_depth = 125;
inline constexpr uint16_t none = 0xFFFF;  // no matching PDI

inline bool is_isolate_initiator(uint8_t c) { return c == LRI || c == RLI || c == FSI; }
// Characters that X9 takes out of the paragraph.
inline bool is_removed(uint8_t c) { return c == BN || (c >= LRE && c <= PDF); }
inline constexpr uint32_t bit(uint8_t c) { return 1u << c; }
// Classes that need the explicit stages; without them the paragraph is one
// level run at the paragraph level.
inline constexpr uint32_t explicit_bits =
    bit(BN) | bit(LRE) | bit(LRO) | bit(RLE) | bit(RLO) | bit(PDF) | bit(LRI) | bit(RLI) | bit(FSI) | bit(PDI);
}  // namespace bidi

// Characters of one paragraph the work arrays hold.
inline constexpr uint32_t bidi_max = 1024;

struct bidi_paragraph {
  uint32_t n;         // characters in use
  uint8_t base;       // paragraph embedding level, 0 or 1
  uint32_t cp[bidi_max];      // code points (0 when only classes are known)
  uint8_t cls[bidi_max];      // original Bidi_Class
  uint8_t type[bidi_max];     // the class as the rules resolve it
  uint8_t level[bidi_max];    // embedding level, then resolved level
  uint8_t flags[bidi_max];    // the property byte's mirrored and bracket bits
  uint32_t mask;              // bit 1 << c for every class c present (bidi_resolve)
  uint16_t match[bidi_max];   // an isolate initiator's matching PDI, or bidi::none
  uint16_t seq[bidi_max];     // scratch: the isolating run sequence in hand
};

// Base direction requests.
inline constexpr int bidi_ltr = 0;
inline constexpr int bidi_rtl = 1;
inline constexpr int bidi_auto = 2;  // from the first strong character, else left to right

// Fills cls and flags from p.cp[0..n) through the generated tables.
void bidi_classify(bidi_paragraph &p);

// Resolves the levels of the paragraph whose cls (and, for brackets and
// mirroring, cp and flags) are filled: every rule up to and including L1. Characters that X9
// removes get the level of the character before them (the paragraph level
// at the start), which keeps them next to it after reordering.
void bidi_resolve(bidi_paragraph &p, int direction);

// P2/P3 over cls[from, to): 0 for L, 1 for R or AL, -1 when no strong
// character comes before the end (isolates skipped through match).
int bidi_first_strong(const bidi_paragraph &p, uint32_t from, uint32_t to);

// Stages, in the order bidi_resolve runs them.
void bidi_match_isolates(bidi_paragraph &p);
void bidi_explicit_levels(bidi_paragraph &p);
void bidi_resolve_sequences(bidi_paragraph &p);
void bidi_weak_types(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos);
void bidi_bracket_pairs(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos, uint8_t level);
void bidi_neutral_types(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos, uint8_t eos, uint8_t level);
void bidi_implicit_levels(bidi_paragraph &p);
void bidi_line_levels(bidi_paragraph &p);

// L2: order[k] receives the logical index of the character shown at visual
// position k, for the levels in p.level[0..n).
void bidi_visual_order(const uint8_t *level, uint32_t n, uint16_t *order);

// L4: the mirroring glyph of every character at an odd level that has one.
void bidi_mirror_odd(bidi_paragraph &p);

}  // namespace xfmt::text
