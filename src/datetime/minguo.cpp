// MINGUO: dates in the calendar of the Republic of China. Years count from
// 1912 (year 1); months and days are the Gregorian ones. Written from the
// left: "0112/07/04" at width 10, "112/07/04" where the year and "/mm/dd"
// fit, "1120704" where only the digits fit.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

// 1912-01-01, the first day of year 1.
constexpr int64_t minguo_first_day = days_from_ymd(1912, 1, 1);

}  // namespace

XF_ROUTINE(zfmmingo, f) {
  xf_status st = XF_OK;
  ymd c{};
  if (!guard_date(f, st, c)) return st;
  const int32_t w = f->width;
  // The guard let the day through, so it is whole days within the calendar.
  if (value_of(f) < static_cast<double>(minguo_first_day)) return xfmt::fail_stars(f, w, XF_OK);
  const int64_t year = c.year - 1911;
  char digits[20];  // room for any count digit_count gives
  int32_t n = digit_count(static_cast<uint64_t>(year));
  if (w == 10 && n < 4) n = 4;  // "0112/07/04": four year digits at width 10
  xfmt::core::put_digits(digits + n, static_cast<uint64_t>(year), n);
  const bool slashes = n + 6 <= w;
  const int32_t used = n + (slashes ? 6 : 4);
  // Narrower than the digits themselves: nothing would be whole.
  if (used > w) return too_narrow(f);
  char *out = xfmt::frame_out(f);
  std::memcpy(out, digits, static_cast<size_t>(n));
  char *p = out + n;
  if (slashes) *p++ = '/';
  put2(p, c.month);
  p += 2;
  if (slashes) *p++ = '/';
  put2(p, c.day);
  if (used < w) std::memset(out + used, ' ', static_cast<size_t>(w - used));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}
