// LocnameToID and EncnameToID: the edge cases, every key of both tables, the
// bucket placement, and random names against the linear-scan oracle.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "nls/locale_names.hpp"
#include "oracle/locale_names_oracle.hpp"
#include "support/random.hpp"
#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

uint32_t loc(std::string s) {
  uint32_t id = 999;
  return LocnameToID(s.data(), static_cast<uint32_t>(s.size()), &id) == 0 ? id : 0;
}

uint32_t enc(std::string s) {
  uint32_t id = 999;
  return EncnameToID(s.data(), static_cast<int32_t>(s.size()), &id) == 0 ? id : 0;
}

TEST(locale_names, names_of_the_file) {
  for (const auto &r : xfmt::test::tab_rows("nls/locale_names.txt")) {
    std::string name = xfmt::test::unescaped(r[2]);
    uint32_t id = 999;
    const uint32_t rc = r[1] == "loc" ? LocnameToID(name.data(), static_cast<uint32_t>(name.size()), &id)
                                      : EncnameToID(name.data(), static_cast<int32_t>(name.size()), &id);
    EXPECT_EQ(rc, std::stoul(r[3])) << r[0];
    EXPECT_EQ(id, std::stoul(r[4])) << r[0];
    if (r[5] != "-") {
      EXPECT_EQ(name, xfmt::test::unescaped(r[5])) << r[0];
    }
  }
}

TEST(locale_names, bad_arguments) {
  uint32_t got = 7;
  EXPECT_EQ(LocnameToID(nullptr, 5, &got), 5u);
  EXPECT_EQ(got, 0u);
  got = 7;
  EXPECT_EQ(EncnameToID(nullptr, 5, &got), 4u);
  EXPECT_EQ(got, 0u);
  std::string s = "UTF8";
  EXPECT_EQ(EncnameToID(s.data(), -1, &got), 4u);
}

// The encoding list the table was generated from: id, name per line.
std::vector<std::pair<uint32_t, std::string>> encoding_list() {
  std::vector<std::pair<uint32_t, std::string>> v;
  for (const auto &l : xfmt::test::tab_lines("../../tools/gen/encoding_names.txt"))
    v.emplace_back(static_cast<uint32_t>(std::stoul(l.at(0))), l.at(1));
  return v;
}

// Every record is found by its own code; the four aliases are the only other
// keys (the random test holds every key, in any case, to the linear scan).
TEST(locname_to_id, every_record_by_its_code) {
  int keys = 0;
  for (const zav_locname_bucket &b : table) keys += b.count;
  EXPECT_EQ(keys, 140);
  for (uint32_t id = 1; id <= 136; ++id) {
    const zav_locale_field &l = ZAVlocaleData[id - 1][4], &c = ZAVlocaleData[id - 1][5];
    const std::string code = std::string(l.text, l.length) + "_" + std::string(c.text, c.length);
    EXPECT_EQ(loc(code), id) << code;
  }
}

TEST(locname_to_id, random_codes_match_the_linear_scan) {
  auto g = xfmt::test::rng(61);
  const std::string alphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_-.";
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
  // Real codes with random case mixed with random text, so both outcomes occur.
  std::vector<std::string> real;
  for (const zav_locname_bucket &b : table)
    for (int32_t i = 0; i < b.count; ++i) real.emplace_back(b.entries[i].key, 5);
  const uint64_t n = xfmt::test::scaled(40000);
  for (uint64_t k = 0; k < n; ++k) {
    std::string s;
    if (k % 2 == 0) {
      s = real[k / 2 % real.size()];
      for (char &c : s)
        if (g() & 1) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else {
      for (int i = 0; i < 5; ++i) s += alphabet[pick(g)];
    }
    uint32_t id = 0;
    std::string copy = s;
    uint32_t rc = LocnameToID(copy.data(), 5, &id);
    uint32_t want = xfmt::oracle::locale_id_linear(s);
    ASSERT_EQ(rc, want ? 0u : 5u) << s << " seed " << xfmt::test::test_seed();
    ASSERT_EQ(id, want) << s;
  }
}

TEST(encname_to_id, every_name_of_the_list) {
  auto list = encoding_list();
  ASSERT_EQ(list.size(), 438u);
  for (const auto &[id, name] : list) {
    EXPECT_EQ(enc(name), id) << name;
    std::string lower = name;
    for (char &c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(enc(lower), id) << lower;
  }
  // Every table entry comes from the list, once (THAI and BIG5 twice).
  std::map<std::string, int> seen;
  int entries = 0;
  for (const zav_encname_bucket &b : etable)
    for (int32_t i = 0; i < b.count; ++i, ++entries) seen[b.entries[i].name]++;
  EXPECT_EQ(entries, 438);
  EXPECT_EQ(seen["THAI"], 2);
  EXPECT_EQ(seen["BIG5"], 2);
  EXPECT_EQ(seen.size(), 436u);
}

TEST(encname_to_id, random_names_match_the_linear_scan) {
  auto g = xfmt::test::rng(62);
  auto list = encoding_list();
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1), len(4, 14);
  const uint64_t n = xfmt::test::scaled(40000);
  for (uint64_t k = 0; k < n; ++k) {
    std::string s;
    if (k % 3 == 0) {
      s = list[k / 3 % list.size()].second;
      for (char &c : s)
        if (g() & 1) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (k % 3 == 1) {
      s = list[k % list.size()].second;  // one byte changed
      s[g() % s.size()] = alphabet[pick(g)];
    } else {
      for (size_t i = 0, m = len(g); i < m; ++i) s += alphabet[pick(g)];
    }
    uint32_t id = 0;
    std::string copy = s;
    uint32_t rc = EncnameToID(copy.data(), static_cast<int32_t>(copy.size()), &id);
    uint32_t want = xfmt::oracle::encoding_id_linear(s);
    ASSERT_EQ(rc, want ? 0u : 4u) << s << " seed " << xfmt::test::test_seed();
    ASSERT_EQ(id, want) << s;
  }
}

}  // namespace
