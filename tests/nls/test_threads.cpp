// National formats from many threads at once: the money conventions read on
// first use, the kept date patterns, the per-thread converters and the euro
// set-up. Meant to be run under ThreadSanitizer as well. The first calls of
// the process are the threads' own, on the cases of the national case files
// that need no process setting of their own, each held to its expected bytes.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "support/cases.hpp"

namespace {

using xfmt::test::format_case;

TEST(threads, national_formats_from_many_threads) {
  std::vector<format_case> cases;
  for (const char *file : {"nls/members.txt", "nls/national_numbers.txt", "nls/euro.txt"})
    for (const format_case &c : xfmt::test::read_cases(file))
      if (!c.utf8_codeset && c.zone.empty() && c.zav_locale.empty()) cases.push_back(c);
  ASSERT_GT(cases.size(), 100u);
  std::atomic<int> bad{0};
  std::atomic<bool> go{false};
  std::vector<std::thread> pool;
  for (size_t t = 0; t < 8; ++t) {
    pool.emplace_back([&, t] {
      while (!go.load()) std::this_thread::yield();
      for (size_t i = 0; i < cases.size(); ++i)
        if (!xfmt::test::holds(cases[(i + t * 17) % cases.size()])) ++bad;
    });
  }
  go = true;
  for (auto &th : pool) th.join();
  EXPECT_EQ(bad.load(), 0);
}

}  // namespace
