// Whole texts between UTF-16 code units and UTF-8 or Latin-1, one code unit
// per character (no surrogate pairing). The loops take eight ASCII bytes or
// four ASCII units at a time: mixed text is mostly ASCII runs.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr uint64_t high_bits_8 = 0x8080808080808080ull;
constexpr uint64_t non_ascii_units = 0xFF80FF80FF80FF80ull;

// Value bits a non-continuation byte gives, by the number of bytes of the
// sequence still expected after it (0-5).
constexpr uint8_t remaining_mask[6] = {0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};

// Trailing bytes announced by a lead: 0 below 0xC0 (a stray continuation
// byte stands alone), then 1-5.
inline uint32_t trailing(uint8_t lead) {
  return lead < 0xC0 ? 0u : lead < 0xE0 ? 1u : lead < 0xF0 ? 2u : lead < 0xF8 ? 3u : lead < 0xFC ? 4u : 5u;
}

}  // namespace

extern "C" uint32_t UTF8ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                  uint32_t dst_capacity_bytes, uint32_t *chars,
                                  uint32_t *bytes_written) {
  const uint32_t cap = dst == nullptr ? 0 : dst_capacity_bytes / 2;
  uint32_t pos = 0;
  uint32_t n = 0;
  uint32_t result = 0;
  if (src == nullptr) src_len = 0;
  while (pos < src_len) {
    // ASCII run: eight bytes with no high bit are eight units.
    while (src_len - pos >= 8 && cap - n >= 8) {
      uint64_t word;
      std::memcpy(&word, src + pos, 8);
      if (word & high_bits_8) break;
      for (uint32_t i = 0; i < 8; ++i) dst[n + i] = src[pos + i];
      pos += 8;
      n += 8;
    }
    if (pos >= src_len) break;
    if (n >= cap) {
      result = 2;
      break;
    }
    const uint8_t lead = src[pos];
    if (lead < 0x80) {
      dst[n++] = lead;
      ++pos;
      continue;
    }
    const uint32_t trail = trailing(lead);
    if (trail >= src_len - pos) {
      result = 1;
      break;
    }
    // Continuation bytes give six bits each; any other byte (a lead, or an
    // ASCII byte where a continuation was due) gives the bits its place allows.
    uint32_t value = 0;
    for (uint32_t k = 0; k <= trail; ++k) {
      const uint8_t b = src[pos + k];
      const uint32_t bits = (b & 0xC0u) == 0x80u ? (b & 0x3Fu) : (b & remaining_mask[trail - k]);
      value = (value << 6) | bits;
    }
    dst[n++] = static_cast<uint16_t>(value);  // above U+FFFF: the low 16 bits
    pos += trail + 1;
  }
  *chars = n;
  *bytes_written = 2 * n;
  return result;
}

extern "C" uint32_t UNICODEToUTF8(const uint16_t *src, uint32_t src_len_bytes, uint8_t *dst,
                                  uint32_t dst_capacity, uint32_t *chars_done,
                                  uint32_t *bytes_written) {
  const uint32_t units = src == nullptr ? 0 : src_len_bytes / 2;
  if (dst == nullptr) dst_capacity = 0;
  uint32_t i = 0;
  uint32_t out = 0;
  uint32_t result = 0;
  while (i < units) {
    // ASCII run: four units below 0x80 are four bytes.
    while (units - i >= 4 && dst_capacity - out >= 4) {
      uint64_t word;
      std::memcpy(&word, src + i, 8);
      if (word & non_ascii_units) break;
      dst[out] = static_cast<uint8_t>(src[i]);
      dst[out + 1] = static_cast<uint8_t>(src[i + 1]);
      dst[out + 2] = static_cast<uint8_t>(src[i + 2]);
      dst[out + 3] = static_cast<uint8_t>(src[i + 3]);
      i += 4;
      out += 4;
    }
    if (i >= units) break;
    const uint32_t u = src[i];
    const uint32_t need = u < 0x80 ? 1u : u < 0x800 ? 2u : 3u;
    if (dst_capacity - out < need) {
      result = 2;
      break;
    }
    if (need == 1) {
      dst[out] = static_cast<uint8_t>(u);
    } else if (need == 2) {
      dst[out] = static_cast<uint8_t>(0xC0u | (u >> 6));
      dst[out + 1] = static_cast<uint8_t>(0x80u | (u & 0x3Fu));
    } else {
      dst[out] = static_cast<uint8_t>(0xE0u | (u >> 12));
      dst[out + 1] = static_cast<uint8_t>(0x80u | ((u >> 6) & 0x3Fu));
      dst[out + 2] = static_cast<uint8_t>(0x80u | (u & 0x3Fu));
    }
    out += need;
    ++i;
  }
  *chars_done = i;
  *bytes_written = out;
  return result;
}

extern "C" uint32_t LATIN1ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                    uint32_t dst_capacity_units, uint32_t *units_written) {
  if (src == nullptr) src_len = 0;
  if (dst == nullptr) dst_capacity_units = 0;
  const uint32_t n = src_len < dst_capacity_units ? src_len : dst_capacity_units;
  for (uint32_t i = 0; i < n; ++i) dst[i] = src[i];
  *units_written = n;
  return n < src_len ? 2u : 0u;
}
