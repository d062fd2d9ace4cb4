// The euro conversion formats: same bytes as EUROX and w.d on the converted
// amount, and the rate table and list (first use from many threads at once
// is test_threads.cpp's).
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"

namespace {

using xfmt::test::frame_box;

struct printed {
  std::string text;
  xf_status status;
};

printed run(xf_routine r, double v, int w, int d) {
  frame_box b = frame_box::number(v, w, d);
  xf_status st = r(&b.f);
  return {b.buffer(), st};
}

constexpr const char *codes[25] = {"ATS", "BEF", "FIM", "FRF", "DEM", "IEP", "ITL", "LUF", "NLG",
                                   "PTE", "ESP", "CHF", "DKK", "GBP", "GRD", "SEK", "CZK", "HUF",
                                   "NOK", "RUR", "TRL", "PLZ", "ROL", "YUD", "SIT"};
TEST(euro_tables, rates_and_currency_list) {
  EXPECT_EQ(std::strlen(valid_curr), 104u);
  EXPECT_EQ(std::string(valid_curr, 4), "EUR ");
  EXPECT_EQ(conv_rate[0], 1.0);
  EXPECT_EQ(conv_rate[5], 1.95583);  // DEM
  EXPECT_EQ(conv_rate[7], 1936.27);  // ITL
  EXPECT_EQ(conv_rate[20], 19.768);  // RUR
  EXPECT_EQ(conv_rate[25], 191.0);   // SIT
  EXPECT_EQ(conv_rate[2], conv_rate[8]);  // BEF and LUF share a rate
  for (int i = 0; i < 25; ++i) EXPECT_EQ(std::string(valid_curr + 4 * (i + 1), 3), codes[i]);
  EXPECT_EQ(estrent(), &euro_reentstr);
  EXPECT_EQ(getrent(), &euro_reentstr);
}

TEST(euro, missing_values_of_the_file) { xfmt::test::run_case_file("nls/euro.txt"); }

TEST(euro, set_up_fills_the_state) {
  run(eurfrats, 1, 8, 2);
  run(eurtoats, 1, 8, 2);
  ASSERT_NE(euro_reentstr.rates, nullptr);
  EXPECT_EQ(std::memcmp(euro_reentstr.rates, conv_rate, sizeof conv_rate), 0);
  EXPECT_EQ(euro_reentstr.currencies, valid_curr);
  EXPECT_EQ(euro_reentstr.currencies_length, 104u);
  EXPECT_EQ(euro_reentstr.currency_sign, 'E');
}

TEST(euro, every_currency_against_its_printer) {
  auto gen = xfmt::test::rng(0xe0);
  std::uniform_real_distribution<double> amount(-1e7, 1e7);
  std::uniform_int_distribution<int> width(1, 32), dec(0, 31);
  const uint64_t n = xfmt::test::scaled(400);
  for (int c = 0; c < 25; ++c) {
    // EURFRxxx and EURTOxxx as the catalogue names them.
    const xf_routine from = xfmt::test::routine_named(std::string("EURFR") + codes[c]);
    const xf_routine to = xfmt::test::routine_named(std::string("EURTO") + codes[c]);
    ASSERT_TRUE(from != nullptr && to != nullptr) << codes[c];
    for (uint64_t i = 0; i < n; ++i) {
      double v = amount(gen);
      int w = width(gen), d = dec(gen);
      printed a = run(from, v, w, d);
      printed b = run(zfmerx, v / conv_rate[c + 1], w, d);
      ASSERT_EQ(a.text, b.text) << codes[c] << " " << std::hexfloat << v << " " << w << "." << d;
      ASSERT_EQ(a.status, b.status);
      printed t = run(to, v, w, d);
      printed u = run(zfmt, v * conv_rate[c + 1], w, d);
      ASSERT_EQ(t.text, u.text) << codes[c] << " " << std::hexfloat << v << " " << w << "." << d;
      ASSERT_EQ(t.status, u.status);
    }
  }
}

}  // namespace
