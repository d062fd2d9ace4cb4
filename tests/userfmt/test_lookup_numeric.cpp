// Numeric value-label lookup: keys, shared boundaries, exclusions, fuzz,
// missing values, -0, OTHER, the unformatted fallback, several labels, and
// the bisections against the linear search over random sorted tables.
#include <gtest/gtest.h>

#include <limits>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

const double inf = std::numeric_limits<double>::infinity();

TEST(numeric_key, orders_missing_below_every_number_and_merges_zeros) {
  std::vector<double> order = {missing_letter('_'), missing_letter('.'), missing_letter('A'),
                               missing_letter('Z'), -inf, -1e300, -1, -1e-300, 0.0, 1e-300, 1, 1e300, inf};
  for (size_t i = 1; i < order.size(); ++i) EXPECT_LT(key(order[i - 1]), key(order[i])) << i;
  EXPECT_EQ(key(-0.0), key(0.0));
  std::vector<uint8_t> low = {0, 1, 0, 0, 0, 0, 0, 0};
  EXPECT_LT(key(missing_letter('Z')), low);
  EXPECT_LT(low, key(-inf));
}

TEST(numeric_lookup, shared_boundary_with_excluded_end) {
  // 1-<2 and 2-3: bisection over two entries lands on 1-<2 first for 2.
  for (xf_label_routine r : {yfpfnfn, yfpfnfm, yfpfnfr}) {
    memory_format f;
    f.range(1, 2, "one", XF_RANGE_END_EXCL);
    f.range(2, 3, "two");
    f.header()->linear_search = 0;
    EXPECT_EQ(run_number(r, f, 2, 4).text, "two ");
    EXPECT_EQ(run_number(r, f, 1.999, 4).text, "one ");
    EXPECT_EQ(run_number(r, f, 3, 4).text, "two ");
  }
}

TEST(numeric_lookup, neighbour_test_at_excluded_start) {
  // 1-2 and <2-3 (start excluded): 2 lands on the second and is handed back
  // to the first.
  memory_format f;
  f.range(1, 2, "one");
  f.range(2, 3, "two", XF_RANGE_START_EXCL);
  EXPECT_EQ(run_number(yfpfnfm, f, 2, 3).text, "one");
  EXPECT_EQ(run_number(yfpfnfn, f, 2, 3).text, "one");
  EXPECT_EQ(run_number(yfpfnfm, f, 2.5, 3).text, "two");
  // Excluded start at the first entry: nothing to fall back on.
  memory_format g;
  g.range(2, 3, "two", XF_RANGE_START_EXCL);
  EXPECT_EQ(run_number(yfpfnfm, g, 2, 3).flags & XF_FLAG_UNFORMATTED, XF_FLAG_UNFORMATTED);
}

TEST(numeric_lookup, fuzz_widens_but_excluded_start_is_exact) {
  memory_format f;
  f.range(10, 20, "in", XF_RANGE_START_EXCL, 0.5);
  for (xf_label_routine r : {yfpfnfn, yfpfnfm}) {
    EXPECT_EQ(run_number(r, f, 9.6, 2).text, "in");
    EXPECT_EQ(run_number(r, f, 20.4, 2).text, "in");
    EXPECT_NE(run_number(r, f, 10, 2).text, "in");
    EXPECT_NE(run_number(r, f, 9.4, 2).text, "in");
  }
}

TEST(numeric_lookup, low_high_takes_every_number_but_no_missing_value) {
  memory_format f;
  f.range(0, 0, "any", XF_RANGE_LOW | XF_RANGE_HIGH);
  f.range(missing_letter('A'), missing_letter('A'), "refused");
  for (double v : {-inf, -1e308, -0.0, 0.0, 5.0, inf}) EXPECT_EQ(run_number(yfpfnfn, f, v, 3).text, "any") << v;
  EXPECT_EQ(run_number(yfpfnfn, f, missing_letter('A'), 7).text, "refused");
  result r = run_number(yfpfnfn, f, missing_letter('B'), 3);
  EXPECT_EQ(r.text, "  B");
  EXPECT_EQ(r.flags & XF_FLAG_UNFORMATTED, XF_FLAG_UNFORMATTED);
  EXPECT_EQ(run_number(yfpfnfn, f, missing_letter('.'), 3).text, "  .");
}

TEST(numeric_lookup, negative_zero_matches_as_zero) {
  memory_format f;
  f.value(0.0, "zero");
  f.range(-5, -1, "neg");
  for (xf_label_routine r : {yfpfnfn, yfpfnfs}) {
    EXPECT_EQ(run_number(r, f, -0.0, 4).text, "zero");
    EXPECT_EQ(run_number(r, f, 0.0, 4).text, "zero");
  }
}

TEST(numeric_lookup, unmatched_number_in_width_40_keeps_last_32_positions) {
  memory_format f;
  f.range(1, 2, "x");
  result r = run_number(yfpfnfn, f, 12345, 40);
  EXPECT_EQ(r.text, std::string(8, ' ') + std::string(27, ' ') + "12345");
  EXPECT_EQ(r.flags & XF_FLAG_UNFORMATTED, XF_FLAG_UNFORMATTED);
  EXPECT_EQ(r.encoding, 0u);
  EXPECT_EQ(run_number(yfpfnfn, f, 3.25, 6).text, "  3.25");
  EXPECT_EQ(run_number(yfpfnfn, f, 3.25, 6, -1, 0, 1).text, "   3.3");
  // The flag is cleared when the next value matches.
  EXPECT_EQ(run_number(yfpfnfn, f, 1.5, 1, -1, XF_FLAG_UNFORMATTED).flags & XF_FLAG_UNFORMATTED, 0u);
}

