// The numeric date layouts at every width: each table row shows every
// blank of the field. Then missing values, the range bounds, five-digit
// years, and a random differential run against a layout built here from
// zfmcymd by the plain rules.
#include <gtest/gtest.h>

#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::missing_value;
using xfmt::test::frame_box;

struct row {
  xf_routine routine;
  const char *name;
  double value;
  int32_t width;
  const char *text;
  xf_status status;
};

const double d20230704 = 23195;  // 2023-07-04
const double d20050104 = 16440;  // 2005-01-04
const double d19600101 = 0;
const double d15820101 = -138061;
const double d15000101 = 6589335;  // 20000-12-31

void check(const row &r) {
  frame_box b = frame_box::number(r.value, r.width);
  const xf_status st = r.routine(&b.f);
  EXPECT_EQ(b.str(), r.text) << r.name << r.width << " of " << r.value;
  EXPECT_EQ(b.f.output_length, static_cast<uint32_t>(r.width)) << r.name << r.width;
  EXPECT_EQ(st, r.status) << r.name << r.width << " of " << r.value;
}

TEST(three_fields, ddmmyy_every_width) {
  const row rows[] = {
      {zfmdmy, "DDMMYY", d20230704, 2, "04", 0},          {zfmdmy, "DDMMYY", d20230704, 3, " 04", 0},
      {zfmdmy, "DDMMYY", d20230704, 4, "0407", 0},        {zfmdmy, "DDMMYY", d20230704, 5, "04/07", 0},
      {zfmdmy, "DDMMYY", d20230704, 6, "040723", 0},      {zfmdmy, "DDMMYY", d20230704, 7, " 040723", 0},
      {zfmdmy, "DDMMYY", d20230704, 8, "04/07/23", 0},    {zfmdmy, "DDMMYY", d20230704, 9, " 04/07/23", 0},
      {zfmdmy, "DDMMYY", d20230704, 10, "04/07/2023", 0}, {zfmdmy, "DDMMYY", d20230704, 12, "  04/07/2023", 0},
      {zfmdmyb, "DDMMYYB", d20230704, 10, "04 07 2023", 0}, {zfmdmyc, "DDMMYYC", d20230704, 8, "04:07:23", 0},
      {zfmdmyd, "DDMMYYD", d20230704, 5, "04-07", 0},     {zfmdmyp, "DDMMYYP", d20230704, 10, "04.07.2023", 0},
      {zfmdmyn, "DDMMYYN", d20230704, 8, "04072023", 0},  {zfmdmyn, "DDMMYYN", d20230704, 7, " 040723", 0},
      {zfmdmyn, "DDMMYYN", d20230704, 6, "040723", 0},    {zfmdmyn, "DDMMYYN", d20230704, 5, " 0407", 0},
      {zfmdmyn, "DDMMYYN", d20230704, 4, "0407", 0},      {zfmdmyn, "DDMMYYN", d19600101, 8, "01011960", 0},
      {zfmdmy, "DDMMYY", d20050104, 8, "04/01/05", 0},
  };
  for (const auto &r : rows) check(r);
}

