// The SSSE3 block loops of the UTF-8 <-> UTF-16 conversions: a pshufb
// gathers the units of sixteen bytes of ASCII and two-byte sequences, or
// drops the unused byte of eight units below 0x800. Compiled for SSSE3 by
// function attribute; called only after a run-time check of the processor.
#include "text/utf16_kernels.hpp"

#if defined(__SSE2__) && (defined(__GNUC__) || defined(__clang__))
#include <tmmintrin.h>  // SSSE3 pshufb
#endif

namespace xfmt::text {

#if defined(__SSE2__) && (defined(__GNUC__) || defined(__clang__))

bool have_ssse3() { return __builtin_cpu_supports("ssse3"); }

namespace {

// For eight byte positions, indexed by the mask of those that start a
// character: the pshufb pattern gathering their 16-bit lanes to the front
// (4 KiB), and how many there are.
struct gather_table {
  uint8_t shuffle[256][16];
  uint8_t count[256];
};
constexpr gather_table gather = [] {
  gather_table t{};
  for (uint32_t mask = 0; mask < 256; ++mask) {
    uint32_t n = 0;
    for (uint32_t lane = 0; lane < 8; ++lane) {
      if (!(mask >> lane & 1)) continue;
      t.shuffle[mask][2 * n] = static_cast<uint8_t>(2 * lane);
      t.shuffle[mask][2 * n + 1] = static_cast<uint8_t>(2 * lane + 1);
      ++n;
    }
    t.count[mask] = static_cast<uint8_t>(n);
    for (uint32_t k = 2 * n; k < 16; ++k) t.shuffle[mask][k] = 0x80;
  }
  return t;
}();

// The units of eight byte positions: each lane pairs a byte with the next
// one; an ASCII byte is its own unit, a two-byte lead combines with its
// continuation. Lanes of positions outside keep are dropped.
__attribute__((target("ssse3"))) inline void widen_half(__m128i pairs, uint32_t keep, uint16_t *dst,
                                                         uint32_t *n) {
  const __m128i low = _mm_and_si128(pairs, _mm_set1_epi16(0xFF));
  const __m128i high = _mm_srli_epi16(pairs, 8);
  const __m128i two = _mm_or_si128(_mm_slli_epi16(_mm_and_si128(low, _mm_set1_epi16(0x1F)), 6),
                                   _mm_and_si128(high, _mm_set1_epi16(0x3F)));
  const __m128i ascii = _mm_cmplt_epi16(low, _mm_set1_epi16(0x80));
  const __m128i units = _mm_or_si128(_mm_and_si128(ascii, low), _mm_andnot_si128(ascii, two));
  const __m128i pattern = _mm_loadu_si128(reinterpret_cast<const __m128i *>(gather.shuffle[keep]));
  _mm_storeu_si128(reinterpret_cast<__m128i *>(dst + *n), _mm_shuffle_epi8(units, pattern));
  *n += gather.count[keep];
}

// Up to sixteen bytes of ASCII and well-formed two-byte sequences (the
// commonest non-ASCII text: Latin, Greek, Cyrillic, Hebrew, Arabic) in one
// step, then the longer character that ended them, if one did. Returns
// false, writing nothing, when the block does not start that way or has a
// continuation byte not after a lead or a lead not followed by one.
__attribute__((target("ssse3"))) inline bool widen_block_ssse3(const uint8_t *src, uint16_t *dst,
                                                                uint32_t *pos, uint32_t *n) {
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(src + *pos));
  const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i *>(src + *pos + 1));
  const __m128i top2 = _mm_and_si128(bytes, _mm_set1_epi8(static_cast<char>(0xC0)));
  const __m128i top3 = _mm_and_si128(bytes, _mm_set1_epi8(static_cast<char>(0xE0)));
  const uint32_t cont = static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(top2, _mm_set1_epi8(static_cast<char>(0x80)))));
  const uint32_t lead2 = static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(top3, _mm_set1_epi8(static_cast<char>(0xC0)))));
  const uint32_t long_lead = static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(top3, _mm_set1_epi8(static_cast<char>(0xE0)))));
  // The bytes before the first lead of three or more bytes, less a two-byte
  // lead at their end (its continuation lies beyond them).
  const uint32_t first_long = long_lead != 0 ? static_cast<uint32_t>(std::countr_zero(long_lead)) : 16u;
  uint32_t used = first_long;
  if (used > 0 && (lead2 >> (used - 1) & 1u)) --used;
  if (used == 0) {
    if (first_long != 0) return false;  // a two-byte lead first: the plain step takes it
    *pos += decode_one(src + *pos, dst + *n);
    ++*n;
    return true;
  }
  const uint32_t in_block = (1u << used) - 1;
  // Every continuation in the block follows a lead and every lead is
  // followed by one inside the block: C9 CA FB leaves C9 alone, and C9 needs
  // the byte after it.
  if ((cont & in_block) != ((lead2 << 1) & in_block) || (lead2 >> (used - 1) & 1u)) return false;
  const uint32_t starts = ~cont & in_block;
  widen_half(_mm_unpacklo_epi8(bytes, next), starts & 0xFFu, dst, n);
  widen_half(_mm_unpackhi_epi8(bytes, next), starts >> 8, dst, n);
  *pos += used;
  // The long character that stopped the block, decoded right away.
  if (used == first_long) {
    *pos += decode_one(src + *pos, dst + *n);
    ++*n;
  }
  return true;
}

}  // namespace

