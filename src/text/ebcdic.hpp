// The second copy of the EBCDIC tables, the one wztxatoe and wztxetoa use
// (equal to as2eb and eb2as; both are generated together).
#pragma once

#include <cstdint>

namespace xfmt::text {

extern const uint8_t wz_atoe[256];
extern const uint8_t wz_etoa[256];

}  // namespace xfmt::text
