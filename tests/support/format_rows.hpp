// One expected field of a date or time format: routine, width and decimals,
// value, text (every blank shown) and status; checked in an exact-size buffer.
#pragma once

#include <gtest/gtest.h>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::test {

struct row {
  xf_routine routine;
  const char *name;
  double value;
  int32_t w, d;
  const char *text;
  xf_status status;
};

inline void check(const row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  const xf_status st = r.routine(&b.f);
  EXPECT_EQ(b.str(), r.text) << r.name << r.w << "." << r.d << " of " << r.value;
  EXPECT_EQ(st, r.status) << r.name << r.w << "." << r.d << " of " << r.value;
}

}  // namespace xfmt::test
