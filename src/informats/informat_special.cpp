// Numbers in the notations of the further module: @NUMX (a comma as the
// decimal mark), @YEN (yen sign and grouping commas) and @SIZEKMG (a byte
// count with KB, MB, GB or TB). Each cleans its field into a plain number
// and hands it to the core reader, so rounding and the missing notations
// are the same as @F's.
#include "xfmt/xfmt.h"

#include "core/missing.hpp"
#include "informats/informat_frame.hpp"
#include "informats/number_reader.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

// The checks every numeric informat makes; false when the result is stored.
bool numeric_ready(xf_frame *f, int64_t &n, int &d, xf_status &status) {
  if (!can_store_double(f)) {
    status = refuse_small_output(f);
    return false;
  }
  n = field_length(f);
  d = implied_decimals(f->decimals);
  if (n < 0 || d < 0) {
    status = store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
    return false;
  }
  return true;
}

// A field is at most 33 bytes wide; anything longer is refused rather than
// cut.
constexpr int64_t field_room = 40;

}  // namespace

// @NUMX: "12,5" is 12.5, "-0,75" -0.75. With a comma, a point is no part of
// the number ("1.250,5" is invalid: grouping is not read); without one the
// text reads as @F reads it, d included ("1250" with d 2 is 12.5).
XF_ROUTINE(zifmnumx, f) {
  int64_t n = 0;
  int d = 0;
  xf_status st = XF_OK;
  if (!numeric_ready(f, n, d, st)) return st;
  if (n > field_room) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  const char *text = field_text(f);
  char copy[field_room] = {};
  bool comma = false, point = false;
  for (int64_t i = 0; i < n; ++i) {
    comma = comma || text[i] == ',';
    point = point || text[i] == '.';
    copy[i] = text[i] == ',' ? '.' : text[i];
  }
  if (comma && point) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  double v = 0;
  st = read_number(copy, static_cast<size_t>(n), d, v);
  return store_double(f, v, st);
}

// @YEN: yen signs and grouping commas are dropped: "\1,000" is 1000. The
// yen sign is the byte 5C on hosts whose code page puts it there, and A5 in
// Windows-1252, which the YEN format writes; both are dropped. A point is the decimal point, as the YEN format writes it
// ("\12.50" is 12.5 whatever d is); d divides a number without one
// ("\1250" with d 2 is 12.5).
XF_ROUTINE(zifmyen, f) {
  int64_t n = 0;
  int d = 0;
  xf_status st = XF_OK;
  if (!numeric_ready(f, n, d, st)) return st;
  if (n > field_room) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  const char *text = field_text(f);
  char copy[field_room] = {};
  size_t m = 0;
  bool sign = false;
  for (int64_t i = 0; i < n; ++i) {
    const bool yen = text[i] == '\\' || static_cast<unsigned char>(text[i]) == 0xA5;
    if (yen || text[i] == ',') {
      sign = sign || yen;
      continue;
    }
    copy[m++] = text[i];
  }
  double v = 0;
  st = read_number(copy, m, d, v);
  // A yen sign with nothing after it is no amount.
  if (sign && st == XF_OK && is_missing(v)) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  return store_double(f, v, st);
}

// @SIZEKMG: a number, then optionally one blank and KB, MB, GB or TB in any
// case: "4KB" 4096, "1.5 mb" 1572864, "100" 100. d divides a number written
// without a point before the unit applies ("15KB" with d 1 is 1536).
XF_ROUTINE(zifmsizekmg, f) {
  int64_t n = 0;
  int d = 0;
  xf_status st = XF_OK;
  if (!numeric_ready(f, n, d, st)) return st;
  const char *text = field_text(f);
  int64_t first = 0, end = n;
  while (first < end && is_blank_or_tab(text[first])) ++first;
  while (end > first && is_blank_or_tab(text[end - 1])) --end;
  double unit = 1;
  if (end - first >= 2 && (text[end - 1] == 'B' || text[end - 1] == 'b')) {
    switch (text[end - 2]) {
      case 'K': case 'k': unit = 1024.0; break;
      case 'M': case 'm': unit = 1024.0 * 1024.0; break;
      case 'G': case 'g': unit = 1024.0 * 1024.0 * 1024.0; break;
      case 'T': case 't': unit = 1024.0 * 1024.0 * 1024.0 * 1024.0; break;
      default: return store_double(f, missing_ordinary(), XF_IN_INVALID);
    }
    end -= 2;
    if (end > first && text[end - 1] == ' ') --end;
    // The unit needs a number just before it: "KB", " KB" and "4  KB" are
    // invalid.
    if (end == first || is_blank_or_tab(text[end - 1])) return store_double(f, missing_ordinary(), XF_IN_INVALID);
  }
  double v = 0;
  st = read_number(text + first, static_cast<size_t>(end - first), d, v);
  if (unit != 1 && st == XF_OK) {
    if (is_missing(v)) return store_double(f, missing_ordinary(), XF_IN_INVALID);
    v *= unit;  // a power of two: exact unless it overflows
    if (v - v != 0) return store_double(f, missing_ordinary(), XF_IN_RANGE_WARNING);
  }
  return store_double(f, v, st);
}
