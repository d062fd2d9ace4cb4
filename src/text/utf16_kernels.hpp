// The pieces of the UTF-8 <-> UTF-16 conversions shared by the portable
// loops (utf16_text.cpp) and the SSSE3 ones (utf16_ssse3.cpp): single
// characters decoded or encoded without branching on their length, and ASCII
// runs taken sixteen bytes (eight units) at a time with SSE2.
//
// The wide steps may store up to sixteen units (or eight bytes) ahead of the
// characters finally delivered, always inside the caller's capacity.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>  // SSE2: every x86-64
#endif

namespace xfmt::text {

static_assert(std::endian::native == std::endian::little, "the wide steps assume little-endian lanes");

// Value bits a non-continuation byte gives, by the number of bytes of the
// sequence still expected after it (0-5).
inline constexpr uint8_t remaining_mask[6] = {0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};

// Trailing bytes announced by a lead: 0 below 0xC0 (a stray continuation
// byte stands alone), then 1-5.
inline uint32_t trailing(uint8_t lead) {
  return lead < 0xC0 ? 0u : lead < 0xE0 ? 1u : lead < 0xF0 ? 2u : lead < 0xF8 ? 3u : lead < 0xFC ? 4u : 5u;
}

// Generic decoding of the sequence at src (trail + 1 bytes, all present):
// continuation bytes give six bits each; any other byte (a lead, or an ASCII
// byte where a continuation was due) gives the bits its place allows, which
// may overlap the bits above: C3 41 is 3 << 6 | 0x41 = 0xC1.
inline uint16_t decode_sequence(const uint8_t *src, uint32_t trail) {
  uint32_t value = 0;
  for (uint32_t k = 0; k <= trail; ++k) {
    const uint8_t b = src[k];
    const uint32_t bits = (b & 0xC0u) == 0x80u ? (b & 0x3Fu) : (b & remaining_mask[trail - k]);
    value = (value << 6) | bits;
  }
  return static_cast<uint16_t>(value);  // above U+FFFF: the low 16 bits
}

// Lengths of the sequences the branch-free step takes: 2 for leads
// 0xC0-0xDF, 3 for 0xE0-0xEF, 0 (generic path) for every other byte.
struct length_table {
  uint8_t v[256];
};
inline constexpr length_table short_length = [] {
  length_table t{};
  for (uint32_t b = 0xC0; b < 0xF0; ++b) t.v[b] = b < 0xE0 ? 2 : 3;
  return t;
}();
// By length 2 or 3: the continuation bytes' top bits within the big-endian
// word of four bytes from the lead, and the value bits of the lead.
inline constexpr uint32_t continuation_mask[4] = {0, 0, 0x00C00000u, 0x00C0C000u};
inline constexpr uint32_t continuation_bits[4] = {0, 0, 0x00800000u, 0x00808000u};
inline constexpr uint32_t lead_bits[4] = {0, 0x7F, 0x1F, 0x0F};

// One non-ASCII character at src (at least eight bytes readable): stores its
// unit and returns the bytes used. E2 82 AC: word E282AC.., length 3, top 2,
// tail 0x02 << 6 | 0x2C = 0xAC, unit 2 << 12 | 0xAC = 0x20AC.
inline uint32_t decode_one(const uint8_t *src, uint16_t *dst) {
  const uint8_t lead = src[0];
  const uint32_t word = uint32_t{lead} << 24 | uint32_t{src[1]} << 16 | uint32_t{src[2]} << 8 | src[3];
  const uint32_t len = short_length.v[lead];
  if (len != 0 && (word & continuation_mask[len]) == continuation_bits[len]) {
    const uint32_t top = lead & lead_bits[len];
    const uint32_t tail = ((word >> 10) & 0xFC0u) | ((word >> 8) & 0x3Fu);  // c1 << 6 | c2
    *dst = static_cast<uint16_t>(top << (6 * (len - 1)) | tail >> (6 * (3 - len)));
    return len;
  }
  const uint32_t trail = trailing(lead);
  *dst = decode_sequence(src, trail);
  return trail + 1;
}

// ASCII bytes at the start of the next sixteen (eight without SSE2), all of
// them widened to units at dst.
inline uint32_t widen_ascii(const uint8_t *src, uint16_t *dst) {
#if defined(__SSE2__)
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(src));
  const __m128i zero = _mm_setzero_si128();
  _mm_storeu_si128(reinterpret_cast<__m128i *>(dst), _mm_unpacklo_epi8(bytes, zero));
  _mm_storeu_si128(reinterpret_cast<__m128i *>(dst + 8), _mm_unpackhi_epi8(bytes, zero));
  const uint32_t high = static_cast<uint32_t>(_mm_movemask_epi8(bytes));
  return high == 0 ? 16u : static_cast<uint32_t>(std::countr_zero(high));
#else
  uint64_t word;
  std::memcpy(&word, src, 8);
  for (uint32_t i = 0; i < 8; ++i) dst[i] = src[i];
  const uint64_t high = word & 0x8080808080808080ull;
  return high == 0 ? 8u : static_cast<uint32_t>(std::countr_zero(high)) / 8;
#endif
}

