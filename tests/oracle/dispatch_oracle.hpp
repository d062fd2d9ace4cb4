// Slow literal transcription of the output-encoding step of dispatch, for
// differential tests.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

// The bytes a single-byte field of a refreshed catalog handle ends as when
// the host asks for UTF-16 (or not): byte by byte through the Windows-1252
// table into little-endian units when twice the length fits both 512 bytes
// and the capacity; else the field unchanged. Sets encoding to 25 or leaves it.
std::string encode_field(const std::string &field, uint32_t capacity, bool wants_utf16, uint32_t &encoding);

}  // namespace xfmt::oracle
