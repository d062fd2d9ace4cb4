// Spelled, special and reworked-character formats against the standard
// alternative in the same run: NUMX, SSN, PVALUE and SIZEKMG against
// snprintf (and the replacement or choice of unit it needs), WORDS against
// a std::string recursion, $UPCASE against std::toupper, $REVERJ against
// std::reverse_copy. Each iteration converts the same 100000 values with
// direct routine calls.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

constexpr size_t value_count = 100000;

const std::vector<double> &values(int kind) {
  static std::vector<double> sets[4];
  std::vector<double> &v = sets[kind];
  if (v.empty()) {
    std::mt19937_64 g(20261121 + static_cast<unsigned>(kind));
    v.resize(value_count);
    for (double &x : v) {
      switch (kind) {
        case 0: x = static_cast<double>(g() % 100000000) / 100.0; break;               // amounts
        case 1: x = static_cast<double>(g() % 1000000000); break;                      // nine digits
        case 2: x = std::pow(10.0, -6.0 * static_cast<double>(g() % 1000000) / 1e6); break;  // p-values
        default: x = std::pow(2.0, 50.0 * static_cast<double>(g() % 1000000) / 1e6); break;   // byte counts
      }
    }
  }
  return v;
}

void run_routine(benchmark::State &state, xf_routine routine, int kind, int32_t w, int32_t d) {
  const auto &vals = values(kind);
  char out[128];
  xf_frame f{};
  f.width = w;
  f.decimals = d;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = sizeof out;
  for (auto _ : state) {
    for (double v : vals) {
      f.input = &v;
      routine(&f);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(vals.size()));
}

void BM_numx_xfmt(benchmark::State &s) { run_routine(s, zfmnumx, 0, 12, 2); }
void BM_numx_snprintf(benchmark::State &s) {
  const auto &vals = values(0);
  char out[64];
  for (auto _ : s) {
    for (double v : vals) {
      std::snprintf(out, sizeof out, "%12.2f", v);
      if (char *p = std::strchr(out, '.')) *p = ',';
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * static_cast<int64_t>(vals.size()));
}

void BM_ssn_xfmt(benchmark::State &s) { run_routine(s, zfmssn, 1, 11, 0); }
void BM_ssn_snprintf(benchmark::State &s) {
  const auto &vals = values(1);
  char out[64];
  for (auto _ : s) {
    for (double v : vals) {
      auto n = static_cast<long long>(v);
      std::snprintf(out, sizeof out, "%03lld-%02lld-%04lld", n / 1000000, n / 10000 % 100, n % 10000);
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * static_cast<int64_t>(vals.size()));
}

void BM_pvalue_xfmt(benchmark::State &s) { run_routine(s, zfmpval, 2, 6, 4); }
void BM_pvalue_snprintf(benchmark::State &s) {
  const auto &vals = values(2);
  char out[64];
  for (auto _ : s) {
    for (double v : vals) {
      if (v < 1e-4) std::memcpy(out, "<.0001", 7);
      else std::snprintf(out, sizeof out, "%6.4f", v);
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * static_cast<int64_t>(vals.size()));
}

void BM_sizekmg_xfmt(benchmark::State &s) { run_routine(s, zfmsizekmg, 3, 9, 2); }
void BM_sizekmg_snprintf(benchmark::State &s) {
  const auto &vals = values(3);
  char out[64];
  const char *units[] = {"KB", "MB", "GB", "TB"};
  for (auto _ : s) {
    for (double v : vals) {
      int u = 0;
      double x = v / 1024.0;
      while (u < 3 && std::fabs(x) >= 1024.0) {
        x /= 1024.0;
        ++u;
      }
      std::snprintf(out, sizeof out, "%7.2f%s", x, units[u]);
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * static_cast<int64_t>(vals.size()));
}

const char *const small_words[] = {"zero", "one", "two", "three", "four", "five", "six", "seven", "eight", "nine",
                                   "ten", "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen",
                                   "seventeen", "eighteen", "nineteen"};
const char *const tens_words[] = {"", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty",
                                  "ninety"};
std::string hundreds(long long n) {
  if (n < 20) return small_words[n];
  if (n < 100) return std::string(tens_words[n / 10]) + (n % 10 ? std::string("-") + small_words[n % 10] : "");
  return std::string(small_words[n / 100]) + " hundred" + (n % 100 ? " " + hundreds(n % 100) : "");
}
std::string words(long long n) {
  if (n >= 1000000) return hundreds(n / 1000000) + " million" + (n % 1000000 ? " " + words(n % 1000000) : "");
  if (n >= 1000) return hundreds(n / 1000) + " thousand" + (n % 1000 ? " " + words(n % 1000) : "");
  return hundreds(n);
}

void BM_words_xfmt(benchmark::State &s) { run_routine(s, zfmwords, 0, 120, 0); }
void BM_words_string(benchmark::State &s) {
  const auto &vals = values(0);
  for (auto _ : s) {
    for (double v : vals) {
      long long c = std::llround(v * 100.0);
      std::string t = words(c / 100);
      if (c % 100) t += " and " + hundreds(c % 100) + " hundredths";
      benchmark::DoNotOptimize(t.data());
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * static_cast<int64_t>(vals.size()));
}

const std::string &sample_text() {
  static const std::string t = "The quick brown fox jumps over the lazy dog 0123456789   ";
  return t;
}
void run_text(benchmark::State &s, xf_routine routine) {
  const std::string &t = sample_text();
  char out[128];
  xf_frame f{};
  f.width = static_cast<int32_t>(t.size());
  f.input = t.data();
  f.input_length = static_cast<uint32_t>(t.size());
  f.output = out;
  f.output_capacity = sizeof out;
  for (auto _ : s) {
    for (int i = 0; i < 1000; ++i) {
      routine(&f);
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * 1000);
}
void BM_upcase_xfmt(benchmark::State &s) { run_text(s, zfmupcase); }
void BM_upcase_toupper(benchmark::State &s) {
  const std::string &t = sample_text();
  char out[128];
  for (auto _ : s) {
    for (int i = 0; i < 1000; ++i) {
      for (size_t k = 0; k < t.size(); ++k) out[k] = static_cast<char>(std::toupper(static_cast<unsigned char>(t[k])));
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * 1000);
}
void BM_reverj_xfmt(benchmark::State &s) { run_text(s, zfmreverj); }
void BM_reverj_reverse_copy(benchmark::State &s) {
  const std::string &t = sample_text();
  char out[128];
  for (auto _ : s) {
    for (int i = 0; i < 1000; ++i) {
      std::reverse_copy(t.begin(), t.end(), out);
      benchmark::DoNotOptimize(out);
    }
  }
  s.SetItemsProcessed(static_cast<int64_t>(s.iterations()) * 1000);
}

}  // namespace

BENCHMARK(BM_numx_xfmt);
BENCHMARK(BM_numx_snprintf);
BENCHMARK(BM_ssn_xfmt);
BENCHMARK(BM_ssn_snprintf);
BENCHMARK(BM_pvalue_xfmt);
BENCHMARK(BM_pvalue_snprintf);
BENCHMARK(BM_sizekmg_xfmt);
BENCHMARK(BM_sizekmg_snprintf);
BENCHMARK(BM_words_xfmt);
BENCHMARK(BM_words_string);
BENCHMARK(BM_upcase_xfmt);
BENCHMARK(BM_upcase_toupper);
BENCHMARK(BM_reverj_xfmt);
BENCHMARK(BM_reverj_reverse_copy);
