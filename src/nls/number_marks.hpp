// The locale's marks for plain numbers (fields 172-174 and 182) and the
// shortening cascade that NLNUM, NLNUMI and the NLPCT formats share: the
// digits of the F layout, grouped and pointed the locale's way, with decimal
// places shed before the grouping marks when the field is short.
#pragma once

#include <cstdint>
#include <string_view>

#include "nls/expand.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::nls {

struct number_marks {
  std::string_view point = ".";  // 172 (narrow text); "." when the locale has none
  char point_byte = '.';         // the same as one byte, for the layouts of BEST, D, PVALUE
  std::string_view separator;    // 173 (narrow text, "<U00A0>" escapes kept)
  // 174 ("3", "3;2", "0"): bit k set when a mark goes between the digit with
  // k digits to its right and the one before it; 0 for no grouping.
  uint64_t group_bits = 0;
  bool minus_after = false;  // 182 (with 179): a minus follows the number
  bool ascii = true;         // point and separator are plain ASCII: no encoding needed
};

number_marks read_number_marks(const field_reader &loc);

// The marks of a database locale (1..136), read once for all; any other id
// gives those of a locale that cannot be read ("." and no grouping).
const number_marks &locale_number_marks(int id);

// "," between groups of three, "." before the decimals: the I variants.
const number_marks &international_marks();

// How a grouped number is dressed.
struct number_shape {
  double scale;        // 100 for the percent formats
  const char *suffix;  // "%" right after the last digit, or ""
  bool reserve_minus;  // every value keeps a position for "-" (NLPCTN)
};

// 39-42 when the frame asks for validation and w or d lies outside the
// catalog limits; XF_OK otherwise.
xf_status check_frame_limits(const xf_frame *f, int32_t min_w, int32_t max_w, int32_t min_d,
                             int32_t max_d);

// The value, scaled, with d decimals, the marks and the suffix, right-aligned
// in w. When the text is too wide, decimal places go one by one (status
// XF_REDUCED); when none is left the grouping goes, and the F layout of the
// value (its own decimal reduction, then E notation) is written with the
// locale's point; stars (XF_E_OVERFLOW) when not even that fits.
xf_status grouped_number(xf_frame *f, const number_marks &m, const number_shape &s);

// Replaces every "." among the first n bytes at out by the locale's point.
void put_locale_point(char *out, uint32_t n, const number_marks &m);

}  // namespace xfmt::nls
