// Fuzz target of the control-file reader: any bytes as a control file. A
// format that reads is then applied to a few values with exact-size buffers,
// twice, and must give the same bytes both times.
#include <cstdio>
#include <string>

#include "fuzz_support.hpp"
#include "catalog/chain.hpp"
#include "userfmt/control_reader.hpp"
#include "xfmt/xfmt.h"

namespace {

void apply(xf_user_format *h, void *ranges, bool character) {
  xf_user_handle handle{};
  setfptr(h, &handle);
  if (!handle.routine) return;
  static const double numbers[] = {-0.0, 13.0, -5.5, 12345.678};
  static const char16_t *texts[] = {u"", u"E", u"P", u"W  "};
  for (int i = 0; i < 4; ++i) {
    for (int32_t w : {0, 7, 40}) {
      double v = numbers[i];
      std::u16string t = texts[i];
      xf_frame f = character ? xfmt::fuzz::frame_of(w, 0, t.data(), static_cast<uint32_t>(2 * t.size()))
                             : xfmt::fuzz::frame_of(w, 0, &v, 8);
      if (character) f.input_encoding = XF_ENC_UTF16LE;
      f.option_flags = i % 2 ? XF_FLAG_MULTILABEL : 0;
      const auto o = xfmt::fuzz::run_twice([&](xf_frame *fr) { return handle.routine(fr, h, ranges); }, f,
                                           static_cast<uint32_t>(w));
      xfmt::fuzz::check(o.length <= o.bytes.size());
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const char *text = reinterpret_cast<const char *>(data);
  static const char *const names[] = {"AGEGRP", "REGION"};
  for (int k = 0; k < 2; ++k) {
    char name[33];  // blank padded to 32
    std::snprintf(name, sizeof name, "%-32s", names[k]);
    bool character = k == 1;
    xf_ufmt_context ctx{};
    void *chain = nullptr;
    xfmalloc(&chain, 0);
    void *first = chain;
    int32_t rc = xfmt::userfmt::read_control_buffer(text, size, character ? 11 : 1, name, &ctx, &chain);
    if (rc == 0) apply(static_cast<xf_user_format *>(ctx.control), ctx.word2, character);
    xfmt::catalog::free_chain(first);
    // The diagnosis agrees with the reading and names a line of the text.
    xfmt::userfmt::control_problem p = xfmt::userfmt::diagnose_control_buffer(text, size, character ? 11 : 1, name);
    xfmt::fuzz::check(p.code == rc && p.reason != nullptr && p.line <= size + 1);
  }
  xfmt::userfmt::list_control_formats(text, size, [](void *, const char *, size_t, char) {}, nullptr);
  return 0;
}