TEST(three_fields, mmddyy_and_yymmdd) {
  const row rows[] = {
      {zfmmdy, "MMDDYY", d19600101, 8, "01/01/60", 0},     {zfmmdy, "MMDDYY", d20230704, 10, "07/04/2023", 0},
      {zfmmdy, "MMDDYY", d20230704, 6, "070423", 0},       {zfmmdy, "MMDDYY", d20230704, 2, "07", 0},
      {zfmmdyb, "MMDDYYB", d20230704, 8, "07 04 23", 0},   {zfmmdyc, "MMDDYYC", d20230704, 9, " 07:04:23", 0},
      {zfmmdyd, "MMDDYYD", d20230704, 10, "07-04-2023", 0}, {zfmmdyp, "MMDDYYP", d20230704, 5, "07.04", 0},
      {zfmmdyn, "MMDDYYN", d20230704, 8, "07042023", 0},   {zfmmdyn, "MMDDYYN", d20230704, 3, " 07", 0},
      {zfmymd, "YYMMDD", d19600101, 10, "1960-01-01", 0},  {zfmymd, "YYMMDD", d20230704, 8, "23-07-04", 0},
      {zfmymd, "YYMMDD", d20230704, 2, "23", 0},           {zfmymd, "YYMMDD", d20230704, 4, "2307", 0},
      {zfmymd, "YYMMDD", d20230704, 5, "23-07", 0},        {zfmymd, "YYMMDD", d20230704, 7, " 230704", 0},
      {zfmymd, "YYMMDD", d20050104, 8, "05-01-04", 0},     {zfmymdb, "YYMMDDB", d20230704, 10, "2023 07 04", 0},
      {zfmymdc, "YYMMDDC", d20230704, 10, "2023:07:04", 0}, {zfmymdp, "YYMMDDP", d20230704, 10, "2023.07.04", 0},
      {zfmymds, "YYMMDDS", d15820101, 10, "1582/01/01", 0}, {zfmymdn, "YYMMDDN", d20230704, 8, "20230704", 0},
      {zfmymdn, "YYMMDDN", d20230704, 6, "230704", 0},
  };
  for (const auto &r : rows) check(r);
}

TEST(three_fields, bounds_and_five_digit_years) {
  const row rows[] = {
      {zfmymds, "YYMMDDS", d15820101 - 1, 10, "**********", XF_E_DATE_RANGE},
      {zfmymds, "YYMMDDS", d15000101 + 1, 10, "**********", XF_E_DATE_RANGE},
      {zfmymds, "YYMMDDS", d15000101, 10, "****/12/31", 0},
      {zfmymds, "YYMMDDS", d15000101, 8, "00/12/31", 0},
      {zfmdmy, "DDMMYY", d15000101, 10, "31/12/****", 0},
      {zfmmdyn, "MMDDYYN", d15000101, 8, "1231****", 0},
      {zfmdmy, "DDMMYY", 10000.75, 8, "19/05/87", 0},  // the fraction of a day is dropped
      {zfmdmy, "DDMMYY", -0.25, 8, "31/12/59", 0},
  };
  for (const auto &r : rows) check(r);
}

