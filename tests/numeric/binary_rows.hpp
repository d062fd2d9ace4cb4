// Tables of byte patterns for the binary conversions: a format row is a
// value, w, d and the expected field in hex; a read row is a field in hex,
// w, d and the expected value (or missing value) and status.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "catalog/missing.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

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

struct put_row {
  double value;
  int32_t w;
  int32_t d;
  const char *bytes;  // hex
  xf_status status;
};

inline void check_put(xf_routine routine, const char *name, const put_row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  xf_status st = routine(&b.f);
  EXPECT_EQ(to_hex(b.str()), r.bytes) << name << " value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << name << " value " << r.value << " w " << r.w << " d " << r.d;
}

struct get_row {
  const char *bytes;  // hex
  int32_t w;
  int32_t d;
  double value;       // a missing value compares by its bits
  xf_status status;
};

inline void check_get(xf_routine routine, const char *name, const get_row &r) {
  frame_box b = frame_box::chars(from_hex(r.bytes), r.w, r.d, 8);
  xf_status st = routine(&b.f);
  EXPECT_EQ(st, r.status) << name << " " << r.bytes << " w " << r.w;
  EXPECT_EQ(b.f.output_length, 8u) << name << " " << r.bytes;
  if (is_missing(r.value)) EXPECT_EQ(double_bits(b.result()), double_bits(r.value)) << name << " " << r.bytes;
  else EXPECT_EQ(b.result(), r.value) << name << " " << r.bytes << " w " << r.w << " d " << r.d;
}

}  // namespace xfmt::test
