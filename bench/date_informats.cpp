// Date and time informats against the standard C readers on the same texts:
// @DATE (zifmdate) versus strptime("%d%b%Y") and timegm, @MMDDYY (zifmmdy)
// versus sscanf("%d/%d/%d") and the calendar's day count, @TIME (zifmtime)
// versus sscanf("%d:%d:%lf"), and @ENGDFDE against @DATE on the same texts.
// 100000 fields of random days and times.
// Report: ns per field; the ratio is baseline time over informat time.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "datetime/calendar.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::datetime::days_from_ymd;

struct fields {
  std::vector<std::string> name_dates, slash_dates, times;
};

const fields &sample() {
  static const fields f = [] {
    fields s;
    std::mt19937_64 g(20261121);
    static const char *const abbr[12] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                         "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    char buf[32];
    for (int i = 0; i < 100000; ++i) {
      const int y = 1900 + static_cast<int>(g() % 200), m = 1 + static_cast<int>(g() % 12);
      const int d = 1 + static_cast<int>(g() % 28);
      std::snprintf(buf, sizeof buf, "%02d%s%04d", d, abbr[m - 1], y);
      s.name_dates.emplace_back(buf);
      std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", m, d, y);
      s.slash_dates.emplace_back(buf);
      std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", static_cast<int>(g() % 24),
                    static_cast<int>(g() % 60), static_cast<int>(g() % 60));
      s.times.emplace_back(buf);
    }
    return s;
  }();
  return f;
}

void run(benchmark::State &state, xf_routine routine, const std::vector<std::string> &texts) {
  double out = 0;
  xf_frame f{};
  f.output = &out;
  f.output_capacity = 8;
  for (auto _ : state) {
    double sum = 0;
    for (const std::string &t : texts) {
      f.width = static_cast<int32_t>(t.size());
      f.input = t.data();
      f.input_length = static_cast<uint32_t>(t.size());
      routine(&f);
      sum += out;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(texts.size()));
}

void BM_informat_DATE(benchmark::State &state) { run(state, zifmdate, sample().name_dates); }
void BM_informat_MMDDYY(benchmark::State &state) { run(state, zifmmdy, sample().slash_dates); }
void BM_informat_TIME(benchmark::State &state) { run(state, zifmtime, sample().times); }
// @ENGDFDE on the same "04JUL2023" texts as @DATE: month names from the
// en_GB locale record instead of a fixed table.
void BM_informat_ENGDFDE(benchmark::State &state) { run(state, zifmengde, sample().name_dates); }

void BM_strptime_DATE(benchmark::State &state) {
  for (auto _ : state) {
    double sum = 0;
    for (const std::string &t : sample().name_dates) {
      std::tm tm{};
      if (strptime(t.c_str(), "%d%b%Y", &tm) == nullptr) continue;
      sum += static_cast<double>(timegm(&tm) / 86400);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sample().name_dates.size()));
}

void BM_sscanf_MMDDYY(benchmark::State &state) {
  for (auto _ : state) {
    double sum = 0;
    for (const std::string &t : sample().slash_dates) {
      int m = 0, d = 0, y = 0;
      if (std::sscanf(t.c_str(), "%d/%d/%d", &m, &d, &y) != 3) continue;
      sum += static_cast<double>(days_from_ymd(y, m, d));
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sample().slash_dates.size()));
}

void BM_sscanf_TIME(benchmark::State &state) {
  for (auto _ : state) {
    double sum = 0;
    for (const std::string &t : sample().times) {
      int h = 0, m = 0;
      double s = 0;
      if (std::sscanf(t.c_str(), "%d:%d:%lf", &h, &m, &s) != 3) continue;
      sum += h * 3600.0 + m * 60.0 + s;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sample().times.size()));
}

}  // namespace

BENCHMARK(BM_informat_DATE);
BENCHMARK(BM_informat_ENGDFDE);
BENCHMARK(BM_strptime_DATE);
BENCHMARK(BM_informat_MMDDYY);
BENCHMARK(BM_sscanf_MMDDYY);
BENCHMARK(BM_informat_TIME);
BENCHMARK(BM_sscanf_TIME);
