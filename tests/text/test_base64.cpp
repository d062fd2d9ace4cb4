// Base64 encoder, decoder and the $BASE64X format.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "oracle/text_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

struct enc {
  std::string text;
  int32_t result;
  std::vector<char> buf;
};

enc encode(const std::string &in, int32_t capacity, bool breaks) {
  enc e;
  e.buf.assign(static_cast<size_t>(capacity), '#');
  uint32_t len = 0;
  e.result = encode_base64(reinterpret_cast<const uint8_t *>(in.data()), static_cast<int32_t>(in.size()),
                           e.buf.empty() ? reinterpret_cast<char *>(&len) : e.buf.data(), capacity, &len,
                           breaks ? 1 : 0);
  if (e.result == 0) e.text.assign(e.buf.data(), len);
  return e;
}

int32_t need(size_t n, bool breaks) {
  int32_t size = static_cast<int32_t>((n + 2) / 3 * 4);
  return breaks ? size + size / 76 + 2 : size;
}

// Null pointers and a negative length are refused, the length left as it
// was (empty input and a capacity too small are rows of
// tests/data/text/conversions.txt).
TEST(base64, refuses_null_pointers_and_negative_lengths) {
  const auto *a = reinterpret_cast<const uint8_t *>("a");
  char text[8];
  uint8_t bytes[4];
  uint32_t len = 7;
  EXPECT_EQ(encode_base64(nullptr, 1, text, 8, &len, 0), -1);
  EXPECT_EQ(encode_base64(a, 1, nullptr, 8, &len, 0), -1);
  EXPECT_EQ(encode_base64(a, 1, text, 8, nullptr, 0), -1);
  EXPECT_EQ(encode_base64(a, -1, text, 8, &len, 0), -1);
  EXPECT_EQ(decode_base64(nullptr, 4, bytes, 4, &len), -1);
  EXPECT_EQ(decode_base64("YQ==", 4, nullptr, 4, &len), -1);
  EXPECT_EQ(decode_base64("YQ==", 4, bytes, 4, nullptr), -1);
  EXPECT_EQ(len, 7u);
}

TEST(encode_base64, random_data_matches_the_oracle_and_round_trips) {
  auto g = xfmt::test::rng(91);
  const uint64_t cases = xfmt::test::scaled(2000);
  for (uint64_t c = 0; c < cases; ++c) {
    std::string in(g() % 300, '\0');
    for (auto &ch : in) ch = static_cast<char>(g());
    const bool breaks = g() & 1;
    enc e = encode(in, need(in.size(), breaks), breaks);
    ASSERT_EQ(e.result, 0);
    ASSERT_EQ(e.text, xfmt::oracle::base64_encode(in, breaks)) << "case " << c;
    std::vector<uint8_t> back(in.size());
    uint32_t len = 0;
    ASSERT_EQ(decode_base64(e.text.data(), static_cast<int32_t>(e.text.size()),
                            back.empty() ? reinterpret_cast<uint8_t *>(&len) : back.data(),
                            static_cast<int32_t>(back.size()), &len),
              0);
    ASSERT_EQ(std::string(back.begin(), back.begin() + len), in) << "case " << c;
  }
}

TEST(decode_base64, random_text_matches_the_oracle) {
  auto g = xfmt::test::rng(92);
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/ \n\r\t*-";
  const uint64_t cases = xfmt::test::scaled(2000);
  for (uint64_t c = 0; c < cases; ++c) {
    std::string text(g() % 100, 'A');
    for (auto &ch : text) ch = alphabet[g() % alphabet.size()];
    std::vector<uint8_t> out(81, 0xEE);  // one guard byte
    uint32_t len = 0;
    decode_base64(text.data(), static_cast<int32_t>(text.size()), out.data(), 80, &len);
    ASSERT_EQ(std::string(out.begin(), out.begin() + len), xfmt::oracle::base64_decode(text)) << text;
    ASSERT_EQ(out[80], 0xEE) << "wrote past the capacity";
  }
}

TEST(base64tab_and_index, agree) {
  EXPECT_EQ(std::string(base64tab), "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
  int mapped = 0;
  for (int b = 0; b < 256; ++b) {
    if (base64idx[b] == 255) continue;
    ++mapped;
    EXPECT_EQ(base64tab[base64idx[b]], b);
  }
  EXPECT_EQ(mapped, 64);
}

using xfmt::test::frame_box;

TEST(base64x_format, too_long_blank_fills_from_the_entry_length) {
  frame_box b = frame_box::chars("abcd", 6);
  b.f.output_length = 2;
  std::fill(b.out.begin(), b.out.end(), 'x');
  EXPECT_EQ(zfmb64x(&b.f), XF_OK);
  EXPECT_EQ(b.buffer(), "xx    ");
}

}  // namespace