// UTF-8 of every unit below 0x800: its one or two bytes in the low bytes,
// and its length in the top byte (8 KiB).
struct short_utf8_table {
  uint32_t v[0x800];
};
inline constexpr short_utf8_table short_utf8 = [] {
  short_utf8_table t{};
  for (uint32_t u = 0; u < 0x800; ++u)
    t.v[u] = u < 0x80 ? (u | 1u << 24) : ((0xC0u | (u >> 6)) | (0x80u | (u & 0x3Fu)) << 8 | 2u << 24);
  return t;
}();

// Writes unit u as UTF-8 into four bytes at dst (only the returned count
// matter). Both forms are made and one kept by a mask: mixed text makes the
// length unpredictable, and a jump would be mispredicted half the time.
inline uint32_t encode_one(uint32_t u, uint8_t *dst) {
  const uint32_t is_3 = 0u - static_cast<uint32_t>(u >= 0x800);
  const uint32_t three = (0xE0u | (u >> 12)) | (0x80u | ((u >> 6) & 0x3Fu)) << 8 |
                         (0x80u | (u & 0x3Fu)) << 16 | 3u << 24;
  const uint32_t word = (short_utf8.v[u & 0x7FFu] & ~is_3) | (three & is_3);
  std::memcpy(dst, &word, 4);
  return word >> 24;
}

// ASCII units at the start of the next eight (four without SSE2), all of
// them narrowed to bytes at dst.
inline uint32_t narrow_ascii(const uint16_t *src, uint8_t *dst) {
#if defined(__SSE2__)
  const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i *>(src));
  const __m128i non_ascii = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
  const uint32_t ascii = static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi16(non_ascii, _mm_setzero_si128())));
  _mm_storel_epi64(reinterpret_cast<__m128i *>(dst), _mm_packus_epi16(units, units));
  return ascii == 0xFFFF ? 8u : static_cast<uint32_t>(std::countr_one(ascii)) / 2;
#else
  uint64_t word;
  std::memcpy(&word, src, 8);
  for (uint32_t i = 0; i < 4; ++i) dst[i] = static_cast<uint8_t>(src[i]);
  const uint64_t high = word & 0xFF80FF80FF80FF80ull;
  return high == 0 ? 4u : static_cast<uint32_t>(std::countr_zero(high)) / 16;
#endif
}

// One step: the ASCII run ahead (possibly empty) and then, unless the run
// filled all sixteen bytes, the non-ASCII character that ended it: no branch
// on the kind of the next character, which mixed text makes random.
inline __attribute__((always_inline)) void widen_step(const uint8_t *src, uint16_t *dst, uint32_t *pos,
                                                      uint32_t *n) {
  const uint32_t k = widen_ascii(src + *pos, dst + *n);
  *pos += k;
  *n += k;
  if (k == 16) return;
  *pos += decode_one(src + *pos, dst + *n);
  ++*n;
}

// Eight units encoded one by one without branches: only the output
// position depends on the unit before, through an addition.
inline __attribute__((always_inline)) void narrow_block_scalar(const uint16_t *src, uint8_t *dst,
                                                               uint32_t *out) {
  uint32_t o = *out;
  for (uint32_t j = 0; j < 8; ++j) o += encode_one(src[j], dst + o);
  *out = o;
}

// Block loops over the safe zone of a text: each advances *pos (*i) and *n
// (*out) while a whole step fits both the source and the destination.
// Portable loops (SSE2 or plain C++):
void widen_blocks(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t cap, uint32_t *pos,
                  uint32_t *n);
void narrow_blocks(const uint16_t *src, uint32_t units, uint8_t *dst, uint32_t capacity, uint32_t *i,
                   uint32_t *out);
// SSSE3 loops: also whole blocks of two-byte characters; call them only when
// the processor has SSSE3 (have_ssse3).
bool have_ssse3();
void widen_blocks_ssse3(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t cap, uint32_t *pos,
                        uint32_t *n);
void narrow_blocks_ssse3(const uint16_t *src, uint32_t units, uint8_t *dst, uint32_t capacity, uint32_t *i,
                         uint32_t *out);

// The whole conversions with the choice of loops made by the caller (tests
// run both); UTF8ToUNICODE and UNICODEToUTF8 pass have_ssse3().
uint32_t utf8_to_units(const uint8_t *src, uint32_t src_len, uint16_t *dst, uint32_t dst_capacity_bytes,
                       uint32_t *chars, uint32_t *bytes_written, bool ssse3);
uint32_t units_to_utf8(const uint16_t *src, uint32_t src_len_bytes, uint8_t *dst, uint32_t dst_capacity,
                       uint32_t *chars_done, uint32_t *bytes_written, bool ssse3);

}  // namespace xfmt::text
