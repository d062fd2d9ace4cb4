// Fuzz target of the spelled, special and reworked-character formats: a
// value (or text), width, decimals, routine and capacity from the input. The
// output must stay inside an exact-size buffer (AddressSanitizer), report a
// length within the capacity, and repeat byte for byte.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

const xf_routine numeric_routines[] = {zfmwords, zfmwordf, zfmfract, zfmroman, zfmssn,    zfmoddsr,
                                       zfmpval,  zfmlogp,  zfmnumx,  zfmsizek, zfmsizekb, zfmsizekmg};
const xf_routine text_routines[] = {zfmquote, zfmupcase, zfmrevers, zfmreverj, zfmascii, zfmebcdic};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 12) return 0;
  int32_t w = static_cast<int32_t>(data[8] % 140) - 4;  // -4 .. 135
  int32_t d = static_cast<int32_t>(data[9] % 40) - 2;   // -2 .. 37
  bool text = data[10] & 0x80;
  uint32_t capacity = data[11] % 150;
  xf_routine routine = text ? text_routines[(data[10] & 0x7F) % (sizeof text_routines / sizeof text_routines[0])]
                            : numeric_routines[data[10] % (sizeof numeric_routines / sizeof numeric_routines[0])];
  double value;
  std::memcpy(&value, data, 8);
  // Text input: the bytes after the header, in a buffer of exactly that size.
  std::vector<uint8_t> chars(data + 12, data + size);

  std::vector<unsigned char> first(capacity), second(capacity);
  for (std::vector<unsigned char> *out : {&first, &second}) {
    xf_frame f{};
    f.width = w;
    f.decimals = d;
    if (text) {
      f.input = chars.empty() ? nullptr : chars.data();
      f.input_length = static_cast<uint32_t>(chars.size());
    } else {
      f.input = &value;
      f.input_length = 8;
    }
    f.output = out->empty() ? nullptr : out->data();
    f.output_capacity = capacity;
    routine(&f);
    if (f.output_length > capacity) std::abort();
    if (f.width != w || f.decimals != d) std::abort();
  }
  if (first != second) std::abort();
  return 0;
}
