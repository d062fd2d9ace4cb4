// The number informats beyond their table of cases
// (tests/data/informats/number_informat.txt): the host's table of missing
// values, and fields wider than any catalogued width.
#include <gtest/gtest.h>

#include <string>

#include "informats/informat_run.hpp"

namespace {

using xfmt::test::holds;
using xfmt::test::informat_case;
using xfmt::test::miss;
using xfmt::test::num;

// A host that set its control block reads ".A" and "Z" through its own
// table of missing values (word 9 of the block); without it the library's
// table answers.
TEST(number_informat, missing_letters_come_from_the_host_table) {
  double table[28];
  for (int i = 0; i < 28; ++i) table[i] = 1000.0 + i;  // recognisable stand-ins
  void *block[10] = {};
  block[9] = table;
  ej_global_gcb_anchor = block;
  EXPECT_TRUE(holds(informat_case(wzifmn, ".A", 2, 0, num(1002))));
  EXPECT_TRUE(holds(informat_case(wzifmn, "z", 1, 0, num(1027))));
  EXPECT_TRUE(holds(informat_case(wzifmn, "._", 2, 0, num(1000))));
  EXPECT_TRUE(holds(informat_case(wzifmn, " . ", 3, 0, num(1001))));  // "." is row 1 of the host's table
  ej_global_gcb_anchor = nullptr;
  EXPECT_TRUE(holds(informat_case(wzifmn, ".A", 2, 0, miss('A'))));
}

}  // namespace

// One rule for every number informat beyond the widest catalogued field
// (32): the whole field is read, as @F always did ("@BZ" once read only 32
// characters, "@COMMA" refused texts over 256; @BZ's 34th digit is a case
// line).
TEST(number_informat, wide_fields_are_read_whole) {
  for (xf_routine r : {wzifmn, zifmbz, zifmcma, zifmpct, zifmcmx}) {
    for (int32_t w : {33, 340, 32767}) {
      const std::string field = std::string(static_cast<size_t>(w) - 1, '0') + "1";
      EXPECT_TRUE(holds(informat_case(r, field, w, 0, num(1))));
      EXPECT_TRUE(holds(informat_case(r, field, w - 1, 0, num(0))));  // only the zeros are in the field
    }
  }
}
