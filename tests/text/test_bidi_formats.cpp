// $LOGVS, $LOGVSR, $VSLOG, $VSLOGR and $BIDI: exact fields (every blank),
// cuts at w and at the capacity, empty and missing input, UTF-16 in and out,
// text that is not UTF-8, paragraphs, and text longer than the work arrays.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// H is the Hebrew word samekh pe resh, Hr the same letters reversed.
#define H "\xD7\xA1\xD7\xA4\xD7\xA8"
#define Hr "\xD7\xA8\xD7\xA4\xD7\xA1"
#define ALEF "\xD7\x90"
#define BET "\xD7\x91"
#define GIMEL "\xD7\x92"
#define DALET "\xD7\x93"

struct row {
  xf_routine routine;
  const char *name;
  const char *text;
  int32_t w;
  int32_t capacity;  // -1: w
  const char *field;
  xf_status status;
};

void check(const row &r) {
  frame_box b = frame_box::chars(r.text, r.w, 0, r.capacity);
  b.f.output_length = 12345;
  xf_status st = r.routine(&b.f);
  EXPECT_EQ(b.str(), r.field) << r.name << " of '" << r.text << "' w " << r.w;
  EXPECT_EQ(st, r.status) << r.name << " of '" << r.text << "' w " << r.w;
  uint32_t room = std::min<uint32_t>(r.w > 0 ? static_cast<uint32_t>(r.w) : 0, b.f.output_capacity);
  EXPECT_EQ(b.f.output_length, room) << r.name;
  for (size_t i = room; i < b.out.size(); ++i) ASSERT_EQ(b.out[i], 0xEE) << r.name << " wrote past the field";
}

TEST(bidi_formats, examples) {
  const row rows[] = {
      {zfmlogvs, "$LOGVS", H " text", 11, -1, Hr " text", XF_OK},
      {zfmlogvsr, "$LOGVSR", H " text", 12, -1, "text " Hr " ", XF_OK},
      {zfmvslog, "$VSLOG", Hr " text", 11, -1, H " text", XF_OK},
      {zfmvslogr, "$VSLOGR", "text " Hr, 11, -1, H " text", XF_OK},
      {zfmlogvs, "$LOGVS", H " 123", 10, -1, "123 " Hr, XF_OK},
      {zfmlogvsr, "$LOGVSR", "(" H ")", 8, -1, "(" Hr ")", XF_OK},
      {zfmlogvs, "$LOGVS", ALEF BET " 12 " GIMEL DALET, 12, -1, DALET GIMEL " 12 " BET ALEF, XF_OK},
      {zfmlogvs, "$LOGVS", "AB " ALEF BET GIMEL " CD", 12, -1, "AB " GIMEL BET ALEF " CD", XF_OK},
      {zfmlogvsr, "$LOGVSR", "AB " ALEF BET GIMEL " CD", 12, -1, "CD " GIMEL BET ALEF " AB", XF_OK},
      {zfmbidi, "$BIDI", "abc 123 " H, 14, -1, Hr " 123 abc", XF_OK},
      {zfmbidi, "$BIDI", "ab c   ", 7, -1, "c ab   ", XF_OK},
      {zfmbidi, "$BIDI", "  ab  c", 7, -1, "  c  ab", XF_OK},
  };
  for (const row &r : rows) check(r);
}

TEST(bidi_formats, text_that_is_not_utf8_passes_through) {
  for (xf_routine routine : {zfmlogvs, zfmlogvsr, zfmvslog, zfmvslogr, zfmbidi}) {
    check({routine, "any", "\xE9\xE0", 4, -1, "\xE9\xE0  ", XF_OK});
    check({routine, "any", "\xE9\xE0 abc", 3, -1, "\xE9\xE0 ", XF_OK});
    check({routine, "any", "ab\xC0\x80", 4, -1, "ab\xC0\x80", XF_OK});  // overlong NUL
    check({routine, "any", "\xED\xA0\x80", 3, -1, "\xED\xA0\x80", XF_OK});  // a surrogate
  }
}

TEST(bidi_formats, widths_padding_and_capacity) {
  const row rows[] = {
      // Cut at w without splitting a character: the third letter needs two bytes.
      {zfmlogvs, "$LOGVS", H " text", 4, -1, "\xD7\xA8\xD7\xA4", XF_OK},
      {zfmlogvs, "$LOGVS", H " text", 5, -1, "\xD7\xA8\xD7\xA4 ", XF_OK},
      {zfmlogvsr, "$LOGVSR", H " text", 6, -1, "text  ", XF_OK},
      {zfmlogvs, "$LOGVS", "abc", 1, -1, "a", XF_OK},
      // The field cut to the capacity.
      {zfmlogvs, "$LOGVS", H " text", 10, 4, "\xD7\xA8\xD7\xA4", XF_E_CAPACITY},
      {zfmbidi, "$BIDI", "ab cd", 10, 3, "cd ", XF_E_CAPACITY},
      {zfmlogvs, "$LOGVS", "abc", 3, 0, "", XF_E_CAPACITY},
      // Empty value, zero and negative widths.
      {zfmlogvs, "$LOGVS", "", 3, -1, "   ", XF_OK},
      {zfmvslogr, "$VSLOGR", "    ", 3, -1, "   ", XF_OK},
      {zfmbidi, "$BIDI", "", 2, -1, "  ", XF_OK},
      {zfmlogvs, "$LOGVS", "abc", 0, 4, "", XF_OK},
      {zfmbidi, "$BIDI", "abc", -5, 4, "", XF_OK},
      // Trailing blanks are padding: the right-to-left line does not start with them.
      {zfmlogvsr, "$LOGVSR", H " text    ", 12, -1, "text " Hr " ", XF_OK},
      // Leading blanks are text: in a right-to-left paragraph they end the line.
      {zfmlogvsr, "$LOGVSR", "  " H, 8, -1, Hr "  ", XF_OK},
      {zfmvslogr, "$VSLOGR", Hr "  ", 8, -1, H "  ", XF_OK},  // and come back as padding
  };
  for (const row &r : rows) check(r);
}

