// Every date and time routine of the library on fuzzed input: the format
// routines registered in JAZWFDTE and JAZWFTME, and the date formats of
// JAZWFUWF (DTDATE, DTMONYY, DTYEAR, DTYYQC, MINGUO, XYYMMDD, YYQZ), with widths
// and decimals inside their rows' limits, exact-size output buffers (a one-byte overrun
// shows under AddressSanitizer) and the same call twice giving the same
// bytes; then the calendar routines on the same doubles.
//
// Input: byte 0 picks the routine, byte 1 the width, byte 2 the decimals,
// byte 3 the kind of value (raw bits, a missing value, a day count, a
// second count), bytes 4-11 the value; further bytes feed the calendar calls.
// The character formats ($N8601..) take bytes 4-11 and up to 16 more as
// their value, of the length byte 3 says (0 .. 24 bytes).
#include <string_view>

#include "fuzz_support.hpp"

namespace {

using namespace xfmt::fuzz;

// A value of the chosen kind: raw bits, one of the 28 missing values (and
// byte 5 = 0), a day count around the valid range, or a second count.
double value_of_kind(uint8_t kind, reader &c) {
  const uint64_t raw = c.u64();
  switch (kind % 5) {
    case 0: return reader::from_bits(raw);
    case 1: return reader::from_bits(0xFFFF000000000000ull | (static_cast<uint64_t>(0xE4 + raw % 28) << 40));
    case 2: return static_cast<double>(static_cast<int64_t>(raw % 6800000) - 140000) +
                   static_cast<double>(raw >> 56) / 256.0;
    case 3: return static_cast<double>(static_cast<int64_t>(raw % 1200000000000ull) - 600000000000ll) / 1000.0;
    default: return reader::from_bits(0xFFFF000000000000ull);
  }
}

struct target {
  xf_routine routine;
  uint16_t min_w, max_w, max_d;
  bool character;
};

bool is_uwf_date_row(const fmtinfo_eachfmt &row) {
  const std::string_view name(row.name, row.name_length);
  return name == "DTDATE" || name == "DTMONYY" || name == "DTYEAR" || name == "DTYYQC" || name == "MINGUO" ||
         name == "XYYMMDD" || name == "YYQZ";
}

const std::vector<target> &targets() {
  static const std::vector<target> t = [] {
    std::vector<target> out;
    for (const fmtinfo *m : {jazwfdte(), jazwftme(), jazwfuwf()})
      for (uint64_t i = 0; i < m->count; ++i) {
        const fmtinfo_eachfmt &r = m->rows[i];
        if (r.routine == nullptr || (m == jazwfuwf() && !is_uwf_date_row(r))) continue;
        out.push_back({r.routine, r.min_width, r.max_width, r.max_decimals, r.name[0] == '$'});
      }
    return out;
  }();
  return t;
}

void run_format(const target &t, int32_t w, int32_t d, const void *value, uint32_t length) {
  const exact_copy in(value, length);
  check(run_twice(t.routine, frame_of(w, d, in.data(), length), static_cast<uint32_t>(w)).length <=
        static_cast<uint32_t>(w));
}

void run_calendar(double v, reader &c) {
  const double a = c.number(), b = c.number();
  volatile double sink = zjulymd(v, a, b) + zdatjul(v) + zjuldat(v) + zmdy(a, b, v) + zyear(v) +
                         zmonth(v) + zday(v) + zqtr(v) + zwekday(v) + zhms(v, a, b) +
                         zdhms(v, a, b, v) + zdatprt(v) + ztimprt(v) + zhour(v) + zminute(v) +
                         zsecond(v);
  (void)sink;
  double y, m, d;
  zymdjul(&y, &m, &d, v);
  int32_t mi, di, yi;
  getMonthDayYear(&mi, &di, &yi, v);
  const auto i1 = static_cast<int32_t>(c.u64()), i2 = static_cast<int32_t>(c.u64());
  (void)get_lastday(i1, i2);
  const char rule = static_cast<char>("UVWX"[c.byte() % 4]);
  get_yywwdd(&rule, 0, &y, &m, &d, v);
  int64_t days;
  double fraction;
  diff_actact(i1, i2, i1 ^ i2, i2, i1, i1 / 2 + 1, &days, &fraction);
  diff_actact(i1, i2, INT32_MIN, i2, i1, INT32_MAX, &days, &fraction);
  diff_actact(1 + i1 % 12 * (i1 < 0 ? -1 : 1), 1 + (i2 & 15), 1582 + (i1 & 0x3FFF), 1 + (i2 & 7),
              1 + (i1 & 15), 1582 + (i2 & 0x3FFF), &days, &fraction);
  const int32_t week_w = c.byte() % 24;
  std::vector<char> week(static_cast<size_t>(week_w < 11 ? 11 : week_w));
  int32_t ww = week_w;
  zkfweek(week.data(), &ww, &rule, 0, v);
  check(ww <= static_cast<int32_t>(week.size()));
  const int32_t digits = c.byte() % 21;
  const char fills[] = {'0', ' ', '\0', '*'};
  const char fill = fills[c.byte() % 4];
  std::vector<char> text(fill == '\0' ? 20 : static_cast<size_t>(digits ? digits : 1));
  check(i2s(static_cast<int64_t>(c.u64()), text.data(), digits, fill) <= static_cast<int32_t>(text.size()));
  std::vector<char> field(10);
  zfmcprt(1 + (i1 & 0xF) % 10, static_cast<char>(c.byte()), field.data(), i1 % 100000, i2 % 100, i1 % 32);
  zfmcymd(&y, &m, &d, v);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 4) return 0;
  reader c{data, size};
  const auto &all = targets();
  const target &t = all[c.byte() % all.size()];
  const int32_t w = t.min_w + c.byte() % (t.max_w - t.min_w + 1);
  const int32_t d = c.byte() % (t.max_d + 1);
  if (t.character) {
    const size_t n = c.byte() % 25;
    unsigned char bytes[24] = {};
    for (size_t i = 0; i < n; ++i) bytes[i] = c.byte();
    run_format(t, w, d, bytes, static_cast<uint32_t>(n));
    return 0;
  }
  const double v = value_of_kind(c.byte(), c);
  run_format(t, w, d, &v, sizeof v);
  run_calendar(v, c);
  return 0;
}
