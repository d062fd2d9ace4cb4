#include "oracle/dispatch_oracle.hpp"

#include "xfmt/xfmt.h"

namespace xfmt::oracle {

std::string encode_field(const std::string &field, uint32_t capacity, bool wants_utf16, uint32_t &encoding) {
  if (!wants_utf16 || encoding == 25) return field;
  size_t doubled = field.size() * 2;
  if (doubled > 512 || doubled > capacity) return field;
  std::string out;
  for (char c : field) {
    unsigned u = wlt1unic[static_cast<unsigned char>(c)];
    out += static_cast<char>(u % 256);
    out += static_cast<char>(u / 256);
  }
  encoding = 25;
  return out;
}

}  // namespace xfmt::oracle
