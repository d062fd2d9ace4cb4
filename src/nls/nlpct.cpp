// NLPCT, NLPCTI, NLPCTN and NLPCTP: the value times 100 with d decimals,
// grouped and pointed the locale's way (NLPCTI: "," and "."), "-" before a
// negative number and "%" right after the last digit, right-aligned in w.
// The "%" is never dropped: a number without it would read 100 times too
// large. NLPCTN keeps a position for the minus in every value, so that
// positive and negative values show the same decimals.
#include "xfmt/xfmt.h"

#include "nls/locale.hpp"
#include "nls/number_marks.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

namespace {

constexpr number_shape percent{100.0, "%", false};
constexpr number_shape percent_reserving_minus{100.0, "%", true};

}  // namespace

XF_ROUTINE(nlpct, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, locale_number_marks(frame_locale_id(f)), percent);
}

XF_ROUTINE(nlpcti, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, international_marks(), percent);
}

XF_ROUTINE(nlpctn, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, locale_number_marks(frame_locale_id(f)), percent_reserving_minus);
}

XF_ROUTINE(nlpctp, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, locale_number_marks(frame_locale_id(f)), percent);
}
