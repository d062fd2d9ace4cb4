// Compiled date patterns against the expander they stand in for: every
// locale's date fields over days spread across the whole range, each
// conversion a plan takes on its own, the room limits, and the first use
// from many threads at once.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/zkf.hpp"
#include "support/random.hpp"

namespace {

using namespace xfmt::nls;

constexpr int english_us = 53;

// What the expander writes for the pattern on the day, with ample room.
std::string expanded(int id, std::string_view pattern, int64_t day) {
  const moment m = date_moment_of(static_cast<double>(day));
  char text[1024];
  size_t n = 0;
  EXPECT_EQ(expand_text(m, locale_reader(id), pattern.data(), pattern.size(), text, sizeof text,
                        &n, 0),
            expand_fits);
  return std::string(text, n < sizeof text ? n : sizeof text);
}

std::string planned(int id, const date_plan &plan, int64_t day, size_t room = 256) {
  std::vector<char> out(room + 1, '\x7f');
  const size_t n =
      run_date_plan(plan, day_fields_of(day), locale_reader(id).record, out.data(), room);
  EXPECT_EQ(out[room], '\x7f') << "written past the room";
  return n <= room ? std::string(out.data(), n) : std::string("<too long>");
}

// Days of every era of the range: both ends, leap days, the turn of 4000,
// year ends, and a spread of others.
std::vector<int64_t> sample_days() {
  using xfmt::datetime::days_from_ymd;
  std::vector<int64_t> days = {
      xfmt::datetime::date_min,      xfmt::datetime::date_max,      -1, 0, 1,
      days_from_ymd(2000, 2, 29),    days_from_ymd(1900, 3, 1),     days_from_ymd(4000, 2, 28),
      days_from_ymd(4000, 3, 1),     days_from_ymd(2024, 12, 31),   days_from_ymd(2025, 1, 1),
      days_from_ymd(9999, 12, 31),   days_from_ymd(10000, 1, 1),    days_from_ymd(1582, 10, 15),
  };
  for (int64_t d = days_from_ymd(2023, 1, 1); d <= days_from_ymd(2024, 12, 31); d += 1)
    days.push_back(d);
  for (int64_t d = xfmt::datetime::date_min; d <= xfmt::datetime::date_max; d += 9973)
    days.push_back(d);
  return days;
}

TEST(date_plan, every_locale_field_writes_what_the_expander_writes) {
  const std::vector<int64_t> days = sample_days();
  int usable = 0, failures = 0;
  for (int id = 1; id <= locale_count && failures < 5; ++id)
    for (int field = 28; field < 44 && failures < 5; ++field) {
      const date_plan *plan = date_plan_for(id, field);
      if (plan == nullptr) continue;
      ++usable;
      const std::string_view pattern = locale_field(id, field);
      for (int64_t day : days) {
        const std::string want = expanded(id, pattern, day);
        const std::string got = planned(id, *plan, day);
        if (got != want) {
          ADD_FAILURE() << "locale " << id << " field " << field << " day " << day << ": \""
                        << got << "\" for \"" << want << "\"";
          ++failures;
          break;
        }
      }
    }
  // The date fields the members read compile nearly everywhere; the rest are
  // times and ISO weeks, which stay with the expander.
  EXPECT_GT(usable, 136 * 14);
  ASSERT_NE(date_plan_for(english_us, 28), nullptr);
  EXPECT_TRUE(date_plan_for(english_us, 28)->plain);
}

struct pattern_case {
  const char *pattern;
  int compiles;  // 1 yes, 0 no, -1 as the locale's own patterns decide
};

// Each conversion on its own and in company; what a plan must leave alone.
const pattern_case patterns[] = {
    {"%A|%a|%#A|%#a", true},  {"%F|%f|%#F|%#f", true},     {"%B|%b|%#B|%#b", true},
    {"%C|%c|%#C", true},      {"%Q|%q|%#Q|%#q", true},     {"%d|%#d|%D|%e", true},
    {"%m|%#m|%N|%O", true},   {"%Y|%y|%#y", true},         {"%j|%#j|%J", true},
    {"%U|%#U|%u|%w", true},   {"%%|%#%|100%%", true},      {"%v%t|", true},
    {"%1d|%0d|%9B", true},    {"", true},                  {"plain text", true},
    {"a literal of forty characters and more: %d", true},
    {"%x", -1},               {"  %d  ", true},            {"%d %d %d %d %d %d %d %d", true},
    {"%H", false},            {"%M", false},               {"%S", false},
    {"%p", false},            {"%T", false},               {"%z", false},
    {"%Z", false},            {"%+Y", false},              {"%G", false},
    {"%V", false},            {"%W", false},               {"%?m", false},
    {"%k", false},            {"%X", -1},               {"%", false},
    {"%d%", false},
    // More pieces than a plan holds: literal text, or steps.
    {"a fairly long piece of literal text, longer than a plan keeps %d", false},
    {"%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d.%d", false},
};

TEST(date_plan, each_conversion_against_the_expander) {
  const std::vector<int64_t> days = sample_days();
  for (int id : {english_us, 1, 37, 70, 100, 136})
    for (const pattern_case &c : patterns) {
      SCOPED_TRACE(c.pattern);
      const field_reader loc = locale_reader(id);
      const date_plan plan = compile_date_plan(loc, c.pattern, std::strlen(c.pattern));
      if (c.compiles >= 0) {
        ASSERT_EQ(plan.usable, c.compiles == 1) << c.pattern;
      }
      if (!plan.usable) continue;
      for (size_t k = 0; k < days.size(); k += 7)
        ASSERT_EQ(planned(id, plan, days[k]), expanded(id, c.pattern, days[k]))
            << "locale " << id << " pattern \"" << c.pattern << "\" day " << days[k];
    }
}

TEST(date_plan, a_short_room_takes_the_text_whole_or_not_at_all) {
  auto g = xfmt::test::rng(61);
  std::uniform_int_distribution<int64_t> any_day(xfmt::datetime::date_min,
                                                 xfmt::datetime::date_max);
  for (int id = 1; id <= locale_count; id += 5)
    for (int field = 28; field < 44; ++field) {
      const date_plan *plan = date_plan_for(id, field);
      if (plan == nullptr) continue;
      const int64_t day = any_day(g);
      const std::string whole = planned(id, *plan, day);
      for (size_t room = 0; room <= whole.size() + 17; ++room) {
        const std::string got = planned(id, *plan, day, room);
        if (whole.size() <= room)
          ASSERT_EQ(got, whole) << "room " << room;
        else
          ASSERT_EQ(got, "<too long>") << "room " << room;
      }
    }
}

TEST(date_plan, fields_outside_the_date_patterns_have_no_plan) {
  EXPECT_EQ(date_plan_for(english_us, 27), nullptr);
  EXPECT_EQ(date_plan_for(english_us, 44), nullptr);
  EXPECT_EQ(date_plan_for(english_us, 4096 + 46), nullptr);
  EXPECT_EQ(date_plan_for(0, 28), nullptr);
  EXPECT_EQ(date_plan_for(locale_count + 1, 28), nullptr);
  EXPECT_EQ(date_plan_for(english_us, 59), nullptr);  // "January": a name, not a pattern
}

TEST(date_plan, first_use_from_many_threads_gives_one_set) {
  // Locales the other tests of this file leave alone, so each starts empty.
  for (int id : {2, 3, 4}) {
    std::vector<const date_plan *> seen(8);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < seen.size(); ++t)
      threads.emplace_back([&seen, t, id] { seen[t] = date_plan_for(id, 38); });
    for (std::thread &t : threads) t.join();
    for (const date_plan *p : seen) EXPECT_EQ(p, seen[0]) << "locale " << id;
  }
}

}  // namespace
