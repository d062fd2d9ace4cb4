// One expected field of a date or time format: routine, width and decimals,
// value, text (every blank shown) and status; checked as every case is.
#pragma once

#include <gtest/gtest.h>

#include "support/cases.hpp"
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
  format_case c = number_case(r.routine, r.value, r.w, r.d, r.text, r.status);
  c.name = r.name;
  EXPECT_TRUE(holds(c));
}

}  // namespace xfmt::test
