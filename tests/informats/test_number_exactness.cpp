// Exactness of the number reader: the power table and big integers it rests
// on, agreement with strtod over millions of random decimals of every shape,
// shortest round-trip texts of random doubles and of floats, midpoints
// between doubles, the fast methods against the exact one, and the literal
// procedure wherever that procedure is exact.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

#include "informats/big_integer.hpp"
#include "informats/decimal_to_double.hpp"
#include "informats/informat_run.hpp"
#include "informats/number_scan.hpp"
#include "informats/pow5_table.hpp"
#include "oracle/number_reader_oracle.hpp"
#include "support/random.hpp"

namespace {

using namespace xfmt::informats;
using xfmt::test::hex;
using xfmt::test::rng;
using xfmt::test::scaled;

// Random decimal texts of many shapes, each with the plain form that strtod
// reads to the same value.
struct decimal_case {
  std::string text;    // what the informat reads (w = its length)
  int d = 0;           // implied decimals
  std::string plain;   // the same value for strtod: sign, digits, point, "e", exponent
  bool zero = false;   // every digit is 0
};

struct decimal_shape {
  int min_digits, max_digits;     // mantissa digits
  int zero_percent;               // chance of each digit being 0
  bool point;                     // write a point (else implied decimals may apply)
  int64_t min_exp, max_exp;       // explicit exponent range
  int exp_percent;                // chance of writing an exponent
  bool blanks;                    // blanks and tabs around, signs
  int max_d;                      // implied decimals 0..max_d (used without a point)
};

decimal_case make_decimal(std::mt19937_64 &g, const decimal_shape &s) {
  // Modulo of a 64-bit draw: the bias is far below anything a test sees.
  auto pick = [&](int64_t lo, int64_t hi) {
    return lo + static_cast<int64_t>(g() % static_cast<uint64_t>(hi - lo + 1));
  };
  decimal_case c;
  int n = static_cast<int>(pick(s.min_digits, s.max_digits));
  std::string digits(static_cast<size_t>(n), '0');
  uint64_t pool = 0;  // one draw gives nine (percent, digit) pairs
  for (int i = 0; i < n; ++i) {
    if (i % 9 == 0) pool = g();
    unsigned percent = static_cast<unsigned>(pool % 100), digit = static_cast<unsigned>(pool / 100 % 10);
    pool /= 1000;
    bool leading = i == 0 && s.zero_percent < 50;
    if (static_cast<int>(percent) >= s.zero_percent || leading)
      digits[static_cast<size_t>(i)] = static_cast<char>('0' + (leading && digit == 0 ? 1 : digit));
  }
  c.zero = digits.find_first_not_of('0') == std::string::npos;
  size_t point_at = s.point ? static_cast<size_t>(pick(0, n)) : digits.size();
  bool has_exp = pick(0, 99) < s.exp_percent;
  int64_t exp = has_exp ? pick(s.min_exp, s.max_exp) : 0;
  if (!s.point) c.d = static_cast<int>(pick(0, s.max_d));
  std::string sign;
  if (s.blanks) {
    int r = static_cast<int>(pick(0, 2));
    sign = r == 0 ? "" : r == 1 ? "-" : "+";
  }
  std::string mantissa = s.point ? digits.substr(0, point_at) + "." + digits.substr(point_at) : digits;
  std::string e;
  if (has_exp) {
    static const char letters[] = "EeDd";
    e.push_back(letters[pick(0, 3)]);
    if (exp < 0) e += "-";
    else if (pick(0, 1)) e += "+";
    std::string mag = std::to_string(exp < 0 ? -exp : exp);
    e += std::string(static_cast<size_t>(pick(0, 1) ? pick(0, 3) : 0), '0') + mag;
  }
  std::string lead, trail;
  if (s.blanks) {
    static const char ws[] = " \t";
    for (int64_t i = pick(0, 3); i > 0; --i) lead.push_back(ws[pick(0, 1)]);
    for (int64_t i = pick(0, 3); i > 0; --i) trail.push_back(ws[pick(0, 1)]);
  }
  c.text = lead + sign + mantissa + e + trail;
  // Plain form: all digits as an integer, the point turned into the exponent.
  int64_t plain_exp = exp - (s.point ? n - static_cast<int64_t>(point_at) : c.d);
  c.plain = sign + digits + "e" + std::to_string(plain_exp);
  return c;
}

// A reusable frame over a text: the informat as hosts call it, w = length.
struct reader {
  double out = 0;
  xf_frame f{};
  xf_status read(const std::string &text, int d) {
    f.width = static_cast<int32_t>(text.size());
    f.decimals = d;
    f.input = text.data();
    f.input_length = static_cast<uint32_t>(text.size());
    f.output = &out;
    f.output_capacity = 8;
    return wzifmn(&f);
  }
  uint64_t bits() const { return std::bit_cast<uint64_t>(out); }
};

// What a correct reader gives for a case, by strtod on the plain form.
struct expected {
  xf_status status;
  uint64_t bits;
};
expected by_strtod(const decimal_case &c) {
  if (c.zero) return {XF_OK, 0};
  double v = std::strtod(c.plain.c_str(), nullptr);
  if (v == 0 || std::isinf(v)) return {XF_IN_RANGE_WARNING, xfmt::missing_ordinary_bits};
  return {XF_OK, std::bit_cast<uint64_t>(v)};
}

void differential(uint64_t salt, const decimal_shape &shape, uint64_t count) {
  auto g = rng(salt);
  reader r;
  uint64_t failures = 0;
  for (uint64_t i = 0; i < count && failures < 10; ++i) {
    decimal_case c = make_decimal(g, shape);
    expected e = by_strtod(c);
    xf_status st = r.read(c.text, c.d);
    if (st != e.status || r.bits() != e.bits) {
      ++failures;
      ADD_FAILURE() << "text [" << c.text << "] d " << c.d << " plain " << c.plain << ": status "
                    << st << " bits " << hex(r.bits()) << ", strtod " << e.status << " "
                    << hex(e.bits) << " (case " << i << ", seed " << xfmt::test::test_seed() << ")";
    }
  }
}

// ---------------------------------------------------------------- foundations

// Every row: T * 2^(f-127) <= 5^q < (T + 1) * 2^(f-127), 2^127 <= T < 2^128.
TEST(pow5_table, every_row_is_the_truncated_power) {
  for (int q = pow5_min_exponent; q <= pow5_max_exponent; ++q) {
    const pow5_entry &t = pow5(q);
    ASSERT_TRUE(t.hi >> 63) << q;
    auto make = [&](uint64_t add) {
      big_integer x(t.hi);
      x.shift_left(32);
      x.add_small(static_cast<uint32_t>(t.lo >> 32));
      x.shift_left(32);
      x.add_small(static_cast<uint32_t>(t.lo));
      if (add) x.add_small(1);
      return x;
    };
    big_integer lo = make(0), hi = make(1);
    big_integer five(1);
    // Compare T * 2^(f - 127) with 5^q; for q < 0 as T * 5^-q with 2^(127 - f).
    int shift = t.log2_floor - 127;
    if (q >= 0) {
      five.mul_pow5(q);
      if (shift >= 0) {
        lo.shift_left(shift);
        hi.shift_left(shift);
      } else {
        five.shift_left(-shift);
      }
      EXPECT_LE(lo.compare(five), 0) << q;
      EXPECT_GT(hi.compare(five), 0) << q;
    } else {
      lo.mul_pow5(-q);
      hi.mul_pow5(-q);
      big_integer two(1);
      two.shift_left(-shift);
      EXPECT_LE(lo.compare(two), 0) << q;
      EXPECT_GT(hi.compare(two), 0) << q;
    }
  }
}

// ---------------------------------------------------------------- against strtod
// Ten shapes of about a million texts each at scale 1, each a test of its
// own (exhaustive_: the Release build runs them, the sanitizer build leaves
// them out).
const decimal_shape strtod_shapes[] = {
    {1, 17, 10, true, -30, 30, 30, true, 0},            // short realistic numbers
    {20, 40, 10, true, -330, 310, 70, true, 0},         // long mantissas, 20 to 40 digits
    {20, 40, 10, false, -340, 300, 70, true, 31},       // long mantissas without a point
    {5, 40, 85, true, -320, 300, 50, true, 0},          // many zeros
    {1, 25, 10, true, 280, 330, 100, false, 0},         // huge exponents
    {1, 25, 10, true, -360, -290, 100, false, 0},       // tiny exponents
    {1, 20, 20, false, -40, 40, 40, false, 31},         // implied decimals
    {1, 30, 20, true, -320, 310, 50, true, 0},          // blanks, tabs and signs
    {18, 21, 5, true, -330, 310, 80, true, 0},          // nineteen and twenty digits
    {1, 40, 30, true, -100000, 100000, 100, true, 0}};  // extreme exponent texts

class decimal_shapes : public testing::TestWithParam<uint64_t> {};
TEST_P(decimal_shapes, exhaustive_against_strtod) { differential(GetParam() + 1, strtod_shapes[GetParam()], scaled(1000000)); }
INSTANTIATE_TEST_SUITE_P(shape, decimal_shapes, testing::Range<uint64_t>(0, std::size(strtod_shapes)));

// ---------------------------------------------------------------- round trips

// Whether the shortest text of v reads back as v; a failure is reported.
bool reads_back(reader &r, double v) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  const std::string text(buf, res.ptr);
  if (r.read(text, 0) == XF_OK && r.bits() == std::bit_cast<uint64_t>(v)) return true;
  ADD_FAILURE() << text << " read " << hex(r.bits()) << " expected " << hex(std::bit_cast<uint64_t>(v));
  return false;
}

