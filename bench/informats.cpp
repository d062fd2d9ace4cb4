// Numeric informats against the standard readers on the same texts: @F
// (wzifmn, through xffmt and called directly) versus strtod and std::from_chars over a million realistic
// fields, and @COMMA (zifmcma) on grouped numbers. The baselines get the
// same blank trimming the informat does. Report: ns per field and ratios.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

// Fields as a text column holds them: prices, counts, small negative
// decimals, E notation and padded integers, with fresh random digits.
const std::vector<std::string> &realistic_fields() {
  static const std::vector<std::string> fields = [] {
    std::mt19937_64 g(20261121);
    std::vector<std::string> v;
    v.reserve(1000000);
    auto digits = [&](int n) {
      std::string s;
      for (int i = 0; i < n; ++i) s.push_back(static_cast<char>('0' + (i == 0 ? 1 + g() % 9 : g() % 10)));
      return s;
    };
    for (int i = 0; i < 1000000; ++i) {
      switch (i % 5) {
        case 0: v.push_back(digits(1 + static_cast<int>(g() % 4)) + "." + digits(2)); break;   // 123.45
        case 1: v.push_back(digits(1 + static_cast<int>(g() % 7))); break;                      // 1234567
        case 2: v.push_back("-0.0" + digits(2)); break;                                         // -0.015
        case 3: v.push_back(digits(1) + "." + digits(1) + "E" + digits(1)); break;              // 1.5E3
        case 4: v.push_back("  " + digits(2) + "  "); break;                                    // "  42  "
      }
    }
    return v;
  }();
  return fields;
}

const std::vector<std::string> &grouped_fields() {
  static const std::vector<std::string> fields = [] {
    std::mt19937_64 g(7);
    std::vector<std::string> v;
    v.reserve(1000000);
    for (int i = 0; i < 1000000; ++i) {
      unsigned thousands = 1 + static_cast<unsigned>(g() % 999);
      char buf[32];
      std::snprintf(buf, sizeof buf, "%u,%03u.%02u", thousands, static_cast<unsigned>(g() % 1000),
                    static_cast<unsigned>(g() % 100));
      v.push_back(buf);  // 1,234.56
    }
    return v;
  }();
  return fields;
}

void trim(const char *&first, const char *&last) {
  while (first != last && (*first == ' ' || *first == '\t')) ++first;
  while (last != first && (last[-1] == ' ' || last[-1] == '\t')) --last;
}

void run_informat(benchmark::State &state, xf_routine routine, const std::vector<std::string> &fields) {
  double out = 0;
  xf_frame f{};
  f.output = &out;
  f.output_capacity = 8;
  size_t i = 0;
  for (auto _ : state) {
    const std::string &s = fields[i];
    if (++i == fields.size()) i = 0;
    f.width = 32;
    f.decimals = 0;
    f.input = s.data();
    f.input_length = static_cast<uint32_t>(s.size());
    benchmark::DoNotOptimize(routine(&f));
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_informat_F(benchmark::State &state) { run_informat(state, wzifmn, realistic_fields()); }

// As hosts call it: a handle for the informat F from xfname, then xffmt.
void run_resolved(benchmark::State &state, const char *name, const std::vector<std::string> &fields) {
  void *handle = nullptr;
  if (xfname(name, static_cast<int32_t>(std::strlen(name)), 73, nullptr, &handle) != 0) {
    state.SkipWithError("informat not resolved");
    return;
  }
  double out = 0;
  xf_frame f{};
  size_t i = 0;
  for (auto _ : state) {
    const std::string &s = fields[i];
    if (++i == fields.size()) i = 0;
    f.width = 32;
    f.decimals = 0;
    f.input = s.data();
    f.input_length = static_cast<uint32_t>(s.size());
    f.output = &out;
    f.output_capacity = 8;
    benchmark::DoNotOptimize(xffmt(&f, handle));
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations());
  xfdel(handle);
}

void BM_informat_F_xffmt(benchmark::State &state) { run_resolved(state, "F", realistic_fields()); }
void BM_informat_COMMA_xffmt(benchmark::State &state) { run_resolved(state, "COMMA", grouped_fields()); }

void BM_strtod_F_fields(benchmark::State &state) {
  const auto &fields = realistic_fields();
  size_t i = 0;
  for (auto _ : state) {
    const std::string &s = fields[i];
    if (++i == fields.size()) i = 0;
    const char *first = s.data(), *last = s.data() + s.size();
    trim(first, last);
    char *end = nullptr;
    double v = std::strtod(first, &end);  // the text is NUL-terminated after the field
    benchmark::DoNotOptimize(v);
    benchmark::DoNotOptimize(end);
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_from_chars_F_fields(benchmark::State &state) {
  const auto &fields = realistic_fields();
  size_t i = 0;
  for (auto _ : state) {
    const std::string &s = fields[i];
    if (++i == fields.size()) i = 0;
    const char *first = s.data(), *last = s.data() + s.size();
    trim(first, last);
    double v = 0;
    auto r = std::from_chars(first, last, v);
    benchmark::DoNotOptimize(v);
    benchmark::DoNotOptimize(r.ptr);
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_informat_COMMA(benchmark::State &state) { run_informat(state, zifmcma, grouped_fields()); }

// The standard alternative for grouped numbers: drop the commas, then strtod.
void BM_strtod_COMMA_fields(benchmark::State &state) {
  const auto &fields = grouped_fields();
  size_t i = 0;
  for (auto _ : state) {
    const std::string &s = fields[i];
    if (++i == fields.size()) i = 0;
    char buf[40];
    size_t n = 0;
    for (char c : s)
      if (c != ',' && n + 1 < sizeof buf) buf[n++] = c;
    buf[n] = '\0';
    double v = std::strtod(buf, nullptr);
    benchmark::DoNotOptimize(v);
  }
  state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_informat_F_xffmt);
BENCHMARK(BM_informat_F);
BENCHMARK(BM_strtod_F_fields);
BENCHMARK(BM_from_chars_F_fields);
BENCHMARK(BM_informat_COMMA_xffmt);
BENCHMARK(BM_informat_COMMA);
BENCHMARK(BM_strtod_COMMA_fields);

}  // namespace
