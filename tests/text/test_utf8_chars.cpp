// One UTF-8 character at a time, the UTF-8 tables and the legality check.
#include <gtest/gtest.h>

#include <string>

#include "xfmt/xfmt.h"

namespace {

const uint8_t *bytes(const std::string &s) { return reinterpret_cast<const uint8_t *>(s.data()); }

struct decoded {
  uint32_t cp, used, result;
};
decoded decode(const std::string &s) {
  decoded d{0, 0, 0};
  d.result = UTF8_UTF32(bytes(s), static_cast<uint32_t>(s.size()), &d.cp, &d.used);
  return d;
}

TEST(utf8_utf32, table_of_cases) {
  struct row {
    std::string in;
    uint32_t cp, used, result;
  };
  const row rows[] = {
      {"A", 0x41, 1, 0},
      {"\xC3\xA9x", 0xE9, 2, 0},
      {"\xE2\x82\xAC", 0x20AC, 3, 0},
      {"\xF0\x9F\x98\x80", 0x1F600, 4, 0},
      {"\xF4\x90\x80\x80", 0x110000, 4, 0},          // beyond U+10FFFF decodes as read
      {"\xE2\x82", 0xFFFD, 2, XF_TX_CUT_OFF},         // cut off: both bytes used
      {"\xF0\x9F\x98", 0xFFFD, 3, XF_TX_CUT_OFF},
      {"\x80", 0xFFFD, 1, XF_TX_BAD_LEAD},             // stray continuation
      {"\x80\x80", 0xFFFD, 1, XF_TX_BAD_LEAD},         // announces length 1: nothing swallowed
      {"\xC0\x80", 0xFFFD, 2, XF_TX_BAD_LEAD},         // invalid lead swallows its continuation
      {"\xC1\x41", 0xFFFD, 1, XF_TX_BAD_LEAD},
      {"\xF8\x88\x80\x80\x80", 0xFFFD, 5, XF_TX_BAD_LEAD},
      {"\xFC\x80\x80", 0xFFFD, 3, XF_TX_BAD_LEAD},     // stops at the end of the text
      {"\xF5\x80\x80\x80", 0xFFFD, 4, XF_TX_BAD_LEAD},
      {"\xC3\x41", 0xC1, 2, 0},                        // continuation not checked here
      {"", 0xFFFD, 0, XF_TX_CUT_OFF},
  };
  for (const row &r : rows) {
    SCOPED_TRACE(r.in);
    decoded d = decode(r.in);
    EXPECT_EQ(d.cp, r.cp);
    EXPECT_EQ(d.used, r.used);
    EXPECT_EQ(d.result, r.result);
  }
}

TEST(utf32_utf8, lengths_and_too_little_space) {
  uint8_t out[4] = {0, 0, 0, 0};
  uint32_t n = 9;
  EXPECT_EQ(UTF32_UTF8(0x20AC, out, 2, &n), XF_TX_OUTPUT_SMALL);
  EXPECT_EQ(n, 0u);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(UTF32_UTF8(0x20AC, out, 3, &n), 0u);
  EXPECT_EQ(std::string(reinterpret_cast<char *>(out), n), "\xE2\x82\xAC");
  EXPECT_EQ(UTF32_UTF8(0xD800, out, 4, &n), 0u);  // surrogate encoded without objection
  EXPECT_EQ(std::string(reinterpret_cast<char *>(out), n), "\xED\xA0\x80");
  EXPECT_EQ(UTF32_UTF8(0x10FFFF, out, 4, &n), 0u);
  EXPECT_EQ(std::string(reinterpret_cast<char *>(out), n), "\xF4\x8F\xBF\xBF");
  EXPECT_EQ(UTF32_UTF8(0x7F, out, 1, &n), 0u);
  EXPECT_EQ(n, 1u);
  EXPECT_EQ(UTF32_UTF8(0x80, out, 1, &n), XF_TX_OUTPUT_SMALL);
}

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

TEST(is_legal_utf8, edge_cases) {
  int32_t bad = -1;
  const uint8_t beyond[] = {0xF4, 0x90, 0x80, 0x80};
  EXPECT_EQ(isLegalUTF8(beyond, 4, &bad), 1);
  EXPECT_EQ(bad, 4);
  const uint8_t surrogate[] = {0xED, 0xA0, 0x80};
  EXPECT_EQ(isLegalUTF8(surrogate, 3, &bad), 0);
  EXPECT_EQ(bad, 3);
  const uint8_t overlong3[] = {0xE0, 0x9F, 0xBF};
  EXPECT_EQ(isLegalUTF8(overlong3, 3, &bad), 0);
  const uint8_t overlong4[] = {0xF0, 0x8F, 0xBF, 0xBF};
  EXPECT_EQ(isLegalUTF8(overlong4, 4, &bad), 0);
  const uint8_t broken[] = {0xE2, 0x41, 0x42};
  EXPECT_EQ(isLegalUTF8(broken, 3, &bad), 0);
  EXPECT_EQ(bad, 1);  // the first bad byte after the lead
  const uint8_t bad_lead[] = {0xC0, 0x80};
  EXPECT_EQ(isLegalUTF8(bad_lead, 2, &bad), 0);
  EXPECT_EQ(bad, 2);
  const uint8_t stray[] = {0x80};
  EXPECT_EQ(isLegalUTF8(stray, 1, &bad), 0);
  EXPECT_EQ(isLegalUTF8(stray, 0, &bad), 1);  // lengths outside 1-4 pass unchecked
  EXPECT_EQ(bad, 0);
  const uint8_t five[] = {0xF8, 0x41, 0x41, 0x41, 0x41};
  EXPECT_EQ(isLegalUTF8(five, 5, &bad), 1);
  EXPECT_EQ(bad, 5);
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
