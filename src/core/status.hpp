// Status values in one place, and their names for the command and test messages.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt {

inline constexpr xf_status status_ok = XF_OK;
inline constexpr xf_status status_reduced = XF_REDUCED;
inline constexpr xf_status status_not_built = XF_E_NOT_BUILT;
inline constexpr xf_status status_date_range = XF_E_DATE_RANGE;
inline constexpr xf_status status_hours_range = XF_E_HOURS_RANGE;
inline constexpr xf_status status_capacity = XF_E_CAPACITY;
inline constexpr xf_status status_overflow = XF_E_OVERFLOW;
inline constexpr xf_status status_in_range = XF_IN_RANGE_WARNING;
inline constexpr xf_status status_in_invalid = XF_IN_INVALID;
inline constexpr xf_status status_in_bad_width = XF_IN_BAD_WIDTH;

// A short English name of a status ("ok", "number does not fit", ...);
// unknown values give "status 0x...." from a static buffer per thread.
const char *status_name(xf_status status);

}  // namespace xfmt
