// Character value-label lookup: the 16-bit comparison, labels beyond ASCII,
// and the bisection against the linear search (the single lookups are rows
// of tests/data/userfmt/lookups.txt, MPTLU's calls rows of
// tests/data/text/conversions.txt).
#include <gtest/gtest.h>

#include "support/random.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

TEST(zstrcomu, trailing_blanks_are_insignificant_and_units_are_signed) {
  struct row { std::u16string a, b; int32_t want; };
  const row rows[] = {
      {u"AB", u"AB", 0},     {u"AB  ", u"AB", 0},  {u"AB", u"AB   ", 0}, {u"", u"   ", 0},
      {u"AB", u"ABC", -1},   {u"ABC", u"AB", 1},   {u"AB", u"AC", -1},  {u"ab", u"AB", 1},
      {u"AB ", u"AB C", -1}, {u"\x8000", u"A", -1}, {u"A", u"\xFFFF", 1}, {u"", u"", 0},
  };
  for (const row &r : rows)
    EXPECT_EQ(zstrcomu(reinterpret_cast<const uint16_t *>(r.a.data()), static_cast<int32_t>(r.a.size()),
                       reinterpret_cast<const uint16_t *>(r.b.data()), static_cast<int32_t>(r.b.size())),
              r.want);
}

// A label unit beyond ASCII is delivered as UTF-8 and counts as one position.
TEST(character_lookup, utf8_delivery) {
  memory_format g(11);
  g.char_value("E", "x");
  auto *l = const_cast<xf_label_text *>(static_cast<const xf_label_text *>(g.text_label("a-b")));
  reinterpret_cast<uint16_t *>(reinterpret_cast<char *>(l) + 4)[1] = 0x2013;
  g.header()->other_label = l;
  g.header()->has_other = 1;
  EXPECT_EQ(run_text(yfpfcfn, g, u"Q", 4, 8).text, "a\xE2\x80\x93" "b ");
  // Never split: capacity 3 holds "a" and not the 3-byte dash.
  EXPECT_EQ(run_text(yfpfcfn, g, u"Q", 4, 3).text, "a");
}

TEST(character_lookup, bisection_agrees_with_linear_on_random_sorted_tables) {
  auto g = rng(23);
  uint64_t tables = scaled(200);
  auto word = [](int i) {
    std::string s;
    s += static_cast<char>('A' + i / 26 % 26);
    s += static_cast<char>('A' + i % 26);
    return s;
  };
  for (uint64_t t = 0; t < tables; ++t) {
    memory_format f(11);
    int at = static_cast<int>(g() % 20);
    int n = static_cast<int>(g() % 30) + 1;
    for (int i = 0; i < n && at < 600; ++i) {
      int len = static_cast<int>(g() % 5);
      if (len == 0 && g() % 2) f.char_value(word(at), "v" + std::to_string(i));
      else f.char_range(word(at), word(at + len), "r" + std::to_string(i), len ? XF_RANGE_END_EXCL : 0);
      at += len + (len ? 0 : 1) + static_cast<int>(g() % 2);
    }
    for (int k = 0; k < 100; ++k) {
      std::string v = word(static_cast<int>(g() % 620));
      if (g() % 3 == 0) v += "  ";
      if (g() % 5 == 0) v += "A";
      result a = run_text(yfpfcfn, f, u16(v), 4);
      result b = run_text(yfpfcfm, f, u16(v), 4);
      ASSERT_EQ(a.text, b.text) << "seed " << test_seed() << " value " << v;
    }
  }
}

}  // namespace
