// $BASE64X through its conversion routine: the first two bytes give the
// width and the capacity, the rest is the value. Checks the field promise:
// exactly min(w, capacity) bytes written, Base64 characters then blanks.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2 || size > 65536) return 0;
  const int32_t w = static_cast<int32_t>(data[0]) - 8;  // a few negative widths too
  const uint32_t capacity = data[1];
  using xfmt::fuzz::check;
  const xfmt::fuzz::exact_copy value(data + 2, size - 2);
  std::vector<char> out(capacity + 1, '#');  // one guard byte after the capacity
  xf_frame f{};
  f.width = w;
  f.input = value.data();
  f.input_length = value.size;
  f.output = out.data();
  f.output_capacity = capacity;
  check(zfmb64x(&f) == 0);
  const uint32_t eff = w <= 0 ? 0 : (static_cast<uint32_t>(w) < capacity ? static_cast<uint32_t>(w) : capacity);
  check(f.output_length == eff && out[capacity] == '#');
  uint32_t i = 0;
  while (i < eff && out[i] != ' ') {
    check(base64idx[static_cast<uint8_t>(out[i])] != 255 || out[i] == '=');
    ++i;
  }
  for (; i < eff; ++i) check(out[i] == ' ');
  for (uint32_t k = eff; k < capacity; ++k) check(out[k] == '#');
  return 0;
}
