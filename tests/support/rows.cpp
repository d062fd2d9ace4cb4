// The tab-separated tables of support/rows.hpp.
#include "support/rows.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace xfmt::test {

std::vector<std::vector<std::string>> tab_lines(const std::string &path) {
  std::vector<std::vector<std::string>> lines;
  for (auto &r : tab_rows(path)) lines.emplace_back(r.begin() + 1, r.end());
  return lines;
}

std::vector<std::vector<std::string>> tab_rows(const std::string &path) {
  std::vector<std::vector<std::string>> lines;
  std::ifstream in(std::string(XFMT_SOURCE_DIR) + "/tests/data/" + path);
  EXPECT_TRUE(in.good()) << "cannot read tests/data/" << path;
  int number = 0;
  for (std::string s; std::getline(in, s);) {
    ++number;
    if (s.empty() || s[0] == '#') continue;
    std::vector<std::string> fields{path + ":" + std::to_string(number), ""};
    for (char c : s) {
      if (c == '\t') fields.emplace_back();
      else fields.back().push_back(c);
    }
    lines.push_back(std::move(fields));
  }
  EXPECT_FALSE(lines.empty()) << "tests/data/" << path << " holds no rows";
  return lines;
}

std::string unescaped(const std::string &field) {
  std::string out;
  for (size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\' || i + 1 == field.size()) {
      out += field[i];
      continue;
    }
    const char e = field[++i];
    if (e == 'x') {
      out += static_cast<char>(std::strtol(field.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      out += e == 't' ? '\t' : e == 'n' ? '\n' : e == 'r' ? '\r' : e == '0' ? '\0' : e;
    }
  }
  return out;
}

int64_t int_of(const std::string &field) { return std::stoll(field, nullptr, 0); }

}  // namespace xfmt::test
