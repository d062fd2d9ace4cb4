// Slow literal transcription of the $CHAR layout, for differential tests.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

// The bytes $CHARw. delivers for text into a buffer of the given capacity:
// position by position, the text's byte while there is one, else a blank,
// for w positions; positions at or beyond the capacity are not written.
std::string char_field(const std::string &text, int32_t w, uint32_t capacity);

}  // namespace xfmt::oracle
