// Resolution and dispatch costs: a name to a handle and back (xfname +
// xfdel), and the overhead of xffmt around $CHAR against calling the routine
// directly and against a plain memcpy/memset of the same field.
#include <benchmark/benchmark.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

void resolve_and_release(benchmark::State &state, const char *name, int32_t kind) {
  int32_t len = static_cast<int32_t>(std::strlen(name));
  uint16_t block[8];
  for (auto _ : state) {
    void *h = nullptr;
    xf_status st = xfname(name, len, kind, block, &h);
    benchmark::DoNotOptimize(st);
    benchmark::DoNotOptimize(h);
    xfdel(h);
  }
}

// A name near the start of the possible-format table, one near the end, an
// informat, an intrinsic name (no allocation) and an unknown name (the whole
// table scanned).
void BM_resolve_first_module(benchmark::State &s) { resolve_and_release(s, "HEX", 0); }
void BM_resolve_char(benchmark::State &s) { resolve_and_release(s, "$CHAR", 0); }
void BM_resolve_shorthand(benchmark::State &s) { resolve_and_release(s, "$", 0); }
void BM_resolve_last_module(benchmark::State &s) { resolve_and_release(s, "YYQZ", 73); }
void BM_resolve_intrinsic(benchmark::State &s) { resolve_and_release(s, "INTRINSIC-CRDATE", 0); }
void BM_resolve_unknown(benchmark::State &s) { resolve_and_release(s, "NOSUCHNAME", 0); }
BENCHMARK(BM_resolve_first_module)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_resolve_char)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_resolve_shorthand)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_resolve_last_module)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_resolve_intrinsic)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_resolve_unknown)->Unit(benchmark::kMicrosecond);

struct char_frame {
  std::string text = "Castellanos";
  char out[16];
  xf_frame f{};
  char_frame() {
    f.width = 12;
    f.input = text.data();
    f.input_length = static_cast<uint32_t>(text.size());
    f.output = out;
    f.output_capacity = sizeof out;
  }
};

void BM_char_via_xffmt(benchmark::State &state) {
  void *h = nullptr;
  xfname("$CHAR", 5, 0, nullptr, &h);
  char_frame c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(xffmt(&c.f, h));
    benchmark::ClobberMemory();
  }
  xfdel(h);
}
BENCHMARK(BM_char_via_xffmt)->Unit(benchmark::kNanosecond);

void BM_char_via_refreshed_handle(benchmark::State &state) {
  fmtposs_row own{};
  void *h = &own;
  xfname3("$CHAR", 5, 0, nullptr, &h, nullptr);
  char_frame c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(xffmt(&c.f, h));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_char_via_refreshed_handle)->Unit(benchmark::kNanosecond);

void BM_char_direct(benchmark::State &state) {
  char_frame c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(zfmchar(&c.f));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_char_direct)->Unit(benchmark::kNanosecond);

// The standard alternative: copy and pad by hand.
void BM_char_memcpy_baseline(benchmark::State &state) {
  char_frame c;
  for (auto _ : state) {
    std::memcpy(c.out, c.text.data(), c.text.size());
    std::memset(c.out + c.text.size(), ' ', 12 - c.text.size());
    benchmark::DoNotOptimize(c.out);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_char_memcpy_baseline)->Unit(benchmark::kNanosecond);

// The UTF-16 request path: widening 12 bytes through the Windows-1252 table.
void BM_char_utf16_refreshed(benchmark::State &state) {
  fmtposs_row own{};
  void *h = &own;
  xfname3("$CHAR", 5, 0, nullptr, &h, nullptr);
  char_frame c;
  char wide[32];
  c.f.output = wide;
  c.f.output_capacity = sizeof wide;
  c.f.requested_output_encoding = XF_ENC_UTF16LE;
  for (auto _ : state) {
    c.f.output_encoding = 0;
    benchmark::DoNotOptimize(xffmt(&c.f, h));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_char_utf16_refreshed)->Unit(benchmark::kNanosecond);

// Frames outside the limits: every built catalogued conversion once per
// iteration with width INT32_MAX and decimals INT32_MIN into a 64-byte
// buffer (the entry guard's irregular path, then the routine's own
// refusal), against the same conversions with a plain frame of their default
// width. The ratio is the guard's price on a bad frame; the counter gives
// the conversions per iteration.
void bad_frame_round(benchmark::State &state, bool bad) {
  std::vector<fmtinfo_eachfmt> rows;
  for (const fmtposs_row &p : fmtposs) {
    std::string name(p.row.name, p.row.name_length);
    const int32_t kind = name[0] == '@' ? 73 : 0;
    if (kind == 73) name.erase(0, 1);
    void *h = nullptr;
    if (xfname(name.data(), static_cast<int32_t>(name.size()), kind, nullptr, &h) != XF_OK) continue;
    const fmtinfo_eachfmt row = static_cast<const fmtposs_row *>(h)->row;
    xfdel(h);
    if (row.routine != nullptr && row.default_width <= 64) rows.push_back(row);
  }
  const double value = 1234.5;
  char out[64];
  for (auto _ : state) {
    for (const fmtinfo_eachfmt &r : rows) {
      xf_frame f{};
      f.width = bad ? INT32_MAX : r.default_width;
      f.decimals = bad ? INT32_MIN : r.default_decimals;
      f.input = &value;
      f.input_length = 8;
      f.output = out;
      f.output_capacity = sizeof out;
      benchmark::DoNotOptimize(r.routine(&f));
    }
    benchmark::ClobberMemory();
  }
  state.counters["conversions"] = static_cast<double>(rows.size());
}
void BM_every_conversion_plain_frame(benchmark::State &s) { bad_frame_round(s, false); }
void BM_every_conversion_bad_frame(benchmark::State &s) { bad_frame_round(s, true); }
BENCHMARK(BM_every_conversion_plain_frame)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_every_conversion_bad_frame)->Unit(benchmark::kMicrosecond);

}  // namespace
