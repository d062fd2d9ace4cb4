// Fast conversion of a scanned decimal to the nearest double: the exact
// small case, then the 128-bit scaled product with its own proof of success.
#include "informats/decimal_to_double.hpp"

#include <bit>

#include "informats/pow5_table.hpp"

namespace xfmt::informats {
namespace {

__extension__ using u128 = unsigned __int128;

constexpr uint64_t two53 = uint64_t{1} << 53;

// Assembles a double from a significand sig (below 2^53) whose unit is
// 2^ulp_exp; ulp_exp is -1074 for subnormals. Overflow gives infinity.
uint64_t assemble(uint64_t sig, int ulp_exp) {
  if (sig < (uint64_t{1} << 52)) return sig;  // subnormal or zero (ulp_exp == -1074)
  int biased = ulp_exp + 1075;
  if (biased >= 2047) return double_infinity_bits;
  return (static_cast<uint64_t>(biased) << 52) | (sig & ((uint64_t{1} << 52) - 1));
}

}  // namespace

// The product method. With w normalised to [2^63, 2^64) and T the table's
// 128-bit truncation of 5^q, P = w * T lies in [2^190, 2^192) and the value
// is P * 2^(f - 127 - lz + q). We form hi:lo = floor(P / 2^64) exactly; the
// true product (with T's discarded fraction) lies in [hi:lo, hi:lo + 2), so
// while lo <= 2^64 - 3 the word hi holds the value's leading bits exactly.
// Rounding then needs only the bit below the kept significand and whether
// anything under it is nonzero; the one undecidable pattern is a round bit
// of 1 with nothing visible below it (a possible exact tie), left to the
// exact method. Example: 9007199254740993 = 2^53 + 1 is such a tie.
bool scaled_product_bits(uint64_t w, int q, uint64_t &bits) {
  const pow5_entry &t = pow5(q);
  int lz = std::countl_zero(w);
  uint64_t wn = w << lz;
  u128 top = static_cast<u128>(wn) * t.hi + ((static_cast<u128>(wn) * t.lo) >> 64);
  uint64_t hi = static_cast<uint64_t>(top >> 64);
  uint64_t lo = static_cast<uint64_t>(top);
  if (lo >= ~uint64_t{0} - 1) return false;

  int unit_exp = t.log2_floor + 1 - lz + q;               // hi * 2^unit_exp ~ value
  int lead_exp = 62 + static_cast<int>(hi >> 63) + unit_exp;  // exponent of the leading bit
  int ulp_exp = lead_exp - 52 < -1074 ? -1074 : lead_exp - 52;
  int shift = ulp_exp - unit_exp;  // 10 or 11 for normal results, more for subnormal ones
  if (shift > 64) {                // below half the smallest subnormal
    bits = 0;
    return true;
  }
  uint64_t sig = shift == 64 ? 0 : hi >> shift;
  uint64_t round = (hi >> (shift - 1)) & 1;
  uint64_t below = hi & ((uint64_t{1} << (shift - 1)) - 1);
  if (round != 0) {
    if (below == 0 && lo == 0) return false;
    if (++sig == two53) {
      sig >>= 1;
      ++ulp_exp;
    }
  }
  bits = assemble(sig, ulp_exp);
  return true;
}

uint64_t lower_bound_bits(uint64_t head, int64_t q) {
  if (q < pow5_min_exponent) return 0;
  if (q > pow5_max_exponent) return double_max_bits;
  const pow5_entry &t = pow5(static_cast<int>(q));
  int lz = std::countl_zero(head);
  uint64_t wn = head << lz;
  uint64_t hi = static_cast<uint64_t>((static_cast<u128>(wn) * t.hi) >> 64);  // <= the true word
  int unit_exp = t.log2_floor + 1 - lz + static_cast<int>(q);
  int lead_exp = 62 + static_cast<int>(hi >> 63) + unit_exp;
  int ulp_exp = lead_exp - 52 < -1074 ? -1074 : lead_exp - 52;
  int shift = ulp_exp - unit_exp;
  if (shift >= 64) return 0;
  uint64_t b = assemble(hi >> shift, ulp_exp);
  return b == double_infinity_bits ? double_max_bits : b;
}

uint64_t decimal_to_bits(const decimal_number &num) {
  uint64_t bits;
  int64_t q = num.head_exp10;
  if (!num.inexact && exact_small_bits(num.head, q, bits)) return bits;
  // head < 10^19, so head * 10^q is beyond the largest double for q > 308
  // and below half the smallest subnormal (2.47e-324) for q < -342.
  if (q > pow5_max_exponent) return double_infinity_bits;
  if (q < pow5_min_exponent) return 0;
  int qi = static_cast<int>(q);
  if (scaled_product_bits(num.head, qi, bits)) {
    if (!num.inexact) return bits;
    // The value lies in (head, head + 1) * 10^q: when both ends round to the
    // same double, so does everything between them.
    uint64_t upper;
    if (scaled_product_bits(num.head + 1, qi, upper) && upper == bits) return bits;
  }
  return exact_decimal_bits(num);
}

}  // namespace xfmt::informats
