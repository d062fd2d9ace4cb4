#include "oracle/char_oracle.hpp"

namespace xfmt::oracle {

std::string char_field(const std::string &text, int32_t w, uint32_t capacity) {
  std::string out;
  for (int32_t i = 0; i < w; ++i) {
    if (static_cast<uint32_t>(i) >= capacity) break;
    size_t k = static_cast<size_t>(i);
    out += k < text.size() ? text[k] : ' ';
  }
  return out;
}

}  // namespace xfmt::oracle
