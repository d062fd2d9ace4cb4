// DATE, MONYY, DAY, MONTH, YEAR, QTR, QTRR, WEEKDAY, JULIAN, JULDATE,
// JULDAY and NENGO: every layout, missing values, the range bounds and one
// beyond, and the statuses each format gives.
#include <gtest/gtest.h>

#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
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

const double d20230704 = 23195;
const double d20050101 = 16437;
const double d20000101 = 14610;
const double lowest = -138061, highest = 6589335;

void check(const row &r) {
  frame_box b = frame_box::number(r.value, r.width);
  const xf_status st = r.routine(&b.f);
  EXPECT_EQ(b.str(), r.text) << r.name << r.width << " of " << r.value;
  EXPECT_EQ(b.f.output_length, static_cast<uint32_t>(r.width)) << r.name << r.width;
  EXPECT_EQ(st, r.status) << r.name << r.width << " of " << r.value;
}

TEST(date_format, every_width) {
  const row rows[] = {
      {zfmdate, "DATE", d20230704, 5, "04JUL", 0},         {zfmdate, "DATE", d20230704, 6, " 04JUL", 0},
      {zfmdate, "DATE", d20230704, 7, "04JUL23", 0},       {zfmdate, "DATE", d20230704, 8, " 04JUL23", 0},
      {zfmdate, "DATE", d20230704, 9, "04JUL2023", 0},     {zfmdate, "DATE", d20230704, 10, " 04JUL2023", 0},
      {zfmdate, "DATE", d20230704, 11, "04-JUL-2023", 0},  {zfmdate, "DATE", 0, 7, "01JAN60", 0},
      {zfmdate, "DATE", 0, 9, "01JAN1960", 0},             {zfmdate, "DATE", 0, 11, "01-JAN-1960", 0},
      {zfmdate, "DATE", d20050101, 7, "01JAN05", 0},       {zfmdate, "DATE", lowest, 9, "01JAN1582", 0},
      {zfmdate, "DATE", lowest - 1, 9, "*********", XF_E_DATE_RANGE},
      {zfmdate, "DATE", highest, 9, "31DEC****", 0},       {zfmdate, "DATE", highest, 11, "31-DEC-****", 0},
      {zfmdate, "DATE", highest + 1, 7, "*******", XF_E_DATE_RANGE},
      {zfmdate, "DATE", d20230704, 2, "04", 0},            {zfmdate, "DATE", d20230704, 13, "  04-JUL-2023", 0},
      {zfmmony, "MONYY", d20230704, 5, "JUL23", 0},        {zfmmony, "MONYY", d20230704, 6, " JUL23", 0},
      {zfmmony, "MONYY", d20230704, 7, "JUL2023", 0},      {zfmmony, "MONYY", 16618, 5, "JUL05", 0},
      {zfmmony, "MONYY", highest, 7, "DEC****", 0},        {zfmmony, "MONYY", highest + 1, 5, "*****", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
}

TEST(component_formats, numbers) {
  const double dec = 23345;  // 2023-12-01
  const row rows[] = {
      {zfmday, "DAY", d20230704, 2, " 4", 0},              {zfmday, "DAY", d20230704, 1, "4", 0},
      {zfmday, "DAY", dec - 1, 2, "30", 0},                {zfmday, "DAY", dec - 1, 1, "*", 0},
      {zfmmont, "MONTH", d20230704, 2, " 7", 0},           {zfmmont, "MONTH", dec, 1, "C", 0},
      {zfmmont, "MONTH", dec - 1, 1, "B", 0},             {zfmmont, "MONTH", d20230704, 1, "7", 0},
      {zfmmont, "MONTH", dec, 5, "   12", 0},              {zfmmont, "MONTH", lowest - 1, 2, "**", XF_E_DATE_RANGE},
      {zfmyear, "YEAR", d20050101, 2, "05", 0},            {zfmyear, "YEAR", d20050101, 4, "2005", 0},
      {zfmyear, "YEAR", d20050101, 6, "  2005", 0},        {zfmyear, "YEAR", d20000101, 2, "00", 0},
      {zfmyear, "YEAR", d20000101, 3, " 00", 0},           {zfmyear, "YEAR", highest + 1, 4, "****", 0},
      {zfmyear, "YEAR", lowest - 1, 4, "****", 0},         {zfmyear, "YEAR", highest, 4, "****", 0},
      {zfmyear, "YEAR", highest, 5, "20000", 0},           {zfmqtr, "QTR", d20230704, 1, "3", 0},
      {zfmqtr, "QTR", d20230704, 3, "  3", 0},             {zfmqtr, "QTR", highest + 1, 2, "**", XF_E_DATE_RANGE},
      {zfmqtrr, "QTRR", d20050101, 3, "  I", 0},           {zfmqtrr, "QTRR", d20230704, 3, "III", 0},
      {zfmqtrr, "QTRR", dec, 5, "   IV", 0},               {zfmqtrr, "QTRR", lowest - 1, 3, "***", XF_E_DATE_RANGE},
      {zfmweek, "WEEKDAY", 0, 1, "6", 0},                  {zfmweek, "WEEKDAY", -131486, 1, "1", 0},
      {zfmweek, "WEEKDAY", -131487, 1, "0", 0},            {zfmweek, "WEEKDAY", -131488, 1, "*", 0},
      {zfmweek, "WEEKDAY", -131488, 3, " -1", 0},          {zfmweek, "WEEKDAY", lowest - 1, 1, "*", XF_E_DATE_RANGE},
      {zfmjul, "JULIAN", d20230704, 5, "23185", 0},        {zfmjul, "JULIAN", d20050101, 5, "05001", 0},
      {zfmjul, "JULIAN", d20000101, 5, "00001", 0},        {zfmjul, "JULIAN", d20230704, 7, "2023185", 0},
      {zfmjul, "JULIAN", d20000101, 6, " 00001", 0},       {zfmjul, "JULDATE", d20230704, 9, "  2023185", 0},
      {zfmjul, "JULDATE", highest, 8, "20000365", 0},      {zfmjul, "JULDATE", highest, 7, "*******", 0},
      {zfmjul, "JULIAN", highest + 1, 5, "*****", XF_E_DATE_RANGE},
      {zfmjuld, "JULDAY", d20050101, 3, "  1", 0},         {zfmjuld, "JULDAY", d20230704, 3, "185", 0},
      {zfmjuld, "JULDAY", 14975, 3, "366", 0},             {zfmjuld, "JULDAY", lowest - 1, 3, "***", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
}

TEST(component_formats, nengo_every_width) {
  const double reiwa1 = 21670;  // 2019-05-01
  const row rows[] = {
      {zfmneng, "NENGO", reiwa1, 2, "01", 0},              {zfmneng, "NENGO", reiwa1, 3, "R01", 0},
      {zfmneng, "NENGO", reiwa1, 4, "R.01", 0},            {zfmneng, "NENGO", reiwa1, 5, "R0105", 0},
      {zfmneng, "NENGO", reiwa1, 6, "R01/05", 0},          {zfmneng, "NENGO", reiwa1, 7, "R010501", 0},
      {zfmneng, "NENGO", reiwa1, 8, "R.010501", 0},        {zfmneng, "NENGO", reiwa1, 9, "R01/05/01", 0},
      {zfmneng, "NENGO", reiwa1, 10, "R.01/05/01", 0},     {zfmneng, "NENGO", reiwa1 - 1, 10, "H.31/04/30", 0},
      {zfmneng, "NENGO", 10599, 10, "S.64/01/07", 0},      {zfmneng, "NENGO", 10600, 10, "H.01/01/08", 0},
      {zfmneng, "NENGO", -33506, 10, "M.01/04/06", 0},     {zfmneng, "NENGO", -33507, 10, "**********", 0},
      {zfmneng, "NENGO", -17321, 10, "T.01/07/30", 0},     {zfmneng, "NENGO", -12060, 10, "S.01/12/25", 0},
      {zfmneng, "NENGO", zmdy(1, 1, 2118), 10, "R.**/01/01", 0},  // era year 100
      {zfmneng, "NENGO", reiwa1, 12, "R01/05/01   ", 0},
      {zfmneng, "NENGO", highest + 1, 10, "**********", XF_E_DATE_RANGE},
  };
  for (const auto &r : rows) check(r);
}

TEST(component_formats, missing_values) {
  const xf_routine routines[] = {zfmdate, zfmmony, zfmday, zfmmont, zfmyear, zfmqtr,
                                 zfmqtrr, zfmweek, zfmjul, zfmjuld, zfmneng};
  const char symbols[] = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (xf_routine r : routines) {
    for (int i = 0; i < 28; i += 9) {
      frame_box b = frame_box::number(missing_value(i), 5);
      EXPECT_EQ(r(&b.f), XF_OK);
      EXPECT_EQ(b.str(), std::string("    ") + symbols[i]);
    }
    frame_box c = frame_box::number(d20230704, 12, 0, 11);
    EXPECT_EQ(r(&c.f), XF_E_CAPACITY);
    EXPECT_EQ(c.buffer(), std::string(11, '\xEE'));
  }
}

}  // namespace
