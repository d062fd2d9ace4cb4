// Simple one-to-one case mapping of UTF-16 code units for the alphabets the
// national-language texts use: Latin (Basic, Latin-1, Extended-A), Greek,
// Cyrillic, Armenian and full-width Latin. Mappings that change the length
// (German sharp s to SS) or depend on language (Turkish dotless i) are left out.
#include "xfmt/xfmt.h"

#include <cstdint>

namespace {

// Latin Extended-A alternates upper and lower case; in 0x0139-0x0148 and
// 0x0179-0x017E the upper case letter sits on the odd code point.
bool odd_upper_block(uint32_t u) { return (u >= 0x0139 && u <= 0x0148) || (u >= 0x0179 && u <= 0x017E); }
bool pair_block(uint32_t u) {
  return (u >= 0x0100 && u <= 0x0137) || (u >= 0x014A && u <= 0x0177) || (u >= 0x0460 && u <= 0x0481) ||
         (u >= 0x048A && u <= 0x04BF) || (u >= 0x04D0 && u <= 0x04FF);
}

uint32_t to_upper(uint32_t u) {
  if (u >= 'a' && u <= 'z') return u - 0x20;
  if (u < 0x80) return u;
  if (u >= 0xE0 && u <= 0xFE && u != 0xF7) return u - 0x20;
  if (u == 0xFF) return 0x0178;
  if (pair_block(u)) return u & ~1u;
  if (odd_upper_block(u)) return (u & 1u) ? u : u - 1;
  if (u >= 0x03B1 && u <= 0x03C9 && u != 0x03C2) return u - 0x20;
  if (u == 0x03C2) return 0x03A3;  // final sigma
  if (u == 0x03AC) return 0x0386;
  if (u >= 0x03AD && u <= 0x03AF) return u - 0x25;
  if (u == 0x03CC) return 0x038C;
  if (u == 0x03CD || u == 0x03CE) return u - 0x3F;
  if (u >= 0x0430 && u <= 0x044F) return u - 0x20;
  if (u >= 0x0450 && u <= 0x045F) return u - 0x50;
  if (u >= 0x0561 && u <= 0x0586) return u - 0x30;
  if (u >= 0xFF41 && u <= 0xFF5A) return u - 0x20;
  return u;
}

uint32_t to_lower(uint32_t u) {
  if (u >= 'A' && u <= 'Z') return u + 0x20;
  if (u < 0x80) return u;
  if (u >= 0xC0 && u <= 0xDE && u != 0xD7) return u + 0x20;
  if (u == 0x0178) return 0xFF;
  if (pair_block(u)) return u | 1u;
  if (odd_upper_block(u)) return (u & 1u) ? u + 1 : u;
  if (u >= 0x0391 && u <= 0x03A9 && u != 0x03A2) return u + 0x20;
  if (u == 0x0386) return 0x03AC;
  if (u >= 0x0388 && u <= 0x038A) return u + 0x25;
  if (u == 0x038C) return 0x03CC;
  if (u == 0x038E || u == 0x038F) return u + 0x3F;
  if (u >= 0x0410 && u <= 0x042F) return u + 0x20;
  if (u >= 0x0400 && u <= 0x040F) return u + 0x50;
  if (u >= 0x0531 && u <= 0x0556) return u + 0x30;
  if (u >= 0xFF21 && u <= 0xFF3A) return u + 0x20;
  return u;
}

}  // namespace

extern "C" uint32_t LOWCASE(uint16_t *text, uint32_t units) {
  if (text == nullptr) return XF_OK;
  for (uint32_t i = 0; i < units; ++i) text[i] = static_cast<uint16_t>(to_lower(text[i]));
  return XF_OK;
}

extern "C" uint32_t UPCASE(uint16_t *text, uint32_t units) {
  if (text == nullptr) return XF_OK;
  for (uint32_t i = 0; i < units; ++i) text[i] = static_cast<uint16_t>(to_upper(text[i]));
  return XF_OK;
}
