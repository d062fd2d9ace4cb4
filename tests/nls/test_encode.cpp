// The national output encoder: escapes, the currency marker, UTF-16, cutting
// to the width, the capacity; and the same bytes as the literal encoder over
// random texts in an ASCII and a UTF-8 codeset.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "nls/nl_encode.hpp"
#include "oracle/nls_encode_oracle.hpp"
#include "support/cases.hpp"
#include "support/random.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::nls::encode_text;
using xfmt::test::codeset_scope;

struct enc {
  int result;
  std::string bytes;
};

enc run(const std::string &t, int w, uint32_t cap = 64, bool utf16 = false) {
  char out[256];
  uint32_t n = 0;
  int r = encode_text(utf16, t.data(), t.size(), w, out, cap, &n);
  return {r, std::string(out, n)};
}

TEST(encode, texts_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("nls/encode.txt")) {
    codeset_scope c(r[1].c_str());
    const enc e = run(xfmt::test::unescaped(r[2]), std::stoi(r[3]), static_cast<uint32_t>(std::stoul(r[4])), r[5] == "1");
    if (r[6] != "*") {
      const int want = r[6] == "shortened" ? xfmt::nls::encode_shortened
                       : r[6] == "no_room" ? xfmt::nls::encode_no_room
                                           : std::stoi(r[6]);
      EXPECT_EQ(e.result, want) << r[0];
    }
    if (r[7] != "*") {
      EXPECT_EQ(e.bytes, xfmt::test::unescaped(r[7])) << r[0];
    }
  }
}

TEST(encode, exported_entry_converts_in_place) {
  codeset_scope c("C.UTF-8");
  char buf[32] = "1. M<U00E4>rz 1960";
  int32_t len = static_cast<int32_t>(std::strlen(buf));
  xf_frame f{};
  EXPECT_EQ(getExpResultFromNarrowCharBuf(&f, buf, &len, 20, 32), 13 - 20);
  EXPECT_EQ(std::string(buf, static_cast<size_t>(len)), "1. M\xC3\xA4rz 1960");
  f.requested_output_encoding = XF_ENC_UTF16LE;
  char small[32] = "abcdef";
  len = 6;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(&f, small, &len, 6, 8), xfmt::nls::encode_no_room);
  EXPECT_EQ(std::string(small, 6), "abcdef");  // untouched
}

std::string random_text(std::mt19937_64 &g) {
  static const char *pieces[] = {"a",       "Z",       " ",       "1",       ".",
                                 "<U00E4>", "<U20AC>", "<U65E5>", "<u00e9>", "<U00A4>",
                                 "\xE9",    "\xA0",    "<",       "<UXYZ1>", "%"};
  std::uniform_int_distribution<int> len(0, 12), pick(0, 14);
  std::string t;
  for (int i = len(g); i > 0; --i) t += pieces[pick(g)];
  return t;
}

void differential(const char *codeset, uint64_t salt) {
  codeset_scope c(codeset);
  auto g = xfmt::test::rng(salt);
  std::uniform_int_distribution<int> width(0, 30), cap(0, 40);
  const uint64_t n = xfmt::test::scaled(3000);
  for (uint64_t i = 0; i < n; ++i) {
    std::string t = random_text(g);
    int w = width(g);
    uint32_t capacity = static_cast<uint32_t>(cap(g));
    xfmt::oracle::encoded_text want = xfmt::oracle::encode_literally(t, w, capacity);
    enc got = run(t, w, capacity);
    ASSERT_EQ(got.result, want.result) << codeset << " [" << t << "] w" << w << " cap" << capacity;
    if (want.result != xfmt::nls::encode_no_room) {
      ASSERT_EQ(got.bytes, want.bytes) << t;
    }
  }
}

TEST(encode, same_bytes_as_the_literal_encoder_ascii_codeset) { differential("C", 0xa5c); }
TEST(encode, same_bytes_as_the_literal_encoder_utf8_codeset) { differential("C.UTF-8", 0x8f8); }

}  // namespace
