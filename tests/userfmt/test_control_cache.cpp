// The parsed-file cache of the control-file reader: one parse for many
// names, a rewritten file read again, and many threads resolving at once.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "userfmt/control_files.hpp"
#include "userfmt/control_reader.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

// A control file of `count` formats F0, F1, ...: format Fi labels 1..9 as
// "<prefix>i". Its time is set an hour back, as a file at rest would be.
std::string many_formats_file(const std::string &file, int count, const std::string &prefix,
                              int hours_back = 1) {
  std::vector<control_row> rows;
  for (int i = 0; i < count; ++i)
    rows.push_back({"F" + std::to_string(i), "N", "1", "9", prefix + std::to_string(i), ""});
  return write_control_file(file, rows, hours_back);
}

// The label format `name` of the file gives the value 5 (without its
// padding), or the read code.
std::string label_of(const std::string &path, const std::string &name) {
  read_request r(path, name);
  if (r.rc != 0) return "rc " + std::to_string(r.rc);
  const std::string label = xfmt::test::label_of(r, "5", 12);
  return label.substr(0, label.find_last_not_of(' ') + 1);
}

TEST(control_cache, many_names_from_one_file_parse_it_once) {
  const std::string path = many_formats_file("cache_many.xml", 1000, "L");
  const std::size_t before = xfmt::userfmt::control_file_parses();
  for (int i = 0; i < 1000; ++i)
    ASSERT_EQ(label_of(path, "F" + std::to_string(i)), "L" + std::to_string(i)) << i;
  EXPECT_EQ(label_of(path, "NOSUCH"), "rc 1");
  EXPECT_EQ(xfmt::userfmt::control_file_parses() - before, 1u);
}

TEST(control_cache, rewritten_file_is_read_again) {
  const std::string path = many_formats_file("cache_rewrite.xml", 3, "A");
  EXPECT_EQ(label_of(path, "F2"), "A2");
  const std::size_t before = xfmt::userfmt::control_file_parses();
  // Same size, another time.
  many_formats_file("cache_rewrite.xml", 3, "B", 2);
  EXPECT_EQ(label_of(path, "F2"), "B2");
  // Another size, the same time as before.
  many_formats_file("cache_rewrite.xml", 3, "CC", 2);
  EXPECT_EQ(label_of(path, "F2"), "CC2");
  EXPECT_EQ(xfmt::userfmt::control_file_parses() - before, 2u);
}

// A file just written is not kept (its time may not change on a rewrite in
// the same clock tick); the answers stay right.
TEST(control_cache, file_written_just_now_is_read_each_time) {
  const std::string path = many_formats_file("cache_fresh.xml", 2, "N", 0);
  const std::size_t before = xfmt::userfmt::control_file_parses();
  EXPECT_EQ(label_of(path, "F1"), "N1");
  EXPECT_EQ(label_of(path, "F0"), "N0");
  EXPECT_EQ(xfmt::userfmt::control_file_parses() - before, 2u);
}

// More files than the cache keeps, in turn: each is still answered right.
TEST(control_cache, more_files_than_kept) {
  std::vector<std::string> paths;
  for (int f = 0; f < 6; ++f)
    paths.push_back(many_formats_file("cache_lru" + std::to_string(f) + ".xml", 2, "P" + std::to_string(f) + "_"));
  for (int round = 0; round < 2; ++round)
    for (int f = 0; f < 6; ++f)
      EXPECT_EQ(label_of(paths[static_cast<std::size_t>(f)], "F1"), "P" + std::to_string(f) + "_1");
}

// Eight threads resolve names from two files at once (run under
// ThreadSanitizer in CI).
TEST(concurrency, control_cache_eight_threads) {
  const std::string a = many_formats_file("cache_threads_a.xml", 50, "TA");
  const std::string b = many_formats_file("cache_threads_b.xml", 50, "TB");
  std::vector<std::thread> threads;
  std::vector<int> wrong(8, 0);
  for (int t = 0; t < 8; ++t)
    threads.emplace_back([&, t] {
      for (int i = 0; i < 50; ++i) {
        const bool first = (i + t) % 2 == 0;
        const std::string got = label_of(first ? a : b, "F" + std::to_string(i));
        if (got != (first ? "TA" : "TB") + std::to_string(i)) ++wrong[static_cast<std::size_t>(t)];
      }
    });
  for (auto &th : threads) th.join();
  for (int t = 0; t < 8; ++t) EXPECT_EQ(wrong[static_cast<std::size_t>(t)], 0) << "thread " << t;
}

}  // namespace
