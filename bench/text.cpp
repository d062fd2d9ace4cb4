// Text conversions against the standard alternatives, in the same run:
//   encode_base64 vs OpenSSL's EVP_EncodeBlock on 1 MiB of random bytes;
//   UTF8ToUNICODE / UNICODEToUTF8 vs iconv UTF-8 <-> UTF-16LE on the same
//   mixed text (mostly ASCII words, some Latin-1, Greek and CJK characters).
// Compare bytes_per_second of each pair; the ratios are the result.
#include <benchmark/benchmark.h>

#include <iconv.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#if defined(XFMT_BENCH_OPENSSL)
#include <openssl/evp.h>
#endif

#include "xfmt/xfmt.h"

namespace {

const std::vector<uint8_t> &random_mib() {
  static const std::vector<uint8_t> data = [] {
    std::vector<uint8_t> d(1 << 20);
    std::mt19937_64 g(42);
    for (auto &b : d) b = static_cast<uint8_t>(g());
    return d;
  }();
  return data;
}

// About 1 MiB of UTF-8: random words, five of the eight ASCII, the others
// with Latin-1, Greek and CJK characters.
const std::string &mixed_utf8() {
  static const std::string text = [] {
    const char *words[] = {"conversion ", "value ", "format ", "r\xC3\xA9sum\xC3\xA9 ", "data ",
                           "\xCE\xB1\xCE\xB2\xCE\xB3 ", "width ", "\xE4\xB8\xAD\xE6\x96\x87 "};
    std::string t;
    std::mt19937 g(7);
    while (t.size() < (1u << 20)) t += words[g() % 8];
    return t;
  }();
  return text;
}

const std::vector<uint16_t> &mixed_utf16() {
  static const std::vector<uint16_t> units = [] {
    const std::string &s = mixed_utf8();
    std::vector<uint16_t> u(s.size());
    uint32_t chars = 0, bytes = 0;
    UTF8ToUNICODE(reinterpret_cast<const uint8_t *>(s.data()), static_cast<uint32_t>(s.size()), u.data(),
                  static_cast<uint32_t>(u.size() * 2), &chars, &bytes);
    u.resize(chars);
    return u;
  }();
  return units;
}

void BM_base64_encode_xfmt(benchmark::State &state) {
  const auto &in = random_mib();
  std::vector<char> out(in.size() / 3 * 4 + 8);
  for (auto _ : state) {
    uint32_t len = 0;
    encode_base64(in.data(), static_cast<int32_t>(in.size()), out.data(), static_cast<int32_t>(out.size()), &len, 0);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.size()));
}
BENCHMARK(BM_base64_encode_xfmt);

#if defined(XFMT_BENCH_OPENSSL)
void BM_base64_encode_openssl(benchmark::State &state) {
  const auto &in = random_mib();
  std::vector<unsigned char> out(in.size() / 3 * 4 + 8);
  for (auto _ : state) {
    benchmark::DoNotOptimize(EVP_EncodeBlock(out.data(), in.data(), static_cast<int>(in.size())));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.size()));
}
BENCHMARK(BM_base64_encode_openssl);
#endif

void BM_utf8_to_utf16_xfmt(benchmark::State &state) {
  const std::string &in = mixed_utf8();
  std::vector<uint16_t> out(in.size());
  for (auto _ : state) {
    uint32_t chars = 0, bytes = 0;
    UTF8ToUNICODE(reinterpret_cast<const uint8_t *>(in.data()), static_cast<uint32_t>(in.size()), out.data(),
                  static_cast<uint32_t>(out.size() * 2), &chars, &bytes);
    benchmark::DoNotOptimize(chars);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.size()));
}
BENCHMARK(BM_utf8_to_utf16_xfmt);

