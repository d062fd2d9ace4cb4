// Slow reference of the binary formats: the scaled integer printed in
// decimal by snprintf, then turned into bytes digit by digit with decimal
// string arithmetic (base-256 long division, nibbles, zones), and the radix
// formats by repeated division of that decimal text.
#pragma once

#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

struct bytes_result {
  std::string bytes;
  xf_status status = 0;
};

// kind: 'I' big-endian two's complement (S370FIB), 'i' little-endian (IBR);
// 'P' big-endian unsigned with negatives FF.., 'p' little-endian (PIBR);
// 'U' big-endian |value| (S370FIBU); 'Q' big-endian unsigned with the
// two's-complement low bytes of negatives (S370FPIB), 'q' little-endian
// (PCPIB); 'D' packed (PD), 'K' packed without sign (PK); 'Z' EBCDIC zoned
// (S370FZD), 'z' ASCII overpunched zoned (ZD).
bytes_result binary_oracle(char kind, double value, int w, int d);

// HEX (base 16), OCTAL (8), BINARY (2) for w below 16 digits of hex: the
// text, or w '*' with XF_E_OVERFLOW. Not for missing values.
bytes_result radix_oracle(int base, double value, int w);

}  // namespace xfmt::oracle
