// The national pattern expander as it was first written, kept as the slow
// literal oracle of the pattern engine: the pattern walked conversion by
// conversion for every value, each name read through the field reader, each
// byte put one at a time.
#include "oracle/nls_expand_oracle.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/platform.hpp"

namespace xfmt::oracle {
namespace {

using nls::field_reader;
using nls::moment;

struct conversion {
  bool hash = false, era = false, lower = false;
  char letter = 0;
};

size_t escaped_length(std::string_view t) {
  size_t n = 0;
  for (size_t i = 0; i < t.size(); ++n)
    i += t[i] == '<' && i + 7 <= t.size() && (t[i + 1] == 'U' || t[i + 1] == 'u') && t[i + 6] == '>'
             ? 7u
             : 1u;
  return n;
}

// Bytes past the room are counted but dropped.
struct sink {
  char *p;
  size_t room;
  size_t n = 0;
  void put(char c) {
    if (n < room) p[n] = c;
    ++n;
  }
  void put(std::string_view s) {
    for (char c : s) put(c);
  }
  // Exactly k digits of v (v >= 0), the leading ones zero or blank.
  void fixed(int64_t v, int k, char fill) {
    char d[24];
    for (int i = k - 1; i >= 0; --i, v /= 10) d[i] = static_cast<char>('0' + v % 10);
    for (int i = 0; fill != '0' && i < k - 1 && d[i] == '0'; ++i) d[i] = fill;
    for (int j = 0; j < k; ++j) put(d[j]);
  }
  void plain(int64_t v) { put(std::to_string(v)); }
  // A two-digit number: zero padded (a value past 99 keeps its last two
  // digits, a negative one shows 00), under "#" as many digits as needed.
  void two(const conversion &c, int64_t v) {
    if (c.hash) plain(v);
    else fixed(v < 0 ? 0 : v % 100, 2, '0');
  }
};

void name(sink &s, const field_reader &loc, int field, size_t pad_to = 0) {
  std::string_view t;
  if (!loc.get(field, &t)) return s.put("**");
  s.put(t);
  for (size_t k = escaped_length(t); k < pad_to; ++k) s.put(' ');
}

size_t longest_name(const field_reader &loc, int first, int count) {
  size_t best = 0;
  std::string_view t;
  for (int i = 0; i < count; ++i)
    if (loc.get(first + i, &t)) best = std::max(best, escaped_length(t));
  return best;
}

int era_year(const moment &m, const field_reader &loc) {
  std::string_view country;
  if (!loc.get(5, &country)) return m.year;
  if (country == "TW") return m.year - 1911 <= 0 ? 1 - (m.year - 1911) : m.year - 1911;
  if (country == "TH") return m.year + 543;
  if (country != "JP") return m.year;
  // Meiji, Taisho, Showa, Heisei: the first day (days from 1960) and year.
  const int64_t start[] = {-33506, -17321, -12060, 10600};
  const int year[] = {1868, 1912, 1926, 1989};
  for (int k = 3; k >= 0; --k)
    if (start[k] <= m.day_number) return m.year + 1 - year[k];
  return m.year;
}

// "%z": the standard offset, daylight-saving time adding one to the hours.
void zone_offset(sink &s) {
  const platform::zone_snapshot &z = platform::process_zone();
  const long east = -static_cast<long>(z.seconds_west), mag = east < 0 ? -east : east;
  s.put(east < 0 ? '-' : '+');
  s.fixed((mag / 3600 + (z.dst ? 1 : 0)) % 100, 2, '0');
  s.fixed((mag % 3600) / 60, 2, '0');
}

// "%S": the seconds, then the locale's point and the fraction digit by
// digit, the last rounded without carry (a 9 is never raised).
void seconds(sink &s, const conversion &c, const moment &m, const field_reader &loc,
             int32_t decimals, bool with_fraction) {
  if (m.has_second) s.two(c, static_cast<int64_t>(std::floor(m.second)));
  else s.put("**");
  if (!with_fraction || decimals <= 0) return;
  std::string_view point;
  if (!loc.get(172, &point) || point.empty()) point = ".";
  s.put(point);
  double frac = m.second - std::floor(m.second);
  for (int i = 0; i < decimals; ++i) {
    if (!m.has_second) {
      s.put('*');
      continue;
    }
    frac *= 10;
    int digit = std::min(static_cast<int>(frac), 9);
    frac -= digit;
    if (i == decimals - 1 && digit < 9 && static_cast<int>(frac * 10) >= 5) ++digit;
    s.put(static_cast<char>('0' + digit));
  }
}

// Writes one conversion; false for an unknown letter.
bool convert(sink &s, const conversion &c, const moment &m, const field_reader &loc,
             int32_t decimals) {
  const bool lower = c.lower, hash = c.hash;
  if (lower && (c.letter == 'V' || c.letter == 'T')) return true;  // "%v", "%t": nothing
  const std::string date_letters = "ABCDEFGJOQUVWY";
  if ((date_letters.find(c.letter) != std::string::npos || (c.letter == 'N' && !lower)) &&
      !m.has_date) {
    s.put("**");
    return true;
  }
  const bool hour_letter = std::string("HKILPT").find(c.letter) != std::string::npos ||
                           (c.letter == 'N' && lower);
  if (hour_letter && c.letter != 'T' && !m.has_hour) {
    s.put("**");
    return true;
  }
  int iso_year = m.iso_year, iso_week = m.iso_week, monday_week = m.monday_week;
  if (m.weeks != nullptr) m.weeks(m, &iso_year, &iso_week, &monday_week);
  const int64_t twelve = m.hour <= 12 ? m.hour : m.hour % 12;
  const int weekdays = lower ? (hash ? 121 : 107) : (hash ? 128 : 114);
  const int months = lower ? (hash ? 83 : 59) : (hash ? 95 : 71);
  switch (c.letter) {
    case '%': s.put('%'); return true;
    case 'A': name(s, loc, weekdays + m.wday); return true;
    case 'F': name(s, loc, weekdays + m.wday, longest_name(loc, weekdays, 7)); return true;
    case 'B': name(s, loc, months + m.month - 1); return true;
    case 'C': {
      const int first = hash ? 95 : 71;
      name(s, loc, first + m.month - 1, longest_name(loc, first, 12));
      return true;
    }
    case 'Q':
      name(s, loc, (lower ? (hash ? 143 : 135) : (hash ? 147 : 139)) + (m.month - 1) / 3);
      return true;
    case 'D': s.two(c, m.day); return true;
    case 'E': s.fixed(m.day % 100, 2, ' '); return true;
    case 'G': lower ? s.two(c, iso_year % 100) : s.fixed(iso_year % 10000, 4, '0'); return true;
    case 'H':
    case 'K': {
      const int64_t h = c.letter == 'K' && m.hour == 0 ? 24 : m.hour;
      h > 99 ? s.plain(h) : s.two(c, h);
      return true;
    }
    case 'I': s.two(c, twelve == 0 ? 12 : twelve); return true;
    case 'L': s.two(c, twelve); return true;
    case 'M': m.has_minute ? s.two(c, m.minute) : s.put("**"); return true;
    case 'N': lower ? s.plain(m.hour / 24) : s.two(c, m.month); return true;
    case 'O': s.fixed(m.month, 2, ' '); return true;
    case 'J': hash ? s.plain(m.yday) : s.fixed(m.yday, 3, '0'); return true;
    case 'P': {
      std::string_view t;
      const bool am = m.hour % 24 <= 11;
      s.put(loc.get(am ? 151 : 152, &t) ? t : am ? "AM" : "PM");
      return true;
    }
    case 'S': seconds(s, c, m, loc, decimals, !lower); return true;
    case 'T': {
      const conversion none{};
      m.has_hour ? s.two(none, m.hour) : s.put("**");
      s.put(':');
      m.has_minute ? s.two(none, m.minute) : s.put("**");
      s.put(':');
      seconds(s, none, m, loc, 0, false);
      return true;
    }
    case 'U':
      if (lower) s.put(static_cast<char>('0' + (m.wday == 0 ? 7 : m.wday)));
      else s.two(c, (m.yday - 1 + 7 - m.wday) / 7);
      return true;
    case 'W': lower ? s.put(static_cast<char>('0' + m.wday)) : s.two(c, monday_week); return true;
    case 'V': s.two(c, iso_week); return true;
    case 'Y': {
      const int y = c.era ? era_year(m, loc) : m.year;
      lower ? s.two(c, y % 100) : s.fixed(y % 10000, 4, '0');
      return true;
    }
    case 'Z': lower ? zone_offset(s) : s.put(platform::process_zone().abbrev); return true;
    default: return false;
  }
}

bool parse_conversion(const std::string &p, size_t &i, conversion &c) {
  if (i < p.size() && (p[i] == '#' || p[i] == '0')) c.hash = p[i++] == '#';
  if (i < p.size() && p[i] >= '1' && p[i] <= '9') ++i;
  if (i < p.size() && p[i] == '+') c.era = true, ++i;
  if (i < p.size() && p[i] == '?') c.lower = true, ++i;
  if (i >= p.size()) return false;
  char l = p[i++];
  if (l == 'm') l = 'N';
  else if (l >= 'a' && l <= 'z') c.lower = true, l = static_cast<char>(l - 'a' + 'A');
  c.letter = l;
  return true;
}

}  // namespace

int expand_literally(const moment &m, const field_reader &loc, const char *pattern,
                     size_t pattern_length, char *text, size_t room, size_t *length,
                     int32_t decimals) {
  // "%x" and "%X" become the locale's date and time patterns (one pass, the
  // result cut at 1024 bytes), then trailing blanks go.
  std::string p;
  bool inlined = false;
  for (size_t i = 0; i < pattern_length; ++i) {
    std::string_view t;
    const bool inline_it = pattern[i] == '%' && i + 1 < pattern_length &&
                           (pattern[i + 1] == 'x' || pattern[i + 1] == 'X');
    if (!inline_it) {
      p += pattern[i];
      if (pattern[i] == '%' && i + 1 < pattern_length) p += pattern[++i];
      continue;
    }
    inlined = true;
    if (loc.get(pattern[++i] == 'x' ? 28 : 53, &t)) p += t;
  }
  if (inlined) p.resize(std::min(p.size(), size_t{1024}));
  while (!p.empty() && p.back() == ' ') p.pop_back();
  sink s{text, room};
  for (size_t i = 0; i < p.size();) {
    if (p[i] != '%') {
      s.put(p[i++]);
    } else if (++i < p.size() && p[i] == '%') {
      s.put('%');
      ++i;
    } else {
      conversion c;
      if (!parse_conversion(p, i, c) || !convert(s, c, m, loc, decimals)) return -2;
    }
  }
  *length = s.n;
  return 0;
}

}  // namespace xfmt::oracle
