// Value families and descriptions of the catalogued names. One rule covers a
// whole family of names ("DDMMYY*" is seven formats, "NLMNI???" forty), so
// the table stays a page long; the first rule whose pattern matches wins. The
// rules are kept as data in tools/gen/name_families.tsv and generated into
// name_families_table.inc.
#include "catalog/name_families.hpp"

#include <string_view>

namespace xfmt::catalog {
namespace {

enum side : uint8_t { both, format_only, informat_only };

// pattern: '?' matches one character, '*' any run (at most one '*').
// description placeholders: {sep} the separator named by the letters the
// '*' matched (B blank, C colon, D dash, N none, P period, S slash), {cur}
// the last three letters (a currency code), {lang} the first three (a
// language code).
struct name_rule {
  const char *pattern;
  side applies;
  uint32_t family;
  uint32_t flags;
  const char *description;
};

constexpr uint32_t NUM = XFX_FAMILY_NUMBER, CUR = XFX_FAMILY_CURRENCY, PCT = XFX_FAMILY_PERCENT,
                   DAT = XFX_FAMILY_DATE, TIM = XFX_FAMILY_TIME, DTM = XFX_FAMILY_DATETIME,
                   DUR = XFX_FAMILY_DURATION, BIN = XFX_FAMILY_BINARY, CHR = XFX_FAMILY_CHARACTER,
                   NAT = XFX_FAMILY_NATIONAL;
constexpr uint32_t RAW = XFX_BYTES, NL = XFX_NATIONAL;

constexpr name_rule rules[] = {
#include "catalog/name_families_table.inc"
};

// Glob match; on success star holds what '*' matched.
bool matches(std::string_view pattern, std::string_view name, std::string_view &star) {
  size_t p = 0;
  for (; p < pattern.size() && pattern[p] != '*'; ++p) {
    if (p >= name.size() || (pattern[p] != '?' && pattern[p] != name[p])) return false;
  }
  if (p == pattern.size()) return name.size() == p;
  std::string_view tail = pattern.substr(p + 1);
  if (name.size() < p + tail.size()) return false;
  size_t tail_at = name.size() - tail.size();
  for (size_t i = 0; i < tail.size(); ++i) {
    if (tail[i] != '?' && tail[i] != name[tail_at + i]) return false;
  }
  star = name.substr(p, tail_at - p);
  return true;
}

const name_rule *rule_of(const char *name, uint32_t length, bool informat, std::string_view &star) {
  std::string_view n(name, length);
  for (const name_rule &r : rules) {
    if (r.applies == (informat ? format_only : informat_only)) continue;
    if (matches(r.pattern, n, star)) return &r;
  }
  return &rules[sizeof rules / sizeof rules[0] - 1];
}

std::string_view separator_words(std::string_view suffix) {
  if (suffix.size() != 1) return "";
  switch (suffix[0]) {
    case 'B': return ", separated by blanks";
    case 'C': return ", separated by colons";
    case 'D': return ", separated by dashes";
    case 'N': return ", without separators";
    case 'P': return ", separated by periods";
    case 'S': return ", separated by slashes";
    default: return "";
  }
}

}  // namespace

name_traits traits_of(const char *name, uint32_t length, bool informat) {
  std::string_view star;
  const name_rule *r = rule_of(name, length, informat, star);
  name_traits t;
  t.family = r->family;
  t.flags = r->flags;
  return t;
}

void describe_name(const char *name, uint32_t length, bool informat, text_sink &sink) {
  std::string_view star;
  std::string_view n(name, length);
  const name_rule *r = rule_of(name, length, informat, star);
  if (informat) sink.put("reads ");
  std::string_view d = r->description;
  for (size_t i = 0; i < d.size(); ++i) {
    if (d.substr(i, 5) == "{sep}") {
      sink.put(separator_words(star));
      i += 4;
    } else if (d.substr(i, 5) == "{cur}") {
      sink.put(n.substr(n.size() >= 3 ? n.size() - 3 : 0));
      i += 4;
    } else if (d.substr(i, 6) == "{lang}") {
      sink.put(n.substr(0, 3));
      i += 5;
    } else {
      sink.put(d[i]);
    }
  }
}

}  // namespace xfmt::catalog
