// Expanding a pattern: "%x" and "%X" inlined, then the pattern engine's
// steps (kept for a locale's own patterns, compiled here for any other), then
// fitting into the field.
#include "nls/expand.hpp"

#include <cstring>

#include "nls/date_plan.hpp"

namespace xfmt::nls {
namespace {

// Longest text an expansion builds before fitting: a locale pattern is a few
// dozen bytes, its names at most a few hundred even with escapes.
constexpr size_t work_room = 1024;

// First pass: "%x" and "%X" become the locale's date and time patterns.
size_t inline_patterns(const char *p, size_t n, const field_reader &loc, char *out, size_t room) {
  size_t k = 0;
  auto put = [&](const char *s, size_t len) {
    for (size_t i = 0; i < len && k < room; ++i) out[k++] = s[i];
  };
  for (size_t i = 0; i < n; ++i) {
    if (p[i] != '%' || i + 1 >= n) {
      put(p + i, 1);
      continue;
    }
    const char next = p[i + 1];
    if (next == 'x' || next == 'X') {
      std::string_view t;
      if (loc.get(next == 'x' ? lf::date_default : lf::time_24_hour, &t)) put(t.data(), t.size());
    } else {
      put(p + i, 2);
    }
    ++i;
  }
  while (k > 0 && out[k - 1] == ' ') --k;
  return k;
}

}  // namespace

size_t escaped_length(std::string_view t) {
  size_t n = 0;
  for (size_t i = 0; i < t.size(); ++n) {
    bool esc =
        t[i] == '<' && i + 7 <= t.size() && (t[i + 1] == 'U' || t[i + 1] == 'u') && t[i + 6] == '>';
    i += esc ? 7 : 1;
  }
  return n;
}

bool parse_conversion(const char *p, size_t n, size_t &i, conversion &c) {
  if (i < n && (p[i] == '#' || p[i] == '0')) c.hash = p[i++] == '#';
  if (i < n && p[i] >= '1' && p[i] <= '9') ++i;
  if (i < n && p[i] == '+') {
    c.era = true;
    ++i;
  }
  if (i < n && p[i] == '?') {
    c.lower = true;
    ++i;
  }
  if (i >= n) return false;
  char l = p[i++];
  if (l == 'm') {
    c.letter = 'N';
    return true;
  }
  if (l >= 'a' && l <= 'z') {
    c.lower = true;
    l = static_cast<char>(l - 'a' + 'A');
  }
  c.letter = l;
  return true;
}

std::string_view prepare_pattern(const char *pattern, size_t pattern_length,
                                 const field_reader &loc, char *buffer, size_t room) {
  bool inline_needed = false;
  for (size_t i = 0; i + 1 < pattern_length && !inline_needed; ++i)
    inline_needed = pattern[i] == '%' && (pattern[i + 1] == 'x' || pattern[i + 1] == 'X');
  if (inline_needed)
    return {buffer, inline_patterns(pattern, pattern_length, loc, buffer, room)};
  size_t n = pattern_length;
  while (n > 0 && pattern[n - 1] == ' ') --n;
  return {pattern, n};
}

int expand_text(const moment &m, const field_reader &loc, const char *pattern,
                size_t pattern_length, char *text, size_t room, size_t *length, int32_t decimals) {
  char inlined[work_room];
  const std::string_view prepared =
      prepare_pattern(pattern, pattern_length, loc, inlined, sizeof inlined);
  const nl_result r =
      run_pattern(m, loc, nullptr, prepared, decimals, text, room, false, length, nullptr);
  return r == nl_result::unusable ? expand_bad_letter : expand_fits;
}

int expand(const moment &m, const field_reader &loc, const char *pattern, size_t pattern_length,
           char *out, int32_t *width, int32_t decimals) {
  char text[work_room];
  size_t total = 0;
  int r = expand_text(m, loc, pattern, pattern_length, text, sizeof text, &total, decimals);
  if (r != expand_fits) return r;
  bool right = *width < 0;
  size_t field = static_cast<size_t>(right ? -static_cast<int64_t>(*width) : *width);
  size_t len = total < sizeof text ? total : sizeof text;
  if (field) std::memset(out, ' ', field);
  if (total > field) {
    std::memcpy(out, text, field < len ? field : len);
    return expand_too_long;
  }
  std::memcpy(out + (right ? field - len : 0), text, len);
  *width = static_cast<int32_t>(len);
  return expand_fits;
}

}  // namespace xfmt::nls
