// The ASCII/Latin-1 <-> EBCDIC tables (the translations in place are rows
// of tests/data/text/conversions.txt).
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

}  // namespace
