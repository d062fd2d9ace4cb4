// DTDATE, DTMONYY, DTYEAR and DTYYQC: the day a datetime falls on, written by
// the date formats of the same layout (DATE, MONYY, YEAR, YYQC). A datetime
// belongs to the day floor(value / 86400), so -1 is 1959-12-31.
#include "xfmt/xfmt.h"

#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

// The datetime guard (missing display, stars with XF_E_DATE_RANGE outside
// 1582..20000), then the date writer on a frame that holds the day number.
// Only the output length comes back: the writer touches nothing else.
inline xf_status through_date(xf_frame *f, xf_routine date_writer) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  const auto day = static_cast<double>(day_of_datetime(value_of(f)));
  xf_frame g = *f;
  g.input = &day;
  g.input_length = sizeof day;
  st = date_writer(&g);
  f->output_length = g.output_length;
  return st;
}

}  // namespace

extern "C" {

// DTDATE is DATE's writer on the day; the hosts' most used DT form skips the
// second frame.
XF_ROUTINE(zfmdtdat, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  return write_date_layout(f, ymd_in_range(day_of_datetime(value_of(f))));
}
XF_ROUTINE(zfmdtmy, f) { return through_date(f, zfmmony); }
XF_ROUTINE(zfmdtyr, f) { return through_date(f, zfmyear); }
XF_ROUTINE(zfmdtyqc, f) { return through_date(f, zfmyyqc); }

}  // extern "C"
