// HEX, OCTAL, BINARY and the character forms $HEX, $OCTAL, $BINARY: every
// blank and digit of the field, two's complement boundaries, cutting at w.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "catalog/missing.hpp"
#include "oracle/binary_oracle.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

const double dot = xfmt::missing_ordinary();

TEST(radix_formats, capacity_cuts_the_field) {
  frame_box b = frame_box::number(255, 8, 0, 5);
  EXPECT_EQ(zfmbin(&b.f), XF_E_CAPACITY);
  EXPECT_EQ(b.str(), "11111");
  frame_box h = frame_box::number(1, 16, 0, 3);
  EXPECT_EQ(zfmhex(&h.f), XF_E_CAPACITY);
  EXPECT_EQ(h.str(), "3FF");
}

TEST(radix_formats, oracle_random) {
  std::mt19937_64 g = xfmt::test::rng(0xB2);
  uint64_t n = xfmt::test::scaled(20000);
  struct entry { xf_routine r; int base; int max_w; };
  const entry routines[] = {{zfmhex, 16, 15}, {zfmoct, 8, 24}, {zfmbin, 2, 64}};
  for (uint64_t i = 0; i < n; ++i) {
    const entry &e = routines[g() % 3];
    int w = 1 + static_cast<int>(g() % static_cast<uint64_t>(e.max_w));
    double v = static_cast<double>(static_cast<int64_t>(g()) >> (g() % 64));
    if (g() % 4 == 0) v += 0.5;
    frame_box b = frame_box::number(v, w, 0);
    xf_status st = e.r(&b.f);
    xfmt::oracle::bytes_result want = xfmt::oracle::radix_oracle(e.base, v, w);
    ASSERT_EQ(b.str(), want.bytes) << "base " << e.base << " value " << v << " w " << w;
    ASSERT_EQ(st, want.status) << "base " << e.base << " value " << v << " w " << w;
  }
}

struct char_row {
  const char *text;
  int32_t w;
  const char *field;
};

TEST(radix_formats, character_fields) {
  const char_row hex[] = {
      {"AB", 4, "4142"}, {"AB", 3, "414"}, {"A", 4, "4120"}, {"", 2, "20"}, {"\xFF\x00", 4, "FF00"}};
  for (const char_row &r : hex) {
    frame_box b = frame_box::chars(std::string(r.text, r.text[0] == '\xFF' ? 2 : std::char_traits<char>::length(r.text)), r.w);
    EXPECT_EQ(zfmchex(&b.f), XF_OK);
    EXPECT_EQ(b.str(), r.field) << r.text;
  }
  const char_row oct[] = {{"A", 3, "101"}, {"\xFF", 3, "377"}, {"AB", 5, "10110"}, {"", 3, "040"}};
  for (const char_row &r : oct) {
    frame_box b = frame_box::chars(r.text, r.w);
    EXPECT_EQ(zfmcoct(&b.f), XF_OK);
    EXPECT_EQ(b.str(), r.field) << r.text;
  }
  const char_row bin[] = {{"A", 8, "01000001"}, {"A", 10, "0100000100"}, {"AB", 16, "0100000101000010"}};
  for (const char_row &r : bin) {
    frame_box b = frame_box::chars(r.text, r.w);
    EXPECT_EQ(zfmcbin(&b.f), XF_OK);
    EXPECT_EQ(b.str(), r.field) << r.text;
  }
  frame_box cut = frame_box::chars("AB", 4, 0, 3);
  EXPECT_EQ(zfmchex(&cut.f), XF_E_CAPACITY);
  EXPECT_EQ(cut.str(), "414");
  frame_box bad = frame_box::chars("AB", 0, 0, 4);
  EXPECT_EQ(zfmchex(&bad.f), XF_E_OVERFLOW);
  EXPECT_EQ(bad.f.output_length, 0u);
}

// Every byte through each character form: the digits read back as the byte.
TEST(radix_formats, every_byte) {
  for (int c = 0; c < 256; ++c) {
    std::string s(1, static_cast<char>(c));
    frame_box h = frame_box::chars(s, 2), o = frame_box::chars(s, 3), bi = frame_box::chars(s, 8);
    zfmchex(&h.f);
    zfmcoct(&o.f);
    zfmcbin(&bi.f);
    EXPECT_EQ(std::stoi(h.str(), nullptr, 16), c);
    EXPECT_EQ(std::stoi(o.str(), nullptr, 8), c);
    EXPECT_EQ(std::stoi(bi.str(), nullptr, 2), c);
  }
}

TEST(case_files, radix_formats) { xfmt::test::run_case_file("numeric/radix_formats.txt"); }

}  // namespace
