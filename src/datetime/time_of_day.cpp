// Times and datetimes: building them from parts, splitting them into date,
// hour, minute and second, and the range guard every date and time format
// runs first.
#include "xfmt/xfmt.h"

#include <cmath>

#include "core/field.hpp"
#include "datetime/calendar.hpp"

using namespace xfmt::datetime;

extern "C" {

XF_API double zhms(double hour, double minute, double second) {
  if (unusable(hour) || unusable(minute) || unusable(second)) return missing();
  return second + (hour * 60.0 + minute) * 60.0;
}

XF_API double zdhms(double date, double hour, double minute, double second) {
  if (unusable(date) || !date_in_range(date)) return missing();
  const double t = zhms(hour, minute, second);
  if (unusable(t)) return missing();
  return t + date * seconds_per_day;
}

XF_API double zdatprt(double dt) {
  if (unusable(dt) || !datetime_in_range(dt)) return missing();
  return static_cast<double>(day_of_datetime(dt));
}

XF_API double ztimprt(double dt) {
  if (unusable(dt) || !datetime_in_range(dt)) return missing();
  return second_of_day(dt);
}

XF_API double zhour(double v) {
  if (unusable(v) || !datetime_in_range(v)) return missing();
  return split_time(v).hour;
}

XF_API double zminute(double v) {
  if (unusable(v) || !std::isfinite(v)) return missing();
  return split_time(v).minute;
}

XF_API double zsecond(double v) {
  if (unusable(v) || !std::isfinite(v)) return missing();
  return split_time(v).second;
}

XF_API int32_t zdatrng(xf_frame *frame, int32_t kind) {
  const double v = xfmt::frame_value(frame);
  if (xfmt::is_missing(v)) {
    // No frame flag changes the missing display of this library, so there
    // is nothing to clear around the call.
    xfmt::write_missing(frame, frame->width, frame->decimals);
    return 2;
  }
  bool ok = true;
  if (kind == 1) ok = date_in_range(v);
  else if (kind == 2 || kind == 3) ok = datetime_in_range(v);
  if (ok) return 0;
  xfmt::fail_stars(frame, frame->width, XF_E_DATE_RANGE);
  return 1;
}

}  // extern "C"
