// The pattern expander on a test record: every conversion letter, padding,
// missing parts, eras, fitting.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "nls/expand.hpp"
#include "record.hpp"
#include "catalog/platform.hpp"

namespace {

using xfmt::nls::expand;
using xfmt::nls::moment;
using xfmt::test::date_moment;
using xfmt::test::datetime_moment;
using xfmt::test::english_like;

struct result {
  int code;
  std::string text;
};

result run(const std::string &pattern, const moment &m, const xfmt::test::test_record &rec,
           int32_t width = 100, int32_t decimals = 0) {
  char out[256];
  int32_t w = width;
  int code = expand(m, rec.reader(), pattern.data(), pattern.size(), out, &w, decimals);
  size_t field = static_cast<size_t>(width < 0 ? -width : width);
  if (code == 0 && width >= 0) return {code, std::string(out, static_cast<size_t>(w))};
  return {code, std::string(out, field)};
}

std::string text(const std::string &pattern, const moment &m, int32_t decimals = 0) {
  static const auto rec = english_like();
  result r = run(pattern, m, rec, 100, decimals);
  EXPECT_EQ(r.code, 0) << pattern;
  return r.text;
}

struct letter_case {
  const char *pattern;
  const char *expected;
};

// 2020-02-29 (a Saturday, leap day) at 13:05:09.25.
TEST(expand, every_letter_on_a_leap_day_afternoon) {
  const moment m = datetime_moment(2020, 2, 29, 13, 5, 9.25);
  const letter_case cases[] = {
      {"%%", "%"},             {"%A", "Saturday"},       {"%a", "Sat"},
      {"%#A", "saturday"},     {"%#a", "sat"},           {"%F|", "Saturday |"},
      {"%f|", "Sat|"},         {"%B", "February"},       {"%b", "Feb"},
      {"%#B", "february"},     {"%#b", "feb"},           {"%C|", "February |"},
      {"%c|", "February |"},   {"%d", "29"},             {"%D", "29"},
      {"%e", "29"},            {"%G", "2020"},           {"%g", "20"},
      {"%H", "13"},            {"%h", "13"},             {"%K", "13"},
      {"%I", "01"},            {"%#I", "1"},             {"%L", "01"},
      {"%M", "05"},            {"%#M", "5"},             {"%m", "02"},
      {"%N", "02"},            {"%#m", "2"},             {"%n", "0"},
      {"%O", " 2"},            {"%o", " 2"},             {"%j", "060"},
      {"%J", "060"},           {"%#j", "60"},            {"%p", "PM"},
      {"%P", "PM"},            {"%Q", "1st quarter"},    {"%q", "Q1"},
      {"%#Q", "first quarter"}, {"%#q", "q1"},           {"%S", "09"},
      {"%s", "09"},            {"%T", "13:05:09"},       {"%t", ""},
      {"%v", ""},              {"%U", "08"},             {"%u", "6"},
      {"%w", "6"},             {"%V", "09"},             {"%W", "08"},
      {"%Y", "2020"},          {"%y", "20"},             {"%?A", "Sat"},
      {"%?B", "Feb"},          {"%?Y", "20"},            {"%02d", "29"},
      {"%9d", "29"},           {"x%dy", "x29y"},         {"%x", "February 29, 2020"},
      {"%X", "13:05:09"},      {"[%x] %X", "[February 29, 2020] 13:05:09"},
  };
  for (const auto &c : cases) EXPECT_EQ(text(c.pattern, m), c.expected) << c.pattern;
}

TEST(expand, unknown_letters_fail) {
  const moment m = date_moment(2020, 2, 29);
  const auto rec = english_like();
  for (const char *p : {"%R", "%r", "%Y %k%i %R", "%", "%#", "%+"})
    EXPECT_EQ(run(p, m, rec).code, xfmt::nls::expand_bad_letter) << p;
}

TEST(expand, midnight_and_noon_hours) {
  const moment midnight = datetime_moment(2021, 1, 1, 0, 0, 0);
  EXPECT_EQ(text("%I %L %K %H %p", midnight), "12 00 24 00 AM");
  const moment noon = datetime_moment(2021, 1, 1, 12, 0, 0);
  EXPECT_EQ(text("%I %L %K %H %p", noon), "12 12 12 12 PM");
  const moment eleven = datetime_moment(2021, 1, 1, 23, 59, 59);
  EXPECT_EQ(text("%I %L %K %H %p", eleven), "11 11 23 23 PM");
}

TEST(expand, hours_above_99_keep_all_digits) {
  moment m;
  m.has_hour = m.has_minute = m.has_second = true;
  m.hour = 123;
  EXPECT_EQ(text("%H %n", m), "123 5");
}

TEST(expand, day_padding_blank_and_zero) {
  const moment m = date_moment(2021, 3, 7);
  EXPECT_EQ(text("%d|%e|%#d|%O|%m", m), "07| 7|7| 3|03");
}

TEST(expand, year_beyond_9999_keeps_last_four_digits) {
  moment m = date_moment(2020, 1, 1);
  m.year = 12345;
  EXPECT_EQ(text("%Y %y", m), "2345 45");
}

TEST(expand, seconds_fraction_digit_by_digit) {
  EXPECT_EQ(text("%S", datetime_moment(2020, 1, 1, 0, 0, 12.36), 1), "12.4");
  EXPECT_EQ(text("%S", datetime_moment(2020, 1, 1, 0, 0, 12.34), 1), "12.3");
  EXPECT_EQ(text("%S", datetime_moment(2020, 1, 1, 0, 0, 59.96), 1), "59.9");  // no carry
  EXPECT_EQ(text("%S", datetime_moment(2020, 1, 1, 0, 0, 5.125), 3), "05.125");
  EXPECT_EQ(text("%S", datetime_moment(2020, 1, 1, 0, 0, 5.0), 2), "05.00");
  EXPECT_EQ(text("%s", datetime_moment(2020, 1, 1, 0, 0, 5.5), 2), "05");
  EXPECT_EQ(text("%T", datetime_moment(2020, 1, 1, 1, 2, 3.9), 2), "01:02:03");
}

TEST(expand, seconds_use_the_locale_decimal_point) {
  auto rec = english_like();
  rec.fields[172] = ",";
  EXPECT_EQ(run("%S", datetime_moment(2020, 1, 1, 0, 0, 1.5), rec, 100, 1).text, "01,5");
}

TEST(expand, missing_parts_print_stars) {
  moment time_only;
  time_only.has_hour = time_only.has_minute = true;
  time_only.hour = 3;
  time_only.minute = 4;
  EXPECT_EQ(text("%H:%M:%S", time_only, 2), "03:04:**.**");
  EXPECT_EQ(text("%A|%a|%B|%d|%Y|%w", time_only), "**|**|**|**|**|**");
  moment nothing;
  EXPECT_EQ(text("%H %M %p %I", nothing), "** ** ** **");
}

TEST(expand, unreadable_names_print_stars_and_am_pm_falls_back) {
  auto rec = english_like();
  rec.fields.erase(114 + 6);
  rec.fields.erase(151);
  rec.fields.erase(152);
  const moment m = datetime_moment(2020, 2, 29, 9, 0, 0);
  EXPECT_EQ(run("%A %a %p", m, rec).text, "** Sat AM");
  const moment pm = datetime_moment(2020, 2, 29, 21, 0, 0);
  EXPECT_EQ(run("%p", pm, rec).text, "PM");
}

TEST(expand, escaped_names_pad_by_characters) {
  auto rec = english_like();
  rec.fields[71 + 2] = "M<U00E4>rz";  // 4 characters
  rec.fields[71 + 8] = "Sept";
  for (int i = 0; i < 12; ++i)
    if (i != 2 && i != 8) rec.fields[71 + i] = "Xyz";
  EXPECT_EQ(run("%C|", date_moment(2020, 3, 1), rec).text, "M<U00E4>rz|");
  EXPECT_EQ(run("%C|", date_moment(2020, 1, 1), rec).text, "Xyz |");
  EXPECT_EQ(xfmt::nls::escaped_length("M<U00E4>rz"), 4u);
  EXPECT_EQ(xfmt::nls::escaped_length("<U00E4"), 6u);
}

TEST(expand, week_numbers_at_year_edges) {
  // 2021-01-01 is a Friday: ISO week 53 of 2020; Sunday and Monday weeks 0.
  EXPECT_EQ(text("%G-%V %U %W %u %w", date_moment(2021, 1, 1)), "2020-53 00 00 5 5");
  // 2018-01-01 is a Monday: week 1 everywhere but the Sunday count.
  EXPECT_EQ(text("%G-%V %U %W %u", date_moment(2018, 1, 1)), "2018-01 00 01 1");
  // 2017-01-01 is a Sunday.
  EXPECT_EQ(text("%U %W %u %w", date_moment(2017, 1, 1)), "01 00 7 0");
  // 2019-12-30 is a Monday in ISO week 1 of 2020.
  EXPECT_EQ(text("%G %g %V", date_moment(2019, 12, 30)), "2020 20 01");
}

TEST(expand, era_years) {
  auto th = english_like();
  th.fields[5] = "TH";
  EXPECT_EQ(run("%+Y", date_moment(2020, 6, 1), th).text, "2563");
  auto tw = english_like();
  tw.fields[5] = "TW";
  EXPECT_EQ(run("%+Y", date_moment(2020, 6, 1), tw).text, "0109");
  EXPECT_EQ(run("%+Y", date_moment(1911, 6, 1), tw).text, "0001");
  EXPECT_EQ(run("%+Y", date_moment(1910, 6, 1), tw).text, "0002");
  EXPECT_EQ(run("%+y", date_moment(2020, 6, 1), tw).text, "09");
  auto jp = english_like();
  jp.fields[5] = "JP";
  EXPECT_EQ(run("%+Y", date_moment(1989, 1, 8), jp).text, "0001");   // first day of the last era
  EXPECT_EQ(run("%+Y", date_moment(1989, 1, 7), jp).text, "0064");   // last day of the one before
  EXPECT_EQ(run("%+Y", date_moment(2020, 6, 1), jp).text, "0032");   // the table ends in 1989
  EXPECT_EQ(run("%+Y", date_moment(1868, 4, 6), jp).text, "0001");
  EXPECT_EQ(run("%+Y", date_moment(1868, 4, 5), jp).text, "1868");   // before the first era
  EXPECT_EQ(run("%+Y", date_moment(2020, 6, 1), english_like()).text, "2020");
}

TEST(expand, time_zone_offset_and_abbreviation) {
  const char *old = std::getenv("TZ");
  std::string saved = old ? old : "";
  setenv("TZ", "EST5", 1);  // five hours west, no daylight-saving rule
  xfmt::platform::reread_zone();
  const moment m = datetime_moment(2020, 1, 1, 0, 0, 0);
  EXPECT_EQ(text("%H %z", m), "00 -0500");
  EXPECT_EQ(text("%Z", m), "EST");
  setenv("TZ", "UTC0", 1);
  xfmt::platform::reread_zone();
  EXPECT_EQ(text("%z", m), "+0000");
  setenv("TZ", "IST-5:30", 1);
  xfmt::platform::reread_zone();
  EXPECT_EQ(text("%z", m), "+0530");
  if (old) setenv("TZ", saved.c_str(), 1);
  else unsetenv("TZ");
  xfmt::platform::reread_zone();
}

TEST(expand, fitting_left_right_and_too_long) {
  const auto rec = english_like();
  const moment m = date_moment(2020, 2, 29);
  result left = run("%d", m, rec, 5);
  EXPECT_EQ(left.code, 0);
  EXPECT_EQ(left.text, "29");
  result right = run("%d", m, rec, -5);
  EXPECT_EQ(right.code, 0);
  EXPECT_EQ(right.text, "   29");
  result cut = run("%B %d", m, rec, 4);
  EXPECT_EQ(cut.code, xfmt::nls::expand_too_long);
  EXPECT_EQ(cut.text, "Febr");
  result exact = run("%B", m, rec, 8);
  EXPECT_EQ(exact.code, 0);
  EXPECT_EQ(exact.text, "February");
}

TEST(expand, trailing_blanks_of_the_pattern_are_dropped) {
  EXPECT_EQ(text("%d   ", date_moment(2020, 2, 29)), "29");
  EXPECT_EQ(text("  %d", date_moment(2020, 2, 29)), "  29");
}

}  // namespace