TEST(bidi_formats, missing_input_is_an_empty_value) {
  for (xf_routine routine : {zfmlogvs, zfmlogvsr, zfmvslog, zfmvslogr, zfmbidi}) {
    frame_box b = frame_box::chars("", 3);
    b.f.input = nullptr;
    b.f.input_length = 50;  // must not be read
    EXPECT_EQ(routine(&b.f), XF_OK);
    EXPECT_EQ(b.str(), "   ");
  }
}

TEST(bidi_formats, brackets_numbers_and_mirroring) {
  const row rows[] = {
      {zfmlogvs, "$LOGVS", "a (" H ") b", 12, -1, "a (" Hr ") b", XF_OK},
      {zfmlogvs, "$LOGVS", ALEF " (1) " BET, 9, -1, BET " (1) " ALEF, XF_OK},
      {zfmlogvsr, "$LOGVSR", "a<b", 3, -1, "a<b", XF_OK},
      {zfmlogvsr, "$LOGVSR", ALEF "<" BET, 5, -1, BET ">" ALEF, XF_OK},  // "<" at level 1 shows mirrored
      {zfmlogvsr, "$LOGVSR", "1 < 2", 5, -1, "2 > 1", XF_OK},
      {zfmvslogr, "$VSLOGR", "2 > 1", 5, -1, "1 < 2", XF_OK},
      // Arabic digits after an Arabic letter stay in order.
      {zfmlogvs, "$LOGVS", "\xD8\xA7 12", 5, -1, "12 \xD8\xA7", XF_OK},
      {zfmbidi, "$BIDI", "(" H ") 12", 12, -1, "12 (" Hr ") ", XF_OK},
      {zfmbidi, "$BIDI", "(ab) 12", 7, -1, "12 (ab)", XF_OK},
      {zfmbidi, "$BIDI", "ab\tcd\nef", 8, -1, "ef\tcd\nab", XF_OK},  // tab and line feed are blanks
  };
  for (const row &r : rows) check(r);
}

TEST(bidi_formats, explicit_marks_stay_in_the_text) {
  // RLO ... PDF around Latin letters shows them right to left; the two marks
  // (three bytes each) are kept, next to the letters they enclose.
  frame_box b = frame_box::chars("\xE2\x80\xAE" "abc" "\xE2\x80\xAC", 9);
  EXPECT_EQ(zfmlogvs(&b.f), XF_OK);
  std::string s = b.str();
  EXPECT_NE(s.find("cba"), std::string::npos) << s;
  EXPECT_NE(s.find("\xE2\x80\xAE"), std::string::npos);
  EXPECT_NE(s.find("\xE2\x80\xAC"), std::string::npos);
}

TEST(bidi_formats, paragraphs_are_reordered_one_by_one) {
  check({zfmlogvs, "$LOGVS", ALEF BET "\n" GIMEL DALET, 9, -1, BET ALEF "\n" DALET GIMEL, XF_OK});
  check({zfmlogvs, "$LOGVS", ALEF BET "\xE2\x80\xA9" "cd", 9, -1, BET ALEF "\xE2\x80\xA9" "cd", XF_OK});
}

std::string utf16le(const std::u16string &s) {
  std::string out;
  for (char16_t u : s) {
    out += static_cast<char>(u & 0xFF);
    out += static_cast<char>(u >> 8);
  }
  return out;
}

std::string utf16be(const std::u16string &s) {
  std::string out;
  for (char16_t u : s) {
    out += static_cast<char>(u >> 8);
    out += static_cast<char>(u & 0xFF);
  }
  return out;
}

