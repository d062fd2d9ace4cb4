// $BASE64X through its conversion routine: the first two bytes give the
// width and the capacity, the rest is the value. Checks the field promise:
// exactly min(w, capacity) bytes written, Base64 characters then blanks.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "xfmt/xfmt.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2 || size > 65536) return 0;
  const int32_t w = static_cast<int32_t>(data[0]) - 8;  // a few negative widths too
  const uint32_t capacity = data[1];
  std::vector<uint8_t> value(data + 2, data + size);
  std::vector<char> out(capacity + 1, '#');  // one guard byte after the capacity
  xf_frame f{};
  f.width = w;
  f.input = value.data();
  f.input_length = static_cast<uint32_t>(value.size());
  f.output = out.data();
  f.output_capacity = capacity;
  if (zfmb64x(&f) != 0) std::abort();
  const uint32_t eff = w <= 0 ? 0 : (static_cast<uint32_t>(w) < capacity ? static_cast<uint32_t>(w) : capacity);
  if (f.output_length != eff || out[capacity] != '#') std::abort();
  uint32_t i = 0;
  while (i < eff && out[i] != ' ') {
    if (base64idx[static_cast<uint8_t>(out[i])] == 255 && out[i] != '=') std::abort();
    ++i;
  }
  for (; i < eff; ++i)
    if (out[i] != ' ') std::abort();
  for (uint32_t k = eff; k < capacity; ++k)
    if (out[k] != '#') std::abort();
  return 0;
}
