// Value families and descriptions of catalogued names: a table of names from
// every rule group, and properties over the whole catalog.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/rows.hpp"
#include "xfmt/xfx.h"

namespace {

// Family names as the table spells them: XFX_FAMILY_ less the prefix.
uint32_t family_named(const std::string &name) {
  const char *const names[] = {"NONE", "NUMBER",   "CURRENCY", "PERCENT",   "DATE",    "TIME",
                               "DATETIME", "DURATION", "BINARY", "CHARACTER", "NATIONAL"};
  for (uint32_t i = 0; i < std::size(names); ++i)
    if (name == names[i]) return i;
  return ~0u;
}

TEST(name_families, representative_names) {
  for (const auto &r : xfmt::test::tab_rows("catalog/name_families.tsv")) {
    ASSERT_EQ(r.size(), 5u) << r[0];
    const std::string &at = r[0], &spec = r[1];
    xfx_spec s;
    ASSERT_EQ(xfx_parse_spec(spec.data(), spec.size(), 0, nullptr, &s), XFX_OK) << at;
    EXPECT_EQ(s.family, family_named(r[2])) << at;
    const uint32_t flags = (r[3].find('N') != std::string::npos ? XFX_NATIONAL : 0u) |
                           (r[3].find('R') != std::string::npos ? XFX_BYTES : 0u) |
                           (r[3].find('C') != std::string::npos ? XFX_CHARACTER : 0u);
    EXPECT_EQ(s.flags & (XFX_NATIONAL | XFX_BYTES | XFX_CHARACTER), flags) << at;
    char d[128];
    xfx_describe(&s, d, sizeof d);
    EXPECT_EQ(std::string(d), r[4]) << at;
  }
}

// Every catalogued name has a rule of its own except $BYVAL and $CSTR, whose
// layout is not described; informats read. (That descriptions fit their
// field and separators have no family: xfx_host's catalog check.)
TEST(name_families, every_name_has_its_rule) {
  for (uint32_t i = 0; i < xfx_catalog_count(); ++i) {
    xfx_catalog_entry e;
    ASSERT_EQ(xfx_catalog_entry_at(i, &e), XFX_OK);
    std::string d = e.description, name = e.spec.name;
    bool generic = d.find("a layout this library does not describe") != std::string::npos;
    EXPECT_EQ(generic, name == "$BYVAL" || name == "$CSTR") << name;
    if (e.spec.flags & XFX_INFORMAT) {
      EXPECT_EQ(d.rfind("reads ", 0), 0u) << name;
    }
  }
}

TEST(name_families, generator_reproduces_the_committed_rules) {
  if (std::system("command -v python3 >/dev/null 2>&1") != 0) GTEST_SKIP() << "python3 missing";
  const std::string cmd =
      "cd '" + std::string(XFMT_SOURCE_DIR) + "' && python3 tools/gen/gen_name_families.py --check";
  EXPECT_EQ(std::system(cmd.c_str()), 0);
}

}  // namespace
