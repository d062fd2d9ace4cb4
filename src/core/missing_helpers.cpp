// Missing values for hosts that build them from data: the value of a symbol
// and the symbol of a value, on the library's own table of missing values.
#include "core/missing.hpp"
#include "xfmt/xfx.h"

extern "C" {

xfx_error xfx_missing_value(int symbol, double *value) {
  if (value == nullptr) return XFX_E_ARGUMENT;
  if (symbol >= 'a' && symbol <= 'z') symbol -= 'a' - 'A';
  // Rows of the table: 0 "._", 1 ".", 2 "A" ... 27 "Z".
  if (symbol == '.') *value = xfmt::missing_ordinary();
  else if (symbol == '_') *value = xfmt::missing_value(0);
  else if (symbol >= 'A' && symbol <= 'Z') *value = xfmt::missing_value(symbol - 'A' + 2);
  else return XFX_E_ARGUMENT;
  return XFX_OK;
}

int xfx_missing_symbol(double value) {
  uint64_t b = xfmt::double_bits(value);
  if (!xfmt::is_missing_bits(b)) return 0;
  return xfmt::missing_symbol(b);
}

int xfx_is_missing(double value) { return xfmt::is_missing(value) ? 1 : 0; }

}  // extern "C"
