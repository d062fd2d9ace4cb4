// Packed Julian dates, four bytes of packed decimal with an unsigned sign
// nibble F: PDJULG "yyyydddF" (2023-07-04 is 20 23 18 5F) and PDJULI
// "0cyydddF" with the century counted from 1900 (0 for 19yy, 1 for 20yy:
// 2023-07-04 is 01 23 18 5F). Years a layout cannot hold (PDJULG past 9999,
// PDJULI outside 1900..2899) get stars and XF_E_DATE_RANGE, like dates out
// of range. A field wider than four bytes keeps the value in its last four
// bytes after zero bytes, as a longer packed number would.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;

namespace {

// Seven decimal digits, then the sign nibble, into four bytes.
void pack7(unsigned char *out, int64_t digits) {
  uint32_t nibbles = 0xF;
  for (int32_t i = 1; i < 8; ++i, digits /= 10)
    nibbles |= static_cast<uint32_t>(digits % 10) << (4 * i);
  for (int32_t i = 3; i >= 0; --i, nibbles >>= 8) out[i] = static_cast<unsigned char>(nibbles & 0xFF);
}

// The first year and the year past the last that the layout holds, and the
// number it packs: the year's digits from `base` on times 1000 plus the day.
xf_status packed_julian(xf_frame *f, int64_t first_year, int64_t end_year, int64_t base) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width;
  if (w < 4) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  if (c.year < first_year || c.year >= end_year) return xfmt::fail_stars(f, w, XF_E_DATE_RANGE);
  auto *out = static_cast<unsigned char *>(f->output);
  std::memset(out, 0, static_cast<size_t>(w - 4));
  pack7(out + (w - 4), (c.year - base) * 1000 + day_of_year(c.year, c.month, c.day));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // namespace

extern "C" {

XF_ROUTINE(zfmpdjg, f) { return packed_julian(f, 0, 10000, 0); }
// 0cyyddd: (year - 1900) x 1000 + day, seven digits with a leading zero.
XF_ROUTINE(zfmpdji, f) { return packed_julian(f, 1900, 2900, 1900); }

}  // extern "C"
