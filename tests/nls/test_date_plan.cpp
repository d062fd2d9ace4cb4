// The pattern engine against the literal expander it replaced: every pattern
// field of every locale, kept plans and patterns compiled on the spot, over
// days across the whole range and times of day, in rooms from none to ample;
// each conversion with its flags on a test record and on era locales; the
// plans kept per locale.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/zkf.hpp"
#include "oracle/nls_expand_oracle.hpp"
#include "record.hpp"
#include "support/random.hpp"

namespace {

using namespace xfmt::nls;
using xfmt::datetime::days_from_ymd;

constexpr int english_us = 53, japanese = 79, thai = 131, taiwan = 30;

// Dates at both ends of the range, leap days, the turn of 4000, year ends and
// a spread of others, each alone, with a time of day (fractions, midnight,
// noon), and a time alone; then hand-built moments the values cannot make.
std::vector<moment> sample_moments() {
  std::vector<int64_t> days = {
      xfmt::datetime::date_min,   xfmt::datetime::date_max,   -1, 0, 1,
      days_from_ymd(2000, 2, 29), days_from_ymd(1900, 3, 1),  days_from_ymd(4000, 2, 28),
      days_from_ymd(4000, 3, 1),  days_from_ymd(2024, 12, 30), days_from_ymd(2027, 1, 1),
      days_from_ymd(9999, 12, 31), days_from_ymd(10000, 1, 1), days_from_ymd(1582, 10, 15),
      days_from_ymd(1868, 10, 23), days_from_ymd(1989, 1, 8),  days_from_ymd(1911, 6, 1)};
  for (int64_t d = xfmt::datetime::date_min; d <= xfmt::datetime::date_max; d += 99991)
    days.push_back(d);
  const double seconds[] = {0, 43199.96, 43200, 86399.9996, 3723.25, 50000.5};
  std::vector<moment> out;
  for (size_t k = 0; k < days.size(); ++k) {
    const double day = static_cast<double>(days[k]);
    out.push_back(date_moment_of(day));
    out.push_back(datetime_moment_of(day * 86400 + seconds[k % 6], static_cast<int32_t>(k % 4),
                                     true));
  }
  out.push_back(datetime_moment_of(seconds[4], 2, false));
  moment odd = datetime_moment_of(static_cast<double>(days_from_ymd(2020, 2, 29)) * 86400 + 429.75,
                                  2, true);  // 00:07:09.75
  odd.hour = 1234;  // a long time: hours past 99 keep their digits
  out.push_back(odd);
  odd.has_minute = odd.has_second = false;
  out.push_back(odd);
  out.push_back(moment{});
  return out;
}

const std::vector<moment> &moments() {
  static const std::vector<moment> all = sample_moments();
  return all;
}

// The stored text and the full length, or the unknown-conversion code.
struct written {
  int code;
  size_t length;
  std::string text;
  bool operator==(const written &) const = default;
};

std::ostream &operator<<(std::ostream &os, const written &w) {
  return os << w.code << " " << w.length << " \"" << w.text << "\"";
}

constexpr char sentinel = '\x7f';

written literal(const field_reader &loc, std::string_view p, const moment &m, int32_t d,
                size_t room) {
  std::vector<char> out(room + 1, sentinel);
  size_t length = 0;
  const int code =
      xfmt::oracle::expand_literally(m, loc, p.data(), p.size(), out.data(), room, &length, d);
  if (code != 0) return {code, 0, {}};
  return {0, length, std::string(out.data(), length < room ? length : room)};
}

// Through expand_text, or through a plan when one is given; nothing may be
// written past the room, nor (outside a scratch tail) past the text.
written engine(const field_reader &loc, std::string_view p, const moment &m, int32_t d,
               size_t room, const pattern_plan *plan = nullptr, bool scratch = false) {
  std::vector<char> out(room + 1, sentinel);
  written w{0, 0, {}};
  if (plan == nullptr) {
    w.code = expand_text(m, loc, p.data(), p.size(), out.data(), room, &w.length, d);
  } else {
    const nl_result r = run_pattern(m, loc, plan, {}, d, out.data(), room, scratch, &w.length);
    w.code = r == nl_result::unusable ? expand_bad_letter : expand_fits;
  }
  const size_t stored = w.length < room ? w.length : room;
  if (w.code == 0) w.text.assign(out.data(), stored);
  EXPECT_EQ(out[room], sentinel) << "written past the room";
  if (!scratch && w.code == 0 && stored < room) {
    EXPECT_EQ(out[stored], sentinel) << "past the text";
  }
  return w;
}

TEST(pattern_engine, every_locale_field_against_the_literal_expander) {
  auto g = xfmt::test::rng(71);
  int failures = 0, kept = 0;
  for (int id = 1; id <= locale_count && failures < 5; ++id) {
    const field_reader loc = locale_reader(id);
    for (int code = plan_first_field; code < plan_first_field + plan_field_count; ++code)
      for (int zone : {0, 256}) {
        std::string pattern(locale_field(id, code));
        if (zone != 0) pattern += " %z";
        const pattern_plan *plan = plan_for_code(id, code + zone);
        kept += plan != nullptr;
        // A third of the moments for each locale, a different third for the next.
        for (size_t k = static_cast<size_t>(id) % 3; k < moments().size() && failures < 5; k += 3) {
          const moment &m = moments()[k];
          const int32_t d = static_cast<int32_t>(k % 4);
          const written want = literal(loc, pattern, m, d, 1024);
          const written got = engine(loc, pattern, m, d, 1024);
          const written kept_plan = plan != nullptr ? engine(loc, {}, m, d, 1024, plan) : want;
          if (got == want && kept_plan == want) continue;
          ++failures;
          ADD_FAILURE() << "locale " << id << " code " << code + zone << " moment " << k << ": "
                        << got << " / " << kept_plan << " for " << want;
        }
        // Rooms from none to past the text, for one moment.
        const moment &m = moments()[g() % moments().size()];
        for (size_t room = 0; room <= 48 && failures < 5; ++room) {
          const written want = literal(loc, pattern, m, 3, room);
          const bool scratch = room % 2 == 0;
          if (engine(loc, pattern, m, 3, room) == want &&
              (plan == nullptr || engine(loc, {}, m, 3, room, plan, scratch) == want))
            continue;
          ++failures;
          ADD_FAILURE() << "locale " << id << " code " << code + zone << " room " << room;
        }
      }
  }
  EXPECT_GT(kept, locale_count * 2 * 20);  // nearly every pattern field is kept compiled
}

// Each conversion with its flags, alone and in company, on the test record
// (names it cannot read, escapes) and on locales with eras.
TEST(pattern_engine, each_conversion_against_the_literal_expander) {
  xfmt::test::test_record rec = xfmt::test::english_like();
  rec.fields[59] = "M<U00E4>r";  // an escape, padded by characters
  rec.fields.erase(60);          // a name that cannot be read
  rec.fields.erase(151);         // AM falls back
  rec.fields[172] = ",";
  const std::string letters = "%ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz19?+#";
  std::vector<std::string> patterns = {
      "", "plain", "  %d  ", "%", "%#", "%+", "%d%", "%x|%X", "[%x] %X %%", "%#+?Y|%+y|%+#y",
      std::string(150, 'a') + "%d" + std::string(40, 'b'),
      "%d.%m.%Y %H:%M:%S %z %Z %p %A %B %C %F %G %V %W %U %j %n %q %T "
      "%d.%m.%Y %H:%M:%S %z %Z %p %A %B %C %F %G %V %W %U %j %n %q %T"};
  for (char l : letters)
    for (const char *flag : {"", "#", "?", "+", "0", "7"})
      patterns.push_back(std::string("<%") + flag + l + ">");
  for (int which = 0; which < 5; ++which) {
    const field_reader loc = which == 0 ? rec.reader()
                                        : locale_reader(which == 1   ? english_us
                                                        : which == 2 ? japanese
                                                        : which == 3 ? thai
                                                                     : taiwan);
    for (const std::string &p : patterns)
      for (size_t k = 0; k < moments().size(); k += 3)
        for (int32_t d : {0, 1, 4}) {
          const moment &m = moments()[k];
          for (size_t room : {size_t{0}, size_t{1}, size_t{5}, size_t{1024}})
            ASSERT_EQ(engine(loc, p, m, d, room), literal(loc, p, m, d, room))
                << "reader " << which << " pattern \"" << p << "\" moment " << k << " room "
                << room;
        }
  }
}

TEST(pattern_engine, kept_plans_cover_the_pattern_fields_only) {
  EXPECT_EQ(plan_for_code(english_us, plan_first_field - 1), nullptr);
  EXPECT_EQ(plan_for_code(english_us, plan_first_field + plan_field_count), nullptr);
  EXPECT_EQ(plan_for_code(0, 28), nullptr);
  EXPECT_EQ(plan_for_code(locale_count + 1, 28), nullptr);
  ASSERT_NE(plan_for_code(english_us, 4096 + 256 + 46), nullptr);
  EXPECT_EQ(plan_for_code(english_us, 4096 + 256 + 46), plan_for_code(english_us, 256 + 46));
  EXPECT_EQ(plan_for_code(english_us, 28)->state, plan_state::complete);
}

TEST(pattern_engine, first_use_from_many_threads_gives_one_set) {
  // Locales the other tests of this file leave alone, so each starts empty.
  for (int id : {2, 3, 4}) {
    std::vector<const pattern_plan *> seen(8);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < seen.size(); ++t)
      threads.emplace_back([&seen, t, id] { seen[t] = plan_for_code(id, 38); });
    for (std::thread &t : threads) t.join();
    for (const pattern_plan *p : seen) EXPECT_EQ(p, seen[0]) << "locale " << id;
  }
}

}  // namespace
