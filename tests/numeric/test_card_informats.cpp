// Punched-card column binary (@$CB, @CB, @PUNCH, @ROW), @$PHEX, @BITS and
// the blank-zero and strict zoned informats: known fields, refusals, and
// every punch combination of @$CB checked against the card code's rules.
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "binary_rows.hpp"

namespace {

using xfmt::test::check_get;
using xfmt::test::frame_box;
using xfmt::test::from_hex;
using xfmt::test::get_row;

const double dot = xfmt::missing_ordinary();

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

TEST(card_informats, digits_punch_and_row) {
  const get_row cb[] = {{"08000004", 4, 0, 7, XF_OK}, {"00100002", 4, 1, 5.8, XF_OK}, {"2400", 2, 0, dot, XF_IN_INVALID},
                        {"0000", 2, 0, dot, XF_IN_INVALID}, {"080000", 3, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : cb) check_get(zifmcb, "@CB", r);
  const struct {
    int d;
    double v;
  } punch[] = {{1, 1}, {5, 1}, {2, 0}, {12, 0}};
  for (auto p : punch) check_get(zifmpunch, "@PUNCH", {"0410", 0, p.d, p.v, XF_OK});
  check_get(zifmpunch, "@PUNCH", {"0800", 0, 10, 1, XF_OK});  // d 10 is row 0
  check_get(zifmpunch, "@PUNCH", {"0800", 0, 13, dot, XF_IN_BAD_WIDTH});
  check_get(zifmpunch, "@PUNCH", {"08", 0, 1, dot, XF_IN_INVALID});
  const get_row row[] = {{"0010", 3, 4, 3, XF_OK},       {"0010", 5, 1, 1, XF_OK},       {"0010", 6, 3, dot, XF_OK},
                         {"0014", 5, 3, dot, XF_IN_INVALID}, {"00002000", 8, 4, 3, XF_OK}, {"0010", 5, 0, dot, XF_OK},
                         {"2000", 12, 1, 1, XF_OK},      {"0000", 8, 4, dot, XF_IN_INVALID}, {"0010", 13, 1, dot, XF_IN_BAD_WIDTH}};
  for (const get_row &r : row) check_get(zifmrow, "@ROW", r);
}

TEST(card_informats, phex_bits_and_zoned) {
  struct text_row {
    const char *hex;
    int32_t w;
    const char *text;
  };
  for (text_row r : {text_row{"ABCD", 2, "ABC"}, {"5C", 1, "5"}, {"123D", 2, "123"}}) {
    frame_box b = frame_box::chars(from_hex(r.hex), r.w, 0, 2 * r.w - 1);
    EXPECT_EQ(zifmcphex(&b.f), XF_OK);
    EXPECT_EQ(b.str(), r.text);
  }
  const get_row bits[] = {{"42", 8, 0, 66, XF_OK},   {"42", 1, 1, 1, XF_OK},  {"FFFF", 16, 0, 65535, XF_OK},
                          {"0F", 4, 4, 15, XF_OK},   {"0F", 8, 1, dot, XF_IN_INVALID}, {"0F", 65, 0, dot, XF_IN_BAD_WIDTH},
                          {"FFFFFFFFFFFFFFFF", 64, 0, 18446744073709551615.0, XF_OK}};
  for (const get_row &r : bits) check_get(zifmbits, "@BITS", r);
  const get_row zdb[] = {{"203145", 3, 0, 15, XF_OK}, {"31204E", 3, 0, -105, XF_OK}, {"4040F1", 3, 0, 1, XF_OK},
                         {"202020", 3, 1, 0, XF_OK},   {"2131", 2, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : zdb) check_get(zifmzdb, "@ZDB", r);
  const get_row zdv[] = {{"F1F2D5", 3, 0, -125, XF_OK}, {"F1C2F3", 3, 0, dot, XF_IN_INVALID}, {"F1F2A5", 3, 0, 125, XF_OK},
                         {"F1F2B5", 3, 0, -125, XF_OK}, {"F1F2FA", 3, 0, dot, XF_IN_INVALID}, {"30344E", 3, 0, -45, XF_OK},
                         {"3334", 2, 0, 34, XF_OK},     {"F034", 2, 0, dot, XF_IN_INVALID},   {"30F4", 2, 0, dot, XF_IN_INVALID},
                         {"C5", 1, 0, 5, XF_OK},        {"4E", 1, 0, -5, XF_OK}};
  for (const get_row &r : zdv) check_get(zifmzdv, "@ZDV", r);
}

TEST(stamp_informats, known_examples_and_refusals) {
  const get_row pdtime[] = {{"0235959F", 4, 0, 86399, XF_OK}, {"00000000", 4, 0, dot, XF_OK}, {"0000000F", 4, 0, 0, XF_OK},
                            {"0236059F", 4, 0, dot, XF_IN_INVALID}, {"0235959A", 4, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : pdtime) check_get(zifmpdtime, "@PDTIME", r);
  const get_row dur[] = {{"0001000F", 4, 0, 1, XF_OK}, {"0130500F", 4, 0, 90.5, XF_OK}, {"01A0500F", 4, 0, dot, XF_IN_INVALID}};
  for (const get_row &r : dur) check_get(zifmrmfdur, "@RMFDUR", r);
  const get_row rmf[] = {{"0093000F0123045F", 8, 0, 1991986200, XF_OK}, {"0093000F0323045F", 8, 0, dot, XF_IN_INVALID},
                         {"0093000F0123366F", 8, 0, dot, XF_IN_INVALID}, {"0093000F0124366F", 8, 0, 2051256600, XF_OK}};
  for (const get_row &r : rmf) check_get(zifmrmfstamp, "@RMFSTAMP", r);
  check_get(zifmsmfstamp, "@SMFSTAMP", {"0057E4000123045F", 8, 0, 1992009600, XF_OK});
  check_get(zifmsmfstamp, "@SMFSTAMP", {"0083D6000123045F", 8, 0, dot, XF_IN_INVALID});  // 24:00:00
  check_get(zifmshrstamp, "@SHRSTAMP", {"0115045F09301525", 8, 0, 1739525415.25, XF_OK});
  check_get(zifmshrstamp, "@SHRSTAMP", {"0115045F0930152A", 8, 0, dot, XF_IN_INVALID});
  const get_row tod[] = {{"6BA02766FC000000", 8, 0, 0, XF_OK}, {"DCDBB5708A000000", 8, 0, 1992009600, XF_OK},
                         {"0000000000000000", 8, 0, dot, XF_OK}, {"6BA02766FC", 5, 0, 0, XF_OK},
                         {"6BA02766FC001000", 8, 0, 0.000001, XF_OK}};
  for (const get_row &r : tod) check_get(zifmtodstamp, "@TODSTAMP", r);
  check_get(zifmmsec, "@MSEC", {"00000000F4240000", 8, 0, 1, XF_OK});
  check_get(zifmmsec, "@MSEC", {"00000002625A0000", 8, 0, 2.5, XF_OK});
  check_get(zifmtu, "@TU", {"00009600", 4, 0, 1, XF_OK});
  check_get(zifmtu, "@TU", {"00004B00", 4, 0, 0.5, XF_OK});
  check_get(zifmtu, "@TU", {"000096", 3, 0, dot, XF_IN_BAD_WIDTH});
}

}  // namespace
