// The two-pattern national members against their slow literal form: every
// locale, random dates and datetimes, widths from far too narrow to ample,
// capacities below, at and above the width, in the process's own codeset
// and in UTF-8. The members expand straight into the field when the text is
// plain ASCII; the literal form always goes through a buffer and the
// encoder, so any difference between the two ways shows here.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "nls/expand.hpp"
#include "oracle/nls_member_oracle.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"

namespace {

using xfmt::oracle::member_case;
using xfmt::oracle::member_outcome;

constexpr int locale_count = 136;

struct member {
  const char *name;
  xf_routine routine;
  bool datetime;
  int first, second;
  xf_routine short_member;
};

constexpr int dt = 4096;  // the datetime mark of the pattern codes
constexpr int zone = 256;  // " %z" appended

const member members[] = {
    {"nldate", nldate, false, 28, 29, nldates},
    {"nldatemd", nldatemd, false, 36, 37, nullptr},
    {"nldateym", nldateym, false, 34, 35, nullptr},
    {"nldateyr", nldateyr, false, 38, 39, nullptr},
    {"nldateyq", nldateyq, false, 40, 41, nullptr},
    {"nldateyw", nldateyw, false, 42, 43, nullptr},
    // The datetime short form has no member of its own: where both patterns
    // fail only the shape of the result is checked.
    {"nldatm", nldatm, true, dt + 46, dt + 47, nullptr},
    {"nldatmwz", nldatmwz, true, dt + zone + 50, dt + zone + 51, nullptr},
    {"nldatmtm", nldatmtm, true, dt + 53, 0, nullptr},
};

struct run_result {
  xf_status status;
  uint32_t length;
  uint32_t encoding;
  std::string buffer;
};

// The member on a frame_box, whose buffer starts all 0xEE.
run_result run(const member &m, const member_case &c) {
  xfmt::test::frame_box b = xfmt::test::frame_box::number(c.value, c.width, c.decimals, c.capacity);
  b.f.option_word = static_cast<uint64_t>(c.locale);
  const xf_status st = m.routine(&b.f);
  return {st, b.f.output_length, b.f.output_encoding, b.buffer()};
}

member_case random_case(std::mt19937_64 &g, bool datetime, int locale) {
  member_case c{};
  // Dates of 1582..20000, most of them in the last two centuries.
  std::uniform_int_distribution<int64_t> wide(-138061, 6589335), recent(-40000, 40000);
  const int64_t day = (g() % 4 == 0) ? wide(g) : recent(g);
  c.value = static_cast<double>(day);
  if (datetime) {
    std::uniform_real_distribution<double> second_of_day(0, 86400);
    c.value = static_cast<double>(day) * 86400 + second_of_day(g);
  }
  c.width = static_cast<int32_t>(1 + g() % 48);
  c.decimals = datetime ? static_cast<int32_t>(g() % 4) : 0;
  c.locale = locale;
  switch (g() % 4) {
    case 0:
      c.capacity = static_cast<uint32_t>(g() % static_cast<uint64_t>(c.width));  // below
      break;
    case 1:
      c.capacity = static_cast<uint32_t>(c.width) + static_cast<uint32_t>(g() % 16);  // above
      break;
    default:
      c.capacity = static_cast<uint32_t>(c.width);
  }
  return c;
}

// Compares one case; returns false (after recording a failure) on a difference.
bool agree(const member &m, const member_case &c) {
  const run_result got = run(m, c);
  const member_outcome want = xfmt::oracle::two_pattern_literally(c, m.datetime, m.first, m.second,
                                                                  m.short_member);
  const std::string where = std::string(m.name) + " value " + std::to_string(c.value) + " w " +
                            std::to_string(c.width) + " d " + std::to_string(c.decimals) +
                            " locale " + std::to_string(c.locale) + " capacity " +
                            std::to_string(c.capacity);
  if (m.datetime && want.status != XF_OK && !want.short_form && m.first == dt + 46) {
    // Both patterns failed: the short numeric datetime decides. It fits in
    // the field whole, or the field is stars.
    const bool fits = got.status == XF_OK && got.length <= static_cast<uint32_t>(c.width);
    const bool starred = got.status == want.status &&
                         got.buffer.substr(0, want.length) == std::string(want.length, '*');
    EXPECT_TRUE(fits || starred) << where;
    return fits || starred;
  }
  EXPECT_EQ(got.status, want.status) << where;
  EXPECT_EQ(got.length, want.length) << where;
  EXPECT_EQ(got.buffer, want.buffer) << where;
  EXPECT_EQ(got.encoding, XF_ENC_SINGLE_BYTE) << where;
  return got.status == want.status && got.length == want.length && got.buffer == want.buffer;
}

void sweep(uint64_t salt, uint64_t per_locale) {
  std::mt19937_64 g = xfmt::test::rng(salt);
  int failures = 0;
  for (int locale = 1; locale <= locale_count && failures < 5; ++locale)
    for (const member &m : members)
      for (uint64_t i = 0; i < per_locale && failures < 5; ++i)
        if (!agree(m, random_case(g, m.datetime, locale))) ++failures;
}

TEST(nl_member_paths, every_locale_in_the_process_codeset) {
  sweep(0x6e6c70, xfmt::test::scaled(4));
}

TEST(nl_member_paths, every_locale_in_utf8) {
  const xfmt::test::codeset_scope utf8("C.UTF-8");
  sweep(0x6e6c71, xfmt::test::scaled(3));
}

// The edges of the direct way, English (United States), one date: the text
// "September 15, 2017" is 18 bytes long.
TEST(nl_member_paths, text_length_at_the_width_and_capacity) {
  const member &m = members[0];
  for (int32_t w = 1; w <= 24; ++w)
    for (uint32_t cap : {0u, 1u, 17u, 18u, 19u, static_cast<uint32_t>(w)}) {
      member_case c{};
      c.value = 21077;  // 2017-09-15
      c.width = w;
      c.locale = 53;
      c.capacity = cap;
      agree(m, c);
    }
}

// The word-at-a-time test of plain text against a byte at a time: every
// byte value at every position of texts of 0 to 24 bytes.
TEST(nl_member_paths, plain_text_every_byte_at_every_position) {
  for (size_t len = 0; len <= 24; ++len) {
    const std::string base(len, 'a');
    EXPECT_TRUE(xfmt::nls::plain_text(base)) << len;
    for (size_t at = 0; at < len; ++at)
      for (int b = 0; b < 256; ++b) {
        std::string t = base;
        t[at] = static_cast<char>(b);
        const bool want = b < 0x80 && b != '<';
        ASSERT_EQ(xfmt::nls::plain_text(t), want) << "length " << len << " byte " << b << " at " << at;
      }
  }
}

}  // namespace
