// Significant-digit decimals: zfmtd, which the decimals codes 98 (three
// significant digits) and 80-89 (code - 80, from D) use to choose how many
// decimals the fixed layout shows.
#include "xfmt/xfmt.h"

#include <cmath>

#include "numeric/digits.hpp"
#include "numeric/engine.hpp"

namespace xfmt::numeric {

// m has x + 1 integral digits when x >= 0 (10^x <= m < 10^(x+1)); s
// significant digits need s - 1 - x decimals: 3.14159 with 3 digits keeps 2
// ("3.14"), 0.000123456 keeps 6 ("0.000123"), 1234.5 keeps none ("1235").
// When the room is short the decimals shrink, as long as at least one
// significant digit stays visible; otherwise -999 asks for E notation.
int significant_decimals(double m, int room, int digits) {
  if (digits < 1) digits = 1;
  if (!(m > 0) || !std::isfinite(m)) return 0;
  // x is the exponent of m as 15 significant digits show it: the double
  // nearest 1e-6 lies just below it but counts as 10^-6, not 9.99..e-7.
  int e10;
  double mant = decimal_mantissa(m, e10);
  int x = e10 - 1;
  if (scaled_fraction(mant, 16) >= 9999999999999995u) ++x;
  int dd = digits - 1 - x;
  if (dd < 0) dd = 0;
  if (dd > 31) dd = 31;
  int n = x >= 0 ? x + 1 : 1;
  if (n > room) return -999;
  if (n + (dd > 0 ? dd + 1 : 0) > room) {
    dd = room - n - 1;
    if (dd < 0) dd = 0;
  }
  if (x < 0 && dd < -x) return -999;
  return dd;
}

}  // namespace xfmt::numeric

extern "C" XF_API int32_t zfmtd(double magnitude, int32_t width, int32_t digits) {
  return xfmt::numeric::significant_decimals(std::fabs(magnitude), width, digits);
}
