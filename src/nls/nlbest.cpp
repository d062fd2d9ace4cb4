// NLBEST, NLD and NLPVALUE: what BEST, D and PVALUE write for the same w.d,
// with the locale's decimal mark in place of "." (no grouping); NLBEST also
// moves the minus behind the number where the locale writes it there.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "nls/locale.hpp"
#include "nls/number_marks.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::nls;

namespace {

// The numeric format's own field, then the locale's point in it. Missing
// values keep their "." (the symbol of the ordinary missing value).
xf_status pointed(xf_frame *f, xf_status (*format)(xf_frame *)) {
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  if (is_missing(frame_value(f))) return format(f);
  const xf_status st = format(f);
  if (f->width >= 1 && (st == XF_OK || st == XF_REDUCED || st == XF_E_CAPACITY)) {
    const uint32_t n = f->output_length < f->output_capacity ? f->output_length : f->output_capacity;
    put_locale_point(frame_out(f), n, locale_number_marks(frame_locale_id(f)));
  }
  return st;
}

}  // namespace

XF_ROUTINE(nlbest, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 0)) return st;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  const int32_t w = f->width;
  if (w < 1) return XF_E_OVERFLOW;
  if (w > numeric::max_field) return fail_stars(f, w, XF_E_OVERFLOW);
  const double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, 0);
  char buf[numeric::max_field];
  const xf_status st = numeric::layout_number(v, w, 99, buf);
  if (st == XF_E_OVERFLOW) return numeric::deliver_field(f, buf, w, st);
  const number_marks &m = locale_number_marks(frame_locale_id(f));
  put_locale_point(buf, static_cast<uint32_t>(w), m);
  if (m.minus_after) {
    // " -2.5" -> " 2.5-": the sign leaves the front, the text moves left.
    int i = 0;
    while (i < w && buf[i] == ' ') ++i;
    if (i < w && buf[i] == '-') {
      std::memmove(buf + i, buf + i + 1, static_cast<size_t>(w - i - 1));
      buf[w - 1] = '-';
    }
  }
  return numeric::deliver_field(f, buf, w, st);
}

XF_ROUTINE(nld, f) {
  if (xf_status st = check_frame_limits(f, 1, 32, 0, 16)) return st;
  return pointed(f, zfmd);
}

XF_ROUTINE(nlpvalue, f) {
  if (xf_status st = check_frame_limits(f, 3, 32, 1, 30)) return st;
  return pointed(f, zfmpval);
}
