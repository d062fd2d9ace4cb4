// A literal, step-by-step TIME w.d built with strings, printing the seconds
// through zfmt always, for the differential test of the fast zfmtime.
#pragma once

#include <cstdint>
#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

// The field TIME w.d writes for an in-range, non-missing value, and its status.
std::string time_field(double value, int32_t w, int32_t d, xf_status &status);

}  // namespace xfmt::oracle
