// Formats of one part of a date: DATE (day, month abbreviation, year),
// MONYY, DAY, MONTH, YEAR, QTR, QTRR, WEEKDAY, JULIAN and JULDATE, JULDAY,
// and the Japanese era date NENGO.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/field.hpp"
#include "datetime/calendar.hpp"
#include "datetime/date_field.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::datetime;
using xfmt::frame_out;
using xfmt::write_int_right;

namespace {

const char month_abbr[12][4] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
const char month_alphabet[] = "0123456789ABC";
const char *const roman[5] = {"", "I", "II", "III", "IV"};

// The month abbreviation and the year in n = 5 ("JUL23") or 7 ("JUL2023")
// characters; a five-digit year shows as "****".
void monyy_text(char *out, int32_t n, const ymd &c) {
  std::memcpy(out, month_abbr[c.month - 1], 3);
  if (n == 5) put2(out + 3, c.year % 100);
  else put_year4(out + 3, c.year);  // years here are 1582..20000: never a blank
}

xf_status finish(xf_frame *f) {
  f->output_length = static_cast<uint32_t>(f->width);
  return XF_OK;
}

// Blank-fills the first w - n positions and returns where n characters of
// right-justified text begin.
char *right_part(xf_frame *f, int32_t n) {
  char *out = frame_out(f);
  if (f->width > n) std::memset(out, ' ', static_cast<size_t>(f->width - n));
  return out + (f->width - n);
}

}  // namespace

namespace xfmt::datetime {

// DATE5 04JUL, DATE7 04JUL23, DATE9 04JUL2023, DATE11 04-JUL-2023; the even
// widths 6, 8 and 10 put a blank before the next narrower layout. The width
// is usable (checked by the caller).
xf_status write_date_layout(xf_frame *f, const ymd &c) {
  char *const out = frame_out(f);
  if (f->width == 9) {  // the layout hosts use most, straight into the field
    put2(out, c.day);
    std::memcpy(out + 2, month_abbr[c.month - 1], 3);
    put_year4(out + 5, c.year);
    return finish(f);
  }
  if (f->width < 2) return too_narrow(f);
  if (f->width >= 11) {
    char *p = right_part(f, 11);
    put2(p, c.day);
    p[2] = '-';
    std::memcpy(p + 3, month_abbr[c.month - 1], 3);
    p[6] = '-';
    put_year4(p + 7, c.year);
    return finish(f);
  }
  int32_t n = f->width;
  if (n == 6 || n == 8 || n == 10) --n;
  char *p = right_part(f, n);
  put2(p, c.day);
  if (n == 7 || n == 9) {
    monyy_text(p + 2, n - 2, c);  // the whole MONYY text follows the day
    return finish(f);
  }
  char monyy[7];
  monyy_text(monyy, n < 9 ? 5 : 7, c);
  std::memcpy(p + 2, monyy, static_cast<size_t>(n - 2));
  return finish(f);
}

}  // namespace xfmt::datetime

