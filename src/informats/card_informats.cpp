// Punched-card column binary: @$CB (characters), @CB (digits), @PUNCH.d
// (one row of the current column) and @ROW w.d (which of d rows holds the
// punch). Each column is two bytes whose low six bits hold the twelve rows:
// byte 1 bits 20..01 rows 12, 11, 0, 1, 2, 3; byte 2 rows 4 to 9.
#include "xfmt/xfmt.h"

#include <bit>

#include "core/missing.hpp"
#include "informats/binary_input.hpp"
#include "informats/informat_frame.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::informats {
namespace {

// The twelve rows as bits, row 12 highest: bit 11 row 12, bit 10 row 11,
// bit 9 row 0, bit 8 row 1 ... bit 0 row 9.
unsigned column_rows(const unsigned char *p) { return ((p[0] & 0x3Fu) << 6) | (p[1] & 0x3Fu); }

constexpr unsigned zone_12 = 4, zone_11 = 2, zone_0 = 1;

// The EBCDIC byte the punches encode, or -1. Digit rows 1-9 alone are the
// digits; with a zone the letters (12: A-I, 11: J-R, 0: S-Z) and with two
// zones the small letters (12-0: a-i, 12-11: j-r, 11-0: s-z); row 8 with a
// row 2-7 makes the special characters of each zone; the zones alone are
// "&", "-", "0" and with each other "{", "}".
int column_ebcdic(unsigned rows) {
  unsigned zones = rows >> 9, digits = rows & 0x1FFu;
  if (digits == 0) {
    switch (zones) {
      case 0: return 0x40;
      case zone_12: return 0x50;
      case zone_11: return 0x60;
      case zone_0: return 0xF0;
      case zone_12 | zone_0: return 0xC0;
      case zone_11 | zone_0: return 0xD0;
      default: return -1;
    }
  }
  if ((digits & (digits - 1)) == 0) {  // one digit row, d = 1..9
    int d = 9 - std::countr_zero(digits);
    switch (zones) {
      case 0: return 0xF0 + d;
      case zone_12: return 0xC0 + d;
      case zone_11: return 0xD0 + d;
      case zone_0: return d == 1 ? 0x61 : 0xE0 + d;
      case zone_12 | zone_0: return 0x80 + d;
      case zone_12 | zone_11: return 0x90 + d;
      case zone_11 | zone_0: return d == 1 ? -1 : 0xA0 + d;
      default: return -1;
    }
  }
  unsigned other = digits & ~0x002u;  // row 8 is bit 1
  if ((digits & 0x002u) == 0 || (other & (other - 1)) != 0 || other < 0x004u || other > 0x080u) return -1;
  int k = 9 - std::countr_zero(other);  // the row 2..7 beside row 8
  switch (zones) {
    case 0: return 0x78 + k;
    case zone_12: return 0x48 + k;
    case zone_11: return 0x58 + k;
    case zone_0: return k == 2 ? 0xE0 : 0x68 + k;
    default: return -1;
  }
}

// The digit of a column with a single digit punch (row 0 alone is 0), or -1.
int column_digit(unsigned rows) {
  if (rows == (zone_0 << 9)) return 0;
  if (rows >> 9 || rows == 0 || (rows & (rows - 1)) != 0) return -1;
  return 9 - std::countr_zero(rows);
}

// The position of a row in the order 12, 11, 0, 1 .. 9 (10 names row 0).
int row_index(int row) { return row == 12 ? 0 : row == 11 ? 1 : row == 0 || row == 10 ? 2 : row + 2; }

bool bad_output(xf_frame *f, xf_status &status) {
  if (can_store_double(f)) return false;
  status = refuse_small_output(f);
  return true;
}

}  // namespace
}  // namespace xfmt::informats

using namespace xfmt::informats;

// w bytes make w / 2 characters; a column that encodes none gives a blank
// and XF_IN_INVALID (the other columns are still read).
XF_ROUTINE(zifmccb, f) {
  if (f->width < 1) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  int64_t n = field_length(f) / 2;
  uint32_t want = static_cast<uint32_t>(f->width / 2);
  uint32_t room = f->output == nullptr ? 0 : f->output_capacity;
  uint32_t k = want < room ? want : room;
  const unsigned char *p = input_bytes(f);
  unsigned char *out = static_cast<unsigned char *>(f->output);
  xf_status status = XF_OK;
  for (uint32_t i = 0; i < k; ++i) {
    int c = i < n ? column_ebcdic(column_rows(p + 2 * i)) : 0x40;
    if (c < 0) status = XF_IN_INVALID;
    out[i] = c < 0 ? ' ' : eb2as[c];
  }
  f->output_length = k;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return status == XF_OK && k < want ? XF_E_CAPACITY : status;
}

// Columns of one digit punch each, w bytes (an even count), divided by 10^d.
XF_ROUTINE(zifmcb, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 1, 32, d, status)) return status;
  if (f->width % 2) return refuse_invalid(f);
  const unsigned char *p = input_bytes(f);
  xfmt::numeric::u128 m = 0;
  for (int i = 0; i < f->width; i += 2) {
    int digit = column_digit(column_rows(p + i));
    if (digit < 0) return refuse_invalid(f);
    m = m * 10 + static_cast<unsigned>(digit);
  }
  return store_double(f, scaled_down(false, m, d), XF_OK);
}

// PUNCH.d: 1 when the current column has a hole in row d (1-9, 10 for row
// 0, 11, 12), else 0.
XF_ROUTINE(zifmpunch, f) {
  xf_status status = XF_OK;
  if (bad_output(f, status)) return status;
  if (f->width != 0 || f->decimals < 1 || f->decimals > 12)
    return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  if (f->input == nullptr || f->input_length < 2) return refuse_invalid(f);
  unsigned rows = column_rows(input_bytes(f));
  int bit = 11 - row_index(f->decimals);
  return store_double(f, static_cast<double>((rows >> bit) & 1u), XF_OK);
}

// ROW w.d: of the d rows starting at row w (going on into the next column
// after row 9), the position from 1 of the one punch. No punch (and d 0):
// missing; more than one: missing with XF_IN_INVALID.
XF_ROUTINE(zifmrow, f) {
  xf_status status = XF_OK;
  if (bad_output(f, status)) return status;
  if (f->width < 0 || f->width > 12 || f->decimals < 0 || f->decimals > 25)
    return store_double(f, xfmt::missing_ordinary(), XF_IN_BAD_WIDTH);
  int first = row_index(f->width), count = f->decimals;
  int64_t need = 2 * ((first + count + 11) / 12);
  if (count > 0 && (f->input == nullptr || f->input_length < need)) return refuse_invalid(f);
  const unsigned char *p = input_bytes(f);
  int found = 0;
  for (int i = 0; i < count; ++i) {
    int at = first + i;
    unsigned rows = column_rows(p + 2 * (at / 12));
    if ((rows >> (11 - at % 12)) & 1u) {
      if (found) return refuse_invalid(f);
      found = i + 1;
    }
  }
  return store_double(f, found ? static_cast<double>(found) : xfmt::missing_ordinary(), XF_OK);
}
