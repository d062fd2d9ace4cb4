// The bidirectional text formats ($LOGVS, $LOGVSR, $VSLOG, $VSLOGR, $BIDI)
// on arbitrary text. The first byte picks the format and the encodings, the
// next two the width and the output room; the output buffer has exactly
// that room and the value is an exact-size copy, so a one-byte overrun
// either way is caught. Each call is made twice and must give the same
// bytes; a UTF-8 field must be whole characters of valid UTF-8.
#include "fuzz_support.hpp"
#include "text/bidi_text.hpp"

namespace {

const xf_routine routines[] = {zfmlogvs, zfmlogvsr, zfmvslog, zfmvslogr, zfmbidi};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using xfmt::fuzz::check;
  if (size < 3 || size > 65536) return 0;
  const uint8_t pick = data[0];
  const xf_routine routine = routines[pick % 5];
  const uint32_t encoding = (pick / 5) % 3 == 0 ? 0u : (pick / 5) % 3 == 1 ? XF_ENC_UTF16LE : XF_ENC_UTF16BE;
  const uint32_t wanted = (pick & 0x80) ? XF_ENC_UTF16LE : 0u;
  const int32_t w = static_cast<int32_t>(data[1]) - 8;  // a few widths below 1 too
  const uint32_t room = data[2];
  const xfmt::fuzz::exact_copy text(data + 3, size - 3);
  xf_frame f = xfmt::fuzz::frame_of(w, 0, text.data_or_null(), text.size);
  f.input_encoding = encoding;
  f.requested_output_encoding = wanted;
  f.output_length = 0xDEAD;
  const xfmt::fuzz::outcome o = xfmt::fuzz::run_twice(routine, f, room);
  check(o.status == XF_OK || o.status == XF_E_CAPACITY);
  check(o.length <= room);
  const uint64_t field = w > 0 ? uint64_t(w) * (o.encoding == XF_ENC_UTF16LE ? 2 : 1) : 0;
  check((o.status == XF_E_CAPACITY) == (field > room));
  if (o.encoding == XF_ENC_UTF16LE) {
    check(o.length % 2 == 0);
  } else if (encoding == 0 && xfmt::text::bidi_valid_utf8(text.data(), text.size)) {
    check(xfmt::text::bidi_valid_utf8(o.bytes.data(), o.length));
  }
  return 0;
}
