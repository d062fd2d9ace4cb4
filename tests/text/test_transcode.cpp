// Transcoding between encodings, character counting and case mapping.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

TEST(transcode, random_code_points_survive_every_unicode_pair) {
  auto g = xfmt::test::rng(81);
  const uint32_t ids[] = {20, 24, 25, 26, 27};
  const uint64_t cases = xfmt::test::scaled(300);
  for (uint64_t c = 0; c < cases; ++c) {
    std::vector<uint8_t> u32;
    for (int i = 0; i < 20; ++i) {
      uint32_t cp = static_cast<uint32_t>(g() % 0x110000);
      if (cp >= 0xD800 && cp <= 0xDFFF) cp = 0x41;
      uint8_t w[4];
      uint32_t n = 0;
      COPY_UTF32(cp, w, 4, &n);
      u32.insert(u32.end(), w, w + 4);
    }
    for (uint32_t mid : ids) {
      uint8_t there[200], back[80];
      uint32_t len = 0, back_len = 0, used = 0;
      ASSERT_EQ(sanlsTranscodeUnicode(26, u32.data(), 80, mid, there, 200, &len, &used), 0u);
      ASSERT_EQ(sanlsTranscodeUnicode(mid, there, len, 26, back, 80, &back_len, &used), 0u);
      ASSERT_EQ(std::vector<uint8_t>(back, back + back_len), u32) << "via " << mid << " case " << c;
    }
  }
}

TEST(casing, pairs_round_trip) {
  const std::u16string upper = u"ABZ\u00C0\u00DE\u0100\u0139\u017D\u0391\u03A3\u0386\u038F\u0410\u042F\u0400\u0531\uFF21\u0178";
  const std::u16string lower = u"abz\u00E0\u00FE\u0101\u013A\u017E\u03B1\u03C3\u03AC\u03CE\u0430\u044F\u0450\u0561\uFF41\u00FF";
  std::u16string t = upper;
  EXPECT_EQ(LOWCASE(reinterpret_cast<uint16_t *>(t.data()), static_cast<uint32_t>(t.size())), 0u);
  EXPECT_EQ(t, lower);
  EXPECT_EQ(UPCASE(reinterpret_cast<uint16_t *>(t.data()), static_cast<uint32_t>(t.size())), 0u);
  EXPECT_EQ(t, upper);
  std::u16string untouched = u"1 \u00D7\u00F7\u00DF\u05D0\u4E2D";
  std::u16string copy = untouched;
  UPCASE(reinterpret_cast<uint16_t *>(copy.data()), static_cast<uint32_t>(copy.size()));
  EXPECT_EQ(copy, untouched);
  LOWCASE(reinterpret_cast<uint16_t *>(copy.data()), static_cast<uint32_t>(copy.size()));
  EXPECT_EQ(copy, untouched);
  std::u16string sigma = u"\u03C2";
  UPCASE(reinterpret_cast<uint16_t *>(sigma.data()), 1);
  EXPECT_EQ(sigma, u"\u03A3");
}

TEST(casing, upper_of_lower_is_stable_over_the_bmp) {
  for (uint32_t u = 0; u <= 0xFFFF; ++u) {
    uint16_t a = static_cast<uint16_t>(u);
    UPCASE(&a, 1);
    uint16_t b = a;
    UPCASE(&b, 1);
    ASSERT_EQ(a, b) << u;  // upper-casing twice changes nothing
    uint16_t c = static_cast<uint16_t>(u);
    LOWCASE(&c, 1);
    uint16_t d = c;
    LOWCASE(&d, 1);
    ASSERT_EQ(c, d) << u;
  }
}

}  // namespace
