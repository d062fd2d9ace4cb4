// Small string helpers: trimming, case, comparison, searching, translating
// and deleting bytes. Texts are pointer and signed length; positions count
// from 0 and "not found" is -1.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

#include "core/platform.hpp"  // toupper_table

namespace {

// A negative length means a NUL-terminated text.
int32_t measured(const char *text, int32_t length) {
  if (text == nullptr) return 0;
  if (length >= 0) return length;
  return static_cast<int32_t>(std::strlen(text));
}

inline uint8_t byte_at(const char *p, int32_t i) { return static_cast<uint8_t>(p[i]); }

// A 256-entry membership map of a set, built once per call.
struct byte_set {
  bool in[256] = {};
  byte_set(const char *set, int32_t n) {
    for (int32_t i = 0; i < n; ++i) in[byte_at(set, i)] = true;
  }
};

}  // namespace

extern "C" int32_t wzstrip(const char *text, int32_t length) {
  int32_t n = measured(text, length);
  while (n > 0 && text[n - 1] == ' ') --n;
  return n;
}

extern "C" void wzstrup(char *text, int32_t length) {
  const int32_t n = measured(text, length);
  const int32_t *upper = xfmt::platform::toupper_table();
  for (int32_t i = 0; i < n; ++i) text[i] = static_cast<char>(upper[byte_at(text, i)]);
}

extern "C" int32_t wzsteqn(const char *a, int32_t la, const char *b, int32_t lb) {
  if (la != lb) return 0;
  if (la <= 0) return 1;
  if (a == nullptr || b == nullptr) return a == b ? 1 : 0;
  const int32_t *upper = xfmt::platform::toupper_table();
  for (int32_t i = 0; i < la; ++i)
    if (upper[byte_at(a, i)] != upper[byte_at(b, i)]) return 0;
  return 1;
}

extern "C" int32_t wzstpos(const char *set, int32_t set_length, int32_t byte) {
  if (set == nullptr) return -1;
  const int32_t n = measured(set, set_length);
  const uint8_t want = static_cast<uint8_t>(byte);
  for (int32_t i = 0; i < n; ++i)
    if (byte_at(set, i) == want) return i;
  return -1;
}

extern "C" int32_t wzstver(const char *text, int32_t length, const char *set, int32_t set_length) {
  if (text == nullptr || length < 1) return -1;
  const byte_set s(set, set == nullptr ? 0 : set_length);
  for (int32_t i = 0; i < length; ++i)
    if (!s.in[byte_at(text, i)]) return i;
  return -1;
}

extern "C" int32_t wzstnot(const char *text, int32_t length, int32_t byte) {
  const char one = static_cast<char>(byte);
  return wzstver(text, length, &one, 1);
}

extern "C" int32_t STQX(const char *text, int32_t length, const char *set) {
  if (text == nullptr || set == nullptr || length < 1) return -1;
  const byte_set s(set, static_cast<int32_t>(std::strlen(set)));
  for (int32_t i = 0; i < length; ++i)
    if (s.in[byte_at(text, i)]) return i;
  return -1;
}

extern "C" int32_t STQXN(const char *text, int32_t length, const char *set) {
  return wzstver(text, length, set, set == nullptr ? 0 : static_cast<int32_t>(std::strlen(set)));
}

extern "C" int32_t wzstndx(const char *text, int32_t length, const char *pattern,
                           int32_t pattern_length) {
  if (pattern_length < 0 || length < 0 || pattern_length > length) return -1;
  if (pattern_length == 0) return 0;
  if (text == nullptr || pattern == nullptr) return -1;
  const void *hit = memmem(text, static_cast<size_t>(length), pattern, static_cast<size_t>(pattern_length));
  return hit == nullptr ? -1 : static_cast<int32_t>(static_cast<const char *>(hit) - text);
}

extern "C" void wzstrns(char *text, int32_t length, const char *to, const char *from,
                        int32_t from_length) {
  if (text == nullptr || to == nullptr || from == nullptr || from_length < 1) return;
  // Byte -> replacement, the first occurrence in from deciding.
  int16_t map[256];
  for (int i = 0; i < 256; ++i) map[i] = -1;
  for (int32_t k = from_length - 1; k >= 0; --k) map[byte_at(from, k)] = byte_at(to, k);
  for (int32_t i = 0; i < length; ++i) {
    const int16_t m = map[byte_at(text, i)];
    if (m >= 0) text[i] = static_cast<char>(m);
  }
}

extern "C" int32_t wzstdel(char *text, int32_t length, const char *set, int32_t set_length) {
  if (text == nullptr || length < 1) return 0;
  const byte_set s(set, set == nullptr ? 0 : set_length);
  int32_t kept = 0;
  for (int32_t i = 0; i < length; ++i)
    if (!s.in[byte_at(text, i)]) text[kept++] = text[i];
  return kept;
}

extern "C" const char *wztxlit(const char *literal) { return literal; }
