// The strftime pattern of a date, time or datetime format. Rather than a
// hand-kept table per name and width, the library formats a probe moment
// whose parts are all distinct (2023-11-25, a Saturday, 13:47:58), reads the
// pattern off the text, and keeps it only when the pattern writes the same
// text as the format for other moments too (single-digit parts, a year end).
// So the answer can never drift from what the conversions really write.
#include <cstring>
#include <string>
#include <string_view>

#include "catalog/written_format.hpp"
#include "core/bounded_text.hpp"
#include "datetime/calendar.hpp"

namespace xfmt::catalog {
namespace {

struct moment {
  int32_t year, month, day, hour, minute, second;
};

// Probe 0 is read; the others prove. Layouts that choose a name's length by
// the room left (WORDDATX, DTWKDATX) show up only with long and short names,
// so the proving moments run through every month and every weekday.
struct probe_set {
  moment at[16];
};
constexpr probe_set make_probes() {
  probe_set p{};
  p.at[0] = {2023, 11, 25, 13, 47, 58};  // every part distinct
  p.at[1] = {2031, 2, 3, 4, 5, 6};       // single-digit parts
  p.at[2] = {1999, 12, 31, 23, 59, 59};  // a year end, late hours
  p.at[3] = {2000, 1, 1, 0, 0, 0};       // midnight, a leap year
  for (int32_t m = 1; m <= 12; ++m)      // each month; the weekdays follow
    p.at[3 + m] = {1985 + 3 * m, m, 1 + (5 * m) % 28, (7 * m) % 24, (11 * m) % 60, (13 * m) % 60};
  return p;
}
constexpr probe_set probe_moments = make_probes();
constexpr size_t probe_count = sizeof probe_moments.at / sizeof probe_moments.at[0];
constexpr const moment (&probes)[probe_count] = probe_moments.at;

constexpr const char *month_names[] = {"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};
constexpr const char *day_names[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

int64_t days_of(const moment &m) { return datetime::days_from_ymd(m.year, m.month, m.day); }
// 0 = Sunday.
int weekday_of(const moment &m) { return datetime::weekday(days_of(m)); }
int day_of_year(const moment &m) { return datetime::day_of_year(m.year, m.month, m.day); }

char lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

bool same_ignoring_case(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (lower(a[i]) != lower(b[i])) return false;
  return true;
}

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

void two_digits(std::string &out, int v, char pad) {
  char d[2];
  core::put2(d, v);
  if (v < 10) d[0] = pad;
  out.append(d, 2);
}

// What strftime writes in the C locale, for the directives the reader makes.
std::string render(std::string_view pattern, const moment &m) {
  std::string out;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%' || i + 1 == pattern.size()) {
      out += pattern[i];
      continue;
    }
    int h12 = m.hour % 12 == 0 ? 12 : m.hour % 12;
    switch (pattern[++i]) {
      case 'd': two_digits(out, m.day, '0'); break;
      case 'e': two_digits(out, m.day, ' '); break;
      case 'm': two_digits(out, m.month, '0'); break;
      case 'y': two_digits(out, m.year % 100, '0'); break;
      case 'Y':  // the probes' years have four digits
        two_digits(out, m.year / 100, '0');
        two_digits(out, m.year % 100, '0');
        break;
      case 'H': two_digits(out, m.hour, '0'); break;
      case 'k': two_digits(out, m.hour, ' '); break;
      case 'I': two_digits(out, h12, '0'); break;
      case 'l': two_digits(out, h12, ' '); break;
      case 'M': two_digits(out, m.minute, '0'); break;
      case 'S': two_digits(out, m.second, '0'); break;
      case 'p': out += m.hour < 12 ? "AM" : "PM"; break;
      case 'B': out += month_names[m.month - 1]; break;
      case 'b': out += std::string_view(month_names[m.month - 1]).substr(0, 3); break;
      case 'A': out += day_names[weekday_of(m)]; break;
      case 'a': out += std::string_view(day_names[weekday_of(m)]).substr(0, 3); break;
      case 'j': {
        int d = day_of_year(m);
        char digits[3];
        core::put_digits(digits + 3, static_cast<uint64_t>(d), 3);
        out.append(digits, 3);
        break;
      }
      case '%': out += '%'; break;
      default: out += '%'; out += pattern[i]; break;
    }
  }
  return out;
}

// Parts of the first probe and their directives, longest first so that
// "2023" is read before "23" and "November" before "Nov".
struct token {
  const char *text;
  const char *directive;
};
constexpr token tokens[] = {
    {"November", "%B"}, {"Saturday", "%A"}, {"2023", "%Y"}, {"Nov", "%b"}, {"Sat", "%a"}, {"329", "%j"},
    {"25", "%d"},       {"11", "%m"},       {"23", "%y"},   {"13", "%H"},  {"01", "%I"},  {"47", "%M"},
    {"58", "%S"},       {"PM", "%p"},   {"1", "%l"},  // a lone 1: the hour of a 12-hour clock
};

// The pattern of the first probe's text; false when a digit is left over
// (a fraction, a quarter, a week number: nothing strftime writes).
bool read_pattern(std::string_view text, std::string &pattern) {
  for (size_t i = 0; i < text.size();) {
    bool found = false;
    for (const token &t : tokens) {
      size_t n = std::strlen(t.text);
      if (same_ignoring_case(text.substr(i, n), t.text)) {
        pattern += t.directive;
        i += n;
        found = true;
        break;
      }
    }
    if (found) continue;
    if (text[i] >= '0' && text[i] <= '9') return false;
    if (text[i] == '%') pattern += '%';
    pattern += text[i++];
  }
  return !pattern.empty();
}

// The value of a moment in the format's family.
double value_of(const moment &m, uint32_t family) {
  double seconds = m.hour * 3600.0 + m.minute * 60.0 + m.second;
  if (family == XFX_FAMILY_DATE) return static_cast<double>(days_of(m));
  if (family == XFX_FAMILY_DATETIME) return static_cast<double>(days_of(m)) * 86400.0 + seconds;
  return seconds;
}

bool format_value(void *handle, const xfx_spec &spec, double v, std::string &text) {
  char buf[256];
  xf_frame f{};
  f.width = spec.width;
  f.decimals = spec.decimals;
  f.input = &v;
  f.input_length = sizeof v;
  f.output = buf;
  f.output_capacity = sizeof buf;
  xf_status st = xffmt(&f, handle);
  if (st != XF_OK && st != XF_REDUCED) return false;
  text.assign(buf, f.output_length < sizeof buf ? f.output_length : sizeof buf);
  return true;
}

bool proves(std::string_view pattern, const std::string (&texts)[probe_count]) {
  for (size_t i = 0; i < probe_count; ++i)
    if (!same_ignoring_case(trimmed(render(pattern, probes[i])), trimmed(texts[i]))) return false;
  return true;
}

// Blank-padded days and hours (%e, %k, %l) are what fields such as TIME8.
// write; each padded directive may be swapped for its blank-padded twin.
bool find_proven(std::string &pattern, const std::string (&texts)[probe_count]) {
  size_t at[8];
  size_t n = 0;
  for (size_t i = 0; i + 1 < pattern.size() && n < 8; ++i) {
    if (pattern[i] != '%') continue;
    char c = pattern[i + 1];
    if (c == 'd' || c == 'H' || c == 'I') at[n++] = i + 1;
    ++i;
  }
  for (uint32_t mask = 0; mask < (1u << n); ++mask) {
    std::string p = pattern;
    for (size_t k = 0; k < n; ++k) {
      if (!(mask & (1u << k))) continue;
      char &c = p[at[k]];
      c = c == 'd' ? 'e' : c == 'H' ? 'k' : 'l';
    }
    if (proves(p, texts)) {
      pattern = p;
      return true;
    }
  }
  return false;
}

bool pattern_of(const xfx_spec &spec, std::string &pattern) {
  void *handle = nullptr;
  if (xfname(spec.name, static_cast<int32_t>(spec.name_length), 0, nullptr, &handle) != XF_OK) return false;
  std::string texts[probe_count];
  bool ok = true;
  for (size_t i = 0; i < probe_count && ok; ++i) ok = format_value(handle, spec, value_of(probes[i], spec.family), texts[i]);
  xfdel(handle);
  return ok && read_pattern(trimmed(texts[0]), pattern) && find_proven(pattern, texts);
}

}  // namespace
}  // namespace xfmt::catalog

extern "C" size_t xfx_strftime_pattern(const xfx_spec *spec, char *out, size_t capacity) {
  using namespace xfmt::catalog;
  text_sink sink(out, capacity);
  if (spec == nullptr) return 0;
  uint32_t f = spec->family;
  bool timelike = f == XFX_FAMILY_DATE || f == XFX_FAMILY_TIME || f == XFX_FAMILY_DATETIME ||
                  f == XFX_FAMILY_DURATION;
  if (!timelike || (spec->flags & (XFX_INFORMAT | XFX_NATIONAL | XFX_USER | XFX_CHARACTER | XFX_BYTES)) ||
      !(spec->flags & XFX_BUILT) || spec->name_length == 0 || spec->name_length >= sizeof spec->name)
    return 0;
  std::string pattern;
  if (!pattern_of(*spec, pattern)) return 0;
  sink.put(pattern);
  return sink.length();
}
