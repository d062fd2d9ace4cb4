// National formats from many threads at once: the money conventions read on
// first use, the per-thread converters and the euro set-up. Meant to be run
// under ThreadSanitizer as well. The first calls of the process are the
// threads' own; each result is compared with a lone call made afterwards.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/frame.hpp"

namespace {

using xfmt::test::frame_box;

std::string call(xf_routine r, double v, int w, int d, uint64_t locale) {
  frame_box b = frame_box::number(v, w, d);
  b.f.option_word = locale;
  xf_status st = r(&b.f);
  return std::to_string(st) + "|" + b.buffer();
}

TEST(threads, national_formats_from_many_threads) {
  struct job {
    xf_routine r;
    double v;
    int w, d;
    uint64_t locale;
  };
  const job jobs[] = {
      {nldate, 60, 20, 0, 64},  {nlmnleur, -1234.5, 14, 2, 64}, {nlmnlaed, 99.5, 16, 2, 19},
      {nldatm, 1e9, 30, 3, 79}, {nltimap, 45000, 20, 0, 131},   {eurfrdem, 195.583, 10, 2, 0},
      {eurtoitl, 1, 12, 0, 0},  {nlstrmon, 3, 20, 0, 97},
  };
  constexpr size_t job_count = sizeof jobs / sizeof jobs[0];
  std::vector<std::vector<std::string>> seen(8);
  std::atomic<bool> go{false};
  std::vector<std::thread> pool;
  for (size_t t = 0; t < seen.size(); ++t) {
    pool.emplace_back([&, t] {
      while (!go.load()) std::this_thread::yield();
      for (size_t i = 0; i < 100; ++i) {
        const job &j = jobs[(t + i) % job_count];
        seen[t].push_back(call(j.r, j.v, j.w, j.d, j.locale));
      }
    });
  }
  go = true;
  for (auto &th : pool) th.join();
  int bad = 0;
  for (size_t t = 0; t < seen.size(); ++t)
    for (size_t i = 0; i < seen[t].size(); ++i) {
      const job &j = jobs[(t + i) % job_count];
      bad += seen[t][i] != call(j.r, j.v, j.w, j.d, j.locale);
    }
  EXPECT_EQ(bad, 0);
}

}  // namespace
