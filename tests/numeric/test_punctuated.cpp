// COMMA and the other punctuated formats: marks inserted when they fit, and
// dropped in order (alignment blank, groups, currency sign) when they do not.
#include <gtest/gtest.h>

#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  double value;
  int32_t w;
  int32_t d;
  const char *field;  // "\x80" is the euro sign, "\xA5" the yen sign
  xf_status status;
};

void check(xf_routine routine, const row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  b.f.option_flags = 0x40;
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << "value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(b.f.option_flags, 0x40u);
  EXPECT_EQ(b.f.decimals, r.d);
}

TEST(comma_format, commas_only_when_they_fit) {
  const row rows[] = {
      {1234567.891, 10, 2, "1234567.89", XF_OK},        // 1,234,567.89 needs 12
      {1234567.891, 12, 2, "1,234,567.89", XF_OK},
      {1234567.891, 14, 2, "  1,234,567.89", XF_OK},
      {-1234, 6, 0, "-1,234", XF_OK},
      {-1234, 5, 0, "-1234", XF_OK},
      {123, 6, 0, "   123", XF_OK},
      {1000, 5, 0, "1,000", XF_OK},
      {999.5, 6, 0, " 1,000", XF_OK},
      {-0.5, 6, 2, " -0.50", XF_OK},
      {1e20, 4, 0, "****", XF_E_OVERFLOW},
      {1e20, 8, 0, "   1E+20", XF_OK},                  // E notation stays as it is
      {123456.7, 8, 2, "123456.7", XF_REDUCED},           // zfmt's status, no commas
      {xfmt::missing_ordinary(), 6, 2, "   .  ", XF_OK},
  };
  for (const row &r : rows) check(zfmcma, r);
}

TEST(comma_format, grouped_text_wider_than_the_capacity) {
  frame_box b = frame_box::number(1234567.891, 12, 2, 11);
  EXPECT_EQ(zfmcma(&b.f), XF_E_CAPACITY);
  EXPECT_EQ(b.f.output_length, 11u);
}

TEST(comma_format, bad_widths) {
  frame_box b = frame_box::number(5, 0, 0, 2);
  EXPECT_EQ(zfmcma(&b.f), XF_E_OVERFLOW);
  frame_box c = frame_box::number(5, 33, 0);
  EXPECT_EQ(zfmcma(&c.f), XF_E_OVERFLOW);
  EXPECT_EQ(c.str(), std::string(32, '*'));
}

TEST(commax_format, period_groups_comma_point) {
  const row rows[] = {
      {1234567.891, 13, 2, " 1.234.567,89", XF_OK},
      {1234567.891, 10, 2, "1234567,89", XF_OK},       // groups dropped, comma kept
      {-1234.5, 8, 1, "-1.234,5", XF_OK},
      {12, 4, 0, "  12", XF_OK},
  };
  for (const row &r : rows) check(zfmcmax, r);
}

TEST(dollar_format, sign_then_dollar_then_groups) {
  const row rows[] = {
      {1234567.891, 14, 2, " $1,234,567.89", XF_OK},
      {-1234567.891, 14, 2, "-$1,234,567.89", XF_OK},
      {-1234567.891, 12, 2, "-$1234567.89", XF_OK},     // groups go first
      {-1234567.891, 11, 2, "-1234567.89", XF_OK},      // then the dollar sign
      {123456789.5, 8, 2, "1.23E+08", XF_OK},            // plain text: zfmt's E form
      {1.5, 6, 2, " $1.50", XF_OK},
      {0, 4, 2, "0.00", XF_OK},                        // "$0.00" needs 5
      {1e40, 6, 0, " 1E+40", XF_OK},
      {1e40, 4, 0, "****", XF_E_OVERFLOW},
      {xfmt::missing_ordinary(), 6, 0, "     .", XF_OK},
  };
  for (const row &r : rows) check(zfmdlr, r);
}

TEST(dollarx_format, period_groups) {
  check(zfmdlrx, {-1234.5, 12, 2, "  -$1.234,50", XF_OK});
  check(zfmdlrx, {1234.5, 8, 2, "$1234,50", XF_OK});
}

