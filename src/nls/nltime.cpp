// NLTIME and NLTIMAP: a time of day in the locale's 24-hour or 12-hour form.
#include "xfmt/xfmt.h"

#include "nls/locale_fields.hpp"
#include "nls/nl_member.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

XF_ROUTINE(nltime, f) {
  static constexpr member_spec spec{10, 3, value_kind::time, lf::time_24_hour, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nltimap, f) {
  static constexpr member_spec spec{4, 3, value_kind::time, lf::time_default, 0, short_form::none};
  return run_two_pattern(f, spec);
}
