// One character at a time between UTF-8 and code points, and the legality
// check of one UTF-8 sequence.
#include "xfmt/xfmt.h"

#include <cstdint>

namespace {
constexpr uint32_t replacement = 0xFFFD;
}

extern "C" uint32_t UTF8_UTF32(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                               uint32_t *used) {
  if (avail == 0 || src == nullptr) {
    *code_point = replacement;
    *used = 0;
    return XF_TX_CUT_OFF;
  }
  const uint8_t lead = src[0];
  if (lead < 0x80) {
    *code_point = lead;
    *used = 1;
    return XF_OK;
  }
  const uint32_t n = bytesFromUTF8[lead];
  if (valid_1st_utf8[lead]) {
    if (avail < n) {
      // E2 82 at the end of the text: both bytes are spent on one U+FFFD.
      *code_point = replacement;
      *used = avail;
      return XF_TX_CUT_OFF;
    }
    uint32_t cp = lead & utf8_mask[n];
    // Continuation bytes are taken on trust here; isLegalUTF8 checks them.
    if (n <= 4)
      for (uint32_t i = 1; i < n; ++i) cp = (cp << 6) | (src[i] & 0x3Fu);
    *code_point = cp;
    *used = n;
    return XF_OK;
  }
  // An invalid lead swallows the continuation bytes that follow it (up to
  // the length it announces), so C0 80 is one bad character, not two.
  uint32_t k = 1;
  while (k < n && k < avail && valid_2nd_utf8[src[k]]) ++k;
  *code_point = replacement;
  *used = k;
  return XF_TX_BAD_LEAD;
}

extern "C" uint32_t UTF32_UTF8(uint32_t code_point, uint8_t *dst, uint32_t space,
                               uint32_t *written) {
  uint32_t n;
  uint8_t lead;
  if (code_point < 0x80) {
    n = 1;
    lead = 0;
  } else if (code_point < 0x800) {
    n = 2;
    lead = 0xC0;
  } else if (code_point < 0x10000) {
    n = 3;
    lead = 0xE0;
  } else {
    // Beyond U+10FFFF the high bits are cut to what a four-byte form holds.
    n = 4;
    lead = 0xF0;
  }
  if (space < n || dst == nullptr) {
    *written = 0;
    return XF_TX_OUTPUT_SMALL;
  }
  uint32_t cp = code_point;
  for (uint32_t i = n - 1; i > 0; --i) {
    dst[i] = static_cast<uint8_t>(0x80u | (cp & 0x3Fu));
    cp >>= 6;
  }
  dst[0] = static_cast<uint8_t>(n == 1 ? cp : ((lead | cp) & 0xFFu));
  *written = n;
  return XF_OK;
}

extern "C" int32_t isLegalUTF8(const uint8_t *seq, int32_t length, int32_t *bad_pos) {
  *bad_pos = length;
  if (length < 1 || length > 4) return 1;
  int32_t ok = 1;
  for (int32_t i = length - 1; i >= 1; --i) {
    if (seq[i] < 0x80 || seq[i] > 0xBF) {
      *bad_pos = i;
      ok = 0;
    }
  }
  if (length >= 2) {
    const uint8_t second = seq[1];
    switch (seq[0]) {
      case 0xE0: if (second < 0xA0) ok = 0; break;  // overlong three-byte form
      case 0xED: if (second >= 0xA0) ok = 0; break;  // ED A0 80 and up are surrogates
      case 0xF0: if (second < 0x90) ok = 0; break;  // overlong four-byte form
      default: break;  // no upper limit after F4: beyond U+10FFFF passes
    }
  }
  if (seq[0] >= 0x80 && (seq[0] < 0xC2 || seq[0] > 0xF4)) ok = 0;
  return ok;
}
