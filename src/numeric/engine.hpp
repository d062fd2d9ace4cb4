// The plain-number printer shared by every numeric format: the fixed and
// E-notation layouts of zfmt, working on a local field of at most 32
// positions. Other subsystems call zfmt through xfmt.h; the formats of this
// subsystem use these internals to decorate the same text.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::numeric {

inline constexpr int max_field = 32;

// One unit in the last place above 1.0: applied after every rounding
// addition so that a decimal halfway value stored just below its true value
// still rounds up (1.005 is 1.00499999999999989...; plus 0.005 it lands one
// ulp short of 1.01, and the nudge lifts it so F4.2 shows 1.01).
inline constexpr double rounding_nudge = 1.0000000000000002;
// The larger nudge of E notation: covers the error of scaling by 10^-e.
inline constexpr double e_nudge = 1.0000000000000018;
// Multiplier that moves a mantissa which rounded up to 1.0 back to 0.1.
inline constexpr double e_carry = 0.10000000000000002;

// Decimal exponent estimate from the binary exponent e2 of m (m = f * 2^e2,
// f in [0.5, 1)): e2 * 77 / 256 truncated toward zero; 0 for m = 0. For
// m >= 1 it is the count of integer digits or one less.
int decimal_estimate(double m);

// Scales m > 0 into [0.1, 1): returns the mantissa and sets e10 so that
// m = mantissa * 10^e10. The estimate floor(e2 * 77 / 256) is clamped to 308
// and corrected by whole powers of ten; the scaling runs in long double (64
// mantissa bits) so the double mantissa is off by at most one unit.
double decimal_mantissa(double m, int &e10);

// The E form of the magnitude m right-justified in exactly `room` positions
// at out (blank padded on the left). code 99 (or any code above 31): as many
// mantissa digits as fit, trailing zeros removed; a negative code -k: k
// decimals after the first digit, fewer when they do not fit; 0..31: that
// many decimals. Returns the length of the E text, or -1 (out untouched)
// when not even one mantissa digit fits.
int e_layout(double m, int room, int code, char *out);

// Decimals that show m with `digits` significant digits in `room` positions
// of the fixed layout, or -999 when no fixed layout shows a significant digit.
int significant_decimals(double m, int room, int digits);

// Lays the finite or infinite non-missing value v out under decimals code d
// in exactly w positions at buf (1 <= w <= 32; nothing past buf[w - 1] is
// written). Returns XF_OK, XF_REDUCED or
// XF_E_OVERFLOW (buf then holds w '*').
xf_status layout_number(double v, int32_t w, int32_t d, char *buf);

// The text of a fixed layout, split: sign, integral digits, and the fraction
// digits after the point (none when the layout has no point).
struct plain_parts {
  bool neg = false;
  const char *int_digits = nullptr;
  int int_len = 0;
  char *frac = nullptr;  // digits after the point (inside the field)
  int frac_len = -1;     // -1: no point
};

// Splits the w-position field at buf as layout_number left it; false for
// anything but a fixed layout (E notation, stars).
bool split_plain(char *buf, int w, plain_parts &p);

// Copies the w-position field at buf to the frame's output, cut to the
// capacity: the output length is min(w, capacity) and a cut turns a status
// of 0 or 2 into XF_E_CAPACITY.
xf_status deliver_field(xf_frame *f, const char *buf, int32_t w, xf_status status);

}  // namespace xfmt::numeric