TEST(number_exactness, exhaustive_shortest_texts_of_random_doubles_read_back) {
  auto g = rng(11);
  reader r;
  uint64_t n = scaled(2000000), failures = 0;
  for (uint64_t i = 0; i < n && failures < 10; ++i) {
    uint64_t bits = g() & 0x7FFFFFFFFFFFFFFFull;
    if ((bits >> 52) == 0x7FF || bits == 0) continue;  // no infinities, NaNs or zero
    failures += !reads_back(r, std::bit_cast<double>(bits));
  }
}

// Every float (as a double) printed shortest reads back exactly. The full
// sweep of 2^32 patterns runs with XFMT_EXHAUSTIVE=1; by default every
// 61st pattern is taken.
TEST(number_exactness, shortest_texts_of_floats_read_back) {
  const char *full = std::getenv("XFMT_EXHAUSTIVE");
  uint64_t step = full && *full == '1' ? 1 : 61 * 4;
  step = static_cast<uint64_t>(static_cast<double>(step) / std::min(1.0, static_cast<double>(scaled(1000)) / 1000.0));
  reader r;
  uint64_t failures = 0;
  for (uint64_t p = 1; p < 0x7F800000ull && failures < 10; p += step) {
    float fl = std::bit_cast<float>(static_cast<uint32_t>(p));
    failures += !reads_back(r, fl);
  }
}