TEST(numeric_lookup, other_label_is_written_when_nothing_matches) {
  memory_format f;
  f.range(1, 2, "x");
  f.other("else");
  result r = run_number(yfpfnfm, f, 7, 6);
  EXPECT_EQ(r.text, "else  ");
  EXPECT_EQ(r.flags & XF_FLAG_UNFORMATTED, 0u);
}

TEST(numeric_lookup, label_is_cut_or_padded_to_the_field_and_capacity) {
  memory_format f;
  f.range(1, 2, "abcdef");
  EXPECT_EQ(run_number(yfpfnfn, f, 1, 3).text, "abc");
  EXPECT_EQ(run_number(yfpfnfn, f, 1, 8).text, "abcdef  ");
  EXPECT_EQ(run_number(yfpfnfn, f, 1, 8, 4).text, "abcd");
  EXPECT_EQ(run_number(yfpfnfn, f, 1, 0).text, "");
  EXPECT_EQ(run_number(yfpfnfn, f, 1, 5, 0).text, "");
}

TEST(numeric_lookup, utf16_delivery_when_requested) {
  memory_format f;
  f.range(1, 2, "ab");
  f.done();
  frame_box b = frame_box::number(1, 3, 0, 6);
  b.f.requested_output_encoding = XF_ENC_UTF16LE;
  EXPECT_EQ(yfpfnfn(&b.f, f.header(), f.ranges()), 0u);
  EXPECT_EQ(b.f.output_encoding, XF_ENC_UTF16LE);
  EXPECT_EQ(b.str(), std::string("a\0b\0 \0", 6));
  // Capacity 5 holds two units: the field shrinks to them.
  frame_box c = frame_box::number(1, 3, 0, 5);
  c.f.requested_output_encoding = XF_ENC_UTF16LE;
  yfpfnfn(&c.f, f.header(), f.ranges());
  EXPECT_EQ(c.str(), std::string("a\0b\0", 4));
  EXPECT_EQ(c.out[4], 0xEE);
}

TEST(numeric_lookup, several_labels_follow_the_three_slot_rule) {
  memory_format f;
  f.range(0, 50, "low");
  f.range(40, 100, "high");
  f.range(45, 46, "mid");
  f.header()->multilabel = 1;
  // Three matches, room for two slots: asterisks and -1.
  result r = run_number(yfpfnfn, f, 45, 4, 8, XF_FLAG_MULTILABEL);
  EXPECT_EQ(r.text, "****");
  EXPECT_EQ(r.status, 0xFFFFFFFFu);
  // Room for 4 slots: every label is placed; the length stays at 3 slots.
  r = run_number(yfpfnfn, f, 45, 4, 16, XF_FLAG_MULTILABEL);
  EXPECT_EQ(r.status, 0u);
  EXPECT_EQ(r.text, "low highmid ");
  // Room for exactly 3 slots: after the first label the running length is
  // 3 slots, so each further label would need a fourth and is not placed.
  r = run_number(yfpfnfn, f, 45, 4, 12, XF_FLAG_MULTILABEL);
  EXPECT_EQ(r.status, 0u);
  EXPECT_EQ(r.text, "low         ");
  // Without the request bit only the first match counts.
  EXPECT_EQ(run_number(yfpfnfn, f, 45, 4).text, "low ");
}

TEST(numeric_lookup, label_list_gives_its_first_label_unless_collecting) {
  memory_format f;
  const void *list = f.label_list({f.text_label("aa"), f.text_label("bb")});
  f.range_label(1, 2, list, XF_RANGE_LABEL_LIST);
  result r = run_number(yfpfnfn, f, 1, 2, 6);
  EXPECT_EQ(r.text, "aa    ");
  f.header()->multilabel = 1;
  r = run_number(yfpfnfn, f, 1, 2, 8, XF_FLAG_MULTILABEL);
  EXPECT_EQ(r.text, "aabb  ");
}

TEST(numeric_lookup, single_value_table_by_bisection) {
  memory_format f;
  for (int i = 0; i < 100; ++i) f.value(i * 2, std::to_string(i));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(run_number(yfpfnfs, f, i * 2, 2).text.substr(0, std::to_string(i).size()), std::to_string(i));
  EXPECT_EQ(run_number(yfpfnfs, f, 3, 2).flags & XF_FLAG_UNFORMATTED, XF_FLAG_UNFORMATTED);
}

TEST(numeric_lookup, bisection_agrees_with_linear_on_random_sorted_tables) {
  auto g = rng(11);
  uint64_t tables = scaled(200);
  for (uint64_t t = 0; t < tables; ++t) {
    memory_format f;
    int n = static_cast<int>(g() % 60) + 1;
    double at = -100.0 + static_cast<double>(g() % 50);
    for (int i = 0; i < n; ++i) {
      double len = static_cast<double>(g() % 8);
      uint8_t flags = static_cast<uint8_t>(g() % 2 ? XF_RANGE_END_EXCL : 0);
      bool single = len == 0 && g() % 2;
      if (single) f.value(at, "v" + std::to_string(i));
      else f.range(at, at + len, "r" + std::to_string(i), (len == 0 ? 0 : flags));
      // Next start: shared boundary when this end is excluded, else beyond it.
      at += len + ((flags && len > 0) ? 0.0 : 1.0 + static_cast<double>(g() % 3));
    }
    for (int k = 0; k < 200; ++k) {
      double v = -105.0 + static_cast<double>(g() % 2000) * 0.25;
      result a = run_number(yfpfnfn, f, v, 4);
      result b = run_number(yfpfnfm, f, v, 4);
      ASSERT_EQ(a.text, b.text) << "seed " << test_seed() << " table " << t << " value " << v;
      ASSERT_EQ(a.flags, b.flags);
    }
  }
}

}  // namespace
