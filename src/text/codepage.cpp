// Code page choice and reverse lookup (see codepage.hpp).
#include "text/codepage.hpp"

namespace xfmt::text {

const uint16_t *codepage_for(uint32_t encoding_id) {
  switch (encoding_id) {
    case XF_ENC_ISO_ARABIC: return arabunic;
    case XF_ENC_WIN_ARABIC: return waraunic;
    case XF_ENC_ISO_HEBREW: return hebrunic;
    case XF_ENC_WIN_HEBREW: return whebunic;
    default: return ansiunic;
  }
}

int32_t codepage_byte(const uint16_t *page, uint32_t code_point) {
  if (code_point == 0xFFFD || code_point > 0xFFFF) return -1;
  if (code_point < 0x80 && page[code_point] == code_point) return static_cast<int32_t>(code_point);
  for (uint32_t b = 0; b < 256; ++b)
    if (page[b] == code_point) return static_cast<int32_t>(b);
  return -1;
}

}  // namespace xfmt::text
