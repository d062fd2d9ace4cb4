// The generated single-byte code pages.
#include <gtest/gtest.h>


#include "xfmt/xfmt.h"

namespace {

TEST(codepages, anchors) {
  EXPECT_EQ(arabunic[0xE0], 0x0640);
  EXPECT_EQ(hebrunic[0xE0], 0x05D0);
  EXPECT_EQ(hebrunic[0xFA], 0x05EA);
  EXPECT_EQ(whebunic[0xE0], 0x05D0);
  EXPECT_EQ(waraunic[0xC7], 0x0627);
  EXPECT_EQ(wlt1unic[0x80], 0x20AC);
  EXPECT_EQ(wlt1unic[0x9F], 0x0178);
  for (int b = 0x80; b < 0x100; ++b) EXPECT_EQ(ansiunic[b], 0xFFFD) << b;
}

// The five holes of Windows-1252 are the C1 controls; every other byte of
// 0x80-0x9F is a printing character; from 0xA0 on it is Latin-1.
TEST(codepages, windows_latin1_holes_are_c1_controls_and_the_rest_is_latin1_from_0xA0) {
  for (int b = 0x80; b < 0x100; ++b) {
    const bool latin1 = b >= 0xA0 || b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D;
    if (latin1) EXPECT_EQ(wlt1unic[b], b) << b;
    else EXPECT_GE(wlt1unic[b], 0x100) << b;
  }
}

// Every table keeps ASCII as it is and maps no two bytes to one character.
TEST(codepages, ascii_identity_and_no_two_bytes_to_one_character) {
  for (const uint16_t *t : {arabunic, waraunic, hebrunic, whebunic, ansiunic, wlt1unic}) {
    for (int a = 0; a < 256; ++a) {
      EXPECT_TRUE(a >= 0x80 || t[a] == a) << a;
      if (t[a] == 0xFFFD) continue;
      for (int b = a + 1; b < 256; ++b) ASSERT_NE(t[a], t[b]) << a << " " << b;
    }
  }
}

}  // namespace
