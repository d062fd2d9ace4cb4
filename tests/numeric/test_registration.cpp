// Every numeric routine sits on its catalog row and answers through the
// host's path (xfname, xffmt).
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

struct entry {
  const char *name;
  const fmtinfo *(*module)(void);
  xf_routine routine;
};

const entry entries[] = {
    {"F", jazwfmsc, zfmt},          {"BEST", jazwfmsc, zfmb},       {"BESTX", jazwfmsc, zfmbx},
    {"E", jazwfmsc, zfmexp},        {"D", jazwfmsc, zfmd},          {"Z", jazwfmsc, zfmz},
    {"COMMA", jazwfmsc, zfmcma},    {"COMMAX", jazwfmsc, zfmcmax},  {"DOLLAR", jazwfmsc, zfmdlr},
    {"DOLLARX", jazwfmsc, zfmdlrx}, {"EURO", jazwfmsc, zfmeuro},    {"EUROX", jazwfmsc, zfmerx},
    {"PERCENT", jazwfmsc, zfmpct},  {"PERCENTN", jazwfmsc, pctn},   {"NEGPAREN", jazwfmsc, zfmnprn},
    {"YEN", jazwfuwf, zfmyen},
};

TEST(numeric_catalog, each_routine_is_on_its_row) {
  for (const entry &e : entries) {
    const fmtinfo *t = e.module();
    const fmtinfo_eachfmt *found = nullptr;
    for (uint64_t i = 0; i < t->count; ++i)
      if (t->rows[i].name_length == std::strlen(e.name) &&
          std::memcmp(t->rows[i].name, e.name, std::strlen(e.name)) == 0)
        found = &t->rows[i];
    ASSERT_NE(found, nullptr) << e.name;
    EXPECT_EQ(found->routine, e.routine) << e.name;
  }
}

TEST(numeric_catalog, dollar_through_xffmt) {
  void *handle = nullptr;
  ASSERT_EQ(xfname("DOLLAR", 6, 0, nullptr, &handle), XF_OK);
  auto b = xfmt::test::frame_box::number(-1234.5, 12, 2);
  EXPECT_EQ(xffmt(&b.f, handle), XF_OK);
  EXPECT_EQ(b.str(), "  -$1,234.50");
  xfdel(handle);
}

TEST(numeric_catalog, euro_sign_widens_to_u20ac_in_utf16_output) {
  void *handle = nullptr;
  ASSERT_EQ(xfname("EURO", 4, 0, nullptr, &handle), XF_OK);
  // A refreshed handle (link = itself) converts on the caller's frame, so
  // the requested output encoding is honoured.
  fmtposs_row own;
  std::memcpy(&own, handle, sizeof own);
  own.link = reinterpret_cast<uint64_t>(&own);
  auto b = xfmt::test::frame_box::number(5, 4, 0, 8);
  b.f.requested_output_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(xffmt(&b.f, &own), XF_OK);
  ASSERT_EQ(b.f.output_length, 8u);
  EXPECT_EQ(b.f.output_encoding, XF_ENC_UTF16LE);
  const std::string want("\x20\x00\x20\x00\xAC\x20\x35\x00", 8);
  EXPECT_EQ(b.str(), want);
  xfdel(handle);
}

}  // namespace
