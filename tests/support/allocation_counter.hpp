// Counts heap allocations while `counting` is set, for the tests that prove
// no conversion allocates per value. It replaces operator new (and, outside
// the sanitizer builds, malloc, calloc and realloc themselves), so include it
// in exactly one source file of a test program.
//
// ThreadSanitizer brings its own operator new, which cannot be replaced as
// well: there nothing is replaced and `counts_allocations` is false, so the
// tests that need the count skip.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_THREAD__)
#define XFMT_COUNT_NEW 0
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define XFMT_COUNT_NEW 0
#endif
#endif
#ifndef XFMT_COUNT_NEW
#define XFMT_COUNT_NEW 1
#endif

#if !XFMT_COUNT_NEW || defined(__SANITIZE_ADDRESS__)
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
constexpr bool counts_allocations = XFMT_COUNT_NEW != 0;
std::atomic<bool> counting{false};
std::atomic<uint64_t> allocations{0};
[[maybe_unused]] void note() {
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

#if XFMT_COUNT_NEW
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
#endif
