// The national date, datetime, time and name members on the generated
// locale records: the cases of tests/data/nls/members.txt (worked examples,
// the fallback rules, missing and out-of-range values, UTF-16 and UTF-8
// output, zones), and the zkf calls.
#include <gtest/gtest.h>

#include <string>

#include "support/cases.hpp"
#include "xfmt/xfmt.h"

namespace {

constexpr int english_us = 53;

TEST(nl_members, cases_of_the_file) { xfmt::test::run_case_file("nls/members.txt"); }

TEST(zkf, field_codes_and_ranges) {
  char buf[64];
  int32_t len = 64;
  EXPECT_EQ(zkfdate(0, english_us, buf, &len, nullptr, 28), 0);
  EXPECT_EQ(std::string(buf, static_cast<size_t>(len)), "January 1, 1960");
  len = 64;
  EXPECT_EQ(zkfdate(-138062, english_us, buf, &len, nullptr, 28), -3);
  len = 64;
  EXPECT_EQ(zkfdate(0, english_us, buf, &len, nullptr, 0), -1);
  len = 64;
  EXPECT_EQ(zkfdttm(3600, english_us, buf, &len, nullptr, 256 + 53, 0), 0);
  EXPECT_EQ(std::string(buf, 8), "01:00:00");
  EXPECT_EQ(buf[8], ' ');
  EXPECT_TRUE(buf[9] == '+' || buf[9] == '-');
  len = 64;
  EXPECT_EQ(zkftime(-1, english_us, buf, &len, "%H %M %S %d", 0, 0), 0);
  EXPECT_EQ(std::string(buf, static_cast<size_t>(len)), "23 59 59 **");
  len = 64;
  EXPECT_EQ(zkfdttm(569318630400.0, english_us, buf, &len, nullptr, 46, 0), -3);
}

}  // namespace
