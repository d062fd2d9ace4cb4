// Random decimal texts of many shapes for the differential tests, each with
// the plain form that strtod reads to the same value.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace xfmt::test {

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

inline decimal_case make_decimal(std::mt19937_64 &g, const decimal_shape &s) {
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

}  // namespace xfmt::test
