// The national date informats @<lang>DFDE (day, month, year), @<lang>DFMY
// (month, year) and @<lang>DFDT (a DFDE date and a time of day) for 23
// languages, the month names taken from the locale database. Each prefix is
// bound to one locale record; EUR follows the frame's locale (the process
// locale when the frame names none).
//
// The month may be written as any name of the record (fields 59-70
// abbreviations, 71-82 full names, 83-94 and 95-106 the second set, which
// holds the plain nominative forms where the first has genitives or
// forms led by "de"), an abbreviation without its final point, or the
// first three letters of a full name when they name one month only. Case
// does not matter, accented and Cyrillic letters included. Text that is
// valid UTF-8 is read as UTF-8, any other as Windows-1252.
#include "xfmt/xfmt.h"

#include <bit>
#include <cstdint>
#include <string_view>

#include "datetime/calendar.hpp"
#include "informats/date_field_reader.hpp"
#include "informats/date_scanner.hpp"
#include "nls/locale.hpp"

#include "informats/month_keys.inc"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

// Record numbers of the locales the prefixes name (checked against the
// records' language and country codes by the tests).
enum locale_record : int {
  af_ZA = 1, ca_ES = 25, hr_HR = 33, cs_CZ = 34, da_DK = 35, nl_NL = 37, en_GB = 52, fi_FI = 57,
  fr_FR = 60, fr_CH = 62, de_DE = 64, de_CH = 67, hu_HU = 73, it_IT = 77, mk_MK = 83, nb_NO = 88,
  pl_PL = 93, pt_PT = 95, ru_RU = 97, sl_SI = 107, es_ES = 124, sv_SE = 128,
  frame_locale = 0,  // EUR
};

// The 48 month names of a record lie in fields 59-106: abbreviations, full
// names, then the second set's abbreviations and full names, 12 each.
constexpr int abbreviation_field = 59, full_name_field = 71, second_full_name_field = 95;

// The field is at most 40 bytes wide; text longer than this is refused.
constexpr int max_chars = 64;

// The field as folded code points, with the byte offset where each begins.
struct folded_text {
  uint32_t cp[max_chars];
  uint16_t at[max_chars + 1];
  int n = 0;
};

// Lower case for the letters of the month names: ASCII, Latin-1, Latin
// Extended-A and the Cyrillic of Russian and Macedonian; the right single
// quotation mark of Catalan's "d’" reads as an apostrophe.
constexpr uint32_t fold(uint32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return c | 1;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return (c & 1) ? c + 1 : c;
  if (c == 0x178) return 0xFF;
  if (c >= 0x410 && c <= 0x42F) return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  if (c == 0x2019) return '\'';
  return c;
}

constexpr bool is_letter(uint32_t c) {
  if (c < 0x80) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  return c >= 0xC0 && c != 0xD7 && c != 0xF7 && c < 0x2000;
}

// Strict UTF-8 (no overlong forms, no surrogates); false at the first fault.
bool decode_utf8(const unsigned char *s, int len, folded_text &t) {
  int i = 0;
  t.n = 0;
  while (i < len) {
    if (t.n == max_chars) return false;
    const unsigned b = s[i];
    uint32_t cp = 0;
    int k = 0;
    if (b < 0x80) cp = b;
    else if (b >= 0xC2 && b <= 0xDF) cp = b & 0x1F, k = 1;
    else if (b >= 0xE0 && b <= 0xEF) cp = b & 0x0F, k = 2;
    else if (b >= 0xF0 && b <= 0xF4) cp = b & 0x07, k = 3;
    else return false;
    if (k > 0 && i + k >= len) return false;
    for (int j = 1; j <= k; ++j) {
      if ((s[i + j] & 0xC0) != 0x80) return false;
      cp = cp << 6 | (s[i + j] & 0x3F);
    }
    if ((k == 2 && (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF))) || (k == 3 && (cp < 0x10000 || cp > 0x10FFFF)))
      return false;
    t.at[t.n] = static_cast<uint16_t>(i);
    t.cp[t.n++] = fold(cp);
    i += k + 1;
  }
  t.at[t.n] = static_cast<uint16_t>(len);
  return true;
}

// The bytes [p, end) as folded code points: UTF-8 when they are valid
// UTF-8, Windows-1252 otherwise. False when the text is too long.
bool fold_text(const char *p, const char *end, folded_text &t) {
  const auto len = static_cast<int>(end - p);
  if (len > max_chars) return false;
  const auto *s = reinterpret_cast<const unsigned char *>(p);
  bool ascii = true;
  for (int i = 0; i < len; ++i) ascii = ascii && s[i] < 0x80;
  if (!ascii && decode_utf8(s, len, t)) return true;
  for (int i = 0; i < len; ++i) {
    t.at[i] = static_cast<uint16_t>(i);
    t.cp[i] = fold(ascii ? s[i] : wlt1unic[s[i]]);
  }
  t.at[len] = static_cast<uint16_t>(len);
  t.n = len;
  return true;
}

