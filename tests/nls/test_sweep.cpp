// Every national routine of the module table in every locale, on missing
// values, range bounds, a leap day, midnight and noon, and the numbers on
// zero, signs, tiny, huge and tied values: only the documented statuses,
// never wider than the width or past the capacity, the same bytes on a
// second call, and a number or amount that fills its field refused with
// XF_E_CAPACITY one byte short.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "core/missing.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/rows.hpp"

namespace {

using xfmt::test::frame_box;

enum class kind { date, datetime, time, name, money, number };

kind kind_of(const std::string &name) {
  if (name.rfind("NLDATM", 0) == 0) return kind::datetime;
  if (name.rfind("NLDATE", 0) == 0) return kind::date;
  if (name.rfind("NLTIM", 0) == 0) return kind::time;
  if (name.rfind("NLSTR", 0) == 0) return kind::name;
  if (name.rfind("NLMN", 0) == 0) return kind::money;
  return kind::number;  // NLNUM, NLPCT, NLBEST, NLD, NLPVALUE and their variants
}

// The values of the kind's row of tests/data/nls/sweep_values.txt.
std::vector<double> values_for(kind k) {
  static const char *const names[] = {"date", "datetime", "time", "name", "money", "number"};
  std::vector<double> out;
  for (const auto &l : xfmt::test::tab_lines("nls/sweep_values.txt")) {
    if (l.at(0) != names[static_cast<int>(k)]) continue;
    std::istringstream in(l.at(1));
    for (std::string v; in >> v;)
      out.push_back(v[0] == '.' ? xfmt::bits_double(xfmt::test::miss(v.size() > 1 ? v[1] : '.'))
                                : std::strtod(v.c_str(), nullptr));
  }
  EXPECT_FALSE(out.empty()) << names[static_cast<int>(k)];
  return out;
}

bool documented(kind k, xf_status st) {
  if (st == XF_OK || st == XF_E_OVERFLOW || st == XF_E_CAPACITY) return true;
  if (st == XF_REDUCED) return k == kind::number;
  return st == XF_E_DATE_RANGE && (k == kind::date || k == kind::datetime || k == kind::time);
}

void sweep_module(int locale_step, std::initializer_list<kind> kinds, bool utf16 = false) {
  const int unit = utf16 ? 2 : 1;
  const fmtinfo *m = jazwfnls();
  size_t routines = 0, calls = 0;
  for (uint64_t r = 0; r < m->count; ++r) {
    const fmtinfo_eachfmt &row = m->rows[r];
    if (row.routine == nullptr) continue;
    ++routines;
    const std::string name(row.name, row.name_length);
    const kind k = kind_of(name);
    if (std::find(kinds.begin(), kinds.end(), k) == kinds.end()) continue;
    // Money: the currency only picks the symbol, so two widths and two
    // decimals suffice; the placement itself has its own tests.
    std::vector<int> widths{row.min_width, row.default_width};
    if (k != kind::money) widths.push_back(row.max_width);
    if (k == kind::number) widths.insert(widths.end(), {4, 7, 10});
    std::vector<int> decimals{k == kind::money ? 2 : row.min_decimals};
    if (k != kind::money && row.max_decimals > 0) decimals.push_back(row.max_decimals);
    if (k == kind::number && row.max_decimals >= 2) decimals.push_back(2);
    for (int loc = 1; loc <= 136; loc += locale_step) {
      for (double v : values_for(k)) {
        for (int w : widths) {
          for (int d : decimals) {
            frame_box a = frame_box::number(v, w, d, unit * w);
            a.f.option_word = static_cast<uint64_t>(loc);
            if (utf16) a.f.requested_output_encoding = XF_ENC_UTF16LE;
            frame_box b = a;
            xf_status sa = row.routine(&a.f);
            xf_status sb = row.routine(&b.f);
            ++calls;
            const bool good = documented(k, sa) && a.f.output_length <= static_cast<uint32_t>(unit * w) &&
                              a.f.output_length <= a.f.output_capacity && sa == sb &&
                              a.out == b.out && a.f.output_length == b.f.output_length;
            ASSERT_TRUE(good) << name << " locale " << loc << " value " << v << " w" << w << "."
                              << d << " status " << std::hex << sa << " " << a.buffer();
            // A number or amount that fills its field is refused one byte short
            // (missing values are not held to it).
            if ((k == kind::number || k == kind::money) && sa == XF_OK && !xfmt::is_missing(v) &&
                a.f.output_length == static_cast<uint32_t>(unit * w)) {
              frame_box c = frame_box::number(v, w, d, unit * w - 1);
              c.f.option_word = a.f.option_word;
              c.f.requested_output_encoding = a.f.requested_output_encoding;
              ASSERT_EQ(row.routine(&c.f), XF_E_CAPACITY) << name << " locale " << loc << " " << v;
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(routines, m->count);  // every name of the national module converts
  EXPECT_GT(calls, 0u);
}

// The process codeset is ASCII here ("C"): national letters become "?".
TEST(sweep, dates_every_locale) { sweep_module(1, {kind::date}); }
TEST(sweep, datetimes_every_locale) { sweep_module(1, {kind::datetime}); }
TEST(sweep, times_and_names_every_locale) { sweep_module(1, {kind::time, kind::name}); }
TEST(sweep, money_every_locale) { sweep_module(1, {kind::money}); }
TEST(sweep, numbers_every_locale) { sweep_module(1, {kind::number}); }
TEST(sweep, exhaustive_numbers_and_money_every_locale_utf16) {
  sweep_module(1, {kind::number, kind::money}, true);
}

// A UTF-8 codeset: one character may take up to three bytes of the width.
TEST(sweep, every_member_every_third_locale_utf8_codeset) {
  const xfmt::test::codeset_scope utf8("C.UTF-8");
  sweep_module(3, {kind::date, kind::datetime, kind::time, kind::name, kind::money, kind::number});
}

}  // namespace

namespace {

xf_status validated(xf_routine r, int w, int d) {
  frame_box b = frame_box::number(1, w, d, 512);
  b.f.option_word = 53 | XF_OPT_VALIDATE;
  return r(&b.f);
}

bool validation_status(xf_status s) { return s >= XF_NL_WIDTH_LOW && s <= XF_NL_DECIMALS_HIGH; }

// Each routine checks the bounds of its own catalog row, and only when asked.
TEST(sweep, validation_follows_each_catalog_row) {
  const fmtinfo *m = jazwfnls();
  for (uint64_t r = 0; r < m->count; ++r) {
    const fmtinfo_eachfmt &row = m->rows[r];
    if (row.routine == nullptr) continue;
    const std::string name(row.name, row.name_length);
    const int lo = row.min_width, hi = row.max_width, dmax = row.max_decimals;
    const int dmin = row.min_decimals;
    EXPECT_EQ(validated(row.routine, lo - 1, dmin), XF_NL_WIDTH_LOW) << name;
    EXPECT_FALSE(validation_status(validated(row.routine, lo, dmin))) << name;
    EXPECT_FALSE(validation_status(validated(row.routine, hi, dmin))) << name;
    EXPECT_EQ(validated(row.routine, hi + 1, dmin), XF_NL_WIDTH_HIGH) << name;
    EXPECT_EQ(validated(row.routine, hi, dmin - 1), XF_NL_DECIMALS_LOW) << name;
    EXPECT_FALSE(validation_status(validated(row.routine, hi, dmax))) << name;
    EXPECT_EQ(validated(row.routine, hi, dmax + 1), XF_NL_DECIMALS_HIGH) << name;
  }
}

}  // namespace
