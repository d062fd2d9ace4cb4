// The frame side of every date and time informat: checks, trimming, the
// missing notations and storing the result. The routine supplies only the
// reader of its shape.
#pragma once

#include "datetime/calendar.hpp"
#include "informats/date_scanner.hpp"
#include "informats/informat_frame.hpp"
#include "informats/number_reader.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::informats {

// The frame checks, the trimming and the missing notations shared by all:
//   w below 0 or d outside 0..max_d (98, 99 count as 0)  missing, XF_IN_BAD_WIDTH
//   blank field or "."                                 ordinary missing, XF_OK
//   "._", ".A" .. ".Z"                                 the host's missing value
//   a shape the reader refuses, or a day that does
//   not exist or lies outside the calendar's range    missing, XF_IN_INVALID
// read(cursor, value) reads the shape; the cursor must then be at the end.
// max_d is 31 for most; the datetime informats that take d up to 39 say so.
template <class Reader>
xf_status read_field(xf_frame *f, Reader read, int32_t max_d = 31) {
  if (!can_store_double(f)) return refuse_small_output(f);
  const int64_t n = field_length(f);
  const bool decimals_ok =
      f->decimals == 98 || f->decimals == 99 || (f->decimals >= 0 && f->decimals <= max_d);
  if (n < 0 || !decimals_ok) return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
  const char *p = field_text(f);
  const char *end = p + n;
  while (p < end && is_blank_or_tab(*p)) ++p;
  while (end > p && is_blank_or_tab(end[-1])) --end;
  if (p == end) return store_double(f, missing_ordinary(), XF_OK);
  if (*p == '.' && end - p <= 2) {
    if (end - p == 1) return store_double(f, missing_ordinary(), XF_OK);
    const char letter = p[1] >= 'a' && p[1] <= 'z' ? static_cast<char>(p[1] - 'a' + 'A') : p[1];
    if (letter == '_') return store_double(f, host_missing(0), XF_OK);
    if (letter >= 'A' && letter <= 'Z') return store_double(f, host_missing(letter - 'A' + 2), XF_OK);
  }
  date_cursor c{p, end};
  double v = 0;
  if (!read(c, v) || !c.at_end() || datetime::unusable(v))
    return store_double(f, missing_ordinary(), XF_IN_INVALID);
  return store_double(f, v, XF_OK);
}

}  // namespace xfmt::informats
