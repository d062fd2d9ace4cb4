// Every one of the 136 records has the shape the national-language formats
// rely on: fixed vocabularies, numbers that parse, patterns in the date
// expander's language, pictures in the money language, escapes well formed.
#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "nls/locale.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::nls::locale_field;

std::string f(int id, int field) { return std::string(locale_field(id, field)); }

// "%", then "#" or "0", a digit 1-9, "+", "?" (each optional), then a letter
// the expander dispatches (case-insensitive; only R has no conversion).
// Returns an empty string when the pattern is fine, else what is wrong.
std::string pattern_problem(const std::string &p, bool allow_x) {
  for (size_t i = 0; i < p.size(); ++i) {
    if (p[i] != '%') continue;
    size_t j = i + 1;
    if (j < p.size() && p[j] == '%') { i = j; continue; }
    if (j < p.size() && (p[j] == '#' || p[j] == '0')) ++j;
    if (j < p.size() && p[j] >= '1' && p[j] <= '9') ++j;
    if (j < p.size() && p[j] == '+') ++j;
    if (j < p.size() && p[j] == '?') ++j;
    if (j >= p.size()) return "conversion cut short at " + std::to_string(i);
    char c = p[j];
    bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (!letter || c == 'R' || c == 'r') return std::string("unknown conversion ") + c;
    if ((c == 'x' || c == 'X') && !allow_x) return "%x or %X outside the combined pattern";
    i = j;
  }
  return {};
}

// Every "<" opens a seven-character escape "<Uxxxx>" (upper-case hex), and
// every byte is printable ASCII.
bool escapes_ok(const std::string &s, bool lower_currency_sign) {
  static const std::regex esc("^<U[0-9A-F]{4}>");
  for (size_t i = 0; i < s.size(); ++i) {
    auto c = static_cast<unsigned char>(s[i]);
    if (c < 0x20 || c > 0x7E) return false;
    if (c != '<') continue;
    std::string seven = s.substr(i, 7);
    if (lower_currency_sign && seven == "<u00a4>") { i += 6; continue; }
    if (!std::regex_search(seven, esc)) return false;
    i += 6;
  }
  return true;
}

// The field numbers of a row of tests/data/nls/locale_shape.txt: "7",
// "13-27" or "159,174".
std::vector<int> field_list(const std::string &s) {
  std::vector<int> out;
  std::stringstream in(s);
  for (std::string part; std::getline(in, part, ',');) {
    const size_t dash = part.find('-');
    const int first = std::stoi(part);
    const int last = dash == std::string::npos ? first : std::stoi(part.substr(dash + 1));
    for (int k = first; k <= last; ++k) out.push_back(k);
  }
  return out;
}

struct shape_row {
  std::string where;
  std::vector<int> fields;
  std::regex pattern;
  std::string text;
};

const std::vector<shape_row> &shape_rows() {
  static const std::vector<shape_row> rows = [] {
    std::vector<shape_row> r;
    for (const auto &l : xfmt::test::tab_rows("nls/locale_shape.txt"))
      r.push_back({l.at(0), field_list(l.at(1)), std::regex(l.at(2)), l.at(2)});
    return r;
  }();
  return rows;
}

class each_record : public ::testing::TestWithParam<int> {};

TEST_P(each_record, fields_have_their_shape) {
  const int id = GetParam();
  for (const shape_row &r : shape_rows())
    for (int k : r.fields)
      EXPECT_TRUE(std::regex_match(f(id, k), r.pattern))
          << r.where << ": field " << k << " [" << f(id, k) << "] " << r.text;
}

TEST_P(each_record, relations_between_fields) {
  const int id = GetParam();
  EXPECT_EQ(f(id, 0), f(id, 1) + "_" + f(id, 3));
  EXPECT_EQ(f(id, 2), f(id, 4));
  for (int k = 0; k < 6; ++k) EXPECT_EQ(f(id, 177 + k), f(id, 164 + k));  // money flags, twice
  EXPECT_NE(f(id, 157), f(id, 158));
  EXPECT_NE(f(id, 172), f(id, 173));
  // Local number pictures swap "," and "." where the decimal mark is a comma.
  if (id != 1 && f(id, 172) == ",") {
    EXPECT_NE(f(id, 183).find(','), std::string::npos);
  }
  const bool a4 = f(id, 7) == "A4";
  EXPECT_EQ(f(id, 187), a4 ? "297" : "279");
  EXPECT_EQ(f(id, 188), a4 ? "210" : "216");
}

TEST_P(each_record, date_order) {
  const int id = GetParam();
  const std::string order = f(id, 6);
  // The numeric date (field 29) lists day, month and year in that order.
  const std::string p = f(id, 29);
  auto at = [&](const char *re) {
    std::smatch m;
    return std::regex_search(p, m, std::regex(re)) ? static_cast<size_t>(m.position(0)) : std::string::npos;
  };
  size_t d = at("%#?[de]"), m = at("%#?m"), y = at("%\\+?[Yy]");
  ASSERT_NE(d, std::string::npos) << p;
  ASSERT_NE(m, std::string::npos) << p;
  ASSERT_NE(y, std::string::npos) << p;
  std::string got = "   ";
  auto rank = [](bool a, bool b) { return static_cast<size_t>(a) + static_cast<size_t>(b); };
  got[rank(d > m, d > y)] = 'D';
  got[rank(m > d, m > y)] = 'M';
  got[rank(y > d, y > m)] = 'Y';
  EXPECT_EQ(got, order) << p;
}

TEST_P(each_record, patterns_use_known_conversions) {
  const int id = GetParam();
  for (int k = 28; k <= 58; ++k)
    EXPECT_EQ(pattern_problem(f(id, k), k == 58), "") << "field " << k << ": " << f(id, k);
}

TEST_P(each_record, escapes_well_formed) {
  const int id = GetParam();
  for (int k = 0; k < 189; ++k) EXPECT_TRUE(escapes_ok(f(id, k), k == 170)) << k << ": " << f(id, k);
}

INSTANTIATE_TEST_SUITE_P(all, each_record, ::testing::Range(1, 137));

TEST(locale_shape, pattern_checker_catches_bad_patterns) {
  EXPECT_EQ(pattern_problem("%d %B %Y", false), "");
  EXPECT_EQ(pattern_problem("%#d. %+Y %0?b 100%%", false), "");
  EXPECT_NE(pattern_problem("%R", false), "");
  EXPECT_NE(pattern_problem("%x", false), "");
  EXPECT_NE(pattern_problem("%d %", false), "");
  EXPECT_NE(pattern_problem("%#", false), "");
  EXPECT_TRUE(escapes_ok("M<U00E4>rz", false));
  EXPECT_FALSE(escapes_ok("M<U00e4>rz", false));
  EXPECT_FALSE(escapes_ok("M<U00E4rz", false));
  EXPECT_FALSE(escapes_ok("M\xC3\xA4rz", false));
  EXPECT_TRUE(escapes_ok("<u00a4>#", true));
  EXPECT_FALSE(escapes_ok("<u00a4>#", false));
}

}  // namespace
