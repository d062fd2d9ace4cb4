// National formats against their plain counterparts and against a host's
// usual route: NLDATE20. beside DATE9., NLDATM30. beside DATETIME16., and
// strftime under setlocale,
// NLMNLUSD12.2 beside DOLLAR12.2 and strfmon, NLNUM12.2 beside COMMA12.2,
// NLPCT8.2 beside PERCENT8.2. All through xffmt, English
// (United States) locale, the same values in each pair.
#include <benchmark/benchmark.h>
#include <monetary.h>  // strfmon: the C library's money printer

#include <clocale>
#include <cstring>
#include <ctime>

#include "xfmt/xfmt.h"

namespace {

constexpr uint64_t english_us = 53;
constexpr int value_count = 64;

struct bench_frame {
  double values[value_count];
  char out[64];
  xf_frame f{};
  void *handle = nullptr;

  bench_frame(const char *name, int32_t w, int32_t d, double first, double step) {
    for (int i = 0; i < value_count; ++i) values[i] = first + step * i;
    xfname(name, static_cast<int32_t>(std::strlen(name)), 0, nullptr, &handle);
    f.width = w;
    f.decimals = d;
    f.input_length = 8;
    f.output = out;
    f.output_capacity = static_cast<uint32_t>(w);
    f.option_word = english_us;
  }
  ~bench_frame() { xfdel(handle); }
};

void run_xffmt(benchmark::State &state, const char *name, int32_t w, int32_t d, double first,
               double step) {
  bench_frame b(name, w, d, first, step);
  int i = 0;
  for (auto _ : state) {
    b.f.input = &b.values[i++ & (value_count - 1)];
    benchmark::DoNotOptimize(xffmt(&b.f, b.handle));
    benchmark::ClobberMemory();
  }
}

// Days 21000 onward, one a week: dates of the 2010s.
void BM_nldate20(benchmark::State &s) { run_xffmt(s, "NLDATE", 20, 0, 21000, 7); }
void BM_date9(benchmark::State &s) { run_xffmt(s, "DATE", 9, 0, 21000, 7); }

// NLDATM. and DATETIME. at their default widths (30 and 16) on datetimes of
// 2017 onward, a day and a half-second apart.
void BM_nldatm30(benchmark::State &s) { run_xffmt(s, "NLDATM", 30, 0, 1.8e9, 86399.5); }
void BM_datetime16(benchmark::State &s) { run_xffmt(s, "DATETIME", 16, 0, 1.8e9, 86399.5); }

void BM_strftime_setlocale(benchmark::State &state) {
  std::setlocale(LC_TIME, "C.UTF-8");
  char out[64];
  int i = 0;
  for (auto _ : state) {
    // Day 21000 + 7i of the 1960 count as a calendar date.
    time_t t = static_cast<time_t>((21000 + 7 * (i++ & (value_count - 1)) - 3653) * 86400LL);
    struct tm tm {};
    gmtime_r(&t, &tm);
    benchmark::DoNotOptimize(std::strftime(out, sizeof out, "%B %d, %Y", &tm));
    benchmark::ClobberMemory();
  }
}

// A host that serves several locales switches the process locale per value.
void BM_setlocale_strftime(benchmark::State &state) {
  char out[64];
  int i = 0;
  for (auto _ : state) {
    std::setlocale(LC_TIME, (i & 1) ? "C.UTF-8" : "C");
    time_t t = static_cast<time_t>((21000 + 7 * (i++ & (value_count - 1)) - 3653) * 86400LL);
    struct tm tm {};
    gmtime_r(&t, &tm);
    benchmark::DoNotOptimize(std::strftime(out, sizeof out, "%B %d, %Y", &tm));
    benchmark::ClobberMemory();
  }
  std::setlocale(LC_TIME, "C");
}

// NLDATE20. in other locales, in a UTF-8 process as a host serving them
// would run: de_DE and fr_FR (month names outside ASCII) take the short way
// with the names' UTF-8 bytes, ja_JP (literals outside ASCII) the long way
// through the encoder.
void BM_nldate20_in(benchmark::State &state, const char *locale) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  char code[6];
  std::memcpy(code, locale, 6);
  uint32_t id = 0;
  LocnameToID(code, 5, &id);
  bench_frame b("NLDATE", 20, 0, 21000, 7);
  b.f.option_word = id;
  int i = 0;
  for (auto _ : state) {
    b.f.input = &b.values[i++ & (value_count - 1)];
    benchmark::DoNotOptimize(xffmt(&b.f, b.handle));
    benchmark::ClobberMemory();
  }
  std::setlocale(LC_CTYPE, "C");
}

