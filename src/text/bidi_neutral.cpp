// Neutral and isolate types (N1, N2) over the isolating run sequence in
// seq[0, m): a run of neutrals between two strong types of the same
// direction takes it (numbers count as R), any other run the embedding
// direction.
#include "text/bidi.hpp"

namespace xfmt::text {
namespace {

using bidi::bit;
constexpr uint32_t neutral_bits =
    bit(bidi::B) | bit(bidi::S) | bit(bidi::WS) | bit(bidi::ON) | bit(bidi::LRI) | bit(bidi::RLI) | bit(bidi::FSI) | bit(bidi::PDI);

bool is_neutral(uint8_t t) { return (neutral_bits >> t) & 1u; }

uint8_t strong_of(uint8_t t) { return t == bidi::L ? uint8_t{bidi::L} : uint8_t{bidi::R}; }

}  // namespace

void bidi_neutral_types(bidi_paragraph &p, const uint16_t *seq, uint32_t m, uint8_t sos, uint8_t eos, uint8_t level) {
  uint8_t *__restrict t = p.type;
  const uint16_t *__restrict s = seq;
  const uint8_t embedding = (level & 1) ? bidi::R : bidi::L;
  for (uint32_t k = 0; k < m;) {
    if (!is_neutral(t[s[k]])) {
      ++k;
      continue;
    }
    uint32_t end = k;
    while (end < m && is_neutral(t[s[end]])) ++end;
    uint8_t before = k == 0 ? sos : strong_of(t[s[k - 1]]);
    uint8_t after = end == m ? eos : strong_of(t[s[end]]);
    uint8_t dir = before == after ? before : embedding;
    for (uint32_t j = k; j < end; ++j) t[s[j]] = dir;
    k = end;
  }
}

}  // namespace xfmt::text
