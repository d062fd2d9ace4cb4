// Expanding patterns on a test record, against texts written out by hand:
// every letter and flag, hours at midnight, noon and past 99, padding, years
// past 9999, the seconds' fraction, missing parts, unreadable and escaped
// names, weeks at year edges, eras, zones, fitting into a field.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "core/platform.hpp"
#include "nls/expand.hpp"
#include "record.hpp"

namespace {

using xfmt::nls::expand;
using xfmt::nls::moment;
using xfmt::test::date_moment;
using xfmt::test::datetime_moment;
using xfmt::test::test_record;

// The records the cases name: English-like, then each with one change.
enum record_kind { plain, comma_point, unreadable, escaped, thai, taiwan, japan };

test_record record_of(record_kind k) {
  test_record r = xfmt::test::english_like();
  if (k == comma_point) r.fields[172] = ",";
  if (k == unreadable) {
    r.fields.erase(114 + 6);
    r.fields.erase(151);
    r.fields.erase(152);
  }
  if (k == escaped) {
    for (int i = 0; i < 12; ++i) r.fields[71 + i] = "Xyz";
    r.fields[71 + 2] = "M<U00E4>rz";  // 4 characters
    r.fields[71 + 8] = "Sept";
  }
  if (k == thai || k == taiwan || k == japan)
    r.fields[5] = k == thai ? "TH" : k == taiwan ? "TW" : "JP";
  return r;
}

moment hours(int64_t h, bool with_date = false) {
  moment m = with_date ? date_moment(2021, 1, 1) : moment{};
  m.has_hour = m.has_minute = m.has_second = true;
  m.hour = h;
  return m;
}

struct pinned {
  const char *pattern;
  moment m;
  const char *expected;
  int32_t decimals = 0;
  record_kind record = plain;
};

std::vector<pinned> cases() {
  const moment leap = datetime_moment(2020, 2, 29, 13, 5, 9.25);  // a Saturday
  moment time_only = hours(3);
  time_only.minute = 4;
  time_only.has_second = false;
  moment far = date_moment(2020, 1, 1);
  far.year = 12345;
  std::vector<pinned> c = {
      {"%%|%A|%a|%#A|%#a|%F|%f|", leap, "%|Saturday|Sat|saturday|sat|Saturday |Sat|"},
      {"%B|%b|%#B|%#b|%C|%c|", leap, "February|Feb|february|feb|February |February |"},
      {"%d %D %e %G %g %H %h %K %I %#I %L", leap, "29 29 29 2020 20 13 13 13 01 1 01"},
      {"%M %#M %m %N %#m %n %O %o %j %J %#j", leap, "05 5 02 02 2 0  2  2 060 060 60"},
      {"%p %P %Q %q %#Q %#q %S %s %T|%t%v|", leap,
       "PM PM 1st quarter Q1 first quarter q1 09 09 13:05:09||"},
      {"%U %u %w %V %W %Y %y %?A %?B %?Y %02d %9d x%dy", leap,
       "08 6 6 09 08 2020 20 Sat Feb 20 29 29 x29y"},
      {"%x|%X|[%x] %X", leap, "February 29, 2020|13:05:09|[February 29, 2020] 13:05:09"},
      {"%I %L %K %H %p", datetime_moment(2021, 1, 1, 0, 0, 0), "12 00 24 00 AM"},
      {"%I %L %K %H %p", datetime_moment(2021, 1, 1, 12, 0, 0), "12 12 12 12 PM"},
      {"%I %L %K %H %p", datetime_moment(2021, 1, 1, 23, 59, 59), "11 11 23 23 PM"},
      {"%H %n", hours(123), "123 5"},
      {"%d|%e|%#d|%O|%m", date_moment(2021, 3, 7), "07| 7|7| 3|03"},
      {"%Y %y", far, "2345 45"},
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 12.36), "12.4", 1},
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 12.34), "12.3", 1},
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 59.96), "59.9", 1},  // no carry
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 5.125), "05.125", 3},
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 5.0), "05.00", 2},
      {"%s", datetime_moment(2020, 1, 1, 0, 0, 5.5), "05", 2},
      {"%T", datetime_moment(2020, 1, 1, 1, 2, 3.9), "01:02:03", 2},
      {"%S", datetime_moment(2020, 1, 1, 0, 0, 1.5), "01,5", 1, comma_point},
      {"%H:%M:%S", time_only, "03:04:**.**", 2},
      {"%A|%a|%B|%d|%Y|%w", time_only, "**|**|**|**|**|**"},
      {"%H %M %p %I", moment{}, "** ** ** **"},
      {"%A %a %p", datetime_moment(2020, 2, 29, 9, 0, 0), "** Sat AM", 0, unreadable},
      {"%p", datetime_moment(2020, 2, 29, 21, 0, 0), "PM", 0, unreadable},
      {"%C|", date_moment(2020, 3, 1), "M<U00E4>rz|", 0, escaped},
      {"%C|", date_moment(2020, 1, 1), "Xyz |", 0, escaped},
      // 2021-01-01, a Friday, is in ISO week 53 of 2020; 2018-01-01 a Monday;
      // 2017-01-01 a Sunday; 2019-12-30, a Monday, in ISO week 1 of 2020.
      {"%G-%V %U %W %u %w", date_moment(2021, 1, 1), "2020-53 00 00 5 5"},
      {"%G-%V %U %W %u", date_moment(2018, 1, 1), "2018-01 00 01 1"},
      {"%U %W %u %w", date_moment(2017, 1, 1), "01 00 7 0"},
      {"%G %g %V", date_moment(2019, 12, 30), "2020 20 01"},
      {"%+Y", date_moment(2020, 6, 1), "2563", 0, thai},
      {"%+Y %+y", date_moment(2020, 6, 1), "0109 09", 0, taiwan},
      {"%+Y", date_moment(1911, 6, 1), "0001", 0, taiwan},
      {"%+Y", date_moment(1910, 6, 1), "0002", 0, taiwan},
      {"%+Y", date_moment(1989, 1, 8), "0001", 0, japan},  // the first day of the last era
      {"%+Y", date_moment(1989, 1, 7), "0064", 0, japan},  // the last day of the one before
      {"%+Y", date_moment(2020, 6, 1), "0032", 0, japan},  // the table ends in 1989
      {"%+Y", date_moment(1868, 4, 6), "0001", 0, japan},
      {"%+Y", date_moment(1868, 4, 5), "1868", 0, japan},  // before the first era
      {"%+Y", date_moment(2020, 6, 1), "2020"},
      {"%d   ", date_moment(2020, 2, 29), "29"},  // trailing blanks of the pattern dropped
      {"  %d", date_moment(2020, 2, 29), "  29"},
  };
  return c;
}

