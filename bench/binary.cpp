// Binary and radix formats against the standard way of making the same
// bytes: IB4.2 versus llround and a shift loop, PD8.2 versus snprintf
// digits packed into nibbles, HEX8 versus snprintf("%08llX"), $HEX versus a
// snprintf per byte. The mainframe forms against the native ones in the
// same run, both ways: S370FPD8.2 vs PD8.2, S370FZD8.2 vs ZD8.2, S370FRB8.
// vs RB8. Report: ns per value and ratios.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

const std::vector<double> &values() {
  static const std::vector<double> v = [] {
    std::mt19937_64 g(20261121);
    std::vector<double> r(4096);
    for (double &x : r) x = static_cast<double>(static_cast<int64_t>(g() % 20000001) - 10000000) / 100.0;
    return r;
  }();
  return v;
}

void run_format(benchmark::State &state, xf_routine routine, int w, int d) {
  const std::vector<double> &v = values();
  unsigned char out[32];
  size_t i = 0;
  for (auto _ : state) {
    double x = v[i++ & 4095];
    xf_frame f{};
    f.width = w;
    f.decimals = d;
    f.input = &x;
    f.input_length = 8;
    f.output = out;
    f.output_capacity = sizeof out;
    benchmark::DoNotOptimize(routine(&f));
    benchmark::DoNotOptimize(out);
  }
}

void bm_ib4_2(benchmark::State &s) { run_format(s, zfmib, 4, 2); }
void bm_ib4_2_llround(benchmark::State &state) {
  const std::vector<double> &v = values();
  unsigned char out[8];
  size_t i = 0;
  for (auto _ : state) {
    long long n = std::llround(v[i++ & 4095] * 100.0);
    auto u = static_cast<unsigned long long>(n);
    for (int k = 3; k >= 0; --k, u >>= 8) out[k] = static_cast<unsigned char>(u);
    benchmark::DoNotOptimize(out);
  }
}

void bm_pd8_2(benchmark::State &s) { run_format(s, zfmpd, 8, 2); }
void bm_pd8_2_snprintf(benchmark::State &state) {
  const std::vector<double> &v = values();
  unsigned char out[8];
  char digits[32];
  size_t i = 0;
  for (auto _ : state) {
    double x = std::round(v[i++ & 4095] * 100.0);
    std::snprintf(digits, sizeof digits, "%015.0f", std::fabs(x));
    for (int k = 0; k < 7; ++k)
      out[k] = static_cast<unsigned char>(((digits[2 * k] - '0') << 4) | (digits[2 * k + 1] - '0'));
    out[7] = static_cast<unsigned char>(((digits[14] - '0') << 4) | (x < 0 ? 0xD : 0xC));
    benchmark::DoNotOptimize(out);
  }
}

void bm_hex8(benchmark::State &s) { run_format(s, zfmhex, 8, 0); }
void bm_hex8_snprintf(benchmark::State &state) {
  const std::vector<double> &v = values();
  char out[32];
  size_t i = 0;
  for (auto _ : state) {
    long long n = std::llround(v[i++ & 4095]);
    std::snprintf(out, sizeof out, "%08llX", static_cast<unsigned long long>(n) & 0xFFFFFFFFull);
    benchmark::DoNotOptimize(out);
  }
}

const char text[] = "The quick brown fox jumps over the lazy dog 0123456789";

void bm_chex(benchmark::State &state) {
  char out[128];
  for (auto _ : state) {
    xf_frame f{};
    f.width = 2 * (sizeof text - 1);
    f.input = text;
    f.input_length = sizeof text - 1;
    f.output = out;
    f.output_capacity = sizeof out;
    benchmark::DoNotOptimize(zfmchex(&f));
    benchmark::DoNotOptimize(out);
  }
}
void bm_chex_snprintf(benchmark::State &state) {
  char out[129];
  for (auto _ : state) {
    for (size_t k = 0; k + 1 < sizeof text; ++k)
      std::snprintf(out + 2 * k, 3, "%02X", static_cast<unsigned>(static_cast<unsigned char>(text[k])));
    benchmark::DoNotOptimize(out);
  }
}

// Informats: the fields of the 4096 values written once by the format,
// then read back one per iteration.
void run_informat(benchmark::State &state, xf_routine format, xf_routine informat, int w, int d) {
  const std::vector<double> &v = values();
  std::vector<unsigned char> fields(4096 * static_cast<size_t>(w));
  for (size_t k = 0; k < 4096; ++k) {
    double x = v[k];
    xf_frame f{};
    f.width = w;
    f.decimals = d;
    f.input = &x;
    f.input_length = 8;
    f.output = fields.data() + k * static_cast<size_t>(w);
    f.output_capacity = static_cast<uint32_t>(w);
    format(&f);
  }
  double out = 0;
  size_t i = 0;
  for (auto _ : state) {
    xf_frame f{};
    f.width = w;
    f.decimals = d;
    f.input = fields.data() + (i++ & 4095) * static_cast<size_t>(w);
    f.input_length = static_cast<uint32_t>(w);
    f.output = &out;
    f.output_capacity = 8;
    benchmark::DoNotOptimize(informat(&f));
    benchmark::DoNotOptimize(out);
  }
}

void bm_s370fpd8_2(benchmark::State &s) { run_format(s, zfms370pd, 8, 2); }
void bm_zd8_2(benchmark::State &s) { run_format(s, zfmzd, 8, 2); }
void bm_s370fzd8_2(benchmark::State &s) { run_format(s, zfms370zd, 8, 2); }
void bm_rb8(benchmark::State &s) { run_format(s, zfmrb, 8, 0); }
void bm_s370frb8(benchmark::State &s) { run_format(s, zfms370rb, 8, 0); }
void bm_read_pd8_2(benchmark::State &s) { run_informat(s, zfmpd, zifmpd, 8, 2); }
void bm_read_s370fpd8_2(benchmark::State &s) { run_informat(s, zfms370pd, zifms370pd, 8, 2); }
void bm_read_zd8_2(benchmark::State &s) { run_informat(s, zfmzd, zifmzd, 8, 2); }
void bm_read_s370fzd8_2(benchmark::State &s) { run_informat(s, zfms370zd, zifms370zd, 8, 2); }
void bm_read_rb8(benchmark::State &s) { run_informat(s, zfmrb, zifmrb, 8, 0); }
void bm_read_s370frb8(benchmark::State &s) { run_informat(s, zfms370rb, zifms370rb, 8, 0); }

}  // namespace

BENCHMARK(bm_s370fpd8_2);
BENCHMARK(bm_zd8_2);
BENCHMARK(bm_s370fzd8_2);
BENCHMARK(bm_rb8);
BENCHMARK(bm_s370frb8);
BENCHMARK(bm_read_pd8_2);
BENCHMARK(bm_read_s370fpd8_2);
BENCHMARK(bm_read_zd8_2);
BENCHMARK(bm_read_s370fzd8_2);
BENCHMARK(bm_read_rb8);
BENCHMARK(bm_read_s370frb8);
BENCHMARK(bm_ib4_2);
BENCHMARK(bm_ib4_2_llround);
BENCHMARK(bm_pd8_2);
BENCHMARK(bm_pd8_2_snprintf);
BENCHMARK(bm_hex8);
BENCHMARK(bm_hex8_snprintf);
BENCHMARK(bm_chex);
BENCHMARK(bm_chex_snprintf);
