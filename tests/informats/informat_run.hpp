// Running an informat on a text with exact-size buffers, and the expected
// values of the tables (a number, a missing value of the library's table).
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include "core/missing.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::test {

struct informat_outcome {
  xf_status status;
  uint64_t bits;       // the stored double's bits (0xEEEE... when nothing was stored)
  uint32_t length;     // output_length
};

inline informat_outcome run_informat(xf_routine routine, const std::string &text, int32_t w,
                                     int32_t d = 0) {
  frame_box b = frame_box::chars(text, w, d, 8);
  xf_status st = routine(&b.f);
  uint64_t bits;
  std::memcpy(&bits, b.out.data(), 8);
  return {st, bits, b.f.output_length};
}


inline std::string hex(uint64_t bits) {
  char buf[24];
  static const char digits[] = "0123456789ABCDEF";
  buf[0] = '0';
  buf[1] = 'x';
  for (int i = 0; i < 16; ++i) buf[2 + i] = digits[(bits >> (60 - 4 * i)) & 0xF];
  return std::string(buf, 18);
}

}  // namespace xfmt::test