void BM_nlmnlusd12_2(benchmark::State &s) { run_xffmt(s, "NLMNLUSD", 12, 2, 1234.5, 17.25); }
void BM_dollar12_2(benchmark::State &s) { run_xffmt(s, "DOLLAR", 12, 2, 1234.5, 17.25); }

void BM_strfmon(benchmark::State &state) {
  std::setlocale(LC_MONETARY, "C.UTF-8");
  char out[64];
  int i = 0;
  for (auto _ : state) {
    double v = 1234.5 + 17.25 * (i++ & (value_count - 1));
    benchmark::DoNotOptimize(strfmon(out, sizeof out, "%12.2n", v));
    benchmark::ClobberMemory();
  }
}

// The national numbers beside the formats they generalise: NLNUM12.2 and
// COMMA12.2 on amounts of four digits, NLPCT8.2 and PERCENT8.2 on fractions
// (1.23% up to 47.28%), NLMNY12.2 beside NLMNLUSD12.2.
void BM_nlnum12_2(benchmark::State &s) { run_xffmt(s, "NLNUM", 12, 2, 1234.5, 17.25); }
void BM_comma12_2(benchmark::State &s) { run_xffmt(s, "COMMA", 12, 2, 1234.5, 17.25); }
void BM_nlpct8_2(benchmark::State &s) { run_xffmt(s, "NLPCT", 8, 2, 0.0123, 0.00731); }
void BM_percent8_2(benchmark::State &s) { run_xffmt(s, "PERCENT", 8, 2, 0.0123, 0.00731); }
void BM_nlmny12_2(benchmark::State &s) { run_xffmt(s, "NLMNY", 12, 2, 1234.5, 17.25); }

// NLNUM12.2 in French (France), UTF-8 process: the U+00A0 group mark goes
// through the encoder.
void BM_nlnum12_2_fr(benchmark::State &state) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  bench_frame b("NLNUM", 12, 2, 1234.5, 17.25);
  b.f.option_word = 60;
  int i = 0;
  for (auto _ : state) {
    b.f.input = &b.values[i++ & (value_count - 1)];
    benchmark::DoNotOptimize(xffmt(&b.f, b.handle));
    benchmark::ClobberMemory();
  }
  std::setlocale(LC_CTYPE, "C");
}

void BM_nldatm30_utf16(benchmark::State &state) {
  bench_frame b("NLDATM", 30, 0, 1.8e9, 86399.5);
  b.f.output_capacity = 60;
  b.f.option_word = 64;  // German (Germany): "März" and friends
  for (auto _ : state) {
    b.f.input = &b.values[0];
    b.f.requested_output_encoding = XF_ENC_UTF16LE;
    benchmark::DoNotOptimize(nldatm(&b.f));
    benchmark::ClobberMemory();
  }
}

BENCHMARK(BM_nldate20);
BENCHMARK(BM_date9);
BENCHMARK(BM_nldatm30);
BENCHMARK(BM_datetime16);
BENCHMARK_CAPTURE(BM_nldate20_in, de_DE, "de_DE");
BENCHMARK_CAPTURE(BM_nldate20_in, fr_FR, "fr_FR");
BENCHMARK_CAPTURE(BM_nldate20_in, ja_JP, "ja_JP");
BENCHMARK(BM_strftime_setlocale);
BENCHMARK(BM_setlocale_strftime);
BENCHMARK(BM_nlmnlusd12_2);
BENCHMARK(BM_dollar12_2);
BENCHMARK(BM_strfmon);
BENCHMARK(BM_nldatm30_utf16);
BENCHMARK(BM_nlnum12_2);
BENCHMARK(BM_comma12_2);
BENCHMARK(BM_nlpct8_2);
BENCHMARK(BM_percent8_2);
BENCHMARK(BM_nlmny12_2);
BENCHMARK(BM_nlnum12_2_fr);

}  // namespace