// ---------------------------------------------------------------- midpoints

// The exact decimal of (2m + 1) * 2^(k - 1), by schoolbook decimal arithmetic.
std::string midpoint_text(uint64_t odd, int64_t two_exp) {
  std::string digits = std::to_string(odd);  // most significant first
  int64_t point_from_right = 0;
  for (; two_exp > 0; --two_exp) {
    int carry = 0;
    for (size_t i = digits.size(); i-- > 0;) {
      int v = (digits[i] - '0') * 2 + carry;
      digits[i] = static_cast<char>('0' + v % 10);
      carry = v / 10;
    }
    if (carry) digits.insert(digits.begin(), static_cast<char>('0' + carry));
  }
  for (; two_exp < 0; ++two_exp) {  // x / 2 = x * 5 / 10
    int carry = 0;
    for (size_t i = digits.size(); i-- > 0;) {
      int v = (digits[i] - '0') * 5 + carry;
      digits[i] = static_cast<char>('0' + v % 10);
      carry = v / 10;
    }
    if (carry) digits.insert(digits.begin(), static_cast<char>('0' + carry));
    ++point_from_right;
  }
  return digits + "E-" + std::to_string(point_from_right);
}

TEST(number_exactness, midpoints_between_doubles_and_their_neighbours) {
  auto g = rng(12);
  reader r;
  uint64_t n = scaled(20000), failures = 0;
  for (uint64_t i = 0; i < n && failures < 10; ++i) {
    // Doubles between 2^-120 and 2^120 keep the exact midpoints short.
    uint64_t biased = 1023 - 120 + g() % 241;
    uint64_t bits = (biased << 52) | (g() & ((uint64_t{1} << 52) - 1));
    uint64_t m = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    int64_t k = static_cast<int64_t>(biased) - 1075;
    std::string mid = midpoint_text(2 * m + 1, k - 1);
    size_t e = mid.find('E');
    std::string digits = mid.substr(0, e), exp = mid.substr(e);
    // exp is "E-p": appending 27 digits needs p + 27.
    std::string above = digits + "000000000000000000000000001E-" + std::to_string(std::stoll(exp.substr(2)) + 27);
    for (const std::string &t : {mid, above}) {
      decimal_case c;
      c.text = t;
      c.plain = t;
      expected want = by_strtod(c);
      if (r.read(t, 0) != want.status || r.bits() != want.bits) {
        ++failures;
        ADD_FAILURE() << t << " read " << hex(r.bits()) << " strtod " << hex(want.bits);
      }
    }
    // The midpoint itself rounds to the even neighbour.
    r.read(mid, 0);
    EXPECT_EQ(r.bits(), (bits & 1) == 0 ? bits : bits + 1) << mid;
  }
}

