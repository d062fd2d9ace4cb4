// $LOGVS, $LOGVSR, $VSLOG, $VSLOGR and $BIDI beyond their table in
// tests/data/text (a missing input too): text longer than the work arrays
// and random lines turned twice.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

#define ALEF "\xD7\x90"
#define BET "\xD7\x91"
#define GIMEL "\xD7\x92"
#define DALET "\xD7\x93"

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
