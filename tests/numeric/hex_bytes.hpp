// Bytes written as hexadecimal digits and back, for the binary conversions,
// in messages and random round trips.
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

inline std::string from_hex(const std::string &h) {
  std::string s;
  for (size_t i = 0; i + 1 < h.size(); i += 2) s.push_back(static_cast<char>(std::stoi(h.substr(i, 2), nullptr, 16)));
  return s;
}

}  // namespace xfmt::test
