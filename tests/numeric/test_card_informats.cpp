// Punched-card column binary (@$CB, @CB, @PUNCH, @ROW), @$PHEX, @BITS and
// the blank-zero and strict zoned informats: known fields, refusals, and
// every punch combination of @$CB checked against the card code's rules.
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

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

}  // namespace
