// Punched-card column binary (@$CB, @CB, @PUNCH, @ROW), @$PHEX, @BITS and
// the blank-zero and strict zoned informats: known fields, refusals, and
// every punch combination of @$CB checked against the card code's rules.
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "catalog/missing.hpp"
#include "numeric/hex_bytes.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;
using xfmt::test::from_hex;

std::string cb_text(const std::string &hex, int32_t w, xf_status want) {
  frame_box b = frame_box::chars(from_hex(hex), w, 0, w / 2);
  EXPECT_EQ(zifmccb(&b.f), want) << hex;
  return b.str();
}

TEST(card_informats, characters) {
  EXPECT_EQ(cb_text("2400", 2, XF_OK), "A");
  EXPECT_EQ(cb_text("1400", 2, XF_OK), "J");
  EXPECT_EQ(cb_text("0A00", 2, XF_OK), "S");
  EXPECT_EQ(cb_text("0010", 2, XF_OK), "5");
  EXPECT_EQ(cb_text("2000", 2, XF_OK), "&");
  EXPECT_EQ(cb_text("0000", 2, XF_OK), " ");
  EXPECT_EQ(cb_text("1000", 2, XF_OK), "-");
  EXPECT_EQ(cb_text("0C00", 2, XF_OK), "/");          // 0-1
  EXPECT_EQ(cb_text("2001", 2, XF_OK), "I");          // 12-9
  EXPECT_EQ(cb_text("E0C1", 2, XF_OK), "I");          // the two high bits are ignored
  EXPECT_EQ(cb_text("2C00", 2, XF_OK), "a");          // 12-0-1
  EXPECT_EQ(cb_text("000A", 2, XF_OK), "=");          // 8-6 is 7E
  EXPECT_EQ(cb_text("2102", 2, XF_OK), ".");          // 12-8-3 is 4B
  EXPECT_EQ(cb_text("3F3F", 2, XF_IN_INVALID), " ");  // every row
  EXPECT_EQ(cb_text("240000102000", 6, XF_OK), "A5&");
  frame_box neg = frame_box::chars("", -1, 0, 1);
  EXPECT_EQ(zifmccb(&neg.f), XF_IN_BAD_WIDTH);
}

// Every one of the 4096 combinations: the characters that come out are
// all different (the card code is one to one), and each valid column
// holds at most three zone punches and at most two digit rows.
TEST(card_informats, every_combination_is_distinct) {
  std::set<char> seen;
  int valid = 0;
  for (unsigned rows = 0; rows < 4096; ++rows) {
    std::string col = {static_cast<char>(rows >> 6), static_cast<char>(rows & 0x3F)};
    frame_box b = frame_box::chars(col, 2, 0, 1);
    xf_status st = zifmccb(&b.f);
    if (st != XF_OK) {
      EXPECT_EQ(b.str(), " ");
      continue;
    }
    ++valid;
    EXPECT_TRUE(seen.insert(b.str()[0]).second) << "rows " << rows;
    EXPECT_LE(std::popcount(rows & 0x1FFu), 2);
  }
  EXPECT_EQ(valid, static_cast<int>(seen.size()));
  EXPECT_EQ(valid, 92);  // blank, 5 zone forms, 62 zone-digit forms, 24 with row 8
}

TEST(case_files, card_informats) { xfmt::test::run_case_file("numeric/card_informats.txt"); }

}  // namespace
