// Fuzz target of the binary and radix formats and informats: a value or
// text, width, decimals, routine and capacity from the input. Output stays
// inside an exact-size buffer, the length within the capacity, the same
// input gives the same bytes, and a numeric format that succeeds reads back
// through its informat as round(value x 10^d) / 10^d.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

struct pair_entry {
  xf_routine format;
  xf_routine informat;  // nullptr: no read-back check
  bool keeps_sign;      // false: negative values are stored without their sign
};

const pair_entry numeric[] = {
    {zfmib, zifmib, true},         {zfmibr, zifmibr, true},         {zfmpib, zifmpib, true},
    {zfmpibr, zifmpibr, true},     {zfmpd, zifmpd, true},           {zfmpk, zifmpk, true},
    {zfmzd, zifmzd, true},         {zfmrb, nullptr, true},          {zfmvaxrb, nullptr, true},
    {zfmhex, nullptr, true},       {zfmoct, nullptr, true},         {zfmbin, nullptr, true},
    {zfms370ib, zifms370ib, true}, {zfms370ibu, zifms370ibu, false}, {zfms370pib, zifms370pib, false},
    {zfms370pd, zifms370pd, true}, {zfms370pdu, zifms370pdu, false}, {zfms370zd, zifms370zd, true},
    {zfms370zdl, zifms370zdl, true}, {zfms370zds, zifms370zds, true}, {zfms370zdt, zifms370zdt, true},
    {zfms370zdu, zifms370zdu, false}, {zfms370zd, zifms370zdb, true}, {zfmzd, zifmzdv, true},
    {zfms370rb, nullptr, true},    {zfms370f, nullptr, true},       {zfms370hex, nullptr, true},
    {zfmieee, nullptr, true},      {zfmieeer, nullptr, true},       {zfmfloat, nullptr, true},
    {zfmmrb, nullptr, true},       {zfmpcpib, zifmpcpib, false},    {zfmxportint, zifms370ib, true},
    {zfmxportflt, nullptr, true},
};
const xf_routine text[] = {
    zfmchex,      zfmcoct,     zfmcbin,      zifmchex,     zifmcoct,     zifmcbin,     zifmib,      zifmibr,
    zifmpib,      zifmpibr,    zifmpd,       zifmpk,       zifmzd,       zifmrb,       zifmhex,     zifmoct,
    zifmbin,      zfmxportch,  zfmcstr,      zfmbyval,     zifmcstr,     zifmbyval,    zifms370ib,  zifms370ibu,
    zifms370pib,  zifms370pd,  zifms370pdu,  zifms370zd,   zifms370zdb,  zifms370zdl,  zifms370zds, zifms370zdt,
    zifms370zdu,  zifms370rb,  zifms370f,    zifms370hex,  zifmieee,     zifmieeer,    zifmfloat,   zifmmrb,
    zifmvaxrb,    zifmpcpib,   zifmccb,      zifmcb,       zifmpunch,    zifmrow,      zifmcphex,   zifmbits,
    zifmzdb,      zifmzdv,     zifmpdtime,   zifmrmfdur,   zifmrmfstamp, zifmsmfstamp, zifmshrstamp, zifmtodstamp,
    zifmmsec,     zifmtu};

void run(xf_routine r, xf_frame f, std::vector<unsigned char> &out) {
  f.output = out.empty() ? nullptr : out.data();
  f.output_capacity = static_cast<uint32_t>(out.size());
  r(&f);
  if (f.output_length > out.size()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 12) return 0;
  int32_t w = static_cast<int32_t>(data[8] % 72) - 4;
  int32_t d = data[9] < 200 ? static_cast<int32_t>(data[9] % 34) : 99;
  uint32_t capacity = data[11] % 80;
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  std::vector<unsigned char> first(capacity), second(capacity);
  if (data[10] & 0x80) {
    // Text input: the bytes after the header, exactly their length.
    std::vector<unsigned char> in(data + 12, data + size);
    f.input = in.empty() ? nullptr : in.data();
    f.input_length = static_cast<uint32_t>(in.size());
    xf_routine r = text[(data[10] & 0x7F) % (sizeof text / sizeof text[0])];
    run(r, f, first);
    run(r, f, second);
    if (first != second) std::abort();
    return 0;
  }
  double value;
  std::memcpy(&value, data, 8);
  f.input = &value;
  f.input_length = 8;
  const pair_entry &p = numeric[data[10] % (sizeof numeric / sizeof numeric[0])];
  run(p.format, f, first);
  run(p.format, f, second);
  if (first != second) std::abort();
  // Read back what a successful integer field holds.
  xf_frame g = f;
  g.output = first.empty() ? nullptr : first.data();
  g.output_capacity = capacity;
  if (p.informat == nullptr || p.format(&g) != XF_OK || d > 22 || w < 1) return 0;
  double scaled = std::round(value * std::pow(10.0, d));
  if (!(std::fabs(scaled) <= 9007199254740992.0)) return 0;  // exact integers only
  if (!p.keeps_sign && scaled < 0) return 0;
  double back = 0;
  xf_frame h{};
  h.width = w;
  h.decimals = d;
  h.input = first.data();
  h.input_length = g.output_length;
  h.output = &back;
  h.output_capacity = 8;
  if (p.informat(&h) != XF_OK) std::abort();
  double want = std::isnan(value) ? 0.0 : scaled / std::pow(10.0, d);
  if (back != want) std::abort();
  return 0;
}
