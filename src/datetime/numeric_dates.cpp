// The numeric date layouts: day-month-year, month-day-year, year-month-day
// (three fields), month-year, year-month, year-quarter with a digit and with
// a Roman numeral, each with its separators.
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

enum class order { dmy, mdy, ymd };

// One field of the three-field layouts, written to end at area + pos:
// values above 99 (years) take four positions ("****" past 9999), others
// two with a leading zero.
int32_t put_field(char *area, int32_t pos, int32_t v) {
  if (v > 99) {
    if (v <= 9999) put_year4(area + pos - 4, v);
    else write_int_right(area + pos - 4, 4, v);  // "****"
    return pos - 4;
  }
  if (v < 0) {
    area[pos - 1] = area[pos - 2] = '*';
  } else {
    put2(area + pos - 2, v);
  }
  return pos - 2;
}

// The full layouts hosts use most (width 10 with separators, 8 with a
// two-digit year, 8 without separators) written straight into the field;
// they give the same bytes as zfmcprt. False for every other case.
bool full_layout(char *out, int32_t w, char sep, order o, const ymd &c) {
  const bool century = sep != '\0' ? w == 10 : w == 8;
  if (!(century || (w == 8 && sep != '\0')) || c.year > 9999) return false;
  const int32_t yl = century ? 4 : 2, s = sep != '\0' ? 1 : 0;
  char *p = out;
  auto year = [&] {
    if (century) put_year4(p, c.year);
    else put2(p, c.year % 100);
    p += yl;
  };
  auto two = [&](int32_t v) {
    put2(p, v);
    p += 2;
  };
  auto separator = [&] {
    if (s) *p++ = sep;
  };
  switch (o) {
    case order::dmy: two(c.day); separator(); two(c.month); separator(); year(); break;
    case order::mdy: two(c.month); separator(); two(c.day); separator(); year(); break;
    case order::ymd: year(); separator(); two(c.month); separator(); two(c.day); break;
  }
  return true;
}

xf_status three_fields(xf_frame *f, char sep, order o) {
  xf_status st = XF_OK;
  ymd c{};
  if (!guard_date(f, st, c)) return st;
  const int32_t w = f->width;
  if (full_layout(frame_out(f), w, sep, o, c)) {
    f->output_length = static_cast<uint32_t>(w);
    return XF_OK;
  }
  // The century shows only when the full width is there: 10 with
  // separators, 8 without.
  const int64_t y = w < (sep != '\0' ? 10 : 8) ? c.year % 100 : c.year;
  const auto yy = static_cast<int32_t>(y);
  switch (o) {
    case order::dmy: zfmcprt(w, sep, frame_out(f), c.day, c.month, yy); break;
    case order::mdy: zfmcprt(w, sep, frame_out(f), c.month, c.day, yy); break;
    case order::ymd: zfmcprt(w, sep, frame_out(f), yy, c.month, c.day); break;
  }
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// Year of the two-field layouts: reduced to two digits (with a leading
// zero) or the whole year, right-justified and blank padded in n positions.
void put_year(char *out, int32_t n, int64_t year, bool two_digits) {
  if (two_digits) {
    write_int_right(out, n, year % 100);
    if (n >= 2 && out[n - 2] == ' ') out[n - 2] = '0';
  } else {
    write_int_right(out, n, year);
  }
}

// The month-year and year-month layouts: the part left of the separator
// takes the room the other leaves, right-justified; the month always shows
// two digits, the year four from width 7 with a separator (6 without).
xf_status month_and_year(xf_frame *f, char separator, bool year_first) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width, s = separator != '\0' ? 1 : 0;
  const bool two = w < 7 - (1 - s);
  const int32_t last = year_first || two ? 2 : 4;  // positions right of the separator
  const int32_t area = w - s - last;
  if (area < 2) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  char *out = frame_out(f);
  if (year_first) {
    put_year(out, area, c.year, two);
    put2(out + area + s, c.month);
  } else {
    write_int_right(out, area, c.month);
    if (out[area - 2] == ' ') out[area - 2] = '0';
    put_year(out + area + s, last, c.year, two);
  }
  if (s) out[area] = separator;
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

const char *const roman[5] = {"", "I", "II", "III", "IV"};

}  // namespace

