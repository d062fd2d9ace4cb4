// Fuzz target of the spelled, special and reworked-character formats: a
// value (or text), width, decimals, routine and capacity from the input. The
// output must stay inside an exact-size buffer (AddressSanitizer), report a
// length within the capacity, and repeat byte for byte.
#include "fuzz_support.hpp"

namespace {

const xf_routine numeric_routines[] = {zfmwords, zfmwordf, zfmfract, zfmroman, zfmssn,    zfmoddsr,
                                       zfmpval,  zfmlogp,  zfmnumx,  zfmsizek, zfmsizekb, zfmsizekmg};
const xf_routine text_routines[] = {zfmquote, zfmupcase, zfmrevers, zfmreverj, zfmascii, zfmebcdic};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 12) return 0;
  int32_t w = static_cast<int32_t>(data[8] % 140) - 4;  // -4 .. 135
  int32_t d = static_cast<int32_t>(data[9] % 40) - 2;   // -2 .. 37
  bool text = data[10] & 0x80;
  uint32_t capacity = data[11] % 150;
  xf_routine routine = text ? text_routines[(data[10] & 0x7F) % (sizeof text_routines / sizeof text_routines[0])]
                            : numeric_routines[data[10] % (sizeof numeric_routines / sizeof numeric_routines[0])];
  reader r{data, 8};
  double value = r.number();
  // Text input: the bytes after the header, in a buffer of exactly that size.
  const exact_copy chars(data + 12, size - 12);
  const outcome o = run_twice(routine, text ? frame_of(w, d, chars.data_or_null(), chars.size) : frame_of(w, d, &value, 8),
                              capacity);
  check(o.length <= capacity);
  check(o.frame.width == w && o.frame.decimals == d);
  return 0;
}
