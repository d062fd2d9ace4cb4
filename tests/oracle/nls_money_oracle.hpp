// Slow literal money printer: the C library's "%.*f", "%-0.*G" and "%*.*f"
// and a character-by-character walk of the placement pattern. Differential
// tests compare the library's NLMNL/NLMNI output with it.
#pragma once

#include <string>

#include "nls/money.hpp"

namespace xfmt::oracle {

// The field the money formats print for v (single-byte output), or "" when
// they print stars.
std::string money_field(const nls::money_conventions &c, const std::string &symbol, double v, int w,
                        int d);

}  // namespace xfmt::oracle
