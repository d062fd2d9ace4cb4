// The literal money printer (see nls_money_oracle.hpp).
#include "nls_money_oracle.hpp"

#include <cstdio>
#include <cstring>

#include "nls/nl_encode.hpp"

namespace xfmt::oracle {
namespace {

std::string group_digits(const nls::money_conventions &c, const std::string &digits, bool grouped) {
  std::string whole = digits, frac;
  bool has_point = false;
  size_t dot = digits.find('.');
  if (dot != std::string::npos) {
    whole = digits.substr(0, dot);
    frac = digits.substr(dot + 1);
    has_point = true;
  }
  std::string out;
  if (grouped && digits.find('E') == std::string::npos && c.group > 0 &&
      whole.size() > static_cast<size_t>(c.group)) {
    size_t g = static_cast<size_t>(c.group);
    size_t first = whole.size() % g ? whole.size() % g : g;
    out = whole.substr(0, first);
    for (size_t i = first; i < whole.size(); i += g)
      out += std::string(c.separator) + whole.substr(i, g);
  } else {
    out = whole;
  }
  if (has_point) out += std::string(c.point) + frac;
  return out;
}

std::string candidate(const nls::money_conventions &c, const std::string &digits, bool neg,
                      bool grouped, const std::string &symbol) {
  const char *pat = CurrencyFormatPatterns[nls::money_pattern_index(c, neg)];
  std::string s;
  for (const char *p = pat; *p; ++p) {
    if (*p == '$')
      s += symbol;
    else if (*p == '(' || *p == ')') {
      if (neg) s += *p;
    } else if (*p == '-')
      s += std::string(neg ? c.negative : c.positive);
    else if (*p == 'V')
      s += group_digits(c, digits, grouped);
    else
      s += *p;
  }
  size_t b = s.find_first_not_of(' ');
  s = b == std::string::npos ? "" : s.substr(b);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  if (!neg && c.flags[5] == 0) s += ' ';
  return s;
}

// Encoded width of a narrow text, or -1 when it must be shortened.
bool fits(const std::string &text, int w, std::string &encoded) {
  char out[2048];
  uint32_t n = 0;
  int r = nls::encode_text(false, text.data(), text.size(), w, out, sizeof out, &n);
  encoded.assign(out, n);
  return r <= 0;
}

}  // namespace

std::string money_field(const nls::money_conventions &c, const std::string &symbol, double v, int w,
                        int d) {
  char buf[1024];
  std::snprintf(buf, sizeof buf, "%.*f", d, v);
  std::string digits = buf[0] == '-' ? buf + 1 : buf;
  std::snprintf(buf, sizeof buf, "%-.*G", d, v);
  std::string expo = buf[0] == '-' ? buf + 1 : buf;
  bool neg = v < 0;
  const struct {
    bool e, g, s;
  } tries[] = {{false, true, true},
               {false, false, true},
               {false, false, false},
               {true, false, true},
               {true, false, false}};
  for (const auto &t : tries) {
    const std::string &dg = t.e ? expo : digits;
    if (t.e && dg.size() > static_cast<size_t>(w)) return "";
    std::string cand = candidate(c, dg, neg, t.g, t.s ? symbol : "");
    if (cand.size() > 256) return "";
    std::string enc;
    if (fits(cand, w, enc)) return std::string(static_cast<size_t>(w) - enc.size(), ' ') + enc;
  }
  std::snprintf(buf, sizeof buf, "%*.*f", w, d, v);
  std::string enc;
  if (!fits(buf, w, enc)) return "";
  return std::string(static_cast<size_t>(w) - enc.size(), ' ') + enc;
}

}  // namespace xfmt::oracle
