// The module tables and the possible-format table agree with each other and
// with the limits hosts rely on.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "catalog/catalog.hpp"
#include "xfmt/xfmt.h"

namespace {

std::string row_name(const fmtinfo_eachfmt &r) { return std::string(r.name, r.name_length); }

// The table (as get_fmt_poss_table gives it) is the module rows, grouped by
// module in host order, each group in its module's order; only JAZWFUWF's
// PIBR and JAZWIMSC's @$F are left out.
TEST(catalog_tables, possible_format_rows_follow_the_module_rows) {
  const char *const host_order[] = {"JAZWFBIN", "JAZWFDTE", "JAZWFMSC", "JAZWFTME", "JAZWFUWF",
                                    "JAZWFNLS", "JAZWIBIN", "JAZWIDTE", "JAZWIMSC", "JAZWIUWI"};
  const fmtposs_row *table = nullptr;
  uint64_t count = 0;
  ASSERT_EQ(get_fmt_poss_table(&table, &count), XF_OK);
  EXPECT_EQ(table, fmtposs);
  ASSERT_EQ(count, 548u);
  std::size_t k = 0;
  int left_out = 0;
  for (const char *module : host_order) {
    xf_status st = 99;
    const fmtinfo *m = xfload(nullptr, module, 8, &st);
    ASSERT_NE(m, nullptr) << module;
    for (uint64_t i = 0; i < m->count; ++i) {
      const std::string name = row_name(m->rows[i]);
      if ((std::strcmp(module, "JAZWFUWF") == 0 && name == "PIBR") ||
          (std::strcmp(module, "JAZWIMSC") == 0 && name == "@$F")) {
        ++left_out;
        continue;
      }
      ASSERT_LT(k, 548u) << module << " " << name;
      EXPECT_EQ(std::string(fmtposs[k].module_name), module) << k;
      EXPECT_EQ(fmtposs[k].module_name_length, 8u) << k;
      EXPECT_EQ(fmtposs[k].link, 0u) << k;
      EXPECT_EQ(row_name(fmtposs[k].row), name) << k;
      ++k;
    }
  }
  EXPECT_EQ(k, 548u);
  EXPECT_EQ(left_out, 2);
}

TEST(catalog_tables, names_are_blank_padded_to_eight_then_nul) {
  const fmtinfo *m = jazwfmsc();
  for (uint64_t i = 0; i < m->count; ++i) {
    const fmtinfo_eachfmt &r = m->rows[i];
    for (uint32_t k = r.name_length; k < 16; ++k)
      EXPECT_EQ(r.name[k], k < 8 ? ' ' : '\0') << row_name(r) << " at " << k;
  }
}

TEST(catalog_tables, getep_matches_on_the_given_prefix_only) {
  const fmtinfo *(*entry)(void) = nullptr;
  EXPECT_EQ(getep(nullptr, "JAZWFUWF", 8, &entry), XF_OK);
  EXPECT_EQ(entry, &jazwfuwf);
  EXPECT_EQ(getep(nullptr, "anything", 0, &entry), XF_OK);
  EXPECT_EQ(entry, &jazwfbin);
  EXPECT_EQ(getep(nullptr, "JAZWXXXX", 8, &entry), 1u);
  xf_status st = 0;
  EXPECT_EQ(xfload(nullptr, "NOPE", 4, &st), nullptr);
  EXPECT_EQ(st, 1u);
}

}  // namespace
