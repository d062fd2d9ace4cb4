// The national pattern expander as it was first written, kept as the slow
// literal oracle of the pattern engine: the pattern walked conversion by
// conversion for every value, each name read through the field reader.
#include "oracle/nls_expand_oracle.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "catalog/platform.hpp"

namespace xfmt::oracle {
using nls::field_reader;
using nls::moment;
namespace {

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

size_t longest_name(const field_reader &loc, int first, int count) {
  size_t best = 0;
  std::string_view t;
  for (int i = 0; i < count; ++i)
    if (loc.get(first + i, &t)) best = std::max(best, escaped_length(t));
  return best;
}

int era_year(const moment &m, std::string_view country) {
  if (country == "TW") return m.year - 1911 <= 0 ? 1 - (m.year - 1911) : m.year - 1911;
  if (country == "TH") return m.year + 543;
  if (country == "JP") {
    static constexpr int64_t start[] = {-33506, -17321, -12060, 10600};
    static constexpr int year[] = {1868, 1912, 1926, 1989};
    for (int k = 3; k >= 0; --k)
      if (start[k] <= m.day_number) return m.year + 1 - year[k];
  }
  return m.year;
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
  void blanks(size_t k) {
    for (; k > 0; --k) put(' ');
  }
  // Exactly k digits of v (v >= 0), the leading ones zero or blank.
  void fixed(int64_t v, int k, char fill) {
    char d[24];
    for (int i = k - 1; i >= 0; --i, v /= 10) d[i] = static_cast<char>('0' + v % 10);
    for (int i = 0; fill != '0' && i < k - 1 && d[i] == '0'; ++i) d[i] = fill;
    for (int j = 0; j < k; ++j) put(d[j]);
  }
  void plain(int64_t v) { put(std::to_string(v)); }
  void stars() { put("**"); }
};
constexpr int field_date_default = 28;
constexpr int field_time_24 = 53;
constexpr int field_country = 5;
constexpr int field_am = 151;
constexpr int field_pm = 152;
constexpr int field_decimal_point = 172;

// A two-digit number: zero padded by default, unpadded under "#"; a value
// of 100 or more keeps only its last two digits when padded.
void two(sink &s, const conversion &c, int64_t v) {
  if (c.hash)
    s.plain(v);
  else
    s.fixed(v < 0 ? 0 : v % 100, 2, '0');
}

void name(sink &s, const field_reader &loc, int field, size_t pad_to = 0) {
  std::string_view t;
  if (!loc.get(field, &t)) {
    s.stars();
    return;
  }
  s.put(t);
  if (pad_to == 0) return;
  size_t len = escaped_length(t);
  if (pad_to > len) s.blanks(pad_to - len);
}

// Process time zone for "%z" and "%Z": the platform's snapshot, read once.
using zone_now = xfmt::platform::zone_snapshot;

const zone_now &read_zone() { return xfmt::platform::process_zone(); }

// "%z": sign, hours, minutes of the standard offset; daylight-saving time adds
// one to the hour count whatever the sign (so a zone five hours west shows
// -0500 in winter and -0600 in summer: hosts have long relied on this).
void zone_offset(sink &s) {
  const zone_now &z = read_zone();
  long east = -static_cast<long>(z.seconds_west);
  s.put(east < 0 ? '-' : '+');
  long mag = east < 0 ? -east : east;
  int64_t hours = mag / 3600 + (z.dst ? 1 : 0);
  s.fixed(hours % 100, 2, '0');
  s.fixed((mag % 3600) / 60, 2, '0');
}

// "%S": seconds, then with decimals the locale's decimal point and the
// fraction digit by digit. Only the last digit is rounded, and without carry
// into earlier ones: with one decimal 12.36 prints "12.4", 12.34 "12.3", and
// 59.96 "59.9" (a 9 is never raised, so the seconds never become 60).
void seconds(sink &s, const conversion &c, const moment &m, const field_reader &loc,
             int32_t decimals, bool with_fraction) {
  if (!m.has_second)
    s.stars();
  else
    two(s, c, static_cast<int64_t>(std::floor(m.second)));
  if (!with_fraction || decimals <= 0) return;
  std::string_view point;
  if (!loc.get(field_decimal_point, &point) || point.empty()) point = ".";
  s.put(point);
  if (!m.has_second) {
    for (int i = 0; i < decimals; ++i) {
      s.put('*');
    }
    return;
  }
  double frac = m.second - std::floor(m.second);
  for (int i = 0; i < decimals; ++i) {
    frac *= 10;
    int digit = static_cast<int>(frac);
    if (digit > 9) digit = 9;
    frac -= digit;
    if (i == decimals - 1 && digit < 9 && static_cast<int>(frac * 10) >= 5) ++digit;
    s.put(static_cast<char>('0' + digit));
  }
}

int twelve_hour(int64_t h) { return static_cast<int>(h <= 12 ? h : h % 12); }

struct week_values {
  int iso_year, iso_week, monday_week;
};

week_values week_fields(const moment &m) {
  week_values w{m.iso_year, m.iso_week, m.monday_week};
  if (m.weeks != nullptr) m.weeks(m, &w.iso_year, &w.iso_week, &w.monday_week);
  return w;
}

// Weeks beginning on Sunday: 0 before the year's first Sunday.
int sunday_week(const moment &m) { return (m.yday - 1 + 7 - m.wday) / 7; }

// The letters that need a date: A B C D E F G J O Q U V W Y. One bit test
// instead of a second jump table per conversion.
constexpr uint32_t letter_bit(char l) { return uint32_t{1} << (l - 'A'); }
constexpr uint32_t date_letters = letter_bit('A') | letter_bit('B') | letter_bit('C') |
                                  letter_bit('D') | letter_bit('E') | letter_bit('F') |
                                  letter_bit('G') | letter_bit('J') | letter_bit('O') |
                                  letter_bit('Q') | letter_bit('U') | letter_bit('V') |
                                  letter_bit('W') | letter_bit('Y');

bool needs_date(char letter) {
  return letter >= 'A' && letter <= 'Z' && (date_letters & letter_bit(letter)) != 0;
}

// Writes one conversion; false for an unknown letter.
bool convert(sink &s, const conversion &c, const moment &m, const field_reader &loc,
             int32_t decimals) {
  const bool lower = c.lower;
  // "%N" needs a date, "%n" (days in the hour count) does not.
  if (lower && (c.letter == 'V' || c.letter == 'T')) return true;  // "%v", "%t": nothing
  bool date_letter = needs_date(c.letter) || (c.letter == 'N' && !lower);
  if (date_letter && !m.has_date) {
    s.stars();
    return true;
  }
  switch (c.letter) {
    case '%':
      s.put('%');
      return true;
    case 'A':
      name(s, loc, (lower ? (c.hash ? 121 : 107) : (c.hash ? 128 : 114)) + m.wday);
      return true;
    case 'F': {
      int first = lower ? (c.hash ? 121 : 107) : (c.hash ? 128 : 114);
      name(s, loc, first + m.wday, longest_name(loc, first, 7));
      return true;
    }
    case 'B':
      name(s, loc, (lower ? (c.hash ? 83 : 59) : (c.hash ? 95 : 71)) + m.month - 1);
      return true;
    case 'C': {
      int first = c.hash ? 95 : 71;
      name(s, loc, first + m.month - 1, longest_name(loc, first, 12));
      return true;
    }
    case 'D':
      two(s, c, m.day);
      return true;
    case 'E':
      s.fixed(m.day % 100, 2, ' ');
      return true;
    case 'G':
      if (lower)
        two(s, c, week_fields(m).iso_year % 100);
      else
        s.fixed(week_fields(m).iso_year % 10000, 4, '0');
      return true;
    case 'H':
    case 'K': {
      if (!m.has_hour) {
        s.stars();
        return true;
      }
      int64_t h = (c.letter == 'K' && m.hour == 0) ? 24 : m.hour;
      if (h > 99)
        s.plain(h);
      else
        two(s, c, h);
      return true;
    }
    case 'I':
    case 'L': {
      if (!m.has_hour) {
        s.stars();
        return true;
      }
      int h = twelve_hour(m.hour);
      if (c.letter == 'I' && h == 0) h = 12;
      two(s, c, h);
      return true;
    }
    case 'M':
      if (!m.has_minute)
        s.stars();
      else
        two(s, c, m.minute);
      return true;
    case 'N':
      if (lower) {  // "%n": whole days in the hour count
        if (!m.has_hour)
          s.stars();
        else
          s.plain(m.hour / 24);
      } else {
        two(s, c, m.month);
      }
      return true;
    case 'O':
      s.fixed(m.month, 2, ' ');
      return true;
    case 'J':
      if (c.hash)
        s.plain(m.yday);
      else
        s.fixed(m.yday, 3, '0');
      return true;
    case 'P': {
      if (!m.has_hour) {
        s.stars();
        return true;
      }
      bool am = m.hour % 24 <= 11;
      std::string_view t;
      if (loc.get(am ? field_am : field_pm, &t))
        s.put(t);
      else
        s.put(am ? "AM" : "PM");
      return true;
    }
    case 'Q':
      name(s, loc, (lower ? (c.hash ? 143 : 135) : (c.hash ? 147 : 139)) + (m.month - 1) / 3);
      return true;
    case 'S':
      seconds(s, c, m, loc, decimals, !lower);
      return true;
    case 'T': {
      conversion plain_two{};
      if (m.has_hour)
        two(s, plain_two, m.hour);
      else
        s.stars();
      s.put(':');
      if (m.has_minute)
        two(s, plain_two, m.minute);
      else
        s.stars();
      s.put(':');
      seconds(s, plain_two, m, loc, 0, false);
      return true;
    }
    case 'U':
      if (lower)
        s.put(static_cast<char>('0' + (m.wday == 0 ? 7 : m.wday)));
      else
        two(s, c, sunday_week(m));
      return true;
    case 'W':
      if (lower)
        s.put(static_cast<char>('0' + m.wday));
      else
        two(s, c, week_fields(m).monday_week);
      return true;
    case 'V':
      two(s, c, week_fields(m).iso_week);
      return true;
    case 'Y': {
      std::string_view country;
      int y = m.year;
      if (c.era) {
        if (!loc.get(field_country, &country)) country = {};
        y = era_year(m, country);
      }
      if (lower)
        two(s, c, y % 100);
      else
        s.fixed(y % 10000, 4, '0');
      return true;
    }
    case 'Z':
      if (lower)
        zone_offset(s);
      else
        s.put(read_zone().abbrev);
      return true;
    default:
      return false;
  }
}

// First pass: "%x" and "%X" become the locale's date and time patterns.
size_t inline_patterns(const char *p, size_t n, const field_reader &loc, char *out, size_t room) {
  sink s{out, room};
  for (size_t i = 0; i < n; ++i) {
    if (p[i] != '%' || i + 1 >= n) {
      s.put(p[i]);
      continue;
    }
    char next = p[i + 1];
    if (next == 'x' || next == 'X') {
      std::string_view t;
      if (loc.get(next == 'x' ? field_date_default : field_time_24, &t)) s.put(t);
    } else {
      s.put('%');
      s.put(next);
    }
    ++i;
  }
  size_t len = s.n < room ? s.n : room;
  while (len > 0 && out[len - 1] == ' ') --len;
  return len;
}


bool parse_conversion(const char *p, size_t n, size_t &i, conversion &c) {
  if (i < n && (p[i] == '#' || p[i] == '0')) c.hash = p[i++] == '#';
  if (i < n && p[i] >= '1' && p[i] <= '9') ++i;
  if (i < n && p[i] == '+') c.era = true, ++i;
  if (i < n && p[i] == '?') c.lower = true, ++i;
  if (i >= n) return false;
  char l = p[i++];
  if (l == 'm') {
    c.letter = 'N';
    return true;
  }
  if (l >= 'a' && l <= 'z') c.lower = true, l = static_cast<char>(l - 'a' + 'A');
  c.letter = l;
  return true;
}

}  // namespace

int expand_literally(const moment &m, const field_reader &loc, const char *pattern,
                     size_t pattern_length, char *text, size_t room, size_t *length,
                     int32_t decimals) {
  char inlined[1024];
  size_t n = inline_patterns(pattern, pattern_length, loc, inlined, sizeof inlined);
  sink s{text, room};
  for (size_t i = 0; i < n;) {
    if (inlined[i] != '%') {
      s.put(inlined[i++]);
      continue;
    }
    ++i;
    if (i < n && inlined[i] == '%') {
      s.put('%');
      ++i;
      continue;
    }
    conversion c;
    if (!parse_conversion(inlined, n, i, c) || !convert(s, c, m, loc, decimals)) return -2;
  }
  *length = s.n;
  return 0;
}

}  // namespace xfmt::oracle
