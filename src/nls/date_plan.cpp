// Date patterns compiled once per locale. The steps mirror what the expander
// writes for a value with a date: the same parser reads the pattern, and each
// conversion that depends on the day alone becomes a literal, a name or a
// number step. Anything else (times, zones, eras, ISO weeks, unknown letters)
// leaves the plan unusable, and the expander keeps that pattern.
#include "nls/date_plan.hpp"

#include <array>
#include <atomic>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

#include "datetime/calendar.hpp"
#include "nls/locale_reader.hpp"

namespace xfmt::nls {
namespace {

// Longest pattern after "%x" and "%X" are inlined; the expander's own bound.
constexpr size_t pattern_room = 1024;

// The name fields of the conversions: (hash, lower) picks one of four sets.
constexpr int weekday_first(const conversion &c) {
  return c.lower ? (c.hash ? 121 : 107) : (c.hash ? 128 : 114);
}
constexpr int month_first(const conversion &c) {
  return c.lower ? (c.hash ? 83 : 59) : (c.hash ? 95 : 71);
}
constexpr int quarter_first(const conversion &c) {
  return c.lower ? (c.hash ? 143 : 135) : (c.hash ? 147 : 139);
}

constexpr char digit_pairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// The digits of a number step into out (room for at least five bytes);
// returns the length. v >= 0 and below 100000.
size_t write_digits(const plan_step &s, int v, char *out) {
  switch (s.kind) {
    case plan_step::digits_two:
      std::memcpy(out, digit_pairs + 2 * (v % 100), 2);
      return 2;
    case plan_step::digits_four: {
      const int last = v % 10000;
      std::memcpy(out, digit_pairs + 2 * (last / 100), 2);
      std::memcpy(out + 2, digit_pairs + 2 * (last % 100), 2);
      return 4;
    }
    case plan_step::digits_all:
      if (v < 100) {  // one or two digits, without a branch on which
        const size_t len = v < 10 ? 1 : 2;
        std::memcpy(out, digit_pairs + 2 * v + (2 - len), 2);
        return len;
      }
      break;
    default:
      break;
  }
  int k = s.length;
  char fill = s.fill;
  if (s.kind == plan_step::digits_all) {
    k = v < 1000 ? 3 : v < 10000 ? 4 : 5;
    fill = '0';
  }
  for (int i = k - 1; i >= 0; --i) {
    out[i] = static_cast<char>('0' + v % 10);
    v /= 10;
  }
  for (int i = 0; fill != '0' && i < k - 1 && out[i] == '0'; ++i) out[i] = fill;
  return static_cast<size_t>(k);
}

}  // namespace

struct step_context {
  const date_plan &plan;
  const day_fields &day;
  const zav_locale_field *record;
  char *out;
  size_t room;
  // Cleared by a name that is not plain ASCII (or not known to be).
  mutable bool plain = true;
};

namespace {

constexpr size_t too_long = ~size_t{0};

// len (at most 16) bytes near the end of the room, where a whole chunk does
// not fit: two overlapping moves instead of a call, reading and writing
// nothing outside the len bytes.
inline void copy_short(char *to, const char *from, size_t len) {
  if (len >= 8) {
    std::memcpy(to, from, 8);
    std::memcpy(to + len - 8, from + len - 8, 8);
  } else if (len >= 4) {
    std::memcpy(to, from, 4);
    std::memcpy(to + len - 4, from + len - 4, 4);
  } else if (len >= 2) {
    std::memcpy(to, from, 2);
    std::memcpy(to + len - 2, from + len - 2, 2);
  } else if (len == 1) {
    *to = *from;
  }
}

// One source of the day. The writers are made for each source, so a step
// works out the one number it shows and nothing else.
template <day_source S>
inline int value_of(const day_fields &d) {
  if constexpr (S == day_source::day) return d.day;
  if constexpr (S == day_source::month) return d.month;
  if constexpr (S == day_source::year) return d.year;
  if constexpr (S == day_source::year_of_century) return d.year % 100;
  if constexpr (S == day_source::wday) return d.wday;
  if constexpr (S == day_source::wday_monday_1) return d.wday == 0 ? 7 : d.wday;
  if constexpr (S == day_source::month_index) return d.month - 1;
  if constexpr (S == day_source::quarter_index) return (d.month - 1) / 3;
  if constexpr (S == day_source::yday) return datetime::day_of_year(d.year, d.month, d.day);
  if constexpr (S == day_source::sunday_week)
    return (datetime::day_of_year(d.year, d.month, d.day) - 1 + 7 - d.wday) / 7;
}

// The rare long copy and the check of a name without a known plainness,
// kept out of line: the writers that call neither stay leaf functions that
// save no registers.
[[gnu::noinline, gnu::cold]] void copy_long(char *to, const char *from, size_t len) {
  std::memcpy(to, from, len);
}

[[gnu::noinline, gnu::cold]] bool name_is_plain(const zav_locale_field &f) {
  return plain_text(std::string_view(f.text, f.length));
}

// len bytes of the plan's text from first: a whole chunk when the piece
// fits one and the room allows (the text is padded for it).
inline size_t write_plan_text(uint16_t first, size_t len, const step_context &c, size_t n) {
  const char *from = c.plan.text + first;
  if (len <= plan_chunk && n + plan_chunk <= c.room)
    std::memcpy(c.out + n, from, plan_chunk);
  else if (n + len > c.room)
    return too_long;
  else if (len <= plan_chunk)
    copy_short(c.out + n, from, len);
  else
    copy_long(c.out + n, from, len);
  return n + len;
}

size_t write_literal(const plan_step &s, const step_context &c, size_t n) {
  return write_plan_text(s.first, s.length, c, n);
}

// The name itself; the caller pads it.
inline size_t write_name_text(const zav_locale_field &f, int field, const step_context &c,
                              size_t n) {
  if (c.plan.names_plain == nullptr)
    c.plain = c.plain && name_is_plain(f);
  else
    c.plain = c.plain && c.plan.names_plain[field - plan_first_name];
  if (f.length <= plan_chunk && n + plan_chunk <= c.room && c.plan.names != nullptr)
    std::memcpy(c.out + n, c.plan.names[field - plan_first_name], plan_chunk);
  else if (n + f.length <= c.room && f.length <= plan_chunk)
    copy_short(c.out + n, f.text, f.length);
  else if (n + f.length <= c.room)
    copy_long(c.out + n, f.text, f.length);
  else
    return too_long;
  return n + f.length;
}

template <day_source S>
size_t write_name(const plan_step &s, const step_context &c, size_t n) {
  const int field = s.first + value_of<S>(c.day);
  return write_name_text(c.record[field], field, c, n);
}

template <day_source S>
size_t write_padded_name(const plan_step &s, const step_context &c, size_t n) {
  const int field = s.first + value_of<S>(c.day);
  const zav_locale_field &f = c.record[field];
  n = write_name_text(f, field, c, n);
  if (n == too_long) return n;
  const size_t chars = f.length != 0 ? escaped_length(std::string_view(f.text, f.length)) : 0;
  if (s.pad <= chars) return n;
  const size_t blanks = s.pad - chars;
  if (n + blanks > c.room) return too_long;
  std::memset(c.out + n, ' ', blanks);
  return n + blanks;
}

template <day_source S>
size_t write_two(const plan_step &, const step_context &c, size_t n) {
  if (n + 2 > c.room) return too_long;
  std::memcpy(c.out + n, digit_pairs + 2 * (value_of<S>(c.day) % 100), 2);
  return n + 2;
}

template <day_source S>
size_t write_four(const plan_step &, const step_context &c, size_t n) {
  if (n + 4 > c.room) return too_long;
  int v = value_of<S>(c.day);
  if (v >= 10000) v %= 10000;  // years from 10000 on show their last four digits
  std::memcpy(c.out + n, digit_pairs + 2 * (v / 100), 2);
  std::memcpy(c.out + n + 2, digit_pairs + 2 * (v % 100), 2);
  return n + 4;
}

// Any other number: through a small buffer when the room is short.
[[gnu::noinline]] size_t write_number_value(const plan_step &s, int v, const step_context &c,
                                           size_t n) {
  if (n + 5 <= c.room) return n + write_digits(s, v, c.out + n);
  char digits[8];
  const size_t len = write_digits(s, v, digits);
  if (n + len > c.room) return too_long;
  std::memcpy(c.out + n, digits, len);
  return n + len;
}

template <day_source S>
size_t write_number(const plan_step &s, const step_context &c, size_t n) {
  return write_number_value(s, value_of<S>(c.day), c, n);
}

template <day_source S>
size_t write_all_digits(const plan_step &s, const step_context &c, size_t n) {
  const int v = value_of<S>(c.day);
  if (v >= 100 || n + 2 > c.room) return write_number_value(s, v, c, n);
  const size_t len = v < 10 ? 1 : 2;  // one or two digits, without a branch on which
  std::memcpy(c.out + n, digit_pairs + 2 * v + (2 - len), 2);
  return n + len;
}

// The step's suffix after what the step wrote.
inline size_t write_suffix(const plan_step &s, const step_context &c, size_t n) {
  return write_plan_text(s.suffix_first, s.suffix_length, c, n);
}

template <step_writer Write>
size_t with_suffix(const plan_step &s, const step_context &c, size_t n) {
  n = Write(s, c, n);
  return n > c.room ? too_long : write_suffix(s, c, n);
}

constexpr size_t kind_count = plan_step::digits_fixed + 1;
// For one source: the writers of every kind (in the order of
// plan_step::kind_t), without a suffix and then with one.
using writer_row = std::array<step_writer, 2 * kind_count>;

template <day_source S>
constexpr writer_row writers_for() {
  return {write_literal,
          write_name<S>,
          write_padded_name<S>,
          write_all_digits<S>,
          write_two<S>,
          write_four<S>,
          write_number<S>,
          write_literal,  // a literal never carries a suffix
          with_suffix<write_name<S>>,
          with_suffix<write_padded_name<S>>,
          with_suffix<write_all_digits<S>>,
          with_suffix<write_two<S>>,
          with_suffix<write_four<S>>,
          with_suffix<write_number<S>>};
}

template <size_t... I>
constexpr std::array<writer_row, sizeof...(I)> writer_table(std::index_sequence<I...>) {
  return {writers_for<static_cast<day_source>(I)>()...};
}

constexpr auto writers = writer_table(std::make_index_sequence<day_source_count>{});

constexpr step_writer writer_of(plan_step::kind_t k, day_source s, bool suffix) {
  return writers[static_cast<size_t>(s)][static_cast<size_t>(k) + (suffix ? kind_count : 0)];
}

// Steps K and on, each from a call of its own (see plan_step::write).
template <size_t K>
inline size_t run_steps(const date_plan &plan, const step_context &c, size_t n) {
  if constexpr (K == plan_max_steps) {
    return n;
  } else {
    if (K >= plan.step_count) return n;
    const plan_step &s = plan.steps[K];
    n = s.write(s, c, n);
    if (n > c.room) return n;
    return run_steps<K + 1>(plan, c, n);
  }
}

class plan_builder {
 public:
  explicit plan_builder(const field_reader &loc) : loc_(loc) {}

