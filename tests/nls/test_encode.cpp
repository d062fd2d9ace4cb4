// The national output encoder: escapes, the currency marker, UTF-16, cutting
// to the width, the capacity; and the same bytes as the literal encoder over
// random texts in an ASCII and a UTF-8 codeset.
#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>

#include "nls/nl_encode.hpp"
#include "oracle/nls_encode_oracle.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"
#include "core/platform.hpp"

namespace {

using xfmt::nls::encode_text;

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

struct codeset_scope {
  std::string saved;
  explicit codeset_scope(const char *name) {
    saved = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, name);
    xfmt::platform::reload_environment();  // the codeset is read once
  }
  ~codeset_scope() {
    std::setlocale(LC_ALL, saved.c_str());
    xfmt::platform::reload_environment();
  }
};

TEST(encode, ascii_fits_cut_and_capacity) {
  EXPECT_EQ(run("abc", 5).result, -2);
  EXPECT_EQ(run("abc", 5).bytes, "abc");
  EXPECT_EQ(run("abcdef", 4).result, xfmt::nls::encode_shortened);
  EXPECT_EQ(run("abcdef", 4).bytes, "abcd");
  EXPECT_EQ(run("abc", 3).result, 0);
  EXPECT_EQ(run("abc", 5, 2).result, xfmt::nls::encode_no_room);
  EXPECT_EQ(run("", 4).result, -4);
}

TEST(encode, escapes_in_utf8) {
  codeset_scope c("C.UTF-8");
  EXPECT_EQ(run("M<U00E4>rz", 10).bytes, "M\xC3\xA4rz");
  EXPECT_EQ(run("M<u00e4>rz", 10).bytes, "M\xC3\xA4rz");
  EXPECT_EQ(run("M<U00E4>rz", 10).result, 5 - 10);  // bytes, not characters
  EXPECT_EQ(run("<U20AC>", 2).result, xfmt::nls::encode_shortened);
  EXPECT_EQ(run("<U20AC>", 2).bytes, "");
  EXPECT_EQ(run("a<U20AC>", 3).bytes, "a");
  EXPECT_EQ(run("<U00A4>", 4).bytes, std::string(1, '\x01'));  // the currency marker
  EXPECT_EQ(run("<UZZZZ>", 7).bytes, "<UZZZZ>");               // not an escape
  EXPECT_EQ(run("\xE9t\xE9", 8).bytes, "\xC3\xA9t\xC3\xA9");   // bytes read as Latin-1
}

TEST(encode, escapes_in_an_ascii_codeset) {
  codeset_scope c("C");
  EXPECT_EQ(run("M<U00E4>rz", 10).bytes, "M?rz");
  EXPECT_EQ(run("<U65E5><U672C>", 10).bytes, "??");
  EXPECT_TRUE(xfmt::nls::representable(false, "US$"));
  EXPECT_FALSE(xfmt::nls::representable(false, "<U20AC>"));
  EXPECT_TRUE(xfmt::nls::representable(true, "<U20AC>"));
}

TEST(encode, utf16_counts_units_and_bytes) {
  enc e = run("M<U00E4>rz", 10, 64, true);
  EXPECT_EQ(e.result, 4 - 10);
  std::u16string want = u"M\u00E4rz";
  ASSERT_EQ(e.bytes.size(), 8u);
  EXPECT_EQ(std::memcmp(e.bytes.data(), want.data(), 8), 0);
  EXPECT_EQ(run("abcdef", 3, 64, true).result, xfmt::nls::encode_shortened);
  EXPECT_EQ(run("abc", 3, 5, true).result, xfmt::nls::encode_no_room);
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
