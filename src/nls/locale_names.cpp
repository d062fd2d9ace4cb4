// Locale codes and encoding names to ids: LocnameToID over the 79-bucket
// `table`, EncnameToID over the 122-bucket `etable`. Both upper-case the
// caller's text in place, hash it and probe one bucket; nothing is allocated.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>  // memcmp

#include "nls/locale_names.hpp"

#include "nls/locale_name_buckets.inc"  // Bkt<n>, eBkt<n>, table, etable

namespace xfmt::nls {
namespace {

constexpr uint32_t loc_bucket_count = 79;
constexpr uint32_t enc_bucket_count = 122;
constexpr uint32_t loc_not_found = 5;
constexpr uint32_t enc_not_found = 4;

// Only 'a'-'z' change: bytes above 0x7F (escapes, other code pages) stay as
// they are whatever the process locale says.
inline void upper_ascii(char *s, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i)
    if (s[i] >= 'a' && s[i] <= 'z') s[i] = static_cast<char>(s[i] - ('a' - 'A'));
}

inline uint32_t byte(const char *s, std::size_t i) { return static_cast<unsigned char>(s[i]); }

// The separator (position 2) is left out of the hash, so "EN_US" and "EN-US"
// land in the same bucket; the comparison then tells them apart.
inline uint32_t loc_hash(const char *s) {
  uint64_t h = byte(s, 0) + 12573u;
  h = h * 33u + byte(s, 1);
  h = h * 33u + byte(s, 3);
  h = h * 33u + byte(s, 4);
  return static_cast<uint32_t>(h % loc_bucket_count);
}

// First two and last three bytes, weighted: "UTF8" and "UTF-8" differ in
// c[n-3] and so land in different buckets.
inline uint32_t enc_hash(const char *s, std::size_t n) {
  uint32_t h = byte(s, 0) + 3u * byte(s, 1) + 5u * byte(s, n - 3) + 7u * byte(s, n - 2) +
               9u * byte(s, n - 1);
  return h % enc_bucket_count;
}

}  // namespace
}  // namespace xfmt::nls

extern "C" uint32_t LocnameToID(char *name, uint32_t length, uint32_t *id) {
  using namespace xfmt::nls;
  if (id != nullptr) *id = 0;
  if (name == nullptr || length != 5) return loc_not_found;
  upper_ascii(name, 5);
  const zav_locname_bucket &b = table[loc_hash(name)];
  for (int32_t i = 0; i < b.count; ++i) {
    if (std::memcmp(b.entries[i].key, name, 5) == 0) {
      if (id != nullptr) *id = b.entries[i].id;
      return 0;
    }
  }
  return loc_not_found;
}

extern "C" uint32_t EncnameToID(char *name, int32_t length, uint32_t *id) {
  using namespace xfmt::nls;
  if (id != nullptr) *id = 0;
  if (name == nullptr || length < 4) return enc_not_found;
  const auto n = static_cast<std::size_t>(length);
  upper_ascii(name, n);
  const zav_encname_bucket &b = etable[enc_hash(name, n)];
  for (int32_t i = 0; i < b.count; ++i) {
    const zav_encname_entry &e = b.entries[i];
    if (e.length == length && std::memcmp(e.name, name, n) == 0) {
      if (id != nullptr) *id = e.id;
      return 0;
    }
  }
  return enc_not_found;
}
