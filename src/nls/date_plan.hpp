// The national pattern engine. A date, time or datetime pattern ("%d %B %Y
// %H:%M:%S") is compiled once into steps (literal text, a name, a number, the
// fraction of the seconds, the zone) and the steps are run for each value.
// A locale's own patterns are compiled once per locale and kept for the life
// of the process; the last few other short patterns of a database locale
// are kept per thread; anything else is compiled where it is expanded. The
// text stays in the record's narrow form (non-ASCII as "<UXXXX>" escapes);
// nl_encode turns it into the output encoding.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "nls/expand.hpp"
#include "nls/locale.hpp"
#include "nls/locale_fields.hpp"
#include "nls/nl_result.hpp"

namespace xfmt::nls {

// The names a step can pick: months, weekdays, quarters, AM and PM.
inline constexpr int first_name_field = lf::month_abbr_jan;
inline constexpr int name_count = lf::pm_marker + 1 - first_name_field;

// What a number or name step reads from the moment.
enum class part : uint8_t {
  day,
  month,
  year,
  year_of_century,
  wday,           // 0 Sunday .. 6
  wday_monday_1,  // 1 Monday .. 7 Sunday
  month_index,    // 0 .. 11
  quarter_index,  // 0 .. 3
  yday,
  sunday_week,
  iso_year,
  iso_year_of_century,
  iso_week,
  monday_week,
  era_tw,  // years of the Republic of China (before year 1 counted back)
  era_tw_of_century,
  era_th,  // Buddhist era
  era_th_of_century,
  era_jp,  // Japanese eras, Meiji to Heisei
  era_jp_of_century,
  hour,
  hour_from_1,  // "%K": 24 for hour 0
  hour_12,      // "%I": 12 for hour 0
  hour_12_raw,  // "%L"
  minute,
  second,  // whole seconds
  days,    // whole days in the hour count
  half,    // 0 before noon, 1 after (the hour of the day)
  half_of_count,  // 0 for an hour count below 12, 1 from 12 on
};
inline constexpr size_t part_count = static_cast<size_t>(part::half_of_count) + 1;

// What a step needs from the moment; a step whose need is missing writes
// "**" instead.
inline constexpr uint8_t need_date = 1, need_hour = 2, need_minute = 4, need_second = 8;

// One name as a step writes it.
struct name_entry {
  const char *text = nullptr;
  uint16_t length = 0;  // bytes
  uint16_t chars = 0;   // characters, an escape counting one; no_pad: never padded
  bool plain = true;    // ASCII without "<"
};
inline constexpr uint16_t no_pad = 0xFFFF;

// A step copies text 16 bytes at a time when the room allows; the names
// that fit are kept in 16-byte slots for it, padded with zeros or (when
// blank_slots is set, as read_names leaves them) with blanks.
inline constexpr size_t plan_chunk = 16;

struct locale_names {
  name_entry names[name_count];
  char slots[name_count][plan_chunk];
  bool blank_slots = false;
};

// The names as a UTF-8 codeset receives them (escapes and Latin-1 bytes
// encoded by the encoder's rules), in blank-padded slots; length
// no_utf8_slot for a name that does not fit one slot.
struct utf8_names {
  uint8_t length[name_count];
  char slots[name_count][plan_chunk];
};
inline constexpr uint8_t no_utf8_slot = 0xFF;

// The names of a locale: a name that cannot be read writes "**" (AM and PM
// fall back to "AM" and "PM").
void read_names(const field_reader &loc, locale_names *out);

struct plan_step;
struct run_context;
// Writes one step at n; returns the new length (counting what did not fit).
using step_writer = size_t (*)(const plan_step &step, const run_context &c, size_t n);

struct plan_step {
  enum kind_t : uint8_t {
    literal,       // length bytes of the plan's text from first
    name,          // the field first + source (one of digits fields)
    padded_name,   // the same, blanks after it up to length characters
    last_digits,   // the last digits digits, negatives as 0, leading zeros as fill
    least_digits,  // at least digits digits, zero padded; a minus when negative
                   // (or 0 when clamp is set)
    fraction,      // the decimal point (text first, length) and the fraction
    zone_offset,   // "+hhmm" of the process zone
    zone_name,     // its abbreviation
  } kind = literal;
  part source = part::day;
  uint8_t digits = 0;
  char fill = '0';
  uint8_t needs = 0;
  bool clamp = false;
  uint16_t first = 0;
  uint16_t length = 0;
  // Literal text written right after the step: most patterns alternate a
  // conversion and a short separator, one step writes both.
  uint16_t suffix_first = 0;
  uint8_t suffix_length = 0;
  // How run_date_plan writes the step (a date_op), set with write.
  uint8_t op = 0;
  // The writer of the kind and source, set when the plan is compiled: each
  // step is called from a place of its own, which the processor foresees
  // better than one switch for every step.
  step_writer write = nullptr;
};

inline constexpr size_t plan_max_steps = 24;
inline constexpr size_t plan_max_text = 112;

enum class plan_state : uint8_t {
  empty,       // not a pattern (or not compiled)
  complete,    // the steps are the whole pattern
  partial,     // the steps are its beginning; compile on from where they stop
  bad_letter,  // an unknown conversion
};

struct pattern_plan {
  plan_state state = plan_state::empty;
  bool literals_plain = true;  // every literal is ASCII without "<"
  uint8_t step_count = 0;
  // Set when run_date_plan can run the plan (see there); then date_length
  // bounds its text.
  bool date_only = false;
  uint16_t date_length = 0;
  // For a locale's own plans (see locale_plans): set (non-zero) when
  // run_date_plan_utf8 can run the plan with the locale's UTF-8 names; then
  // it bounds the text's bytes.
  uint16_t utf8_date_length = 0;
  plan_step steps[plan_max_steps];
  char text[plan_max_text + plan_chunk];  // the literal pieces, padded for chunk reads
  const locale_names *names = nullptr;
};

// Builds a plan step by step: the locale patterns' compiler below and the
// user formats' date directives both use it.
class plan_maker {
 public:
  plan_maker(const locale_names &names, pattern_plan *plan);
  // Takes up to len bytes of literal text; returns how many fit the plan.
  size_t literal(const char *t, size_t len);
  // Room for up to steps more steps and bytes more bytes of text.
  bool room_for(size_t steps, size_t bytes) const;
  bool last(part p, uint8_t digits, char fill, uint8_t needs);
  bool least(part p, uint8_t digits, bool clamp, uint8_t needs);
  // count names from first on, one picked by p; padded to the longest when
  // asked.
  bool name(int first, int count, part p, bool padded, uint8_t needs);
  bool zone(bool offset);
  // The seconds' fraction after the decimal point given.
  bool fraction(std::string_view point);
  // Sets each step's writer and the plan's state.
  void finish(plan_state state);

