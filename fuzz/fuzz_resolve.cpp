// Random names and kinds through xfname3; a resolved handle then converts a
// random frame into an exact-size buffer twice, and both runs must agree
// byte for byte and stay inside the buffer.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
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

  const outcome a = run_twice([h](xf_frame *f) { return xffmt(f, h); }, proto, capacity);
  if (a.status == XF_OK || a.status == XF_REDUCED) check(a.length <= capacity);
  xfdel(h);
  return 0;
}
