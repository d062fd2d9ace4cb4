// The missing-value tables, the test for a missing value, its standard
// display and the lookups in the library's and the host's tables.
#include "xfmt/xfmt.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "core/routine_guard.hpp"

#define XF_ROW(i) (0xFFFFFF0000000000ull - (i) * 0x10000000000ull)

extern "C" {

const uint64_t missing_values[28] = {
    XF_ROW(0),  XF_ROW(1),  XF_ROW(2),  XF_ROW(3),  XF_ROW(4),  XF_ROW(5),  XF_ROW(6),
    XF_ROW(7),  XF_ROW(8),  XF_ROW(9),  XF_ROW(10), XF_ROW(11), XF_ROW(12), XF_ROW(13),
    XF_ROW(14), XF_ROW(15), XF_ROW(16), XF_ROW(17), XF_ROW(18), XF_ROW(19), XF_ROW(20),
    XF_ROW(21), XF_ROW(22), XF_ROW(23), XF_ROW(24), XF_ROW(25), XF_ROW(26), XF_ROW(27),
};

const char misscoll[30] = " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ";

const double std_miss_val = std::bit_cast<double>(xfmt::missing_ordinary_bits);

// Set by the host; read, never written, by the library.
void *ej_global_gcb_anchor = nullptr;

}  // extern "C"

#undef XF_ROW

static_assert(sizeof(misscoll) == 30);

extern "C" int32_t zmiss(const xf_frame *frame, const void *value_ptr, double value) {
  (void)frame;
  uint64_t bits;
  if (value_ptr != nullptr) std::memcpy(&bits, value_ptr, sizeof bits);
  else bits = xfmt::double_bits(value);
  return xfmt::is_missing_bits(bits) ? 1 : 0;
}

XF_ROUTINE(zfmmiss, frame) {
  return xfmt::write_missing(frame, frame->width, frame->decimals);
}

extern "C" double ZMISSV(int32_t i) {
  if (i < 0 || i > 27) return std_miss_val;
  return xfmt::bits_double(missing_values[i]);
}

extern "C" double wzmisv(int32_t i) {
  // Word 9 of the host's block points at its table of missing doubles.
  if (i < 0 || i > 27 || ej_global_gcb_anchor == nullptr) return ZMISSV(i);
  const double *table = static_cast<const double *const *>(ej_global_gcb_anchor)[9];
  if (table == nullptr) return ZMISSV(i);
  return table[i];
}

extern "C" int32_t wzmisc(double value) {
  std::fputs("in wzmisc in mvsextra...\n", stdout);
  return static_cast<int32_t>(xfmt::double_bits(value) & 0xFF);
}
