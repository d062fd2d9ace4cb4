// Every one of the 136 records has the shape the national-language formats
// rely on: fixed vocabularies, numbers that parse, patterns in the date
// expander's language, pictures in the money language, escapes well formed.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "nls/locale.hpp"
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

bool is_digits(const std::string &s) { return std::regex_match(s, std::regex("[0-9]+")); }

class each_record : public ::testing::TestWithParam<int> {};

TEST_P(each_record, identity) {
  const int id = GetParam();
  EXPECT_EQ(f(id, 0), f(id, 1) + "_" + f(id, 3));
  EXPECT_TRUE(std::regex_match(f(id, 2), std::regex("[a-z]{2}")));
  EXPECT_EQ(f(id, 2), f(id, 4));
  EXPECT_TRUE(std::regex_match(f(id, 5), std::regex("[A-Z]{2}")));
  for (int k = 8; k <= 12; ++k) EXPECT_EQ(f(id, k), "") << k;
  for (int k = 13; k <= 27; ++k) EXPECT_NE(f(id, k), "") << k;
}

TEST_P(each_record, date_order_and_paper) {
  const int id = GetParam();
  const std::string order = f(id, 6);
  ASSERT_TRUE(order == "DMY" || order == "MDY" || order == "YMD") << order;
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
  const std::string sep = f(id, 153);
  EXPECT_TRUE(sep == "-" || sep == "." || sep == "/") << sep;

  const std::string paper = f(id, 7);
  if (paper == "A4") {
    EXPECT_EQ(f(id, 187), "297");
    EXPECT_EQ(f(id, 188), "210");
  } else {
    EXPECT_EQ(paper, "LETTER");
    EXPECT_EQ(f(id, 187), "279");
    EXPECT_EQ(f(id, 188), "216");
  }
}

TEST_P(each_record, patterns_use_known_conversions) {
  const int id = GetParam();
  for (int k = 28; k <= 58; ++k) {
    const std::string p = f(id, k);
    EXPECT_NE(p, "") << k;
    EXPECT_EQ(pattern_problem(p, k == 58), "") << "field " << k << ": " << p;
    EXPECT_NE(p.find('%'), std::string::npos) << k;
    EXPECT_EQ(p, std::string(p.c_str()));               // no NUL inside
    EXPECT_TRUE(p.back() != ' ' && p.front() != ' ') << k << ": [" << p << "]";
  }
  EXPECT_EQ(f(id, 58), "%x %X");
}

TEST_P(each_record, names_present) {
  const int id = GetParam();
  for (int k = 59; k <= 152; ++k) EXPECT_NE(f(id, k), "") << "field " << k;
}

TEST_P(each_record, escapes_well_formed) {
  const int id = GetParam();
  for (int k = 0; k < 189; ++k) EXPECT_TRUE(escapes_ok(f(id, k), k == 170)) << k << ": " << f(id, k);
}

TEST_P(each_record, numeric_fields_parse) {
  const int id = GetParam();
  EXPECT_TRUE(f(id, 154) == "0" || f(id, 154) == "1" || f(id, 154) == "6");
  const std::regex grouping("[0-9](;[0-9])*");
  EXPECT_TRUE(std::regex_match(f(id, 159), grouping)) << f(id, 159);
  EXPECT_TRUE(std::regex_match(f(id, 174), grouping)) << f(id, 174);
  EXPECT_TRUE(is_digits(f(id, 162)) && is_digits(f(id, 163)));
  EXPECT_LE(std::stoi(f(id, 163)), 3);
  for (int base : {164, 177}) {
    EXPECT_TRUE(f(id, base) == "0" || f(id, base) == "1");          // precedes
    EXPECT_TRUE(f(id, base + 2) == "0" || f(id, base + 2) == "1");
    EXPECT_TRUE(std::regex_match(f(id, base + 1), std::regex("[0-2]")));  // space
    EXPECT_TRUE(std::regex_match(f(id, base + 3), std::regex("[0-2]")));
    EXPECT_TRUE(std::regex_match(f(id, base + 4), std::regex("[0-4]")));  // sign position
    EXPECT_TRUE(std::regex_match(f(id, base + 5), std::regex("[0-4]")));
  }
  for (int k = 0; k < 6; ++k) EXPECT_EQ(f(id, 177 + k), f(id, 164 + k));
}

TEST_P(each_record, money_and_number_marks) {
  const int id = GetParam();
  EXPECT_TRUE(std::regex_match(f(id, 155), std::regex("[A-Z]{3}"))) << f(id, 155);
  EXPECT_NE(f(id, 156), "");
  EXPECT_NE(f(id, 157), "");
  EXPECT_NE(f(id, 161), "");
  EXPECT_TRUE(f(id, 172) == "." || f(id, 172) == ",") << f(id, 172);  // one ASCII byte
  EXPECT_NE(f(id, 176), "");
  EXPECT_NE(f(id, 157), f(id, 158));
  EXPECT_NE(f(id, 172), f(id, 173));
}

TEST_P(each_record, pictures) {
  const int id = GetParam();
  // Digits, marks, the currency sign and blanks (plain or no-break) only.
  const std::regex money_local("([#0,.]|<u00a4>|<U00A0>| |-)+");
  const std::regex money_neutral("([#0,.]|<U00A4>|<U00A0>| |-)+");
  const std::regex number("([#0,.%]|<U00A0>| )+");
  EXPECT_TRUE(std::regex_match(f(id, 170), money_local)) << f(id, 170);
  EXPECT_NE(f(id, 170).find("<u00a4>"), std::string::npos);
  EXPECT_TRUE(std::regex_match(f(id, 171), money_neutral)) << f(id, 171);
  EXPECT_NE(f(id, 171).find("<U00A4>"), std::string::npos);
  for (int k = 183; k <= 186; ++k) {
    EXPECT_TRUE(std::regex_match(f(id, k), number)) << k << ": " << f(id, k);
    EXPECT_NE(f(id, k).find('0'), std::string::npos) << k;
  }
  EXPECT_NE(f(id, 185).find('%'), std::string::npos);
  EXPECT_NE(f(id, 186).find('%'), std::string::npos);
  // Neutral pictures group with "," and mark decimals with "."; local ones
  // swap the two where the locale's decimal mark is a comma.
  EXPECT_EQ(f(id, 184).find(",") < f(id, 184).find("."), true) << f(id, 184);
  if (id != 1 && f(id, 172) == ",") {
    EXPECT_NE(f(id, 183).find(','), std::string::npos);
  }
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
