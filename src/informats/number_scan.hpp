// First stage of number reading: the text (already cut to the field and
// trimmed of blanks and tabs) becomes a small record of sign, leading digits,
// decimal exponent and the position of all significant digits; or it is
// recognised as a missing-value notation, a zero, or invalid text.
// Header only: the reader inlines it.
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
  // The mantissa text, leading zeros included, with at most one '.'; the
  // exact fallback rereads it.
  const char *digits = nullptr;
  const char *digits_end = nullptr;
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

namespace scan_detail {

// Exponents beyond this are certain overflow or underflow whatever the
// mantissa; clamping keeps the sums below in range for texts of any length.
inline constexpr int64_t exponent_clamp = 100000000;

inline unsigned digit_of(char c) { return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0'; }

inline scan_result missing_or_invalid(int index, bool negative) {
  scan_result r;
  r.negative = negative;
  if (index < 0) return r;
  r.kind = scan_kind::missing;
  r.missing_index = index;
  return r;
}

// The first nineteen significant digits of a longer mantissa [p, last)
// (digits and at most one point); the count of the others and whether any
// of them is nonzero go to n. Leading zeros leave the head at 0 and count
// nothing; after the first nonzero digit every digit is significant.
inline uint64_t significant_head(const char *p, const char *last, decimal_number &n) {
  uint64_t head = 0;
  int significant = 0;
  for (; p != last; ++p) {
    unsigned d = digit_of(*p);
    if (d >= 10) continue;  // the point
    if (significant < 19) {
      head = head * 10 + d;
      significant += head != 0;
    } else {
      ++n.dropped;
      n.inexact |= d != 0;
    }
  }
  return head;
}

}  // namespace scan_detail

// Position of a missing-value letter in the table: '_' 0, '.' 1, 'A'/'a' 2 ..
// 'Z'/'z' 27; -1 for any other byte.
inline int missing_letter_index(char c) {
  if (c == '_') return 0;
  if (c == '.') return 1;
  unsigned up = static_cast<unsigned>(static_cast<unsigned char>(c) & 0xDFu) - 'A';
  return up < 26 ? static_cast<int>(up) + 2 : -1;
}

// Reads [p, last), which is non-empty and starts and ends with neither a
// blank nor a tab. implied_decimals (0..31) applies only when the mantissa
// has no point. Reads nothing outside the range.
inline scan_result scan_number(const char *p, const char *last, int implied_decimals) {
  using namespace scan_detail;
  bool negative = false;
  if (*p == '-' || *p == '+') {
    negative = *p == '-';
    if (++p == last) return missing_or_invalid(-1, negative);  // a sign alone
  }

  // Missing-value notations: "A", "_", ".", ".A", "..", "._" (any case).
  // A lone letter after a sign counts as well: "-A" reads as .A.
  if (digit_of(*p) >= 10) {
    if (*p != '.') return missing_or_invalid(last - p == 1 ? missing_letter_index(*p) : -1, negative);
    if (last - p == 1) return missing_or_invalid(1, negative);
    if (digit_of(p[1]) >= 10) {
      if (last - p == 2) return missing_or_invalid(missing_letter_index(p[1]), negative);
      return missing_or_invalid(-1, negative);
    }
  }

  // Mantissa. The usual field has at most nineteen digits: they are
  // gathered in one pass whatever their place (leading zeros add nothing).
  // A longer mantissa is gone over again by significant_head().
  scan_result r;
  r.negative = negative;
  decimal_number &n = r.num;
  const char *mantissa = p;
  uint64_t head = 0;
  unsigned d;
  for (; p != last && (d = digit_of(*p)) < 10; ++p) head = head * 10 + d;
  int64_t digits = p - mantissa;
  int64_t fraction = 0;
  bool point = false;
  if (p != last && *p == '.') {
    point = true;
    const char *fraction_start = ++p;
    for (; p != last && (d = digit_of(*p)) < 10; ++p) head = head * 10 + d;
    fraction = p - fraction_start;
    digits += fraction;
  }
  const char *mantissa_end = p;
  if (digits > 19) head = significant_head(mantissa, mantissa_end, n);

  // Exponent: E, e, D or d, an optional sign, then digits only. A letter or
  // a sign with no digits after it means exponent 0 ("1E" and "1E+" read 1).
  int64_t exponent = 0;
  if (p != last) {
    char letter = static_cast<char>(*p | 0x20);
    if (letter != 'e' && letter != 'd') return r;
    bool exp_negative = false;
    if (++p != last && (*p == '+' || *p == '-')) {
      exp_negative = *p == '-';
      ++p;
    }
    for (; p != last; ++p) {
      d = digit_of(*p);
      if (d >= 10) return r;
      if (exponent < exponent_clamp) exponent = exponent * 10 + d;
    }
    if (exp_negative) exponent = -exponent;
  }

  if (head == 0) {
    r.kind = scan_kind::zero;
    return r;
  }
  r.kind = scan_kind::number;
  n.head = head;
  n.head_exp10 = exponent - fraction - (point ? 0 : implied_decimals) + n.dropped;
  n.digits = mantissa;
  n.digits_end = mantissa_end;
  return r;
}

}  // namespace xfmt::informats
