// A frame builder for tests: owns the value, an exact-size output buffer and
// the frame, so a one-byte overrun shows under AddressSanitizer.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::test {

struct frame_box {
  double value = 0;
  std::string text;                 // input text for character conversions and informats
  std::vector<unsigned char> out;   // exactly the capacity
  xf_frame f{};

  // Numeric input, width w, decimals d; capacity defaults to w.
  static frame_box number(double v, int32_t w, int32_t d = 0, int64_t capacity = -1) {
    frame_box b;
    b.value = v;
    b.init(w, d, capacity < 0 ? static_cast<uint32_t>(w > 0 ? w : 0) : static_cast<uint32_t>(capacity));
    b.f.input = &b.value;
    b.f.input_length = 8;
    return b;
  }
  // Text input (a format of character values, or an informat).
  static frame_box chars(const std::string &s, int32_t w, int32_t d = 0, int64_t capacity = -1) {
    frame_box b;
    b.text = s;
    b.init(w, d, capacity < 0 ? static_cast<uint32_t>(w > 0 ? w : 0) : static_cast<uint32_t>(capacity));
    b.f.input = b.text.data();
    b.f.input_length = static_cast<uint32_t>(b.text.size());
    return b;
  }

  frame_box() = default;
  frame_box(const frame_box &o) : value(o.value), text(o.text), out(o.out), f(o.f) { rebind(o); }
  frame_box &operator=(const frame_box &o) {
    value = o.value; text = o.text; out = o.out; f = o.f; rebind(o);
    return *this;
  }

  // The delivered output as a string (output_length bytes, clamped to the buffer).
  std::string str() const {
    size_t n = f.output_length < out.size() ? f.output_length : out.size();
    return std::string(reinterpret_cast<const char *>(out.data()), n);
  }
  // The whole buffer.
  std::string buffer() const { return std::string(reinterpret_cast<const char *>(out.data()), out.size()); }
  // The double an informat stored.
  double result() const {
    double v = 0;
    if (out.size() >= 8) std::memcpy(&v, out.data(), 8);
    return v;
  }

 private:
  void init(int32_t w, int32_t d, uint32_t capacity) {
    out.assign(capacity, 0xEE);  // not blank, not NUL: untouched bytes stay visible
    f.width = w;
    f.decimals = d;
    f.output = out.empty() ? nullptr : out.data();
    f.output_capacity = capacity;
  }
  void rebind(const frame_box &o) {
    if (o.f.input == &o.value) f.input = &value;
    else if (o.f.input == o.text.data()) f.input = text.data();
    f.output = out.empty() ? nullptr : out.data();
  }
};

}  // namespace xfmt::test
