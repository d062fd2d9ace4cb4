// $QUOTE and $REVERJ against the oracle and $UPCASE over every byte (the
// tables of these formats, a missing input too, are in tests/data/text).
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "oracle/spelled_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// $QUOTE (on texts of quotes and blanks) and $REVERJ (on printable ASCII)
// against their literal versions.
TEST(QuoteReverj, AgainstOracle) {
  const struct {
    xf_routine routine;
    std::string (*oracle)(const std::string &, int32_t);
    std::string alphabet;
    int min_width;
  } formats[] = {{zfmquote, xfmt::oracle::quote, "a\" Z", 2}, {zfmreverj, xfmt::oracle::reverj, "", 1}};
  auto g = xfmt::test::rng(301);
  for (const auto &fmt : formats) {
    std::uniform_int_distribution<int> len(0, 20), byte(32, 126), wd(fmt.min_width, 30);
    for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
      std::string s;
      for (int n = len(g); n > 0; --n)
        s += fmt.alphabet.empty() ? static_cast<char>(byte(g)) : fmt.alphabet[static_cast<size_t>(byte(g)) % 4];
      const int32_t w = wd(g);
      frame_box b = frame_box::chars(s, w);
      ASSERT_EQ(fmt.routine(&b.f), XF_OK);
      ASSERT_EQ(b.str(), fmt.oracle(s, w)) << "'" << s << "' " << w << " seed " << xfmt::test::test_seed();
    }
  }
}

// Every byte against the Unicode upper case of its character: the byte of
// the capital when the code page has it, else the byte itself.
TEST(Upcase, EveryByteFollowsUnicode) {
  for (int b = 0; b < 256; ++b) {
    uint16_t u = wlt1unic[b];
    ASSERT_EQ(UPCASE(&u, 1), XF_OK);
    int want = b;
    for (int c = 0; c < 256; ++c)
      if (wlt1unic[c] == u && u != wlt1unic[b]) want = c;
    const char in[1] = {static_cast<char>(b)};
    frame_box f = frame_box::chars(std::string(in, 1), 1);
    ASSERT_EQ(zfmupcase(&f.f), XF_OK);
    EXPECT_EQ(static_cast<unsigned char>(f.str()[0]), want) << "byte " << b;
  }
}

}  // namespace
