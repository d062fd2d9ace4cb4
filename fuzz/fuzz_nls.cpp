// The national formats on arbitrary frames: any routine of the JAZWFNLS
// table (dates, times, money, the national numbers and percents) and the
// euro formats, any value bits, width, decimals, locale id,
// validation bit and output encoding, into an exact-size heap buffer. Each
// call runs twice and must give the same status and bytes, stay inside the
// capacity and never deliver more than the width. Also the pattern expander
// on arbitrary patterns, and those patterns compiled into date steps.
#include "fuzz_support.hpp"
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/zkf.hpp"
#include "userfmt/datefmt.hpp"
#include "xfmt/xfmt.h"

namespace {

using namespace xfmt::fuzz;

// A value: raw bits, or one near the calendar and money ranges, or an amount
// in hundredths (the grouped numbers, percents and their ties).
double value_of(reader &r) {
  const uint8_t how = r.byte();
  uint64_t bits = r.u64();
  double v;
  std::memcpy(&v, &bits, sizeof v);
  if (how % 8 == 7) return static_cast<double>(static_cast<int64_t>(bits) >> (bits & 63)) / 100;
  switch (how % 4) {
    case 0: return v;
    case 1: return static_cast<double>(static_cast<int32_t>(bits)) / 8;       // dates
    case 2: return static_cast<double>(static_cast<int64_t>(bits) >> 24);     // datetimes
    default: {
      uint64_t miss = 0xFFFF000000000000ull | (bits & 0xFF) << 40;            // missing kinds
      std::memcpy(&v, &miss, sizeof v);
      return v;
    }
  }
}

void one_format(reader &r) {
  const fmtinfo *nls = jazwfnls();
  const fmtinfo *msc = jazwfmsc();
  const fmtinfo *m = r.byte() & 1 ? msc : nls;
  const uint32_t index = r.byte() | static_cast<uint32_t>(r.byte()) << 8;
  const fmtinfo_eachfmt &row = m->rows[index % m->count];
  if (row.routine == nullptr) return;
  if (m == msc && std::memcmp(row.name, "EUR", 3) != 0) return;
  xf_frame f{};
  f.width = static_cast<int8_t>(r.byte());
  if (r.byte() & 1) f.width = row.max_width + f.width % 8;
  f.decimals = static_cast<int8_t>(r.byte()) % 40;
  f.output_capacity = r.byte();
  f.option_word = r.byte() | (r.byte() & 1 ? XF_OPT_VALIDATE : 0);
  f.requested_output_encoding = r.byte() & 1 ? XF_ENC_UTF16LE : 0;
  const double v = value_of(r);
  const exact_copy in(&v, 8);
  f.input = in.data();
  f.input_length = 8;
  const outcome a = run_twice(row.routine, f, f.output_capacity);
  check(a.length <= f.output_capacity);
  const uint32_t unit = f.requested_output_encoding == XF_ENC_UTF16LE ? 2 : 1;
  if (f.width >= 0 && m == nls) check(a.length <= static_cast<uint32_t>(f.width) * unit);
}

void one_pattern(reader &r) {
  const int locale = r.byte();
  const double date = value_of(r);
  const double hour = r.byte() % 30, minute = r.byte() % 60, second = r.byte() % 61 + 0.5;
  int32_t width = static_cast<int8_t>(r.byte());
  const int32_t decimals = r.byte() % 12;
  std::vector<char> pattern(r.p, r.p + r.n);
  // Exact-size buffers; a zero width still gets a valid (empty) buffer.
  const size_t field = static_cast<size_t>(width < 0 ? -width : width);
  std::vector<char> out(field + 1), out2(field + 1);
  out.pop_back();
  out2.pop_back();
  int32_t w1 = width, w2 = width;
  int a = expand(date, hour, minute, second, locale, pattern.data(),
                 static_cast<int32_t>(pattern.size()), out.data(), &w1, decimals);
  int b = expand(date, hour, minute, second, locale, pattern.data(),
                 static_cast<int32_t>(pattern.size()), out2.data(), &w2, decimals);
  check(a == b && w1 == w2 && out == out2);
  check(a == 0 || a == 1 || a == -2);
}

// A locale pattern kept compiled writes what the same pattern compiled on
// the spot writes, and only into the room it is given.
void one_compiled_pattern(reader &r) {
  using namespace xfmt::nls;
  const int locale = 1 + r.byte() % locale_count;
  const int code = plan_first_field + r.byte() % plan_field_count + (r.byte() % 2 ? 256 : 0);
  const bool scratch = r.byte() % 2;
  const double date = value_of(r);
  const bool with_time = r.byte() % 2 && datetime_value_in_range(date * 86400);
  const moment m = with_time ? datetime_moment_of(date * 86400, 2, true) : date_moment_of(date);
  const size_t room = r.byte();
  const field_reader loc = locale_reader(locale);
  const pattern_plan *plan = plan_for_code(locale, code);
  if (plan == nullptr) return;
  std::vector<char> out(room + 1);
  out.pop_back();  // exact size: a write past the room is caught
  size_t n = 0;
  const nl_result got = run_pattern(m, loc, plan, {}, 2, out.data(), room, scratch, &n);
  std::string pattern(locale_field(locale, code & 0xFF));
  if (code & 256) pattern += " %z";
  char want[1024];
  size_t want_n = 0;
  const int r2 = expand_text(m, loc, pattern.data(), pattern.size(), want, sizeof want, &want_n, 2);
  check((got == nl_result::unusable) == (r2 == expand_bad_letter));
  if (r2 != expand_fits) return;
  check(n == want_n && std::memcmp(out.data(), want, n < room ? n : room) == 0);
}

// A user-format date picture: its directives run through the same engine;
// never past the work area, the same text twice, and the same text again
// from plans compiled ahead, as the reader keeps them with a label.
void one_date_picture(reader &r) {
  const int32_t datatype = r.byte() % 5;
  const double value = value_of(r);
  const int32_t capacity = static_cast<int32_t>(r.byte()) - 8;
  std::vector<char> picture(r.p, r.p + r.n);
  std::vector<char> a(capacity > 0 ? static_cast<size_t>(capacity) : 0), b(a.size());
  const auto length = static_cast<int32_t>(picture.size());
  const int32_t n = datefmt(picture.data(), length, datatype, "", 0, value, a.data(), capacity);
  const int32_t m = datefmt(picture.data(), length, datatype, "", 0, value, b.data(), capacity);
  check(n == m && a == b && n >= 0 && n <= (capacity > 0 ? capacity : 0));
  xfmt::nls::pattern_plan plans[xfmt::userfmt::date_plans_max];
  const size_t count = xfmt::userfmt::compile_date_template(picture.data(), length, datatype, plans);
  if (count == 0) return;
  const int32_t k = xfmt::userfmt::run_date_template(plans, count, datatype, value, b.data(), capacity);
  check(k == n && a == b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  reader r{data + 1, size - 1};
  if (data[0] == 0xFF) one_date_picture(r);
  else if (data[0] % 3 == 1) one_pattern(r);
  else if (data[0] % 3 == 2) one_compiled_pattern(r);
  else one_format(r);
  return 0;
}
