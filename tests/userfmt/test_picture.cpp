// Pictures: digit selection, significance, fill, prefix, mult, round,
// noedit, the final fill position, and date pictures through datefmt.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "support/frame.hpp"
#include "support/rows.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

std::string pict(memory_format &, const void *label, int32_t w, double v, int32_t round = 0) {
  std::string out(static_cast<size_t>(w), '\xEE');
  yfpict(w, out.data(), label, round, v);
  return out;
}

// The numeric pictures of tests/data/userfmt/pictures.txt.
TEST(picture, table_of_numeric_templates) {
  memory_format f(3);
  const auto q = [](const std::string &field) { return field.substr(1, field.size() - 2); };
  for (const auto &r : tab_rows("userfmt/pictures.txt")) {
    const void *p = f.picture(q(r[1]), q(r[2]).at(0), q(r[3]), std::stod(r[4]), r.size() > 9 && r[9] == "noedit");
    const double v = r[6][0] == '.' ? missing_letter(r[6].size() == 1 ? '.' : r[6][1]) : std::stod(r[6]);
    EXPECT_EQ(pict(f, p, std::stoi(r[5]), v, std::stoi(r[7])), q(r[8])) << r[0];
  }
}

// Beyond 16 digits: the standard routine's layout of the scaled magnitude.
TEST(picture, huge_values_go_to_the_standard_routine) {
  memory_format f(3);
  const void *p = f.picture("009", ' ', "", 0);
  frame_box b = frame_box::number(1e17 + 1e-7, 6, 0);
  std::fill(b.out.begin(), b.out.end(), ' ');
  zfmt(&b.f);
  EXPECT_EQ(pict(f, p, 6, 1e17), b.buffer());
}

TEST(picture, through_the_lookup_with_round_flag) {
  memory_format f(3);
  f.range_label(0, 0, f.picture("000,009.99", ' ', "$", 100), XF_RANGE_LOW | XF_RANGE_HIGH);
  f.header()->round = 1;
  result r = run_number(yfpfnfn, f, 15.255, 11);
  EXPECT_EQ(r.text, "     $15.26");
  EXPECT_EQ(r.status, 0u);
  EXPECT_EQ(r.encoding, 0u);
}

// The directives of tests/data/userfmt/datefmt.txt.
TEST(datefmt, directives) {
  char out[64];
  for (const auto &r : tab_rows("userfmt/datefmt.txt")) {
    const std::string tpl = r[1].substr(1, r[1].size() - 2);
    const double v = r[3][0] == '.' ? missing_letter(r[3].size() == 1 ? '.' : r[3][1]) : std::stod(r[3]);
    const int32_t n = datefmt(tpl.data(), static_cast<int32_t>(tpl.size()), std::stoi(r[2]), "English", 7, v, out, 64);
    EXPECT_EQ(std::string(out, static_cast<size_t>(n)), r[4].substr(1, r[4].size() - 2)) << r[0];
  }
  // Never past the capacity.
  int32_t n = datefmt("%B %B", 5, 1, "", 0, 23195, out, 6);
  EXPECT_EQ(n, 6);
  EXPECT_EQ(std::string(out, 6), "July J");
}

TEST(datefmt, date_picture_is_right_justified_or_cut) {
  memory_format f(3);
  const void *p = f.picture("%Y-%0m-%0d", ' ', "", 0, false, 1);
  EXPECT_EQ(pict(f, p, 12, 23195), "  2023-07-04");
  EXPECT_EQ(pict(f, p, 7, 23195), "2023-07");
}

}  // namespace

#include "oracle/picture_oracle.hpp"
#include "support/random.hpp"

namespace {

TEST(picture, agrees_with_the_literal_transcription_on_random_templates) {
  auto g = xfmt::test::rng(31);
  const char pieces[] = "0009,.-/ 15";
  uint64_t cases = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < cases; ++i) {
    xfmt::oracle::picture_spec s;
    size_t len = g() % 20;
    for (size_t k = 0; k < len; ++k) s.tpl += pieces[g() % (sizeof pieces - 1)];
    s.fill = "  *#0"[g() % 5];
    s.prefix = std::string("$EUR").substr(0, g() % 4);
    s.mult = g() % 3 == 0 ? 0.0 : static_cast<double>(g() % 3 == 0 ? 100 : 1);
    s.noedit = g() % 10 == 0;
    int w = static_cast<int>(g() % 24) + 1;
    bool round = g() % 2;
    double v = std::ldexp(static_cast<double>(g() % 100000000), -static_cast<int>(g() % 30)) *
               (g() % 4 == 0 ? -1 : 1);
    memory_format f(3);
    const void *p = f.picture(s.tpl, s.fill, s.prefix, s.mult, s.noedit);
    std::string want = xfmt::oracle::picture_field(s, w, round, v);
    if (want.empty()) continue;
    ASSERT_EQ(pict(f, p, w, v, round ? 1 : 0), want)
        << "seed " << xfmt::test::test_seed() << " template '" << s.tpl << "' fill '" << s.fill
        << "' prefix '" << s.prefix << "' mult " << s.mult << " w " << w << " value " << v;
  }
}

}  // namespace
