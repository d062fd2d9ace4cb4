// Dates in words (WEEKDATE, WEEKDATX, WORDDATE, WORDDATX, DTWKDATX), the
// 12-hour datetimes (DATEAMPM, MDYAMPM) and the packed Julian dates: random
// values against a plain snprintf transcription of the layouts, and every day
// of 1900..2899 packed (their tables are in tests/data/datetime).
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "oracle/word_dates_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// Random days over the whole range and every width of the rows, against the
// snprintf transcription.
TEST(word_dates, random_days_match_the_oracle) {
  std::mt19937_64 gen = xfmt::test::rng(41);
  const struct {
    xf_routine routine;
    char family;
    int32_t max_w;
  } formats[] = {{zfmwkdt, 'E', 37}, {zfmwkdx, 'X', 37}, {zfmwrdt, 'W', 32}, {zfmwrdx, 'V', 32}};
  const uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const int64_t day = -138061 + static_cast<int64_t>(gen() % 6727397);
    for (const auto &fm : formats) {
      const auto w = static_cast<int32_t>(1 + gen() % static_cast<uint64_t>(fm.max_w));
      frame_box b = frame_box::number(static_cast<double>(day), w);
      fm.routine(&b.f);
      ASSERT_EQ(b.str(), xfmt::oracle::words_field(fm.family, day, w))
          << fm.family << w << " of day " << day << " seed " << xfmt::test::test_seed();
    }
    // DTWKDATX is WEEKDATX of the day of any second in it.
    const auto w = static_cast<int32_t>(3 + gen() % 35);
    frame_box b = frame_box::number(static_cast<double>(day) * 86400.0 + static_cast<double>(gen() % 86400), w);
    zfmdtwk(&b.f);
    ASSERT_EQ(b.str(), xfmt::oracle::words_field('X', day, w)) << "DTWKDATX" << w << " of day " << day;
  }
}

// Random datetimes in quarter seconds (exact in a double, so the rounding of
// half seconds is exercised) against the snprintf transcription.
TEST(ampm_datetimes, random_datetimes_match_the_oracle) {
  std::mt19937_64 gen = xfmt::test::rng(42);
  const uint64_t n = xfmt::test::scaled(20000);
  const int64_t first = -11928470400LL * 4, span = (569318630400LL + 11928470400LL) * 4;
  for (uint64_t i = 0; i < n; ++i) {
    // Half the cases near a day's end, where rounding carries into the date.
    int64_t q = first + static_cast<int64_t>(gen() % static_cast<uint64_t>(span));
    if (i % 2 == 1) q = q - q % 345600 + 345600 - 1 - static_cast<int64_t>(gen() % 8);
    if (q >= first + span) q = first + span - 1;
    const double v = static_cast<double>(q) / 4.0;
    const auto d = static_cast<int32_t>(gen() % 8);
    const auto w1 = static_cast<int32_t>(8 + gen() % 33);
    frame_box b = frame_box::number(v, w1, d);
    zfmdyam(&b.f);
    ASSERT_EQ(b.str(), xfmt::oracle::mdyampm_field(q, w1, d))
        << "MDYAMPM" << w1 << "." << d << " of " << v << " seed " << xfmt::test::test_seed();
    const auto w2 = static_cast<int32_t>(7 + gen() % 34);
    frame_box c = frame_box::number(v, w2, d);
    zfmdtmm(&c.f);
    ASSERT_EQ(c.str(), xfmt::oracle::dateampm_field(q, w2, d))
        << "DATEAMPM" << w2 << "." << d << " of " << v << " seed " << xfmt::test::test_seed();
  }
}

// Every day of 1900..2899 packs its Julian value.
TEST(packed_julian, exhaustive_every_day_packs_its_julian_value) {
  for (int64_t day = -21914; day <= 343328; ++day) {
    frame_box g = frame_box::number(static_cast<double>(day), 4);
    frame_box i = frame_box::number(static_cast<double>(day), 4);
    ASSERT_EQ(zfmpdjg(&g.f), XF_OK);
    ASSERT_EQ(zfmpdji(&i.f), XF_OK);
    const auto julian = static_cast<int64_t>(zjuldat(static_cast<double>(day)));  // yyyyddd
    char want[24];
    std::snprintf(want, sizeof want, "%07lld", static_cast<long long>(julian));
    std::string got;
    for (unsigned char byte : g.out) got += {static_cast<char>('0' + (byte >> 4)), static_cast<char>('0' + (byte & 15))};
    ASSERT_EQ(got, std::string(want) + "?") << day;  // '0' + 15 is '?'
    std::snprintf(want, sizeof want, "%07lld", static_cast<long long>(julian - 1900000));
    got.clear();
    for (unsigned char byte : i.out) got += {static_cast<char>('0' + (byte >> 4)), static_cast<char>('0' + (byte & 15))};
    ASSERT_EQ(got, std::string(want) + "?") << day;
  }
}

}  // namespace
