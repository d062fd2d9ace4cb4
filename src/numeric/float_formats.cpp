// The floating-point layouts other programs write: IEEE and IEEER (IEEE 754
// high-order byte first, and its mirror), FLOAT (the host's single) and
// MRB (Microsoft Binary Format). Each writes w bytes of value x 10^d.
#include "xfmt/xfmt.h"

#include <cfloat>
#include <cmath>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "numeric/binary_field.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::numeric {
namespace {

// The scaled value, or false for a missing value or NaN (they store zero
// bytes, as no reader of these layouts knows the missing codes).
bool scaled_float(const xf_frame *f, double &x) {
  double v = frame_value(f);
  if (is_missing(v) || std::isnan(v)) return false;
  x = f->decimals > 0 ? v * pow10_double(f->decimals) : v;
  return true;
}

// x as a single, rounded to nearest as IEEE 754 does: false past the
// single range. Values above FLT_MAX but below FLT_MAX + half an ulp round
// to FLT_MAX; the conversion is only made inside the range, where it is
// defined.
bool to_single(double x, uint32_t &bits) {
  constexpr double single_overflow = 0x1.ffffffp+127;
  double a = std::fabs(x);
  if (!(a < single_overflow)) return false;
  float s = a > FLT_MAX ? (x < 0 ? -FLT_MAX : FLT_MAX) : static_cast<float>(x);
  std::memcpy(&bits, &s, sizeof bits);
  return true;
}

// IEEE w.d: w 5..8 the top w bytes of the double, w 2..4 the top w bytes of
// the single; big puts the high-order byte first. Out of range: zero bytes
// and XF_E_OVERFLOW.
xf_status ieee_field(xf_frame *f, bool big) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status)) return status;
  int w = f->width;
  if (w < 2) {
    f->output_length = 0;
    return XF_E_OVERFLOW;
  }
  double x = 0;
  uint64_t top = 0;
  if (scaled_float(f, x)) {
    uint32_t single = 0;
    if (w >= 5 && std::isfinite(x)) top = double_bits(x) >> (64 - 8 * w);
    else if (w <= 4 && to_single(x, single)) top = single >> (32 - 8 * w);
    else status = XF_E_OVERFLOW;
  }
  put_twos(binary_out(f), w, top, big);
  return binary_done(f, status);
}

}  // namespace
}  // namespace xfmt::numeric

using namespace xfmt::numeric;

XF_ROUTINE(zfmieee, f) { return ieee_field(f, true); }
XF_ROUTINE(zfmieeer, f) { return ieee_field(f, false); }

// The host's single: 4 bytes in the host's order.
XF_ROUTINE(zfmfloat, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 4, status)) return status;
  if (f->width != 4) {
    f->output_length = 0;
    return XF_E_OVERFLOW;
  }
  double x = 0;
  uint32_t single = 0;
  if (scaled_float(f, x) && !to_single(x, single)) status = XF_E_OVERFLOW;
  std::memcpy(binary_out(f), &single, 4);
  return binary_done(f, status);
}

// MRB w.d: w 2..4 single precision, 5..8 double precision; the w most
// significant bytes (exponent last) of the whole value. Past 1.7e38 the
// largest magnitude with its sign and XF_E_OVERFLOW; below 2.9e-39 zero.
XF_ROUTINE(zfmmrb, f) {
  xf_status status = XF_OK;
  if (!binary_field_ready(f, 8, status)) return status;
  int w = f->width;
  if (w < 2) {
    f->output_length = 0;
    return XF_E_OVERFLOW;
  }
  unsigned char bytes[8] = {};
  int n = w >= 5 ? 8 : 4;
  double x = 0;
  if (scaled_float(f, x) && !mbf_bytes(x, n == 8, bytes)) status = XF_E_OVERFLOW;
  std::memcpy(binary_out(f), bytes + n - w, static_cast<size_t>(w));
  return binary_done(f, status);
}