  // Text goes on the end of the last literal, or becomes the suffix of the
  // last conversion while that stays within one chunk, or a literal step.
  bool literal(const char *t, size_t len) {
    if (len == 0) return true;
    if (used_ + len > plan_max_text) return false;
    plan_step *last = plan_.step_count > 0 ? &plan_.steps[plan_.step_count - 1] : nullptr;
    const auto at = static_cast<uint16_t>(used_);
    if (last != nullptr && last->kind == plan_step::literal && last->first + last->length == at) {
      last->length = static_cast<uint8_t>(last->length + len);
    } else if (last != nullptr && last->kind != plan_step::literal &&
               last->suffix_length + len <= plan_chunk &&
               (last->suffix_length == 0 || last->suffix_first + last->suffix_length == at)) {
      if (last->suffix_length == 0) last->suffix_first = at;
      last->suffix_length = static_cast<uint8_t>(last->suffix_length + len);
    } else if (!add({plan_step::literal, day_source::day, static_cast<uint8_t>(len), '0', at, 0})) {
      return false;
    }
    std::memcpy(plan_.text + used_, t, len);
    plan_.literals_plain = plan_.literals_plain && plain_text(std::string_view(t, len));
    plan_.plain = plan_.plain && plan_.literals_plain;
    used_ += len;
    return true;
  }

