// The date and time format tables under tests/data/datetime, and what every
// format named in them shares: a missing value shows its symbol at the right
// of the field, and a width past the capacity writes nothing.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/platform.hpp"
#include "core/missing.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using namespace xfmt::test;

const char *const tables[] = {"date_parts", "numeric_dates", "further_date_layouts",
                              "iso_and_names", "time", "word_dates"};

class datetime_table : public testing::TestWithParam<const char *> {};
TEST_P(datetime_table, holds) { run_case_file(std::string("datetime/") + GetParam() + ".txt"); }
INSTANTIATE_TEST_SUITE_P(datetime, datetime_table, testing::ValuesIn(tables),
                         [](const testing::TestParamInfo<const char *> &i) { return std::string(i.param); });

// Clocks in zones east and west of UTC with minutes in the offset.
xfmt::platform::wall_time zero_now() { return {0, 0}; }
bool no_local(int64_t, xfmt::platform::local_time *) { return false; }
int32_t east_offset() { return -19800; }
int32_t west_offset() { return 12600; }
constexpr xfmt::platform::clock_source east_clock{zero_now, no_local, east_offset};
constexpr xfmt::platform::clock_source west_clock{zero_now, no_local, west_offset};

TEST(datetime_tables, local_zone_forms) {
  xfmt::platform::set_clock(&east_clock);
  run_case_file("datetime/zone_east.txt");
  xfmt::platform::set_clock(&west_clock);
  run_case_file("datetime/zone_west.txt");
  xfmt::platform::set_clock(nullptr);
}

TEST(datetime_tables, every_format_shows_missing_values_and_respects_capacity) {
  std::set<std::string> names;
  for (const char *t : tables)
    for (const format_case &c : read_cases(std::string("datetime/") + t + ".txt")) names.insert(c.name);
  const char symbols[] = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const std::string &name : names) {
    const xf_routine r = routine_named(name);
    ASSERT_NE(r, nullptr) << name;
    for (int i = 0; i < 28; ++i)
      EXPECT_TRUE(holds(number_case(r, xfmt::missing_value(i), 10, 0, std::string(9, ' ') + symbols[i]))) << name;
    frame_box c = frame_box::number(23195, 10, 0, 9);
    EXPECT_EQ(r(&c.f), XF_E_CAPACITY) << name;
    EXPECT_EQ(c.f.output_length, 0u) << name;
    EXPECT_EQ(c.buffer(), std::string(9, '\xEE')) << name;
  }
}

}  // namespace
