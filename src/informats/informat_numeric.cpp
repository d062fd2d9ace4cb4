// @F and @E (wzifmn), the plain number informat, and @BZ (zifmbz), which
// reads blanks inside the number as zeros.
#include "xfmt/xfmt.h"

#include "core/missing.hpp"
#include "informats/informat_frame.hpp"
#include "informats/number_reader.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

XF_ROUTINE(wzifmn, f) {
  if (!can_store_double(f)) return refuse_small_output(f);
  int64_t n = field_length(f);
  if (n < 1) return store_double(f, missing_ordinary(), n == 0 ? XF_OK : XF_IN_BAD_WIDTH);
  int d = implied_decimals(f->decimals);
  if (d < 0) return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
  double v;
  xf_status st = read_number(field_text(f), static_cast<size_t>(n), d, v);
  return store_double(f, v, st);
}

// Leading blanks go; every later blank is a zero, so " 1 2 " with w 5 reads
// 1020 and an all-blank field reads 0. The copy holds the whole field.
XF_ROUTINE(zifmbz, f) {
  if (!can_store_double(f)) return refuse_small_output(f);
  int64_t n = field_length(f);
  if (n < 1) return store_double(f, missing_ordinary(), n == 0 ? XF_OK : XF_IN_BAD_WIDTH);
  int d = implied_decimals(f->decimals);
  if (d < 0) return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);

  const char *text = field_text(f);
  size_t i = 0;
  size_t len = static_cast<size_t>(n);
  while (i < len && text[i] == ' ') ++i;
  char copy[widest_number_field];
  size_t m = 0;
  for (; i < len && m < sizeof copy; ++i) copy[m++] = text[i] == ' ' ? '0' : text[i];
  if (m == 0) return store_double(f, 0.0, XF_OK);
  double v;
  xf_status st = read_number(copy, m, d, v);
  return store_double(f, v, st);
}
