// Records checked against what people in the country expect, and record 1
// (Afrikaans_SouthAfrica) against its fixed values.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "nls/locale.hpp"
#include "xfmt/xfmt.h"

namespace {

std::string f(int id, int field) { return std::string(xfmt::nls::locale_field(id, field)); }

using field_list = std::vector<std::pair<int, const char *>>;

void expect_fields(int id, const field_list &want) {
  for (const auto &[k, v] : want) EXPECT_EQ(f(id, k), v) << "record " << id << " field " << k;
}

bool has(const std::string &s, const char *part) { return s.find(part) != std::string::npos; }

TEST(locale_record_1, fixed_values) {
  expect_fields(1, {
      {0, "Afrikaans_SouthAfrica"}, {1, "Afrikaans"}, {2, "af"}, {3, "SouthAfrica"}, {4, "af"},
      {5, "ZA"}, {6, "YMD"}, {7, "A4"}, {8, ""}, {12, ""},
      {13, "NLDATE16."}, {14, "NLDATM24."}, {15, "NLTIME8."}, {16, "BEST12."}, {17, "PERCENT12."},
      {18, "COMPLEX"}, {19, "SIMPLEX"}, {20, "ITALIC"}, {21, "BRUSH"}, {22, "SIMPLEX"},
      {23, "BRUSH"}, {24, "SIMPLEX"}, {25, "COMPLEX"}, {26, "SWISS"}, {27, "ITALIC"},
      {28, "%d %B %Y"}, {29, "%Y-%m-%d"}, {30, "%d %b %Y"}, {31, "%d %B %Y"},
      {32, "%A %d %B %Y"}, {33, "%a %d %b %Y"}, {34, "%#B %Y"}, {35, "%#b %Y"}, {36, "%d %B"},
      {37, "%d %b"}, {38, "%Y"}, {39, "%y"}, {40, "%Q %Y"}, {41, "%q %Y"}, {42, "%Y-W%U"},
      {43, "%y-W%U"}, {44, "%d %B %Y %I:%M:%S %p"}, {45, "%d %b %Y %I:%M:%S %p"},
      {46, "%d %B %Y %H:%M:%S"}, {47, "%Y-%m-%d %I:%M:%S %p"}, {48, "%d %b %Y %I:%M:%S %p"},
      {49, "%d %B %Y %I:%M:%S %p"}, {50, "%A %d %B %Y %I:%M:%S %p"},
      {51, "%a %d %b %Y %I:%M:%S %p"}, {52, "%I:%M:%S %p"}, {53, "%H:%M:%S"}, {54, "%I:%M %p"},
      {55, "%I:%M:%S %p"}, {56, "%I:%M:%S %p %Z"}, {57, "%I:%M:%S %p %Z"}, {58, "%x %X"},
      {59, "Jan"}, {70, "Des"}, {71, "Januarie"}, {82, "Desember"}, {107, "So"}, {113, "Sa"},
      {114, "Sondag"}, {120, "Saterdag"}, {135, "K1"}, {136, "K2"}, {137, "K3"}, {138, "K4"},
      {139, "1ste kwartaal"}, {140, "2de kwartaal"}, {141, "3de kwartaal"}, {142, "4de kwartaal"},
      {151, "vm."}, {152, "nm."}, {153, "-"}, {154, "0"}, {155, "ZAR"}, {156, "R"}, {157, ","},
      {158, "<U00A0>"}, {159, "3"}, {160, ""}, {161, "-"}, {162, "2"}, {163, "2"}, {164, "1"},
      {165, "0"}, {166, "1"}, {167, "0"}, {168, "1"}, {169, "1"}, {170, "<u00a4>#.##0,00"},
      {171, "<U00A4>#,##0.#"}, {172, ","}, {173, "<U00A0>"}, {174, "3"}, {175, ""}, {176, "-"},
      {177, "1"}, {178, "0"}, {179, "1"}, {180, "0"}, {181, "1"}, {182, "1"},
      {183, "#.##0,###"}, {184, "#,##0.#"}, {185, "#.##0%"}, {186, "#,##0.#%"}, {187, "297"},
      {188, "210"},
  });
  for (int k = 0; k < 12; ++k) EXPECT_EQ(f(1, 83 + k), f(1, 59 + k)) << k;
}

TEST(locale_samples, english_united_states) {
  const int id = 53;
  expect_fields(id, {
      {6, "MDY"}, {7, "LETTER"}, {29, "%m/%d/%Y"}, {28, "%B %#d, %Y"}, {32, "%A, %B %#d, %Y"},
      {53, "%H:%M:%S"}, {71, "January"}, {82, "December"}, {59, "Jan"}, {114, "Sunday"},
      {120, "Saturday"}, {107, "Sun"}, {139, "1st quarter"}, {135, "Q1"}, {151, "AM"},
      {152, "PM"}, {153, "/"}, {155, "USD"}, {156, "$"}, {157, "."}, {158, ","}, {159, "3"},
      {161, "-"}, {163, "2"}, {164, "1"}, {165, "0"}, {172, "."}, {173, ","},
      {170, "<u00a4>#,##0.00"}, {183, "#,##0.###"}, {185, "#,##0%"},
  });
  EXPECT_TRUE(has(f(id, 52), "%I") || has(f(id, 52), "%#I"));  // twelve-hour clock
  EXPECT_TRUE(has(f(id, 52), "%p"));
}

TEST(locale_samples, german_germany) {
  const int id = 64;
  expect_fields(id, {
      {6, "DMY"}, {7, "A4"}, {29, "%d.%m.%Y"}, {28, "%#d. %B %Y"}, {32, "%A, %#d. %B %Y"},
      {71, "Januar"}, {73, "M<U00E4>rz"}, {82, "Dezember"}, {114, "Sonntag"}, {115, "Montag"},
      {139, "1. Quartal"}, {153, "."}, {155, "EUR"}, {156, "<U20AC>"}, {157, ","}, {158, "."},
      {164, "0"}, {165, "1"}, {172, ","}, {173, "."}, {183, "#.##0,###"},
      {170, "#.##0,00<U00A0><u00a4>"},
  });
  EXPECT_FALSE(has(f(id, 52), "%p"));  // 24-hour clock
  EXPECT_FALSE(has(f(id, 55), "%I"));
}

TEST(locale_samples, french_france) {
  const int id = 60;
  expect_fields(id, {
      {6, "DMY"}, {7, "A4"}, {29, "%d/%m/%Y"}, {28, "%#d %B %Y"}, {71, "janvier"},
      {72, "f<U00E9>vrier"}, {78, "ao<U00FB>t"}, {114, "dimanche"}, {139, "1er trimestre"},
      {155, "EUR"}, {156, "<U20AC>"}, {157, ","}, {158, "<U00A0>"}, {164, "0"}, {165, "1"},
      {172, ","}, {173, "<U00A0>"}, {185, "#.##0<U00A0>%"},
  });
  EXPECT_FALSE(has(f(id, 52), "%p"));
}

TEST(locale_samples, japanese_japan) {
  const int id = 79;
  expect_fields(id, {
      {6, "YMD"}, {7, "A4"}, {29, "%Y<U5E74>%m<U6708>%d<U65E5>"},  // 2020年01月05日
      {71, "1<U6708>"}, {82, "12<U6708>"}, {59, "1<U6708>"},
      {114, "<U65E5><U66DC><U65E5>"},                               // 日曜日
      {107, "<U65E5>"}, {151, "<U5348><U524D>"}, {152, "<U5348><U5F8C>"},  // 午前 午後
      {155, "JPY"}, {162, "0"}, {163, "0"}, {164, "1"}, {157, "."}, {158, ","},
      {170, "<u00a4>#,##0"},
  });
  EXPECT_TRUE(f(id, 156) == "<UFFE5>" || f(id, 156) == "<U00A5>") << f(id, 156);
  EXPECT_TRUE(has(f(id, 28), "%Y<U5E74>"));
}

TEST(locale_samples, arabic_egypt) {
  const int id = 5;
  expect_fields(id, {
      {6, "DMY"}, {7, "A4"}, {155, "EGP"}, {156, "<U062C>.<U0645>."},             // ج.م.
      {71, "<U064A><U0646><U0627><U064A><U0631>"},                              // يناير
      {114, "<U0627><U0644><U0623><U062D><U062F>"},                             // الأحد
      {151, "<U0635>"}, {152, "<U0645>"},                                       // ص م
      {157, "."}, {172, "."},
  });
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
