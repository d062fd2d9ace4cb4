// First stage of number reading: the text (already cut to the field and
// trimmed of blanks and tabs) becomes a small record of sign, leading digits,
// decimal exponent and the position of all significant digits; or it is
// recognised as a missing-value notation, a zero, or invalid text.
#pragma once

#include <cstdint>

namespace xfmt::informats {

// value = D * 10^(head_exp10 - dropped), D the integer of all significant
// digits of the mantissa text (leading zeros skipped, the point ignored).
// head holds the first min(19, count) of them, so
//   head * 10^head_exp10 <= value < (head + 1) * 10^head_exp10,
// with equality on the left exactly when inexact is false.
struct decimal_number {
  uint64_t head = 0;            // 1 .. 10^19 - 1
  int64_t head_exp10 = 0;       // saturated far beyond the double range
  int64_t dropped = 0;          // significant digits after the nineteenth
  bool inexact = false;         // a nonzero digit among the dropped ones
  const char *digits = nullptr;      // first significant digit
  const char *digits_end = nullptr;  // past the last mantissa digit (may enclose one '.')
};

enum class scan_kind : uint8_t {
  number,   // a nonzero decimal in num
  zero,     // every digit zero (the sign is dropped: stored as +0)
  missing,  // a missing-value notation; missing_index 0 "._", 1 ".", 2 "A" ... 27 "Z"
  invalid,  // anything else
};

struct scan_result {
  scan_kind kind = scan_kind::invalid;
  bool negative = false;
  int missing_index = 1;
  decimal_number num;
};

// Position of a missing-value letter in the table: '_' 0, '.' 1, 'A'/'a' 2 ..
// 'Z'/'z' 27; -1 for any other byte.
int missing_letter_index(char c);

// Reads [first, last), which is non-empty and starts and ends with neither a
// blank nor a tab. implied_decimals (0..31) applies only when the mantissa
// has no point. Reads nothing outside the range.
scan_result scan_number(const char *first, const char *last, int implied_decimals);

}  // namespace xfmt::informats