extern "C" {

XF_API int32_t zfmcymd(double *year, double *month, double *day, double date) {
  if (unusable(date) || !date_in_range(date)) {
    *year = *month = *day = missing();
    return -1;
  }
  const ymd c = ymd_of_value(date);
  *year = static_cast<double>(c.year);
  *month = static_cast<double>(c.month);
  *day = static_cast<double>(c.day);
  return 1;
}

// Worked example, 2023-07-04 as DDMMYY with "/": width 10 builds
// "04/07/2023"; width 9 "04/07/23" after a blank; width 7 drops the
// separators (" 040723"); width 5 keeps only day and month with the
// separator between ("04/07"); width 3 the day alone (" 04").
XF_API void zfmcprt(int32_t width, char separator, char *output, int32_t left, int32_t middle,
                    int32_t right) {
  if (width < 1) return;
  char area[16];
  std::memset(area, ' ', sizeof area);
  int32_t pos = 16;
  if (width > 5) {
    pos = put_field(area, pos, right);
    if (width >= 8 && separator != '\0') area[--pos] = separator;
  }
  if (width > 3) {
    pos = put_field(area, pos, middle);
    if (separator != '\0' && (width == 5 || width >= 8)) area[--pos] = separator;
  }
  put_field(area, pos, left);
  const int32_t n = width < 10 ? width : 10;
  if (width > 10) std::memset(output, ' ', static_cast<size_t>(width - 10));
  std::memcpy(output + (width - n), area + 16 - n, static_cast<size_t>(n));
}

XF_ROUTINE(zfmdmy, f) { return three_fields(f, '/', order::dmy); }
XF_ROUTINE(zfmdmyb, f) { return three_fields(f, ' ', order::dmy); }
XF_ROUTINE(zfmdmyc, f) { return three_fields(f, ':', order::dmy); }
XF_ROUTINE(zfmdmyd, f) { return three_fields(f, '-', order::dmy); }
XF_ROUTINE(zfmdmyn, f) { return three_fields(f, '\0', order::dmy); }
XF_ROUTINE(zfmdmyp, f) { return three_fields(f, '.', order::dmy); }
XF_ROUTINE(zfmmdy, f) { return three_fields(f, '/', order::mdy); }
XF_ROUTINE(zfmmdyb, f) { return three_fields(f, ' ', order::mdy); }
XF_ROUTINE(zfmmdyc, f) { return three_fields(f, ':', order::mdy); }
XF_ROUTINE(zfmmdyd, f) { return three_fields(f, '-', order::mdy); }
XF_ROUTINE(zfmmdyn, f) { return three_fields(f, '\0', order::mdy); }
XF_ROUTINE(zfmmdyp, f) { return three_fields(f, '.', order::mdy); }
XF_ROUTINE(zfmymd, f) { return three_fields(f, '-', order::ymd); }
XF_ROUTINE(zfmymdb, f) { return three_fields(f, ' ', order::ymd); }
XF_ROUTINE(zfmymdc, f) { return three_fields(f, ':', order::ymd); }
XF_ROUTINE(zfmymdn, f) { return three_fields(f, '\0', order::ymd); }
XF_ROUTINE(zfmymdp, f) { return three_fields(f, '.', order::ymd); }
XF_ROUTINE(zfmymds, f) { return three_fields(f, '/', order::ymd); }

// Month, separator, year: MMYY5 07M23, MMYY7 07M2023, MMYYN4 0723. The
// century needs width 7 with a separator, 6 without.
XF_ROUTINE_WITH(zfmdlmy, f, (char separator), (separator)) {
  return month_and_year(f, separator, false);
}

// Year, separator, month: YYMM7 2023M07, YYMM5 23M07, YYMM8 " 2023M07".
XF_ROUTINE_WITH(zfmdlym, f, (char separator), (separator)) {
  return month_and_year(f, separator, true);
}

// Year, separator, quarter digit: YYQC4 23:3, YYQC6 2023:3, YYQN3 233,
// YYQN5 20233.
XF_ROUTINE_WITH(zfmdlqy, f, (char separator), (separator)) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width, s = separator != '\0' ? 1 : 0;
  const bool two = w < 6 - (1 - s);
  const int32_t area = w - s - 1;
  if (area < 2) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  char *out = frame_out(f);
  put_year(out, area, c.year, two);
  if (s) out[area] = separator;
  out[w - 1] = static_cast<char>('0' + (c.month - 1) / 3 + 1);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// Year, separator, Roman quarter. The century goes only when the numeral
// needs its room: YYQR6 gives 2023QI for the first quarter but 23QIII for
// the third.
XF_ROUTINE_WITH(zfmdlyq, f, (char separator), (separator)) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const ymd c = ymd_of_value(value_of(f));
  const char *numeral = roman[(c.month - 1) / 3 + 1];
  const auto r = static_cast<int32_t>(std::strlen(numeral));
  const int32_t w = f->width, s = separator != '\0' ? 1 : 0;
  const bool two = w < r + 4 + s;
  const int32_t area = w - s - r;
  if (area < 2) return too_narrow(f);
  char *out = frame_out(f);
  put_year(out, area, c.year, two);
  if (s) out[area] = separator;
  std::memcpy(out + area + s, numeral, static_cast<size_t>(r));
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

// YYQ4 23Q3, YYQ6 2023Q3, YYQ8 "  2023Q3": the two positions before "Q"
// never stay blank.
XF_ROUTINE(zfmyyq, f) {
  xf_status st = XF_OK;
  if (!guard_value(f, 1, st)) return st;
  const int32_t w = f->width, area = w - 2;
  if (area < 2) return too_narrow(f);
  const ymd c = ymd_of_value(value_of(f));
  char *out = frame_out(f);
  write_int_right(out, area, w < 6 ? c.year % 100 : c.year);
  if (out[area - 2] == ' ') out[area - 2] = '0';
  if (out[area - 1] == ' ') out[area - 1] = '0';
  out[area] = 'Q';
  out[area + 1] = static_cast<char>('0' + (c.month - 1) / 3 + 1);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

XF_ROUTINE(zfmmmy, f) { return zfmdlmy(f, 'M'); }
XF_ROUTINE(zfmmmyc, f) { return zfmdlmy(f, ':'); }
XF_ROUTINE(zfmmmyd, f) { return zfmdlmy(f, '-'); }
XF_ROUTINE(zfmmmyn, f) { return zfmdlmy(f, '\0'); }
XF_ROUTINE(zfmmmyp, f) { return zfmdlmy(f, '.'); }
XF_ROUTINE(zfmmmys, f) { return zfmdlmy(f, '/'); }
XF_ROUTINE(zfmyym, f) { return zfmdlym(f, 'M'); }
XF_ROUTINE(zfmyymc, f) { return zfmdlym(f, ':'); }
XF_ROUTINE(zfmyymd, f) { return zfmdlym(f, '-'); }
XF_ROUTINE(zfmyymn, f) { return zfmdlym(f, '\0'); }
XF_ROUTINE(zfmyymp, f) { return zfmdlym(f, '.'); }
XF_ROUTINE(zfmyyms, f) { return zfmdlym(f, '/'); }
XF_ROUTINE(zfmyyqc, f) { return zfmdlqy(f, ':'); }
XF_ROUTINE(zfmyyqd, f) { return zfmdlqy(f, '-'); }
XF_ROUTINE(zfmyyqn, f) { return zfmdlqy(f, '\0'); }
XF_ROUTINE(zfmyyqp, f) { return zfmdlqy(f, '.'); }
XF_ROUTINE(zfmyyqs, f) { return zfmdlqy(f, '/'); }
XF_ROUTINE(zfmyyqr, f) { return zfmdlyq(f, 'Q'); }
XF_ROUTINE(zfmyqrc, f) { return zfmdlyq(f, ':'); }
XF_ROUTINE(zfmyqrd, f) { return zfmdlyq(f, '-'); }
XF_ROUTINE(zfmyqrn, f) { return zfmdlyq(f, '\0'); }
XF_ROUTINE(zfmyqrp, f) { return zfmdlyq(f, '.'); }
XF_ROUTINE(zfmyqrs, f) { return zfmdlyq(f, '/'); }

}  // extern "C"

extern "C" {

// XYYMMDD is YYMMDD with hyphens: 230704 at widths 6-7, 23-07-04 at 8-9,
// 2023-07-04 from 10 on, right-justified.
XF_ROUTINE(zfmxymd, f) { return zfmymd(f); }

// YYQZ: year and a two-digit quarter, no separator: 2303 at widths 4-5,
// 202303 at 6.
XF_ROUTINE(zfmyyqz, f) {
  xf_status st = XF_OK;
  ymd c{};
  if (!guard_date(f, st, c)) return st;
  const int32_t w = f->width;
  if (w < 4) return too_narrow(f);
  const int32_t n = w >= 6 ? 6 : 4;
  char *out = frame_out(f);
  if (w > n) std::memset(out, ' ', static_cast<size_t>(w - n));
  char *p = out + (w - n);
  if (n == 6) put_year4(p, c.year);
  else put2(p, c.year % 100);
  put2(p + n - 2, (c.month - 1) / 3 + 1);
  f->output_length = static_cast<uint32_t>(w);
  return XF_OK;
}

}  // extern "C"