// Next code point of a record field: a "<UXXXX>" escape or one ASCII byte.
uint32_t next_field_char(std::string_view s, size_t &i) {
  if (s[i] == '<' && i + 2 < s.size() && s[i + 1] == 'U') {
    uint32_t cp = 0;
    size_t k = i + 2;
    for (; k < s.size() && s[k] != '>'; ++k) {
      const char h = s[k];
      cp = cp << 4 | static_cast<uint32_t>(h <= '9' ? h - '0' : (h | 0x20) - 'a' + 10);
    }
    i = k + 1;
    return cp;
  }
  return static_cast<unsigned char>(s[i++]);
}

// A name of the record as stored.
inline std::string_view record_text(const zav_locale_field &f) {
  return f.length != 0 ? std::string_view(f.text, f.length) : std::string_view{};
}

// Code points of the text matched by the whole name (or the name without a
// final point), ending at a non-letter; 0 when it does not match there.
// The first character is compared before anything is decoded: most names
// of a record fail there.
int match_name(std::string_view name, const folded_text &t, int i) {
  if (name.empty() || i >= t.n) return 0;
  const char first = name[0];
  if (first != '<' && static_cast<unsigned char>(first) < 0x80 && fold(static_cast<unsigned char>(first)) != t.cp[i])
    return 0;
  int len = 0;
  size_t k = 0;
  while (k < name.size()) {
    const uint32_t c = fold(next_field_char(name, k));
    if (i + len < t.n && t.cp[i + len] == c) {
      ++len;
      continue;
    }
    if (c == '.' && k == name.size()) break;  // "janv." written "janv"
    return 0;
  }
  if (len == 0 || (i + len < t.n && is_letter(t.cp[i + len]))) return 0;
  return len;
}

// The first three characters of a full name when they are letters and the
// text has exactly them there, followed by a non-letter.
bool match_three_letters(std::string_view name, const folded_text &t, int i) {
  if (i + 3 > t.n || (i + 3 < t.n && is_letter(t.cp[i + 3]))) return false;
  size_t k = 0;
  for (int j = 0; j < 3; ++j) {
    if (k >= name.size()) return false;
    const uint32_t c = fold(next_field_char(name, k));
    if (!is_letter(c) || t.cp[i + j] != c) return false;
  }
  return true;
}

// The month at code point i: the longest whole name of any month wins; else
// three letters that begin the full names of one month only. Sets the
// length read; 0 when no month is written there.
int read_month(int id, const folded_text &t, int i, int &len) {
  if (i >= t.n) return 0;
  const zav_locale_field *names = ZAVlocaleData[id - 1] + abbreviation_field;  // fields 59..106
  // The names whose first three characters can begin the text, from the
  // generated keys: the names of the text's first letter at once, then
  // their three keys. A later key of 0 lets any character through (a short
  // name, or its final point); a second-set name equal to its first-set twin
  // never comes.
  const month_keys &keys = month_key_table[id - 1];
  const uint32_t c0 = t.cp[i], c1 = i + 1 < t.n ? t.cp[i + 1] : 0, c2 = i + 2 < t.n ? t.cp[i + 2] : 0;
  uint64_t candidates = 0;
  for (uint64_t bits = keys.by_first[c0 % 32]; bits != 0; bits &= bits - 1) {
    const int k = std::countr_zero(bits);
    const bool hit = keys.first[k] == c0 && (keys.second[k] == c1 || keys.second[k] == 0) &&
                     (keys.third[k] == c2 || keys.third[k] == 0);
    candidates |= static_cast<uint64_t>(hit) << k;
  }
  int best = 0, month = 0;
  while (candidates != 0) {
    const int k = std::countr_zero(candidates);
    candidates &= candidates - 1;
    const int n = match_name(record_text(names[k]), t, i);
    if (n > best) best = n, month = k % 12 + 1;
  }
  if (month != 0) {
    len = best;
    return month;
  }
  for (int m = 0; m < 12; ++m) {
    if (!match_three_letters(record_text(names[full_name_field - abbreviation_field + m]), t, i) &&
        !match_three_letters(record_text(names[second_full_name_field - abbreviation_field + m]), t, i))
      continue;
    if (month != 0) return 0;  // "jui": June or July
    month = m + 1;
  }
  len = 3;
  return month;
}

int64_t days_in_month(int64_t y, int32_t m) {
  static constexpr int8_t days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && datetime::is_leap(y) ? 29 : days[m - 1];
}

// Blanks and punctuation between the parts.
bool is_part_separator(uint32_t c) {
  return c == ' ' || c == '\t' || c == '-' || c == '/' || c == '.' || c == ',' || c == '\'';
}

int skip_separators(const folded_text &t, int i) {
  while (i < t.n && is_part_separator(t.cp[i])) ++i;
  return i;
}

