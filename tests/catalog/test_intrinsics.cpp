// The intrinsic pseudo-formats through resolution and dispatch.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

void *intrinsic(const char *name) {
  void *h = nullptr;
  EXPECT_EQ(xfname(name, static_cast<int32_t>(std::char_traits<char>::length(name)), 0, nullptr, &h), XF_OK);
  return h;
}

std::string ask(const std::string &text) {
  frame_box b = frame_box::chars(text, 3);
  EXPECT_EQ(xffmt(&b.f, intrinsic("$IS-INTRINSIC")), XF_OK);
  return b.str();
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

TEST(is_intrinsic, answer_is_single_byte) {
  frame_box b = frame_box::chars("F", 3);
  b.f.output_encoding = 25;
  EXPECT_EQ(zfmintrns(&b.f), XF_OK);
  EXPECT_EQ(b.f.output_encoding, 0u);
}

}  // namespace
