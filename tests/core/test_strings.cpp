// String helpers: trimming, case, comparison, searching, translating, deleting.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "xfmt/xfmt.h"

namespace {


TEST(wzstrip, trailing_blanks) {
  EXPECT_EQ(wzstrip("ab  ", 4), 2);
  EXPECT_EQ(wzstrip("    ", 4), 0);
  EXPECT_EQ(wzstrip(" a", 2), 2);
  EXPECT_EQ(wzstrip("ab  ", -1), 2);  // NUL-terminated
  EXPECT_EQ(wzstrip("", 0), 0);
  EXPECT_EQ(wzstrip(nullptr, 3), 0);
  EXPECT_EQ(wzstrip("a\t ", 3), 2);   // only blanks count
}

TEST(wzstrup, upper_cases_in_place) {
  char t[] = "abc1z";
  wzstrup(t, 3);
  EXPECT_STREQ(t, "ABC1z");
  wzstrup(t, -1);
  EXPECT_STREQ(t, "ABC1Z");
}

TEST(wzsteqn, case_blind_equal_lengths) {
  EXPECT_EQ(wzsteqn("Date", 4, "DATE", 4), 1);
  EXPECT_EQ(wzsteqn("Date", 4, "DATE ", 5), 0);
  EXPECT_EQ(wzsteqn("Dat", 3, "Dae", 3), 0);
  EXPECT_EQ(wzsteqn("", 0, "", 0), 1);
  EXPECT_EQ(wzsteqn(nullptr, 0, nullptr, 0), 1);
}

TEST(searching, positions_and_not_found) {
  EXPECT_EQ(wzstpos("abc", 3, 'c'), 2);
  EXPECT_EQ(wzstpos("abc", -1, 'b'), 1);
  EXPECT_EQ(wzstpos("abc", 3, 'x'), -1);
  EXPECT_EQ(wzstpos(nullptr, 3, 'a'), -1);
  EXPECT_EQ(wzstpos("ab\xE9", 3, 0xE9), 2);
  EXPECT_EQ(wzstver("  12 ", 5, " ", 1), 2);
  EXPECT_EQ(wzstver("    ", 4, " ", 1), -1);
  EXPECT_EQ(wzstver("ab", 0, " ", 1), -1);
  EXPECT_EQ(wzstnot("000120", 6, '0'), 3);
  EXPECT_EQ(wzstnot("000", 3, '0'), -1);
  EXPECT_EQ(STQX("abc,def", 7, ",;"), 3);
  EXPECT_EQ(STQX("abcdef", 6, ",;"), -1);
  EXPECT_EQ(STQXN("+-12", 4, "+-"), 2);
  EXPECT_EQ(STQXN("+-", 2, "+-"), -1);
  EXPECT_EQ(wzstndx("hello world", 11, "wor", 3), 6);
  EXPECT_EQ(wzstndx("hello", 5, "hello!", 6), -1);
  EXPECT_EQ(wzstndx("hello", 5, "xyz", 3), -1);
  EXPECT_EQ(wzstndx("hello", 5, "o", 1), 4);
  EXPECT_EQ(wzstndx("hello", 5, "", 0), 0);
}

TEST(wzstrns, translates_by_position_in_from) {
  char t[] = "a.b,c";
  wzstrns(t, 5, ",.", ".,", 2);
  EXPECT_STREQ(t, "a,b.c");
  char u[] = "aaa";
  wzstrns(u, 3, "xy", "aa", 2);  // the first occurrence in from decides
  EXPECT_STREQ(u, "xxx");
}

TEST(wzstdel, removes_set_bytes) {
  char t[] = "1,234,567";
  EXPECT_EQ(wzstdel(t, 9, ",", 1), 7);
  EXPECT_EQ(std::string(t, 7), "1234567");
  EXPECT_EQ(std::string(t + 7), "67");  // bytes past the new length keep their values
  char only[] = ",,,";
  EXPECT_EQ(wzstdel(only, 3, ",", 1), 0);
  EXPECT_STREQ(only, ",,,");
  EXPECT_EQ(wzstdel(only, 0, ",", 1), 0);
}

TEST(wztxlit, returns_its_argument) {
  const char *s = "x";
  EXPECT_EQ(wztxlit(s), s);
}

TEST(min_max, exported_names_live_beside_std) {
  EXPECT_EQ(min(3, -4), -4);
  EXPECT_EQ(max(3, -4), 3);
  EXPECT_EQ(::min(INT32_MIN, INT32_MAX), INT32_MIN);
  EXPECT_EQ(std::min(2.5, 1.5), 1.5);  // std's templates are untouched
  EXPECT_EQ(std::max<int64_t>(1, 2), 2);
}

}  // namespace
