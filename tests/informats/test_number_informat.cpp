// @F and @E (wzifmn) and @BZ (zifmbz): every step of the reading procedure
// as a table of text, w, d, expected status and stored value.
#include <gtest/gtest.h>

#include <cstdlib>

#include <cfloat>
#include <cstring>
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
constexpr xf_status range = XF_IN_RANGE_WARNING;
constexpr xf_status width = XF_IN_BAD_WIDTH;

TEST(number_informat, width_and_decimals_checks) {
  check_rows(wzifmn, {
      // text      w    d   status  value
      {"123",     0,   0,  ok,     miss('.')},   // nothing to read
      {"",        5,   0,  ok,     miss('.')},   // empty input
      {"123",    -1,   0,  width,  miss('.')},
      {"123",     0,  40,  ok,     miss('.')},   // the width is looked at first
      {"123",     3,  32,  width,  miss('.')},
      {"123",     3,  -1,  width,  miss('.')},
      {"123",     3,  31,  ok,     num(123e-31)},
      {"123",     3,  98,  ok,     num(123)},    // 98 and 99 count as 0
      {"123",     3,  99,  ok,     num(123)},
      {"12345",   3,   0,  ok,     num(123)},    // only w bytes are read
      {"12345",   3,   1,  ok,     num(12.3)},
  });
}

TEST(number_informat, blanks_tabs_and_signs) {
  check_rows(wzifmn, {
      {"     ",       5, 0, ok,  miss('.')},
      {" \t \t",      4, 0, ok,  miss('.')},
      {"  42  ",      6, 0, ok,  num(42)},
      {"\t42\t",      4, 0, ok,  num(42)},
      {"-42",         3, 0, ok,  num(-42)},
      {"+42",         3, 0, ok,  num(42)},
      {"-",           1, 0, bad, miss('.')},   // a sign alone
      {"  +  ",       5, 0, bad, miss('.')},
      {"- 4",         3, 0, bad, miss('.')},
      {"4 2",         3, 0, bad, miss('.')},
      {"--4",         3, 0, bad, miss('.')},
      {"-0",          4, 0, ok,  num(0.0)},    // +0, never -0
      {"-0.000",      6, 0, ok,  num(0.0)},
      {"-0E9999",     7, 0, ok,  num(0.0)},
      {"000123",      6, 0, ok,  num(123)},
  });
}

TEST(number_informat, missing_value_notations) {
  check_rows(wzifmn, {
      {".A",    3, 0, ok,  miss('A')},
      {".a",    3, 0, ok,  miss('A')},
      {" .z ",  4, 0, ok,  miss('Z')},
      {"A",     1, 0, ok,  miss('A')},
      {"q",     1, 0, ok,  miss('Q')},
      {"_",     1, 0, ok,  miss('_')},
      {"._",    2, 0, ok,  miss('_')},
      {".",     1, 0, ok,  miss('.')},
      {"..",    2, 0, ok,  miss('.')},
      {"-A",    2, 0, ok,  miss('A')},   // the sign of a missing value is dropped
      {"-.",    2, 0, ok,  miss('.')},
      {"AB",    2, 0, bad, miss('.')},
      {".AB",   3, 0, bad, miss('.')},
      {".+",    2, 0, bad, miss('.')},
      {".-",    2, 0, bad, miss('.')},
      {"*",     1, 0, bad, miss('.')},
      {"\xC1",  1, 0, bad, miss('.')},   // not a letter in any case
      {".E5",   3, 0, bad, miss('.')},
      {"E5",    2, 0, bad, miss('.')},
  });
}

TEST(number_informat, points_and_implied_decimals) {
  check_rows(wzifmn, {
      {"12345",   5, 2, ok,  num(123.45)},
      {"123.4",   5, 2, ok,  num(123.4)},   // a point overrides d
      {"1.",      2, 3, ok,  num(1)},
      {".5",      2, 3, ok,  num(0.5)},
      {"-.5",     3, 0, ok,  num(-0.5)},
      {"+.5",     3, 0, ok,  num(0.5)},
      {"1.2.3",   5, 0, bad, miss('.')},
      {"1..2",    4, 0, bad, miss('.')},
      {"12E1",    4, 1, ok,  num(12)},      // implied decimals also with an exponent
      {"1200",    4, 2, ok,  num(12)},
      {"0.0012",  6, 2, ok,  num(0.0012)},
      {"1",       1, 31, ok, num(1e-31)},
  });
}

