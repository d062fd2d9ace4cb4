// No heap allocation per value: operator new (and, outside the sanitizer
// builds, malloc itself) count calls while a million values are printed.
#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <cstring>
#include <new>

#include "support/random.hpp"
#include "xfmt/xfmt.h"

#include "support/allocation_counter.hpp"

namespace {

// zfmt over every width and decimals code and the other plain-number formats
// called directly, then every other family through the handles a host
// resolves: dates, times, national formats (after the first value in each
// locale, which reads the locale), money, the euro formats, text, binary, and
// the informats. Values, fields and handles are prepared, and each handle has
// converted a date and a datetime, before counting starts.
TEST(allocations, none_per_value) {
  if (!counts_allocations) GTEST_SKIP() << "this build cannot count allocations";
  auto g = xfmt::test::rng(11);
  double values[1024];
  for (double &v : values) {
    v = std::bit_cast<double>(g());
    if (g() % 2) v = static_cast<double>(static_cast<int64_t>(g() % 20000000) - 10000000) / 100.0;
  }
  char out[128];
  xf_frame f{};
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  const int32_t codes[] = {0, 2, 5, 31, 99, 98, 83, -999, -3};
  const xf_routine others[] = {zfmb, zfmbx, zfmexp, zfmd, zfmz, zfmcma, zfmcmax, zfmdlr,
                               zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn, zfmpct, pctn};
  struct request {
    const char *name;
    int32_t kind, w, d;
    uint64_t locale;
    const char *text;  // informat input; formats read a number
  };
  const request requests[] = {
      {"DATE", 0, 9, 0, 0, nullptr},        {"WEEKDATE", 0, 29, 0, 0, nullptr},
      {"TIME", 0, 12, 2, 0, nullptr},       {"DATETIME", 0, 20, 0, 0, nullptr},
      {"E8601DT", 0, 19, 0, 0, nullptr},    {"E8601LZ", 0, 14, 0, 0, nullptr},
      {"WORDDATX", 0, 25, 0, 0, nullptr},   {"NLDATE", 0, 30, 0, 64, nullptr},
      {"NLDATE", 0, 30, 0, 79, nullptr},    {"NLDATM", 0, 40, 2, 131, nullptr},
      {"NLMNIEUR", 0, 16, 2, 97, nullptr},  {"NLMNLJPY", 0, 16, 2, 19, nullptr},
      {"EURFRDEM", 0, 12, 2, 0, nullptr},   {"WORDS", 0, 80, 0, 0, nullptr},
      {"ROMAN", 0, 12, 0, 0, nullptr},      {"HEX", 0, 16, 0, 0, nullptr},
      {"PD", 0, 8, 0, 0, nullptr},          {"PVALUE", 0, 8, 3, 0, nullptr},
      {"F", 73, 12, 2, 0, "  1234.5  "},    {"COMMA", 73, 12, 0, 0, "$1,234.50"},
      {"DATE", 73, 9, 0, 0, "04JUL2023"},   {"DATETIME", 73, 18, 0, 0, "04JUL2023:10:11:12"},
      {"TIME", 73, 8, 0, 0, "10:11:12"},    {"MMDDYY", 73, 10, 0, 0, "07:04:2023"},
      {"$CHAR", 73, 8, 0, 0, "abc"},        {"HEX", 73, 4, 0, 0, "1F2E"},
  };
  constexpr size_t n = std::size(requests);
  void *handles[n] = {};
  double value = 0;
  auto convert = [&](size_t i) {
    const request &r = requests[i];
    xf_frame h{};
    h.width = r.w;
    h.decimals = r.d;
    h.option_word = r.locale;
    if (r.text != nullptr) {
      h.input = r.text;
      h.input_length = static_cast<uint32_t>(std::strlen(r.text));
    } else {
      h.input = &value;
      h.input_length = 8;
    }
    h.output = out;
    h.output_capacity = sizeof out;
    return xffmt(&h, handles[i]) + h.output_length;
  };
  for (size_t i = 0; i < n; ++i) {
    const request &r = requests[i];
    ASSERT_EQ(xfname(r.name, static_cast<int32_t>(std::strlen(r.name)), r.kind, nullptr, &handles[i]), XF_OK)
        << r.name;
    for (double v : {0.0, 23451.0, 1.5e9 + 0.25}) {  // a date, a datetime: the first values
      value = v;
      convert(i);
    }
  }
  const uint64_t count = xfmt::test::scaled(1000000);
  uint64_t sum = 0;

  allocations = 0;
  counting = true;
  for (uint64_t i = 0; i < count; ++i) {
    f.input = &values[i & 1023];
    f.width = 1 + static_cast<int32_t>(i % 32);
    f.decimals = codes[i % 9];
    sum += zfmt(&f) + f.output_length;
  }
  for (uint64_t i = 0; i < count / 10; ++i) {
    f.input = &values[i & 1023];
    f.width = 2 + static_cast<int32_t>(i % 31);
    f.decimals = static_cast<int32_t>(i % 4);
    sum += others[i % 15](&f) + f.output_length;
  }
  for (uint64_t k = 0; k < count / 5; ++k) {
    value = static_cast<double>(k % 30000) * 86400.0 / 7.0 + 0.5;
    sum += convert(k % n);
  }
  counting = false;
  EXPECT_EQ(allocations.load(), 0u) << "checksum " << sum;
  for (void *h : handles) xfdel(h);
}

TEST(allocations, the_counter_sees_an_allocation) {
  if (!counts_allocations) GTEST_SKIP() << "this build cannot count allocations";
  allocations = 0;
  counting = true;
  void *p = ::operator new(16);  // a direct call: never elided like a new-expression
  counting = false;
  ::operator delete(p);
  EXPECT_GE(allocations.load(), 1u);
}

}  // namespace