void BM_utf8_to_utf16_iconv(benchmark::State &state) {
  const std::string &in = mixed_utf8();
  std::vector<char> out(in.size() * 2);
  iconv_t cd = iconv_open("UTF-16LE", "UTF-8");
  for (auto _ : state) {
    char *src = const_cast<char *>(in.data());
    size_t left = in.size(), room = out.size();
    char *dst = out.data();
    iconv(cd, &src, &left, &dst, &room);
    benchmark::DoNotOptimize(room);
    benchmark::ClobberMemory();
  }
  iconv_close(cd);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.size()));
}
BENCHMARK(BM_utf8_to_utf16_iconv);

void BM_utf16_to_utf8_xfmt(benchmark::State &state) {
  const auto &in = mixed_utf16();
  std::vector<uint8_t> out(in.size() * 3);
  for (auto _ : state) {
    uint32_t chars = 0, bytes = 0;
    UNICODEToUTF8(in.data(), static_cast<uint32_t>(in.size() * 2), out.data(), static_cast<uint32_t>(out.size()),
                  &chars, &bytes);
    benchmark::DoNotOptimize(bytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(mixed_utf8().size()));
}
BENCHMARK(BM_utf16_to_utf8_xfmt);

void BM_utf16_to_utf8_iconv(benchmark::State &state) {
  const auto &in = mixed_utf16();
  std::vector<char> out(in.size() * 3);
  iconv_t cd = iconv_open("UTF-8", "UTF-16LE");
  for (auto _ : state) {
    char *src = reinterpret_cast<char *>(const_cast<uint16_t *>(in.data()));
    size_t left = in.size() * 2, room = out.size();
    char *dst = out.data();
    iconv(cd, &src, &left, &dst, &room);
    benchmark::DoNotOptimize(room);
    benchmark::ClobberMemory();
  }
  iconv_close(cd);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(mixed_utf8().size()));
}
BENCHMARK(BM_utf16_to_utf8_iconv);

}  // namespace

// The bidirectional formats on a 40-character line of Latin and Hebrew
// (46 bytes of UTF-8), through xffmt as a host calls them, against $CHAR
// (the plain copy of the same field) in the same run.
namespace {

const char bidi_line[] = "Order 1234 from \xD7\xAA\xD7\x9C \xD7\x90\xD7\x91\xD7\x99\xD7\x91 (by air) to Rome";

void bidi_field(benchmark::State &state, const char *name, const char *text) {
  void *h = nullptr;
  if (xfname(name, static_cast<int32_t>(std::strlen(name)), 0, nullptr, &h) != 0) {
    state.SkipWithError("name not resolved");
    return;
  }
  char out[64];
  const uint32_t n = static_cast<uint32_t>(std::strlen(text));
  for (auto _ : state) {
    xf_frame f{};
    f.width = 46;
    f.input = text;
    f.input_length = n;
    f.output = out;
    f.output_capacity = sizeof out;
    benchmark::DoNotOptimize(xffmt(&f, h));
    benchmark::DoNotOptimize(out);
  }
  xfdel(h);
}

void BM_logvs_mixed_40_chars(benchmark::State &state) { bidi_field(state, "$LOGVS", bidi_line); }
BENCHMARK(BM_logvs_mixed_40_chars);
void BM_logvsr_mixed_40_chars(benchmark::State &state) { bidi_field(state, "$LOGVSR", bidi_line); }
BENCHMARK(BM_logvsr_mixed_40_chars);
void BM_vslog_mixed_40_chars(benchmark::State &state) { bidi_field(state, "$VSLOG", bidi_line); }
BENCHMARK(BM_vslog_mixed_40_chars);
void BM_bidi_mixed_40_chars(benchmark::State &state) { bidi_field(state, "$BIDI", bidi_line); }
BENCHMARK(BM_bidi_mixed_40_chars);
void BM_char_mixed_40_chars(benchmark::State &state) { bidi_field(state, "$CHAR", bidi_line); }
BENCHMARK(BM_char_mixed_40_chars);

}  // namespace
