#include "oracle/picture_oracle.hpp"

#include <cmath>
#include <cstdio>

#include "core/missing.hpp"

namespace xfmt::oracle {

namespace {
bool digit(char c) { return c >= '0' && c <= '9'; }
}  // namespace

std::string picture_field(const picture_spec &p, int w, bool round, double value) {
  int plen = static_cast<int>(p.tpl.size());
  int digits = 0;
  for (char c : p.tpl) digits += digit(c);
  bool literal = p.noedit || digits == 0;
  // The whole work area as a string: N positions, the field its last w.
  int tlen = literal ? std::min(plen, w) : plen;
  int n_area = std::max(w, tlen);
  std::string area(static_cast<size_t>(n_area), ' ');
  int tstart = n_area - tlen;
  bool sig = false;
  int first = -1;
  if (literal) {
    area.replace(static_cast<size_t>(tstart), static_cast<size_t>(tlen), p.tpl.substr(0, static_cast<size_t>(tlen)));
  } else {
    if (is_missing(value)) return "";
    double x = std::fabs(p.mult != 0 ? value * p.mult : value) + 1e-7;
    double n = std::floor(x);
    if (round && x - n >= 0.5) n += 1;
    if (!(n <= 1e16)) return "";
    char sixteen[40];
    std::snprintf(sixteen, sizeof sixteen, "%016.0f", n);
    std::string src = std::string(sixteen);
    while (static_cast<int>(src.size()) < digits) src = "0" + src;
    src = src.substr(src.size() - static_cast<size_t>(digits));
    size_t k = 0;
    for (int i = 0; i < plen; ++i) {
      char c = p.tpl[static_cast<size_t>(i)];
      char out;
      if (!digit(c)) {
        out = sig ? c : p.fill;
      } else {
        char d = src[k++];
        if (!sig && (d != '0' || c != '0')) {
          sig = true;
          if (first < 0) first = i;
        }
        out = sig ? d : p.fill;
      }
      area[static_cast<size_t>(tstart + i)] = out;
    }
  }
  int lead = 0;
  while (lead < tlen && area[static_cast<size_t>(tstart + lead)] == ' ') ++lead;
  int used = tlen - lead;
  int plen_pre = static_cast<int>(p.prefix.size());
  bool skip = plen_pre == 0 || digits == 0 || (!sig && p.fill == ' ') || (first >= 0 && first >= tlen);
  if (!skip) {
    int at = (first >= 0 ? first : tlen) - 1;
    for (int i = plen_pre - 1; i >= 0; --i, --at) {
      int pos = tstart + at;
      if (at < 0) ++used;
      if (pos < 0) continue;
      if (at >= 0 && area[static_cast<size_t>(pos)] == ' ') ++used;
      area[static_cast<size_t>(pos)] = p.prefix[static_cast<size_t>(i)];
    }
  }
  std::string field = area.substr(static_cast<size_t>(n_area - w));
  int k = w - std::max(tlen, used) - 1;
  if (k >= 0) {
    for (int i = 0; i < k; ++i) field[static_cast<size_t>(i)] = ' ';
    field[static_cast<size_t>(k)] = p.fill;
  }
  return field;
}

}  // namespace xfmt::oracle
