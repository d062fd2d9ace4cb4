// Date and time layouts through xffmt against a host's usual route on the
// same values: gmtime_r + strftime after moving the epoch from 1960 to 1970
// for dates, snprintf("%d:%02d:%02d") for times. One million day counts
// between 1900 and 2100; one million whole-second times below 48 hours.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <random>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

constexpr size_t value_count = 1000000;
constexpr int64_t epoch_shift_days = 3653;  // 1960-01-01 to 1970-01-01

const std::vector<double> &day_counts() {
  static const std::vector<double> v = [] {
    std::mt19937_64 gen(1960);
    std::uniform_int_distribution<int64_t> pick(-21914, 51501);  // 1900-01-01 .. 2100-12-31
    std::vector<double> out(value_count);
    for (double &d : out) d = static_cast<double>(pick(gen));
    return out;
  }();
  return v;
}

const std::vector<double> &times() {
  static const std::vector<double> v = [] {
    std::mt19937_64 gen(86400);
    std::uniform_int_distribution<int32_t> pick(0, 2 * 86400 - 1);
    std::vector<double> out(value_count);
    for (double &t : out) t = pick(gen);
    return out;
  }();
  return v;
}

void through_xffmt(benchmark::State &state, const char *name, int32_t width,
                   const std::vector<double> &values) {
  void *handle = nullptr;
  uint16_t limits[8];
  if (xfname(name, static_cast<int32_t>(std::char_traits<char>::length(name)), 0, limits, &handle) != 0) {
    state.SkipWithError("name not resolved");
    return;
  }
  char out[32];
  double value = 0;
  xf_frame f{};
  f.width = width;
  f.input = &value;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  for (auto _ : state) {
    for (double v : values) {
      value = v;
      xffmt(&f, handle);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(values.size()));
  xfdel(handle);
}

size_t date9(char *out, const struct tm *p) { return strftime(out, 32, "%d%b%Y", p); }
size_t mmddyy10(char *out, const struct tm *p) { return strftime(out, 32, "%m/%d/%Y", p); }
size_t yymmdd10(char *out, const struct tm *p) { return strftime(out, 32, "%Y-%m-%d", p); }

// The routine itself, without resolution and dispatch.
void direct(benchmark::State &state, xf_routine routine, int32_t width, const std::vector<double> &values) {
  char out[32];
  double value = 0;
  xf_frame f{};
  f.width = width;
  f.input = &value;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  for (auto _ : state) {
    for (double v : values) {
      value = v;
      routine(&f);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(values.size()));
}

void through_strftime(benchmark::State &state, size_t (*pattern)(char *, const struct tm *)) {
  const auto &values = day_counts();
  char out[32];
  for (auto _ : state) {
    for (double v : values) {
      const auto t = static_cast<time_t>((static_cast<int64_t>(v) - epoch_shift_days) * 86400);
      struct tm parts;
      gmtime_r(&t, &parts);
      benchmark::DoNotOptimize(pattern(out, &parts));
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(values.size()));
}

void BM_date9_xffmt(benchmark::State &s) { through_xffmt(s, "DATE", 9, day_counts()); }
void BM_date9_strftime(benchmark::State &s) { through_strftime(s, date9); }
void BM_mmddyy10_xffmt(benchmark::State &s) { through_xffmt(s, "MMDDYY", 10, day_counts()); }
void BM_mmddyy10_strftime(benchmark::State &s) { through_strftime(s, mmddyy10); }
void BM_yymmdd10_xffmt(benchmark::State &s) { through_xffmt(s, "YYMMDD", 10, day_counts()); }
void BM_yymmdd10_strftime(benchmark::State &s) { through_strftime(s, yymmdd10); }
void BM_time8_xffmt(benchmark::State &s) { through_xffmt(s, "TIME", 8, times()); }
void BM_date9_direct(benchmark::State &s) { direct(s, zfmdate, 9, day_counts()); }
void BM_mmddyy10_direct(benchmark::State &s) { direct(s, zfmmdy, 10, day_counts()); }
void BM_time8_direct(benchmark::State &s) { direct(s, zfmtime, 8, times()); }

// DTDATE9. against DATE9. on the same days (times 86400 plus half a day for
// the datetime form): the date part costs a floor and a division more.
const std::vector<double> &noon_datetimes() {
  static const std::vector<double> v = [] {
    std::vector<double> out(day_counts());
    for (double &d : out) d = d * 86400.0 + 43200.0;
    return out;
  }();
  return v;
}
void BM_dtdate9_direct(benchmark::State &s) { direct(s, zfmdtdat, 9, noon_datetimes()); }
void BM_dtdate9_xffmt(benchmark::State &s) { through_xffmt(s, "DTDATE", 9, noon_datetimes()); }

void BM_time8_snprintf(benchmark::State &state) {
  const auto &values = times();
  char out[32];
  for (auto _ : state) {
    for (double v : values) {
      const auto t = static_cast<int32_t>(v);
      benchmark::DoNotOptimize(std::snprintf(out, sizeof out, "%d:%02d:%02d", t / 3600, t / 60 % 60, t % 60));
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(values.size()));
}

// Dates in words and the 12-hour datetime against strftime's nearest
// patterns (its %e pads the day with a blank where ours drops it).
size_t weekdate29(char *out, const struct tm *p) { return strftime(out, 32, "%A, %B %e, %Y", p); }
size_t worddate18(char *out, const struct tm *p) { return strftime(out, 32, "%B %e, %Y", p); }
void BM_weekdate29_direct(benchmark::State &s) { direct(s, zfmwkdt, 29, day_counts()); }
void BM_weekdate29_strftime(benchmark::State &s) { through_strftime(s, weekdate29); }
void BM_worddate18_direct(benchmark::State &s) { direct(s, zfmwrdt, 18, day_counts()); }
void BM_worddate18_strftime(benchmark::State &s) { through_strftime(s, worddate18); }

const std::vector<double> &datetimes() {
  static const std::vector<double> v = [] {
    std::mt19937_64 gen(1200);
    std::uniform_int_distribution<int64_t> pick(-21914LL * 86400, 51501LL * 86400);
    std::vector<double> out(value_count);
    for (double &d : out) d = static_cast<double>(pick(gen));
    return out;
  }();
  return v;
}

void BM_datetime19_xffmt(benchmark::State &s) { through_xffmt(s, "DATETIME", 19, datetimes()); }
void BM_dateampm21_direct(benchmark::State &s) { direct(s, zfmdtmm, 21, datetimes()); }
void BM_dateampm21_strftime(benchmark::State &state) {
  const auto &values = datetimes();
  // DATEAMPM21 has the four-digit year: 04JUL2023:12:34:56 PM.
  static const char *const pattern = "%d%b%Y:%I:%M:%S %p";
  char out[32];
  for (auto _ : state) {
    for (double v : values) {
      const auto t = static_cast<time_t>(static_cast<int64_t>(v) - epoch_shift_days * 86400);
      struct tm parts;
      gmtime_r(&t, &parts);
      benchmark::DoNotOptimize(strftime(out, sizeof out, pattern, &parts));
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(values.size()));
}

}  // namespace

BENCHMARK(BM_date9_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_date9_strftime)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_mmddyy10_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_mmddyy10_strftime)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_yymmdd10_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_yymmdd10_strftime)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_time8_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_time8_snprintf)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_date9_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_dtdate9_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_dtdate9_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_mmddyy10_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_time8_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_weekdate29_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_weekdate29_strftime)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_worddate18_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_worddate18_strftime)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_datetime19_xffmt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_dateampm21_direct)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_dateampm21_strftime)->Unit(benchmark::kMillisecond);
