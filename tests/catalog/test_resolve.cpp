// Name resolution: every catalogued name, the shorthands, the informat
// prefix, the intrinsic names and the names that must not resolve.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "catalog/catalog_test_util.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::expected_block;
using xfmt::test::name_of;
using xfmt::test::resolve;
using xfmt::test::width_block;

const fmtinfo_eachfmt *module_row(const fmtposs_row &p) {
  xf_status st = 0;
  const fmtinfo *m = xfload(nullptr, p.module_name, p.module_name_length, &st);
  if (m == nullptr) return nullptr;
  for (uint64_t i = 0; i < m->count; ++i)
    if (m->rows[i].name_length == p.row.name_length &&
        std::memcmp(m->rows[i].name, p.row.name, p.row.name_length) == 0)
      return &m->rows[i];
  return nullptr;
}

TEST(resolve, init_does_nothing_and_succeeds) {
  EXPECT_EQ(xfinit(), XF_OK);
  EXPECT_EQ(xfinit2(), XF_OK);
}

TEST(resolve, every_possible_format_name_resolves_to_its_module_row) {
  for (const fmtposs_row &p : fmtposs) {
    const fmtinfo_eachfmt *r = module_row(p);
    ASSERT_NE(r, nullptr) << name_of(p.row);
    std::string name = name_of(p.row);
    // Informats are requested without their "@" and kind 73.
    int32_t kind = name[0] == '@' ? 73 : 0;
    std::string asked = kind == 73 ? name.substr(1) : name;
    void *h = reinterpret_cast<void *>(1);
    width_block b;
    ASSERT_EQ(resolve(asked, &h, &b, kind), XF_OK) << name;
    ASSERT_NE(h, nullptr);
    EXPECT_EQ(b, expected_block(*r)) << name << ": " << xfmt::test::block_text(b);
    const auto *row = static_cast<const fmtposs_row *>(h);
    EXPECT_EQ(row->link, 0u) << name;
    EXPECT_EQ(std::memcmp(row->module_name, p.module_name, 16), 0) << name;
    EXPECT_EQ(row->module_name_length, 8u);
    EXPECT_EQ(std::memcmp(&row->row, r, sizeof *r), 0) << name;
    EXPECT_EQ(xfdel(h), XF_OK);
  }
}

TEST(resolve, informats_also_resolve_under_their_at_names_as_formats) {
  // "@F" asked as a format is the catalogued name "@F" itself.
  void *h = nullptr;
  width_block b;
  ASSERT_EQ(resolve("@F", &h, &b), XF_OK);
  EXPECT_EQ(name_of(static_cast<fmtposs_row *>(h)->row), "@F");
  xfdel(h);
}

TEST(resolve, character_shorthands_become_char) {
  for (const char *n : {"$", "$F", "$f"}) {
    void *h = nullptr;
    width_block b;
    ASSERT_EQ(resolve(n, &h, &b), XF_OK) << n;
    const auto *row = static_cast<const fmtposs_row *>(h);
    EXPECT_EQ(name_of(row->row), "$CHAR") << n;
    EXPECT_EQ(std::string(row->module_name), "JAZWFMSC");
    const uint16_t want[8] = {1, 32767, 8, 0, 0, 0, 0, 0};
    EXPECT_EQ(std::memcmp(b.v, want, sizeof want), 0) << n << ": " << xfmt::test::block_text(b);
    xfdel(h);
  }
}

TEST(resolve, three_letter_dollar_f_names_are_searched_as_they_stand) {
  void *h = nullptr;
  EXPECT_EQ(resolve("$FX", &h), 1u);
  EXPECT_EQ(h, nullptr);
  EXPECT_EQ(resolve("$G", &h), 1u);  // only F is a shorthand
  EXPECT_EQ(h, nullptr);
}

TEST(resolve, names_that_never_resolve) {
  const char *names[] = {
      "@$F",        // in JAZWIMSC's table but not in the possible-format table
      "NOSUCH",     // unknown
      "f",          // the search is case sensitive
      "date",
      "DATE ",      // trailing blank counted in the length
      "F       ",
      "_C_R_A_S_H",  // one letter short of the intrinsic name
      "INTRINSIC-CRDATEX",
  };
  for (const char *n : names) {
    void *h = reinterpret_cast<void *>(1);
    width_block b;
    width_block untouched;
    EXPECT_EQ(resolve(n, &h, &b), 1u) << n;
    EXPECT_EQ(h, nullptr) << n;
    EXPECT_EQ(b, untouched) << n;
  }
  void *h = nullptr;
  EXPECT_EQ(xfname("@$F", 3, 0, nullptr, &h), 1u);
  // The shorthand applies before the informat prefix: "$F" asks for "@$CHAR".
  ASSERT_EQ(xfname("$F", 2, 73, nullptr, &h), XF_OK);
  EXPECT_EQ(name_of(static_cast<fmtposs_row *>(h)->row), "@$CHAR");
  xfdel(h);
}

TEST(resolve, trailing_blanks_outside_the_length_are_ignored) {
  void *h = nullptr;
  width_block b;
  ASSERT_EQ(xfname("DATE     ", 4, 0, b.v, &h), XF_OK);
  EXPECT_EQ(name_of(static_cast<fmtposs_row *>(h)->row), "DATE");
  xfdel(h);
}

