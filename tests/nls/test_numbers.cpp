// The national numbers, percents and money: exact fields in five locales,
// the numeric formats they are defined by (BEST, D, PVALUE, COMMA, F) as
// oracles in every locale (a capacity one short of the field is the sweep's).
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "core/missing.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"

namespace {

using xfmt::test::frame_box;

constexpr int en_us = 53, de_de = 64;

// Values across the magnitudes, with halves, integers and signs.
double draw(std::mt19937_64 &g) {
  std::uniform_real_distribution<double> unit(0, 1);
  const double mag = std::pow(10.0, std::uniform_int_distribution<int>(-8, 17)(g));
  double v = unit(g) * mag;
  switch (g() % 4) {
    case 0: v = std::round(v); break;
    case 1: v = std::round(v * 2) / 2; break;
    default: break;
  }
  return g() % 2 ? -v : v;
}

int below(std::mt19937_64 &g, int n) { return static_cast<int>(g() % static_cast<uint64_t>(n)); }

// The field in the process codeset (the tests' is ASCII).
std::string narrow(xf_routine r, int locale, double v, int w, int d, xf_status *st = nullptr) {
  frame_box b = frame_box::number(v, w, d);
  b.f.option_word = static_cast<uint64_t>(locale);
  const xf_status s = r(&b.f);
  if (st) *st = s;
  return b.str();
}

TEST(numbers, exact_fields_in_five_locales) { xfmt::test::run_case_file("nls/national_numbers.txt"); }

TEST(numbers, ascii_codeset_fields) { xfmt::test::run_case_file("nls/ascii_fields.txt"); }

TEST(numbers, missing_values_of_the_file) { xfmt::test::run_case_file("nls/national_missing.txt"); }

// NLBEST, NLD and NLPVALUE are BEST, D and PVALUE with the locale's point
// (and NLBEST's minus moved behind the number where the locale puts it).
std::string with_locale_point(std::string s, int locale) {
  const zav_locale_field &point = ZAVlocaleData[locale - 1][172];
  for (char &c : s)
    if (c == '.') c = point.text[0];
  return s;
}

// With no decimal place left and no room for the groups, NLNUM is F with the
// locale's point: its own decimal reduction, its E notation, its stars.
TEST(numbers, short_fields_fall_back_to_f) {
  for (int id : {en_us, de_de}) {  // ASCII group marks
    for (double v : {1234567.891, -1234567.891, 1e20, -3.5e-9, 123456.5}) {
      for (int w : {2, 5, 6, 8}) {
        frame_box f = frame_box::number(v, w, 2);
        const xf_status sf = zfmt(&f.f);
        xf_status st;
        const std::string got = narrow(nlnum, id, v, w, 2, &st);
        const std::string plain = with_locale_point(f.str(), id);
        if (got != plain) {
          // Only where the groups fit once the decimals are gone.
          EXPECT_EQ(st, XF_REDUCED) << id << " " << v << " w" << w;
          EXPECT_NE(got.find(ZAVlocaleData[id - 1][173].text[0]), std::string::npos) << got;
        } else {
          EXPECT_EQ(st, sf) << id << " " << v << " w" << w;
        }
      }
    }
  }
}

TEST(numbers, best_d_and_pvalue_with_the_locale_point) {
  std::mt19937_64 g = xfmt::test::rng(0x1b35);
  const uint64_t count = xfmt::test::scaled(3000);
  for (uint64_t i = 0; i < count; ++i) {
    const int id = 1 + below(g, 136);
    const double v = draw(g);
    const int w = 1 + below(g, 32);
    const int d = below(g, 17);
    frame_box best = frame_box::number(v, w, 0);
    const xf_status sb = zfmb(&best.f);
    std::string want = with_locale_point(best.str(), id);
    const std::string position(ZAVlocaleData[id - 1][182].text, ZAVlocaleData[id - 1][182].length);
    const size_t minus = want.find_first_not_of(' ');
    if (position == "2" && minus != std::string::npos && want[minus] == '-' && sb != XF_E_OVERFLOW)
      want = want.substr(0, minus) + want.substr(minus + 1) + "-";
    xf_status st;
    EXPECT_EQ(narrow(nlbest, id, v, w, 0, &st), want) << "NLBEST " << id << " " << v << " w" << w;
    EXPECT_EQ(st, sb);

    frame_box dd = frame_box::number(v, w, d);
    const xf_status sd = zfmd(&dd.f);
    EXPECT_EQ(narrow(nld, id, v, w, d, &st), with_locale_point(dd.str(), id)) << "NLD " << v;
    EXPECT_EQ(st, sd);

    const int pw = w < 3 ? 3 : w, pd = d < 1 ? 1 : d;
    const double p = std::fabs(v) < 1 ? std::fabs(v) : std::fabs(v) / std::pow(10.0, 18);
    frame_box pv = frame_box::number(p, pw, pd);
    const xf_status sp = zfmpval(&pv.f);
    EXPECT_EQ(narrow(nlpvalue, id, p, pw, pd, &st), with_locale_point(pv.str(), id))
        << "NLPVALUE " << p;
    EXPECT_EQ(st, sp);
  }
}

// English marks are "," and ".": NLNUM in en_US is NLNUMI, NLNUMI is the same
// in every locale, and where COMMA keeps all decimals and groups, NLNUMI
// writes what COMMA writes.
TEST(numbers, international_forms_are_comma) {
  std::mt19937_64 g = xfmt::test::rng(0xc033a);
  const uint64_t count = xfmt::test::scaled(3000);
  for (uint64_t i = 0; i < count; ++i) {
    const double v = draw(g);
    const int w = 1 + below(g, 32);
    const int d = below(g, 10);
    const int id = 1 + below(g, 136);
    xf_status si;
    const std::string intl = narrow(nlnumi, id, v, w, d, &si);
    EXPECT_EQ(narrow(nlnum, en_us, v, w, d), intl) << v << " w" << w << "." << d;
    EXPECT_EQ(narrow(nlnumi, en_us, v, w, d), intl) << v << " w" << w << "." << d;
    frame_box c = frame_box::number(v, w, d);
    const xf_status sc = zfmcma(&c.f);
    const std::string comma = c.str();
    const bool grouped = comma.find(',') != std::string::npos;
    if (sc == XF_OK && grouped) {
      EXPECT_EQ(intl, comma) << v << " w" << w << "." << d;
      EXPECT_EQ(si, XF_OK);
    }
  }
}

}  // namespace