TEST(three_fields, missing_values_of_every_kind) {
  const char symbols[] = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (int i = 0; i < 28; ++i) {
    frame_box b = frame_box::number(missing_value(i), 8);
    EXPECT_EQ(zfmmdy(&b.f), XF_OK);
    EXPECT_EQ(b.str(), std::string("       ") + symbols[i]);
    frame_box q = frame_box::number(missing_value(i), 6);
    EXPECT_EQ(zfmyyq(&q.f), XF_OK);
    EXPECT_EQ(q.str(), std::string("     ") + symbols[i]);
  }
  // Byte 5 = 0 is missing too and shows as a blank.
  frame_box b = frame_box::number(xfmt::bits_double(0xFFFF000000000000ull), 4);
  EXPECT_EQ(zfmymd(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "    ");
  // Any other NaN is no date: stars.
  frame_box n = frame_box::number(std::nan(""), 8);
  EXPECT_EQ(zfmymd(&n.f), XF_E_DATE_RANGE);
  EXPECT_EQ(n.str(), "********");
}

TEST(two_fields, month_year_and_year_month) {
  const row rows[] = {
      {zfmmmy, "MMYY", d20230704, 5, "07M23", 0},          {zfmmmy, "MMYY", d20230704, 6, " 07M23", 0},
      {zfmmmy, "MMYY", d20230704, 7, "07M2023", 0},        {zfmmmy, "MMYY", d20230704, 10, "   07M2023", 0},
      {zfmmmyn, "MMYYN", d20230704, 4, "0723", 0},         {zfmmmyn, "MMYYN", d20230704, 5, " 0723", 0},
      {zfmmmyn, "MMYYN", d20230704, 6, "072023", 0},       {zfmmmyc, "MMYYC", d20230704, 7, "07:2023", 0},
      {zfmmmyd, "MMYYD", d20050104, 5, "01-05", 0},        {zfmmmyp, "MMYYP", d20230704, 8, " 07.2023", 0},
      {zfmmmys, "MMYYS", d15000101, 7, "12/****", 0},      {zfmmmys, "MMYYS", d15000101, 6, " 12/00", 0},
      {zfmyym, "YYMM", d20230704, 7, "2023M07", 0},        {zfmyym, "YYMM", d20230704, 5, "23M07", 0},
      {zfmyym, "YYMM", d20230704, 8, " 2023M07", 0},       {zfmyym, "YYMM", d20050104, 5, "05M01", 0},
      {zfmyymn, "YYMMN", d20230704, 4, "2307", 0},         {zfmyymn, "YYMMN", d20230704, 5, " 2307", 0},
      {zfmyymn, "YYMMN", d20230704, 6, "202307", 0},       {zfmyymc, "YYMMC", d20230704, 7, "2023:07", 0},
      {zfmyymd, "YYMMD", d20230704, 7, "2023-07", 0},      {zfmyymp, "YYMMP", d20230704, 7, "2023.07", 0},
      {zfmyyms, "YYMMS", d20230704, 6, " 23/07", 0},       {zfmyyms, "YYMMS", d15000101, 8, "20000/12", 0},
      {zfmyyms, "YYMMS", d15000101, 7, "****/12", 0},      {zfmyym, "YYMM", d15820101 - 1, 7, "*******", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
}

TEST(two_fields, quarters) {
  const double q1 = 23011;  // 2023-01-01
  const double q4 = 23344;  // 2023-11-30
  const row rows[] = {
      {zfmyyq, "YYQ", d20230704, 4, "23Q3", 0},            {zfmyyq, "YYQ", d20230704, 5, " 23Q3", 0},
      {zfmyyq, "YYQ", d20230704, 6, "2023Q3", 0},          {zfmyyq, "YYQ", d20230704, 8, "  2023Q3", 0},
      {zfmyyq, "YYQ", d20050104, 4, "05Q1", 0},            {zfmyyqc, "YYQC", d20230704, 4, "23:3", 0},
      {zfmyyqc, "YYQC", d20230704, 5, " 23:3", 0},         {zfmyyqc, "YYQC", d20230704, 6, "2023:3", 0},
      {zfmyyqn, "YYQN", d20230704, 3, "233", 0},           {zfmyyqn, "YYQN", d20230704, 4, " 233", 0},
      {zfmyyqn, "YYQN", d20230704, 5, "20233", 0},         {zfmyyqd, "YYQD", d20050104, 4, "05-1", 0},
      {zfmyyqp, "YYQP", d20230704, 7, " 2023.3", 0},       {zfmyyqs, "YYQS", d20230704, 6, "2023/3", 0},
      {zfmyyqr, "YYQR", q1, 6, "2023QI", 0},               {zfmyyqr, "YYQR", d20230704, 6, "23QIII", 0},
      {zfmyyqr, "YYQR", q1, 8, "  2023QI", 0},             {zfmyyqr, "YYQR", d20230704, 8, "2023QIII", 0},
      {zfmyyqr, "YYQR", q4, 6, " 23QIV", 0},               {zfmyyqr, "YYQR", q4, 7, "2023QIV", 0},
      {zfmyqrn, "YYQRN", d20230704, 5, "23III", 0},        {zfmyqrn, "YYQRN", q1, 5, "2023I", 0},
      {zfmyqrc, "YYQRC", d20050104, 6, "2005:I", 0},       {zfmyqrd, "YYQRD", d20230704, 6, "23-III", 0},
      {zfmyqrp, "YYQRP", q4, 8, " 2023.IV", 0},            {zfmyqrs, "YYQRS", d20230704, 9, " 2023/III", 0},
      {zfmyyq, "YYQ", d15000101, 6, "****Q4", 0},          {zfmyyq, "YYQ", d15000101, 7, "20000Q4", 0},
  };
  for (const auto &r : rows) check(r);
}

// Bad frames: widths below any layout, and a width past the capacity,
// which must leave the buffer untouched.
TEST(two_fields, bad_frames) {
  frame_box b = frame_box::number(d20230704, 3);
  EXPECT_EQ(zfmmmy(&b.f), XF_E_OVERFLOW);
  EXPECT_EQ(b.str(), "***");
  frame_box c = frame_box::number(d20230704, 10, 0, 6);
  EXPECT_EQ(zfmdmy(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.f.output_length, 0u);
  EXPECT_EQ(c.buffer(), std::string(6, '\xEE'));
  frame_box z = frame_box::number(d20230704, 0, 0, 4);
  EXPECT_EQ(zfmyyqr(&z.f), XF_E_OVERFLOW);
  EXPECT_EQ(z.buffer(), std::string(4, '\xEE'));
  frame_box s = frame_box::number(d20230704, 8);
  s.f.input_length = 4;  // too short to hold a double: read as missing
  EXPECT_EQ(zfmymd(&s.f), XF_OK);
  EXPECT_EQ(s.str(), "       .");
}

// The layouts rebuilt here from zfmcymd with string operations, over
// random dates and every width of each family.
std::string two(long v) { return std::string(1, static_cast<char>('0' + v / 10 % 10)) + static_cast<char>('0' + v % 10); }
std::string four(long v) { return v > 9999 ? "****" : std::to_string(v); }
std::string rjust(const std::string &s, size_t w) { return s.size() >= w ? s.substr(s.size() - w) : std::string(w - s.size(), ' ') + s; }

TEST(layouts_differential, random_dates_all_widths) {
  auto gen = xfmt::test::rng(61);
  std::uniform_int_distribution<int64_t> day(-138061, 6589335);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    const auto v = static_cast<double>(i % 2 ? day(gen) : day(gen) % 80000);
    double yd, md, dd;
    ASSERT_EQ(zfmcymd(&yd, &md, &dd, v), 1);
    const long y = static_cast<long>(yd), m = static_cast<long>(md), d = static_cast<long>(dd);
    for (int32_t w = 2; w <= 10; ++w) {
      // DDMMYYS: the fields that fit, separators from width 8 (and at 5).
      std::string want;
      const std::string yy = w >= 10 ? four(y) : two(y % 100);
      if (w >= 8) want = two(d) + "/" + two(m) + "/" + yy;
      else if (w >= 6) want = two(d) + two(m) + yy;
      else if (w == 5) want = two(d) + "/" + two(m);
      else if (w == 4) want = two(d) + two(m);
      else want = two(d);
      frame_box b = frame_box::number(v, w);
      ASSERT_EQ(zfmdmy(&b.f), XF_OK);
      ASSERT_EQ(b.str(), rjust(want, static_cast<size_t>(w))) << v << " w " << w;
    }
    for (int32_t w = 5; w <= 12; ++w) {
      const bool two_digit = w < 7;
      const std::string year = two_digit ? two(y % 100) : four(y);
      frame_box b = frame_box::number(v, w);
      ASSERT_EQ(zfmyym(&b.f), XF_OK);
      std::string yfield = two_digit ? rjust(year, static_cast<size_t>(w - 3)) : (y > 9999 && w - 3 == 4 ? "****" : rjust(std::to_string(y), static_cast<size_t>(w - 3)));
      ASSERT_EQ(b.str(), yfield + "M" + two(m)) << v << " w " << w;
    }
  }
}

}  // namespace
