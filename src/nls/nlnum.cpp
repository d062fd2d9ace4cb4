// NLNUM and NLNUMI: a number with d decimals, grouped and pointed the
// locale's way (NLNUM) or with "," and "." in every locale (NLNUMI), "-"
// before a negative number, right-aligned in w.
#include "xfmt/xfmt.h"

#include "nls/locale.hpp"
#include "nls/number_marks.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

namespace {

constexpr number_shape plain_number{1.0, "", false};

}  // namespace

XF_ROUTINE(nlnum, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, locale_number_marks(frame_locale_id(f)), plain_number);
}

XF_ROUTINE(nlnumi, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 9)) return st;
  return grouped_number(f, international_marks(), plain_number);
}
