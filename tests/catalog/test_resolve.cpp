// Name resolution: every catalogued name, the shorthands, the informat
// prefix, the intrinsic names and the names that must not resolve.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

// The 16-byte width block as eight u16 values.
struct width_block {
  uint16_t v[8] = {0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE};
  bool operator==(const width_block &o) const { return std::memcmp(v, o.v, sizeof v) == 0; }
};

width_block expected_block(const fmtinfo_eachfmt &r) {
  width_block b;
  uint16_t w[8] = {r.min_width, r.max_width, r.default_width, r.national,
                   r.min_decimals, r.max_decimals, r.default_decimals, 0};
  std::memcpy(b.v, w, sizeof w);
  return b;
}

std::string block_text(const width_block &b) {
  std::string s;
  for (uint16_t x : b.v) s += std::to_string(x) + " ";
  return s;
}

std::string name_of(const fmtinfo_eachfmt &r) { return std::string(r.name, r.name_length); }

// The module row a possible-format row names, looked up through xfload.
const fmtinfo_eachfmt *module_row(const fmtposs_row &p) {
  xf_status st = 0;
  const fmtinfo *m = xfload(nullptr, p.module_name, p.module_name_length, &st);
  for (uint64_t i = 0; m != nullptr && i < m->count; ++i)
    if (m->rows[i].name_length == p.row.name_length &&
        std::memcmp(m->rows[i].name, p.row.name, p.row.name_length) == 0)
      return &m->rows[i];
  return nullptr;
}

// Resolves a name given as a C string; returns the status, fills handle and block.
xf_status resolve(const std::string &name, void **handle, width_block *block = nullptr,
                  int32_t kind = 0) {
  return xfname(name.data(), static_cast<int32_t>(name.size()), kind, block ? block->v : nullptr, handle);
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
    EXPECT_EQ(b, expected_block(*r)) << name << ": " << block_text(b);
    const auto *row = static_cast<const fmtposs_row *>(h);
    EXPECT_EQ(row->link, 0u) << name;
    EXPECT_EQ(std::memcmp(row->module_name, p.module_name, 16), 0) << name;
    EXPECT_EQ(row->module_name_length, 8u);
    EXPECT_EQ(std::memcmp(&row->row, r, sizeof *r), 0) << name;
    EXPECT_EQ(xfdel(h), XF_OK);
  }
}

// The names of catalog/resolve.tsv with their kinds: shorthands, informat
// requests, intrinsic names and names that never resolve.
TEST(resolve, names_of_the_resolution_table) {
  for (const auto &r : xfmt::test::tab_rows("catalog/resolve.tsv")) {
    ASSERT_EQ(r.size(), 4u) << r[0];
    void *h = reinterpret_cast<void *>(1);
    width_block b;
    const auto kind = static_cast<int32_t>(xfmt::test::int_of(r[2]));
    const xf_status st = resolve(xfmt::test::unescaped(r[1]), &h, &b, kind);
    if (r[3] == "-") {
      EXPECT_EQ(st, 1u) << r[0];
      EXPECT_EQ(h, nullptr) << r[0];
      EXPECT_EQ(b, width_block{}) << r[0];
      continue;
    }
    EXPECT_EQ(st, XF_OK) << r[0];
    if (st != XF_OK) continue;
    const auto *row = static_cast<const fmtposs_row *>(h);
    EXPECT_EQ(name_of(row->row), r[3]) << r[0];
    EXPECT_EQ(b, expected_block(row->row)) << r[0] << ": " << block_text(b);
    EXPECT_EQ(row->link, 0u) << r[0];
    // A host tells the static intrinsic rows by the blank kind byte and
    // module name length 1.
    const bool intrinsic = row == &crashfmt || row == &ver_num[0] || row == &ver_num[1];
    EXPECT_EQ(row->module_name_length, intrinsic ? 1u : 8u) << r[0];
    EXPECT_EQ(row->module_name[0] == ' ', intrinsic) << r[0];
    EXPECT_EQ(xfdel(h), XF_OK) << r[0];  // refused quietly for static rows: never freed
  }
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

}  // namespace
