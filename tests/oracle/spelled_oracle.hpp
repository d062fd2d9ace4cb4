// Slow literal transcriptions of the spelled and special layouts, for
// differential tests: words built by recursion on std::string, numerals
// digit by digit from per-place tables, the dashed nine digits by snprintf.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

// The WORDS (figures false) or WORDF (figures true) text of v, before any
// padding; "" when |v| rounds to 10^15 or more.
std::string amount_words(double v, bool figures);
// Upper-case Roman numeral of 1 <= n <= 3999, place by place.
std::string roman(int n);
// "ddd-dd-dddd" of 0 <= n < 10^9.
std::string ssn(int64_t n);
// The $REVERJ field of text at width w (no capacity cut).
std::string reverj(const std::string &text, int32_t w);
// The $QUOTE field of text at width w >= 2 (no capacity cut).
std::string quote(const std::string &text, int32_t w);

}  // namespace xfmt::oracle