TEST(number_informat, exponents) {
  check_rows(wzifmn, {
      {"1.5E3",    8, 0, ok,  num(1500)},
      {"1.5d-2",   8, 0, ok,  num(0.015)},
      {"1.5D+2",   8, 0, ok,  num(150)},
      {"1.5e2",    8, 0, ok,  num(150)},
      {"1E",       2, 0, ok,  num(1)},      // no digits: exponent 0
      {"1E+",      3, 0, ok,  num(1)},
      {"1E-",      3, 0, ok,  num(1)},
      {"1.E2",     4, 0, ok,  num(100)},
      {"1E2.5",    5, 0, bad, miss('.')},
      {"1E2E3",    5, 0, bad, miss('.')},
      {"1Ex",      3, 0, bad, miss('.')},
      {"1F2",      3, 0, bad, miss('.')},
      {"1E 2",     4, 0, bad, miss('.')},
      {"1E+-2",    5, 0, bad, miss('.')},
      {"12a",      6, 0, bad, miss('.')},
      {"1E0000000000000000000002", 24, 0, ok, num(100)},
  });
}

TEST(number_informat, range_limits) {
  check_rows(wzifmn, {
      {"1E400",                     8,  0, range, miss('.')},
      {"1E-400",                    8,  0, range, miss('.')},
      {"1E99999999999999999999",    22, 0, range, miss('.')},
      {"1E-99999999999999999999",   23, 0, range, miss('.')},
      {"1.7976931348623157E308",    22, 0, ok,    num(DBL_MAX)},
      {"1.7976931348623158E308",    22, 0, ok,    num(DBL_MAX)},
      {"1.7976931348623159E308",    22, 0, range, miss('.')},   // past the midpoint to 2^1024
      {"4.9E-324",                  8,  0, ok,    num(4.9406564584124654e-324)},
      {"2.4703282292062328E-324",   23, 0, ok,    num(4.9406564584124654e-324)},
      {"2.4703282292062327E-324",   23, 0, range, miss('.')},   // just below half the smallest
      {"2.2250738585072011E-308",   23, 0, ok,    num(2.2250738585072011e-308)},
      {"0.000001E-318",             13, 0, range, miss('.')},
      {"100000E303",                10, 0, ok,    num(1e308)},
      {"10E308",                    6,  0, range, miss('.')},
  });
}

TEST(number_informat, correct_rounding_of_hard_cases) {
  check_rows(wzifmn, {
      // 2^53 + 1 and 2^53 + 3 lie exactly between two doubles: ties to even.
      {"9007199254740993",   16, 0, ok, num(9007199254740992.0)},
      {"9007199254740995",   16, 0, ok, num(9007199254740996.0)},
      {"9007199254740993.0000000000001", 30, 0, ok, num(9007199254740994.0)},
      // The same tie behind leading zeros that push the mantissa past 19 digits.
      {"0000000000000000009007199254740993", 34, 0, ok, num(9007199254740992.0)},
      {"000000000.0000009007199254740993E22", 35, 0, ok, num(9007199254740992.0)},
      {"0.1",                 3, 0, ok, num(0.1)},
      {"0.3",                 3, 0, ok, num(0.3)},
      {"123456789012345678",  18, 0, ok, num(123456789012345678.0)},
      {"1.00000000000000011102230246251565404236316680908203125", 56, 0, ok, num(1.0)},
      {"1.00000000000000011102230246251565404236316680908203126", 56, 0, ok,
       num(1.0000000000000002)},
  });
}

TEST(number_informat, output_too_small_writes_nothing) {
  xfmt::test::frame_box b = xfmt::test::frame_box::chars("123", 3, 0, 7);
  EXPECT_EQ(wzifmn(&b.f), XF_E_CAPACITY);
  EXPECT_EQ(b.f.output_length, 0u);
  EXPECT_EQ(b.buffer(), std::string(7, '\xEE'));
}

TEST(number_informat, reads_only_input_length_bytes) {
  xfmt::test::frame_box b = xfmt::test::frame_box::chars("12345", 5, 0, 8);
  b.f.input_length = 3;  // the rest of the text is not the host's
  EXPECT_EQ(wzifmn(&b.f), XF_OK);
  EXPECT_EQ(b.result(), 123.0);
}

TEST(bz_informat, blanks_after_the_first_digit_are_zeros) {
  check_rows(zifmbz, {
      {" 1 2 ",   5, 0, ok,    num(1020)},
      {"     ",   5, 0, ok,    num(0)},      // an all-blank field is zero
      {"",        5, 0, ok,    miss('.')},   // an empty one is not a field
      {"1 ",      2, 1, ok,    num(1.0)},
      {"-1 2",    4, 0, ok,    num(-102)},
      {"1.5 ",    4, 0, ok,    num(1.5)},
      {"1 E2",    4, 0, ok,    num(1000)},   // "10E2"
      {".A",      2, 0, ok,    miss('A')},
      {"1a ",     3, 0, bad,   miss('.')},
      {"1",      -1, 0, width, miss('.')},
      {"1",       1, 32, width, miss('.')},
      {"12345",   3, 0, ok,    num(123)},
  });
}

}  // namespace

