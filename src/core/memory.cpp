// Moving, filling and comparing byte areas. Negative lengths count as 0, so
// a caller's arithmetic slip never turns into a huge copy.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

namespace {

inline size_t count(int32_t n) { return n > 0 ? static_cast<size_t>(n) : 0; }
inline size_t smaller(int32_t a, int32_t b) { return count(a < b ? a : b); }

// Copy (or move) min(lengths) bytes, then blanks to the end of the target.
void move_padded(const void *source, int32_t source_length, void *target, int32_t target_length,
                 bool overlap) {
  if (target == nullptr) return;
  const size_t n = source == nullptr ? 0 : smaller(source_length, target_length);
  if (n) {
    if (overlap) std::memmove(target, source, n);
    else std::memcpy(target, source, n);
  }
  const size_t total = count(target_length);
  if (total > n) std::memset(static_cast<char *>(target) + n, ' ', total - n);
}

void fill(void *target, int32_t length, int32_t byte) {
  if (target != nullptr && length > 0) std::memset(target, byte & 0xFF, count(length));
}

int32_t all_equal(int32_t byte, const void *text, int32_t length) {
  const uint8_t *p = static_cast<const uint8_t *>(text);
  const uint8_t want = static_cast<uint8_t>(byte);
  for (int32_t i = 0; i < length; ++i)
    if (p[i] != want) return 0;
  return 1;
}

}  // namespace

extern "C" void wzstmov(const void *source, int32_t source_length, void *target, int32_t target_length) {
  move_padded(source, source_length, target, target_length, false);
}
extern "C" void vzmp(const void *source, int32_t source_length, void *target, int32_t target_length) {
  move_padded(source, source_length, target, target_length, true);
}
extern "C" void vzMP(const void *source, int32_t source_length, void *target, int32_t target_length) {
  move_padded(source, source_length, target, target_length, true);
}

extern "C" void vzmi(const void *source, void *target, int32_t length, int32_t limit) {
  const size_t n = smaller(length, limit);
  if (n && source != nullptr && target != nullptr) std::memcpy(target, source, n);
}
extern "C" void MBL_OPT(const void *source, void *target, int32_t length) {
  if (length > 0 && source != nullptr && target != nullptr) std::memcpy(target, source, count(length));
}
// memmove gives the result a copy through a temporary would, for overlapping
// areas too, without a temporary or a heap allocation for long areas.
extern "C" void vzni(const void *source, void *target, int32_t length, int32_t limit) {
  const size_t n = smaller(length, limit);
  if (n && source != nullptr && target != nullptr) std::memmove(target, source, n);
}
extern "C" void vznl(const void *source, void *target, int32_t length) {
  if (length > 0 && source != nullptr && target != nullptr) std::memmove(target, source, count(length));
}

extern "C" void vzzl(void *target, int32_t length, int32_t limit) {
  fill(target, static_cast<int32_t>(smaller(length, limit)), 0);
}
extern "C" void vzzi(void *target, int32_t length, int32_t limit) {
  fill(target, static_cast<int32_t>(smaller(length, limit)), 0);
}
extern "C" void vzfbl(int32_t byte, void *target, int32_t length) { fill(target, length, byte); }
extern "C" void vzftl(int32_t byte, void *target, int32_t length) { fill(target, length, byte); }
extern "C" void wzbfcl(int32_t byte, void *target, int32_t length) { fill(target, length, byte); }
extern "C" void vzBL(void *target, int32_t length) { fill(target, length, ' '); }
extern "C" void vzbtl(void *target, int32_t length) { fill(target, length, ' '); }

extern "C" int32_t vzabl(int32_t byte, const void *text, int32_t length) {
  return text == nullptr ? 1 : all_equal(byte, text, length);
}
extern "C" int32_t ATL(int32_t byte, const void *text, int32_t length) {
  return text == nullptr ? 1 : all_equal(byte, text, length);
}

extern "C" int32_t vzsntl(const void *text, int32_t length, int32_t byte) {
  if (text == nullptr) return -1;
  const uint8_t *p = static_cast<const uint8_t *>(text);
  const uint8_t want = static_cast<uint8_t>(byte);
  for (int32_t i = 0; i < length; ++i)
    if (p[i] != want) return i;
  return -1;
}
