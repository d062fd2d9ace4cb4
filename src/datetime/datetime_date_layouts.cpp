// DTDATE, DTMONYY, DTYEAR and DTYYQC: the day a datetime falls on, written by
// the date formats of the same layout (DATE, MONYY, YEAR, YYQC). A datetime
// belongs to the day floor(value / 86400), so -1 is 1959-12-31.
#include "xfmt/xfmt.h"

#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"

using namespace xfmt::datetime;

namespace {

// The datetime guard (missing display, stars with XF_E_DATE_RANGE outside
// 1582..20000), then the date writer on a frame that holds the day number.
// Only the output length comes back: the writer touches nothing else.
inline xf_status through_date(xf_frame *f, xf_routine date_writer) {
  xf_status st = XF_OK;
  if (!guard_value(f, 2, st)) return st;
  // floor(v) - datetime_min is a non-negative whole number, so the
  // truncating division is an exact floor even where v / 86400 would round
  // up to the next day.
  const double v = value_of(f);
  const double day =
      static_cast<double>(static_cast<int64_t>((std::floor(v) - datetime_min) / seconds_per_day) + date_min);
  xf_frame g = *f;
  g.input = &day;
  g.input_length = sizeof day;
  st = date_writer(&g);
  f->output_length = g.output_length;
  return st;
}

}  // namespace

extern "C" {

XF_API xf_status zfmdtdat(xf_frame *f) { return through_date(f, zfmdate); }
XF_API xf_status zfmdtmy(xf_frame *f) { return through_date(f, zfmmony); }
XF_API xf_status zfmdtyr(xf_frame *f) { return through_date(f, zfmyear); }
XF_API xf_status zfmdtyqc(xf_frame *f) { return through_date(f, zfmyyqc); }

}  // extern "C"
