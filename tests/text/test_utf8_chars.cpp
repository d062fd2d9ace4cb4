// Every code point through UTF-8 and the legality check, and the UTF-8
// tables (the single calls are in tests/data/text/conversions.txt).
#include <gtest/gtest.h>

#include <string>

#include "xfmt/xfmt.h"

namespace {

TEST(utf8_utf32, every_code_point_round_trips_and_is_legal) {
  uint8_t buf[4];
  for (uint32_t cp = 0; cp <= 0x10FFFF; ++cp) {
    uint32_t n = 0;
    ASSERT_EQ(UTF32_UTF8(cp, buf, 4, &n), 0u);
    uint32_t back = 0, used = 0;
    ASSERT_EQ(UTF8_UTF32(buf, n, &back, &used), 0u) << cp;
    ASSERT_EQ(back, cp);
    ASSERT_EQ(used, n);
    ASSERT_EQ(bytesFromUTF8[buf[0]], n);
    int32_t bad = -1;
    const int32_t legal = isLegalUTF8(buf, static_cast<int32_t>(n), &bad);
    const bool surrogate = cp >= 0xD800 && cp <= 0xDFFF;
    ASSERT_EQ(legal, surrogate ? 0 : 1) << cp;
    ASSERT_EQ(bad, static_cast<int32_t>(n));
  }
}

TEST(utf8_tables, every_byte) {
  for (unsigned b = 0; b < 256; ++b) {
    const unsigned len = b < 0xC0 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : b < 0xF8 ? 4 : b < 0xFC ? 5 : 6;
    EXPECT_EQ(bytesFromUTF8[b], len) << b;
    EXPECT_EQ(valid_1st_utf8[b], (b < 0x80 || (b >= 0xC2 && b <= 0xF4)) ? 1 : 0) << b;
    EXPECT_EQ(valid_2nd_utf8[b], (b >= 0x80 && b <= 0xBF) ? 1 : 0) << b;
  }
  const uint8_t masks[7] = {0, 0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};
  for (int n = 1; n <= 6; ++n) EXPECT_EQ(utf8_mask[n], masks[n]);
}

}  // namespace
