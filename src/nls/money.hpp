// The NLMNL/NLMNI printer: an amount placed by the locale's monetary
// conventions with the symbol of a fixed currency, tried in ever plainer
// forms until one fits the width.
#pragma once

#include <cstdint>
#include <string_view>

#include "nls/expand.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::nls {

// The locale's side of a money field (fields 157-169).
struct money_conventions {
  std::string_view point = ".";  // 157; "." when the locale has none
  std::string_view separator;    // 158
  int group = 0;                 // first digit of 159; 0: no grouping
  std::string_view positive;     // 160
  std::string_view negative;     // 161
  int flags[6] = {};             // 164-169, each clamped to its table range
};

money_conventions read_money_conventions(const field_reader &loc);

// The conventions of a database locale (1..136), read once for all; any
// other id gives those of a locale that cannot be read.
const money_conventions &locale_money_conventions(int id);

// Index into CurrencyFormatPatterns for a positive or negative amount.
int money_pattern_index(const money_conventions &c, bool negative);

// One candidate text (narrow, escapes kept): digits are "1234.50" or an
// exponent form, without sign; grouping only when asked and the digits hold
// no exponent. Returns the length written (at most room), or -1 when longer.
int money_candidate(const money_conventions &c, std::string_view digits, bool negative,
                    bool grouped, std::string_view symbol, char *out, size_t room);

// The frame limits that the validation bit checks (39-42 outside them).
struct money_limits {
  int32_t min_width;
  int32_t max_width;
  int32_t max_decimals;
};
inline constexpr money_limits currency_limits{8, 32, 28};  // NLMNL<code>, NLMNI<code>

// The whole format on a frame, with the locale's conventions already read:
// the amount with the local symbol (narrow text, escapes kept; the code
// stands in for it when the output cannot show it) or with the code.
xf_status money_field(xf_frame *frame, const money_conventions &c, std::string_view local_symbol,
                      std::string_view code, bool international, const money_limits &limits);

// The same for a row of the currency table, under the currency formats' limits.
xf_status money_format(xf_frame *frame, const money_conventions &c, const xf_monetary &entry,
                       bool international);

}  // namespace xfmt::nls