  // Exactly digits digits (leading zeros shown as fill), or all of them.
  bool number(day_source s, uint8_t digits, char fill = '0') {
    plan_step::kind_t k = plan_step::digits_fixed;
    if (digits == 0)
      k = plan_step::digits_all;
    else if (digits == 2 && fill == '0')
      k = plan_step::digits_two;
    else if (digits == 4 && fill == '0')
      k = plan_step::digits_four;
    return add({k, s, digits, fill, 0, 0});
  }

  // Two digits, zero padded; under "#" as many as needed.
  bool two(const conversion &c, day_source s) { return number(s, c.hash ? 0 : 2); }

  // count names from first on, one chosen by s; padded to the longest when
  // asked. A field the reader cannot give is left to the expander.
  bool name(int first, int count, day_source s, bool padded) {
    if (first < plan_first_name || first + count > plan_first_name + plan_name_count) return false;
    std::string_view t;
    for (int i = 0; i < count; ++i) {
      if (!loc_.get(first + i, &t)) return false;
      plan_.plain = plan_.plain && plain_text(t);
    }
    const size_t pad = padded ? longest_name(loc_, first, count) : 0;
    if (pad > 0xFFFF) return false;
    return add({pad != 0 ? plan_step::padded_name : plan_step::name, s, 0, ' ',
                static_cast<uint16_t>(first), static_cast<uint16_t>(pad)});
  }

