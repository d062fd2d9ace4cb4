// UTF-32 round trips: every byte of each code page, every code point
// through UTF-16 (the single calls are in tests/data/text/conversions.txt).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

// Every byte of every page through UTF-32 and back.
TEST(convert_os_utf32, every_byte_of_each_page_round_trips) {
  const uint32_t ids[] = {34, 66, 36, 65, 28};
  const uint16_t *pages[] = {arabunic, waraunic, hebrunic, whebunic, ansiunic};
  for (int p = 0; p < 5; ++p) {
    for (uint32_t order : {24u, 25u}) {
      uint8_t all[256];
      for (int i = 0; i < 256; ++i) all[i] = static_cast<uint8_t>(i);
      std::vector<uint8_t> wide(1024);
      uint32_t len = 0;
      ASSERT_EQ(ConvertOSToUTF32(ids[p], order, all, 256, wide.data(), 1024, &len), 0u);
      ASSERT_EQ(len, 1024u);
      std::vector<uint8_t> back(256);
      ASSERT_EQ(ConvertOSFromUTF32(ids[p], order, wide.data(), 1024, back.data(), 256, &len), 0u);
      ASSERT_EQ(len, 256u);
      for (int i = 0; i < 256; ++i) {
        if (pages[p][i] == 0xFFFD) EXPECT_EQ(back[static_cast<size_t>(i)], '?') << ids[p] << " " << i;
        else EXPECT_EQ(back[static_cast<size_t>(i)], i) << ids[p] << " " << i;
      }
    }
  }
}

TEST(utf32_utf16, every_code_point_round_trips_both_orders) {
  uint8_t buf[4];
  for (uint32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    uint32_t n = 0, back = 0, used = 0;
    ASSERT_EQ(UTF32_UTF16(c, buf, 4, &n), 0u);
    ASSERT_EQ(n, c < 0x10000 ? 2u : 4u);
    ASSERT_EQ(UTF16_UTF32(buf, n, &back, &used), 0u);
    ASSERT_EQ(back, c);
    ASSERT_EQ(UTF32_UTF16_SWAP(c, buf, 4, &n), 0u);
    ASSERT_EQ(UTF16_UTF32_SWAP(buf, n, &back, &used), 0u);
    ASSERT_EQ(back, c);
    ASSERT_EQ(used, n);
  }
}

}  // namespace
