// @COMMA, @DOLLAR, @NEGPAREN (zifmcma), @PERCENT (zifmpct) and @COMMAX,
// @DOLLARX (zifmcmx).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "informats/informat_run.hpp"

namespace {

using xfmt::test::hex;
using xfmt::test::miss;
using xfmt::test::num;
using xfmt::test::run_informat;

struct row {
  std::string text;
  int32_t w;
  int32_t d;
  xf_status status;
  uint64_t bits;
};

void check_rows(xf_routine routine, const std::vector<row> &rows) {
  for (const row &r : rows) {
    auto got = run_informat(routine, r.text, r.w, r.d);
    EXPECT_EQ(got.status, r.status) << "text [" << r.text << "] w " << r.w << " d " << r.d;
    EXPECT_EQ(hex(got.bits), hex(r.bits)) << "text [" << r.text << "] w " << r.w << " d " << r.d;
    EXPECT_EQ(got.length, 8u) << "text [" << r.text << "]";
  }
}

constexpr xf_status ok = XF_OK;
constexpr xf_status bad = XF_IN_INVALID;
constexpr xf_status width = XF_IN_BAD_WIDTH;

TEST(comma_informat, drops_grouping_currency_and_blanks) {
  check_rows(zifmcma, {
      // text            w   d  status value
      {"1,234.56",       8,  0, ok,  num(1234.56)},
      {"$1,234",         6,  0, ok,  num(1234)},
      {"  $ 1 234  ",   11,  0, ok,  num(1234)},
      {"\x80" "12.50",   6,  0, ok,  num(12.5)},     // euro sign, Windows-1252
      {"\xA3" "3",       2,  0, ok,  num(3)},        // pound
      {"\xA5" "300",     4,  0, ok,  num(300)},      // yen
      {"12%",            3,  0, ok,  num(12)},       // "%" is only dropped here
      {"1,234",          5,  2, ok,  num(12.34)},    // implied decimals as in @F
      {"-1,234.5",       8,  0, ok,  num(-1234.5)},
      {"1.5E3",          5,  0, ok,  num(1500)},
      {"$",              1,  0, ok,  miss('.')},     // punctuation only
      {"",               4,  0, ok,  miss('.')},
      {".",              1,  0, ok,  miss('.')},
      {".B",             2,  0, ok,  miss('B')},
      {"1,2a",           4,  0, bad, miss('.')},
      {"1,234",         -1,  0, width, miss('.')},
      {"1,234",          5, 32, width, miss('.')},
      {"1,234,567",      5,  0, ok,  num(1234)},     // only w bytes are read
  });
}

TEST(comma_informat, parentheses_make_the_number_negative) {
  check_rows(zifmcma, {
      {"(1,234)",   7, 0, ok,  num(-1234)},
      {"$(12.5)",   7, 0, ok,  num(-12.5)},
      {"(12",       3, 0, ok,  num(-12)},      // as zifmcmx hands it on
      {"( 7 )",     5, 0, ok,  num(-7)},
      {"(0)",       3, 0, ok,  num(0.0)},      // +0, never -0
      {"(.)",       3, 0, ok,  miss('.')},     // a missing value keeps its pattern
      {"(-5)",      4, 0, bad, miss('.')},
      {"((5))",     5, 0, bad, miss('.')},
      {"12(",       3, 0, bad, miss('.')},
      {"(1E400)",   7, 0, XF_IN_RANGE_WARNING, miss('.')},
  });
}

TEST(percent_informat, a_trailing_percent_divides_by_100) {
  check_rows(zifmpct, {
      {"12%",       3, 0, ok,  num(0.12)},     // the double nearest 0.12, not 12.0 / 100
      {"12",        2, 0, ok,  num(12)},
      {"5.5%",      4, 0, ok,  num(0.055)},
      {"(12%)",     5, 0, ok,  num(-0.12)},
      {" -3 % ",    6, 0, ok,  num(-0.03)},
      {"1,250%",    6, 0, ok,  num(12.5)},
      {"1E2%",      4, 0, ok,  num(1)},
      {"%12",       3, 0, bad, miss('.')},
      {"1%%",       3, 0, bad, miss('.')},
      {"12%3",      4, 0, bad, miss('.')},
      {"%",         1, 0, ok,  miss('.')},
      {"0%",        2, 0, ok,  num(0.0)},
  });
}

TEST(commax_informat, point_groups_and_comma_marks_decimals) {
  check_rows(zifmcmx, {
      {"1.234.567,89",   12, 0, ok,  num(1234567.89)},
      {"(1.234,5)",       9, 0, ok,  num(-1234.5)},
      {"$1.234",          6, 0, ok,  num(1234)},
      {"\x80 1.234,56",  10, 0, ok,  num(1234.56)},
      {"12%",             3, 0, ok,  num(12)},
      {"1234",            4, 2, ok,  num(12.34)},
      {"-0,5",            4, 0, ok,  num(-0.5)},
      {"...",             3, 0, ok,  miss('.')},   // nothing left
      {"",                3, 0, ok,  miss('.')},
      {"1,2,3",           5, 0, bad, miss('.')},
      {"1.234",          -2, 0, width, miss('.')},
      {"1,5",             3, 40, width, miss('.')},
  });
}

TEST(commax_informat, reads_the_whole_field) {
  std::string text = std::string(31, ' ') + "12";
  auto got = run_informat(zifmcmx, text, 33);
  EXPECT_EQ(got.status, XF_OK);
  EXPECT_EQ(hex(got.bits), hex(num(12)));
}

TEST(punctuated_informats, output_too_small_writes_nothing) {
  for (xf_routine r : {zifmcma, zifmpct, zifmcmx}) {
    xfmt::test::frame_box b = xfmt::test::frame_box::chars("1,234", 5, 0, 4);
    EXPECT_EQ(r(&b.f), XF_E_CAPACITY);
    EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));
  }
}

}  // namespace
