// NLMNL/NLMNI printing on test records: placement, the fallback attempts,
// symbols the codeset cannot show, and a differential run against the
// literal printer (UTF-16 and a short capacity are rows of members.txt).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "nls/money.hpp"
#include "oracle/nls_money_oracle.hpp"
#include "record.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/rows.hpp"
#include "support/random.hpp"

namespace {

using xfmt::nls::money_conventions;
using xfmt::test::frame_box;
using xfmt::test::test_record;

const xf_monetary &currency(const char *code) {
  for (const auto &e : lconv_monetary)
    if (std::strcmp(e.int_curr_symbol, code) == 0) return e;
  ADD_FAILURE() << code;
  return lconv_monetary[0];
}

test_record monetary_record(const char *point, const char *sep, const char *grouping,
                            std::initializer_list<const char *> flags) {
  test_record r;
  r.fields[157] = point;
  r.fields[158] = sep;
  r.fields[159] = grouping;
  r.fields[160] = "";
  r.fields[161] = "-";
  int field = 164;
  for (const char *f : flags) r.fields[field++] = f;
  return r;
}

const test_record us = monetary_record(".", ",", "3", {"1", "0", "1", "0", "1", "1"});
const test_record de = monetary_record(",", ".", "3", {"0", "1", "0", "1", "1", "1"});
const test_record paren = monetary_record(".", ",", "3", {"1", "0", "1", "0", "1", "0"});
const test_record fr = monetary_record(",", "<U00A0>", "3", {"0", "1", "0", "1", "1", "1"});

std::string money(const test_record &rec, const char *code, bool intl, double v, int w, int d,
                  xf_status *st = nullptr) {
  frame_box b = frame_box::number(v, w, d);
  xf_status s = xfmt::nls::money_format(&b.f, xfmt::nls::read_money_conventions(rec.reader()),
                                        currency(code), intl);
  if (st) *st = s;
  return b.str();
}

TEST(money_tables, currencies_sorted_unique_and_complete) {
  ASSERT_EQ(sizeof lconv_monetary / sizeof lconv_monetary[0], 82u);
  EXPECT_STREQ(lconv_monetary[0].int_curr_symbol, "AED");
  EXPECT_STREQ(lconv_monetary[81].int_curr_symbol, "ZWD");
  for (size_t i = 0; i < 82; ++i) {
    EXPECT_EQ(std::strlen(lconv_monetary[i].int_curr_symbol), 3u);
    EXPECT_GT(std::strlen(lconv_monetary[i].currency_symbol), 0u);
    if (i) {
      EXPECT_LT(std::strcmp(lconv_monetary[i - 1].int_curr_symbol,
                            lconv_monetary[i].int_curr_symbol), 0);
    }
  }
  EXPECT_STREQ(currency("AED").currency_symbol, "<U062F>.<U0625>.");
  EXPECT_STREQ(currency("TWD").currency_symbol, "NT$");
  EXPECT_STREQ(currency("USD").currency_symbol, "US$");
  EXPECT_STREQ(currency("ZAR").currency_symbol, "R");
}

TEST(money, fields_of_the_file) {
  const std::pair<std::string, const test_record *> records[] = {{"us", &us}, {"de", &de}, {"paren", &paren}, {"fr", &fr}};
  for (const auto &r : xfmt::test::tab_rows("nls/money.txt")) {
    const test_record *rec = nullptr;
    for (const auto &[name, record] : records)
      if (r[1] == name) rec = record;
    ASSERT_NE(rec, nullptr) << r[0];
    const double v = r[4][0] != '.' ? std::stod(r[4])
                                    : xfmt::bits_double(xfmt::test::miss(r[4].back()));
    xf_status st = 99;
    EXPECT_EQ(money(*rec, r[2].c_str(), r[3] == "1", v, std::stoi(r[5]), std::stoi(r[6]), &st),
              r[7].substr(1, r[7].size() - 2)) << r[0];
    if (r[8] != "*") {
      EXPECT_EQ(st, r[8] == "OK" ? XF_OK : XF_E_OVERFLOW) << r[0];
    }
  }
}

TEST(money, nan_and_infinity_give_the_star_field) {
  // Every one of the 80 routines, as a host reaches them: no "nan" or "inf".
  for (const fmtinfo_eachfmt *r = jazwfnls()->rows; r != jazwfnls()->rows + jazwfnls()->count; ++r) {
    const bool money = std::strncmp(r->name, "NLMNI", 5) == 0 || std::strncmp(r->name, "NLMNL", 5) == 0;
    if (!money || r->routine == nullptr) continue;
    for (double v : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
      frame_box b = frame_box::number(v, 12, 2);
      EXPECT_EQ(r->routine(&b.f), XF_E_OVERFLOW) << r->name << " " << v;
      EXPECT_EQ(b.str(), "************") << r->name << " " << v;
    }
  }
}

TEST(money, same_bytes_as_the_literal_printer) {
  auto gen = xfmt::test::rng(0x6d6f6e);
  const test_record *records[] = {&us, &de, &paren};
  const uint64_t n = xfmt::test::scaled(20000);
  std::uniform_real_distribution<double> mant(-1, 1);
  std::uniform_int_distribution<int> expo(-8, 40), width(8, 32), dec(0, 28), pick(0, 2);
  for (uint64_t i = 0; i < n; ++i) {
    double v = mant(gen) * std::pow(10.0, expo(gen));
    int w = width(gen), d = dec(gen);
    const test_record &rec = *records[pick(gen)];
    money_conventions c = xfmt::nls::read_money_conventions(rec.reader());
    std::string want = xfmt::oracle::money_field(c, "US$", v, w, d);
    xf_status st = 0;
    std::string got = money(rec, "USD", false, v, w, d, &st);
    if (want.empty()) {
      EXPECT_EQ(got, std::string(static_cast<size_t>(w), '*'));
    } else {
      ASSERT_EQ(got, want) << std::hexfloat << v << " w" << w << " d" << d;
    }
  }
}

}  // namespace
