// Running an informat on a text with exact-size buffers, bits shown in hex,
// and round trips of days through a format and its informat.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::test {

struct informat_outcome {
  xf_status status;
  uint64_t bits;       // the stored double's bits (0xEEEE... when nothing was stored)
};

inline informat_outcome run_informat(xf_routine routine, const std::string &text, int32_t w,
                                     int32_t d = 0) {
  frame_box b = frame_box::chars(text, w, d, 8);
  xf_status st = routine(&b.f);
  uint64_t bits;
  std::memcpy(&bits, b.out.data(), 8);
  return {st, bits};
}

// The field a format writes for v at width w (asserting it succeeds).
inline std::string print(xf_routine format, double v, int32_t w) {
  frame_box b = frame_box::number(v, w);
  EXPECT_EQ(format(&b.f), XF_OK) << v << " w " << w;
  return b.str();
}

inline std::string hex(uint64_t bits) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "0x%016llX", static_cast<unsigned long long>(bits));
  return buf;
}

// The step of the every-day round trips: 1, or 20 when XFMT_TEST_SCALE is
// 0.05 (the sanitizer run).
inline int64_t day_step() { return static_cast<int64_t>(1000 / scaled(1000)); }

// The first day of the month, or of the quarter, of day d.
inline int64_t month_start(int64_t d) {
  const datetime::ymd c = datetime::ymd_from_days(d);
  return datetime::days_from_ymd(c.year, c.month, 1);
}
inline int64_t quarter_start(int64_t d) {
  const datetime::ymd c = datetime::ymd_from_days(d);
  return datetime::days_from_ymd(c.year, (c.month - 1) / 3 * 3 + 1, 1);
}

// Every day (or second, for a time format) n of [first, last], step apart,
// written by the format at width w (as the datetime n * 86400 + 3599 when
// datetime is set) reads back through the informat as first_of(n), or n.
inline void round_trip(xf_routine format, int32_t w, xf_routine informat, int64_t first, int64_t last,
                       int64_t step = 1, bool datetime = false, int64_t (*first_of)(int64_t) = nullptr) {
  for (int64_t n = first; n <= last; n += step) {
    const double v = static_cast<double>(n) * (datetime ? 86400.0 : 1.0) + (datetime ? 3599 : 0);
    const std::string text = print(format, v, w);
    auto got = run_informat(informat, text, w);
    const double want = static_cast<double>(first_of ? first_of(n) : n);
    ASSERT_EQ(got.status, XF_OK) << "[" << text << "] w " << w;
    ASSERT_EQ(hex(got.bits), hex(double_bits(want))) << "[" << text << "] w " << w;
  }
}

}  // namespace xfmt::test
