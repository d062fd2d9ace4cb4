// Every informat of JAZWIMSC, and the number and character informats of
// JAZWIUWI (@NUMX, @YEN, @SIZEKMG, @$ASCII, @$EBCDIC, @$UPCASE, @$REVERJ,
// @$REVERS), on arbitrary bytes: byte 0 picks the row, byte
// 1 the width, byte 2 the decimals, the rest is the text. Input and output
// are exact-size heap buffers, so a one-byte overrun is seen by
// AddressSanitizer; the same call twice must give the same bytes and status,
// and a numeric informat stores either a number or a missing value, with a
// failure status only beside the ordinary missing value.
#include <string_view>

#include "core/missing.hpp"
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 3) return 0;
  static const std::vector<const fmtinfo_eachfmt *> rows = [] {
    std::vector<const fmtinfo_eachfmt *> all;
    const fmtinfo *msc = jazwimsc(), *uwi = jazwiuwi();
    for (uint64_t i = 0; i < msc->count; ++i) all.push_back(&msc->rows[i]);
    for (uint64_t i = 0; i < uwi->count; ++i) {
      const std::string_view name(uwi->rows[i].name, uwi->rows[i].name_length);
      if (name == "@NUMX" || name == "@YEN" || name == "@SIZEKMG" || name == "@$ASCII" || name == "@$EBCDIC" ||
          name == "@$UPCASE" || name == "@$REVERJ" || name == "@$REVERS")
        all.push_back(&uwi->rows[i]);
    }
    return all;
  }();
  const fmtinfo_eachfmt &row = *rows[data[0] % rows.size()];
  if (row.routine == nullptr) return 0;
  bool character = row.name[1] == '$';
  int32_t w = static_cast<int8_t>(data[1]);  // -128 .. 127
  int32_t d = data[2] % 104;                 // 0 .. 103, past 31 and through 98/99
  const exact_copy text(data + 3, size - 3);
  uint32_t capacity = character ? (w > 0 ? static_cast<uint32_t>(w) : 0) : 8;
  if (data[2] >= 240) capacity = data[2] - 240u;  // now and then a short buffer
  const outcome a = run_twice(row.routine, frame_of(w, d, text.data(), text.size), capacity);
  check(a.length <= capacity);

  if (!character && capacity >= 8) {
    check(a.length == 8);
    uint64_t bits;
    std::memcpy(&bits, a.bytes.data(), 8);
    const double v = reader::from_bits(bits);
    bool missing = xfmt::is_missing_bits(bits);
    if (v != v && !missing) std::abort();                      // a NaN that is no missing value
    if (v - v != 0 && !missing) std::abort();                   // an infinity
    if (bits == 0x8000000000000000ull) std::abort();            // -0 is never stored
    if (a.status != XF_OK && bits != xfmt::missing_ordinary_bits) std::abort();
    if (a.status != XF_OK && a.status != XF_IN_INVALID && a.status != XF_IN_RANGE_WARNING &&
        a.status != XF_IN_BAD_WIDTH)
      std::abort();
  }
  return 0;
}
