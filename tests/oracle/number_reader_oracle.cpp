// Literal transcription of the number informat procedure (see the header).
#include "oracle/number_reader_oracle.hpp"

#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "core/missing.hpp"

namespace xfmt::oracle {
namespace {

// 10^k for k = 0..308 as the compiler's and C library's correctly rounded
// conversion of "1ek" gives it.
double power_of_ten(int64_t k) {
  static const auto table = [] {
    struct t { double v[309]; } r{};
    for (int i = 0; i <= 308; ++i) {
      char buf[16];
      std::snprintf(buf, sizeof buf, "1e%d", i);
      r.v[i] = std::strtod(buf, nullptr);
    }
    return r;
  }();
  return table.v[k];
}

informat_result done(xf_status st, double v) { return {st, v, 0, 0}; }

}  // namespace

informat_result read_number_literally(const std::string &text, int w, int d) {
  const double ordinary = missing_ordinary();
  // 1-3: width and decimals.
  int64_t n = w < static_cast<int64_t>(text.size()) ? w : static_cast<int64_t>(text.size());
  if (n < 1) return done(n == 0 ? XF_OK : XF_IN_BAD_WIDTH, ordinary);
  if (d == 98 || d == 99) d = 0;
  if (d > 31 || d < 0) return done(XF_IN_BAD_WIDTH, ordinary);
  std::string s = text.substr(0, static_cast<size_t>(n));
  // 4: blanks and tabs at both ends.
  size_t b = 0, e = s.size();
  while (b < e && (s[b] == ' ' || s[b] == '\t')) ++b;
  while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t')) --e;
  if (b == e) return done(XF_OK, ordinary);
  s = s.substr(b, e - b);
  // 5: sign.
  size_t i = 0;
  bool negative = false;
  if (s[i] == '-' || s[i] == '+') {
    negative = s[i] == '-';
    ++i;
    if (i == s.size()) return done(XF_IN_INVALID, ordinary);
  }
  // 6: missing-value notations.
  static const std::string letters = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  auto letter_value = [&](char c) -> informat_result {
    char up = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    size_t k = letters.find(up);
    if (k == std::string::npos || up == '\0') return done(XF_IN_INVALID, ordinary);
    return done(XF_OK, missing_value(static_cast<int>(k)));
  };
  auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  if (!is_digit(s[i])) {
    if (s[i] != '.') {
      if (s.size() - i == 1) return letter_value(s[i]);
      return done(XF_IN_INVALID, ordinary);
    }
    if (s.size() - i == 1) return done(XF_OK, ordinary);
    if (!is_digit(s[i + 1])) {
      if (s.size() - i == 2) return letter_value(s[i + 1]);
      return done(XF_IN_INVALID, ordinary);
    }
  }
  // 7: leading zeros before any point.
  while (i < s.size() && s[i] == '0') ++i;
  // 8: digits, nine at a time, zeros counted until a nonzero digit follows.
  double value = 0;
  uint32_t group = 0;
  int in_group = 0;
  int64_t zeros = 0;
  int64_t after_point = 0;
  int significant = 0;
  bool point = false;
  auto push_digit = [&](unsigned dgt) {
    group = group * 10 + dgt;
    ++significant;
    if (++in_group == 9) {
      value = value * 1e9 + group;
      group = 0;
      in_group = 0;
    }
  };
  for (; i < s.size(); ++i) {
    char c = s[i];
    if (is_digit(c)) {
      if (point) ++after_point;
      if (c == '0') {
        if (significant > 0) ++zeros;
        continue;
      }
      for (; zeros > 0; --zeros) push_digit(0);
      push_digit(static_cast<unsigned>(c - '0'));
    } else if (c == '.') {
      if (point) return done(XF_IN_INVALID, ordinary);
      point = true;
    } else {
      break;
    }
  }
  if (in_group > 0) value = value * power_of_ten(in_group) + group;
  // 9: exponent.
  int64_t exponent = 0;
  if (i < s.size()) {
    char c = s[i];
    if (c != 'E' && c != 'e' && c != 'D' && c != 'd') return done(XF_IN_INVALID, ordinary);  // 10
    ++i;
    bool exp_negative = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) exp_negative = s[i++] == '-';
    for (; i < s.size(); ++i) {
      if (!is_digit(s[i])) return done(XF_IN_INVALID, ordinary);  // 10
      if (exponent < 1000000000) exponent = exponent * 10 + (s[i] - '0');
    }
    if (exp_negative) exponent = -exponent;
  }
  // 11: zero.
  if (significant == 0) return done(XF_OK, 0.0);
  // 12: the scale. Zeros still pending are trailing zeros of the mantissa.
  int64_t scale = point ? zeros - after_point : zeros - d;
  scale += exponent;
  // 13: apply it.
  if (scale > 308) return {XF_IN_RANGE_WARNING, ordinary, significant, scale};
  if (scale >= 0) {
    value *= power_of_ten(scale);
  } else if (-scale > 308) {
    value /= 1e308;
    if (-scale - 308 > 308) return {XF_IN_RANGE_WARNING, ordinary, significant, scale};
    value /= power_of_ten(-scale - 308);
  } else {
    value /= power_of_ten(-scale);
  }
  if (value == 0 || value > 1.7976931348623157e308) return {XF_IN_RANGE_WARNING, ordinary, significant, scale};
  // 14: the sign.
  return {XF_OK, negative ? -value : value, significant, scale};
}

}  // namespace xfmt::oracle
