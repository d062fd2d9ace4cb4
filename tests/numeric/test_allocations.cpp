// No heap allocation per value: operator new (and, outside the sanitizer
// builds, malloc itself) count calls while a million values are printed.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

#include "support/random.hpp"
#include "xfmt/xfmt.h"

#if defined(__SANITIZE_ADDRESS__)
#define XFMT_COUNT_MALLOC 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer)
#define XFMT_COUNT_MALLOC 0
#endif
#endif
#ifndef XFMT_COUNT_MALLOC
#define XFMT_COUNT_MALLOC 1
#endif

namespace {
std::atomic<bool> counting{false};
std::atomic<uint64_t> allocations{0};
void note() {
  if (counting.load(std::memory_order_relaxed)) allocations.fetch_add(1, std::memory_order_relaxed);
}
}  // namespace

#if XFMT_COUNT_MALLOC
extern "C" void *__libc_malloc(size_t);
extern "C" void *__libc_calloc(size_t, size_t);
extern "C" void *__libc_realloc(void *, size_t);
extern "C" void __libc_free(void *);
extern "C" void *malloc(size_t n) {
  note();
  return __libc_malloc(n);
}
extern "C" void *calloc(size_t a, size_t b) {
  note();
  return __libc_calloc(a, b);
}
extern "C" void *realloc(void *p, size_t n) {
  note();
  return __libc_realloc(p, n);
}
extern "C" void free(void *p) { __libc_free(p); }
#endif

void *operator new(std::size_t n) {
  note();
  void *p = std::malloc(n ? n : 1);
  if (!p) throw std::bad_alloc();
  return p;
}
void *operator new[](std::size_t n) {
  note();
  void *p = std::malloc(n ? n : 1);
  if (!p) throw std::bad_alloc();
  return p;
}
void operator delete(void *p) noexcept { std::free(p); }
void operator delete[](void *p) noexcept { std::free(p); }
void operator delete(void *p, std::size_t) noexcept { std::free(p); }
void operator delete[](void *p, std::size_t) noexcept { std::free(p); }

namespace {

TEST(allocations, none_per_value) {
  // Values and fields prepared before counting starts.
  auto g = xfmt::test::rng(11);
  double values[1024];
  for (double &v : values) {
    uint64_t b = g();
    std::memcpy(&v, &b, sizeof v);
    if (g() % 2) v = static_cast<double>(static_cast<int64_t>(g() % 20000000) - 10000000) / 100.0;
  }
  char out[40];
  xf_frame f{};
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  const int32_t codes[] = {0, 2, 5, 31, 99, 98, 83, -999, -3};
  const xf_routine others[] = {zfmb, zfmbx, zfmexp, zfmd, zfmz, zfmcma, zfmcmax, zfmdlr,
                               zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn, zfmpct, pctn};
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
  counting = false;
  EXPECT_EQ(allocations.load(), 0u) << "checksum " << sum;
}

TEST(allocations, the_counter_sees_an_allocation) {
  allocations = 0;
  counting = true;
  void *p = ::operator new(16);  // a direct call: never elided like a new-expression
  counting = false;
  ::operator delete(p);
  EXPECT_GE(allocations.load(), 1u);
}

}  // namespace
