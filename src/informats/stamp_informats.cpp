// Mainframe time stamps and durations: packed times and dates (@PDTIME,
// @RMFDUR, @RMFSTAMP, @SHRSTAMP, @SMFSTAMP), the time-of-day clock
// (@TODSTAMP, @MSEC) and timer units (@TU). Results are time values
// (seconds) or datetime values (seconds since 1960-01-01).
#include "xfmt/xfmt.h"

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "informats/binary_input.hpp"
#include "informats/informat_frame.hpp"
#include "numeric/binary_codec.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::informats {
namespace {

int nibble_at(const unsigned char *p, int i) { return (i & 1) ? p[i / 2] & 0x0F : p[i / 2] >> 4; }

// count decimal nibbles from nibble first; -1 when one is not a digit.
int64_t packed_number(const unsigned char *p, int first, int count) {
  int64_t v = 0;
  for (int i = first; i < first + count; ++i) {
    int n = nibble_at(p, i);
    if (n > 9) return -1;
    v = v * 10 + n;
  }
  return v;
}

bool sign_nibble(const unsigned char *p, int i) {
  int n = nibble_at(p, i);
  return n == 0xF || n == 0xC;
}

// hhmmss from 6 nibbles at first, or -1.
int64_t clock_seconds(const unsigned char *p, int first) {
  int64_t h = packed_number(p, first, 2), m = packed_number(p, first + 2, 2), s = packed_number(p, first + 4, 2);
  if (h < 0 || m < 0 || s < 0 || m > 59 || s > 59) return -1;
  return h * 3600 + m * 60 + s;
}

// The date value of a packed ccyydddF (4 bytes): cc 00 is the 1900s, 01
// the 2000s, 02 the 2100s; ddd the day of the year. -1e18 when invalid.
constexpr int64_t no_date = -1000000000000000000;
int64_t packed_date(const unsigned char *p) {
  int64_t cc = packed_number(p, 0, 2), yy = packed_number(p, 2, 2), ddd = packed_number(p, 4, 3);
  if (cc < 0 || cc > 2 || yy < 0 || ddd < 1 || !sign_nibble(p, 7)) return no_date;
  int64_t year = 1900 + 100 * cc + yy;
  if (ddd > datetime::days_in_year(year)) return no_date;
  return datetime::days_from_year_day(year, ddd);
}

bool ready(xf_frame *f, int min_w, int max_w, xf_status &status) {
  int d = 0;
  return raw_ready(f, min_w, max_w, d, status);
}

xf_status stamp(xf_frame *f, int64_t date, double seconds) {
  if (date == no_date || seconds < 0) return refuse_invalid(f);
  return store_double(f, datetime::datetime_value(static_cast<double>(date), seconds), XF_OK);
}

// The clock's microseconds: bit 51 (from the top) ticks once a
// microsecond, so the count is the value shifted right by 12. A field
// shorter than 8 bytes holds the high-order bytes.
uint64_t clock_microseconds(const xf_frame *f) {
  int w = f->width;
  return (numeric::get_unsigned(input_bytes(f), w, true) << (64 - 8 * w)) >> 12;
}

// Seconds of a microsecond count, whole seconds apart so the fraction
// keeps its microseconds.
double micro_to_seconds(uint64_t us, int64_t shift) {
  return static_cast<double>(static_cast<int64_t>(us / 1000000) - shift) + static_cast<double>(us % 1000000) / 1e6;
}

// 1900-01-01 to 1960-01-01.
constexpr int64_t seconds_1900_to_1960 = -datetime::days_from_ymd(1900, 1, 1) * 86400;

}  // namespace
}  // namespace xfmt::informats

using namespace xfmt::informats;

