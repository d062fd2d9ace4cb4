// Formats that spell a part of a date: DOWNAME (weekday name), MONNAME
// (month name) and YYMON (year and month abbreviation).
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;
using xfmt::frame_out;

namespace {

// The name right-justified in the field, cut to the width when longer
// (DOWNAME3 of a Tuesday is "Tue").
xf_status put_name(xf_frame *f, const char *name) {
  const int32_t w = f->width;
  const auto n = static_cast<int32_t>(std::strlen(name));
  char *out = frame_out(f);
  if (n >= w) {
    std::memcpy(out, name, static_cast<size_t>(w));
  } else {
    std::memset(out, ' ', static_cast<size_t>(w - n));
    std::memcpy(out + (w - n), name, static_cast<size_t>(n));
  }
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // namespace

extern "C" {

// The true weekday by floor division from 1960-01-01 (a Friday), so names
// stay right before 1600 too, where WEEKDAY keeps its old numbering.
XF_ROUTINE(zfmdown, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const double v = value_of(f);
  auto n = static_cast<int64_t>(v);
  if (static_cast<double>(n) > v) --n;
  const int64_t weekday = (n + 5 - floor_div(n + 5, 7) * 7);  // 0 = Sunday
  return put_name(f, weekdays[weekday]);
}

XF_ROUTINE(zfmmonn, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  return put_name(f, months[ymd_of_value(value_of(f)).month - 1]);
}

// YYMON7 2023JUL, YYMON5 23JUL; wider fields get blanks on the left.
XF_ROUTINE(zfmymon, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width;
  if (w < 5) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  const int32_t len = w >= 7 ? 7 : 5;
  char *out = frame_out(f);
  std::memset(out, ' ', static_cast<size_t>(w - len));
  char *p = out + (w - len);
  if (len == 7) put_year4(p, c.year);
  else put2(p, c.year % 100);
  std::memcpy(p + len - 3, datestgs[12 + c.month - 1], 3);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // extern "C"
