// Fuzz target of the numeric lookups: the input describes a sorted table of
// ranges and single values (with shared, excluded boundaries and fuzz) and
// the values to look up. The bisection must give the bytes of the linear
// search, within exact-size buffers.
#include <string>

#include "core/missing.hpp"
#include "fuzz_support.hpp"

namespace {

struct table {
  std::vector<xf_range_numeric> entries;
  std::vector<std::vector<uint16_t>> labels;  // xf_label_text images
  std::vector<const void *> pointers;
  xf_user_format header[2];
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 2) return 0;
  reader in{data, size};
  table t;
  int n = in.byte() % 40;
  double fuzz = (in.byte() % 4) * 0.25;
  double at = -20.0 + in.byte() % 10;
  t.entries.resize(static_cast<size_t>(n));
  t.labels.resize(static_cast<size_t>(n));
  for (int i = 0; i < n; ++i) {
    uint8_t b = in.byte();
    double len = b % 6;
    bool single = len == 0 && (b & 0x40);
    bool excl_end = (b & 0x80) && len > 0;
    xf_range_numeric &e = t.entries[static_cast<size_t>(i)];
    std::memset(&e, 0, sizeof e);
    std::vector<uint16_t> &l = t.labels[static_cast<size_t>(i)];
    l = {XF_LABEL_TEXT, 2, static_cast<uint16_t>('a' + i % 26), static_cast<uint16_t>('0' + i / 26)};
    e.label = l.data();
    if (single) {
      e.entry_kind = XF_RANGE_NUMERIC_VALUE;
      xf_numeric_key(at, e.start_key);
    } else {
      e.entry_kind = XF_RANGE_NUMERIC;
      e.flags = excl_end ? XF_RANGE_END_EXCL : 0;
      // Fuzz only between ranges that do not touch, so the table stays sorted.
      double f = excl_end ? 0 : fuzz;
      xf_numeric_key(at, e.start_key);
      xf_numeric_key(at - (i == 0 ? f : 0), e.low_key);
      xf_numeric_key(at + len, e.end_key);
      xf_numeric_key(at + len + f, e.high_key);
    }
    at += len + (excl_end ? 0.0 : 1.0 + fuzz * 2 + (b & 1));
    t.pointers.push_back(&e);
  }
  std::memset(t.header, 0, sizeof t.header);
  std::memcpy(t.header[0].marker, "00000000", 8);
  std::memset(t.header[1].marker, ' ', 8);
  t.header[1].kind = 1;
  t.header[1].range_count = n;
  void *ranges = t.pointers.empty() ? nullptr : t.pointers.data();
  while (in.n > 0) {
    uint8_t b = in.byte();
    double v = b >= 250 ? xfmt::missing_value(b - 250) : -25.0 + (b % 128) * 0.25 + (b & 0x80 ? 0.125 : 0);
    int32_t w = static_cast<int32_t>(in.byte() % 12);
    std::string out[2];
    int k = 0;
    for (xf_label_routine r : {yfpfnfn, yfpfnfm}) {
      const outcome o = run_call([&](xf_frame *f) { return r(f, &t.header[1], ranges); }, frame_of(w, 0, &v, 8),
                                 static_cast<uint32_t>(w));
      check(o.length <= o.bytes.size());
      out[k++] = std::string(o.bytes.begin(), o.bytes.begin() + o.length);
    }
    check(out[0] == out[1]);
  }
  return 0;
}