extern "C" {

XF_ROUTINE(zfmmony, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  if (f->width < 5) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  monyy_text(right_part(f, f->width >= 7 ? 7 : 5), f->width >= 7 ? 7 : 5, c);
  return finish(f);
}

XF_ROUTINE(zfmdate, f) {
  xf_status st = XF_OK;
  ymd c{};
  if (!guard_date(f, st, c)) return st;
  return write_date_layout(f, c);
}

XF_ROUTINE(zfmday, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  write_int_right(frame_out(f), f->width, ymd_of_value(value_of(f)).day);
  return finish(f);
}

// MONTH1 writes one character: months 10, 11, 12 are A, B, C.
XF_ROUTINE(zfmmont, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t m = ymd_of_value(value_of(f)).month;
  if (f->width == 1) frame_out(f)[0] = month_alphabet[m];
  else write_int_right(frame_out(f), f->width, m);
  return finish(f);
}

// No range guard here: a date out of range shows stars with status 0.
// YEAR2 of 2005 is 05, YEAR4 2005, YEAR6 "  2005".
XF_ROUTINE(zfmyear, f) {
  xf_status st = XF_OK;
  if (!width_usable(f, st)) return st;
  const double v = value_of(f);
  if (xfmt::is_missing(v)) return xfmt::write_missing(f, f->width, f->decimals);
  if (!date_in_range(v)) return xfmt::fail_stars(f, f->width, XF_OK);
  const int32_t w = f->width;
  const int64_t y = ymd_of_value(v).year;
  const int64_t shown = w < 4 ? y % 100 : y;
  char *out = frame_out(f);
  if (write_int_right(out, w, shown) && shown < 10 && w >= 2) out[w - 2] = '0';
  return finish(f);
}

XF_ROUTINE(zfmqtr, f) {
  xf_status st = XF_OK;
  if (!width_usable(f, st)) return st;
  const double v = value_of(f);
  if (xfmt::is_missing(v)) return xfmt::write_missing(f, f->width, f->decimals);
  if (!date_in_range(v)) return xfmt::fail_stars(f, f->width, XF_E_DATE_RANGE);
  write_int_right(frame_out(f), f->width, quarter(ymd_of_value(v).month));
  return finish(f);
}

XF_ROUTINE(zfmqtrr, f) {
  xf_status st = XF_OK;
  if (!width_usable(f, st)) return st;
  const double v = value_of(f);
  if (xfmt::is_missing(v)) return xfmt::write_missing(f, f->width, f->decimals);
  if (!date_in_range(v)) return xfmt::fail_stars(f, f->width, XF_E_DATE_RANGE);
  const char *numeral = roman[quarter(ymd_of_value(v).month)];
  const auto r = static_cast<int32_t>(std::strlen(numeral));
  if (f->width < r) return too_narrow(f);
  std::memcpy(right_part(f, r), numeral, static_cast<size_t>(r));
  return finish(f);
}

// Before 1600-01-02 the weekday is 1, 0 or negative (see zwekday) and is
// written as it is: WEEKDAY1 of a negative one is "*".
XF_ROUTINE(zfmweek, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  write_int_right(frame_out(f), f->width, static_cast<int64_t>(zwekday(value_of(f))));
  return finish(f);
}

// JULIAN5 of 2005-01-01 is 05001: below width 7 the century goes, and the
// last five positions are always digits.
XF_ROUTINE(zfmjul, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width;
  int64_t j = julian(ymd_of_value(value_of(f)));
  if (w < 7) j %= 100000;
  char *out = frame_out(f);
  if (write_int_right(out, w, j))
    for (int32_t i = w < 5 ? 0 : w - 5; i < w; ++i)
      if (out[i] == ' ') out[i] = '0';
  return finish(f);
}

XF_ROUTINE(zfmjuld, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const ymd c = ymd_of_value(value_of(f));
  write_int_right(frame_out(f), f->width, day_of_year(c.year, c.month, c.day));
  return finish(f);
}

// Era letter, era year, month, day, written from the left; the width
// decides the punctuation: NENGO10 R.01/05/01, NENGO8 R.010501,
// NENGO5 R0105, NENGO2 the era year alone.
XF_ROUTINE(zfmneng, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width;
  if (w < 2) return too_narrow(f);
  const double v = value_of(f);
  int32_t era = 0;
  while (era < 5 && reigns[era][0] <= v) ++era;
  if (era == 0) return xfmt::fail_stars(f, w, XF_OK);  // before 1868-04-06
  xfmt::blank_field(f, w);
  const ymd c = ymd_of_value(v);
  const int64_t era_year = c.year - (static_cast<int64_t>(reigns[era - 1][1]) - 1);
  char *p = frame_out(f);
  if (w > 2) {
    *p++ = letters[era];
    if (w == 4 || w == 8 || w == 10) *p++ = '.';
  }
  if (era_year < 1 || era_year > 99) p[0] = p[1] = '*';
  else put2(p, era_year);
  p += 2;
  if (w > 4) {
    if (w == 6 || w >= 9) *p++ = '/';
    put2(p, c.month);
    p += 2;
  }
  if (w >= 7) {
    if (w >= 9) *p++ = '/';
    put2(p, c.day);
  }
  return finish(f);
}

}  // extern "C"
