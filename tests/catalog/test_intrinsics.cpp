// The intrinsic pseudo-formats through resolution and dispatch.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "catalog/catalog_test_util.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

void *intrinsic(const char *name) {
  void *h = nullptr;
  EXPECT_EQ(xfname(name, static_cast<int32_t>(std::char_traits<char>::length(name)), 0, nullptr, &h), XF_OK);
  return h;
}

std::string ask(const std::string &text, uint32_t capacity = 3) {
  frame_box b = frame_box::chars(text, 3, 0, capacity);
  EXPECT_EQ(xffmt(&b.f, intrinsic("$IS-INTRINSIC")), XF_OK);
  return b.str();
}

TEST(crash_format, writes_one_x) {
  frame_box b = frame_box::number(0, 1);
  EXPECT_EQ(xffmt(&b.f, intrinsic("_C_R_A_S_H_")), XF_OK);
  EXPECT_EQ(b.str(), "X");
  frame_box none = frame_box::number(0, 1, 0, 0);
  EXPECT_EQ(zfmcrash(&none.f), XF_OK);
  EXPECT_EQ(none.f.output_length, 0u);  // nothing fits, nothing written
}

TEST(build_stamp, is_cut_to_the_width) {
  const std::string stamp = "Apr 18 2019 13:09:42";
  for (int32_t w = -1; w <= 25; ++w) {
    frame_box b = frame_box::number(0, w, 0, 25);
    EXPECT_EQ(xffmt(&b.f, intrinsic("INTRINSIC-CRDATE")), XF_OK);
    size_t n = w < 0 ? 0 : (w > 20 ? 20 : static_cast<size_t>(w));
    EXPECT_EQ(b.str(), stamp.substr(0, n)) << "w=" << w;
  }
  frame_box small = frame_box::number(0, 20, 0, 5);
  EXPECT_EQ(zfmvernum(&small.f), XF_OK);
  EXPECT_EQ(small.str(), "Apr 1");
  const char *date = nullptr, *time = nullptr;
  get_date_time(&date, &time);
  EXPECT_STREQ(date, "Apr 18 2019");
  EXPECT_STREQ(time, "13:09:42");
}

struct answer_case {
  const char *text;
  const char *answer;
};

TEST(is_intrinsic, answers_the_named_cases) {
  // Catalogued names in any case are the next test's; these are the rest.
  const answer_case cases[] = {
      {"$", "YES"},         {"$F", "YES"},          {"$f", "YES"},          {"DATE     ", "YES"},
      {"text", "NO "},      {"$IS-INTRINSIC", "YES"}, {"$FMT-META", "YES"}, {"INTRINSIC-CRDATE", "YES"},
      {"$UFMT-CRDATE", "YES"}, {"_C_R_A_S_H_", "NO "}, {"", "NO "},         {"   ", "NO "},
      {" F", "NO "},        {"FF", "NO "},          {"$FF", "NO "},
  };
  for (const answer_case &c : cases) EXPECT_EQ(ask(c.text), c.answer) << '"' << c.text << '"';
}

TEST(is_intrinsic, every_catalogued_format_name_and_no_informat) {
  for (const fmtposs_row &p : fmtposs) {
    std::string name(p.row.name, p.row.name_length);
    bool yes = name[0] != '-' && name[0] != '@';
    EXPECT_EQ(ask(name), yes ? "YES" : "NO ") << name;
    std::string lower;
    for (char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(ask(lower + "  "), yes ? "YES" : "NO ") << lower;
  }
}

TEST(is_intrinsic, reads_only_the_first_32_bytes) {
  std::string name = "DATE" + std::string(28, ' ') + "X";  // X lies beyond byte 32
  EXPECT_EQ(ask(name), "YES");
}

TEST(is_intrinsic, utf16_input_is_narrowed_first) {
  std::string le = std::string("D\0A\0T\0E\0", 8);
  std::string be = std::string("\0D\0A\0T\0E", 8);
  frame_box b = frame_box::chars(le, 3);
  b.f.input_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(zfmintrns(&b.f), XF_OK);
  EXPECT_EQ(b.str(), "YES");
  frame_box c = frame_box::chars(be, 3);
  c.f.input_encoding = XF_ENC_UTF16BE;
  EXPECT_EQ(zfmintrns(&c.f), XF_OK);
  EXPECT_EQ(c.str(), "YES");
  // A unit outside ASCII can be in no name.
  frame_box d = frame_box::chars(std::string("D\0\x01\x04", 4), 3);
  d.f.input_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(zfmintrns(&d.f), XF_OK);
  EXPECT_EQ(d.str(), "NO ");
}

TEST(is_intrinsic, answer_is_cut_to_the_capacity_and_single_byte) {
  EXPECT_EQ(ask("F", 2), "YE");
  EXPECT_EQ(ask("F", 0), "");
  frame_box b = frame_box::chars("F", 3);
  b.f.output_encoding = 25;
  EXPECT_EQ(zfmintrns(&b.f), XF_OK);
  EXPECT_EQ(b.f.output_encoding, 0u);
}

}  // namespace