TEST(euro_formats, single_byte_euro_sign) {
  check(zfmeuro, {1234.5, 12, 2, "   \x80" "1,234.50", XF_OK});
  check(zfmeuro, {-1234.5, 10, 2, "-\x80" "1,234.50", XF_OK});
  check(zfmeuro, {-1234.5, 9, 2, "-\x80" "1234.50", XF_OK});
  check(zfmerx, {1234.5, 12, 2, "   \x80" "1.234,50", XF_OK});
  check(zfmerx, {1234.5, 7, 2, "1234,50", XF_OK});
}

TEST(yen_format, yen_sign) {
  check(zfmyen, {123456, 10, 0, "  \xA5" "123,456", XF_OK});
  check(zfmyen, {123456, 6, 0, "123456", XF_OK});
}

TEST(negparen_format, parentheses_and_alignment_blank) {
  const row rows[] = {
      {-1234.5, 12, 2, "  (1,234.50)", XF_OK},
      {1234.5, 12, 2, "   1,234.50 ", XF_OK},
      {1234.5, 8, 2, "1,234.50", XF_OK},                // the blank goes first
      {-1234.5, 9, 2, "(1234.50)", XF_OK},              // then the groups
      {-1234.5, 8, 2, "-1234.50", XF_OK},               // then the parentheses
      {-5, 3, 0, "(5)", XF_OK},
      {5, 1, 0, "5", XF_OK},
  };
  for (const row &r : rows) check(zfmnprn, r);
}

TEST(percent_formats, times_one_hundred) {
  const row rows[] = {
      {0.125, 8, 1, "  12.5% ", XF_OK},
      {-0.125, 8, 1, " (12.5%)", XF_OK},
      {0.12, 6, 0, "  12% ", XF_OK},
      {-0.05, 4, 0, "(5%)", XF_OK},
      {0.05, 4, 0, " 5% ", XF_OK},
      {1.5, 4, 0, "150%", XF_OK},
      {-1.5, 4, 0, "-150", XF_OK},                       // "-150%" needs 5: plain
      {-0.001, 6, 2, "-0.10%", XF_OK},                   // a minus sign for the parentheses
      {12.3456, 6, 2, "1234.6", XF_REDUCED},             // reduced decimals: the plain text
      {xfmt::missing_ordinary(), 6, 0, "     .", XF_OK},
  };
  for (const row &r : rows) check(zfmpct, r);
  check(pctn, {-0.125, 8, 1, "  -12.5%", XF_OK});
  check(pctn, {0.125, 6, 1, " 12.5%", XF_OK});
  check(pctn, {-0.125, 5, 1, "-12.5", XF_OK});
}

// Every punctuated routine over random values: never past the capacity, the
// output length min(w, capacity), and the digits those of F.
TEST(punctuated_formats, random_values_keep_the_digits_of_f) {
  const xf_routine routines[] = {zfmcma, zfmcmax, zfmdlr, zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn};
  auto g = xfmt::test::rng(7);
  const uint64_t count = xfmt::test::scaled(200000);
  int failures = 0;
  for (uint64_t i = 0; i < count && failures < 10; ++i) {
    double v = static_cast<double>(static_cast<int64_t>(g() % 2000000001) - 1000000000) /
               static_cast<double>(1 + g() % 1000);
    int32_t w = 2 + static_cast<int32_t>(g() % 31);
    int32_t d = static_cast<int32_t>(g() % 6);
    frame_box plain = frame_box::number(v, w, d);
    xf_status plain_status = zfmt(&plain.f);
    for (xf_routine r : routines) {
      frame_box b = frame_box::number(v, w, d);
      xf_status st = r(&b.f);
      std::string got = b.str(), want = plain.str();
      auto digits = [](const std::string &s) {
        std::string out;
        for (char c : s)
          if (c >= '0' && c <= '9') out += c;
        return out;
      };
      bool ok = b.f.output_length == static_cast<uint32_t>(w) && st == plain_status &&
                (want.find_first_of("E*") != std::string::npos ? got == want : digits(got) == digits(want));
      if (!ok && ++failures < 10)
        ADD_FAILURE() << "seed " << xfmt::test::test_seed() << " value " << v << " w " << w << " d " << d
                      << " got [" << got << "] want digits of [" << want << "]";
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
