// Whole-text conversions between UTF-16 units and UTF-8 (the single calls,
// Latin-1 ones too, are in tests/data/text/conversions.txt).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "oracle/text_oracle.hpp"
#include "support/random.hpp"
#include "text/utf16_kernels.hpp"
#include "xfmt/xfmt.h"

namespace {

// Each unit alone through exact-size buffers: 3 bytes of UTF-8, one unit back.
TEST(unicode_utf8, every_bmp_unit_round_trips) {
  for (uint32_t u = 0; u <= 0xFFFF; ++u) {
    const uint16_t unit = static_cast<uint16_t>(u);
    uint8_t bytes[3];
    uint16_t back[1];
    uint32_t chars = 0, n = 0, written = 0;
    ASSERT_EQ(UNICODEToUTF8(&unit, 2, bytes, 3, &chars, &n), 0u) << u;
    ASSERT_EQ(UTF8ToUNICODE(bytes, n, back, 2, &chars, &written), 0u) << u;
    ASSERT_EQ(chars, 1u) << u;
    ASSERT_EQ(back[0], unit) << u;
  }
}

// Both block loops (portable and SSSE3; the exported routines are one of
// them) against the oracle, on texts from empty to long enough to reach
// the blocks: runs of ASCII, two-, three- and four-byte characters with a
// broken sequence now and then, or raw bytes.
std::string long_mixed_utf8(std::mt19937_64 &g) {
  std::string s;
  if (g() % 4 == 0) {
    s.resize(g() % 300);
    for (auto &ch : s) ch = static_cast<char>(g() % 3 ? g() % 0x80 : g() % 256);
    return s;
  }
  const size_t target = g() % 400;
  while (s.size() < target) {
    const uint32_t run = 1 + static_cast<uint32_t>(g() % 20);
    const uint32_t kind = static_cast<uint32_t>(g() % 5);
    for (uint32_t k = 0; k < run; ++k) {
      const uint64_t r = g();
      const uint32_t cp = static_cast<uint32_t>(kind == 0 ? 0x20 + r % 0x5F : kind == 1 ? 0x80 + r % 0x780 : kind == 2 ? 0x800 + r % 0xF000 : kind == 3 ? 0x10000 + r % 0x1000 : r % 0x800);
      uint8_t buf[4];
      uint32_t n = 0;
      UTF32_UTF8(cp, buf, 4, &n);
      s.append(reinterpret_cast<const char *>(buf), n);
    }
    if (g() % 8 == 0) s += static_cast<char>(g() % 2 ? 0x80 + g() % 0x40 : 0xC0 + g() % 0x40);
  }
  return s;
}

TEST(utf16_block_loops, both_loops_match_the_oracle_from_utf8) {
  auto g = xfmt::test::rng(73);
  const uint64_t cases = xfmt::test::scaled(3000);
  for (uint64_t c = 0; c < cases; ++c) {
    const std::string s = long_mixed_utf8(g);
    const uint32_t cap_bytes = static_cast<uint32_t>(c % 4 == 0 ? g() % (2 * s.size() + 2) : 2 * s.size() + 64);
    const auto slow = xfmt::oracle::utf8_to_unicode(s, cap_bytes / 2);
    for (bool wide : {false, true}) {
      if (wide && !xfmt::text::have_ssse3()) continue;
      std::vector<uint16_t> out(cap_bytes / 2 + 1);
      uint32_t chars = 0, bytes = 0;
      const uint32_t r = xfmt::text::utf8_to_units(reinterpret_cast<const uint8_t *>(s.data()),
                                                   static_cast<uint32_t>(s.size()), out.data(), cap_bytes, &chars,
                                                   &bytes, wide);
      ASSERT_EQ(r, slow.result) << "case " << c << " wide " << wide;
      ASSERT_EQ(std::vector<uint16_t>(out.begin(), out.begin() + chars), slow.units) << "case " << c << " wide " << wide;
    }
  }
}

TEST(utf16_block_loops, both_loops_match_the_oracle_to_utf8) {
  auto g = xfmt::test::rng(74);
  const uint64_t cases = xfmt::test::scaled(3000);
  for (uint64_t c = 0; c < cases; ++c) {
    std::vector<uint16_t> u;
    const size_t target = g() % 300;
    while (u.size() < target) {
      const uint32_t run = 1 + static_cast<uint32_t>(g() % 12);
      const uint32_t kind = static_cast<uint32_t>(g() % 4);
      for (uint32_t k = 0; k < run; ++k)
        u.push_back(static_cast<uint16_t>(kind == 0 ? g() % 0x80 : kind == 1 ? g() % 0x800 : kind == 2 ? g() : 0x7F + g() % 3));
    }
    const uint32_t cap = static_cast<uint32_t>(c % 4 == 0 ? g() % (3 * u.size() + 2) : 3 * u.size() + 32);
    const auto slow = xfmt::oracle::unicode_to_utf8(u, cap);
    for (bool wide : {false, true}) {
      if (wide && !xfmt::text::have_ssse3()) continue;
      std::vector<uint8_t> out(cap + 1);
      uint32_t chars = 0, bytes = 0;
      const uint32_t r = xfmt::text::units_to_utf8(u.data(), static_cast<uint32_t>(2 * u.size()), out.data(), cap,
                                                   &chars, &bytes, wide);
      ASSERT_EQ(r, slow.result) << "case " << c << " wide " << wide;
      ASSERT_EQ(chars, slow.chars);
      ASSERT_EQ(std::string(reinterpret_cast<const char *>(out.data()), bytes), slow.bytes)
          << "case " << c << " wide " << wide;
    }
  }
}

}  // namespace
