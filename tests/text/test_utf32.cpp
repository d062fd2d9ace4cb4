// UTF-32 storage, the UTF-32 drivers and UTF-16 surrogate handling.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

using bytes_t = std::vector<uint8_t>;

bytes_t b(std::initializer_list<int> v) {
  bytes_t r;
  for (int x : v) r.push_back(static_cast<uint8_t>(x));
  return r;
}

TEST(copy_utf32, byte_orders_and_small_space) {
  uint8_t out[4] = {1, 2, 3, 4};
  uint32_t n = 9;
  EXPECT_EQ(COPY_UTF32(0x1F600, out, 4, &n), 0u);
  EXPECT_EQ(bytes_t(out, out + 4), b({0x00, 0x01, 0xF6, 0x00}));
  EXPECT_EQ(COPY_UTF32_SWAP(0x1F600, out, 4, &n), 0u);
  EXPECT_EQ(bytes_t(out, out + 4), b({0x00, 0xF6, 0x01, 0x00}));
  EXPECT_EQ(n, 4u);
  uint8_t keep[3] = {7, 7, 7};
  EXPECT_EQ(COPY_UTF32(0x41, keep, 3, &n), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(n, 0u);
  EXPECT_EQ(COPY_UTF32_SWAP(0x41, keep, 3, &n), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(bytes_t(keep, keep + 3), b({7, 7, 7}));
}

TEST(convert_to_utf32, utf8_driver) {
  const std::string s = "a\xC3\xA9\xE2\x82\xAC";
  std::vector<uint8_t> out(12);
  uint32_t len = 99;
  EXPECT_EQ(ConvertToUTF32(reinterpret_cast<const uint8_t *>(s.data()), 6, out.data(), 12, &len,
                           UTF8_UTF32, COPY_UTF32_SWAP),
            0u);
  EXPECT_EQ(len, 12u);
  EXPECT_EQ(out, b({0x61, 0, 0, 0, 0xE9, 0, 0, 0, 0xAC, 0x20, 0, 0}));
  // Room for two code points: the third character is never decoded.
  std::vector<uint8_t> small(9);
  EXPECT_EQ(ConvertToUTF32(reinterpret_cast<const uint8_t *>(s.data()), 6, small.data(), 9, &len,
                           UTF8_UTF32, COPY_UTF32),
            0u);
  EXPECT_EQ(len, 8u);
  // A bad byte stops the conversion with the decoder's result.
  const std::string bad = "ab\x80z";
  EXPECT_EQ(ConvertToUTF32(reinterpret_cast<const uint8_t *>(bad.data()), 4, out.data(), 12, &len,
                           UTF8_UTF32, COPY_UTF32),
            XF_TX_BAD_LEAD);
  EXPECT_EQ(len, 8u);
  EXPECT_EQ(ConvertToUTF32(nullptr, 0, out.data(), 12, &len, UTF8_UTF32, COPY_UTF32), 0u);
  EXPECT_EQ(len, 0u);
}

TEST(convert_os_to_utf32, hebrew_to_little_endian) {
  const uint8_t in[] = {0xE0};
  uint8_t out[4];
  uint32_t len = 0;
  EXPECT_EQ(ConvertOSToUTF32(36, 25, in, 1, out, 4, &len), 0u);
  EXPECT_EQ(len, 4u);
  EXPECT_EQ(bytes_t(out, out + 4), b({0xD0, 0x05, 0x00, 0x00}));
  EXPECT_EQ(ConvertOSToUTF32(36, 26, in, 1, out, 4, &len), 0u);
  EXPECT_EQ(bytes_t(out, out + 4), b({0x00, 0x00, 0x05, 0xD0}));
}

TEST(convert_os_to_utf32, table_choice_and_capacity) {
  const uint8_t in[] = {0xE0, 0xE1, 0x41};
  std::vector<uint8_t> out(8);
  uint32_t len = 0;
  EXPECT_EQ(ConvertOSToUTF32(34, 24, in, 3, out.data(), 8, &len), 0u);  // room for two
  EXPECT_EQ(len, 8u);
  EXPECT_EQ(out, b({0, 0, 0x06, 0x40, 0, 0, 0x06, 0x41}));
  EXPECT_EQ(ConvertOSToUTF32(62, 24, in, 1, out.data(), 8, &len), 0u);  // unknown here: ASCII
  EXPECT_EQ(bytes_t(out.begin(), out.begin() + 4), b({0, 0, 0xFF, 0xFD}));
}

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

TEST(convert_os_from_utf32, results) {
  const uint8_t euro_le[] = {0xAC, 0x20, 0, 0, 0x41, 0, 0, 0, 0x42};
  uint8_t out[2] = {0, 0};
  uint32_t len = 0;
  EXPECT_EQ(ConvertOSFromUTF32(36, 25, euro_le, 8, out, 2, &len), 0u);
  EXPECT_EQ(len, 2u);
  EXPECT_EQ(out[0], '?');  // ISO Hebrew has no euro sign
  EXPECT_EQ(out[1], 'A');
  EXPECT_EQ(ConvertOSFromUTF32(36, 25, euro_le, 8, out, 1, &len), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(len, 1u);
  EXPECT_EQ(ConvertOSFromUTF32(36, 25, euro_le, 9, out, 2, &len), XF_TX_CUT_OFF);
  EXPECT_EQ(len, 2u);
}

TEST(utf16_utf32, surrogate_pairs_and_bad_units) {
  uint32_t cp = 0, used = 0;
  const uint8_t pair_be[] = {0xD8, 0x3D, 0xDE, 0x00};
  EXPECT_EQ(UTF16_UTF32(pair_be, 4, &cp, &used), 0u);
  EXPECT_EQ(cp, 0x1F600u);
  EXPECT_EQ(used, 4u);
  const uint8_t pair_le[] = {0x3D, 0xD8, 0x00, 0xDE};
  EXPECT_EQ(UTF16_UTF32_SWAP(pair_le, 4, &cp, &used), 0u);
  EXPECT_EQ(cp, 0x1F600u);
  EXPECT_EQ(UTF16_UTF32(pair_be, 3, &cp, &used), XF_TX_CUT_OFF);
  EXPECT_EQ(used, 3u);
  EXPECT_EQ(UTF16_UTF32(pair_be, 1, &cp, &used), XF_TX_CUT_OFF);
  EXPECT_EQ(used, 1u);
  const uint8_t lone_low[] = {0xDE, 0x00, 0x00, 0x41};
  EXPECT_EQ(UTF16_UTF32(lone_low, 4, &cp, &used), XF_TX_BAD_LEAD);
  EXPECT_EQ(cp, 0xFFFDu);
  EXPECT_EQ(used, 2u);
  const uint8_t high_then_a[] = {0xD8, 0x00, 0x00, 0x41};
  EXPECT_EQ(UTF16_UTF32(high_then_a, 4, &cp, &used), XF_TX_BAD_LEAD);
  EXPECT_EQ(used, 2u);  // the 'A' stays for the next call
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

TEST(utf32_utf16, limits) {
  uint8_t buf[4];
  uint32_t n = 9;
  EXPECT_EQ(UTF32_UTF16(0x110000, buf, 4, &n), XF_TX_BAD_LEAD);
  EXPECT_EQ(n, 0u);
  EXPECT_EQ(UTF32_UTF16(0x10000, buf, 3, &n), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(UTF32_UTF16(0xDC00, buf, 2, &n), 0u);  // a lone surrogate value is stored as is
  EXPECT_EQ(n, 2u);
}

TEST(utf32_utf16s, whole_texts) {
  const uint8_t be[] = {0, 0, 0, 0x41, 0, 0x01, 0xF6, 0x00};
  std::vector<uint8_t> out(6);
  uint32_t len = 0;
  EXPECT_EQ(UTF32_UTF16s(be, 8, out.data(), 6, &len), 0u);
  EXPECT_EQ(len, 6u);
  EXPECT_EQ(out, b({0, 0x41, 0xD8, 0x3D, 0xDE, 0x00}));
  const uint8_t le[] = {0x41, 0, 0, 0, 0x00, 0xF6, 0x01, 0};
  EXPECT_EQ(UTF32_UTF16s_SWAP(le, 8, out.data(), 6, &len), 0u);
  EXPECT_EQ(out, b({0x41, 0, 0x3D, 0xD8, 0x00, 0xDE}));
  EXPECT_EQ(UTF32_UTF16s_SWAP(le, 8, out.data(), 5, &len), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(len, 2u);
  EXPECT_EQ(UTF32_UTF16s(be, 7, out.data(), 6, &len), XF_TX_CUT_OFF);
  EXPECT_EQ(len, 2u);
}

TEST(convert_from_utf32, to_utf8) {
  const uint8_t be[] = {0, 0, 0x20, 0xAC, 0, 0, 0, 0x41};
  std::vector<uint8_t> out(4);
  uint32_t len = 0;
  EXPECT_EQ(ConvertFromUTF32(be, 8, 1, out.data(), 4, &len, UTF32_UTF8), 0u);
  EXPECT_EQ(out, b({0xE2, 0x82, 0xAC, 0x41}));
  EXPECT_EQ(ConvertFromUTF32(be, 8, 1, out.data(), 3, &len, UTF32_UTF8), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(len, 3u);
}

}  // namespace
