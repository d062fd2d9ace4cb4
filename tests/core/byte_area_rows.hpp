// Calls of the byte-area helpers (strings, moves, fills, comparisons) as
// rows of a tab-separated file under tests/data/core:
//
//   helper  area  at  other  n  m  returns  area after
//
// The helper gets p, the area's bytes from offset `at` ("-": a null
// pointer); s, the bytes of `other` ("@k": the area's own bytes from offset
// k, for overlapping moves; "-": a null pointer); and the numbers n and m.
// What it returns is compared unless the row says "-", and the whole area
// afterwards with `area after` ("=": unchanged). The area lives in a heap
// block of its exact size plus a NUL, so a byte written past it shows under
// AddressSanitizer. Fields take the escapes of support/rows.hpp; a field in
// double quotes is the text between them, so its blanks show.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "support/rows.hpp"

namespace xfmt::test {

struct byte_call {
  char *p;
  const char *s;
  int32_t n, m;
  // The byte argument of the fills and searches: the first byte of s.
  int32_t byte() const { return s != nullptr ? static_cast<unsigned char>(s[0]) : 0; }
};

// A helper that answers (ask) or one that changes the area (act).
struct byte_helper {
  const char *name;
  int32_t (*ask)(const byte_call &);
  void (*act)(const byte_call &);
};

inline std::string area_field(const std::string &field) {
  const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
  return unescaped(quoted ? field.substr(1, field.size() - 2) : field);
}

template <size_t N>
void run_byte_area_rows(const std::string &file, const byte_helper (&helpers)[N]) {
  for (const auto &r : tab_rows(file)) {
    ASSERT_EQ(r.size(), 9u) << r[0];
    const byte_helper *h = nullptr;
    for (const byte_helper &k : helpers)
      if (r[1] == k.name) h = &k;
    ASSERT_NE(h, nullptr) << r[0] << ": no helper " << r[1];
    ASSERT_EQ(h->ask != nullptr, r[7] != "-") << r[0] << ": " << r[1] << " returns nothing or something";
    const std::string area = area_field(r[2]), other = area_field(r[4]);
    const auto block = std::make_unique<char[]>(area.size() + 1);
    area.copy(block.get(), area.size());
    byte_call c{};
    c.p = r[2] == "-" ? nullptr : block.get() + int_of(r[3]);
    if (r[4] == "-") c.s = nullptr;
    else if (r[4][0] == '@') c.s = block.get() + int_of(r[4].substr(1));
    else c.s = other.c_str();
    c.n = static_cast<int32_t>(int_of(r[5]));
    c.m = static_cast<int32_t>(int_of(r[6]));
    if (h->ask != nullptr) {
      EXPECT_EQ(h->ask(c), int_of(r[7])) << r[0];
    } else {
      h->act(c);
    }
    const std::string after(block.get(), area.size());
    EXPECT_EQ(after, r[8] == "=" ? area : area_field(r[8])) << r[0];
  }
}

}  // namespace xfmt::test
