// Expanding a national date and time pattern: a locale pattern such as
// "%d %B %Y" made into text with the locale's names, still in the record's
// narrow form (non-ASCII characters as "<UXXXX>" escapes; nl_encode turns them
// into the output encoding). The pattern engine (date_plan.hpp) does the work:
// expanding is compiling the pattern and running its steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "nls/locale.hpp"

namespace xfmt::nls {

// Where the expander and the members read locale text. The production reader
// wraps the generated database; tests hand in a record of their own.
struct field_reader {
  const void *context = nullptr;
  // Stores the field's text and returns true; false when it cannot be read.
  bool (*read)(const void *context, int field, std::string_view *text) = nullptr;
  // The database record itself when the reader wraps one: read in place,
  // without a call through read per field (a date value reads three or four).
  const zav_locale_field *record = nullptr;

  bool get(int field, std::string_view *text) const {
    if (record != nullptr) {
      if (field < 0 || field >= locale_field_count) return false;
      const zav_locale_field &f = record[field];
      *text = f.length != 0 ? std::string_view(f.text, f.length) : std::string_view{};
      return true;
    }
    return read != nullptr && read(context, field, text);
  }
};

// A date and a time of day taken apart once, before expansion. Each part may
// be missing; the calendar fields are meaningful only when has_date is set.
struct moment {
  bool has_date = false;
  int64_t day_number = 0;  // days from 1960-01-01
  int year = 0;            // 1582 .. 20000
  int month = 0;           // 1 .. 12
  int day = 0;             // 1 .. 31
  // The day of the year and the weekday may be left to the steps that show
  // them (most patterns do not): yday 0 and wday unknown_wday say so.
  int yday = 0;            // 1 .. 366
  int wday = -1;           // 0 Sunday .. 6 Saturday
  int iso_year = 0;        // ISO 8601 week-numbering year
  int iso_week = 0;        // 1 .. 53
  int monday_week = 0;     // 0 .. 53, weeks beginning on Monday
  // When set, the three week fields are not filled in: they are asked for
  // only by "%G", "%g", "%V" and "%W", which few patterns hold.
  void (*weeks)(const moment &m, int *iso_year, int *iso_week, int *monday_week) = nullptr;

  bool has_hour = false, has_minute = false, has_second = false;
  int64_t hour = 0;   // 0 .. 23 for a time of day
  int minute = 0;     // 0 .. 59
  double second = 0;  // 0 <= s < 60, fraction kept
};

inline constexpr int unknown_wday = 7;

// One conversion of a pattern: "%", flags, letter.
struct conversion {
  bool hash = false;   // "#": no padding, second set of names
  bool era = false;    // "+": era year
  bool lower = false;  // lower-case variant (or "?")
  char letter = 0;     // upper case, "m" already turned into 'N'
};

// Reads the conversion that starts after a "%" at p[i] and advances i past
// it; false when the pattern ends first.
bool parse_conversion(const char *p, size_t n, size_t &i, conversion &c);

// The pattern as it is compiled: "%x" and "%X" replaced by the
// locale's date and time patterns (written to buffer, room bytes), trailing
// blanks dropped. Most patterns hold neither and are returned in place.
std::string_view prepare_pattern(const char *pattern, size_t pattern_length,
                                 const field_reader &loc, char *buffer, size_t room);

// Outcome of expand.
inline constexpr int expand_fits = 0;
inline constexpr int expand_too_long = 1;
inline constexpr int expand_bad_letter = -2;

// Expands pattern into out (room for |*width| bytes). A negative *width asks
// for right alignment; |*width| is the field. The field is blank filled; the
// text goes left (or right) aligned. Returns expand_fits and stores the
// text's length in *width, expand_too_long with the first |*width| bytes of
// the text in out, or expand_bad_letter for an unknown conversion.
int expand(const moment &m, const field_reader &loc, const char *pattern, size_t pattern_length,
           char *out, int32_t *width, int32_t decimals);

// The expansion alone: at most room bytes of text, its full length in
// *length (more than room: the text was cut). expand_fits or expand_bad_letter.
int expand_text(const moment &m, const field_reader &loc, const char *pattern,
                size_t pattern_length, char *text, size_t room, size_t *length, int32_t decimals);

// ASCII without "<": text the encoder passes on unchanged.
// Eight bytes at a time: a high bit set anywhere, or a byte equal to '<' (a
// zero byte of x = v ^ "<<<<<<<<", found by the usual (x - 0x01..) & ~x &
// 0x80.. test, which has no false positives), rules the text out.
inline bool plain_text(std::string_view t) {
  constexpr uint64_t ones = 0x0101010101010101u, highs = 0x8080808080808080u;
  constexpr uint64_t angles = ones * static_cast<uint64_t>('<');
  const size_t n = t.size();
  size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    uint64_t v;
    std::memcpy(&v, t.data() + i, sizeof v);
    const uint64_t x = v ^ angles;
    if (((v & highs) | ((x - ones) & ~x & highs)) != 0) return false;
  }
  for (; i < n; ++i)
    if (static_cast<unsigned char>(t[i]) >= 0x80 || t[i] == '<') return false;
  return true;
}

// Length in characters of a record text: each "<UXXXX>" escape counts one.
size_t escaped_length(std::string_view text);

}  // namespace xfmt::nls
