// $BASE64X through its conversion routine: the first two bytes give the
// width and the capacity, the rest is the value. Checks the field promise,
// twice into an exact-size block: exactly min(w, capacity) bytes written,
// Base64 characters then blanks, nothing else touched.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2 || size > 65536) return 0;
  const int32_t w = static_cast<int32_t>(data[0]) - 8;  // a few negative widths too
  const uint32_t capacity = data[1];
  using xfmt::fuzz::check;
  const xfmt::fuzz::exact_copy value(data + 2, size - 2);
  const xfmt::fuzz::outcome o =
      xfmt::fuzz::run_twice(zfmb64x, xfmt::fuzz::frame_of(w, 0, value.data(), value.size), capacity);
  check(o.status == 0);
  const uint32_t eff = w <= 0 ? 0 : (static_cast<uint32_t>(w) < capacity ? static_cast<uint32_t>(w) : capacity);
  check(o.length == eff);
  uint32_t i = 0;
  while (i < eff && o.bytes[i] != ' ') {
    check(base64idx[o.bytes[i]] != 255 || o.bytes[i] == '=');
    ++i;
  }
  for (; i < eff; ++i) check(o.bytes[i] == ' ');
  for (uint32_t k = eff; k < capacity; ++k) check(o.bytes[k] == 0xEE);
  return 0;
}
