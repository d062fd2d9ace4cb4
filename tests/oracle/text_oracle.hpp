// Slow, literal versions of the text conversions: one step per rule, no fast
// paths. The differential tests hold the library to the same bytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace xfmt::oracle {

struct utf16_result {
  std::vector<uint16_t> units;
  uint32_t result = 0;
};
struct utf8_result {
  std::string bytes;
  uint32_t chars = 0;
  uint32_t result = 0;
};

// UTF-8 to 16-bit units with room for capacity_units units.
utf16_result utf8_to_unicode(const std::string &src, uint32_t capacity_units);
// 16-bit units to UTF-8 with room for capacity bytes.
utf8_result unicode_to_utf8(const std::vector<uint16_t> &src, uint32_t capacity);
// Base64 of bytes, optionally with a line feed after every 76 characters and at the end.
std::string base64_encode(const std::string &bytes, bool line_breaks);
// Decodes Base64 text skipping every character outside the alphabet; stops at '='.
std::string base64_decode(const std::string &text);

}  // namespace xfmt::oracle
