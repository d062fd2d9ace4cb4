// The bidirectional text formats ($LOGVS, $LOGVSR, $VSLOG, $VSLOGR, $BIDI)
// on arbitrary text. The first byte picks the format and the encodings, the
// next two the width and the output room; the output buffer has exactly
// that room and the value is an exact-size copy, so a one-byte overrun
// either way is caught. Each call is made twice and must give the same
// bytes; a UTF-8 field must be whole characters of valid UTF-8.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "text/bidi_text.hpp"
#include "xfmt/xfmt.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

const xf_routine routines[] = {zfmlogvs, zfmlogvsr, zfmvslog, zfmvslogr, zfmbidi};

xf_status run(xf_routine routine, const std::vector<uint8_t> &text, uint32_t encoding, uint32_t wanted, int32_t w,
              std::vector<uint8_t> &out, uint32_t &length, uint32_t &out_encoding) {
  xf_frame f{};
  f.width = w;
  f.input = text.empty() ? nullptr : text.data();
  f.input_length = static_cast<uint32_t>(text.size());
  f.output = out.empty() ? nullptr : out.data();
  f.output_capacity = static_cast<uint32_t>(out.size());
  f.input_encoding = encoding;
  f.requested_output_encoding = wanted;
  f.output_length = 0xDEAD;
  xf_status st = routine(&f);
  length = f.output_length;
  out_encoding = f.output_encoding;
  return st;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3 || size > 65536) return 0;
  const uint8_t pick = data[0];
  const xf_routine routine = routines[pick % 5];
  const uint32_t encoding = (pick / 5) % 3 == 0 ? 0u : (pick / 5) % 3 == 1 ? XF_ENC_UTF16LE : XF_ENC_UTF16BE;
  const uint32_t wanted = (pick & 0x80) ? XF_ENC_UTF16LE : 0u;
  const int32_t w = static_cast<int32_t>(data[1]) - 8;  // a few widths below 1 too
  const uint32_t room = data[2];
  std::vector<uint8_t> text(data + 3, data + size);

  std::vector<uint8_t> out(room), again(room);
  uint32_t len = 0, len2 = 0, enc = 0, enc2 = 0;
  const xf_status st = run(routine, text, encoding, wanted, w, out, len, enc);
  const xf_status st2 = run(routine, text, encoding, wanted, w, again, len2, enc2);
  check(st == XF_OK || st == XF_E_CAPACITY);
  check(st == st2 && len == len2 && enc == enc2 && out == again);
  check(len <= room);
  const uint64_t field = w > 0 ? uint64_t(w) * (enc == XF_ENC_UTF16LE ? 2 : 1) : 0;
  check((st == XF_E_CAPACITY) == (field > room));
  if (enc == XF_ENC_UTF16LE) {
    check(len % 2 == 0);
  } else if (encoding == 0 && xfmt::text::bidi_valid_utf8(text.data(), static_cast<uint32_t>(text.size()))) {
    check(xfmt::text::bidi_valid_utf8(out.data(), len));
  }
  return 0;
}
