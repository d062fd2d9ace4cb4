// Transcoding between encodings and case mapping over the whole BMP (the
// single calls are in tests/data/text/conversions.txt).
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
