// Random names and kinds through xfname3; a resolved handle then converts a
// random frame into an exact-size buffer twice, and both runs must agree
// byte for byte and stay inside the buffer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

// Reads little pieces of the input in order; zeros once it runs out.
struct reader {
  const uint8_t *p;
  size_t n;
  uint8_t byte() {
    if (n == 0) return 0;
    --n;
    return *p++;
  }
  uint16_t u16() { return static_cast<uint16_t>(byte() | byte() << 8); }
};

void check(bool ok) {
  if (!ok) std::abort();
}

// One conversion into a buffer of exactly capacity bytes.
std::vector<uint8_t> convert(void *h, const xf_frame &proto, uint32_t capacity, xf_status &st,
                             uint32_t &length) {
  std::vector<uint8_t> out(capacity);
  xf_frame f = proto;
  f.output = capacity ? out.data() : nullptr;
  f.output_capacity = capacity;
  st = xffmt(&f, h);
  length = f.output_length;
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  reader r{data, size};
  uint8_t name_len = static_cast<uint8_t>(r.byte() % 24);
  uint8_t mode = r.byte();
  std::vector<char> name(name_len);
  for (char &c : name) c = static_cast<char>(r.byte());
  // Half of the cases pick a real name so that dispatch is reached often.
  const fmtposs_row *table = nullptr;
  uint64_t count = 0;
  get_fmt_poss_table(&table, &count);
  if (mode & 1) {
    const fmtposs_row &p = table[r.u16() % count];
    name.assign(p.row.name, p.row.name + p.row.name_length);
    if (name[0] == '@' && (mode & 2)) name.erase(name.begin());
  }
  int32_t kind = (mode & 2) ? 73 : static_cast<int32_t>(r.byte());
  uint16_t block[8];
  void *h = nullptr;
  xf_status st = xfname3(name.data(), static_cast<int32_t>(name.size()), kind, block, &h, nullptr);
  if (st != XF_OK) {
    check(h == nullptr);
    return 0;
  }
  check(h != nullptr);

  // A random frame: width, decimals, input bytes and encodings.
  std::vector<uint8_t> input(r.byte() % 40);
  for (uint8_t &b : input) b = r.byte();
  xf_frame proto{};
  proto.width = static_cast<int32_t>(r.u16() % 80) - 4;
  proto.decimals = static_cast<int32_t>(r.byte() % 40);
  proto.input = input.empty() ? nullptr : input.data();
  proto.input_length = static_cast<uint32_t>(input.size());
  proto.requested_output_encoding = (r.byte() & 1) ? XF_ENC_UTF16LE : 0;
  uint32_t capacity = r.byte() % 96;

  xf_status st1 = 0, st2 = 0;
  uint32_t len1 = 0, len2 = 0;
  std::vector<uint8_t> a = convert(h, proto, capacity, st1, len1);
  std::vector<uint8_t> b = convert(h, proto, capacity, st2, len2);
  check(st1 == st2);
  check(len1 == len2);
  if (st1 == XF_OK || st1 == XF_REDUCED) check(len1 <= capacity);
  check(a == b);
  xfdel(h);
  return 0;
}
