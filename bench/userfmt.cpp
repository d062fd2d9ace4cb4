// User-defined formats: a lookup through xffmt in a format of 100,000
// sorted ranges against std::upper_bound over the same starts plus the label
// copy, the control-file reader at 10,000 and 100,000 rows, and a date
// picture whose template the reader compiled against the same picture
// compiling its template on each call.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "catalog/chain.hpp"
#include "userfmt/control_reader.hpp"
#include "userfmt/records.hpp"
#include "xfmt/xfmt.h"

namespace {

constexpr int big = 100000;

// Ranges [10 i, 10 i + 10) with labels "L<i>", sorted: HLO "S" (bisection).
std::string control_text(int rows) {
  std::string s =
      "<?xml version=\"1.0\"?>\n<TABLE>\n<HEADER>\n";
  for (const char *c : {"FMTNAME", "START", "END", "LABEL", "MIN", "MAX", "DEFAULT", "FUZZ", "TYPE",
                        "SEXCL", "EEXCL", "HLO"})
    s.append("<COLUMN name=\"").append(c).append("\"/>\n");
  s += "</HEADER>\n";
  for (int i = 0; i < rows; ++i) {
    s += "<ROW><FMTNAME>BIG</FMTNAME><START>";
    s += std::to_string(i * 10);
    s += "</START><END>";
    s += std::to_string(i * 10 + 10);
    s += "</END><LABEL>L";
    s += std::to_string(i);
    s += "</LABEL><MIN>1</MIN><MAX>40</MAX><DEFAULT>8</DEFAULT><FUZZ>0</FUZZ><TYPE>N</TYPE>"
         "<SEXCL>N</SEXCL><EEXCL>Y</EEXCL><HLO>S</HLO></ROW>\n";
  }
  s += "</TABLE>\n";
  return s;
}

// One format of the control text, resolved; name: 32 bytes, blank padded.
// With plain_labels its date pictures lose the plans the reader compiled, as
// though a host had built them.
struct loaded {
  xf_ufmt_context ctx{};
  void *first = nullptr;
  void *handle = nullptr;
  loaded(const std::string &text, const char *name, bool plain_labels = false) {
    void *chain = nullptr;
    xfmalloc(&chain, 0);
    first = chain;
    if (xfmt::userfmt::read_control_buffer(text.data(), text.size(), 1, name, &ctx, &chain) != 0) return;
    if (plain_labels) {
      auto *h = static_cast<xf_user_format *>(ctx.control);
      for (uint32_t i = 0; i < h->range_count; ++i) {
        auto *p = static_cast<xf_picture_label *>(const_cast<void *>(
            xfmt::userfmt::entry_label(static_cast<void *const *>(ctx.word2)[i])));
        if (p->label_kind == XF_LABEL_PICTURE) std::memset(p->reserved, 0, sizeof p->reserved);
      }
    }
    xf_ufmt_context ready{};
    ready.control = ctx.control;
    ready.word2 = ctx.word2;
    size_t n = 32;
    while (n > 0 && name[n - 1] == ' ') --n;
    xfname2(name, static_cast<int32_t>(n), 0, nullptr, &handle, &ready);
  }
  ~loaded() {
    if (handle) xfdel(handle);
    xfmt::catalog::free_chain(first);
  }
};

std::vector<double> values(int n) {
  std::mt19937_64 g(42);
  std::uniform_real_distribution<double> d(0, big * 10.0);
  std::vector<double> v(static_cast<size_t>(n));
  for (double &x : v) x = d(g);
  return v;
}

// Each of 4096 values through xffmt in a field of w (at most 32).
void convert_each(benchmark::State &state, void *handle, const std::vector<double> &vs, int32_t w) {
  char out[32];
  xf_frame f{};
  f.width = w;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = static_cast<uint32_t>(w);
  size_t i = 0;
  for (auto _ : state) {
    f.input = &vs[i++ & 4095];
    benchmark::DoNotOptimize(xffmt(&f, handle));
    benchmark::DoNotOptimize(out);
  }
}

void BM_userfmt_lookup_xffmt(benchmark::State &state) {
  static loaded fmt(control_text(big), "BIG                             ");
  convert_each(state, fmt.handle, values(4096), 8);
}
BENCHMARK(BM_userfmt_lookup_xffmt);

void BM_userfmt_baseline_upper_bound(benchmark::State &state) {
  std::vector<double> starts(big);
  std::vector<std::string> labels(big);
  for (int i = 0; i < big; ++i) {
    starts[static_cast<size_t>(i)] = i * 10.0;
    labels[static_cast<size_t>(i)] = std::to_string(i).insert(0, 1, 'L');
  }
  std::vector<double> vs = values(4096);
  char out[8];
  size_t i = 0;
  for (auto _ : state) {
    double v = vs[i++ & 4095];
    auto it = std::upper_bound(starts.begin(), starts.end(), v);
    const std::string &l = labels[static_cast<size_t>(it - starts.begin() - 1)];
    size_t n = std::min(l.size(), sizeof out);
    std::memcpy(out, l.data(), n);
    std::memset(out + n, ' ', sizeof out - n);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(BM_userfmt_baseline_upper_bound);

void BM_userfmt_read_control(benchmark::State &state) {
  int rows = static_cast<int>(state.range(0));
  std::string text = control_text(rows);
  char name[33] = "BIG                             ";
  for (auto _ : state) {
    xf_ufmt_context ctx{};
    void *chain = nullptr;
    xfmalloc(&chain, 0);
    void *first = chain;
    benchmark::DoNotOptimize(xfmt::userfmt::read_control_buffer(text.data(), text.size(), 1, name, &ctx, &chain));
    xfmt::catalog::free_chain(first);
  }
  state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_userfmt_read_control)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// A DATETIME picture over the whole range, as a host prints time stamps.
std::string stamp_text() {
  std::string s = "<TABLE><HEADER>";
  const std::pair<const char *, const char *> cells[] = {
      {"FMTNAME", "STAMP"}, {"START", "LOW"}, {"END", "HIGH"}, {"LABEL", "%Y-%0m-%0d %0H:%0M:%0S"},
      {"MIN", "1"}, {"MAX", "40"}, {"DEFAULT", "19"}, {"FUZZ", "0"}, {"TYPE", "P"}, {"SEXCL", "N"},
      {"EEXCL", "N"}, {"HLO", "LH"}, {"PREFIX", ""}, {"MULT", "0"}, {"FILL", ""}, {"NOEDIT", "0"},
      {"DATATYPE", "DATETIME"}, {"LANGUAGE", "English"}, {"DECSEP", ""}, {"DIG3SEP", ""}};
  std::string row;
  for (const auto &[c, v] : cells) {
    s.append("<COLUMN name=\"").append(c).append("\"/>");
    row.append("<").append(c).append(">").append(v).append("</").append(c).append(">");
  }
  return s + "</HEADER><ROW>" + row + "</ROW></TABLE>";
}

std::vector<double> stamps() {
  std::mt19937_64 g(7);
  std::uniform_real_distribution<double> d(0, 2.2e9);  // 1960 to about 2030
  std::vector<double> vs(4096);
  for (double &x : vs) x = std::floor(d(g));
  return vs;
}

void stamp_picture(benchmark::State &state, bool plain_labels) {
  loaded fmt(stamp_text(), "STAMP                           ", plain_labels);
  convert_each(state, fmt.handle, stamps(), 19);
}
void BM_userfmt_date_picture_compiled(benchmark::State &state) { stamp_picture(state, false); }
void BM_userfmt_date_picture_per_call(benchmark::State &state) { stamp_picture(state, true); }
BENCHMARK(BM_userfmt_date_picture_compiled);
BENCHMARK(BM_userfmt_date_picture_per_call);

// The picture routine alone, without the look-up and the field around it.
void stamp_yfpict(benchmark::State &state, bool plain_labels) {
  loaded fmt(stamp_text(), "STAMP                           ", plain_labels);
  const void *label = xfmt::userfmt::entry_label(static_cast<void *const *>(fmt.ctx.word2)[0]);
  const std::vector<double> vs = stamps();
  char out[19];
  size_t i = 0;
  for (auto _ : state) {
    yfpict(19, out, label, 0, vs[i++ & 4095]);
    benchmark::DoNotOptimize(out);
  }
}
void BM_userfmt_date_yfpict_compiled(benchmark::State &state) { stamp_yfpict(state, false); }
void BM_userfmt_date_yfpict_per_call(benchmark::State &state) { stamp_yfpict(state, true); }
BENCHMARK(BM_userfmt_date_yfpict_compiled);
BENCHMARK(BM_userfmt_date_yfpict_per_call);

}  // namespace