namespace {

// A host that set its control block reads ".A" and "Z" through its own
// table of missing values (word 9 of the block); without it the library's
// table answers.
TEST(number_informat, missing_letters_come_from_the_host_table) {
  double table[28];
  for (int i = 0; i < 28; ++i) table[i] = 1000.0 + i;  // recognisable stand-ins
  void *block[10] = {};
  block[9] = table;
  ej_global_gcb_anchor = block;
  auto a = run_informat(wzifmn, ".A", 2);
  auto z = run_informat(wzifmn, "z", 1);
  auto under = run_informat(wzifmn, "._", 2);
  auto dot = run_informat(wzifmn, " . ", 3);
  ej_global_gcb_anchor = nullptr;
  EXPECT_EQ(hex(a.bits), hex(num(1002)));
  EXPECT_EQ(hex(z.bits), hex(num(1027)));
  EXPECT_EQ(hex(under.bits), hex(num(1000)));
  EXPECT_EQ(hex(dot.bits), hex(num(1001)));  // "." is row 1 of the host's table
  EXPECT_EQ(hex(run_informat(wzifmn, ".A", 2).bits), hex(miss('A')));
}

// Every row of the module resolves by name (kind 73 puts "@" in front) and
// reads through xffmt.
TEST(number_informat, every_row_resolves_and_reads_through_xffmt) {
  struct named {
    const char *name;
    const char *text;
    double value;
  };
  const named rows[] = {{"F", "1.5E3", 1500},      {"E", "-2.5", -2.5},
                        {"BZ", " 1 2 ", 1020},      {"COMMA", "1,234.5", 1234.5},
                        {"DOLLAR", "$7", 7},        {"NEGPAREN", "(3)", -3},
                        {"COMMAX", "1.234,5", 1234.5}, {"DOLLARX", "$1,5", 1.5},
                        {"PERCENT", "12%", 0.12}};
  for (const named &r : rows) {
    void *handle = nullptr;
    uint16_t block[8] = {};
    ASSERT_EQ(xfname(r.name, static_cast<int32_t>(std::strlen(r.name)), 73, block, &handle), 0u) << r.name;
    xfmt::test::frame_box b = xfmt::test::frame_box::chars(r.text, static_cast<int32_t>(std::strlen(r.text)), 0, 8);
    EXPECT_EQ(xffmt(&b.f, handle), XF_OK) << r.name;
    EXPECT_EQ(b.result(), r.value) << r.name;
    EXPECT_EQ(block[1], 32u) << r.name;  // max w
    xfdel(handle);
  }
  for (const char *name : {"$CHAR", "$F", "$CHARZB", "$QUOTE"}) {
    void *handle = nullptr;
    ASSERT_EQ(xfname(name, static_cast<int32_t>(std::strlen(name)), 73, nullptr, &handle), 0u) << name;
    xfmt::test::frame_box b = xfmt::test::frame_box::chars("'ab'", 5);
    EXPECT_EQ(xffmt(&b.f, handle), XF_OK) << name;
    EXPECT_EQ(b.str(), std::string(name) == "$QUOTE" ? "ab   " : "'ab' ") << name;
    xfdel(handle);
  }
}

}  // namespace

// One rule for every number informat beyond the widest catalogued field
// (32): the whole field is read, as @F always did ("@BZ" once read only 32
// characters, "@COMMA" refused texts over 256).
TEST(number_informat, wide_fields_are_read_whole) {
  for (xf_routine r : {wzifmn, zifmbz, zifmcma, zifmpct, zifmcmx}) {
    for (int32_t w : {33, 340, 32767}) {
      const std::string field = std::string(static_cast<size_t>(w) - 1, '0') + "1";
      auto got = run_informat(r, field, w, 0);
      EXPECT_EQ(got.status, ok) << "w " << w;
      EXPECT_EQ(hex(got.bits), hex(num(1))) << "w " << w;
      auto part = run_informat(r, field, w - 1, 0);  // only the zeros are in the field
      EXPECT_EQ(hex(part.bits), hex(num(0))) << "w " << w;
    }
  }
  // Digits beyond the 32nd count in @BZ, whose blanks are zeros.
  EXPECT_EQ(hex(run_informat(zifmbz, std::string(32, '1') + " 5", 34, 0).bits),
            hex(num(std::strtod((std::string(32, '1') + "05").c_str(), nullptr))));
}
