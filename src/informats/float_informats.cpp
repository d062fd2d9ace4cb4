// The floating-point informats: @IEEE, @IEEER, @FLOAT, @MRB and @VAXRB,
// the inverses of the formats of the same names; absent low-order bytes
// count as zero and the value is then divided by 10^d.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/missing.hpp"
#include "informats/binary_input.hpp"
#include "informats/informat_frame.hpp"
#include "numeric/binary_codec.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::informats {
namespace {

xf_status store_scaled(xf_frame *f, double v, int d) {
  if (d > 0 && !is_missing(v)) v /= numeric::pow10_double(d);
  return store_double(f, v, XF_OK);
}

// w 5..8: the top bytes of a double; w 2..4 of a single.
xf_status read_ieee(xf_frame *f, bool big) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 2, 8, d, status)) return status;
  int w = f->width;
  uint64_t top = numeric::get_unsigned(input_bytes(f), w, big);
  if (w >= 5) return store_scaled(f, bits_double(top << (64 - 8 * w)), d);
  uint32_t bits = static_cast<uint32_t>(top << (32 - 8 * w));
  float s;
  std::memcpy(&s, &bits, sizeof s);
  return store_scaled(f, static_cast<double>(s), d);
}

}  // namespace
}  // namespace xfmt::informats

using namespace xfmt::informats;

XF_ROUTINE(zifmieee, f) { return read_ieee(f, true); }
XF_ROUTINE(zifmieeer, f) { return read_ieee(f, false); }

XF_ROUTINE(zifmfloat, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 4, 4, d, status)) return status;
  float s;
  std::memcpy(&s, f->input, sizeof s);
  return store_scaled(f, static_cast<double>(s), d);
}

XF_ROUTINE(zifmmrb, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 2, 8, d, status)) return status;
  int w = f->width, n = w >= 5 ? 8 : 4;
  unsigned char bytes[8] = {};
  std::memcpy(bytes + n - w, f->input, static_cast<size_t>(w));
  return store_scaled(f, xfmt::numeric::mbf_value(bytes, n == 8), d);
}

// The first w bytes of a D-floating value; the reserved operand (sign set,
// exponent zero) is invalid data.
XF_ROUTINE(zifmvaxrb, f) {
  int d = 0;
  xf_status status = XF_OK;
  if (!raw_ready(f, 2, 8, d, status)) return status;
  unsigned char bytes[8] = {};
  std::memcpy(bytes, f->input, static_cast<size_t>(f->width));
  double v = 0;
  if (!xfmt::numeric::vax_d_value(bytes, v)) return refuse_invalid(f);
  return store_scaled(f, v, d);
}
