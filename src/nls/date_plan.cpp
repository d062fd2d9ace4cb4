// The national pattern engine: the compiler that reads a pattern into steps,
// and the writers that run them. Each writer is made for one kind and one
// part of the moment, so a step works out the one number it shows.
#include "nls/date_plan.hpp"

#include <array>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

#include "core/platform.hpp"
#include "datetime/calendar.hpp"
#include "core/bounded_text.hpp"
#include "nls/locale_reader.hpp"
#include "nls/nl_encode.hpp"

namespace xfmt::nls {

struct run_context {
  const pattern_plan &plan;
  const moment &m;
  char *out;
  size_t room;
  size_t chunk_room;  // room when the bytes past the text are scratch, else 0
  int32_t decimals;
  mutable bool plain;
};

namespace {

// Longest pattern once "%x" and "%X" are inlined.
constexpr size_t pattern_room = 1024;

// ---------------------------------------------------------------- writing

// len bytes at n, stored as far as the room goes; the length counts them all.
size_t put_bounded(const run_context &c, size_t n, const char *s, size_t len) {
  core::bounded_text t(c.out, c.room);
  t.skip(n);
  t.put(s, len);
  return t.length();
}

// len (at most 16) bytes: two overlapping moves instead of a call, touching
// nothing outside the len bytes.
[[gnu::always_inline]] inline void copy_short(char *to, const char *from, size_t len) {
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

// Text of len bytes whose 16-byte chunk from may be read whole: the chunk is
// stored when the scratch room allows, else exactly the bytes that fit.
[[gnu::always_inline]] inline size_t put_chunked(const run_context &c, size_t n, const char *from,
                                                size_t len) {
  if (len <= plan_chunk && n + plan_chunk <= c.chunk_room) {
    std::memcpy(c.out + n, from, plan_chunk);
    return n + len;
  }
  if (len <= plan_chunk && n + len <= c.room) {
    copy_short(c.out + n, from, len);
    return n + len;
  }
  return put_bounded(c, n, from, len);
}

// Japanese eras from Meiji to Heisei: the first day of each (days from
// 1960-01-01) and the Gregorian year it began in.
int64_t japanese_era_year(const moment &m) {
  static constexpr struct {
    int64_t start;
    int year;
  } eras[] = {{-33506, 1868}, {-17321, 1912}, {-12060, 1926}, {10600, 1989}};
  for (int k = 3; k >= 0; --k)
    if (eras[k].start <= m.day_number) return m.year + 1 - eras[k].year;
  return m.year;
}

struct week_values {
  int iso_year, iso_week, monday_week;
};

week_values week_fields(const moment &m) {
  week_values w{m.iso_year, m.iso_week, m.monday_week};
  if (m.weeks != nullptr) m.weeks(m, &w.iso_year, &w.iso_week, &w.monday_week);
  return w;
}

int64_t twelve_hour(int64_t h) { return h <= 12 ? h : h % 12; }

// floor without the library call (the processor's baseline has no rounding
// instruction): truncate, then step down for negative fractions.
inline int64_t whole_seconds(double s) {
  if (!(s > -9.0e18 && s < 9.0e18)) return static_cast<int64_t>(std::floor(s));
  const auto t = static_cast<int64_t>(s);
  return static_cast<double>(t) > s ? t - 1 : t;
}

// The day of the year and the weekday, worked out here when the moment
// left them out.
inline int yday_of(const moment &m) {
  return m.yday != 0 ? m.yday : datetime::day_of_year(m.year, m.month, m.day);
}
inline int wday_of(const moment &m) {
  if (m.wday != unknown_wday) return m.wday;
  const int64_t w = (m.day_number + 5) % 7;  // 1960-01-01 was a Friday
  return static_cast<int>(w < 0 ? w + 7 : w);
}

// One part of the moment. The writers are made for each part.
template <part P>
inline int64_t value_of(const moment &m) {
  if constexpr (P == part::day) return m.day;
  if constexpr (P == part::month) return m.month;
  if constexpr (P == part::year) return m.year;
  if constexpr (P == part::year_of_century) return m.year % 100;
  if constexpr (P == part::wday) return wday_of(m);
  if constexpr (P == part::wday_monday_1) return wday_of(m) == 0 ? 7 : wday_of(m);
  if constexpr (P == part::month_index) return m.month - 1;
  if constexpr (P == part::quarter_index) return (m.month - 1) / 3;
  if constexpr (P == part::yday) return yday_of(m);
  if constexpr (P == part::sunday_week) return datetime::sunday_week(yday_of(m), wday_of(m));
  if constexpr (P == part::iso_year) return week_fields(m).iso_year;
  if constexpr (P == part::iso_year_of_century) return week_fields(m).iso_year % 100;
  if constexpr (P == part::iso_week) return week_fields(m).iso_week;
  if constexpr (P == part::monday_week) return week_fields(m).monday_week;
  if constexpr (P == part::era_tw || P == part::era_tw_of_century) {
    const int64_t y = m.year - 1911;
    const int64_t e = y <= 0 ? 1 - y : y;
    return P == part::era_tw ? e : e % 100;
  }
  if constexpr (P == part::era_th) return m.year + 543;
  if constexpr (P == part::era_th_of_century) return (m.year + 543) % 100;
  if constexpr (P == part::era_jp) return japanese_era_year(m);
  if constexpr (P == part::era_jp_of_century) return japanese_era_year(m) % 100;
  if constexpr (P == part::hour) return m.hour;
  if constexpr (P == part::hour_from_1) return m.hour == 0 ? 24 : m.hour;
  if constexpr (P == part::hour_12) return twelve_hour(m.hour) == 0 ? 12 : twelve_hour(m.hour);
  if constexpr (P == part::hour_12_raw) return twelve_hour(m.hour);
  if constexpr (P == part::minute) return m.minute;
  if constexpr (P == part::second) return whole_seconds(m.second);
  if constexpr (P == part::days) return m.hour / 24;
  if constexpr (P == part::half) return m.hour % 24 <= 11 ? 0 : 1;
  if constexpr (P == part::half_of_count) return m.hour < 12 ? 0 : 1;
}

size_t write_literal(const plan_step &s, const run_context &c, size_t n) {
  return put_chunked(c, n, c.plan.text + s.first, s.length);
}

// The name itself, "**" when the moment has no such name; the caller pads it.
[[gnu::always_inline]] inline size_t write_name_text(const plan_step &s, int64_t index,
                                                    const run_context &c, size_t n,
                              const name_entry **picked) {
  if (index < 0 || index >= s.digits) [[unlikely]]
    return put_bounded(c, n, "**", 2);
  const int k = s.first - first_name_field + static_cast<int>(index);
  const name_entry &e = c.plan.names->names[k];
  *picked = &e;
  if (!e.plain) c.plain = false;
  if (e.length <= plan_chunk) return put_chunked(c, n, c.plan.names->slots[k], e.length);
  return put_bounded(c, n, e.text, e.length);
}

template <part P>
size_t write_name(const plan_step &s, const run_context &c, size_t n) {
  const name_entry *e = nullptr;
  return write_name_text(s, value_of<P>(c.m), c, n, &e);
}

template <part P>
size_t write_padded_name(const plan_step &s, const run_context &c, size_t n) {
  const name_entry *e = nullptr;
  n = write_name_text(s, value_of<P>(c.m), c, n, &e);
  if (e == nullptr || e->chars == no_pad || s.length <= e->chars) return n;
  const size_t blanks = s.length - e->chars;
  if (n + blanks <= c.room) {
    std::memset(c.out + n, ' ', blanks);
  } else if (n < c.room) {
    std::memset(c.out + n, ' ', c.room - n);
  }
  return n + blanks;
}

// The last k digits of v (v >= 0), leading zeros shown as fill.
[[gnu::noinline]] size_t write_last_slow(uint64_t v, int k, char fill, const run_context &c,
                                         size_t n) {
  char d[24];
  core::put_digits(d + k, v, k);
  for (int i = 0; fill != '0' && i < k - 1 && d[i] == '0'; ++i) d[i] = fill;
  return put_bounded(c, n, d, static_cast<size_t>(k));
}

template <part P>
size_t write_last(const plan_step &s, const run_context &c, size_t n) {
  const int64_t v = value_of<P>(c.m);
  const uint64_t u = v < 0 ? 0 : static_cast<uint64_t>(v);
  if (s.fill == '0' && s.digits == 2 && n + 2 <= c.room) {
    core::put2(c.out + n, u % 100);
    return n + 2;
  }
  if (s.fill == '0' && s.digits == 4 && n + 4 <= c.room) {
    core::put4(c.out + n, u % 10000);
    return n + 4;
  }
  return write_last_slow(u, s.digits, s.fill, c, n);
}

// At least k digits of v, with a minus sign when negative.
[[gnu::noinline]] size_t write_least_slow(int64_t v, int k, const run_context &c, size_t n) {
  char d[24];
  size_t len = 0;
  if (v < 0) d[len++] = '-';
  const uint64_t u = v < 0 ? 0 - static_cast<uint64_t>(v) : static_cast<uint64_t>(v);
  const int count = core::digit_count(u) > k ? core::digit_count(u) : k;
  core::put_digits(d + len + count, u, count);
  return put_bounded(c, n, d, len + static_cast<size_t>(count));
}

template <part P>
size_t write_least(const plan_step &s, const run_context &c, size_t n) {
  int64_t v = value_of<P>(c.m);
  if (s.clamp && v < 0) v = 0;
  if (v >= 0 && v < 100 && s.digits <= 2) {
    const size_t len = v < 10 && s.digits < 2 ? 1 : 2;
    const char *d = core::digit_pairs.c + 2 * v + (2 - len);
    if (n + 2 <= c.chunk_room) {  // one or two digits, without a branch on which
      std::memcpy(c.out + n, d, 2);
      return n + len;
    }
    if (n + len <= c.room) {
      c.out[n] = d[0];
      if (len == 2) c.out[n + 1] = d[1];
      return n + len;
    }
  }
  return write_least_slow(v, s.digits, c, n);
}

// The seconds' fraction: the locale's decimal point, then the digits one by
// one. Only the last digit is rounded, and without carry into earlier ones:
// with one decimal 12.36 prints "12.4", 12.34 "12.3", and 59.96 "59.9" (a 9
// is never raised, so the seconds never become 60). Digits past the room are
// only counted.
size_t write_fraction(const plan_step &s, const run_context &c, size_t n) {
  const int32_t decimals = c.decimals;
  if (decimals <= 0) return n;
  n = put_bounded(c, n, c.plan.text + s.first, s.length);
  if (!c.m.has_second) {
    for (int i = 0; i < decimals; ++i) {
      if (n >= c.room) return n + static_cast<size_t>(decimals - i);
      c.out[n++] = '*';
    }
    return n;
  }
  double frac = c.m.second - std::floor(c.m.second);
  for (int i = 0; i < decimals; ++i) {
    if (n >= c.room) return n + static_cast<size_t>(decimals - i);
    frac *= 10;
    int digit = static_cast<int>(frac);
    if (digit > 9) digit = 9;
    frac -= digit;
    if (i == decimals - 1 && digit < 9 && static_cast<int>(frac * 10) >= 5) ++digit;
    c.out[n++] = static_cast<char>('0' + digit);
  }
  return n;
}

// "%z": sign, hours, minutes of the standard offset; daylight-saving time
// adds one to the hour count whatever the sign (so a zone five hours west
// shows -0500 in winter and -0600 in summer: hosts have long relied on this).
size_t write_zone_offset(const plan_step &, const run_context &c, size_t n) {
  const platform::zone_snapshot &z = platform::process_zone();
  const long east = -static_cast<long>(z.seconds_west);
  const long mag = east < 0 ? -east : east;
  const int64_t hours = mag / 3600 + (z.dst ? 1 : 0);
  char t[5] = {east < 0 ? '-' : '+'};
  core::put2(t + 1, hours % 100);
  core::put2(t + 3, (mag % 3600) / 60);
  return put_bounded(c, n, t, sizeof t);
}

size_t write_zone_name(const plan_step &, const run_context &c, size_t n) {
  const std::string_view t = platform::process_zone().abbrev;
  c.plain = c.plain && plain_text(t);
  return put_bounded(c, n, t.data(), t.size());
}

[[gnu::always_inline]] inline size_t write_suffix(const plan_step &s, const run_context &c,
                                                 size_t n) {
  return put_chunked(c, n, c.plan.text + s.suffix_first, s.suffix_length);
}

template <step_writer Write>
size_t with_suffix(const plan_step &s, const run_context &c, size_t n) {
  return write_suffix(s, c, Write(s, c, n));
}

constexpr size_t kind_count = plan_step::zone_name + 1;
using writer_row = std::array<step_writer, 2 * kind_count>;

// For one part: the writers of every kind (in the order of plan_step::kind_t),
// without a suffix and then with one.
template <part P>
constexpr writer_row writers_for() {
  return {write_literal,
          write_name<P>,
          write_padded_name<P>,
          write_last<P>,
          write_least<P>,
          write_fraction,
          write_zone_offset,
          write_zone_name,
          write_literal,  // a literal never carries a suffix
          with_suffix<write_name<P>>,
          with_suffix<write_padded_name<P>>,
          with_suffix<write_last<P>>,
          with_suffix<write_least<P>>,
          with_suffix<write_fraction>,
          with_suffix<write_zone_offset>,
          with_suffix<write_zone_name>};
}

template <size_t... I>
constexpr std::array<writer_row, sizeof...(I)> writer_table(std::index_sequence<I...>) {
  return {writers_for<static_cast<part>(I)>()...};
}

constexpr auto writers = writer_table(std::make_index_sequence<part_count>{});

// A step whose part is missing: "**", then its suffix.
[[gnu::noinline]] size_t write_stars(const plan_step &s, const run_context &c, size_t n) {
  return write_suffix(s, c, put_bounded(c, n, "**", 2));
}

// Steps K and on, each from a call of its own (see plan_step::write).
template <size_t K>
[[gnu::always_inline]] inline size_t run_steps(const run_context &c, uint8_t missing, size_t n) {
  if constexpr (K == plan_max_steps) {
    return n;
  } else {
    if (K >= c.plan.step_count) return n;
    const plan_step &s = c.plan.steps[K];
    n = (s.needs & missing) != 0 ? write_stars(s, c, n) : s.write(s, c, n);
    return run_steps<K + 1>(c, missing, n);
  }
}

// ---------------------------------------------------------------- date plans

// How run_date_plan writes a step; none: the plan is not a date plan.
enum date_op : uint8_t {
  op_none,
  op_literal,       // the literal, one chunk
  op_name,          // the name picked by the part, one chunk
  op_last1,         // the last digit
  op_last2,         // the last two digits
  op_last2_blank,   // the last two, a leading zero as a blank ("%e")
  op_last3,         // the last three
  op_last4,         // the last four
  op_least1,        // one or two digits
};

// 0..99 as two characters: blank_pairs " 0" .. " 9", "10" .. "99" (a leading
// zero as a blank); short_pairs "0 " .. "9 ", "10" .. "99" (one digit, then
// a blank a later step may cover).
constexpr core::digit_pair_table make_blank_pairs(bool digit_first) {
  core::digit_pair_table t = core::digit_pairs;
  for (int i = 0; i < 10; ++i) {
    t.c[2 * i] = digit_first ? static_cast<char>('0' + i) : ' ';
    t.c[2 * i + 1] = digit_first ? ' ' : static_cast<char>('0' + i);
  }
  return t;
}
constexpr core::digit_pair_table blank_pairs = make_blank_pairs(false);
constexpr core::digit_pair_table short_pairs = make_blank_pairs(true);

// The parts of a calendar day a date plan may show, and the largest value of
// each (the year counted as 20000; only its last digits are shown).
constexpr int64_t date_part_max(part p) {
  switch (p) {
    case part::day: return 31;
    case part::month: return 12;
    case part::year: return 20000;
    case part::year_of_century: return 99;
    case part::wday: return 6;
    case part::wday_monday_1: return 7;
    case part::month_index: return 11;
    case part::quarter_index: return 3;
    case part::yday: return 366;
    default: return -1;  // not a part of the day alone
  }
}
// The most steps of a date plan (a date pattern has five or six).
constexpr size_t date_plan_max_steps = 8;

struct date_step {
  date_op op;
  size_t length;  // the most bytes the step writes, its suffix left out
};

// The op and the longest text of step s, or op_none; with utf8, the names
// as their UTF-8 slots.
date_step date_step_of(const plan_step &s, const locale_names *names, const utf8_names *utf8) {
  if (s.kind == plan_step::literal)
    return s.length <= plan_chunk ? date_step{op_literal, s.length} : date_step{op_none, 0};
  if ((s.needs & ~need_date) != 0) return {op_none, 0};
  const int64_t top = date_part_max(s.source);
  if (top < 0) return {op_none, 0};
  switch (s.kind) {
    case plan_step::name: {
      if (names == nullptr || !names->blank_slots || top >= s.digits) return {op_none, 0};
      size_t longest = 0;
      for (int i = 0; i < s.digits; ++i) {
        const size_t k = static_cast<size_t>(s.first - first_name_field + i);
        const name_entry &e = names->names[k];
        size_t length = e.length;
        if (utf8 != nullptr) {
          if (utf8->length[k] == no_utf8_slot) return {op_none, 0};
          length = utf8->length[k];
        } else if (!e.plain || e.length > plan_chunk) {
          return {op_none, 0};
        }
        if (length > longest) longest = length;
      }
      return {op_name, longest};
    }
    case plan_step::last_digits:
      if (s.fill == ' ' && s.digits == 2) return {op_last2_blank, 2};
      if (s.fill != '0') return {op_none, 0};
      switch (s.digits) {
        case 1: return {op_last1, 1};
        case 2: return {op_last2, 2};
        case 3: return {op_last3, 3};
        case 4: return {op_last4, 4};
        default: return {op_none, 0};
      }
    case plan_step::least_digits:  // a value below 100 is never negative here
      if (top > 99 || s.digits > 2) return {op_none, 0};
      return {s.digits == 2 ? op_last2 : op_least1, 2};
    default:
      return {op_none, 0};
  }
}

// The longest text of the plan as a date plan (names as they stand, or
// with utf8 as their UTF-8 slots), each step's op set; -1 when it is none.
long date_plan_length(pattern_plan &plan, const utf8_names *utf8) {
  if (plan.state != plan_state::complete || !plan.literals_plain ||
      plan.step_count > date_plan_max_steps)
    return -1;
  size_t length = 0;
  for (uint8_t k = 0; k < plan.step_count; ++k) {
    plan_step &s = plan.steps[k];
    const date_step d = date_step_of(s, plan.names, utf8);
    if (d.op == op_none) return -1;
    s.op = d.op;
    length += d.length + s.suffix_length;
  }
  return length <= 0xFFFF ? static_cast<long>(length) : -1;
}

// Marks the plan a date plan when every step is one (see run_date_plan).
void classify_date_plan(pattern_plan &plan) {
  const long length = date_plan_length(plan, nullptr);
  plan.date_only = length >= 0;
  plan.date_length = static_cast<uint16_t>(length >= 0 ? length : 0);
}

// ---------------------------------------------------------------- compiling

// The name fields of the conversions: (hash, lower) picks one of four sets.
constexpr int weekday_first(const conversion &c) {
  return c.lower ? (c.hash ? lf::weekday_abbr_2_sun : lf::weekday_abbr_sun)
                 : (c.hash ? lf::weekday_full_2_sun : lf::weekday_full_sun);
}
constexpr int month_first(const conversion &c) {
  return c.lower ? (c.hash ? lf::month_abbr_2_jan : lf::month_abbr_jan)
                 : (c.hash ? lf::month_full_2_jan : lf::month_full_jan);
}
constexpr int quarter_first(const conversion &c) {
  return c.lower ? (c.hash ? lf::quarter_abbr_2_1 : lf::quarter_abbr_1)
                 : (c.hash ? lf::quarter_full_2_1 : lf::quarter_full_1);
}

enum class era_kind : uint8_t { none, tw, th, jp };

era_kind era_of(const field_reader &loc) {
  std::string_view country;
  if (!loc.get(lf::match_country, &country)) return era_kind::none;
  if (country == "TW") return era_kind::tw;
  if (country == "TH") return era_kind::th;
  if (country == "JP") return era_kind::jp;
  return era_kind::none;
}

// The locale dialect of patterns: "%" conversions as the locale records
// write them.
class plan_builder : public plan_maker {
 public:
  plan_builder(const field_reader &loc, const locale_names &names, pattern_plan *plan)
      : plan_maker(names, plan), loc_(loc) {}

  // One conversion; false for an unknown letter.
  bool conversion_steps(const conversion &c) {
    if (c.lower && (c.letter == 'V' || c.letter == 'T')) return true;  // "%v", "%t": nothing
    switch (c.letter) {
      case '%':
        return literal("%", 1) == 1;
      case 'A':
        return name(weekday_first(c), 7, part::wday, false, need_date);
      case 'F':
        return name(weekday_first(c), 7, part::wday, true, need_date);
      case 'B':
        return name(month_first(c), 12, part::month_index, false, need_date);
      case 'C':
        return name(c.hash ? lf::month_full_2_jan : lf::month_full_jan, 12, part::month_index,
                    true, need_date);
      case 'Q':
        return name(quarter_first(c), 4, part::quarter_index, false, need_date);
      case 'D':
        return two(c, part::day, need_date);
      case 'E':
        return last(part::day, 2, ' ', need_date);
      case 'G':
        return c.lower ? two(c, part::iso_year_of_century, need_date)
                       : last(part::iso_year, 4, '0', need_date);
      case 'H':
      case 'K':
        // Hours past 99 (a long time) keep all their digits.
        return least(c.letter == 'H' ? part::hour : part::hour_from_1, c.hash ? 1 : 2, !c.hash,
                     need_hour);
      case 'I':
        return two(c, part::hour_12, need_hour);
      case 'L':
        return two(c, part::hour_12_raw, need_hour);
      case 'M':
        return two(c, part::minute, need_minute);
      case 'N':  // "%m" the month; "%n" whole days in the hour count
        return c.lower ? least(part::days, 1, false, need_hour) : two(c, part::month, need_date);
      case 'O':
        return last(part::month, 2, ' ', need_date);
      case 'J':
        return c.hash ? least(part::yday, 1, false, need_date)
                      : last(part::yday, 3, '0', need_date);
      case 'P':
        return name(lf::am_marker, 2, part::half, false, need_hour);
      case 'S':
        return two(c, part::second, need_second) && (c.lower || fraction(decimal_point()));
      case 'T': {
        const conversion plain_two{};
        return two(plain_two, part::hour, need_hour) && literal(":", 1) == 1 &&
               two(plain_two, part::minute, need_minute) && literal(":", 1) == 1 &&
               two(plain_two, part::second, need_second);
      }
      case 'U':
        return c.lower ? last(part::wday_monday_1, 1, '0', need_date)
                       : two(c, part::sunday_week, need_date);
      case 'W':
        return c.lower ? last(part::wday, 1, '0', need_date) : two(c, part::monday_week, need_date);
      case 'V':
        return two(c, part::iso_week, need_date);
      case 'Y':
        return year(c);
      case 'Z':
        return zone(c.lower);
      default:
        return false;
    }
  }

 private:
  // Two digits (the last two, zero padded, a negative as 0); under "#" as
  // many as needed.
  bool two(const conversion &c, part p, uint8_t needs) {
    return c.hash ? least(p, 1, false, needs) : last(p, 2, '0', needs);
  }

  std::string_view decimal_point() const {
    std::string_view point;
    if (!loc_.get(lf::decimal_point, &point) || point.empty()) point = ".";
    return point;
  }

  bool year(const conversion &c) {
    part full = part::year, short_year = part::year_of_century;
    if (c.era) switch (era_of(loc_)) {
        case era_kind::tw:
          full = part::era_tw, short_year = part::era_tw_of_century;
          break;
        case era_kind::th:
          full = part::era_th, short_year = part::era_th_of_century;
          break;
        case era_kind::jp:
          full = part::era_jp, short_year = part::era_jp_of_century;
          break;
        case era_kind::none:
          break;
      }
    return c.lower ? two(c, short_year, need_date) : last(full, 4, '0', need_date);
  }

  const field_reader &loc_;
};

}  // namespace

plan_maker::plan_maker(const locale_names &names, pattern_plan *plan)
    : names_(names), plan_(*plan) {
  plan_ = pattern_plan{};
  plan_.names = &names;
}

// Text goes on the end of the last literal, or becomes the suffix of the
// last step while that stays within one chunk, or a literal step.
size_t plan_maker::literal(const char *t, size_t len) {
  if (len > plan_max_text - used_) len = plan_max_text - used_;
  if (len == 0) return 0;
  plan_step *last = plan_.step_count > 0 ? &plan_.steps[plan_.step_count - 1] : nullptr;
  const auto at = static_cast<uint16_t>(used_);
  if (last != nullptr && last->kind == plan_step::literal && last->first + last->length == at) {
    last->length = static_cast<uint16_t>(last->length + len);
  } else if (last != nullptr && last->kind != plan_step::literal &&
             last->suffix_length + len <= plan_chunk &&
             (last->suffix_length == 0 || last->suffix_first + last->suffix_length == at)) {
    if (last->suffix_length == 0) last->suffix_first = at;
    last->suffix_length = static_cast<uint8_t>(last->suffix_length + len);
  } else {
    plan_step s;
    s.first = at;
    s.length = static_cast<uint16_t>(len);
    if (!add(s)) return 0;
  }
  std::memcpy(plan_.text + used_, t, len);
  plan_.literals_plain = plan_.literals_plain && plain_text(std::string_view(t, len));
  used_ += len;
  return len;
}

bool plan_maker::room_for(size_t steps, size_t bytes) const {
  return plan_.step_count + steps <= plan_max_steps && used_ + bytes <= plan_max_text;
}

bool plan_maker::last(part p, uint8_t digits, char fill, uint8_t needs) {
  plan_step s;
  s.kind = plan_step::last_digits;
  s.source = p;
  s.digits = digits;
  s.fill = fill;
  s.needs = needs;
  return add(s);
}

bool plan_maker::least(part p, uint8_t digits, bool clamp, uint8_t needs) {
  plan_step s;
  s.kind = plan_step::least_digits;
  s.source = p;
  s.digits = digits;
  s.clamp = clamp;
  s.needs = needs;
  return add(s);
}

bool plan_maker::name(int first, int count, part p, bool padded, uint8_t needs) {
  uint16_t pad = 0;
  if (padded)
    for (int i = 0; i < count; ++i) {
      const name_entry &e = names_.names[first - first_name_field + i];
      if (e.chars != no_pad && e.chars > pad) pad = e.chars;
    }
  plan_step s;
  s.kind = pad != 0 ? plan_step::padded_name : plan_step::name;
  s.source = p;
  s.digits = static_cast<uint8_t>(count);
  s.first = static_cast<uint16_t>(first);
  s.length = pad;
  s.needs = needs;
  return add(s);
}

bool plan_maker::zone(bool offset) {
  plan_step s;
  s.kind = offset ? plan_step::zone_offset : plan_step::zone_name;
  return add(s);
}

bool plan_maker::fraction(std::string_view point) {
  if (point.size() > plan_max_text - used_) return false;
  plan_step s;
  s.kind = plan_step::fraction;
  s.first = static_cast<uint16_t>(used_);
  s.length = static_cast<uint16_t>(point.size());
  if (!add(s)) return false;
  std::memcpy(plan_.text + used_, point.data(), point.size());
  plan_.literals_plain = plan_.literals_plain && plain_text(point);
  used_ += point.size();
  return true;
}

void plan_maker::finish(plan_state state) {
  for (uint8_t k = 0; k < plan_.step_count; ++k) {
    plan_step &s = plan_.steps[k];
    s.write = writers[static_cast<size_t>(s.source)][static_cast<size_t>(s.kind) +
                                                     (s.suffix_length != 0 ? kind_count : 0)];
  }
  plan_.state = state;
  classify_date_plan(plan_);
}

bool plan_maker::add(const plan_step &s) {
  if (plan_.step_count == plan_max_steps) return false;
  plan_.steps[plan_.step_count++] = s;
  return true;
}

namespace {

// The name as the encoder writes it for a UTF-8 codeset, into a blank
// 16-byte slot: its length, or no_utf8_slot when it does not fit or ends
// within an escape's length of a "<" (text after it could complete the
// escape, so the name alone would not decode as it does in the pattern).
uint8_t utf8_slot(std::string_view t, char *slot) {
  std::memset(slot, ' ', plan_chunk);
  const size_t tail = t.size() < 6 ? t.size() : 6;
  if (t.substr(t.size() - tail).find('<') != std::string_view::npos) return no_utf8_slot;
  char16_t units[plan_chunk + 1];
  const size_t n = decode_narrow(t.data(), t.size(), units, plan_chunk + 1);
  size_t len = 0;
  for (size_t i = 0; i < n; ++i) {
    const char16_t u = units[i];
    const size_t bytes = u < 0x80 ? 1 : u < 0x800 ? 2 : 3;
    if (len + bytes > plan_chunk) return no_utf8_slot;
    if (bytes == 1) {
      slot[len] = static_cast<char>(u);
    } else if (bytes == 2) {
      slot[len] = static_cast<char>(0xC0 | (u >> 6));
      slot[len + 1] = static_cast<char>(0x80 | (u & 0x3F));
    } else {
      slot[len] = static_cast<char>(0xE0 | (u >> 12));
      slot[len + 1] = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
      slot[len + 2] = static_cast<char>(0x80 | (u & 0x3F));
    }
    len += bytes;
  }
  if (n > plan_chunk) return no_utf8_slot;  // more characters than a slot holds
  return static_cast<uint8_t>(len);
}

}  // namespace

void read_names(const field_reader &loc, locale_names *out) {
  *out = locale_names{};
  out->blank_slots = true;
  for (int k = 0; k < name_count; ++k) {
    const int field = first_name_field + k;
    name_entry &e = out->names[k];
    std::string_view t;
    if (loc.get(field, &t)) {
      e.chars = static_cast<uint16_t>(escaped_length(t) < no_pad ? escaped_length(t) : no_pad - 1);
    } else {
      t = field == lf::am_marker ? "AM" : field == lf::pm_marker ? "PM" : "**";
      e.chars = no_pad;
    }
    if (t.size() > 0xFFFF) t = t.substr(0, 0xFFFF);
    e.text = t.data();
    e.length = static_cast<uint16_t>(t.size());
    e.plain = plain_text(t);
    std::memset(out->slots[k], ' ', plan_chunk);
    if (t.size() <= plan_chunk && !t.empty()) std::memcpy(out->slots[k], t.data(), t.size());
  }
}

size_t compile_pattern(const field_reader &loc, const locale_names &names,
                       std::string_view prepared, size_t from, pattern_plan *plan) {
  plan_builder b(loc, names, plan);
  const char *p = prepared.data();
  const size_t n = prepared.size();
  size_t i = from;
  while (i < n) {
    if (p[i] != '%') {
      size_t run = 1;
      while (i + run < n && p[i + run] != '%') ++run;
      const size_t took = b.literal(p + i, run);
      i += took;
      if (took < run) break;  // the plan is full
      continue;
    }
    // A conversion takes at most five steps and a few bytes of text ("%T",
    // "%S" with the locale's point): it goes whole into this plan or the next.
    if (!b.room_for(5, 16)) break;
    size_t j = i + 1;
    if (j < n && p[j] == '%') {
      b.literal("%", 1);
      i = j + 1;
      continue;
    }
    conversion c;
    if (!parse_conversion(p, n, j, c) || !b.conversion_steps(c)) {
      b.finish(plan_state::bad_letter);
      return i;
    }
    i = j;
  }
  b.finish(i < n ? plan_state::partial : plan_state::complete);
  return i;
}

size_t run_plan(const pattern_plan &plan, const moment &m, int32_t decimals, char *out,
                size_t room, size_t n, bool tail_is_scratch, bool *plain) {
  const run_context c{plan, m, out, room, tail_is_scratch ? room : 0, decimals,
                      plan.literals_plain};
  const uint8_t missing = static_cast<uint8_t>((m.has_date ? 0 : need_date) |
                                               (m.has_hour ? 0 : need_hour) |
                                               (m.has_minute ? 0 : need_minute) |
                                               (m.has_second ? 0 : need_second));
  n = run_steps<0>(c, missing, n);
  if (plain != nullptr) *plain = *plain && c.plain;
  return n;
}

namespace {

// The part p of a calendar day; from a switch of the step's own, which goes
// the same way on every day.
[[gnu::always_inline]] inline uint64_t date_value(part p, const datetime::ymd &c,
                                                 int64_t day_number) {
  switch (p) {
    case part::day: return static_cast<uint64_t>(c.day);
    case part::month: return static_cast<uint64_t>(c.month);
    case part::year: return static_cast<uint64_t>(c.year);
    case part::year_of_century: return static_cast<uint64_t>(c.year % 100);
    case part::wday: return static_cast<uint64_t>(datetime::weekday(day_number));
    case part::wday_monday_1:
      return static_cast<uint64_t>(datetime::monday_weekday(datetime::weekday(day_number)));
    case part::month_index: return static_cast<uint64_t>(c.month - 1);
    case part::quarter_index: return static_cast<uint64_t>((c.month - 1) / 3);
    case part::yday: return static_cast<uint64_t>(datetime::day_of_year(c.year, c.month, c.day));
    default: return 0;  // not a part of a date plan
  }
}

// One step of a date plan at n; returns the new length. Each step is stored
// at its exact length, a name as its whole blank-padded slot while the room
// allows, so the bytes past the text stay blank.
template <bool Utf8>
[[gnu::always_inline]] inline size_t date_step_at(const pattern_plan &plan, const utf8_names *u,
                                                 const plan_step &s, const datetime::ymd &c,
                                                 int64_t day_number, char *out, size_t room,
                                                 size_t n) {
  const uint64_t x = date_value(s.source, c, day_number);
  switch (s.op) {
    case op_literal:
      copy_short(out + n, plan.text + s.first, s.length);
      return n + s.length;  // a literal has no suffix
    case op_name: {
      const locale_names &names = *plan.names;
      const size_t i = static_cast<size_t>(s.first - first_name_field) + x;
      size_t len;
      const char *slot;
      if constexpr (Utf8) {
        len = u->length[i];
        slot = u->slots[i];
      } else {
        len = names.names[i].length;
        slot = names.slots[i];
      }
      if (n + plan_chunk <= room)
        std::memcpy(out + n, slot, plan_chunk);
      else
        copy_short(out + n, slot, len);
      n += len;
      break;
    }
    case op_last1:
      out[n++] = static_cast<char>('0' + x % 10);
      break;
    case op_last2:
      core::put2(out + n, x % 100);
      n += 2;
      break;
    case op_last2_blank:
      std::memcpy(out + n, blank_pairs.c + 2 * (x % 100), 2);
      n += 2;
      break;
    case op_last3:
      out[n] = static_cast<char>('0' + x % 1000 / 100);
      core::put2(out + n + 1, x % 100);
      n += 3;
      break;
    case op_last4: {  // put4 spelled out: with two runners GCC stops inlining it here
      const auto y = static_cast<uint32_t>(x % 10000);
      core::put2(out + n, y / 100);
      core::put2(out + n + 2, y % 100);
      n += 4;
      break;
    }
    case op_least1:  // the digit and a blank, or two digits
      std::memcpy(out + n, short_pairs.c + 2 * x, 2);
      n += x < 10 ? 1 : 2;
      break;
    default:
      break;
  }
  copy_short(out + n, plan.text + s.suffix_first, s.suffix_length);
  return n + s.suffix_length;
}

// Steps K and on, each from a switch of its own: for a given plan every
// one of them goes the same way on every day.
template <size_t K, bool Utf8>
[[gnu::always_inline]] inline size_t date_steps(const pattern_plan &plan, const utf8_names *u,
                                               const datetime::ymd &c, int64_t day_number,
                                               char *out, size_t room, size_t n) {
  if constexpr (K == date_plan_max_steps) {
    return n;
  } else {
    if (K >= plan.step_count) return n;
    n = date_step_at<Utf8>(plan, u, plan.steps[K], c, day_number, out, room, n);
    return date_steps<K + 1, Utf8>(plan, u, c, day_number, out, room, n);
  }
}

}  // namespace

// The calendar day is split once; each step works out the part it shows.
size_t run_date_plan(const pattern_plan &plan, int64_t day_number, char *out, size_t room) {
  return date_steps<0, false>(plan, nullptr, datetime::ymd_in_range(day_number), day_number, out,
                              room, 0);
}

size_t run_date_plan_utf8(const pattern_plan &plan, const utf8_names &names, int64_t day_number,
                          char *out, size_t room) {
  return date_steps<0, true>(plan, &names, datetime::ymd_in_range(day_number), day_number, out,
                             room, 0);
}

namespace {

// The patterns of the moment last compiled on this thread for database
// locales (the short numeric forms, the name tables' "%#A", a host's own
// patterns): a hit skips compiling. Longer patterns are compiled each time.
constexpr size_t recent_pattern_room = 64;
constexpr size_t recent_count = 4;

struct recent_plan {
  int id = 0;
  size_t length = 0;
  char pattern[recent_pattern_room];
  pattern_plan plan;
};

thread_local recent_plan recent_plans[recent_count];
thread_local size_t recent_next = 0;

const pattern_plan *recent_plan_for(int id, const locale_plans &set, const field_reader &loc,
                                    std::string_view prepared) {
  if (prepared.size() > recent_pattern_room) return nullptr;
  for (recent_plan &r : recent_plans)
    if (r.id == id && r.length == prepared.size() &&
        std::memcmp(r.pattern, prepared.data(), prepared.size()) == 0)
      return &r.plan;
  recent_plan &r = recent_plans[recent_next++ % recent_count];
  r.id = 0;
  compile_pattern(loc, set.names, prepared, 0, &r.plan);
  if (r.plan.state == plan_state::partial) return nullptr;
  r.id = id;
  r.length = prepared.size();
  std::memcpy(r.pattern, prepared.data(), prepared.size());
  return &r.plan;
}

}  // namespace

nl_result run_pattern(const moment &m, const field_reader &loc, const pattern_plan *plan,
                      std::string_view prepared, int32_t decimals, char *out, size_t room,
                      bool tail_is_scratch, size_t *length, bool *plain) {
  if (plain != nullptr) *plain = true;
  const int id = plan == nullptr ? database_locale(loc) : 0;
  const locale_plans *set = id != 0 ? plans_of_locale(id) : nullptr;
  if (plan == nullptr && set != nullptr) plan = recent_plan_for(id, *set, loc, prepared);
  size_t n = 0;
  if (plan != nullptr && plan->state == plan_state::bad_letter) return nl_result::unusable;
  if (plan != nullptr && plan->state == plan_state::complete) {
    n = run_plan(*plan, m, decimals, out, room, 0, tail_is_scratch, plain);
  } else {
    // A pattern of the moment too long to keep (or one for a reader of a
    // test's own): compiled here, a plan's worth at a time.
    locale_names own;
    const locale_names *names = set != nullptr ? &set->names : nullptr;
    if (names == nullptr) {
      read_names(loc, &own);
      names = &own;
    }
    pattern_plan piece;
    size_t at = 0;
    do {
      at = compile_pattern(loc, *names, prepared, at, &piece);
      if (piece.state == plan_state::bad_letter) return nl_result::unusable;
      n = run_plan(piece, m, decimals, out, room, n, tail_is_scratch, plain);
    } while (piece.state == plan_state::partial);
  }
  *length = n;
  return n <= room ? nl_result::done : nl_result::too_long;
}

int database_locale(const field_reader &loc) {
  if (loc.record == nullptr || loc.read != &read_locale_field) return 0;
  const int id = static_cast<int>(reinterpret_cast<intptr_t>(loc.context));
  return id >= 1 && id <= locale_count ? id : 0;
}

std::atomic<const locale_plans *> compiled_plans[locale_count];

const locale_plans *compile_locale_plans(int id) {
  auto *fresh = new (std::nothrow) locale_plans;
  if (fresh == nullptr) return nullptr;
  const field_reader loc = locale_reader(id);
  auto *utf8 = new (std::nothrow) utf8_names;
  if (utf8 == nullptr) {
    delete utf8;
  delete fresh;
    return nullptr;
  }
  fresh->utf8 = utf8;
  read_names(loc, &fresh->names);
  for (int k = 0; k < name_count; ++k) {
    const name_entry &e = fresh->names.names[k];
    utf8->length[k] = utf8_slot(std::string_view(e.text, e.length), utf8->slots[k]);
  }
  for (int zoned = 0; zoned < 2; ++zoned)
    for (int k = 0; k < plan_field_count; ++k) {
      pattern_plan &plan = fresh->plans[zoned][k];
      plan = pattern_plan{};
      std::string_view p;
      if (!loc.get(plan_first_field + k, &p)) continue;
      char joined[pattern_room], inlined[pattern_room];
      if (zoned != 0) {
        if (p.size() + 3 > sizeof joined) continue;
        std::memcpy(joined, p.data(), p.size());
        std::memcpy(joined + p.size(), " %z", 3);
        p = std::string_view(joined, p.size() + 3);
      }
      const std::string_view prepared =
          prepare_pattern(p.data(), p.size(), loc, inlined, sizeof inlined);
      // A pattern too long for one plan is left uncompiled: it is compiled
      // where it is expanded, a piece at a time.
      if (compile_pattern(loc, fresh->names, prepared, 0, &plan) < prepared.size() &&
          plan.state != plan_state::bad_letter)
        plan = pattern_plan{};
      const long length = date_plan_length(plan, utf8);
      plan.utf8_date_length = static_cast<uint16_t>(length > 0 ? length : 0);
    }
  const locale_plans *expected = nullptr;
  if (compiled_plans[id - 1].compare_exchange_strong(expected, fresh, std::memory_order_acq_rel,
                                                     std::memory_order_acquire))
    return fresh;
  delete utf8;
  delete fresh;
  return expected;
}

}  // namespace xfmt::nls
