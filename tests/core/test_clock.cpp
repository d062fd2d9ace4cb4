// Date, time and time-zone helpers against a fixed clock and zone, the
// environment read once, and the rule that only the platform funnel calls
// the C library's clock, zone, environment, iconv and locale functions.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "core/platform.hpp"
#include "support/frame.hpp"
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

// A zone pinned through the funnel reaches the zoned national formats
// without touching TZ.
TEST(pinned_zone, reaches_the_zoned_national_formats) {
  constexpr int english_us = 53;
  static const zone_snapshot est{18000, false, "EST"};
  set_zone(&est);
  EXPECT_EQ(process_zone().seconds_west, 18000);
  xfmt::test::frame_box b = xfmt::test::frame_box::number(0, 32, 0);
  b.f.option_word = english_us;
  EXPECT_EQ(nldatmtz(&b.f), XF_OK);
  set_zone(nullptr);
  EXPECT_EQ(b.str(), "00:00:00 -0500");
  EXPECT_NE(&process_zone(), &est);
}

// ZAV_LOCALE is taken once; reload_environment takes it again and moves
// the generation on. (The record it names follows: nls's zav_locale tests.)
TEST(environment, read_once_until_reloaded) {
  const char *old = std::getenv("ZAV_LOCALE");
  const std::string saved = old != nullptr ? old : "";
  setenv("ZAV_LOCALE", "de_DE", 1);
  reload_environment();
  const uint32_t generation = environment().generation;
  EXPECT_TRUE(environment().zav_locale_set);
  EXPECT_STREQ(environment().zav_locale, "de_DE");
  unsetenv("ZAV_LOCALE");
  EXPECT_STREQ(environment().zav_locale, "de_DE");  // not seen yet
  reload_environment();
  EXPECT_EQ(environment().generation, generation + 1);
  EXPECT_FALSE(environment().zav_locale_set);
  EXPECT_NE(environment().codeset[0], '\0');  // the C library always names one
  if (old != nullptr) setenv("ZAV_LOCALE", saved.c_str(), 1);
  reload_environment();
}

// The code of a C++ source with its comments and the contents of its string
// and character literals blanked, newlines kept.
std::string code_only(const std::string &t) {
  std::string out(t.size(), ' ');
  for (size_t i = 0; i < t.size();) {
    if (t[i] == '\n') {
      out[i++] = '\n';
    } else if (t.compare(i, 2, "//") == 0) {
      while (i < t.size() && t[i] != '\n') ++i;
    } else if (t.compare(i, 2, "/*") == 0) {
      const size_t end = t.find("*/", i + 2);
      for (const size_t stop = end == std::string::npos ? t.size() : end + 2; i < stop; ++i)
        if (t[i] == '\n') out[i] = '\n';
    } else if (t.compare(i, 3, "R\"(") == 0) {
      const size_t end = t.find(")\"", i + 3);
      i = end == std::string::npos ? t.size() : end + 2;
    } else if (t[i] == '"' || t[i] == '\'') {
      const char quote = t[i++];
      while (i < t.size() && t[i] != quote && t[i] != '\n') i += t[i] == '\\' ? 2u : 1u;
      ++i;
    } else {
      out[i] = t[i];
      ++i;
    }
  }
  return out;
}

// Outside the funnel no source file calls the C library's clock, zone,
// environment, iconv or locale functions.
TEST(platform_funnel, only_the_funnel_calls_the_c_library) {
  const std::regex call(
      R"(\b(getenv|secure_getenv|tzset|localtime_r|localtime|gmtime_r|gmtime|mktime|time|clock_gettime|)"
      R"(gettimeofday|iconv_open|iconv|iconv_close|nl_langinfo|newlocale|setlocale|uselocale|)"
      R"(freelocale)\s*\()");
  EXPECT_TRUE(std::regex_search(code_only("x = time(nullptr);"), call));
  EXPECT_FALSE(std::regex_search(code_only("// time(nullptr)\nf(\"getenv(\"); local_time(x);"), call));
  const std::filesystem::path src = std::filesystem::path(XFMT_SOURCE_DIR) / "src";
  const std::filesystem::path funnel = src / "core" / "platform.cpp";
  int files = 0;
  for (const auto &e : std::filesystem::recursive_directory_iterator(src)) {
    const std::string ext = e.path().extension().string();
    if (!e.is_regular_file() || (ext != ".cpp" && ext != ".hpp" && ext != ".inc" && ext != ".h")) continue;
    ++files;
    if (e.path() == funnel) continue;
    std::ifstream in(e.path());
    std::stringstream text;
    text << in.rdbuf();
    std::istringstream lines(code_only(text.str()));
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
      ++number;
      std::smatch m;
      if (std::regex_search(line, m, call)) ADD_FAILURE() << e.path() << ":" << number << " calls " << m.str();
    }
  }
  EXPECT_GT(files, 100);
}

TEST(process_helpers, vaterm_does_nothing_and_vacrash_exits_with_0) {
  vaterm();
  EXPECT_EXIT(vacrash(), testing::ExitedWithCode(0), "");
}

}  // namespace
