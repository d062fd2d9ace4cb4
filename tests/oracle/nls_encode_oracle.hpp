// Slow literal national-text encoder: escapes to UTF-16, iconv to UTF-8 and
// on to the process codeset on every call, dropping the last character and
// converting again until the text fits the width.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

struct encoded_text {
  int result;         // as getExpResultFromNarrowCharBuf
  std::string bytes;  // the converted text (empty for results 2 and 4)
};

encoded_text encode_literally(const std::string &narrow, int width, uint32_t capacity);

}  // namespace xfmt::oracle
