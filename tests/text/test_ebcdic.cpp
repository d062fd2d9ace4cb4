// The ASCII/Latin-1 <-> EBCDIC tables and translations.
#include <gtest/gtest.h>

#include <string>

#include "text/ebcdic.hpp"
#include "xfmt/xfmt.h"

namespace {

TEST(ebcdic, tables_are_inverse_permutations) {
  bool seen[256] = {};
  for (int b = 0; b < 256; ++b) {
    EXPECT_FALSE(seen[as2eb[b]]) << b;
    seen[as2eb[b]] = true;
    EXPECT_EQ(eb2as[as2eb[b]], b);
    EXPECT_EQ(as2eb[eb2as[b]], b);
  }
}

TEST(ebcdic, both_copies_are_equal) {
  for (int b = 0; b < 256; ++b) {
    EXPECT_EQ(xfmt::text::wz_atoe[b], as2eb[b]);
    EXPECT_EQ(xfmt::text::wz_etoa[b], eb2as[b]);
  }
}

TEST(ebcdic, translations_in_place) {
  uint8_t text[] = {'[', 'A', '\n', ']', '^'};
  zas2eb(text, 5);
  const uint8_t want[] = {0xAD, 0xC1, 0x15, 0xBD, 0x5F};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(text[i], want[i]);
  zeb2as(text, 5);
  EXPECT_EQ(std::string(reinterpret_cast<char *>(text), 5), "[A\n]^");
  wztxatoe(text, 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(text[i], want[i]);
  wztxetoa(text, 5);
  EXPECT_EQ(std::string(reinterpret_cast<char *>(text), 5), "[A\n]^");
  wztxatoe(text, 0);
  wztxatoe(text, -3);
  EXPECT_EQ(std::string(reinterpret_cast<char *>(text), 5), "[A\n]^");
}

}  // namespace
