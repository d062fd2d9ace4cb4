// The checks every date and time format runs before it writes, and two
// small digit writers for the fixed fields of dates.
#pragma once

#include <cstdint>

#include "catalog/field.hpp"
#include "datetime/calendar.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::datetime {

// The width must be positive and within the output capacity; otherwise
// nothing is written (a zero width gets an empty field of stars, a width
// past the capacity XF_E_CAPACITY).
inline bool width_usable(xf_frame *f, xf_status &status) {
  if (f->width < 1) {
    f->output_length = 0;
    status = XF_E_OVERFLOW;
    return false;
  }
  if (static_cast<uint32_t>(f->width) > f->output_capacity) {
    f->output_length = 0;
    status = XF_E_CAPACITY;
    return false;
  }
  return true;
}

// Width check, then the range guard of the given kind (1 dates, 2 and 3
// datetimes and times). False when the field is already final: the missing
// display (status 0) or stars (XF_E_DATE_RANGE).
inline bool guard_value(xf_frame *f, int32_t kind, xf_status &status) {
  if (!width_usable(f, status)) return false;
  switch (zdatrng(f, kind)) {
    case 0: return true;
    case 2: status = XF_OK; return false;
    default: status = XF_E_DATE_RANGE; return false;
  }
}

// Two digits with a leading zero: 0..99.
inline void put2(char *out, int64_t v) {
  out[0] = static_cast<char>('0' + v / 10);
  out[1] = static_cast<char>('0' + v % 10);
}

// A field that a layout cannot hold at this width (only below the catalog's
// minimum widths): stars, as for a number that does not fit.
inline xf_status too_narrow(xf_frame *f) { return fail_stars(f, f->width, XF_E_OVERFLOW); }

}  // namespace xfmt::datetime
