// Fault: a nested label resolved its inner format by name on every value
// (nine allocations per value for a label naming its own format). Labels are
// now bound when the format is resolved; a cycle is found there and answered
// with stars. malloc, calloc, realloc and operator new count calls while
// values are written.
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "userfmt/control_files.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

#include "support/allocation_counter.hpp"

using namespace xfmt::test;

namespace {

// SIZE names GRADE, the catalogued F, an unknown name and itself; LOOPA and
// LOOPB name each other.
struct nesting_catalog {
  memory_format grade{1, "GRADE"};
  memory_format size{1, "SIZE"};
  memory_format loopa{1, "LOOPA"};
  memory_format loopb{1, "LOOPB"};
  xf_user_format headers[5];
  std::vector<const void *> ranges;
  xf_ufmt_context ctx{};

  nesting_catalog() {
    grade.range(0, 5, "low");
    grade.range(5, 10, "high", XF_RANGE_START_EXCL);
    grade.done();
    size.range_label(0, 10, size.format_label("GRADE", 4, 0));
    size.range_label(10, 100, size.format_label("F", 6, 2));
    size.range_label(100, 1000, size.format_label("NOSUCH", 3, 0));
    size.range_label(1000, 2000, size.format_label("SIZE", 8, 0));
    size.done();
    loopa.range_label(0, 10, loopa.format_label("LOOPB", 6, 0));
    loopa.done();
    loopb.range_label(0, 10, loopb.format_label("LOOPA", 6, 0));
    loopb.done();
    memory_format *all[] = {&grade, &size, &loopa, &loopb};
    std::memcpy(&headers[0], grade.anchor(), sizeof(xf_user_format));
    for (int i = 0; i < 4; ++i) {
      std::memcpy(&headers[i + 1], all[i]->header(), sizeof(xf_user_format));
      if (i < 3) headers[i + 1].marker[0] = 'N';  // not the last header
      for (int64_t k = 0; k < all[i]->header()->range_count; ++k)
        ranges.push_back(static_cast<void **>(all[i]->ranges())[k]);
    }
    ctx.source = 5;
    ctx.catalog = headers;
    ctx.catalog_ranges = ranges.data();
  }
};

TEST(nested_label_resolved_per_value, self_nested_label_allocates_nothing_per_value) {
  nesting_catalog cat;
  resolved size("SIZE", &cat.ctx);
  ASSERT_EQ(size.status, XF_OK);
  const double values[] = {3, 7, 12.345, 500, 1500, 5000};
  const char *expected[] = {"low ", "high", " 12.35", "********", "********", nullptr};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(put(size.handle, values[i], 8).text, expected[i]) << values[i];
  resolved grade("GRADE", &cat.ctx);
  ASSERT_EQ(grade.status, XF_OK);
  EXPECT_EQ(put(grade.handle, 7, 4).text, "high");
  EXPECT_EQ(resolved("GRADEX", &cat.ctx).status, 1u);  // no such format in the catalog

  // Frames prepared before counting starts; std::string stays out of the loop.
  char out[16];
  xf_frame f{};
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  f.width = 8;
  uint64_t sum = 0;
  allocations = 0;
  counting = true;
  for (int k = 0; k < 20000; ++k) {
    f.input = &values[k % 6];
    sum += xffmt(&f, size.handle) + f.output_length + static_cast<unsigned char>(out[0]);
  }
  counting = false;
  if (counts_allocations) {
    EXPECT_EQ(allocations.load(), 0u) << "checksum " << sum;
  }
}

TEST(nested_label_resolved_per_value, cycle_through_two_formats_is_found_at_resolution) {
  nesting_catalog cat;
  resolved a("LOOPA", &cat.ctx);
  ASSERT_EQ(a.status, XF_OK);
  // LOOPA -> LOOPB -> LOOPA: the inner LOOPA is the cycle, written as stars
  // over the label's field with status 0, as an unknown name is.
  written w = put(a.handle, 1, 6);
  EXPECT_EQ(w.text, "******");
  EXPECT_EQ(w.status, XF_OK);
  resolved b("LOOPB", &cat.ctx);
  ASSERT_EQ(b.status, XF_OK);
  EXPECT_EQ(put(b.handle, 1, 4).text, "****");
  // The counter works: resolution allocates (seen only where malloc itself
  // is counted; the sanitizer builds keep their own).
  if (!XFMT_COUNT_MALLOC) return;
  allocations = 0;
  counting = true;
  void *h = nullptr;
  xf_status st = xfname2("LOOPA", 5, 0, nullptr, &h, &cat.ctx);
  counting = false;
  xfrelease(h);
  EXPECT_EQ(st, XF_OK);
  EXPECT_GE(allocations.load(), 1u);
}

}  // namespace
