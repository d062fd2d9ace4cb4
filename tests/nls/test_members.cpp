// The national date, datetime, time and name members on the generated
// locale records: the cases of tests/data/nls/members.txt (worked examples,
// the fallback rules, missing and out-of-range values, UTF-16 and UTF-8
// output), the zone offset in daylight-saving time, and the zkf calls.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "core/platform.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"

namespace {

constexpr int english_us = 53;

TEST(nl_members, cases_of_the_file) { xfmt::test::run_case_file("nls/members.txt"); }

// During daylight-saving time the hour count of "%z" grows by one whatever
// the sign: a zone ten hours east shows +1100, one five hours west -0600.
TEST(nldatm, zone_offset_during_daylight_saving_time) {
  const char *old = std::getenv("TZ");
  std::string saved = old ? old : "";
  // Daylight-saving all year round, so the test does not depend on the date.
  for (const auto &[tz, expected] : {std::pair{"AAA-10BBB,0/0,J365/25", "+1100"},
                                     std::pair{"CCC5DDD,0/0,J365/25", "-0600"}}) {
    setenv("TZ", tz, 1);
    xfmt::platform::reread_zone();
    time_t now = time(nullptr);
    struct tm tm {};
    localtime_r(&now, &tm);
    ASSERT_GT(tm.tm_isdst, 0) << tz;
    xfmt::test::frame_box b = xfmt::test::frame_box::number(0, 32, 0);
    b.f.option_word = english_us;
    EXPECT_EQ(nldatmtz(&b.f), XF_OK) << tz;
    const std::string t = b.str();
    EXPECT_EQ(t.substr(t.size() - 5), expected) << tz;
  }
  if (old) setenv("TZ", saved.c_str(), 1);
  else unsetenv("TZ");
  xfmt::platform::reread_zone();
}

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
