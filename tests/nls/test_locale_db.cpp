// getZAVLocDB and the internal accessor: record selection by id and through
// ZAV_LOCALE, buffer handling, and the fixed order of the 136 records.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <string>
#include <vector>

#include "nls/locale.hpp"
#include "support/cases.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"
#include "core/platform.hpp"

namespace {

// The records in id order, tests/data/nls/locale_records.txt: id, name,
// language_COUNTRY code. Callers store the ids, so the order never changes.
const std::vector<std::vector<std::string>> &records() {
  static const auto all = xfmt::test::tab_lines("nls/locale_records.txt");
  return all;
}

using xfmt::test::variable_scope;  // ZAV_LOCALE for one test

// getZAVLocDB into a 160-byte buffer; the text, or "<-1>" on failure.
std::string db(int field, int id, int capacity = 160) {
  std::vector<char> buf(static_cast<size_t>(capacity > 0 ? capacity : 1), 'x');
  int n = getZAVLocDB(buf.data(), capacity, field, id);
  if (n < 0) return "<" + std::to_string(n) + ">";
  return std::string(buf.data(), static_cast<size_t>(n));
}

TEST(locale_records, ids_names_and_codes_in_order) {
  ASSERT_EQ(records().size(), 136u);
  for (int id = 1; id <= 136; ++id) {
    const std::vector<std::string> &r = records()[static_cast<size_t>(id - 1)];
    EXPECT_EQ(std::stoi(r.at(0)), id);
    EXPECT_EQ(db(0, id), r.at(1)) << id;
    EXPECT_EQ(db(4, id), r.at(2).substr(0, 2)) << id;
    EXPECT_EQ(db(5, id), r.at(2).substr(3, 2)) << id;
    EXPECT_EQ(db(2, id), r.at(2).substr(0, 2)) << id;
  }
}

// The zeros past the field over every capacity, field and id are the
// locale fuzz target's check.
TEST(get_zav_loc_db, fields_capacities_and_bad_arguments) {
  EXPECT_EQ(db(158, 1), "<U00A0>");
  EXPECT_EQ(db(160, 1), "");                 // empty field: 0
  EXPECT_EQ(db(8, 53), "");
  EXPECT_EQ(db(0, 1, 3), "<-1>");            // "Afrikaans_SouthAfrica" into 3 bytes
  EXPECT_EQ(db(2, 1, 2), "af");              // fits exactly
  EXPECT_EQ(db(160, 1, 0), "");              // an empty field fits in nothing
  EXPECT_EQ(db(189, 1), "<-1>");
  EXPECT_EQ(db(-1, 1), "<-1>");
  EXPECT_EQ(db(160, 1, -1), "<-1>");
  EXPECT_EQ(getZAVLocDB(nullptr, 160, 0, 1), -1);
  EXPECT_EQ(getZAVLocDB(nullptr, 160, 160, 1), 0);
}

// Each value of tests/data/nls/zav_locale.txt selects its record for id 0;
// ids outside 1..136 fall back to it (en_US when unset), and an id still
// works when the value selects nothing.
TEST(zav_locale, values_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("nls/zav_locale.txt")) {
    const std::string value = r[1] == "(empty)" ? "" : r[1];
    variable_scope env("ZAV_LOCALE", r[1] == "(unset)" ? nullptr : value.c_str());
    const int id = std::stoi(r[2]);
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), id) << r[0];
    const std::string name = id ? records()[static_cast<size_t>(id - 1)].at(1) : "<-1>";
    EXPECT_EQ(db(0, 0), name) << r[0];
    EXPECT_EQ(db(0, 137), name) << r[0];
    EXPECT_EQ(db(0, -5), name) << r[0];
    EXPECT_EQ(db(0, 53), "English_UnitedStates") << r[0];
  }
}

TEST(zav_locale, every_record_reachable) {
  for (int id = 1; id <= 136; ++id) {
    const std::string code = records()[static_cast<size_t>(id - 1)].at(2);
    std::string mixed = code;
    mixed[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(mixed[0])));
    mixed[4] = static_cast<char>(std::tolower(static_cast<unsigned char>(mixed[4])));
    mixed[2] = '.';
    for (const std::string &v : {code, mixed, code + ".ISO8859-1"}) {
      variable_scope env("ZAV_LOCALE", v.c_str());
      EXPECT_EQ(xfmt::nls::resolve_locale_id(0), id) << v;
    }
  }
}

TEST(zav_locale, read_once_until_reloaded) {
  variable_scope env("ZAV_LOCALE", "fr_FR");
  EXPECT_EQ(db(0, 0), "French_France");
  setenv("ZAV_LOCALE", "ja_JP", 1);
  EXPECT_EQ(db(0, 0), "French_France");
  xfmt::platform::reload_environment();
  EXPECT_EQ(db(0, 0), "Japanese_Japan");
}

// The locale id a frame selects is a matter of members.txt's rows.
TEST(locale_accessor, fields) {
  EXPECT_EQ(xfmt::nls::locale_field(0, 0), "");
  EXPECT_EQ(xfmt::nls::locale_field(137, 0), "");
  EXPECT_EQ(xfmt::nls::locale_field(1, 189), "");
  EXPECT_TRUE(xfmt::nls::locale_field_ok(1, 160));
  EXPECT_TRUE(xfmt::nls::locale_field_ok(136, 188));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(0, 0));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(137, 0));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(1, -1));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(1, 189));
}

}  // namespace
