// What every fuzz target does the same way: read its input in order, copy
// the value into an exact-size heap block (a read one byte past it shows
// under AddressSanitizer), run a conversion into an exact-size output block
// twice and insist on the same status, length and bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::fuzz {

inline void check(bool ok) {
  if (!ok) std::abort();
}

// The input in order, little-endian; zeros once it runs out.
struct reader {
  const uint8_t *p;
  size_t n;
  uint8_t byte() {
    if (n == 0) return 0;
    --n;
    return *p++;
  }
  uint16_t u16() {
    const uint16_t lo = byte();
    return static_cast<uint16_t>(lo | byte() << 8);
  }
  uint64_t u64() {
    uint64_t v = 0;
    for (int i = 0; i < 8; ++i) v |= static_cast<uint64_t>(byte()) << (8 * i);
    return v;
  }
  double number() { return from_bits(u64()); }
  static double from_bits(uint64_t b) {
    double v;
    std::memcpy(&v, &b, sizeof v);
    return v;
  }
};

// An exact-size heap copy of n bytes; an empty one still has an address.
struct exact_copy {
  std::unique_ptr<uint8_t[]> block;
  uint32_t size;
  exact_copy(const void *data, size_t n)
      : block(new uint8_t[n == 0 ? 1 : n]), size(static_cast<uint32_t>(n)) {
    if (n) std::memcpy(block.get(), data, n);
  }
  uint8_t *data() const { return block.get(); }
  uint8_t *data_or_null() const { return size ? block.get() : nullptr; }
};

// One call and what it left: status, output length and encoding, the frame
// after the call and the whole output block.
struct outcome {
  xf_status status;
  uint32_t length;
  uint32_t encoding;
  xf_frame frame;
  std::vector<uint8_t> bytes;
};

// Calls call(frame) on a copy of model whose output is a heap block of
// exactly capacity bytes (null when 0).
template <typename Call>
outcome run_call(Call call, const xf_frame &model, uint32_t capacity) {
  std::unique_ptr<uint8_t[]> out(new uint8_t[capacity == 0 ? 1 : capacity]);
  std::memset(out.get(), 0xEE, capacity == 0 ? 1 : capacity);
  outcome o{};
  o.frame = model;
  o.frame.output = capacity == 0 ? nullptr : out.get();
  o.frame.output_capacity = capacity;
  o.status = call(&o.frame);
  o.length = o.frame.output_length;
  o.encoding = o.frame.output_encoding;
  o.bytes.assign(out.get(), out.get() + capacity);
  return o;
}

// The same call twice; both must agree in status, length, encoding and bytes.
template <typename Call>
outcome run_twice(Call call, const xf_frame &model, uint32_t capacity) {
  outcome a = run_call(call, model, capacity);
  const outcome b = run_call(call, model, capacity);
  check(a.status == b.status && a.length == b.length && a.encoding == b.encoding && a.bytes == b.bytes);
  return a;
}

inline outcome run_twice(xf_routine r, const xf_frame &model, uint32_t capacity) {
  return run_twice([r](xf_frame *f) { return r(f); }, model, capacity);
}

// A frame of width and decimals reading the given input.
inline xf_frame frame_of(int32_t w, int32_t d, const void *input, uint32_t input_length) {
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input = input;
  f.input_length = input_length;
  return f;
}

}  // namespace xfmt::fuzz