// The expansion in a field of width (negative: right aligned): its code and
// the text (the whole field unless it fits left aligned).
std::pair<int, std::string> run(const std::string &pattern, const moment &m,
                                const test_record &rec, int32_t width = 100,
                                int32_t decimals = 0) {
  char out[256];
  int32_t w = width;
  const int code = expand(m, rec.reader(), pattern.data(), pattern.size(), out, &w, decimals);
  const auto field = static_cast<size_t>(width < 0 ? -width : width);
  return {code, std::string(out, code == 0 && width >= 0 ? static_cast<size_t>(w) : field)};
}

TEST(expand, pinned_texts) {
  for (const pinned &c : cases())
    EXPECT_EQ(run(c.pattern, c.m, record_of(c.record), 100, c.decimals),
              std::make_pair(0, std::string(c.expected)))
        << c.pattern;
  EXPECT_EQ(xfmt::nls::escaped_length("M<U00E4>rz"), 4u);
  EXPECT_EQ(xfmt::nls::escaped_length("<U00E4"), 6u);
}

TEST(expand, unknown_letters_fail) {
  for (const char *p : {"%R", "%r", "%Y %k%i %R", "%", "%#", "%+"})
    EXPECT_EQ(run(p, date_moment(2020, 2, 29), record_of(plain)).first,
              xfmt::nls::expand_bad_letter)
        << p;
}

TEST(expand, time_zone_offset_and_abbreviation) {
  const char *old = std::getenv("TZ");
  const std::string saved = old ? old : "";
  const moment m = datetime_moment(2020, 1, 1, 0, 0, 0);
  const test_record rec = record_of(plain);
  // Five hours west without a daylight-saving rule, UTC, and half hours east.
  for (const auto &[zone, expected] : {std::pair{"EST5", "00 -0500 EST"},
                                      std::pair{"UTC0", "00 +0000 UTC"},
                                      std::pair{"IST-5:30", "00 +0530 IST"}}) {
    setenv("TZ", zone, 1);
    xfmt::platform::reread_zone();
    EXPECT_EQ(run("%H %z %Z", m, rec).second, expected) << zone;
  }
  if (old) setenv("TZ", saved.c_str(), 1);
  else unsetenv("TZ");
  xfmt::platform::reread_zone();
}

TEST(expand, fitting_left_right_and_too_long) {
  const moment m = date_moment(2020, 2, 29);
  const test_record rec = record_of(plain);
  EXPECT_EQ(run("%d", m, rec, 5), std::make_pair(0, std::string("29")));
  EXPECT_EQ(run("%d", m, rec, -5), std::make_pair(0, std::string("   29")));
  EXPECT_EQ(run("%B %d", m, rec, 4),
            std::make_pair(xfmt::nls::expand_too_long, std::string("Febr")));
  EXPECT_EQ(run("%B", m, rec, 8), std::make_pair(0, std::string("February")));
}

}  // namespace
