// Bytes written as hexadecimal digits, for the binary conversions' messages.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::test {

inline std::string to_hex(const std::string &s) {
  static const char digits[] = "0123456789ABCDEF";
  std::string h;
  for (char c : s) {
    unsigned b = static_cast<unsigned char>(c);
    h += digits[b >> 4];
    h += digits[b & 15];
  }
  return h;
}

}  // namespace xfmt::test