 private:
  bool add(const plan_step &s);
  const locale_names &names_;
  pattern_plan &plan_;
  size_t used_ = 0;
};

// Compiles the prepared pattern (see prepare_pattern) from position from
// into plan with the locale's names; returns where the steps stop (the
// pattern's end when the plan is complete).
size_t compile_pattern(const field_reader &loc, const locale_names &names,
                       std::string_view prepared, size_t from, pattern_plan *plan);

// Runs the plan for the moment, appending at out + n (room bytes from out):
// returns the new length, which counts what did not fit; only the bytes that
// fit are stored. When tail_is_scratch, bytes past the text within the room
// may be overwritten. plain (when given) is cleared when the text written
// is not ASCII without "<".
size_t run_plan(const pattern_plan &plan, const moment &m, int32_t decimals, char *out,
                size_t room, size_t n, bool tail_is_scratch, bool *plain = nullptr);

// The plans that show a date and nothing else, with literals and names of
// one chunk at most, all ASCII without "<", and names in blank-padded slots:
// the text of every day is plain and at most date_length bytes, known when
// the plan is made. run_date_plan writes such a plan for day n (in range)
// at out, whose room bytes (at least date_length) are blank beforehand; the
// text stands at the start, blanks after it, and its length is returned.
// The bytes are those run_plan writes.
size_t run_date_plan(const pattern_plan &plan, int64_t day_number, char *out, size_t room);

// The same with the names' UTF-8 slots, for a plan whose utf8_date_length
// is set: the bytes the encoder makes of run_plan's text in a UTF-8
// codeset, at most utf8_date_length of them.
size_t run_date_plan_utf8(const pattern_plan &plan, const utf8_names &names, int64_t day_number,
                          char *out, size_t room);

// The locale pattern fields compiled once per locale: 28 (date) to 53
// (time), each as it stands and with " %z" appended.
inline constexpr int plan_first_field = lf::date_default;
inline constexpr int plan_field_count = 26;

struct locale_plans {
  locale_names names;
  pattern_plan plans[2][plan_field_count];  // [with zone][field - plan_first_field]
  const utf8_names *utf8 = nullptr;          // allocated with the set, never null in it
};

// Per locale, published once when its plans are first asked for.
extern std::atomic<const locale_plans *> compiled_plans[locale_count];

// Compiles every pattern of locale id and publishes the set; a thread that
// loses the race to publish drops its copy and takes the winner's. Null only
// when memory runs out.
const locale_plans *compile_locale_plans(int id);

inline const locale_plans *plans_of_locale(int id) {
  if (id < 1 || id > locale_count) return nullptr;
  const locale_plans *set = compiled_plans[id - 1].load(std::memory_order_acquire);
  if (set == nullptr) [[unlikely]]
    set = compile_locale_plans(id);
  return set;
}

// The locale id behind a database reader; 0 for any other reader.
int database_locale(const field_reader &loc);

// The compiled pattern of a locale field code (a field number, plus 256 for
// " %z" appended; the datetime mark 4096 is ignored) in locale id, or null
// when the code names no compiled pattern.
inline const pattern_plan *plan_for_code(int id, int code) {
  const int field = code & 0xFF;
  if (code <= 0 || field < plan_first_field || field >= plan_first_field + plan_field_count)
    return nullptr;
  const locale_plans *set = plans_of_locale(id);
  if (set == nullptr) return nullptr;
  const pattern_plan &p = set->plans[(code & 256) != 0 ? 1 : 0][field - plan_first_field];
  return p.state == plan_state::empty ? nullptr : &p;
}

// Expands the prepared pattern, or runs plan when one is given, into out:
// its full length in *length. done (the whole text stored), too_long (its
// first room bytes stored) or unusable (an unknown conversion).
nl_result run_pattern(const moment &m, const field_reader &loc, const pattern_plan *plan,
                      std::string_view prepared, int32_t decimals, char *out, size_t room,
                      bool tail_is_scratch, size_t *length, bool *plain = nullptr);

}  // namespace xfmt::nls
