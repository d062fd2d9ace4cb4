// Slow reference of the binary formats, one literal step at a time.
#include "oracle/binary_oracle.hpp"

#include <cmath>
#include <cstdio>
#include <string>

namespace xfmt::oracle {
namespace {

// Decimal text of round(v * 10^d), half away from zero, no sign: the
// product is the same single double multiplication the formats define.
std::string scaled_digits(double v, int d, bool &negative) {
  double p = 1;
  static const double pw[32] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,
                                1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21,
                                1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31};
  if (d >= 0 && d <= 31) p = pw[d];
  double x = std::round(v * p);
  negative = x < 0;
  // Past the double range: more digits than any field holds.
  if (std::isinf(x)) return std::string(400, '9');
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.0f", std::fabs(x));
  return buf;
}

// Divides the decimal text by k in place, returning the remainder.
int divide(std::string &digits, int k) {
  std::string q;
  int r = 0;
  for (char c : digits) {
    r = r * 10 + (c - '0');
    int qd = r / k;
    r %= k;
    if (!q.empty() || qd != 0) q.push_back(static_cast<char>('0' + qd));
  }
  digits = q.empty() ? "0" : q;
  return r;
}

bool is_zero(const std::string &digits) { return digits.find_first_not_of('0') == std::string::npos; }

// Little-endian base-256 bytes of the decimal text, n bytes; false when
// more are needed.
bool to_bytes(std::string digits, size_t n, std::string &le) {
  le.clear();
  for (size_t i = 0; i < n; ++i) le.push_back(static_cast<char>(divide(digits, 256)));
  return is_zero(digits);
}

// Two's complement negation of little-endian bytes.
void negate(std::string &le) {
  int carry = 1;
  for (char &c : le) {
    int v = (~static_cast<unsigned char>(c) & 0xFF) + carry;
    c = static_cast<char>(v & 0xFF);
    carry = v >> 8;
  }
}

std::string reversed(std::string s) { return std::string(s.rbegin(), s.rend()); }

// How an unsigned field stores a negative value: 'F' all FF, 'A' the
// absolute value, 'T' the two's-complement low bytes (saturating at 80 00..).
bytes_result integer_oracle(double value, int w, int d, bool is_signed, bool big, char negative_rule = 'F') {
  bytes_result r;
  std::string le;
  bool neg = false;
  bool missing = std::isnan(value);
  std::string digits = missing ? "0" : scaled_digits(value, d, neg);
  if (missing) neg = false;
  if (is_zero(digits)) neg = false;
  if (!is_signed && neg && negative_rule == 'A') neg = false;
  if (!is_signed && negative_rule == 'T') is_signed = neg;  // positive values stay unsigned
  bool fits = !std::isinf(value) && to_bytes(digits, static_cast<size_t>(w), le);
  size_t wn = static_cast<size_t>(w);
  if (fits && is_signed) {
    unsigned top = static_cast<unsigned char>(le[wn - 1]);
    if (!neg && top >= 0x80) fits = false;
    if (neg && top > 0x80) fits = false;
    if (neg && top == 0x80 && le.find_first_not_of('\0') != wn - 1) fits = false;
  }
  if (!is_signed && neg) fits = false;
  if (!fits) {
    r.status = XF_E_OVERFLOW;
    if (is_signed) le = neg ? std::string(wn - 1, '\0') + "\x80" : std::string(wn - 1, '\xFF') + "\x7F";
    else le = std::string(wn, '\xFF');
  } else if (neg) {
    negate(le);
  }
  r.bytes = big ? reversed(le) : le;
  return r;
}

bytes_result decimal_oracle(char kind, double value, int w, int d) {
  bytes_result r;
  bool neg = false;
  bool missing = std::isnan(value);
  std::string digits = missing ? "0" : scaled_digits(value, d, neg);
  if (missing || is_zero(digits)) neg = false;
  if (missing && kind == 'D') neg = true;  // packed minus zero
  size_t n = kind == 'D' ? static_cast<size_t>(2 * w - 1) : kind == 'K' ? static_cast<size_t>(2 * w) : static_cast<size_t>(w);
  if (std::isinf(value) || digits.size() > n) {
    r.status = XF_E_OVERFLOW;
    digits = std::string(n, '9');
  }
  if (kind == 'K' && neg) {
    r.status = XF_E_OVERFLOW;
    digits = "0";
    neg = false;
  }
  digits = std::string(n - digits.size(), '0') + digits;
  if (kind == 'Z') {
    for (size_t i = 0; i < n; ++i) {
      unsigned zone = i + 1 < n ? 0xF0u : neg ? 0xD0u : 0xC0u;
      r.bytes.push_back(static_cast<char>(zone | static_cast<unsigned>(digits[i] - '0')));
    }
    return r;
  }
  if (kind == 'z') {
    r.bytes = digits;
    r.bytes.back() = (neg ? "}JKLMNOPQR" : "{ABCDEFGHI")[digits.back() - '0'];
    return r;
  }
  std::string nibbles = digits;
  if (kind == 'D') nibbles.push_back(static_cast<char>('0' + (neg ? 0xD : 0xC)));
  for (size_t i = 0; i < nibbles.size(); i += 2) {
    unsigned hi = static_cast<unsigned>(nibbles[i] - '0'), lo = static_cast<unsigned>(nibbles[i + 1] - '0');
    r.bytes.push_back(static_cast<char>((hi << 4) | lo));
  }
  return r;
}

}  // namespace

bytes_result binary_oracle(char kind, double value, int w, int d) {
  switch (kind) {
    case 'I': return integer_oracle(value, w, d, true, true);
    case 'i': return integer_oracle(value, w, d, true, false);
    case 'P': return integer_oracle(value, w, d, false, true);
    case 'p': return integer_oracle(value, w, d, false, false);
    case 'U': return integer_oracle(value, w, d, false, true, 'A');
    case 'Q': return integer_oracle(value, w, d, false, true, 'T');
    case 'q': return integer_oracle(value, w, d, false, false, 'T');
    default: return decimal_oracle(kind, value, w, d);
  }
}

bytes_result radix_oracle(int base, double value, int w) {
  bytes_result r;
  bool neg = false;
  std::string digits = std::isfinite(value) ? scaled_digits(value, 0, neg) : "";
  if (is_zero(digits)) neg = false;
  std::string out;
  // Magnitude digits in the base, least significant first.
  std::string m = digits;
  for (int i = 0; i < w; ++i) out.push_back("0123456789ABCDEF"[divide(m, base)]);
  bool fits = std::isfinite(value) && is_zero(m);
  if (fits && neg) {
    // base^w - magnitude: complement every digit, then add one.
    int carry = 1;
    for (char &c : out) {
      int v = static_cast<int>(std::string("0123456789ABCDEF").find(c));
      int t = base - 1 - v + carry;
      carry = t / base;
      c = "0123456789ABCDEF"[t % base];
    }
    // Negative values need the top bit of the w digits set (magnitude up
    // to base^w / 2); a zero magnitude never gets here.
    int top = static_cast<int>(std::string("0123456789ABCDEF").find(out.back()));
    if (top < base / 2) fits = false;
  }
  if (!fits) {
    r.bytes = std::string(static_cast<size_t>(w), '*');
    r.status = XF_E_OVERFLOW;
    return r;
  }
  r.bytes = reversed(out);
  return r;
}

}  // namespace xfmt::oracle
