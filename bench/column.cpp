// Whole-column conversion against the per-value call and the plain
// alternatives, in one run, per value:
//   F8.2    column (xfx_convert_fixed) | xffmt per value | std::to_chars + right-justify
//   DATE9.  column | xffmt per value | civil-date arithmetic writing DDMONYYYY
//   @F      column (xfx_convert_numbers) | xffmt per value | std::from_chars
// Inputs: a million values; the numbers are money amounts and mixed
// magnitudes, the dates span 1990-2030, the texts are F8.2 fields.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "core/missing.hpp"
#include "xfmt/xfx.h"

namespace {

constexpr size_t value_count = 1000000;

const std::vector<double> &amounts() {
  static const std::vector<double> v = [] {
    std::mt19937_64 g(20261123);
    std::vector<double> out(value_count);
    for (double &x : out) {
      double sign = g() % 2 ? -1.0 : 1.0;
      switch (g() % 4) {
        case 0: x = sign * static_cast<double>(g() % 100000); break;
        case 1: x = sign * static_cast<double>(g() % 10000000) / 100.0; break;
        case 2: x = sign * static_cast<double>(g() % 1000000) / 1e4; break;
        default: x = sign * std::pow(10.0, -3.0 + 7.0 * static_cast<double>(g() % 1000000) / 1e6); break;
      }
    }
    return out;
  }();
  return v;
}

const std::vector<double> &dates() {
  static const std::vector<double> v = [] {
    std::mt19937_64 g(20261124);
    std::vector<double> out(value_count);
    for (double &x : out) x = 10957 + static_cast<double>(g() % 14976);  // 1990-01-01 .. 2030-12-31
    return out;
  }();
  return v;
}

// F8.2 fields of the amounts as Arrow texts.
struct text_column {
  std::string data;
  std::vector<int64_t> offsets;
};
const text_column &amount_texts() {
  static const text_column t = [] {
    text_column c;
    c.offsets.push_back(0);
    char buf[64];
    for (double x : amounts()) {
      auto [end, ec] = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, 2);
      c.data.append(buf, end);
      c.offsets.push_back(static_cast<int64_t>(c.data.size()));
    }
    return c;
  }();
  return t;
}

xfx_conversion *open(const char *spec, benchmark::State &state) {
  xfx_conversion *c = nullptr;
  if (xfx_open(spec, std::strlen(spec), 0, 0, nullptr, &c) != XFX_OK) state.SkipWithError("not opened");
  return c;
}

