// @COMMA, @DOLLAR, @NEGPAREN (zifmcma), @PERCENT (zifmpct) and @COMMAX,
// @DOLLARX (zifmcmx).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "informats/informat_run.hpp"

namespace {

using xfmt::test::hex;
using xfmt::test::miss;
using xfmt::test::num;
using xfmt::test::run_informat;


TEST(commax_informat, reads_the_whole_field) {
  std::string text = std::string(31, ' ') + "12";
  auto got = run_informat(zifmcmx, text, 33);
  EXPECT_EQ(got.status, XF_OK);
  EXPECT_EQ(hex(got.bits), hex(num(12)));
}

TEST(punctuated_informats, output_too_small_writes_nothing) {
  for (xf_routine r : {zifmcma, zifmpct, zifmcmx}) {
    xfmt::test::frame_box b = xfmt::test::frame_box::chars("1,234", 5, 0, 4);
    EXPECT_EQ(r(&b.f), XF_E_CAPACITY);
    EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));
  }
}

TEST(case_files, punctuated_informat) { xfmt::test::run_case_file("informats/punctuated_informat.txt"); }

}  // namespace
