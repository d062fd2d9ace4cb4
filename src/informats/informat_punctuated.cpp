// Informats of punctuated numbers: @COMMA, @DOLLAR and @NEGPAREN (zifmcma),
// @PERCENT (zifmpct), and @COMMAX and @DOLLARX (zifmcmx), which swap the
// roles of point and comma and hand the result to zifmcma.
#include "xfmt/xfmt.h"

#include "core/missing.hpp"
#include "informats/informat_frame.hpp"
#include "informats/number_reader.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt;
using namespace xfmt::informats;

namespace {

// Bytes that punctuate a number and are dropped: blanks, tabs, grouping
// commas, closing parentheses and currency marks (Windows-1252: 0x80 euro,
// 0xA2 cent, 0xA3 pound, 0xA4 currency sign, 0xA5 yen).
bool is_punctuation(unsigned char c) {
  switch (c) {
    case ' ': case '\t': case ',': case '$': case ')':
    case 0x80: case 0xA2: case 0xA3: case 0xA4: case 0xA5:
      return true;
    default:
      return false;
  }
}

// The cleaned text is never longer than the field.
constexpr size_t clean_room = widest_number_field;

struct cleaned_number {
  char text[clean_room];
  size_t length = 0;
  bool paren = false;    // "(" before the number
  bool percent = false;  // a "%" that divides by 100
};

// Drops the punctuation; false for text that no reading can accept.
//   "(" before the number makes it negative, the ")" is optional (so that
//   zifmcmx, which drops it, is read alike).
//   "%" is dropped; with percent set it divides by 100 and must follow the
//   number: "%12" and "12%3" are invalid, as is a second "%".
bool clean_punctuated(const char *text, size_t n, bool percent, cleaned_number &out) {
  for (size_t i = 0; i < n; ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (is_punctuation(c)) continue;
    if (c == '%') {
      if (percent && out.percent) return false;
      out.percent = percent;
      continue;
    }
    if (c == '(') {
      if (out.paren || out.length != 0) return false;
      out.paren = true;
      continue;
    }
    if (out.percent || out.length == clean_room) return false;
    out.text[out.length++] = static_cast<char>(c);
  }
  // A sign inside parentheses, "(-5)", is contradictory.
  return !(out.paren && out.length != 0 && (out.text[0] == '-' || out.text[0] == '+'));
}

// Reads a punctuated number. The percent division is exact: "12%" reads as
// the double nearest 0.12, not 12.0 / 100. A field of punctuation only reads
// as the ordinary missing value.
xf_status read_punctuated(const char *text, size_t n, int d, bool percent, double &out) {
  cleaned_number c;
  if (!clean_punctuated(text, n, percent, c)) {
    out = missing_ordinary();
    return XF_IN_INVALID;
  }
  if (c.length == 0) {
    out = missing_ordinary();
    return XF_OK;
  }
  xf_status st = read_number(c.text, c.length, d, out, c.percent ? -2 : 0);
  if (c.paren && st == XF_OK && out == out && out != 0) out = -out;  // numbers only, never a missing value
  return st;
}

xf_status punctuated_informat(xf_frame *f, bool percent) {
  if (!can_store_double(f)) return refuse_small_output(f);
  int64_t n = field_length(f);
  if (n < 1) return store_double(f, missing_ordinary(), n == 0 ? XF_OK : XF_IN_BAD_WIDTH);
  int d = implied_decimals(f->decimals);
  if (d < 0) return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
  double v;
  xf_status st = read_punctuated(field_text(f), static_cast<size_t>(n), d, percent, v);
  return store_double(f, v, st);
}

}  // namespace

XF_ROUTINE(zifmcma, f) { return punctuated_informat(f, false); }

XF_ROUTINE(zifmpct, f) { return punctuated_informat(f, true); }

// "1.234.567,89" reads 1234567.89: points, "$", "%", ")" and blanks are
// dropped from the whole field, commas become points, and the rest is
// read as @COMMA reads it with its own length as the width.
XF_ROUTINE(zifmcmx, f) {
  if (!can_store_double(f)) return refuse_small_output(f);
  if (f->width < 0) return store_double(f, missing_ordinary(), XF_IN_BAD_WIDTH);
  store_double(f, missing_ordinary(), XF_OK);
  int64_t n = field_length(f);
  char copy[widest_number_field];
  size_t m = 0;
  const char *text = field_text(f);
  for (int64_t i = 0; i < n; ++i) {
    char c = text[i];
    if (c == '.' || c == '$' || c == '%' || c == ')' || c == ' ') continue;
    copy[m++] = c == ',' ? '.' : c;
  }
  if (m == 0) return XF_OK;
  xf_frame inner = *f;
  inner.input = copy;
  inner.input_length = static_cast<uint32_t>(m);
  inner.width = static_cast<int32_t>(m);
  xf_status st = zifmcma(&inner);
  f->output_length = inner.output_length;
  return st;
}
