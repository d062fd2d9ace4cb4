// Every informat of JAZWIDTE, and the date informats of JAZWIUWI (@MINGUO,
// @XYYMMDD, @YYQZ, @YYMMN, @YMDDTTM, @PDJULG, @PDJULI and the 69 national
// ones), on arbitrary bytes: byte 0 picks the row (and the frame's locale
// for @EURDF..), byte 1 the width, byte 2 the decimals (and now and then a
// short output buffer), the rest is the text. Input and output are exact-size heap buffers, so a
// one-byte overrun is seen by AddressSanitizer. The same call twice gives the
// same bytes; a failure status stands only beside the ordinary missing value;
// a stored date is a whole day of the calendar's range, a time is not
// negative, a datetime lies inside the datetime range.
#include <cmath>
#include <string_view>

#include "core/missing.hpp"
#include "datetime/calendar.hpp"
#include "fuzz_support.hpp"

namespace {

// The date informats of JAZWIUWI by name: the module also holds binary and
// number informats, which other targets cover.
bool is_uwi_date_row(const fmtinfo_eachfmt &row) {
  const std::string_view name(row.name, row.name_length);
  if (name.size() == 8 && name.substr(4, 2) == "DF") return true;
  return name == "@MINGUO" || name == "@XYYMMDD" || name == "@YYQZ" || name == "@YYMMN" ||
         name == "@YMDDTTM" || name == "@PDJULG" || name == "@PDJULI";
}

bool datetime_result(const fmtinfo_eachfmt &row) {
  const std::string_view name(row.name, row.name_length);
  return name == "@DATETIME" || name == "@MDYAMPM" || name == "@YMDDTTM" ||
         (name.size() == 8 && name.substr(4, 4) == "DFDT");
}

void check_value(const fmtinfo_eachfmt &row, double v) {
  namespace dt = xfmt::datetime;
  if (row.routine == zifmtime) {
    if (!(v >= 0)) std::abort();
  } else if (datetime_result(row)) {
    if (!dt::datetime_in_range(v)) std::abort();
  } else {
    if (!dt::date_in_range(v) || v != std::floor(v)) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace xfmt::fuzz;
  if (size < 3) return 0;
  static const std::vector<const fmtinfo_eachfmt *> rows = [] {
    std::vector<const fmtinfo_eachfmt *> all;
    const fmtinfo *dte = jazwidte(), *uwi = jazwiuwi();
    for (uint64_t i = 0; i < dte->count; ++i) all.push_back(&dte->rows[i]);
    for (uint64_t i = 0; i < uwi->count; ++i)
      if (is_uwi_date_row(uwi->rows[i])) all.push_back(&uwi->rows[i]);
    return all;
  }();
  const fmtinfo_eachfmt &row = *rows[data[0] % rows.size()];
  if (row.routine == nullptr) return 0;
  int32_t w = static_cast<int8_t>(data[1]);  // -128 .. 127
  // The packed informats take w 4 only: give it to them half the time.
  if (row.max_width == 4 && (data[1] & 1)) w = 4;
  int32_t d = data[2] % 104;                 // 0 .. 103, past 31 and through 98/99
  const exact_copy text(data + 3, size - 3);
  const uint32_t capacity = data[2] >= 240 ? data[2] - 240u : 8;  // now and then a short buffer
  xf_frame f = frame_of(w, d, text.data(), text.size);
  f.option_word = data[0] >> 1;  // 0 .. 127: records, and 0 for the process locale
  const outcome a = run_twice(row.routine, f, capacity);
  check(a.length <= capacity);
  if (capacity < 8) {
    if (a.status != XF_E_CAPACITY || a.length != 0) std::abort();
    return 0;
  }
  check(a.length == 8);
  uint64_t bits;
  std::memcpy(&bits, a.bytes.data(), 8);
  const double v = reader::from_bits(bits);
  const bool missing = xfmt::is_missing_bits(bits);
  if (a.status != XF_OK && bits != xfmt::missing_ordinary_bits) std::abort();
  if (a.status != XF_OK && a.status != XF_IN_INVALID && a.status != XF_IN_BAD_WIDTH) std::abort();
  if (!missing) check_value(row, v);
  return 0;
}
