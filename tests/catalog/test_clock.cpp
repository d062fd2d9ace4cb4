// Date, time and time-zone helpers against a fixed clock.
#include <gtest/gtest.h>

#include <vector>

#include "catalog/platform.hpp"
#include "xfmt/xfmt.h"

namespace {

using namespace xfmt::platform;

// 2024-02-29 13:45:07.250000 local, summer time in force, one hour east of UTC.
wall_time fixed_now() { return {1709210707, 250000}; }
bool fixed_local(int64_t, local_time *out) {
  *out = {2024, 2, 29, 13, 45, 7, true};
  return true;
}
int32_t fixed_zone() { return -3600; }
constexpr clock_source fixed{fixed_now, fixed_local, fixed_zone};

struct with_fixed_clock : testing::Test {
  void SetUp() override { set_clock(&fixed); }
  void TearDown() override { set_clock(nullptr); }
};

// The date, the time with its fraction, the seconds since the epoch, and
// the zone offset less an hour of summer time.
TEST_F(with_fixed_clock, every_helper_reads_the_clock) {
  int32_t m = 0, d = 0, y = 0, h = 0, mi = 0, off = 0;
  double sec = 0;
  wzdate(&m, &d, &y);
  wztime(&h, &mi, &sec);
  hztz(&off);
  EXPECT_EQ(std::vector<int32_t>({m, d, y, h, mi, off}), std::vector<int32_t>({2, 29, 2024, 13, 45, -7200}));
  EXPECT_DOUBLE_EQ(sec, 7.25);
  EXPECT_DOUBLE_EQ(vtutod(), 1709210707.25);
}

TEST(system_clock_helpers, plausible_values) {
  int32_t m = 0, d = 0, y = 0;
  wzdate(&m, &d, &y);
  EXPECT_GE(y, 2020);
  EXPECT_GE(m, 1);
  EXPECT_LE(m, 12);
  EXPECT_GE(d, 1);
  EXPECT_LE(d, 31);
  EXPECT_GT(vtutod(), 1.6e9);
  int32_t off = 99999;
  hztz(&off);
  EXPECT_LE(off, 14 * 3600);
  EXPECT_GE(off, -15 * 3600);
}

TEST(process_helpers, vaterm_does_nothing_and_vacrash_exits_with_0) {
  vaterm();
  EXPECT_EXIT(vacrash(), testing::ExitedWithCode(0), "");
}

}  // namespace
