// The checks every date and time format runs before it writes, and the
// four-position year of the fixed fields of dates.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/field.hpp"
#include "core/bounded_text.hpp"
#include "datetime/calendar.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::datetime {

// The frame's value, as frame_value reads it, with the ordinary case marked
// likely: without the hint the compiler lays the calendar arithmetic out as
// cold code (real divisions instead of multiplications).
inline double value_of(const xf_frame *f) {
  if (f->input != nullptr && f->input_length >= 8) [[likely]] {
    double v;
    std::memcpy(&v, f->input, sizeof v);
    return v;
  }
  return missing_ordinary();
}

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
  // The common case inline; missing values (NaNs) and the rest go through
  // the guard, which writes their field.
  const double v = value_of(f);
  if (kind == 1 ? date_in_range(v) : datetime_in_range(v)) [[likely]]
    return true;
  switch (zdatrng(f, kind)) {
    case 0: return true;
    case 2: status = XF_OK; return false;
    default: status = XF_E_DATE_RANGE; return false;
  }
}

// guard_value for a date format that goes on with the calendar day: reads
// the value once and splits it on the common path.
inline bool guard_date(xf_frame *f, xf_status &status, ymd &day) {
  if (!width_usable(f, status)) return false;
  const double v = value_of(f);
  if (date_in_range(v)) [[likely]] {
    day = ymd_of_value(v);
    return true;
  }
  status = zdatrng(f, 1) == 2 ? XF_OK : XF_E_DATE_RANGE;
  return false;
}

// Digits come from the core writer: put2 for 0..99, digit_count.
using core::digit_count;
using core::put2;

// A year in four positions with leading zeros: 0..9999; "****" for one of
// five digits (or a negative one), which no four positions can show.
inline void put_year4(char *out, int64_t v) {
  if (v > 9999 || v < 0) {
    std::memcpy(out, "****", 4);
    return;
  }
  core::put4(out, v);
}

// The DATE layout of a calendar day at the frame's width (usable, already
// checked): shared by DATE and DTDATE.
xf_status write_date_layout(xf_frame *f, const ymd &c);

// A field that a layout cannot hold at this width (only below the catalog's
// minimum widths): stars, as for a number that does not fit.
inline xf_status too_narrow(xf_frame *f) { return fail_stars(f, f->width, XF_E_OVERFLOW); }

}  // namespace xfmt::datetime
