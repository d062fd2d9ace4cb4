// getZAVLocDB and the internal accessor: choose a record (by id, or through
// ZAV_LOCALE) and read one field of it. ZAV_LOCALE comes from the platform
// funnel, read once; the record it names is found once per reading.
#include "xfmt/xfmt.h"

#include <atomic>
#include <cstdint>
#include <cstring>  // memcpy, memset

#include "core/platform.hpp"
#include "nls/locale.hpp"

namespace xfmt::nls {

// Language and country codes of record k-1, lower case, packed as
// c0 | c1 << 8 | c3 << 16 | c4 << 24 (generated with the records).
extern const uint32_t locale_codes[136];

namespace {

inline uint32_t lower_ascii(char c) {
  auto u = static_cast<unsigned char>(c);
  return (u >= 'A' && u <= 'Z') ? u + ('a' - 'A') : u;
}

// Positions 0-1 name the language and 3-4 the country; position 2 is any
// separator ("de_CH", "de-CH", "DExCH" all mean German_Switzerland) and what
// follows position 4 (".UTF-8", "@euro") is ignored. A text shorter than five
// characters matches nothing (its NUL never equals a letter of a code).
int match_environment(const char *env) {
  for (int i = 0; i < 5; ++i)
    if (env[i] == '\0') return 0;
  const uint32_t want = lower_ascii(env[0]) | lower_ascii(env[1]) << 8 | lower_ascii(env[3]) << 16 |
                        lower_ascii(env[4]) << 24;
  for (int k = 0; k < locale_count; ++k)
    if (locale_codes[k] == want) return k + 1;
  return 0;
}

// The record of the process locale, with the generation of the environment
// snapshot it was matched from: generation << 32 | id. Generation 0 is none
// yet. Threads that race on the first value match the same text and store
// the same word.
std::atomic<uint64_t> process_locale{0};

int process_locale_id() {
  const xfmt::platform::environment_snapshot &env = xfmt::platform::environment();
  const uint64_t seen = process_locale.load(std::memory_order_relaxed);
  if (seen >> 32 == env.generation) return static_cast<int>(seen & 0xFFFFFFFFu);
  const int id = match_environment(env.zav_locale_set ? env.zav_locale : "en_US");
  process_locale.store(uint64_t{env.generation} << 32 | static_cast<uint32_t>(id),
                       std::memory_order_relaxed);
  return id;
}

}  // namespace

int resolve_locale_id(int id) {
  if (id >= 1 && id <= locale_count) return id;
  return process_locale_id();
}


bool locale_field_ok(int id, int field) {
  return id >= 1 && id <= locale_count && field >= 0 && field < locale_field_count;
}

std::string_view locale_field(int id, int field) {
  if (!locale_field_ok(id, field)) return {};
  const zav_locale_field &f = ZAVlocaleData[id - 1][field];
  if (f.length == 0) return {};
  return {f.text, f.length};
}

}  // namespace xfmt::nls

extern "C" int getZAVLocDB(char *dest, int capacity, int field, int locale_id) {
  using namespace xfmt::nls;
  if (dest == nullptr) capacity = 0;
  if (capacity > 0) std::memset(dest, 0, static_cast<std::size_t>(capacity));
  const int id = resolve_locale_id(locale_id);
  // Callers pass fields 0-188; anything else is refused rather than read
  // from a neighbouring record.
  if (!locale_field_ok(id, field)) return -1;
  const zav_locale_field &f = ZAVlocaleData[id - 1][field];
  // A negative capacity holds nothing, not even an empty field.
  if (capacity < 0 || f.length > static_cast<uint32_t>(capacity)) return -1;
  if (f.length > 0) std::memcpy(dest, f.text, f.length);
  return static_cast<int>(f.length);
}
