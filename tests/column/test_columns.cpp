// Whole columns against one xffmt call per value: the fixed fields and the
// trimmed texts carry what the routine wrote, turned into UTF-8 by a plain
// table walk; statuses match; inputs are converted from UTF-8 or refused.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "core/missing.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfx.h"

namespace {

struct opened {
  xfx_conversion *c = nullptr;
  explicit opened(const char *spec, uint32_t locale = 0, void *context = nullptr) {
    EXPECT_EQ(xfx_open(spec, std::strlen(spec), 0, locale, context, &c), XFX_OK) << spec;
  }
  ~opened() { xfx_close(c); }
};

std::string utf8_of_1252(const std::string &s) {
  std::string out;
  for (char c : s) {
    uint32_t u = wlt1unic[static_cast<unsigned char>(c)];
    if (u < 0x80) out += static_cast<char>(u);
    else if (u < 0x800) out += {static_cast<char>(0xC0 | (u >> 6)), static_cast<char>(0x80 | (u & 0x3F))};
    else
      out += {static_cast<char>(0xE0 | (u >> 12)), static_cast<char>(0x80 | ((u >> 6) & 0x3F)),
              static_cast<char>(0x80 | (u & 0x3F))};
  }
  return out;
}

std::string trimmed(const std::string &s) {
  size_t a = s.find_first_not_of(' ');
  if (a == std::string::npos) return "";
  return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

// One value through the pinned interface: (status, UTF-8 field).
std::pair<xf_status, std::string> per_value(const xfx_spec &s, double v) {
  void *h = nullptr;
  EXPECT_EQ(xfname(s.name, static_cast<int32_t>(s.name_length), (s.flags & XFX_INFORMAT) ? 73 : 0, nullptr, &h), 0u);
  xfmt::test::frame_box b = xfmt::test::frame_box::number(v, s.width, s.decimals, 256);
  xf_status st = xffmt(&b.f, h);
  xfdel(h);
  return {st, utf8_of_1252(b.str())};
}

std::vector<double> random_values(const char *spec, size_t n) {
  auto g = xfmt::test::rng(std::strlen(spec));
  std::vector<double> v(n);
  for (size_t i = 0; i < n; ++i) {
    switch (g() % 7) {
      case 0: v[i] = xfmt::missing_value(static_cast<int>(g() % 28)); break;
      case 6: v[i] = NAN; break;  // not missing unless a column asks for it
      case 1: v[i] = static_cast<double>(g() % 30000) - 2000.0; break;  // whole days, repeated
      case 2: v[i] = (static_cast<double>(g() % 2000000) - 1000000.0) / 100.0; break;
      case 3: v[i] = std::pow(10.0, static_cast<double>(g() % 40) - 20.0) * (g() % 2 ? 1 : -1); break;
      case 4: v[i] = static_cast<double>(g() % 86400 * 23000); break;  // datetimes
      default: v[i] = static_cast<double>(g() % 100000) / 7.0; break;
    }
  }
  return v;
}

TEST(columns, numeric_formats_match_one_call_per_value) {
  const char *specs[] = {"F8.2",   "F12.4",   "BEST12.", "DATE9.",   "DATE7.",    "MMDDYY10.", "COMMA12.2",
                         "DOLLAR12.2", "EURO12.2", "YEN8.", "TIME8.",  "DATETIME20.", "PERCENT8.1", "WORDS40.",
                         "E8601DA10.", "HEX8.",  "Z8.2",    "WEEKDATE29."};
  for (const char *spec : specs) {
    opened o(spec);
    ASSERT_NE(o.c, nullptr);
    const xfx_spec &s = *xfx_conversion_spec(o.c);
    std::vector<double> values = random_values(spec, xfmt::test::scaled(3000));
    size_t n = values.size(), stride = xfx_max_field_bytes(o.c);
    std::vector<char> fields(n * stride);
    std::vector<xf_status> st_fixed(n), st_str(n);
    ASSERT_EQ(xfx_convert_fixed(o.c, n, values.data(), nullptr, nullptr, 0, fields.data(), stride, '#',
                                st_fixed.data()),
              XFX_OK);
    std::vector<char> data(n * stride);
    std::vector<int64_t> offsets(n + 1);
    size_t done = 0;
    ASSERT_EQ(xfx_convert_strings(o.c, n, values.data(), nullptr, nullptr, 0, data.data(), data.size(),
                                  offsets.data(), st_str.data(), &done),
              XFX_OK);
    ASSERT_EQ(done, n);
    for (size_t i = 0; i < n; ++i) {
      auto [st, text] = per_value(s, values[i]);
      std::string padded = text + std::string(stride - text.size(), '#');
      ASSERT_EQ(st_fixed[i], st) << spec << " value " << values[i];
      ASSERT_EQ(std::string(fields.data() + i * stride, stride), padded) << spec << " value " << values[i];
      ASSERT_EQ(st_str[i], st) << spec;
      ASSERT_EQ(std::string(data.data() + offsets[i], static_cast<size_t>(offsets[i + 1] - offsets[i])),
                trimmed(text))
          << spec << " value " << values[i];
    }
  }
}

// The euro sign as UTF-8 in a byte field and as one character in a UTF-32
// field; a field too short for the text is a status and left as filled.
TEST(columns, euro_sign_in_byte_and_utf32_fields) {
  opened o("EURO10.2");
  double v[2] = {1234.5, xfmt::missing_ordinary()};
  char field[16];
  xf_status st[2];
  ASSERT_EQ(xfx_convert_fixed(o.c, 1, v, nullptr, nullptr, 0, field, 12, ' ', st), XFX_OK);
  EXPECT_EQ(st[0], XF_OK);
  EXPECT_EQ(std::string(field, 12), " \xE2\x82\xAC" "1,234.50");
  ASSERT_EQ(xfx_convert_fixed(o.c, 1, v, nullptr, nullptr, 0, field, 10, ' ', st), XFX_OK);
  EXPECT_EQ(st[0], XFX_S_FIELD_SMALL);
  EXPECT_EQ(std::string(field, 10), std::string(10, ' '));
  EXPECT_EQ(xfx_max_field_bytes(o.c), 30u);
  uint32_t fields[2 * 12];
  ASSERT_EQ(xfx_convert_fixed_utf32(o.c, 2, v, nullptr, nullptr, 0, fields, 12, 0, st), XFX_OK);
  const uint32_t want[12] = {' ', 0x20AC, '1', ',', '2', '3', '4', '.', '5', '0', 0, 0};
  EXPECT_EQ(std::memcmp(fields, want, sizeof want), 0);
  EXPECT_EQ(st[0], XF_OK);
  ASSERT_EQ(xfx_convert_fixed_utf32(o.c, 1, v, nullptr, nullptr, 0, fields, 9, 0, st), XFX_OK);
  EXPECT_EQ(st[0], XFX_S_FIELD_SMALL);
  EXPECT_EQ(fields[0], 0u);
}

TEST(columns, texts_in_are_utf8_converted_or_refused) {
  opened o("$CHAR6.");
  const std::string data = std::string("caf\xC3\xA9") + "\xE2\x82\xAC" "5" + "\xC5\x82" + "\xC3" + "plain";
  std::vector<int64_t> offsets = {0, 5, 9, 11, 12, 17};
  char fields[5 * 12];
  xf_status st[5];
  ASSERT_EQ(xfx_convert_fixed(o.c, 5, nullptr, data.data(), offsets.data(), 0, fields, 12, '|', st), XFX_OK);
  EXPECT_EQ(st[0], XF_OK);
  EXPECT_EQ(std::string(fields, 12), "caf\xC3\xA9  |||||");  // 6 positions, 7 bytes of UTF-8
  EXPECT_EQ(st[1], XF_OK);
  EXPECT_EQ(std::string(fields + 12, 12), "\xE2\x82\xAC" "5    ||||");
  EXPECT_EQ(st[2], XFX_S_UNREPRESENTABLE);  // l with stroke has no Windows-1252 byte
  EXPECT_EQ(std::string(fields + 24, 12), std::string(12, '|'));
  EXPECT_EQ(st[3], XFX_S_BAD_UTF8);
  EXPECT_EQ(st[4], XF_OK);
  EXPECT_EQ(std::string(fields + 48, 6), "plain ");
}

TEST(columns, bidirectional_formats_give_utf32) {
  // Latin and Hebrew (alef, bet, gimel): the Hebrew run turns round, and no
  // byte is taken for a Windows-1252 character on the way in.
  const std::string logical = "AB \xD7\x90\xD7\x91\xD7\x92 CD";
  opened o("$LOGVS12.");
  int64_t off[2] = {0, static_cast<int64_t>(logical.size())};
  uint32_t field[12];
  xf_status st = 0;
  ASSERT_EQ(xfx_convert_fixed_utf32(o.c, 1, nullptr, logical.data(), off, 0, field, 12, 0, &st), XFX_OK);
  EXPECT_EQ(st, XF_OK);
  const uint32_t want[12] = {'A', 'B', ' ', 0x5D2, 0x5D1, 0x5D0, ' ', 'C', 'D', 0, 0, 0};
  EXPECT_EQ(std::memcmp(field, want, sizeof want), 0);
}

TEST(columns, strings_continue_where_the_data_was_full) {
  opened o("DATE9.");
  std::vector<double> v = random_values("DATE9.", 500);
  // Each text is followed by its NUL: 10 bytes a date.
  std::vector<char> all(500 * 10), part(700);
  std::vector<int64_t> off_all(501), off_part(501);
  size_t done = 0;
  ASSERT_EQ(xfx_convert_strings(o.c, 500, v.data(), nullptr, nullptr, XFX_COL_NUL_AFTER, all.data(), all.size(),
                                off_all.data(), nullptr, &done),
            XFX_OK);
  std::string joined;
  size_t at = 0;
  while (at < 500) {
    xfx_error e = xfx_convert_strings(o.c, 500 - at, v.data() + at, nullptr, nullptr, XFX_COL_NUL_AFTER,
                                      part.data(), part.size(), off_part.data(), nullptr, &done);
    ASSERT_EQ(e, done == 500 - at ? XFX_OK : XFX_E_CAPACITY);
    ASSERT_GT(done, 0u);
    joined.append(part.data(), static_cast<size_t>(off_part[done]));
    at += done;
  }
  EXPECT_EQ(joined, std::string(all.data(), static_cast<size_t>(off_all[500])));
  EXPECT_EQ(all[static_cast<size_t>(off_all[1]) - 1], '\0');
}

TEST(columns, numeric_informats_read_texts) {
  opened comma("@COMMA12.");
  opened f("@F");
  const std::string data = "1,234.50" "(12)" "abc" ".A" "" "\xE2\x82\xAC" "7" "  3.25  ";
  std::vector<int64_t> off = {0, 8, 12, 15, 17, 17, 21, 29};
  double v[7];
  xf_status st[7];
  ASSERT_EQ(xfx_convert_numbers(comma.c, 7, data.data(), off.data(), v, st), XFX_OK);
  // (Money, parentheses, junk and missing values: xfx_host's column check.)
  EXPECT_EQ(v[5], 7);  // the euro sign in UTF-8 is the byte @COMMA skips
  EXPECT_EQ(v[6], 3.25);
  ASSERT_EQ(xfx_convert_numbers(f.c, 7, data.data(), off.data(), v, st), XFX_OK);
  EXPECT_EQ(st[0], XF_IN_INVALID);
  EXPECT_EQ(v[6], 3.25);
  EXPECT_EQ(xfx_convert_numbers(f.c, 1, nullptr, off.data(), v, st), XFX_E_ARGUMENT);
  double one = 1;
  char field[8];
  EXPECT_EQ(xfx_convert_fixed(f.c, 1, &one, nullptr, nullptr, 0, field, 8, ' ', nullptr), XFX_E_ARGUMENT);
}

TEST(columns, statuses_have_texts) {
  EXPECT_STREQ(xfx_status_text(XFX_S_BAD_UTF8), "the text is not valid UTF-8");
  EXPECT_STREQ(xfx_status_text(XF_E_OVERFLOW), "number does not fit the width");
  EXPECT_STREQ(xfx_status_text(0x12345u), "status 0x00012345");
}

TEST(columns, bad_arguments_are_refused) {
  xfx_conversion *c = nullptr;
  EXPECT_EQ(xfx_open("NOSUCH.", 7, 0, 0, nullptr, &c), XFX_E_UNKNOWN_NAME);
  EXPECT_EQ(c, nullptr);
  EXPECT_EQ(xfx_open("F8.2", 4, 0, 0, nullptr, nullptr), XFX_E_ARGUMENT);
  opened o("F8.2");
  char field[8];
  int64_t off[2];
  EXPECT_EQ(xfx_convert_fixed(nullptr, 1, nullptr, nullptr, nullptr, 0, field, 8, ' ', nullptr), XFX_E_ARGUMENT);
  EXPECT_EQ(xfx_convert_fixed(o.c, 1, nullptr, nullptr, nullptr, 0, field, 8, ' ', nullptr), XFX_E_ARGUMENT);
  EXPECT_EQ(xfx_convert_strings(o.c, 0, nullptr, nullptr, nullptr, 0, nullptr, 0, off, nullptr, nullptr), XFX_OK);
  EXPECT_EQ(off[0], 0);
  xfx_close(nullptr);
}

}  // namespace
