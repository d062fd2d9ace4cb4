// Fuzz target of the numeric formats: a value, width, decimals code, routine
// and capacity from the input; the output must stay inside an exact-size
// buffer, report a length within the capacity, and repeat byte for byte.
#include "fuzz_support.hpp"

namespace {

const xf_routine routines[] = {zfmt,    zfmn,    zfmb,   zfmbx,   zfmexp,  zfmd,    zfmz,    zfmcma,
                               zfmcmax, zfmdlr,  zfmdlrx, zfmeuro, zfmerx, zfmyen, zfmnprn, zfmpct,
                               pctn};

const int32_t codes[] = {99, 98, -999, -1, -7, -40, 80, 83, 89, 32, 33, 97};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 12) return 0;
  reader r{data, 8};
  double value = r.number();
  int32_t w = static_cast<int32_t>(data[8] % 72) - 4;             // -4 .. 67
  int32_t d = data[9] < 192 ? static_cast<int32_t>(data[9] % 36)  // 0 .. 35
                            : codes[data[9] % (sizeof codes / sizeof codes[0])];
  xf_routine routine = routines[data[10] % (sizeof routines / sizeof routines[0])];
  uint32_t capacity = data[11] % 80;
  const outcome o = run_twice(routine, frame_of(w, d, &value, 8), capacity);
  check(o.length <= capacity || (o.status == XF_E_OVERFLOW && w < 1));
  check(o.frame.decimals == d);  // the decimals code is restored
  return 0;
}
