// $QUOTE, $UPCASE, $REVERS, $REVERJ, $ASCII and $EBCDIC: every blank of the
// field, cuts at w and at the capacity, then sweeps against the oracle.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "oracle/spelled_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct row {
  const char *text;
  int32_t w;
  const char *field;
  xf_status status;
};

void check(xf_routine routine, const row &r) {
  frame_box b = frame_box::chars(r.text, r.w);
  xf_status st = routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << "text '" << r.text << "' w " << r.w;
  EXPECT_EQ(st, r.status) << "text '" << r.text << "' w " << r.w;
}

TEST(Quote, Table) {
  const row rows[] = {
      {"abc", 5, "\"abc\"", XF_OK},
      {"abc   ", 8, "\"abc\"   ", XF_OK},
      {"", 2, "\"\"", XF_OK},
      {"say \"hi\"", 12, "\"say \"\"hi\"\"\"", XF_OK},
      {"abcdefg", 6, "\"abcd\"", XF_OK},
      {"ab\"cd", 5, "\"ab\" ", XF_OK},   // the doubled quote does not fit: cut before it
      {"ab\"cd", 6, "\"ab\"\"\"", XF_OK},
      {"abc", 1, "*", XF_E_OVERFLOW},
  };
  for (const row &r : rows) check(zfmquote, r);
  frame_box c = frame_box::chars("abcdef", 8, 0, 3);
  EXPECT_EQ(zfmquote(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.buffer(), "\"ab");
}

TEST(Quote, AgainstOracle) {
  auto g = xfmt::test::rng(301);
  std::uniform_int_distribution<int> len(0, 20), pick(0, 3), wd(2, 30);
  const char alphabet[] = {'a', '"', ' ', 'Z'};
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    std::string s;
    for (int n = len(g); n > 0; --n) s += alphabet[pick(g)];
    int32_t w = wd(g);
    frame_box b = frame_box::chars(s, w);
    ASSERT_EQ(zfmquote(&b.f), XF_OK);
    ASSERT_EQ(b.str(), xfmt::oracle::quote(s, w)) << "'" << s << "' " << w;
  }
}

TEST(Upcase, Table) {
  const row rows[] = {
      {"abc xyz", 8, "ABC XYZ ", XF_OK},
      {"Mixed-1_z", 4, "MIXE", XF_OK},
      {"m\xfcller", 6, "M\xdcLLER", XF_OK},  // Windows-1252 letters: ü -> Ü
      {"\xe9t\xe9 \xf7 \xdf\xb5", 7, "\xc9T\xc9 \xf7 \xdf", XF_OK},  // the division sign stays
      {"\xdf\xb5\xff\x9a\x9c\x9e\x83", 7, "\xdf\xb5\x9f\x8a\x8c\x8e\x83", XF_OK},
      {"", 3, "   ", XF_OK},
  };
  for (const row &r : rows) check(zfmupcase, r);
}

// Every byte against the Unicode upper case of its character: the byte of
// the capital when the code page has it, else the byte itself.
TEST(Upcase, EveryByteFollowsUnicode) {
  for (int b = 0; b < 256; ++b) {
    uint16_t u = wlt1unic[b];
    ASSERT_EQ(UPCASE(&u, 1), XF_OK);
    int want = b;
    for (int c = 0; c < 256; ++c)
      if (wlt1unic[c] == u && u != wlt1unic[b]) want = c;
    const char in[1] = {static_cast<char>(b)};
    frame_box f = frame_box::chars(std::string(in, 1), 1);
    ASSERT_EQ(zfmupcase(&f.f), XF_OK);
    EXPECT_EQ(static_cast<unsigned char>(f.str()[0]), want) << "byte " << b;
  }
}

TEST(Revers, Table) {
  const row rows[] = {
      {"abc  ", 5, "cba  ", XF_OK},
      {"  abc", 5, "cba  ", XF_OK},
      {"abcdef", 4, "dcba", XF_OK},
      {"ab", 4, "ba  ", XF_OK},
      {"", 2, "  ", XF_OK},
  };
  for (const row &r : rows) check(zfmrevers, r);
}

TEST(Reverj, Table) {
  const row rows[] = {
      {"abc  ", 5, "  cba", XF_OK},
      {"  abc", 5, "cba  ", XF_OK},
      {"abcdef", 4, "dcba", XF_OK},
      {"ab", 4, "  ba", XF_OK},
  };
  for (const row &r : rows) check(zfmreverj, r);
  frame_box c = frame_box::chars("abcdef", 6, 0, 2);
  EXPECT_EQ(zfmreverj(&c.f), XF_E_CAPACITY);
  EXPECT_EQ(c.buffer(), "fe");
}

TEST(Reverj, AgainstOracle) {
  auto g = xfmt::test::rng(302);
  std::uniform_int_distribution<int> len(0, 20), byte(32, 126), wd(1, 30);
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    std::string s;
    for (int n = len(g); n > 0; --n) s += static_cast<char>(byte(g));
    int32_t w = wd(g);
    frame_box b = frame_box::chars(s, w);
    ASSERT_EQ(zfmreverj(&b.f), XF_OK);
    ASSERT_EQ(b.str(), xfmt::oracle::reverj(s, w));
  }
}

TEST(Ebcdic, EveryByteBothWays) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  frame_box e = frame_box::chars(all, 258);
  ASSERT_EQ(zfmebcdic(&e.f), XF_OK);
  frame_box a = frame_box::chars(all, 258);
  ASSERT_EQ(zfmascii(&a.f), XF_OK);
  for (int i = 0; i < 256; ++i) {
    EXPECT_EQ(e.out[static_cast<size_t>(i)], as2eb[i]);
    EXPECT_EQ(a.out[static_cast<size_t>(i)], static_cast<unsigned char>(i));  // already ASCII here
  }
  EXPECT_EQ(e.out[256], 0x40);  // the EBCDIC blank pads
  EXPECT_EQ(a.out[257], 0x20);
  check(zfmebcdic, {"AB", 3, "\xC1\xC2\x40", XF_OK});
  check(zfmascii, {"AB", 3, "AB ", XF_OK});
}

TEST(CharFormats, WidthAndCapacity) {
  for (xf_routine r : {zfmquote, zfmupcase, zfmrevers, zfmreverj, zfmascii, zfmebcdic}) {
    frame_box z = frame_box::chars("abc", 0);
    EXPECT_EQ(r(&z.f), XF_OK);
    EXPECT_EQ(z.f.output_length, 0u);
    frame_box c = frame_box::chars("abcdef", 10, 0, 3);
    EXPECT_EQ(r(&c.f), XF_E_CAPACITY);
    EXPECT_EQ(c.f.output_length, 3u);
    xf_frame n{};
    n.width = 4;
    char out[4];
    n.output = out;
    n.output_capacity = 4;
    EXPECT_EQ(r(&n), XF_OK);  // no input: an empty value
    EXPECT_EQ(n.output_length, 4u);
  }
}

}  // namespace
