// Numeric value-label lookup: keys, UTF-16 delivery, label lists and a
// table of single values (the single lookups are rows of
// tests/data/userfmt/lookups.txt; bisection against the linear search over
// random sorted tables is the reader's indexed-bisection test and
// fuzz_lookup_numeric).
#include <gtest/gtest.h>

#include <limits>

#include "support/frame.hpp"
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
  // Unasked, the field stays in the host's bytes.
  EXPECT_EQ(run_number(yfpfnfn, f, 7, 3).encoding, 0u);
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

}  // namespace
