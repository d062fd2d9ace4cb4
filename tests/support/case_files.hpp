// Every case file of a folder under tests/data as a test of its own: a test
// binary instantiates
//
//   INSTANTIATE_CASE_FILES(numeric);
//
// and each numeric/*.txt runs through run_case_file under its own name, so
// a new file of cases needs no code.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/cases.hpp"

namespace xfmt::test {

// The .txt files of tests/data/<folder>, as paths relative to tests/data.
inline std::vector<std::string> case_files(const std::string &folder) {
  std::vector<std::string> files;
  const std::filesystem::path dir = std::filesystem::path(XFMT_SOURCE_DIR) / "tests" / "data" / folder;
  for (const auto &e : std::filesystem::directory_iterator(dir))
    if (e.path().extension() == ".txt") files.push_back(folder + "/" + e.path().filename().string());
  std::sort(files.begin(), files.end());
  return files;
}

class case_file : public testing::TestWithParam<std::string> {};

inline std::string case_file_name(const testing::TestParamInfo<std::string> &info) {
  return std::filesystem::path(info.param).stem().string();
}

}  // namespace xfmt::test

#define INSTANTIATE_CASE_FILES(folder)                                              \
  using xfmt::test::case_file;                                                      \
  TEST_P(case_file, holds) { xfmt::test::run_case_file(GetParam()); }               \
  INSTANTIATE_TEST_SUITE_P(folder, case_file,                                       \
                           testing::ValuesIn(xfmt::test::case_files(#folder)),      \
                           xfmt::test::case_file_name)
