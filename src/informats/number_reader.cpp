// The core number reader: trimming, scanning, conversion and statuses.
#include "informats/number_reader.hpp"

#include <bit>

#include "core/missing.hpp"
#include "informats/decimal_to_double.hpp"
#include "informats/number_scan.hpp"

namespace xfmt::informats {

// wzmisv answers from the host's table when the host set ej_global_gcb_anchor
// and from the library's own table otherwise.
double host_missing(int index) { return wzmisv(index); }

xf_status read_number(const char *text, size_t n, int implied_decimals, double &out,
                      int exp10_adjust) {
  const char *first = text;
  const char *last = text + n;
  while (first != last && is_blank_or_tab(*first)) ++first;
  while (last != first && is_blank_or_tab(last[-1])) --last;
  if (first == last) {
    out = missing_ordinary();
    return XF_OK;
  }

  scan_result r = scan_number(first, last, implied_decimals);
  switch (r.kind) {
    case scan_kind::missing:
      out = host_missing(r.missing_index);
      return XF_OK;
    case scan_kind::zero:
      out = 0.0;
      return XF_OK;
    case scan_kind::invalid:
      out = missing_ordinary();
      return XF_IN_INVALID;
    case scan_kind::number:
      break;
  }
  r.num.head_exp10 += exp10_adjust;
  uint64_t bits;  // the common short number takes the inline exact case
  if (r.num.inexact || !exact_small_bits(r.num.head, r.num.head_exp10, bits)) bits = decimal_to_bits(r.num);
  if (bits == 0 || bits == double_infinity_bits) {
    out = missing_ordinary();
    return XF_IN_RANGE_WARNING;
  }
  if (r.negative) bits |= uint64_t{1} << 63;
  out = std::bit_cast<double>(bits);
  return XF_OK;
}

}  // namespace xfmt::informats
