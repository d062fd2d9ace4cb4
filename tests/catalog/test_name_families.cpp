// Value families and descriptions of catalogued names: a table of names from
// every rule group, and properties over the whole catalog.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "xfmt/xfx.h"

namespace {

struct family_case {
  const char *spec;
  uint32_t family;
  uint32_t flags;  // of XFX_NATIONAL | XFX_BYTES | XFX_CHARACTER
  const char *description;
};

constexpr uint32_t NL = XFX_NATIONAL, RAW = XFX_BYTES, CH = XFX_CHARACTER;

const family_case cases[] = {
    {"DDMMYYP10.", XFX_FAMILY_DATE, 0, "date as day, month and year, separated by periods"},
    {"YYQRC8.", XFX_FAMILY_DATE, 0, "year and quarter in Roman numerals of a date, separated by colons"},
    {"YYMMDD8.", XFX_FAMILY_DATE, 0, "date as year, month and day"},
    {"YYMON7.", XFX_FAMILY_DATE, 0, "year and month abbreviation of a date"},
    {"IS8601DN10.", XFX_FAMILY_DATETIME, 0, "ISO 8601 date of a datetime"},
    {"B8601TZ.", XFX_FAMILY_TIME, 0, "ISO 8601 time of day in UTC with its zone"},
    {"MMSS.", XFX_FAMILY_DURATION, 0, "seconds as minutes and seconds"},
    {"TIMEAMPM.", XFX_FAMILY_TIME, 0, "time of day on a 12-hour clock with AM or PM"},
    {"DTYYQC.", XFX_FAMILY_DATETIME, 0, "year and quarter of a datetime, colon separated"},
    {"EURFRDEM.", XFX_FAMILY_CURRENCY, 0, "amount in DEM shown in euros"},
    {"EURTOITL.", XFX_FAMILY_CURRENCY, 0, "amount in euros shown in ITL"},
    {"NLMNLUSD.", XFX_FAMILY_CURRENCY, NL, "amount in USD with the local currency sign"},
    {"NLMNIJPY.", XFX_FAMILY_CURRENCY, NL, "amount in JPY with the international currency code"},
    {"NLDATMYQ.", XFX_FAMILY_DATETIME, NL, "datetime written the locale's way"},
    {"NLDATEYQL.", XFX_FAMILY_DATE, NL, "date written the locale's way"},
    {"NLPCTN.", XFX_FAMILY_PERCENT, NL, "percentage written the locale's way"},
    {"NLSTRQTR.", XFX_FAMILY_NATIONAL, NL, "quarter number (1-4) as the locale's name of the quarter"},
    {"@DEUDFDE.", XFX_FAMILY_DATE, NL, "reads date in language DEU, day-month-year order"},
    {"@SVEDFDT.", XFX_FAMILY_DATETIME, NL, "reads datetime in language SVE"},
    {"S370FZDT.", XFX_FAMILY_BINARY, RAW, "mainframe layout (integer, packed, zoned or hexadecimal float)"},
    {"PIBR.", XFX_FAMILY_BINARY, RAW, "positive integer binary, little-endian"},
    {"HEX8.", XFX_FAMILY_BINARY, 0, "number in hexadecimal digits"},
    {"$HEX4.", XFX_FAMILY_BINARY, CH, "each byte of a text as two hexadecimal digits"},
    {"$EBCDIC.", XFX_FAMILY_BINARY, CH | RAW, "text in EBCDIC (code page 1047)"},
    {"$N8601E.", XFX_FAMILY_DURATION, CH, "ISO 8601 duration, datetime or interval held as text"},
    {"@$QUOTE.", XFX_FAMILY_CHARACTER, CH, "reads text without one pair of enclosing quotes"},
    {"$QUOTE.", XFX_FAMILY_CHARACTER, CH, "text in double quotes, inner quotes doubled"},
    {"@TODSTAMP.", XFX_FAMILY_DATETIME, RAW, "reads mainframe time stamp"},
    {"@PDJULI.", XFX_FAMILY_DATE, RAW, "reads date as packed decimal 0cyydddF, century from 1900"},
    {"PVALUE.", XFX_FAMILY_NUMBER, 0, "probability, small values as <.001"},
    {"PERCENTN.", XFX_FAMILY_PERCENT, 0, "proportion times 100 with a percent sign, negatives with a minus"},
};

TEST(name_families, representative_names) {
  for (const family_case &c : cases) {
    xfx_spec s;
    ASSERT_EQ(xfx_parse_spec(c.spec, std::strlen(c.spec), 0, nullptr, &s), XFX_OK) << c.spec;
    EXPECT_EQ(s.family, c.family) << c.spec;
    EXPECT_EQ(s.flags & (NL | RAW | CH), c.flags) << c.spec;
    char d[128];
    xfx_describe(&s, d, sizeof d);
    EXPECT_STREQ(d, c.description) << c.spec;
  }
}

// Every catalogued name has a rule of its own except $BYVAL and $CSTR, whose
// layout is not described; descriptions fit their field; informats read.
TEST(name_families, every_name_has_its_rule) {
  for (uint32_t i = 0; i < xfx_catalog_count(); ++i) {
    xfx_catalog_entry e;
    ASSERT_EQ(xfx_catalog_entry_at(i, &e), XFX_OK);
    std::string d = e.description, name = e.spec.name;
    bool generic = d.find("a layout this library does not describe") != std::string::npos;
    EXPECT_EQ(generic, name == "$BYVAL" || name == "$CSTR") << name;
    EXPECT_LT(d.size(), sizeof e.description - 1) << name;
    if (e.spec.flags & XFX_INFORMAT) {
      EXPECT_EQ(d.rfind("reads ", 0), 0u) << name;
    }
    if (e.spec.flags & XFX_SEPARATOR) {
      EXPECT_EQ(e.spec.family, XFX_FAMILY_NONE) << name;
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