// PDTIME: 0hhmmssF; a field of zero bytes is missing.
XF_ROUTINE(zifmpdtime, f) {
  xf_status status = XF_OK;
  if (!ready(f, 4, 4, status)) return status;
  const unsigned char *p = input_bytes(f);
  if ((p[0] | p[1] | p[2] | p[3]) == 0) return store_double(f, xfmt::missing_ordinary(), XF_OK);
  int64_t s = clock_seconds(p, 1);
  if (nibble_at(p, 0) != 0 || !sign_nibble(p, 7) || s < 0) return refuse_invalid(f);
  return store_double(f, static_cast<double>(s), XF_OK);
}

// RMFDUR: mmsstttF, a duration in seconds with thousandths.
XF_ROUTINE(zifmrmfdur, f) {
  xf_status status = XF_OK;
  if (!ready(f, 4, 4, status)) return status;
  const unsigned char *p = input_bytes(f);
  int64_t m = packed_number(p, 0, 2), s = packed_number(p, 2, 2), t = packed_number(p, 4, 3);
  if (m < 0 || s < 0 || s > 59 || t < 0 || !sign_nibble(p, 7)) return refuse_invalid(f);
  return store_double(f, static_cast<double>(m * 60 + s) + static_cast<double>(t) / 1000.0, XF_OK);
}

// RMFSTAMP: 0hhmmssF then ccyydddF.
XF_ROUTINE(zifmrmfstamp, f) {
  xf_status status = XF_OK;
  if (!ready(f, 8, 8, status)) return status;
  const unsigned char *p = input_bytes(f);
  int64_t s = nibble_at(p, 0) == 0 && sign_nibble(p, 7) ? clock_seconds(p, 1) : -1;
  return stamp(f, packed_date(p + 4), static_cast<double>(s));
}

// SMFSTAMP: a big-endian 32-bit count of hundredths since midnight, then
// ccyydddF.
XF_ROUTINE(zifmsmfstamp, f) {
  xf_status status = XF_OK;
  if (!ready(f, 8, 8, status)) return status;
  const unsigned char *p = input_bytes(f);
  uint64_t hundredths = xfmt::numeric::get_unsigned(p, 4, true);
  double s = hundredths < 8640000 ? static_cast<double>(hundredths) / 100.0 : -1;
  return stamp(f, packed_date(p + 4), s);
}

// SHRSTAMP: ccyydddF then hhmmssth (tenths and hundredths, no sign).
XF_ROUTINE(zifmshrstamp, f) {
  xf_status status = XF_OK;
  if (!ready(f, 8, 8, status)) return status;
  const unsigned char *p = input_bytes(f);
  int64_t s = clock_seconds(p + 4, 0), th = packed_number(p + 4, 6, 2);
  double seconds = s < 0 || th < 0 ? -1 : static_cast<double>(s * 100 + th) / 100.0;
  return stamp(f, packed_date(p), seconds);
}

// TODSTAMP: the clock as a datetime; a zero clock is missing. Leap seconds
// are not taken out, as the clock does not count them either way.
XF_ROUTINE(zifmtodstamp, f) {
  xf_status status = XF_OK;
  if (!ready(f, 1, 8, status)) return status;
  uint64_t us = clock_microseconds(f);
  if (us == 0) return store_double(f, xfmt::missing_ordinary(), XF_OK);
  return store_double(f, micro_to_seconds(us, seconds_1900_to_1960), XF_OK);
}

// MSEC: the clock as seconds, no epoch, to the microsecond.
XF_ROUTINE(zifmmsec, f) {
  xf_status status = XF_OK;
  if (!ready(f, 8, 8, status)) return status;
  return store_double(f, micro_to_seconds(clock_microseconds(f), 0), XF_OK);
}

// TU: a 32-bit unsigned count of timer units, 38400 to the second.
XF_ROUTINE(zifmtu, f) {
  xf_status status = XF_OK;
  if (!ready(f, 4, 4, status)) return status;
  return store_double(f, static_cast<double>(xfmt::numeric::get_unsigned(input_bytes(f), 4, true)) / 38400.0, XF_OK);
}