  // One conversion as the expander writes it when the value has a date.
  bool conversion_step(const conversion &c) {
    if (c.lower && (c.letter == 'V' || c.letter == 'T')) return true;  // "%v", "%t": nothing
    switch (c.letter) {
      case '%':
        return literal("%", 1);
      case 'A':
        return name(weekday_first(c), 7, day_source::wday, false);
      case 'F':
        return name(weekday_first(c), 7, day_source::wday, true);
      case 'B':
        return name(month_first(c), 12, day_source::month_index, false);
      case 'C':
        return name(c.hash ? 95 : 71, 12, day_source::month_index, true);
      case 'Q':
        return name(quarter_first(c), 4, day_source::quarter_index, false);
      case 'D':
        return two(c, day_source::day);
      case 'E':
        return number(day_source::day, 2, ' ');
      case 'N':  // "%m"; "%?m" is the day count of a time
        return !c.lower && two(c, day_source::month);
      case 'O':
        return number(day_source::month, 2, ' ');
      case 'J':
        return number(day_source::yday, c.hash ? 0 : 3);
      case 'U':
        return c.lower ? number(day_source::wday_monday_1, 1)
                       : two(c, day_source::sunday_week);
      case 'W':  // "%W" needs the calendar's week rules
        return c.lower && number(day_source::wday, 1);
      case 'Y':
        if (c.era) return false;
        return c.lower ? two(c, day_source::year_of_century) : number(day_source::year, 4);
      default:
        return false;
    }
  }

  date_plan finish() {
    for (uint8_t k = 0; k < plan_.step_count; ++k) {
      plan_step &s = plan_.steps[k];
      s.write = writer_of(s.kind, s.source, s.suffix_length != 0);
    }
    plan_.usable = true;
    return plan_;
  }

 private:
  bool add(const plan_step &s) {
    if (plan_.step_count == plan_max_steps) return false;
    plan_.steps[plan_.step_count++] = s;
    return true;
  }

  const field_reader &loc_;
  date_plan plan_{};
  size_t used_ = 0;
};

}  // namespace

std::atomic<const locale_plans *> compiled_plans[locale_count];

const locale_plans *compile_locale_plans(int id) {
  auto *fresh = new (std::nothrow) locale_plans{};
  if (fresh == nullptr) return nullptr;
  const field_reader loc = locale_reader(id);
  for (int k = 0; k < plan_name_count; ++k) {
    std::string_view t;
    if (!loc.get(plan_first_name + k, &t)) continue;
    if (t.size() <= plan_chunk) std::memcpy(fresh->names[k], t.data(), t.size());
    fresh->names_plain[k] = plain_text(t);
  }
  for (int k = 0; k < plan_field_count; ++k) {
    std::string_view p;
    if (!loc.get(plan_first_field + k, &p)) continue;
    fresh->plans[k] = compile_date_plan(loc, p.data(), p.size());
    fresh->plans[k].names = fresh->names;
    fresh->plans[k].names_plain = fresh->names_plain;
  }
  const locale_plans *expected = nullptr;
  if (compiled_plans[id - 1].compare_exchange_strong(expected, fresh, std::memory_order_acq_rel,
                                                     std::memory_order_acquire))
    return fresh;
  delete fresh;
  return expected;
}


date_plan compile_date_plan(const field_reader &loc, const char *pattern, size_t pattern_length) {
  char buffer[pattern_room];
  const std::string_view p = prepare_pattern(pattern, pattern_length, loc, buffer, sizeof buffer);
  const size_t n = p.size();
  plan_builder b(loc);
  for (size_t i = 0; i < n;) {
    if (p[i] != '%') {
      size_t run = 1;
      while (i + run < n && p[i + run] != '%') ++run;
      if (!b.literal(p.data() + i, run)) return {};
      i += run;
      continue;
    }
    ++i;
    if (i < n && p[i] == '%') {
      if (!b.literal("%", 1)) return {};
      ++i;
      continue;
    }
    conversion c;
    if (!parse_conversion(p.data(), n, i, c) || !b.conversion_step(c)) return {};
  }
  return b.finish();
}

size_t run_date_plan(const date_plan &plan, const day_fields &day, const zav_locale_field *record,
                     char *out, size_t room, bool *plain) {
  const step_context c{plan, day, record, out, room};
  const size_t n = run_steps<0>(plan, c, 0);
  if (plain != nullptr) *plain = plan.literals_plain && c.plain;
  return n <= room ? n : room + 1;
}

}  // namespace xfmt::nls
