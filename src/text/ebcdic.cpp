// In-place translation between ASCII/Latin-1 and EBCDIC.
#include "xfmt/xfmt.h"

#include <cstdint>

#include "text/ebcdic.hpp"

namespace {

void translate(uint8_t *text, int32_t length, const uint8_t *table) {
  if (text == nullptr) return;
  for (int32_t i = 0; i < length; ++i) text[i] = table[text[i]];
}

}  // namespace

extern "C" void wztxatoe(uint8_t *text, int32_t length) { translate(text, length, xfmt::text::wz_atoe); }
extern "C" void wztxetoa(uint8_t *text, int32_t length) { translate(text, length, xfmt::text::wz_etoa); }
extern "C" void zas2eb(uint8_t *text, int32_t length) { translate(text, length, as2eb); }
extern "C" void zeb2as(uint8_t *text, int32_t length) { translate(text, length, eb2as); }
