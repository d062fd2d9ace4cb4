// COMMA and the other punctuated formats: marks inserted when they fit, and
// dropped in order (alignment blank, groups, currency sign) when they do not.
#include <gtest/gtest.h>

#include <string>

#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// Every punctuated routine over random values: never past the capacity, the
// output length min(w, capacity), and the digits those of F.
TEST(punctuated_formats, random_values_keep_the_digits_of_f) {
  const xf_routine routines[] = {zfmcma, zfmcmax, zfmdlr, zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn};
  auto g = xfmt::test::rng(7);
  const uint64_t count = xfmt::test::scaled(200000);
  int failures = 0;
  for (uint64_t i = 0; i < count && failures < 10; ++i) {
    double v = static_cast<double>(static_cast<int64_t>(g() % 2000000001) - 1000000000) /
               static_cast<double>(1 + g() % 1000);
    int32_t w = 2 + static_cast<int32_t>(g() % 31);
    int32_t d = static_cast<int32_t>(g() % 6);
    frame_box plain = frame_box::number(v, w, d);
    xf_status plain_status = zfmt(&plain.f);
    for (xf_routine r : routines) {
      frame_box b = frame_box::number(v, w, d);
      xf_status st = r(&b.f);
      std::string got = b.str(), want = plain.str();
      auto digits = [](const std::string &s) {
        std::string out;
        for (char c : s)
          if (c >= '0' && c <= '9') out += c;
        return out;
      };
      bool ok = b.f.output_length == static_cast<uint32_t>(w) && st == plain_status &&
                (want.find_first_of("E*") != std::string::npos ? got == want : digits(got) == digits(want));
      if (!ok && ++failures < 10)
        ADD_FAILURE() << "seed " << xfmt::test::test_seed() << " value " << v << " w " << w << " d " << d
                      << " got [" << got << "] want digits of [" << want << "]";
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