enum class shape { day_month_year, month_year, date_time };

int record_of(const xf_frame *f, int bound) {
  if (bound != frame_locale) return bound;
  const int id = nls::frame_locale_id(f);
  return id >= 1 && id <= nls::locale_count ? id : en_GB;
}

// Reads the shape; the cursor ends where the date (or the time) ends.
bool read_national(int id, shape s, date_cursor &c, double &v) {
  folded_text t;
  if (!fold_text(c.p, c.end, t)) return false;
  const char *const base = c.p;
  int i = 0;
  date_parts d{0, 0, 1};
  if (s != shape::month_year) {
    c.p = base;
    const size_t n = c.digit_run();
    if (n < 1 || n > 2) return false;
    d.day = c.fixed(n);
    i = skip_separators(t, static_cast<int>(n));
  }
  int len = 0;
  d.month = read_month(id, t, i, len);
  if (d.month == 0) return false;
  i = skip_separators(t, i + len);
  c.p = base + t.at[i];
  if (!read_year(c, d.year)) return false;
  // The day must exist; the year is 1582 or later (read_year) and at most
  // 2049 or four digits, so inside the calendar's range.
  if (d.day < 1 || d.day > days_in_month(d.year, static_cast<int32_t>(d.month))) return false;
  const auto day = static_cast<double>(datetime::days_from_ymd(d.year, static_cast<int32_t>(d.month),
                                                              static_cast<int32_t>(d.day)));
  if (s != shape::date_time) {
    v = day;
    return true;
  }
  // One blank or punctuation character, then hh:mm[:ss[.fff]] of 0..23 h.
  if (c.at_end()) return false;
  const char sep = *c.p++;
  if (!(sep == ' ' || sep == ':' || sep == '-' || sep == '/' || sep == '.' || sep == ',' || sep == 'T' ||
        sep == 't'))
    return false;
  const size_t hn = c.digit_run();
  if (hn < 1 || hn > 2) return false;
  const int64_t hour = c.fixed(hn);
  if (!c.take(':')) return false;
  const size_t mn = c.digit_run();
  if (mn < 1 || mn > 2) return false;
  const int64_t minute = c.fixed(mn);
  double second = 0;
  if (c.take(':') && !read_seconds(c, second)) return false;
  if (hour > 23 || minute > 59) return false;
  v = datetime::datetime_value(
      day, datetime::time_value(static_cast<double>(hour), static_cast<double>(minute), second));
  return true;
}

xf_status national(xf_frame *f, int bound, shape s) {
  const int id = record_of(f, bound);
  return read_field(
      f, [id, s](date_cursor &c, double &v) { return read_national(id, s, c, v); },
      s == shape::date_time ? 39 : 31);
}

}  // namespace

#define XF_NATIONAL_DATE_INFORMATS(prefix, record)                                                    \
  XF_ROUTINE(zifm##prefix##de, f) { return national(f, record, shape::day_month_year); } \
  XF_ROUTINE(zifm##prefix##dt, f) { return national(f, record, shape::date_time); }      \
  XF_ROUTINE(zifm##prefix##my, f) { return national(f, record, shape::month_year); }

XF_NATIONAL_DATE_INFORMATS(afr, af_ZA)
XF_NATIONAL_DATE_INFORMATS(cat, ca_ES)
XF_NATIONAL_DATE_INFORMATS(cro, hr_HR)
XF_NATIONAL_DATE_INFORMATS(csy, cs_CZ)
XF_NATIONAL_DATE_INFORMATS(dan, da_DK)
XF_NATIONAL_DATE_INFORMATS(des, de_CH)
XF_NATIONAL_DATE_INFORMATS(deu, de_DE)
XF_NATIONAL_DATE_INFORMATS(eng, en_GB)
XF_NATIONAL_DATE_INFORMATS(esp, es_ES)
XF_NATIONAL_DATE_INFORMATS(eur, frame_locale)
XF_NATIONAL_DATE_INFORMATS(fin, fi_FI)
XF_NATIONAL_DATE_INFORMATS(fra, fr_FR)
XF_NATIONAL_DATE_INFORMATS(frs, fr_CH)
XF_NATIONAL_DATE_INFORMATS(hun, hu_HU)
XF_NATIONAL_DATE_INFORMATS(ita, it_IT)
XF_NATIONAL_DATE_INFORMATS(mac, mk_MK)
XF_NATIONAL_DATE_INFORMATS(nld, nl_NL)
XF_NATIONAL_DATE_INFORMATS(nor, nb_NO)
XF_NATIONAL_DATE_INFORMATS(pol, pl_PL)
XF_NATIONAL_DATE_INFORMATS(ptg, pt_PT)
XF_NATIONAL_DATE_INFORMATS(rus, ru_RU)
XF_NATIONAL_DATE_INFORMATS(slo, sl_SI)
XF_NATIONAL_DATE_INFORMATS(sve, sv_SE)
