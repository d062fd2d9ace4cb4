// The national date, datetime, time and name members on the generated
// locale records: worked examples, the fallback rules, missing and
// out-of-range values, validation, UTF-16 and UTF-8 output.
#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "core/missing.hpp"
#include "support/frame.hpp"
#include "core/platform.hpp"

namespace {

using xfmt::test::frame_box;

constexpr int afrikaans = 1, french = 60, german = 64, english_us = 53, japanese = 79;

struct out {
  xf_status status;
  std::string text;    // output_length bytes
  std::string buffer;  // the whole capacity
};

out nl(xf_routine r, double v, int w, int d, int locale, int64_t capacity = -1,
       bool validate = false) {
  frame_box b = frame_box::number(v, w, d, capacity);
  b.f.option_word = static_cast<uint64_t>(locale);
  if (validate) b.f.option_word |= XF_OPT_VALIDATE;
  xf_status st = r(&b.f);
  return {st, b.str(), b.buffer()};
}

std::string text(xf_routine r, double v, int w, int d, int locale) {
  out o = nl(r, v, w, d, locale);
  EXPECT_EQ(o.status, XF_OK);
  return o.text;
}

// The process codeset decides what non-ASCII names become; these tests
// switch to UTF-8 and back.
struct utf8_scope {
  std::string saved;
  utf8_scope() {
    const char *old = std::setlocale(LC_ALL, nullptr);
    saved = old ? old : "C";
    std::setlocale(LC_ALL, "C.UTF-8");
    xfmt::platform::reload_environment();  // the codeset is read once
  }
  ~utf8_scope() {
    std::setlocale(LC_ALL, saved.c_str());
    xfmt::platform::reload_environment();
  }
};

constexpr double leap_day = 21974;        // 2020-02-29
constexpr double march_first = 60;        // 1960-03-01
constexpr double day_seconds = 86400;

TEST(nldate, worked_example_afrikaans_day_zero) {
  out o = nl(nldate, 0, 20, 0, afrikaans);
  EXPECT_EQ(o.status, XF_OK);
  EXPECT_EQ(o.text, "01 Januarie 1960");
  EXPECT_EQ(o.buffer, "01 Januarie 1960    ");
}

TEST(nldate, as_people_write_them) {
  utf8_scope u;
  EXPECT_EQ(text(nldate, 0, 20, 0, english_us), "January 1, 1960");
  EXPECT_EQ(text(nldate, leap_day, 20, 0, english_us), "February 29, 2020");
  EXPECT_EQ(text(nldate, 0, 20, 0, german), "1. Januar 1960");
  EXPECT_EQ(text(nldate, march_first, 20, 0, german), "1. M\xC3\xA4rz 1960");
  EXPECT_EQ(text(nldate, leap_day, 20, 0, french), "29 f\xC3\xA9vrier 2020");
  EXPECT_EQ(text(nldate, leap_day, 20, 0, japanese),
            "2020\xE5\xB9\xB4" "2\xE6\x9C\x88" "29\xE6\x97\xA5");  // 2020年2月29日
}

TEST(nlmnl, as_people_write_them) {
  utf8_scope u;
  EXPECT_EQ(nl(nlmnleur, -1234.5, 14, 2, english_us).buffer, "  -\xE2\x82\xAC" "1,234.50");
  EXPECT_EQ(nl(nlmnleur, -1234.5, 14, 2, german).buffer, " -1.234,50 \xE2\x82\xAC");
  EXPECT_EQ(nl(nlmnleur, -1234.5, 14, 2, french).buffer, "-1\xC2\xA0" "234,50 \xE2\x82\xAC");
  EXPECT_EQ(nl(nlmnljpy, 1234567, 12, 0, japanese).buffer, " \xC2\xA5" "1,234,567");
  EXPECT_EQ(nl(nlmniusd, 1234.5, 12, 2, german).buffer, "1.234,50 USD");
  EXPECT_EQ(nl(nlmnlusd, 1234.5, 12, 2, english_us).buffer, " US$1,234.50");
}

TEST(nldatm, as_people_write_them) {
  utf8_scope u;
  const double v = 1956000000;  // 2021-12-24 21:20:00
  EXPECT_EQ(text(nldatmw, v, 41, 0, english_us), "Friday, December 24, 2021 9:20:00 PM");
  EXPECT_EQ(text(nldatmw, v, 41, 0, german), "Freitag, 24. Dezember 2021 21:20:00");
  EXPECT_EQ(text(nldatmw, v, 41, 0, french), "vendredi 24 d\xC3\xA9" "cembre 2021 21:20:00");
  EXPECT_EQ(text(nltime, 49509, 20, 0, japanese),
            "13\xE6\x99\x82" "45\xE5\x88\x86" "09\xE7\xA7\x92");  // 13時45分09秒
}

TEST(nldate, second_pattern_then_short_numeric_form) {
  EXPECT_EQ(text(nldate, 0, 10, 0, english_us), "01/01/1960");
  EXPECT_EQ(text(nldate, 0, 10, 0, german), "01.01.1960");
  EXPECT_EQ(text(nldate, leap_day, 10, 0, french), "29/02/2020");
}

TEST(nldate, non_ascii_in_an_ascii_codeset_becomes_a_question_mark) {
  EXPECT_EQ(text(nldate, march_first, 20, 0, german), "1. M?rz 1960");
}

TEST(nldate, missing_and_out_of_range) {
  out m = nl(nldate, xfmt::missing_ordinary(), 20, 0, english_us);
  EXPECT_EQ(m.status, XF_OK);
  EXPECT_EQ(m.buffer, std::string(19, ' ') + ".");
  out lo = nl(nldate, -138062, 12, 0, english_us);
  EXPECT_EQ(lo.status, XF_E_DATE_RANGE);
  EXPECT_EQ(lo.buffer, "************");
  out hi = nl(nldate, 6589336, 12, 0, english_us);
  EXPECT_EQ(hi.status, XF_E_DATE_RANGE);
  EXPECT_EQ(text(nldate, -138061, 20, 0, english_us), "January 1, 1582");
  EXPECT_EQ(text(nldate, 6589335, 20, 0, english_us), "December 31, 0000");
}

TEST(nldate, one_pattern_member_leaves_an_out_of_range_field_alone) {
  out o = nl(nldatel, -138062, 12, 0, english_us);
  EXPECT_EQ(o.status, XF_OK);
  EXPECT_EQ(o.text, "");
  EXPECT_EQ(o.buffer, std::string(12, '\xEE'));
}

TEST(nldate, one_pattern_member_accepts_a_shortened_text) {
  EXPECT_EQ(text(nldatel, leap_day, 8, 0, english_us), "February");
  EXPECT_EQ(text(nldatel, leap_day, 18, 0, english_us), "February 29, 2020");
}

TEST(nldate, validation_when_asked) {
  const struct { xf_routine r; int w, d; xf_status st; } cases[] = {
      {nldate, 9, 0, XF_NL_WIDTH_LOW},   {nldate, 201, 0, XF_NL_WIDTH_HIGH},
      {nldate, 20, -1, XF_NL_DECIMALS_LOW}, {nldate, 20, 1, XF_NL_DECIMALS_HIGH},
      {nldate, 10, 0, XF_OK},            {nldatm, 30, 4, XF_NL_DECIMALS_HIGH},
      {nldatm, 30, 3, XF_OK},            {nldatml, 18, 0, XF_NL_WIDTH_LOW},
      {nldatel, 1, 0, XF_NL_WIDTH_LOW},  {nltimap, 20, 3, XF_OK},
      {nlstrmon, 0, 0, XF_NL_WIDTH_LOW}, {nlstrmon, 20, 4, XF_NL_DECIMALS_HIGH},
  };
  for (const auto &c : cases) {
    out o = nl(c.r, 0, c.w, c.d, english_us, 256, true);
    EXPECT_EQ(o.status, c.st) << c.w << "." << c.d;
  }
  // Without the request nothing is checked.
  EXPECT_EQ(nl(nldate, 0, 9, 0, english_us, 256).status, XF_OK);
}

TEST(nldate, short_numeric_forms) {
  const struct { xf_routine r; int w; int locale; const char *expected; } cases[] = {
      {nldates, 10, english_us, "02/29/2020"}, {nldates, 8, english_us, "02/29/20"},
      {nldates, 6, english_us, "022920"},      {nldates, 8, german, "29.02.20"},
      {nldates, 10, japanese, "2020/02/29"},   {nldateyms, 7, english_us, "02/2020"},
      {nldateyms, 5, german, "02.20"},         {nldateyms, 7, afrikaans, "2020-02"},
      {nldatemds, 5, english_us, "02/29"},     {nldatemds, 5, german, "29.02"},
      {nldateyqs, 6, english_us, "2020Q1"},    {nldateyqs, 4, german, "20Q1"},
  };
  for (const auto &c : cases) EXPECT_EQ(text(c.r, leap_day, c.w, 0, c.locale), c.expected) << c.w;
  out o = nl(nldates, leap_day, 5, 0, english_us);
  EXPECT_EQ(o.status, XF_E_OVERFLOW);
  EXPECT_EQ(o.buffer, "*****");
}

TEST(nldate, month_weekday_and_quarter_members) {
  EXPECT_EQ(text(nldatemn, leap_day, 9, 0, english_us), "February");
  EXPECT_EQ(text(nldatewn, leap_day, 9, 0, english_us), "Saturday");
  EXPECT_EQ(text(nldatew, leap_day, 29, 0, english_us), "Saturday, February 29, 2020");
  EXPECT_EQ(text(nldateyq, leap_day, 16, 0, english_us), "1st quarter 2020");
  EXPECT_EQ(text(nldateyq, leap_day, 7, 0, english_us), "Q1 2020");
  EXPECT_EQ(text(nldateyw, leap_day, 16, 0, english_us), "2020-W08");
  EXPECT_EQ(text(nldateyr, leap_day, 4, 0, english_us), "2020");
  EXPECT_EQ(text(nldateyr, leap_day, 2, 0, english_us), "20");
  EXPECT_EQ(text(nldateym, leap_day, 16, 0, english_us), "February 2020");
  EXPECT_EQ(text(nldatemd, leap_day, 16, 0, english_us), "February 29");
  EXPECT_EQ(text(nldatemd, leap_day, 6, 0, english_us), "Feb 29");
}

TEST(nldatm, datetimes_midnight_and_noon) {
  EXPECT_EQ(text(nldatm, 0, 30, 0, english_us), "January 1, 1960 00:00:00");
  EXPECT_EQ(text(nldatm, leap_day * day_seconds + 43200, 30, 0, german),
            "29. Februar 2020 12:00:00");
  EXPECT_EQ(text(nldatmap, 43200, 32, 0, english_us), "January 1, 1960 12:00:00 PM");
  EXPECT_EQ(text(nldatmap, 0, 32, 0, english_us), "January 1, 1960 12:00:00 AM");
  EXPECT_EQ(text(nldatmtm, 3723, 16, 0, english_us), "01:02:03");
  EXPECT_EQ(text(nldatmdt, leap_day * day_seconds + 86399.9, 18, 0, english_us),
            "February 29, 2020");
  EXPECT_EQ(text(nldatm, -1, 30, 0, english_us), "December 31, 1959 23:59:59");
}

TEST(nldatm, seconds_are_rounded_before_they_are_split) {
  EXPECT_EQ(text(nldatm, 59.9996, 30, 3, english_us), "January 1, 1960 00:01:00.000");
  EXPECT_EQ(text(nldatm, 59.9994, 30, 3, english_us), "January 1, 1960 00:00:59.999");
  EXPECT_EQ(text(nldatm, 1.25, 30, 1, english_us), "January 1, 1960 00:00:01.3");
}

TEST(nldatm, short_numeric_datetime) {
  const double v = leap_day * day_seconds + 13 * 3600 + 5 * 60 + 9.25;
  EXPECT_EQ(text(nldatms, v, 19, 0, english_us), "02/29/2020 13:05:09");
  EXPECT_EQ(text(nldatms, v, 21, 1, german), "29.02.2020 13:05:09,3");
  EXPECT_EQ(text(nldatms, v + 0.5, 19, 0, english_us), "02/29/2020 13:05:10");
  EXPECT_EQ(text(nldatm, v, 19, 0, english_us), "02/29/2020 13:05:09");
}

TEST(nldatm, zone_offset_five_hours_west) {
  const char *old = std::getenv("TZ");
  std::string saved = old ? old : "";
  setenv("TZ", "EST5", 1);
  xfmt::platform::reread_zone();
  EXPECT_EQ(text(nldatmtz, 0, 32, 0, english_us), "00:00:00 -0500");
  EXPECT_EQ(text(nldatmz, 0, 40, 0, english_us), "January 1, 1960 00:00:00 -0500");
  if (old) setenv("TZ", saved.c_str(), 1);
  else unsetenv("TZ");
  xfmt::platform::reread_zone();
}

// During daylight-saving time the hour count of "%z" grows by one whatever
// the sign: a zone ten hours east shows +1100, one five hours west -0600.
TEST(nldatm, zone_offset_during_daylight_saving_time) {
  const char *old = std::getenv("TZ");
  std::string saved = old ? old : "";
  // Daylight-saving all year round, so the test does not depend on the date.
  for (const auto &[tz, expected] : {std::pair{"AAA-10BBB,0/0,J365/25", "+1100"},
                                     std::pair{"CCC5DDD,0/0,J365/25", "-0600"}}) {
    setenv("TZ", tz, 1);
    xfmt::platform::reread_zone();
    time_t now = time(nullptr);
    struct tm tm {};
    localtime_r(&now, &tm);
    ASSERT_GT(tm.tm_isdst, 0) << tz;
    std::string t = text(nldatmtz, 0, 32, 0, english_us);
    EXPECT_EQ(t.substr(t.size() - 5), expected) << tz;
  }
  if (old) setenv("TZ", saved.c_str(), 1);
  else unsetenv("TZ");
  xfmt::platform::reread_zone();
}

TEST(nltime, times_of_day) {
  EXPECT_EQ(text(nltime, 3661, 20, 0, english_us), "01:01:01");
  EXPECT_EQ(text(nltime, -1, 20, 0, english_us), "23:59:59");
  EXPECT_EQ(text(nltimap, 0, 11, 0, english_us), "12:00:00 AM");
  EXPECT_EQ(text(nltimap, 43200 + 61, 11, 0, english_us), "12:01:01 PM");
  EXPECT_EQ(text(nltime, 3661.5, 20, 2, english_us), "01:01:01.50");
  EXPECT_EQ(text(nltime, 3661.5, 20, 2, german), "01:01:01");  // "%T" has no fraction
  out o = nl(nltimap, 0, 4, 0, english_us);
  EXPECT_EQ(o.status, XF_E_OVERFLOW);
}

TEST(nlstr, names_full_then_abbreviated) {
  EXPECT_EQ(text(nlstrmon, 3, 20, 0, english_us), "March");
  EXPECT_EQ(text(nlstrmon, 9, 5, 0, english_us), "Sep");
  EXPECT_EQ(text(nlstrmon, 9, 2, 0, english_us), "Se");
  EXPECT_EQ(text(nlstrwk, 1, 20, 0, english_us), "Sunday");
  EXPECT_EQ(text(nlstrwk, 7, 20, 0, german), "Samstag");
  EXPECT_EQ(text(nlstrqtr, 2, 20, 0, english_us), "2nd quarter");
  EXPECT_EQ(text(nlstrqtr, 2, 5, 0, english_us), "Q2");
  EXPECT_EQ(text(nlstrmon, 12.9, 20, 0, english_us), "December");
  for (double bad : {0.0, 13.0, -1.0, 1e300}) {
    out o = nl(nlstrmon, bad, 6, 0, english_us);
    EXPECT_EQ(o.status, XF_E_OVERFLOW);
    EXPECT_EQ(o.buffer, "******");
  }
  EXPECT_EQ(nl(nlstrwk, 8, 3, 0, english_us).buffer, "***");
  EXPECT_EQ(nl(nlstrqtr, xfmt::missing_value(3), 3, 0, english_us).buffer, "  B");
}

TEST(nldate, utf16_output_on_request) {
  frame_box b = frame_box::number(march_first, 20, 0, 40);
  b.f.option_word = german;
  b.f.requested_output_encoding = XF_ENC_UTF16LE;
  ASSERT_EQ(nldate(&b.f), XF_OK);
  EXPECT_EQ(b.f.output_encoding, XF_ENC_UTF16LE);
  std::u16string want = u"1. M\u00E4rz 1960";
  ASSERT_EQ(b.f.output_length, want.size() * 2);
  EXPECT_EQ(std::memcmp(b.out.data(), want.data(), want.size() * 2), 0);
  EXPECT_EQ(b.out[39], 0);  // blank units to the end
  EXPECT_EQ(b.out[38], ' ');
}

TEST(nldate, process_locale_from_the_environment) {
  const char *old = std::getenv("ZAV_LOCALE");
  std::string saved = old ? old : "";
  unsetenv("ZAV_LOCALE");
  xfmt::platform::reload_environment();  // ZAV_LOCALE is read once
  EXPECT_EQ(text(nldate, 0, 20, 0, 0), "January 1, 1960");
  setenv("ZAV_LOCALE", "de_DE.UTF-8", 1);
  xfmt::platform::reload_environment();
  EXPECT_EQ(text(nldate, 0, 20, 0, 0), "1. Januar 1960");
  setenv("ZAV_LOCALE", "xx_XX", 1);
  xfmt::platform::reload_environment();
  out o = nl(nldate, 0, 12, 0, 0);
  EXPECT_EQ(o.status, XF_E_OVERFLOW);
  EXPECT_EQ(o.buffer, "************");
  if (old) setenv("ZAV_LOCALE", saved.c_str(), 1);
  else unsetenv("ZAV_LOCALE");
  xfmt::platform::reload_environment();
}

TEST(zkf, field_codes_and_ranges) {
  char buf[64];
  int32_t len = 64;
  EXPECT_EQ(zkfdate(0, english_us, buf, &len, nullptr, 28), 0);
  EXPECT_EQ(std::string(buf, static_cast<size_t>(len)), "January 1, 1960");
  len = 64;
  EXPECT_EQ(zkfdate(-138062, english_us, buf, &len, nullptr, 28), -3);
  len = 64;
  EXPECT_EQ(zkfdate(0, english_us, buf, &len, nullptr, 0), -1);
  len = 64;
  EXPECT_EQ(zkfdttm(3600, english_us, buf, &len, nullptr, 256 + 53, 0), 0);
  EXPECT_EQ(std::string(buf, 8), "01:00:00");
  EXPECT_EQ(buf[8], ' ');
  EXPECT_TRUE(buf[9] == '+' || buf[9] == '-');
  len = 64;
  EXPECT_EQ(zkftime(-1, english_us, buf, &len, "%H %M %S %d", 0, 0), 0);
  EXPECT_EQ(std::string(buf, static_cast<size_t>(len)), "23 59 59 **");
  len = 64;
  EXPECT_EQ(zkfdttm(569318630400.0, english_us, buf, &len, nullptr, 46, 0), -3);
}

}  // namespace
