// Fuzz target of the binary and radix formats and informats: a value or
// text, width, decimals, routine and capacity from the input. Output stays
// inside an exact-size buffer, the length within the capacity, the same
// input gives the same bytes, and a numeric format that succeeds reads back
// through its informat as round(value x 10^d) / 10^d.
#include <cmath>

#include "fuzz_support.hpp"

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 12) return 0;
  int32_t w = static_cast<int32_t>(data[8] % 72) - 4;
  int32_t d = data[9] < 200 ? static_cast<int32_t>(data[9] % 34) : 99;
  uint32_t capacity = data[11] % 80;
  if (data[10] & 0x80) {
    // Text input: the bytes after the header, exactly their length.
    const exact_copy in(data + 12, size - 12);
    xf_routine r = text[(data[10] & 0x7F) % (sizeof text / sizeof text[0])];
    check(run_twice(r, frame_of(w, d, in.data_or_null(), in.size), capacity).length <= capacity);
    return 0;
  }
  reader rd{data, 8};
  double value = rd.number();
  const xf_frame f = frame_of(w, d, &value, 8);
  const pair_entry &p = numeric[data[10] % (sizeof numeric / sizeof numeric[0])];
  const outcome o = run_twice(p.format, f, capacity);
  check(o.length <= capacity);
  // Read back what a successful integer field holds.
  if (p.informat == nullptr || o.status != XF_OK || d > 22 || w < 1) return 0;
  double scaled = std::round(value * std::pow(10.0, d));
  if (!(std::fabs(scaled) <= 9007199254740992.0)) return 0;  // exact integers only
  if (!p.keeps_sign && scaled < 0) return 0;
  double back = 0;
  xf_frame h{};
  h.width = w;
  h.decimals = d;
  h.input = o.bytes.data();
  h.input_length = o.length;
  h.output = &back;
  h.output_capacity = 8;
  check(p.informat(&h) == XF_OK);
  double want = std::isnan(value) ? 0.0 : scaled / std::pow(10.0, d);
  check(back == want);
  return 0;
}
