// $IS-INTRINSIC over every catalogued name (its fixed answers for other
// texts, and the other intrinsic rows, are in catalog/intrinsic.txt).
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "support/cases.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::holds;
using xfmt::test::text_case;

TEST(is_intrinsic, every_catalogued_format_name_and_no_informat) {
  for (const fmtposs_row &p : fmtposs) {
    const std::string name(p.row.name, p.row.name_length);
    const std::string answer = name[0] != '-' && name[0] != '@' ? "YES" : "NO ";
    std::string lower;
    for (char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_TRUE(holds(text_case(zfmintrns, name, 3, 0, answer)));
    EXPECT_TRUE(holds(text_case(zfmintrns, lower + "  ", 3, 0, answer)));
  }
}

TEST(is_intrinsic, answer_is_single_byte) {
  xfmt::test::frame_box b = xfmt::test::frame_box::chars("F", 3);
  b.f.output_encoding = 25;
  EXPECT_EQ(zfmintrns(&b.f), XF_OK);
  EXPECT_EQ(b.f.output_encoding, 0u);
}

}  // namespace
