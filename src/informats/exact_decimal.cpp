// The exact fallback of the decimal conversion: compares the decimal with
// the midpoint between two neighbouring doubles in big-integer arithmetic.
// Used only when the fast methods cannot decide (exact ties, more than
// nineteen digits straddling a rounding boundary), so clarity beats speed.
#include "informats/big_integer.hpp"
#include "informats/decimal_to_double.hpp"

namespace xfmt::informats {
namespace {

// A midpoint between two neighbouring doubles has at most 767 significant
// digits. Keeping 800 digits, plus a final 1 standing for any nonzero digit
// beyond them, therefore never changes which side of a midpoint the value
// lies on.
constexpr int kept_digits = 800;

struct digit_string {
  char d[kept_digits + 1];
  int count = 0;
  int64_t exp10 = 0;  // value = digits * 10^exp10
};

digit_string collect_digits(const decimal_number &num) {
  digit_string s;
  s.exp10 = num.head_exp10 - num.dropped;
  bool sticky = false;
  for (const char *p = num.digits; p != num.digits_end; ++p) {
    if (*p == '.' || (*p == '0' && s.count == 0)) continue;  // the point, leading zeros
    if (s.count < kept_digits) {
      s.d[s.count++] = *p;
    } else {
      ++s.exp10;
      sticky |= *p != '0';
    }
  }
  if (sticky) {
    s.d[s.count++] = '1';
    --s.exp10;
  }
  while (s.count > 1 && s.d[s.count - 1] == '0') {  // trailing zeros move into the exponent
    --s.count;
    ++s.exp10;
  }
  return s;
}

void load_digits(big_integer &x, const digit_string &s) {
  x = 0;
  int i = 0;
  for (; i + 9 <= s.count; i += 9) {
    uint32_t chunk = 0;
    for (int k = 0; k < 9; ++k) chunk = chunk * 10 + static_cast<uint32_t>(s.d[i + k] - '0');
    x.mul_small(1000000000u);
    x.add_small(chunk);
  }
  uint32_t chunk = 0, scale = 1;
  for (; i < s.count; ++i) {
    chunk = chunk * 10 + static_cast<uint32_t>(s.d[i] - '0');
    scale *= 10;
  }
  if (scale > 1) {
    x.mul_small(scale);
    x.add_small(chunk);
  }
}

// Compares digits * 10^e with the midpoint above the double b,
// (2m + 1) * 2^(k - 1) where b = m * 2^k. Both sides are brought to
// integers: factors 5^e and 2^e go to the side where e is non-negative,
// then the smaller power of two is cancelled.
int compare_with_midpoint(const big_integer &digits_times_pow5, const big_integer &pow5_neg,
                          int64_t e, uint64_t b) {
  uint64_t biased = b >> 52;
  uint64_t m = b & ((uint64_t{1} << 52) - 1);
  int64_t k = -1074;
  if (biased != 0) {
    m |= uint64_t{1} << 52;
    k = static_cast<int64_t>(biased) - 1075;
  }
  big_integer lhs = digits_times_pow5;
  big_integer rhs = pow5_neg;
  rhs.mul_u64(2 * m + 1);
  int64_t two_lhs = e > 0 ? e : 0;
  int64_t two_rhs = (k - 1) + (e < 0 ? -e : 0);
  if (two_lhs > two_rhs)
    lhs.shift_left(static_cast<int>(two_lhs - two_rhs));
  else
    rhs.shift_left(static_cast<int>(two_rhs - two_lhs));
  return lhs.compare(rhs);
}

}  // namespace

uint64_t exact_decimal_bits(const decimal_number &num) {
  digit_string s = collect_digits(num);
  // digits * 10^exp10 lies in [10^(count - 1 + exp10), 10^(count + exp10)).
  int64_t magnitude = s.count + s.exp10;
  if (magnitude > 310) return double_infinity_bits;
  if (magnitude < -324) return 0;

  big_integer lhs;
  load_digits(lhs, s);
  if (s.exp10 > 0) lhs.mul_pow5(static_cast<int>(s.exp10));
  big_integer pow5_neg(1);
  if (s.exp10 < 0) pow5_neg.mul_pow5(static_cast<int>(-s.exp10));

  // Start at or below the value and step up through the doubles: the start
  // is within a few units in the last place, so this loops a few times.
  uint64_t b = lower_bound_bits(num.head, num.head_exp10);
  while (b != double_infinity_bits) {
    int c = compare_with_midpoint(lhs, pow5_neg, s.exp10, b);
    if (c < 0) return b;
    if (c == 0) return (b & 1) == 0 ? b : b + 1;  // a tie goes to the even significand
    ++b;
  }
  return b;
}

}  // namespace xfmt::informats
