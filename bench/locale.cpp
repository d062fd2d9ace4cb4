// Locale lookups: LocnameToID and EncnameToID (one bucket probe) against a
// std::unordered_map<std::string, int> lookup of the same keys, and
// getZAVLocDB by id and through ZAV_LOCALE.
#include <benchmark/benchmark.h>

#include <cctype>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/platform.hpp"
#include "nls/locale_names.hpp"
#include "xfmt/xfmt.h"

namespace {

std::string lower(std::string s) {
  for (char &c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// The keys as a caller would pass them (lower case), in table order.
std::vector<std::string> locale_keys() {
  std::vector<std::string> v;
  for (const zav_locname_bucket &b : table)
    for (int32_t i = 0; i < b.count; ++i) v.push_back(lower(b.entries[i].key));
  return v;
}

std::vector<std::string> encoding_names() {
  std::vector<std::string> v;
  for (const zav_encname_bucket &b : etable)
    for (int32_t i = 0; i < b.count; ++i) v.push_back(lower(b.entries[i].name));
  return v;
}

void BM_LocnameToID(benchmark::State &state) {
  const auto keys = locale_keys();
  char buf[16];
  size_t k = 0;
  for (auto _ : state) {
    const std::string &key = keys[k];
    std::memcpy(buf, key.data(), 5);
    uint32_t id = 0;
    benchmark::DoNotOptimize(LocnameToID(buf, 5, &id));
    benchmark::DoNotOptimize(id);
    if (++k == keys.size()) k = 0;
  }
}
BENCHMARK(BM_LocnameToID);

// The same work with a hash map: upper-case into a std::string, then find.
void BM_LocnameUnorderedMap(benchmark::State &state) {
  const auto keys = locale_keys();
  std::unordered_map<std::string, int> map;
  for (const zav_locname_bucket &b : table)
    for (int32_t i = 0; i < b.count; ++i) map.emplace(b.entries[i].key, b.entries[i].id);
  size_t k = 0;
  for (auto _ : state) {
    std::string s = keys[k];
    for (char &c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    auto it = map.find(s);
    benchmark::DoNotOptimize(it == map.end() ? 0 : it->second);
    if (++k == keys.size()) k = 0;
  }
}
BENCHMARK(BM_LocnameUnorderedMap);

void BM_EncnameToID(benchmark::State &state) {
  const auto names = encoding_names();
  char buf[32];
  size_t k = 0;
  for (auto _ : state) {
    const std::string &n = names[k];
    std::memcpy(buf, n.data(), n.size());
    uint32_t id = 0;
    benchmark::DoNotOptimize(EncnameToID(buf, static_cast<int32_t>(n.size()), &id));
    benchmark::DoNotOptimize(id);
    if (++k == names.size()) k = 0;
  }
}
BENCHMARK(BM_EncnameToID);

void BM_EncnameUnorderedMap(benchmark::State &state) {
  const auto names = encoding_names();
  std::unordered_map<std::string, int> map;
  for (const zav_encname_bucket &b : etable)
    for (int32_t i = 0; i < b.count; ++i) map.emplace(b.entries[i].name, b.entries[i].id);
  size_t k = 0;
  for (auto _ : state) {
    std::string s = names[k];
    for (char &c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    auto it = map.find(s);
    benchmark::DoNotOptimize(it == map.end() ? 0 : it->second);
    if (++k == names.size()) k = 0;
  }
}
BENCHMARK(BM_EncnameUnorderedMap);

// A month name of a given record into the 160-byte buffer callers use.
void BM_getZAVLocDB_by_id(benchmark::State &state) {
  char buf[160];
  int id = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(getZAVLocDB(buf, 160, 71, id));
    benchmark::ClobberMemory();
    if (++id > 136) id = 1;
  }
}
BENCHMARK(BM_getZAVLocDB_by_id);

// Id 0: the record ZAV_LOCALE names, matched once per reading of the
// environment; zh_XX is a code near the end of the list.
void BM_getZAVLocDB_environment(benchmark::State &state) {
  setenv("ZAV_LOCALE", state.range(0) ? "zh_XX" : "en_US", 1);
  xfmt::platform::reload_environment();
  char buf[160];
  for (auto _ : state) {
    benchmark::DoNotOptimize(getZAVLocDB(buf, 160, 71, 0));
    benchmark::ClobberMemory();
  }
  unsetenv("ZAV_LOCALE");
  xfmt::platform::reload_environment();
}
BENCHMARK(BM_getZAVLocDB_environment)->Arg(0)->Arg(1);

}  // namespace
