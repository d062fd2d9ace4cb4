// Numeric formats against the standard alternatives, in one run: F8.2 vs
// snprintf("%8.2f") and std::to_chars + right-justifying; BEST12. vs a
// "%.*g" loop that keeps the most digits fitting 12 positions; COMMA12.2 and
// DOLLAR12.2 vs snprintf followed by inserting the commas (and the "$").
// Each iteration formats the same million mixed values, as a host does:
// one xffmt call per value with a handle from xfname.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "core/missing.hpp"
#include "xfmt/xfmt.h"

namespace {

constexpr size_t value_count = 1000000;

// Integers, money with two decimals, magnitudes 1e-10 to 1e15, about half
// negative, one in a hundred missing.
const std::vector<double> &mixed_values() {
  static const std::vector<double> values = [] {
    std::mt19937_64 g(20261121);
    std::vector<double> v(value_count);
    for (double &x : v) {
      double sign = g() % 2 ? -1.0 : 1.0;
      switch (g() % 100) {
        case 0: x = xfmt::missing_ordinary(); continue;
        default: break;
      }
      switch (g() % 3) {
        case 0: x = sign * static_cast<double>(g() % 100000); break;
        case 1: x = sign * static_cast<double>(g() % 10000000) / 100.0; break;
        default: x = sign * std::pow(10.0, -10.0 + 25.0 * static_cast<double>(g() % 1000000) / 1e6); break;
      }
    }
    return v;
  }();
  return values;
}

// Through the host's path: xfname resolves the name once, xffmt converts
// each value with the handle.
void run_routine(benchmark::State &state, const char *name, int32_t w, int32_t d) {
  const auto &values = mixed_values();
  xfinit();
  void *handle = nullptr;
  if (xfname(name, static_cast<int32_t>(std::strlen(name)), 0, nullptr, &handle) != XF_OK) {
    state.SkipWithError("name not resolved");
    return;
  }
  char out[32];
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = static_cast<uint32_t>(w);
  for (auto _ : state) {
    for (double v : values) {
      f.input = &v;
      benchmark::DoNotOptimize(xffmt(&f, handle));
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
  xfdel(handle);
}

void BM_F8_2_xfmt(benchmark::State &s) { run_routine(s, "F", 8, 2); }

// zfmt called directly, without the dispatcher: the cost of xffmt itself.
void BM_F8_2_zfmt_direct(benchmark::State &state) {
  const auto &values = mixed_values();
  char out[8];
  xf_frame f{};
  f.width = 8;
  f.decimals = 2;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = 8;
  for (auto _ : state) {
    for (double v : values) {
      f.input = &v;
      benchmark::DoNotOptimize(zfmt(&f));
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}
void BM_F12_2_xfmt(benchmark::State &s) { run_routine(s, "F", 12, 2); }
void BM_BEST12_xfmt(benchmark::State &s) { run_routine(s, "BEST", 12, 0); }
void BM_COMMA12_2_xfmt(benchmark::State &s) { run_routine(s, "COMMA", 12, 2); }
void BM_DOLLAR12_2_xfmt(benchmark::State &s) { run_routine(s, "DOLLAR", 12, 2); }

void BM_F8_2_snprintf(benchmark::State &state) {
  const auto &values = mixed_values();
  char out[32];
  for (auto _ : state) {
    for (double v : values) {
      benchmark::DoNotOptimize(std::snprintf(out, 9, "%8.2f", v));
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

void BM_F8_2_to_chars(benchmark::State &state) {
  const auto &values = mixed_values();
  char tmp[400];
  char out[8];
  for (auto _ : state) {
    for (double v : values) {
      auto res = std::to_chars(tmp, tmp + sizeof tmp, v, std::chars_format::fixed, 2);
      size_t n = static_cast<size_t>(res.ptr - tmp);
      if (n <= 8) {
        std::memset(out, ' ', 8 - n);
        std::memcpy(out + (8 - n), tmp, n);
      } else {
        std::memset(out, '*', 8);
      }
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

void BM_BEST12_snprintf(benchmark::State &state) {
  const auto &values = mixed_values();
  char out[64];
  for (auto _ : state) {
    for (double v : values) {
      for (int p = 12; p >= 1; --p)
        if (std::snprintf(out, sizeof out, "%12.*g", p, v) <= 12) break;
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

// "%.2f" then commas between groups of three, right-justified in 12.
int grouped(char *out, double v, const char *prefix) {
  char tmp[400];
  int n = std::snprintf(tmp, sizeof tmp, "%.2f", v);
  if (n < 0) return n;
  const char *p = tmp;
  char text[512];
  int t = 0;
  if (*p == '-') text[t++] = *p++;
  for (const char *q = prefix; *q; ++q) text[t++] = *q;
  const char *point = std::strchr(p, '.');
  int digits = point ? static_cast<int>(point - p) : static_cast<int>(std::strlen(p));
  for (int i = 0; i < digits; ++i) {
    if (i > 0 && (digits - i) % 3 == 0) text[t++] = ',';
    text[t++] = p[i];
  }
  if (point) {
    size_t rest = std::strlen(point);
    std::memcpy(text + t, point, rest);
    t += static_cast<int>(rest);
  }
  if (t > 12) {
    std::memset(out, '*', 12);
  } else {
    std::memset(out, ' ', static_cast<size_t>(12 - t));
    std::memcpy(out + (12 - t), text, static_cast<size_t>(t));
  }
  return t;
}

void BM_COMMA12_2_snprintf(benchmark::State &state) {
  const auto &values = mixed_values();
  char out[12];
  for (auto _ : state) {
    for (double v : values) {
      benchmark::DoNotOptimize(grouped(out, v, ""));
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

void BM_DOLLAR12_2_snprintf(benchmark::State &state) {
  const auto &values = mixed_values();
  char out[12];
  for (auto _ : state) {
    for (double v : values) {
      benchmark::DoNotOptimize(grouped(out, v, "$"));
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

}  // namespace

BENCHMARK(BM_F8_2_xfmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_F8_2_zfmt_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_F8_2_snprintf)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_F8_2_to_chars)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_F12_2_xfmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BEST12_xfmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BEST12_snprintf)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_COMMA12_2_xfmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_COMMA12_2_snprintf)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DOLLAR12_2_xfmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DOLLAR12_2_snprintf)->Unit(benchmark::kMillisecond);