__attribute__((target("ssse3"))) void widen_blocks_ssse3(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                                         uint32_t cap, uint32_t *pos, uint32_t *n) {
  while (src_len - *pos >= 32 && cap - *n >= 32) {
    if (!widen_block_ssse3(src, dst, pos, n)) widen_step(src, dst, pos, n);
  }
}

namespace {

// For a block of eight units below 0x800, indexed by the mask of its ASCII
// units: the pshufb pattern that keeps one byte of an ASCII unit and two of
// any other (4 KiB), and the number of bytes kept.
struct compaction_table {
  uint8_t shuffle[256][16];
  uint8_t length[256];
};
constexpr compaction_table compaction = [] {
  compaction_table t{};
  for (uint32_t mask = 0; mask < 256; ++mask) {
    uint32_t n = 0;
    for (uint32_t lane = 0; lane < 8; ++lane) {
      t.shuffle[mask][n++] = static_cast<uint8_t>(2 * lane);
      if (!(mask >> lane & 1)) t.shuffle[mask][n++] = static_cast<uint8_t>(2 * lane + 1);
    }
    t.length[mask] = static_cast<uint8_t>(n);
    for (; n < 16; ++n) t.shuffle[mask][n] = 0x80;  // pshufb writes zero
  }
  return t;
}();

// Eight units below 0x800 to UTF-8 in one step: every unit is made into its
// two-byte form (lead in the low byte), ASCII units keep their value, and a
// shuffle drops the high byte of each ASCII unit. Returns false, writing
// nothing, when a unit needs three bytes.
__attribute__((target("ssse3"))) inline bool narrow_block_ssse3(const uint16_t *src, uint8_t *dst,
                                                                 uint32_t *out) {
  const __m128i u = _mm_loadu_si128(reinterpret_cast<const __m128i *>(src));
  const __m128i zero = _mm_setzero_si128();
  const __m128i short_lanes = _mm_cmpeq_epi16(_mm_and_si128(u, _mm_set1_epi16(static_cast<short>(0xF800))), zero);
  if (_mm_movemask_epi8(short_lanes) != 0xFFFF) return false;
  const __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(u, _mm_set1_epi16(static_cast<short>(0xFF80))), zero);
  const __m128i lead = _mm_or_si128(_mm_srli_epi16(u, 6), _mm_set1_epi16(0xC0));
  const __m128i cont = _mm_or_si128(_mm_and_si128(u, _mm_set1_epi16(0x3F)), _mm_set1_epi16(0x80));
  const __m128i two = _mm_or_si128(lead, _mm_slli_epi16(cont, 8));
  const __m128i lanes = _mm_or_si128(_mm_and_si128(ascii, u), _mm_andnot_si128(ascii, two));
  const uint32_t mask = static_cast<uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(ascii, zero))) & 0xFFu;
  const __m128i pattern = _mm_loadu_si128(reinterpret_cast<const __m128i *>(compaction.shuffle[mask]));
  _mm_storeu_si128(reinterpret_cast<__m128i *>(dst + *out), _mm_shuffle_epi8(lanes, pattern));
  *out += compaction.length[mask];
  return true;
}

}  // namespace

__attribute__((target("ssse3"))) void narrow_blocks_ssse3(const uint16_t *src, uint32_t units, uint8_t *dst,
                                                          uint32_t capacity, uint32_t *i, uint32_t *out) {
  while (units - *i >= 8 && capacity - *out >= 32) {
    if (!narrow_block_ssse3(src + *i, dst, out)) narrow_block_scalar(src + *i, dst, out);
    *i += 8;
  }
}

#else

bool have_ssse3() { return false; }
void widen_blocks_ssse3(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t cap, uint32_t *pos,
                        uint32_t *n) {
  widen_blocks(src, src_len, dst, cap, pos, n);
}
void narrow_blocks_ssse3(const uint16_t *src, uint32_t units, uint8_t *dst, uint32_t capacity, uint32_t *i,
                         uint32_t *out) {
  narrow_blocks(src, units, dst, capacity, i, out);
}

#endif

}  // namespace xfmt::text
