// Every family at once on eight threads, while two more resolve and delete
// handles: catalog numbers, dates and the zoned forms (the time zone's first
// use), national formats in several locales, the euro formats' first use,
// user-defined formats read from the control file, informats. Each result is
// compared with a lone call made before the threads start. Run under
// ThreadSanitizer in CI (XFMT_TSAN), where any race is a failure.
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

struct job {
  const char *name;
  int32_t kind;     // 0 format, 73 informat
  bool user;        // read from cntlout.xml in the working directory
  double value;
  const char *text;  // informat input
  int32_t w, d;
  uint64_t locale;
};

const job jobs[] = {
    {"F", 0, false, -1234.5678, nullptr, 12, 3, 0},
    {"COMMA", 0, false, 1234567.891, nullptr, 14, 2, 0},
    {"BEST", 0, false, 3.14159e-7, nullptr, 12, 0, 0},
    {"WORDS", 0, false, 1234.0, nullptr, 60, 0, 0},
    {"DATE", 0, false, 23451, nullptr, 9, 0, 0},
    {"E8601LZ", 0, false, 45000, nullptr, 14, 0, 0},
    {"DATETIME", 0, false, 2e9, nullptr, 20, 0, 0},
    {"NLDATE", 0, false, 23451, nullptr, 30, 0, 64},
    {"NLDATE", 0, false, 23451, nullptr, 30, 0, 79},
    {"NLDATMTZ", 0, false, 2e9, nullptr, 32, 0, 131},
    {"NLMNIEUR", 0, false, -1234.5, nullptr, 16, 2, 97},
    {"NLMNLJPY", 0, false, 99.5, nullptr, 16, 2, 19},
    {"EURFRDEM", 0, false, 195.583, nullptr, 12, 2, 0},
    {"EURTOITL", 0, false, 1.0, nullptr, 14, 0, 0},
    {"AGEGRP", 0, true, 15, nullptr, 12, 0, 0},
    {"MONEY", 0, true, 1234.567, nullptr, 14, 0, 0},
    {"STAMP", 0, true, 23195, nullptr, 10, 0, 0},
    {"F", 73, false, 0, "  12.5e3", 8, 0, 0},
    {"COMMA", 73, false, 0, "$1,234.50", 9, 0, 0},
    {"DATE", 73, false, 0, "04JUL2023", 9, 0, 0},
};

const std::string &control_file() {
  static const std::string path = std::string(XFMT_SOURCE_DIR) + "/tests/data/cntlout.xml";
  return path;
}

void *resolve(const job &j) {
  void *h = nullptr;
  const auto len = static_cast<int32_t>(std::strlen(j.name));
  if (j.user) {
    xf_ufmt_context ctx{};
    ctx.control_path = control_file().c_str();
    return xfname2(j.name, len, j.kind, nullptr, &h, &ctx) == XF_OK ? h : nullptr;
  }
  return xfname(j.name, len, j.kind, nullptr, &h) == XF_OK ? h : nullptr;
}

// The status and the whole output buffer, bytes left untouched included.
std::string convert(const job &j, void *h) {
  frame_box b = j.kind == 73 ? frame_box::chars(j.text, j.w, j.d, 128) : frame_box::number(j.value, j.w, j.d, 128);
  b.f.option_word = j.locale;
  const xf_status st = xffmt(&b.f, h);
  return std::to_string(st) + "|" + b.buffer();
}

TEST(concurrency, every_family_on_eight_threads_while_handles_come_and_go) {
  std::vector<void *> handles;
  for (const job &j : jobs) {
    void *h = resolve(j);
    EXPECT_NE(h, nullptr) << j.name;
    if (h != nullptr) handles.push_back(h);
  }
  if (handles.size() != std::size(jobs)) {
    for (void *h : handles) xfrelease(h);
    return;
  }
  // The workers make the first conversions of the process (the time zone,
  // the locales, the euro tables are set up on first use, all at once); the
  // lone calls that give the expected bytes come after them.
  constexpr size_t workers = 8;
  std::vector<std::vector<std::string>> first(workers, std::vector<std::string>(std::size(jobs)));
  std::atomic<bool> go{false}, done{false};
  std::atomic<int> bad{0};
  std::vector<std::thread> threads;
  for (size_t t = 0; t < workers; ++t) {
    threads.emplace_back([&, t] {
      while (!go.load()) std::this_thread::yield();
      for (int round = 0; round < 40; ++round) {
        for (size_t k = 0; k < std::size(jobs); ++k) {
          const size_t i = (k + t * 3) % std::size(jobs);
          std::string got = convert(jobs[i], handles[i]);
          if (round == 0) first[t][i] = std::move(got);
          else if (got != first[t][i]) bad.fetch_add(1);
        }
      }
    });
  }
  for (size_t t = 0; t < 2; ++t) {
    threads.emplace_back([&, t] {
      while (!go.load()) std::this_thread::yield();
      for (size_t n = 0; !done.load() || n < 40; ++n) {
        const job &j = jobs[(n * 7 + t) % std::size(jobs)];
        void *h = resolve(j);
        if (h == nullptr) {
          bad.fetch_add(1);
          continue;
        }
        convert(j, h);
        xfdel(h);
      }
    });
  }
  go.store(true);
  for (size_t t = 0; t < workers; ++t) threads[t].join();
  done.store(true);
  for (size_t t = workers; t < threads.size(); ++t) threads[t].join();
  EXPECT_EQ(bad.load(), 0);
  for (size_t i = 0; i < std::size(jobs); ++i) {
    void *h = resolve(jobs[i]);
    const std::string want = convert(jobs[i], h);
    xfdel(h);
    EXPECT_EQ(want.substr(0, 2), "0|") << jobs[i].name;  // every job converts
    for (size_t t = 0; t < workers; ++t) EXPECT_EQ(first[t][i], want) << jobs[i].name << " thread " << t;
  }
  for (void *h : handles) xfrelease(h);
}

}  // namespace
