// The punctuated formats beyond COMMA: COMMAX, DOLLAR, DOLLARX, EURO, EUROX,
// PERCENT, PERCENTN, NEGPAREN and YEN. Each lays the plain number out as F
// would, then adds its marks when they fit the width, dropping them in the
// order users expect (alignment blank, groups, currency sign, parentheses
// for a minus sign) before keeping the plain text, and stars only when that
// does not fit.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/digits.hpp"
#include "numeric/engine.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::numeric {

bool split_plain(char *buf, int w, plain_parts &p) {
  int i = 0;
  while (i < w && buf[i] == ' ') ++i;
  if (i < w && buf[i] == '-') {
    p.neg = true;
    ++i;
  }
  p.int_digits = buf + i;
  while (i < w && buf[i] >= '0' && buf[i] <= '9') ++i;
  p.int_len = static_cast<int>(buf + i - p.int_digits);
  if (i < w && buf[i] == '.') {
    p.frac = buf + ++i;
    while (i < w && buf[i] >= '0' && buf[i] <= '9') ++i;
    p.frac_len = static_cast<int>(buf + i - p.frac);
  }
  return i == w;  // anything else (E notation, stars) is not split
}

namespace {

enum class sign_style { minus, parens };

struct punct_style {
  char group;            // thousands separator, 0 for none
  char point;            // decimal mark
  char currency;         // currency byte before the number, 0 for none
  const char *suffix;    // after the number ("%"), or ""
  sign_style negative;   // "-" before everything, or parentheses around it
  bool keep_room;        // a positive value keeps blanks where ")" would be
  double scale;          // 100 for the percent formats
};

// Single-byte currency signs in the Windows-1252 code page: the dispatcher
// widens 0x80 to U+20AC and 0xA5 to U+00A5 when UTF-16 is asked for.
constexpr char euro_sign = static_cast<char>(0x80);
constexpr char yen_sign = static_cast<char>(0xA5);

// Which marks a candidate text carries.
struct marks {
  bool groups;    // thousands separators
  bool currency;  // the currency sign
  bool parens;    // parentheses around a negative value (else a minus sign)
  bool suffix;    // the suffix ("%")
  bool room;      // the trailing blank of a positive value where ")" would be
};

// Composes one candidate text into out (room for 2 * max_field bytes);
// returns its length. "-$1,234.50", "(1,234.50)", " 12.5% " ...
int compose(const plain_parts &p, const punct_style &s, marks m, char *out) {
  int n = 0;
  bool parens = p.neg && s.negative == sign_style::parens && m.parens;
  if (p.neg && !parens) out[n++] = '-';
  if (parens) out[n++] = '(';
  if (m.currency && s.currency) out[n++] = s.currency;
  for (int i = 0; i < p.int_len; ++i) {
    if (m.groups && s.group && i > 0 && (p.int_len - i) % 3 == 0) out[n++] = s.group;
    out[n++] = p.int_digits[i];
  }
  if (p.frac_len >= 0) {
    out[n++] = s.point;
    std::memcpy(out + n, p.frac, static_cast<size_t>(p.frac_len));
    n += p.frac_len;
  }
  if (m.suffix)
    for (const char *q = s.suffix; *q; ++q) out[n++] = *q;
  if (parens) out[n++] = ')';
  else if (m.room && s.keep_room) out[n++] = ' ';
  return n;
}

xf_status punctuate(xf_frame *f, const punct_style &s) {
  int32_t w = f->width;
  int32_t d = f->decimals;
  if (w < 1) return XF_E_OVERFLOW;
  if (w > max_field) return fail_stars(f, w, XF_E_OVERFLOW);
  double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, d < 0 || d >= w ? 0 : d);

  char buf[max_field];
  xf_status status = layout_number(v * s.scale, w, d, buf);
  plain_parts p;
  if (status == XF_E_OVERFLOW || !split_plain(buf, w, p)) return deliver_field(f, buf, w, status);

  // Candidates, richest first: the alignment blank goes first, then the
  // groups, then the currency sign, then the parentheses (a minus sign takes
  // their place: "-0.10%"); the plain text comes last.
  const marks order[] = {{true, true, true, true, true},
                         {true, true, true, true, false},
                         {false, true, true, true, false},
                         {false, false, true, true, false},
                         {false, false, false, true, false}};
  char text[2 * max_field];
  for (const marks &m : order) {
    int n = compose(p, s, m, text);
    if (n <= w) {
      core::put_blanks(buf, w - n);
      std::memcpy(buf + (w - n), text, static_cast<size_t>(n));
      return deliver_field(f, buf, w, status);
    }
  }
  // The plain text (it fits w by construction), with the format's point.
  if (p.frac_len >= 0) p.frac[-1] = s.point;
  return deliver_field(f, buf, w, status);
}

constexpr punct_style commax_style{'.', ',', 0, "", sign_style::minus, false, 1.0};
constexpr punct_style dollar_style{',', '.', '$', "", sign_style::minus, false, 1.0};
constexpr punct_style dollarx_style{'.', ',', '$', "", sign_style::minus, false, 1.0};
constexpr punct_style euro_style{',', '.', euro_sign, "", sign_style::minus, false, 1.0};
constexpr punct_style eurox_style{'.', ',', euro_sign, "", sign_style::minus, false, 1.0};
constexpr punct_style yen_style{',', '.', yen_sign, "", sign_style::minus, false, 1.0};
constexpr punct_style negparen_style{',', '.', 0, "", sign_style::parens, true, 1.0};
constexpr punct_style percent_style{0, '.', 0, "%", sign_style::parens, true, 100.0};
constexpr punct_style percentn_style{0, '.', 0, "%", sign_style::minus, false, 100.0};

}  // namespace
}  // namespace xfmt::numeric

using xfmt::numeric::punctuate;

XF_ROUTINE(zfmcmax, f) { return punctuate(f, xfmt::numeric::commax_style); }
XF_ROUTINE(zfmdlr, f) { return punctuate(f, xfmt::numeric::dollar_style); }
XF_ROUTINE(zfmdlrx, f) { return punctuate(f, xfmt::numeric::dollarx_style); }
XF_ROUTINE(zfmeuro, f) { return punctuate(f, xfmt::numeric::euro_style); }
XF_ROUTINE(zfmerx, f) { return punctuate(f, xfmt::numeric::eurox_style); }
XF_ROUTINE(zfmyen, f) { return punctuate(f, xfmt::numeric::yen_style); }
XF_ROUTINE(zfmnprn, f) { return punctuate(f, xfmt::numeric::negparen_style); }
XF_ROUTINE(zfmpct, f) { return punctuate(f, xfmt::numeric::percent_style); }
XF_ROUTINE(pctn, f) { return punctuate(f, xfmt::numeric::percentn_style); }