// ---------------------------------------------------------------- fast against exact

TEST(number_exactness, fast_methods_agree_with_the_exact_one) {
  auto g = rng(13);
  const decimal_shape shapes[] = {{1, 19, 10, true, -340, 320, 80, false, 0},
                                  {20, 60, 20, true, -340, 320, 80, false, 0}};
  uint64_t n = scaled(100000), failures = 0;
  for (uint64_t i = 0; i < n && failures < 10; ++i) {
    decimal_case c = make_decimal(g, shapes[i % 2]);
    if (c.zero) continue;
    scan_result s = scan_number(c.text.data(), c.text.data() + c.text.size(), c.d);
    ASSERT_EQ(s.kind, scan_kind::number) << c.text;
    uint64_t fast = decimal_to_bits(s.num);
    uint64_t exact = exact_decimal_bits(s.num);
    if (fast != exact) {
      ++failures;
      ADD_FAILURE() << c.text << " fast " << hex(fast) << " exact " << hex(exact);
    }
    uint64_t product;
    if (!s.num.inexact && s.num.head_exp10 >= pow5_min_exponent &&
        s.num.head_exp10 <= pow5_max_exponent &&
        scaled_product_bits(s.num.head, static_cast<int>(s.num.head_exp10), product)) {
      EXPECT_EQ(hex(product), hex(exact)) << c.text;
    }
  }
}

// ---------------------------------------------------------------- the literal procedure

// Texts over the reader's alphabet: the status always agrees with the
// literal procedure, and the value too wherever the procedure is exact
// (at most 15 digits, scale within 22) or both give a missing value.
TEST(number_exactness, agrees_with_the_literal_procedure) {
  auto g = rng(14);
  static const char alphabet[] = "0123456789000.+-eEdDaA_. \t";
  reader r;
  uint64_t n = scaled(500000), failures = 0, exact_compared = 0;
  for (uint64_t i = 0; i < n && failures < 10; ++i) {
    std::string t;
    size_t len = 1 + g() % 12;
    for (size_t k = 0; k < len; ++k) t.push_back(alphabet[g() % (sizeof alphabet - 1)]);
    int d = static_cast<int>(g() % 5);
    auto want = xfmt::oracle::read_number_literally(t, static_cast<int>(t.size()), d);
    xf_status st = r.read(t, d);
    bool exact_domain = want.significant_digits <= 15 && want.scale >= -22 && want.scale <= 22;
    bool value_checked = want.status != XF_OK || exact_domain || std::isnan(want.value) ||
                         want.value == 0;
    exact_compared += value_checked && want.status == XF_OK;
    if (st != want.status ||
        (value_checked && r.bits() != std::bit_cast<uint64_t>(want.value))) {
      ++failures;
      ADD_FAILURE() << "[" << t << "] d " << d << ": " << st << " " << hex(r.bits())
                    << ", literal " << want.status << " " << hex(std::bit_cast<uint64_t>(want.value));
    }
  }
  EXPECT_GT(exact_compared, n / 10);
}

}  // namespace
