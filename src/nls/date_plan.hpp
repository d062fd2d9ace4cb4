// Compiled date patterns: a locale's date pattern read once into a list of
// steps (literal text, a name field, a number), so a date value is written
// without walking the pattern again. Only patterns whose every conversion
// depends on the day alone compile; the others keep going through the
// expander, which also stays the reference for what a plan writes.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "datetime/calendar.hpp"
#include "nls/expand.hpp"
#include "nls/locale.hpp"

namespace xfmt::nls {

// What a number or name step reads from the day.
enum class day_source : uint8_t {
  day,              // 1..31
  month,            // 1..12
  year,             // 1582..20000
  year_of_century,  // year % 100
  wday,             // 0 Sunday .. 6
  wday_monday_1,    // 1 Monday .. 7 Sunday
  month_index,      // 0..11
  quarter_index,    // 0..3
  yday,             // 1..366
  sunday_week,      // 0..53, weeks beginning on Sunday
};
inline constexpr size_t day_source_count = 10;

struct plan_step;
struct step_context;
// Writes one step at position n; returns the new length, or more than the
// room when the step does not fit.
using step_writer = size_t (*)(const plan_step &step, const step_context &c, size_t n);

struct plan_step {
  enum kind_t : uint8_t {
    literal,      // length bytes of the plan's text from first
    name,         // the field first + source
    padded_name,  // the same, blanks after it up to pad characters
    digits_all,   // as many digits as the number has
    digits_two,   // the last two digits, zero padded
    digits_four,  // the last four digits, zero padded
    digits_fixed  // the last length digits, leading zeros shown as fill
  } kind = literal;
  day_source source = day_source::day;
  uint8_t length = 0;
  char fill = '0';
  uint16_t first = 0;
  uint16_t pad = 0;
  // Literal text written right after the step (at most plan_chunk bytes of
  // the plan's text from suffix_first): most patterns alternate a
  // conversion and a short separator, one step writes both.
  uint8_t suffix_length = 0;
  uint16_t suffix_first = 0;
  // The writer of the kind, set when the plan is compiled. Each step is
  // called from a place of its own, so the call is foreseen as well as
  // straight code would be; one switch for every step was mispredicted.
  step_writer write = nullptr;
};

inline constexpr size_t plan_max_steps = 16;
inline constexpr size_t plan_max_text = 48;
// Literals and short names are copied 16 bytes at a time when the room
// allows (the bytes past the piece are overwritten by what follows or by
// the blanks after the text); their stores are padded to be read that far.
inline constexpr size_t plan_chunk = 16;

// The names of a locale (fields 59 to 150: months, weekdays, quarters),
// each in a zeroed 16-byte slot when it fits one.
inline constexpr int plan_first_name = 59;
inline constexpr int plan_name_count = 92;
using name_slot = char[plan_chunk];

struct date_plan {
  bool usable = false;  // false: the expander writes this pattern
  // Every literal and every name the steps can pick is plain ASCII without
  // escapes: the text needs no encoding, whatever the day.
  bool plain = true;
  // Every literal is plain: the text is plain when the names it picks are.
  bool literals_plain = true;
  uint8_t step_count = 0;
  plan_step steps[plan_max_steps];
  char text[plan_max_text + plan_chunk];  // the literal pieces, one after another
  const name_slot *names = nullptr;       // the locale's name slots, when kept
  const bool *names_plain = nullptr;      // and which of the names are plain
};

// The day as the steps read it; the rest (day of the year, quarter, ...)
// is worked out by the steps that show it.
struct day_fields {
  int year, month, day, wday;
};

// The day fields of an in-range day number (days from 1960-01-01).
inline day_fields day_fields_of(int64_t day) {
  const datetime::ymd c = datetime::ymd_in_range(day);
  const int64_t w = (day + 5) % 7;  // 1960-01-01 was a Friday
  return {static_cast<int>(c.year), c.month, c.day, static_cast<int>(w < 0 ? w + 7 : w)};
}

// Compiles the pattern as expand_text reads it for a value with a date.
date_plan compile_date_plan(const field_reader &loc, const char *pattern, size_t pattern_length);

// Writes the plan's text for the day into out; returns its length, or
// room + 1 when it does not fit (out then holds nothing to rely on). When
// plain is given it is set to whether the text is plain (as plain_text
// says), known without reading the text back.
size_t run_date_plan(const date_plan &plan, const day_fields &day, const zav_locale_field *record,
                     char *out, size_t room, bool *plain = nullptr);

// The compiled date fields of a locale: the date patterns the national
// members read (28 to 43), and the locale's names.
inline constexpr int plan_first_field = 28;
inline constexpr int plan_field_count = 16;

struct locale_plans {
  date_plan plans[plan_field_count];
  name_slot names[plan_name_count];
  bool names_plain[plan_name_count];
};

// Per locale, set once when its plans are first asked for.
extern std::atomic<const locale_plans *> compiled_plans[locale_count];

// Compiles every date field of locale id and publishes the set; a thread
// that loses the race to publish drops its copy and takes the winner's.
// Null only when memory runs out.
const locale_plans *compile_locale_plans(int id);

// The compiled pattern of locale field code (a plain field number) in locale
// id (1..136), or null when the field is not a compiled date pattern. A
// locale's patterns are compiled together on first use and kept for the
// life of the process; concurrent first uses are safe.
inline const date_plan *date_plan_for(int id, int code) {
  if (id < 1 || id > locale_count || code < plan_first_field ||
      code >= plan_first_field + plan_field_count)
    return nullptr;
  const locale_plans *set = compiled_plans[id - 1].load(std::memory_order_acquire);
  if (set == nullptr) [[unlikely]] {
    set = compile_locale_plans(id);
    if (set == nullptr) return nullptr;
  }
  const date_plan &p = set->plans[code - plan_first_field];
  return p.usable ? &p : nullptr;
}

}  // namespace xfmt::nls