TEST(bidi_formats, utf16_in_utf16_out) {
  const std::u16string in = u"\u05E1\u05E4\u05E8 text";
  struct {
    uint32_t encoding;
    std::string bytes;
  } inputs[] = {{XF_ENC_UTF16LE, utf16le(in)}, {XF_ENC_UTF16BE, utf16be(in)}};
  for (auto &i : inputs) {
    frame_box b = frame_box::chars(i.bytes, 9, 0, 18);
    b.f.input_encoding = i.encoding;
    EXPECT_EQ(zfmlogvsr(&b.f), XF_OK);
    EXPECT_EQ(b.str(), utf16le(u"text \u05E8\u05E4\u05E1 ")) << i.encoding;
    EXPECT_EQ(b.f.output_encoding, XF_ENC_UTF16LE);
    EXPECT_EQ(b.f.output_length, 18u);
  }
  // A character beyond the BMP (a surrogate pair) moves as one and is never split.
  frame_box b = frame_box::chars(utf16le(u"\u05D0 \U0001F600"), 4, 0, 7);
  b.f.input_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(zfmlogvs(&b.f), XF_E_CAPACITY);
  EXPECT_EQ(b.str(), utf16le(u"\u05D0  "));
  EXPECT_EQ(b.f.output_length, 6u);
  // $BIDI on UTF-16, and an odd last byte that is no character.
  frame_box c = frame_box::chars(utf16le(u"ab \u05D0\u05D1") + "x", 6);
  c.f.output_capacity = 12;
  c.out.assign(12, 0xEE);
  c.f.output = c.out.data();
  c.f.input_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(zfmbidi(&c.f), XF_OK);
  EXPECT_EQ(c.str(), utf16le(u"\u05D1\u05D0 ab "));
}

TEST(bidi_formats, utf8_text_for_a_host_that_asks_for_utf16) {
  frame_box b = frame_box::chars(H " text", 8, 0, 16);
  b.f.requested_output_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(zfmlogvs(&b.f), XF_OK);
  EXPECT_EQ(b.str(), utf16le(u"\u05E8\u05E4\u05E1 text"));
  EXPECT_EQ(b.f.output_encoding, XF_ENC_UTF16LE);
}

TEST(bidi_formats, resolved_through_the_catalog) {
  const char *names[] = {"$LOGVS", "$LOGVSR", "$VSLOG", "$VSLOGR", "$BIDI"};
  for (const char *name : names) {
    void *h = nullptr;
    uint16_t block[8] = {};
    ASSERT_EQ(xfname(name, static_cast<int32_t>(std::strlen(name)), 0, block, &h), XF_OK) << name;
    EXPECT_EQ(block[0], 1u);
    EXPECT_EQ(block[1], 32767u);
    EXPECT_EQ(block[2], 1u);
    frame_box b = frame_box::chars("ab", 3);
    EXPECT_EQ(xffmt(&b.f, h), XF_OK) << name;
    EXPECT_EQ(b.str(), name == std::string("$BIDI") ? "ab " : "ab ") << name;
    xfdel(h);
  }
}

// Longer than the work arrays: pieces cut after a blank, nothing lost.
TEST(bidi_formats, text_longer_than_the_work_arrays) {
  std::string text, reversed_words;
  for (int i = 0; i < 1500; ++i) text += ALEF BET " ";
  text += "end";
  frame_box b = frame_box::chars(text, 32767);
  EXPECT_EQ(zfmlogvs(&b.f), XF_OK);
  std::string s = b.str();
  ASSERT_EQ(s.size(), 32767u);
  size_t used = s.find_last_not_of(' ') + 1;
  EXPECT_EQ(used, text.size());
  std::string in_sorted = text, out_sorted = s.substr(0, used);
  std::sort(in_sorted.begin(), in_sorted.end());
  std::sort(out_sorted.begin(), out_sorted.end());
  EXPECT_EQ(in_sorted, out_sorted);
  // Every word is still reversed on its own: no BET ALEF pair was split.
  EXPECT_EQ(s.find(ALEF BET), std::string::npos);
}

// $BIDI turned twice gives the text back, for random lines of words that
// each keep to one script (a word mixing scripts reads its direction from
// its first strong letter, which reversal changes). Seeded: the seed is
// printed, XFMT_SEED replays it.
TEST(bidi_formats, random_lines_turn_back) {
  const char *latin[] = {"a", "b", "x", "Q"};
  const char *hebrew[] = {ALEF, BET, GIMEL, DALET};
  const char *other[] = {"1", "2", "(", ")", "[", "]", "-", ".", ","};
  auto g = xfmt::test::rng(0xB1D1);
  const uint64_t cases = xfmt::test::scaled(20000);
  for (uint64_t c = 0; c < cases; ++c) {
    std::string text;
    const uint32_t words = 1 + static_cast<uint32_t>(g() % 6);
    for (uint32_t w = 0; w < words; ++w) {
      text += std::string(1 + g() % 2, ' ');
      const bool rtl = g() % 2;
      for (uint32_t k = 0, len = 1 + static_cast<uint32_t>(g() % 4); k < len; ++k)
        text += g() % 4 ? (rtl ? hebrew : latin)[g() % 4] : other[g() % 9];
    }
    const int32_t w = static_cast<int32_t>(text.size());
    frame_box once = frame_box::chars(text, w);
    ASSERT_EQ(zfmbidi(&once.f), XF_OK);
    frame_box twice = frame_box::chars(once.str(), w);
    ASSERT_EQ(zfmbidi(&twice.f), XF_OK);
    ASSERT_EQ(twice.str(), text) << "case " << c;
  }
}

}  // namespace
