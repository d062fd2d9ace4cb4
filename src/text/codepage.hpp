// Choosing a single-byte code page by encoding id, and the reverse lookup
// from a code point to a byte of that page.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::text {

// 34 ISO Arabic, 66 Windows Arabic, 36 ISO Hebrew, 65 Windows Hebrew; every
// other id reads as ASCII (high bytes U+FFFD).
const uint16_t *codepage_for(uint32_t encoding_id);

// The byte of the page that maps to code_point, or -1 when there is none.
// U+FFFD never maps back (it marks the page's holes). Linear over the high
// half: ASCII is answered at once, other characters cost 128 comparisons.
int32_t codepage_byte(const uint16_t *page, uint32_t code_point);

// True for ids whose UTF-32 or UTF-16 byte order is big-endian (24 and 26).
inline bool big_endian_id(uint32_t id) { return id == 24 || id == 26; }

}  // namespace xfmt::text
