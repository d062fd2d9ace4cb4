// Fuzz target of the numeric formats: a value, width, decimals code, routine
// and capacity from the input; the output must stay inside an exact-size
// buffer, report a length within the capacity, and repeat byte for byte.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

const xf_routine routines[] = {zfmt,    zfmn,    zfmb,   zfmbx,   zfmexp,  zfmd,    zfmz,    zfmcma,
                               zfmcmax, zfmdlr,  zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn, zfmpct,
                               pctn};
constexpr size_t routine_count = sizeof routines / sizeof routines[0];

const int32_t codes[] = {99, 98, -999, -1, -7, -40, 80, 83, 89, 32, 33, 97};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 12) return 0;
  double value;
  std::memcpy(&value, data, 8);
  int32_t w = static_cast<int32_t>(data[8] % 72) - 4;             // -4 .. 67
  int32_t d = data[9] < 192 ? static_cast<int32_t>(data[9] % 36)  // 0 .. 35
                            : codes[data[9] % (sizeof codes / sizeof codes[0])];
  xf_routine routine = routines[data[10] % routine_count];
  uint32_t capacity = data[11] % 80;

  std::vector<unsigned char> first(capacity), second(capacity);
  for (std::vector<unsigned char> *out : {&first, &second}) {
    xf_frame f{};
    f.width = w;
    f.decimals = d;
    f.input = &value;
    f.input_length = 8;
    f.output = out->empty() ? nullptr : out->data();
    f.output_capacity = capacity;
    xf_status status = routine(&f);
    if (status != XF_E_OVERFLOW || w >= 1) {
      if (f.output_length > capacity) std::abort();
    }
    if (f.decimals != d) std::abort();  // the decimals code is restored
  }
  if (first != second) std::abort();
  return 0;
}
