// National formats from many threads at once: the money conventions read on
// first use, the per-thread converters and the euro set-up. Meant to be run
// under ThreadSanitizer as well; each thread checks its bytes against a lone
// call made before the threads start.
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
  std::vector<std::string> want;
  for (const job &j : jobs) want.push_back(call(j.r, j.v, j.w, j.d, j.locale));
  std::atomic<int> bad{0};
  std::atomic<bool> go{false};
  std::vector<std::thread> pool;
  for (int t = 0; t < 8; ++t) {
    pool.emplace_back([&, t] {
      while (!go.load()) std::this_thread::yield();
      for (int i = 0; i < 100; ++i) {
        size_t k = static_cast<size_t>(t + i) % (sizeof jobs / sizeof jobs[0]);
        const job &j = jobs[k];
        if (call(j.r, j.v, j.w, j.d, j.locale) != want[k]) ++bad;
      }
    });
  }
  go = true;
  for (auto &th : pool) th.join();
  EXPECT_EQ(bad.load(), 0);
}

}  // namespace
