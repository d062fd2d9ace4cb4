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

constexpr xf_status ok = XF_OK;

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
