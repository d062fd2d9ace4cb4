// Records checked against what people in the country expect, and record 1
// (Afrikaans_SouthAfrica) against its fixed values: the fields are in
// tests/data/nls/locale_fields.txt, the relations between fields here.
#include <gtest/gtest.h>

#include <string>

#include "nls/locale.hpp"
#include "record.hpp"
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

TEST(locale_samples, english_united_states) {
  const int id = 53;
  EXPECT_TRUE(has(f(id, 52), "%I") || has(f(id, 52), "%#I"));  // twelve-hour clock
  EXPECT_TRUE(has(f(id, 52), "%p"));
}

TEST(locale_samples, german_germany) {
  const int id = 64;
  EXPECT_FALSE(has(f(id, 52), "%p"));  // 24-hour clock
  EXPECT_FALSE(has(f(id, 55), "%I"));
}

TEST(locale_samples, french_france) {
  const int id = 60;
  EXPECT_FALSE(has(f(id, 52), "%p"));
}

TEST(locale_samples, japanese_japan) {
  const int id = 79;
  EXPECT_TRUE(f(id, 156) == "<UFFE5>" || f(id, 156) == "<U00A5>") << f(id, 156);
  EXPECT_TRUE(has(f(id, 28), "%Y<U5E74>"));
}

TEST(locale_samples, arabic_egypt) {
  const int id = 5;
  EXPECT_TRUE(has(f(id, 52), "%p"));  // twelve-hour clock
  EXPECT_TRUE(has(f(id, 32), "%A<U060C>"));   // weekday, Arabic comma
}

TEST(locale_samples, nearest_locales) {
  // Records without a locale of their own borrow from the nearest one but keep
  // their country's money.
  EXPECT_EQ(f(28, 155), "MOP");   // Chinese_Macau
  EXPECT_EQ(f(46, 155), "JMD");   // English_Jamaica
  EXPECT_EQ(f(42, 155), "XCD");   // English_Caribbean
  EXPECT_EQ(f(32, 155), "BAM");   // Croatian_BosniaHerzegovina
  EXPECT_EQ(f(39, 155), "EUR");   // English_Belgium
  EXPECT_EQ(f(39, 71), "January");
  EXPECT_EQ(f(103, 71), "januar");  // SerbianLatin_BosniaHerzegovina
  EXPECT_EQ(f(99, 71).substr(0, 2), "<U");  // Serbian_BosniaHerzegovina: Cyrillic
  EXPECT_EQ(f(135, 71), f(93, 71));  // Polish_XX as Polish_Poland
  EXPECT_EQ(f(136, 156), f(26, 156));  // Chinese_XX as Chinese_China
  EXPECT_EQ(f(90, 71), f(88, 71));  // Norwegian as Bokmal
  EXPECT_EQ(f(131, 29), "%d/%m/%+y");  // Thai: Buddhist era years
}

TEST(locale_samples, chinese_quarters) {
  // 2020年第一季度 and 2020年第1季度: the quarter names carry 第 and 季度.
  EXPECT_EQ(f(26, 139), "<U7B2C><U4E00><U5B63><U5EA6>");
  EXPECT_EQ(f(26, 135), "1<U5B63><U5EA6>");
  EXPECT_EQ(f(26, 40), "%Y<U5E74>%Q");
  EXPECT_EQ(f(26, 41), "%Y<U5E74><U7B2C>%q");
}

}  // namespace
