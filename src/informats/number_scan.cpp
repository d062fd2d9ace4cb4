// The scanning stage of the number reader: one pass over the field.
#include "informats/number_scan.hpp"

namespace xfmt::informats {
namespace {

// Exponents beyond this are certain overflow or underflow whatever the
// mantissa; clamping keeps the sums below in range for texts of any length.
constexpr int64_t exponent_clamp = 100000000;

inline unsigned digit_of(char c) { return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0'; }

scan_result missing_or_invalid(int index, bool negative) {
  scan_result r;
  r.negative = negative;
  if (index < 0) return r;
  r.kind = scan_kind::missing;
  r.missing_index = index;
  return r;
}

}  // namespace

int missing_letter_index(char c) {
  if (c == '_') return 0;
  if (c == '.') return 1;
  unsigned up = static_cast<unsigned>(static_cast<unsigned char>(c) & 0xDFu) - 'A';
  return up < 26 ? static_cast<int>(up) + 2 : -1;
}

scan_result scan_number(const char *p, const char *last, int implied_decimals) {
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

  // Mantissa. Leading zeros leave head at 0 and count nothing; after the
  // first nonzero digit every digit is significant. Beyond nineteen digits
  // only their count and whether any is nonzero are kept (the exact
  // fallback rereads them from the text).
  scan_result r;
  r.negative = negative;
  decimal_number &n = r.num;
  uint64_t head = 0;
  int significant = 0;
  int64_t dropped = 0;
  int64_t fraction = 0;
  bool inexact = false;
  bool point = false;
  const char *first_digit = nullptr;
  for (; p != last; ++p) {
    unsigned d = digit_of(*p);
    if (d < 10) {
      fraction += point;
      if (significant < 19) {
        head = head * 10 + d;
        if (head != 0) {
          if (significant == 0) first_digit = p;
          ++significant;
        }
      } else {
        ++dropped;
        inexact |= d != 0;
      }
    } else if (*p == '.') {
      if (point) return r;  // a second point
      point = true;
    } else {
      break;
    }
  }
  const char *mantissa_end = p;

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
      unsigned d = digit_of(*p);
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
  n.dropped = dropped;
  n.inexact = inexact;
  n.head_exp10 = exponent - fraction - (point ? 0 : implied_decimals) + dropped;
  n.digits = first_digit;
  n.digits_end = mantissa_end;
  return r;
}

}  // namespace xfmt::informats
