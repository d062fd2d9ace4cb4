// The bounded writer: never a byte past its room, the full length counted
// when it is cut, and digits equal to std::to_chars.
#include <gtest/gtest.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/bounded_text.hpp"
#include "support/random.hpp"

using xfmt::core::bounded_text;

namespace {

constexpr char guard = '\x7F';

// Every writer call once, into a buffer of `room` bytes followed by guard
// bytes; returns the length counted.
size_t write_all(char *buf, size_t room) {
  bounded_text t(buf, room);
  t.put("ab");
  t.put_char('-');
  t.put_repeat(' ', 3);
  t.put2(7);
  t.put4(305);
  t.put_unsigned(42, 5, ' ');
  t.put_unsigned(18446744073709551615ull);
  t.put_signed(-9223372036854775807LL - 1);
  t.skip(2);
  t.put_decimal(12, 5, 3);
  t.put_unsigned(7, 3, '*');
  t.put_unsigned(12345, 2);  // the last digits only
  t.put_unsigned(1, -3);     // nothing
  t.put_unsigned(1234, 24);  // past twenty digits the fill leads
  t.put_unsigned(1234, 24, ' ');
  t.put_decimal(3, 7, 25);
  return t.length();
}

const std::string full_text =
    std::string("ab-   070305   4218446744073709551615-9223372036854775808") + "??" + "12.005" + "**745" +
    std::string(20, '0') + "1234" + std::string(20, ' ') + "1234" + "3." + std::string(24, '0') + "7";

}  // namespace

TEST(bounded_text, every_room_stops_at_its_end_and_counts_the_rest) {
  for (size_t room = 0; room <= full_text.size() + 2; ++room) {
    char buf[192];
    std::memset(buf, guard, sizeof buf);
    const size_t need = write_all(buf, room);
    EXPECT_EQ(need, full_text.size()) << "room " << room;
    const size_t kept = room < need ? room : need;
    for (size_t i = 0; i < kept; ++i)
      if (full_text[i] != '?') {
        EXPECT_EQ(buf[i], full_text[i]) << "room " << room << " at " << i;
      }
    for (size_t i = room; i < sizeof buf; ++i) ASSERT_EQ(buf[i], guard) << "room " << room << " at " << i;
  }
}

TEST(bounded_text, reports_what_it_kept) {
  char buf[4];
  bounded_text t(buf);
  t.put("abc");
  EXPECT_FALSE(t.overflowed());
  EXPECT_EQ(t.left(), 1u);
  t.put("de");
  EXPECT_TRUE(t.overflowed());
  EXPECT_EQ(t.length(), 5u);
  EXPECT_EQ(t.written(), 4u);
  EXPECT_EQ(t.view(), "abcd");
  t.clear();
  EXPECT_EQ(t.length(), 0u);
  EXPECT_FALSE(t.overflowed());
}

// Every power of ten and the number before it (the edges of digit_count),
// then random values of every length, against std::to_chars, both through
// the bounded writer at a room cut anywhere and through the raw writers.
TEST(bounded_text, digits_match_to_chars) {
  static_assert(xfmt::core::digit_count(999) == 3 && xfmt::core::digit_count(1000) == 4);
  auto gen = xfmt::test::rng(13);
  const uint64_t cases = xfmt::test::scaled(200000);
  uint64_t power = 1;
  for (uint64_t i = 0; i < cases + 40; ++i) {
    if (i > 0 && i < 40 && i % 2 == 0) power *= 10;
    const uint64_t v = i < 40 ? power - i % 2 : gen() >> (gen() % 64);
    const auto s = static_cast<int64_t>(gen()) >> (gen() % 64);
    char want[48];
    auto r = std::to_chars(want, want + sizeof want, v);
    const auto v_digits = static_cast<size_t>(r.ptr - want);
    r = std::to_chars(r.ptr, want + sizeof want, s);
    const auto need = static_cast<size_t>(r.ptr - want);

    char buf[48 + 8];
    const size_t room = static_cast<size_t>(gen() % (need + 2));
    std::memset(buf, guard, sizeof buf);
    bounded_text t(buf, room);
    t.put_unsigned(v);
    t.put_signed(s);
    ASSERT_EQ(t.length(), need) << v << " " << s;
    ASSERT_EQ(std::string(buf, t.written()), std::string(want, t.written())) << v << " " << s;
    ASSERT_EQ(buf[t.written()], guard) << v << " " << s;

    char raw[24];
    char *end = xfmt::core::put_unsigned(raw, v);
    ASSERT_EQ(static_cast<size_t>(xfmt::core::digit_count(v)), v_digits) << v;
    ASSERT_EQ(std::string(raw, end), std::string(want, v_digits)) << v;
    xfmt::core::put4(raw, v % 10000);
    char four[8];
    std::snprintf(four, sizeof four, "%04u", static_cast<unsigned>(v % 10000));
    ASSERT_EQ(std::string(raw, 4), four) << v;
  }
}
