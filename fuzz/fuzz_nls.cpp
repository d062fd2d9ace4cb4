// The national formats on arbitrary frames: any routine of the JAZWFNLS
// table (dates, times, money, the national numbers and percents) and the
// euro formats, any value bits, width, decimals, locale id,
// validation bit and output encoding, into an exact-size heap buffer. Each
// call runs twice and must give the same status and bytes, stay inside the
// capacity and never deliver more than the width. Also the pattern expander
// on arbitrary patterns, and those patterns compiled into date steps.
#include "fuzz_support.hpp"
#include "datetime/calendar.hpp"
#include "nls/date_plan.hpp"
#include "nls/locale_reader.hpp"
#include "nls/zkf.hpp"
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

// A pattern compiled into date steps writes what the expander writes, and
// only into the room it is given.
void one_compiled_pattern(reader &r) {
  using namespace xfmt::nls;
  const int locale = 1 + r.byte() % locale_count;
  const int64_t day = xfmt::datetime::date_min +
                      static_cast<int64_t>(r.u64() % static_cast<uint64_t>(
                                                        xfmt::datetime::date_max -
                                                        xfmt::datetime::date_min + 1));
  const size_t room = r.byte();
  std::vector<char> pattern(r.p, r.p + r.n);
  const field_reader loc = locale_reader(locale);
  const date_plan plan = compile_date_plan(loc, pattern.data(), pattern.size());
  if (!plan.usable) return;
  const day_fields d = day_fields_of(day);
  std::vector<char> out(room + 1);
  out.pop_back();  // exact size: a write past the room is caught
  const size_t n = run_date_plan(plan, d, loc.record, out.data(), room);
  char want[1024];
  size_t want_n = 0;
  check(expand_text(date_moment_of(static_cast<double>(day)), loc, pattern.data(), pattern.size(),
                    want, sizeof want, &want_n, 0) == expand_fits);
  if (want_n > room) {
    check(n == room + 1);
  } else {
    check(n == want_n && std::memcmp(out.data(), want, n) == 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  reader r{data + 1, size - 1};
  if (data[0] % 3 == 1) one_pattern(r);
  else if (data[0] % 3 == 2) one_compiled_pattern(r);
  else one_format(r);
  return 0;
}
