// Byte order and sort keys: reversing an area, the collating key of a
// double, big-endian integers and truncated doubles, min and max.
#include "xfmt/xfmt.h"

#include <bit>
#include <cstdint>

extern "C" void vzbytrv(void *area, int32_t length) {
  if (area == nullptr || length < 2) return;
  uint8_t *p = static_cast<uint8_t *>(area);
  for (int32_t i = 0, j = length - 1; i < j; ++i, --j) {
    const uint8_t t = p[i];
    p[i] = p[j];
    p[j] = t;
  }
}

// Unsigned byte order then follows numeric order: -1.0 (BF F0 ...) becomes
// 40 0F FF ..., below +1.0 (3F F0 ...) which becomes BF F0 ....
extern "C" void wzcsdbl(void *area, int32_t length) {
  if (area == nullptr || length < 1) return;
  if (length > 8) length = 8;
  uint8_t *p = static_cast<uint8_t *>(area);
  if (p[0] & 0x80) {
    for (int32_t i = 0; i < length; ++i) p[i] = static_cast<uint8_t>(~p[i]);
  } else {
    p[0] = static_cast<uint8_t>(p[0] | 0x80);
  }
  vzbytrv(area, length);
}

extern "C" int32_t wzctint(int32_t value, void *area, int32_t length) {
  if (area == nullptr || length < 1) return 0;
  if (length > 8) length = 8;
  int32_t status = 0;
  int64_t v = value;
  if (length == 2 && (v < -32768 || v > 32767)) {
    v = v < 0 ? -32768 : 32767;
    status = 8193;  // 40000 into two bytes stores 0x7FFF
  }
  const uint64_t bits = static_cast<uint64_t>(v);
  uint8_t *p = static_cast<uint8_t *>(area);
  for (int32_t i = 0; i < length; ++i)
    p[i] = static_cast<uint8_t>(bits >> (8 * (length - 1 - i)));
  return status;
}

extern "C" void wzctdbl(void *area, int32_t length, double value) {
  if (area == nullptr || length < 1) return;
  if (length > 8) length = 8;
  const uint64_t bits = std::bit_cast<uint64_t>(value);
  uint8_t *p = static_cast<uint8_t *>(area);
  for (int32_t i = 0; i < length; ++i) p[i] = static_cast<uint8_t>(bits >> (56 - 8 * i));
}

extern "C" int32_t min(int32_t a, int32_t b) { return a < b ? a : b; }
extern "C" int32_t max(int32_t a, int32_t b) { return a > b ? a : b; }
