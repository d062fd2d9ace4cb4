// The one text and digit writer every conversion builds its output with.
//
// bounded_text appends into a caller's buffer and never stores a byte past
// its room; what does not fit is still counted, so a caller sizes a field by
// writing it once (length() is what the whole text needs) and detects
// overflow afterwards (overflowed()), with no check at every step.
//
// The raw writers below it (put2, put4, put_digits, put_unsigned) are for
// fixed layouts whose room is already checked: they write exactly where they
// are told. Digits come two at a time from one pair table; no heap, no
// exceptions, no printf, no locale.
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace xfmt::core {

// "00" "01" ... "99": two digits per table look-up.
struct digit_pair_table {
  char c[200];
};
constexpr digit_pair_table make_digit_pairs() {
  digit_pair_table t{};
  for (int i = 0; i < 100; ++i) {
    t.c[2 * i] = static_cast<char>('0' + i / 10);
    t.c[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return t;
}
inline constexpr digit_pair_table digit_pairs = make_digit_pairs();

// 10^i for i = 0..19, the powers a 64-bit value can reach.
struct pow10_u64_table {
  uint64_t v[20];
};
constexpr pow10_u64_table make_pow10_u64() {
  pow10_u64_table t{};
  uint64_t p = 1;
  for (int i = 0; i < 20; ++i, p *= 10) t.v[i] = p;
  return t;
}
inline constexpr pow10_u64_table powers_of_ten = make_pow10_u64();

// Number of decimal digits of v (1 for 0).
constexpr int digit_count(uint64_t v) {
  // Hours, days and months first: without the table's load on their path.
  if (v < 100) return v < 10 ? 1 : 2;
  // The bit length gives the digit count to within one: 1233/4096 ~ log10(2).
  const int bits = 64 - std::countl_zero(v | 1);
  int t = (bits * 1233) >> 12;
  t += v >= powers_of_ten.v[t] ? 1 : 0;
  return t > 0 ? t : 1;
}

// The two digits of v (0..99) at out.
template <std::integral T>
inline void put2(char *out, T v) {
  std::memcpy(out, digit_pairs.c + 2 * static_cast<size_t>(v), 2);
}

// The four digits of v (0..9999) at out, with leading zeros.
template <std::integral T>
inline void put4(char *out, T v) {
  const auto u = static_cast<uint32_t>(v);
  put2(out, u / 100);
  put2(out + 2, u % 100);
}

// Exactly count digits (0 <= count <= 20) ending just before end: the last
// count digits of v, with leading zeros. Returns what is left of v above
// them (v / 10^count), which a caller splitting a number gets for free.
inline uint64_t put_digits(char *end, uint64_t v, int count) {
  while (count >= 2) {
    const uint64_t q = v / 100;
    std::memcpy(end - 2, digit_pairs.c + 2 * (v - q * 100), 2);
    v = q;
    end -= 2;
    count -= 2;
  }
  if (count == 1) {
    end[-1] = static_cast<char>('0' + v % 10);
    v /= 10;
  }
  return v;
}

// v with as many digits as it needs at p; returns the end.
inline char *put_unsigned(char *p, uint64_t v) {
  const int n = digit_count(v);
  put_digits(p + n, v, n);
  return p + n;
}

// n blanks at p (0 <= n <= 64) in a few wide stores: no call into memset,
// whose start-up cost dominates at these lengths.
inline void put_blanks(char *p, int n) {
  const uint64_t blanks = 0x2020202020202020ull;
  if (n >= 8) {
    // Straight-line stores (a loop here is turned back into a memset call);
    // the last one, at n - 8, overlaps whatever the others left.
    std::memcpy(p, &blanks, 8);
    if (n > 16) {
      std::memcpy(p + 8, &blanks, 8);
      if (n > 24) std::memcpy(p + 16, &blanks, 8);
      if (n > 32) {
        std::memcpy(p + 24, &blanks, 8);
        if (n > 40) std::memcpy(p + 32, &blanks, 8);
        if (n > 48) std::memcpy(p + 40, &blanks, 8);
        if (n > 56) std::memcpy(p + 48, &blanks, 8);
      }
    }
    std::memcpy(p + n - 8, &blanks, 8);
    return;
  }
  int i = 0;
  if (n & 4) {
    std::memcpy(p, &blanks, 4);
    i = 4;
  }
  if (n & 2) {
    std::memcpy(p + i, &blanks, 2);
    i += 2;
  }
  if (n & 1) p[i] = ' ';
}

// Text appended to a buffer of `room` bytes. Bytes past the room are dropped
// but counted: length() is what the text needs, written() what was stored.
struct bounded_text {
  char *p;
  size_t room;
  size_t n = 0;

  constexpr bounded_text(char *out, size_t capacity) : p(out), room(capacity) {}
  template <size_t N>
  constexpr explicit bounded_text(char (&buffer)[N]) : p(buffer), room(N) {}

  constexpr size_t length() const { return n; }
  constexpr size_t written() const { return n < room ? n : room; }
  constexpr bool overflowed() const { return n > room; }
  constexpr size_t left() const { return n < room ? room - n : 0; }
  constexpr std::string_view view() const { return {p, written()}; }
  constexpr void clear() { n = 0; }

  void put(const char *s, size_t len) {
    if (len <= left()) {
      if (len != 0) std::memcpy(p + n, s, len);
    } else if (n < room) {
      std::memcpy(p + n, s, room - n);
    }
    n += len;
  }
  void put(std::string_view s) { put(s.data(), s.size()); }
  void put_char(char c) {
    if (n < room) p[n] = c;
    ++n;
  }
  // k copies of c (a run of blanks); past the room only the count grows.
  void put_repeat(char c, size_t k) {
    const size_t m = k < left() ? k : left();
    if (m != 0) std::memset(p + n, c, m);
    n += k;
  }
  // Counts k bytes without writing them.
  constexpr void skip(size_t k) { n += k; }

  template <std::integral T>
  void put2(T v) {
    if (n + 2 <= room) {
      core::put2(p + n, v);
      n += 2;
    } else {
      put(digit_pairs.c + 2 * static_cast<size_t>(v), 2);
    }
  }
  template <std::integral T>
  void put4(T v) {
    const auto u = static_cast<uint32_t>(v);
    put2(u / 100);
    put2(u % 100);
  }

  // Exactly width digits: the last width digits of v. Leading zeros become
  // fill (a blank, say), all but the last digit.
  void put_unsigned(uint64_t v, int width, char fill = '0') {
    if (width <= 0) return;
    if (width > 20) {  // a 64-bit value has at most 20 digits: the rest lead
      put_repeat(fill, static_cast<size_t>(width - 20));
      width = 20;
    }
    const auto k = static_cast<size_t>(width);
    // In place when it fits (the usual case), else through a scratch copy.
    char scratch[20];
    char *d = k <= left() ? p + n : scratch;
    put_digits(d + k, v, width);
    if (fill != '0')
      for (size_t i = 0; i + 1 < k && d[i] == '0'; ++i) d[i] = fill;
    if (d == scratch)
      put(scratch, k);
    else
      n += k;
  }
  // v with as many digits as it needs.
  void put_unsigned(uint64_t v) {
    const int k = digit_count(v);
    if (static_cast<size_t>(k) <= left()) [[likely]] {
      put_digits(p + n + static_cast<size_t>(k), v, k);
      n += static_cast<size_t>(k);
      return;
    }
    put_unsigned(v, k);
  }
  // v with a minus sign when negative.
  void put_signed(int64_t v) {
    if (v < 0) {
      put_char('-');
      put_unsigned(0 - static_cast<uint64_t>(v));
    } else {
      put_unsigned(static_cast<uint64_t>(v));
    }
  }
  // A fixed-point decimal: whole, then point and exactly `places` digits of
  // frac (the last `places` digits, zero padded) when places > 0.
  void put_decimal(uint64_t whole, uint64_t frac, int places, char point = '.') {
    put_unsigned(whole);
    if (places > 0) {
      put_char(point);
      put_unsigned(frac, places);
    }
  }
};

}  // namespace xfmt::core
