// @PDJULG and @PDJULI: packed Julian dates of four bytes, seven digit
// nibbles and a plus sign nibble, as PDJULG and PDJULI write them.
// @PDJULG: yyyydddF (20 23 18 5F is 2023-07-04); @PDJULI: ccyydddF with the
// years counted from 1900 (01 23 18 5F is 2023-07-04, 00 99 ... is 1999).
#include "xfmt/xfmt.h"

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "informats/informat_frame.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

// w is 4; four blank bytes (ASCII or EBCDIC) are a blank field, the
// ordinary missing value. Digits must be 0-9 and the sign nibble a plus
// (A, C, E or F); the day of the year 001 up to the year's length.
xf_status packed_julian(xf_frame *f, int64_t year_base) {
  if (!can_store_double(f)) return refuse_small_output(f);
  if (f->width != 4 || implied_decimals(f->decimals) < 0)
    return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
  if (f->input == nullptr || f->input_length < 4) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  const auto *p = static_cast<const unsigned char *>(f->input);
  if ((p[0] == ' ' || p[0] == 0x40) && p[1] == p[0] && p[2] == p[0] && p[3] == p[0])
    return store_double(f, missing_ordinary(), XF_OK);
  int64_t digits = 0;
  for (int i = 0; i < 7; ++i) {
    const int n = (i & 1) ? p[i / 2] & 0x0F : p[i / 2] >> 4;
    if (n > 9) return store_double(f, missing_ordinary(), XF_IN_INVALID);
    digits = digits * 10 + n;
  }
  const int sign = p[3] & 0x0F;
  const bool plus = sign == 0xA || sign == 0xC || sign == 0xE || sign == 0xF;
  const int64_t year = year_base + digits / 1000, ddd = digits % 1000;
  if (!plus || year < 1582 || ddd < 1 || ddd > datetime::days_in_year(year))
    return store_double(f, missing_ordinary(), XF_IN_INVALID);
  return store_double(f, static_cast<double>(datetime::days_from_year_day(year, ddd)), XF_OK);
}

}  // namespace

XF_ROUTINE(zifmpdjg, f) { return packed_julian(f, 0); }
XF_ROUTINE(zifmpdji, f) { return packed_julian(f, 1900); }
