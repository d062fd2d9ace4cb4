// Records checked against what people in the country expect, and record 1
// (Afrikaans_SouthAfrica) against its fixed values: the fields are in
// tests/data/nls/locale_fields.txt, the relations between fields here.
#include <gtest/gtest.h>

#include <string>

#include "nls/locale.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

std::string f(int id, int field) { return std::string(xfmt::nls::locale_field(id, field)); }

bool has(const std::string &s, const char *part) { return s.find(part) != std::string::npos; }

// The fields of tests/data/nls/locale_fields.txt.
TEST(locale_samples, fields_people_expect) {
  const auto lines = xfmt::test::tab_lines("nls/locale_fields.txt");
  EXPECT_GT(lines.size(), 200u);
  for (const auto &l : lines) {
    ASSERT_GE(l.size(), 2u);
    const int id = std::stoi(l[0]), field = std::stoi(l[1]);
    EXPECT_EQ(f(id, field), l.size() > 2 ? l[2] : "") << "record " << id << " field " << field;
  }
}

TEST(locale_record_1, fields_83_to_94_repeat_59_to_70) {
  for (int k = 0; k < 12; ++k) EXPECT_EQ(f(1, 83 + k), f(1, 59 + k)) << k;
}

// Twelve- or 24-hour clocks and the characters a country writes in its dates
// (tests/data/nls/locale_parts.txt).
TEST(locale_samples, patterns_hold_what_people_expect) {
  for (const auto &r : xfmt::test::tab_rows("nls/locale_parts.txt"))
    EXPECT_EQ(has(f(std::stoi(r.at(1)), std::stoi(r.at(2))), r.at(3).c_str()), r.at(4) == "held")
        << r[0];
  EXPECT_TRUE(has(f(53, 52), "%I") || has(f(53, 52), "%#I"));
  EXPECT_TRUE(f(79, 156) == "<UFFE5>" || f(79, 156) == "<U00A5>") << f(79, 156);
}

TEST(locale_samples, nearest_locales) {
  // Polish_XX as Polish_Poland, Chinese_XX as Chinese_China, Norwegian as
  // Bokmal; Serbian_BosniaHerzegovina is Cyrillic.
  EXPECT_EQ(f(135, 71), f(93, 71));
  EXPECT_EQ(f(136, 156), f(26, 156));
  EXPECT_EQ(f(90, 71), f(88, 71));
  EXPECT_EQ(f(99, 71).substr(0, 2), "<U");
}

}  // namespace