TEST(resolve, bad_arguments_fail_with_1) {
  void *h = reinterpret_cast<void *>(1);
  EXPECT_EQ(xfname(nullptr, 1, 0, nullptr, &h), 1u);
  EXPECT_EQ(h, nullptr);
  EXPECT_EQ(xfname("F", 0, 0, nullptr, &h), 1u);
  EXPECT_EQ(xfname("F", -3, 0, nullptr, &h), 1u);
  std::string long_name(300, 'F');
  EXPECT_EQ(xfname(long_name.data(), 300, 0, nullptr, &h), 1u);
  EXPECT_EQ(h, nullptr);
}

TEST(resolve, informat_kind_puts_an_at_before_the_name) {
  // Kind 73 itself is proved over every informat above; "@COMMA" with kind
  // 73 is searched as "@@COMMA".
  void *h = nullptr;
  width_block b;
  EXPECT_EQ(resolve("@COMMA", &h, &b, 73), 1u);
  EXPECT_EQ(h, nullptr);
  // Any kind other than 73 asks for a format.
  ASSERT_EQ(resolve("COMMA", &h, &b, 72), XF_OK);
  EXPECT_EQ(name_of(static_cast<fmtposs_row *>(h)->row), "COMMA");
  xfdel(h);
}

struct intrinsic_case {
  const char *name;
  const fmtposs_row *row;
  uint16_t width;
};

TEST(resolve, intrinsic_names_resolve_to_their_static_rows) {
  const intrinsic_case cases[] = {
      {"_C_R_A_S_H_", &crashfmt, 1},
      {"INTRINSIC-CRDATE", &ver_num[0], 20},
      {"$IS-INTRINSIC", &ver_num[1], 3},
  };
  for (const intrinsic_case &c : cases) {
    void *h = nullptr;
    width_block b;
    ASSERT_EQ(resolve(c.name, &h, &b), XF_OK) << c.name;
    EXPECT_EQ(h, c.row) << c.name;
    const uint16_t want[8] = {c.width, c.width, c.width, 0, 0, 0, 0, 0};
    EXPECT_EQ(std::memcmp(b.v, want, sizeof want), 0) << c.name;
    // A host tells them apart by the blank kind byte and module name length 1.
    const auto *row = static_cast<const fmtposs_row *>(h);
    EXPECT_EQ(row->module_name[0], ' ');
    EXPECT_EQ(row->module_name_length, 1u);
    EXPECT_EQ(row->link, 0u);
    EXPECT_EQ(xfdel(h), XF_OK);  // refused quietly: static rows are never freed
  }
  // An informat request puts "@" in front, so no intrinsic name matches.
  void *h = nullptr;
  EXPECT_EQ(xfname("_C_R_A_S_H_", 11, 73, nullptr, &h), 1u);
}

TEST(resolve, handle_storage_already_set_is_refreshed_in_place) {
  fmtposs_row own{};
  void *h = &own;
  width_block b;
  ASSERT_EQ(xfname3("DATE", 4, 0, b.v, &h, nullptr), XF_OK);
  EXPECT_EQ(h, &own);
  EXPECT_EQ(own.link, reinterpret_cast<uint64_t>(&own));
  EXPECT_EQ(name_of(own.row), "DATE");
  EXPECT_EQ(std::string(own.module_name), "JAZWFDTE");
  EXPECT_EQ(xfdel(h), XF_OK);  // a refreshed handle belongs to its owner: left alone
  // An intrinsic name copied into the caller's storage.
  ASSERT_EQ(xfname3("$IS-INTRINSIC", 13, 0, b.v, &h, nullptr), XF_OK);
  EXPECT_EQ(h, &own);
  EXPECT_EQ(own.row.routine, &zfmintrns);
  EXPECT_EQ(own.link, reinterpret_cast<uint64_t>(&own));
}

TEST(resolve, a_static_intrinsic_row_in_the_storage_is_never_written) {
  void *h = const_cast<fmtposs_row *>(&crashfmt);
  ASSERT_EQ(xfname3("$CHAR", 5, 0, nullptr, &h, nullptr), XF_OK);
  EXPECT_NE(h, &crashfmt);
  EXPECT_EQ(name_of(static_cast<fmtposs_row *>(h)->row), "$CHAR");
  EXPECT_EQ(crashfmt.row.routine, &zfmcrash);
  xfdel(h);
}

TEST(resolve, width_block_only_when_no_handle_storage_is_given) {
  width_block b;
  ASSERT_EQ(xfname3("F", 1, 0, b.v, nullptr, nullptr), XF_OK);
  const uint16_t want[8] = {1, 32, 12, 0, 0, 31, 0, 0};
  EXPECT_EQ(std::memcmp(b.v, want, sizeof want), 0);
  EXPECT_EQ(xfname3("NOSUCH", 6, 0, b.v, nullptr, nullptr), 1u);
}

TEST(resolve, zstrip_counts_significant_bytes) {
  EXPECT_EQ(zstrip("DATE    ", 8), 4);
  EXPECT_EQ(zstrip("DATE", 4), 4);
  EXPECT_EQ(zstrip("        ", 8), 0);
  EXPECT_EQ(zstrip(" A ", 3), 2);
  EXPECT_EQ(zstrip("A\t", 2), 2);  // only blanks are stripped
  EXPECT_EQ(zstrip("", 0), 0);
  EXPECT_EQ(zstrip("x", -5), -5);
}

}  // namespace
