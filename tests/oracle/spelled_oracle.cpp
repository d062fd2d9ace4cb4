#include "oracle/spelled_oracle.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace xfmt::oracle {
namespace {

const char *const small[] = {"zero",    "one",     "two",      "three",     "four",
                             "five",    "six",     "seven",    "eight",     "nine",
                             "ten",     "eleven",  "twelve",   "thirteen",  "fourteen",
                             "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
const char *const tens[] = {"", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"};

std::string below_thousand(int64_t n) {
  if (n < 20) return small[n];
  if (n < 100) return std::string(tens[n / 10]) + (n % 10 ? std::string("-") + small[n % 10] : "");
  return std::string(small[n / 100]) + " hundred" + (n % 100 ? " " + below_thousand(n % 100) : "");
}

// 0 <= n < 10^15 in lower-case English words: "one million two thousand three".
std::string integer_words(int64_t n) {
  struct scale {
    int64_t size;
    const char *name;
  };
  const scale scales[] = {{1000000000000LL, "trillion"}, {1000000000LL, "billion"}, {1000000LL, "million"},
                          {1000LL, "thousand"}};
  for (const scale &s : scales) {
    if (n >= s.size) {
      std::string head = below_thousand(n / s.size) + " " + s.name;
      return n % s.size ? head + " " + integer_words(n % s.size) : head;
    }
  }
  return below_thousand(n);
}

}  // namespace

std::string amount_words(double v, bool figures) {
  double a = std::fabs(v);
  if (!(a < 1e15)) return "";
  // The two decimals as printf rounds them: "123.45".
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", a);
  const char *point = std::strchr(text, '.');
  long long whole = std::atoll(text);
  int c = std::atoi(point + 1);
  if (whole >= 1000000000000000LL) return "";
  std::string s = (v < 0 && (whole != 0 || c != 0)) ? "minus " : "";
  s += integer_words(whole);
  if (figures) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d", c);
    s += std::string(" and ") + buf + "/100";
  } else if (c != 0) {
    s += " and " + below_thousand(c) + (c == 1 ? " hundredth" : " hundredths");
  }
  return s;
}

std::string roman(int n) {
  const char *const ones[] = {"", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
  const char *const tns[] = {"", "X", "XX", "XXX", "XL", "L", "LX", "LXX", "LXXX", "XC"};
  const char *const huns[] = {"", "C", "CC", "CCC", "CD", "D", "DC", "DCC", "DCCC", "CM"};
  const char *const thos[] = {"", "M", "MM", "MMM"};
  return std::string(thos[n / 1000]) + huns[n / 100 % 10] + tns[n / 10 % 10] + ones[n % 10];
}

std::string ssn(int64_t n) {
  char buf[48];
  std::snprintf(buf, sizeof buf, "%03lld-%02lld-%04lld", static_cast<long long>(n / 1000000),
                static_cast<long long>(n / 10000 % 100), static_cast<long long>(n % 10000));
  return buf;
}

std::string reverj(const std::string &text, int32_t w) {
  std::string field = text.substr(0, static_cast<size_t>(w));
  field.resize(static_cast<size_t>(w), ' ');
  return std::string(field.rbegin(), field.rend());
}

std::string quote(const std::string &text, int32_t w) {
  std::string t = text;
  while (!t.empty() && t.back() == ' ') t.pop_back();
  std::string body;
  for (char c : t) {
    std::string piece = c == '"' ? "\"\"" : std::string(1, c);
    if (body.size() + piece.size() + 2 > static_cast<size_t>(w)) break;
    body += piece;
  }
  std::string s = "\"" + body + "\"";
  s.resize(static_cast<size_t>(w), ' ');
  return s;
}

}  // namespace xfmt::oracle