void column_fixed(benchmark::State &state, const char *spec, const std::vector<double> &values, size_t stride) {
  xfx_conversion *c = open(spec, state);
  if (c == nullptr) return;
  std::vector<char> out(values.size() * stride);
  for (auto _ : state) {
    xfx_convert_fixed(c, values.size(), values.data(), nullptr, nullptr, 0, out.data(), stride, ' ', nullptr);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
  xfx_close(c);
}

void per_value(benchmark::State &state, const char *name, int32_t w, int32_t d, const std::vector<double> &values) {
  void *handle = nullptr;
  if (xfname(name, static_cast<int32_t>(std::strlen(name)), 0, nullptr, &handle) != XF_OK) {
    state.SkipWithError("name not resolved");
    return;
  }
  std::vector<char> out(values.size() * static_cast<size_t>(w));
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input_length = 8;
  f.output_capacity = static_cast<uint32_t>(w);
  for (auto _ : state) {
    char *p = out.data();
    for (const double &v : values) {
      f.input = &v;
      f.output = p;
      benchmark::DoNotOptimize(xffmt(&f, handle));
      p += w;
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
  xfdel(handle);
}

void BM_column_F8_2(benchmark::State &s) { column_fixed(s, "F8.2", amounts(), 8); }
void BM_per_value_F8_2(benchmark::State &s) { per_value(s, "F", 8, 2, amounts()); }

// The plain alternative: std::to_chars with two decimals, right-justified
// in eight positions (stars when it does not fit).
void BM_to_chars_F8_2(benchmark::State &state) {
  const auto &values = amounts();
  std::vector<char> out(values.size() * 8);
  for (auto _ : state) {
    char *p = out.data();
    for (double v : values) {
      char buf[32];
      auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 2);
      size_t n = static_cast<size_t>(end - buf);
      if (ec != std::errc() || n > 8) {
        std::memset(p, '*', 8);
      } else {
        std::memset(p, ' ', 8 - n);
        std::memcpy(p + 8 - n, buf, n);
      }
      p += 8;
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

void BM_column_DATE9(benchmark::State &s) { column_fixed(s, "DATE9.", dates(), 9); }
void BM_per_value_DATE9(benchmark::State &s) { per_value(s, "DATE", 9, 0, dates()); }

// The plain alternative: days to year, month and day by era arithmetic,
// then DDMONYYYY written digit by digit.
void BM_civil_DATE9(benchmark::State &state) {
  static constexpr char months[] = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
  const auto &values = dates();
  std::vector<char> out(values.size() * 9);
  for (auto _ : state) {
    char *p = out.data();
    for (double v : values) {
      int64_t z = static_cast<int64_t>(v) + 715815;  // days since 0000-03-01
      int64_t era = (z >= 0 ? z : z - 146096) / 146097;
      int64_t doe = z - era * 146097;
      int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
      int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
      int64_t mp = (5 * doy + 2) / 153;
      int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
      int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
      int y = static_cast<int>(yoe + era * 400 + (m <= 2 ? 1 : 0));
      p[0] = static_cast<char>('0' + d / 10);
      p[1] = static_cast<char>('0' + d % 10);
      std::memcpy(p + 2, months + 3 * (m - 1), 3);
      p[5] = static_cast<char>('0' + y / 1000);
      p[6] = static_cast<char>('0' + y / 100 % 10);
      p[7] = static_cast<char>('0' + y / 10 % 10);
      p[8] = static_cast<char>('0' + y % 10);
      p += 9;
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}

void BM_column_informat_F(benchmark::State &state) {
  const text_column &t = amount_texts();
  xfx_conversion *c = open("@F", state);
  if (c == nullptr) return;
  size_t n = t.offsets.size() - 1;
  std::vector<double> out(n);
  for (auto _ : state) {
    xfx_convert_numbers(c, n, t.data.data(), t.offsets.data(), out.data(), nullptr);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(n));
  xfx_close(c);
}

void BM_per_value_informat_F(benchmark::State &state) {
  const text_column &t = amount_texts();
  void *handle = nullptr;
  if (xfname("F", 1, 73, nullptr, &handle) != XF_OK) {
    state.SkipWithError("name not resolved");
    return;
  }
  size_t n = t.offsets.size() - 1;
  std::vector<double> out(n);
  xf_frame f{};
  f.output_capacity = 8;
  for (auto _ : state) {
    for (size_t i = 0; i < n; ++i) {
      f.input = t.data.data() + t.offsets[i];
      f.input_length = static_cast<uint32_t>(t.offsets[i + 1] - t.offsets[i]);
      f.width = static_cast<int32_t>(f.input_length);
      f.output = &out[i];
      benchmark::DoNotOptimize(xffmt(&f, handle));
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(n));
  xfdel(handle);
}

void BM_from_chars_F(benchmark::State &state) {
  const text_column &t = amount_texts();
  size_t n = t.offsets.size() - 1;
  std::vector<double> out(n);
  for (auto _ : state) {
    for (size_t i = 0; i < n; ++i) {
      const char *a = t.data.data() + t.offsets[i];
      const char *b = t.data.data() + t.offsets[i + 1];
      auto r = std::from_chars(a, b, out[i]);
      if (r.ec != std::errc()) out[i] = xfmt::missing_ordinary();
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(n));
}

}  // namespace

BENCHMARK(BM_column_F8_2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_per_value_F8_2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_to_chars_F8_2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_column_DATE9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_per_value_DATE9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_civil_DATE9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_column_informat_F)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_per_value_informat_F)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_from_chars_F)->Unit(benchmark::kMillisecond);
