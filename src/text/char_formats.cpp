// The character formats that rework the bytes of a value: $QUOTE, $UPCASE,
// $REVERS, $REVERJ, $ASCII and $EBCDIC. Each reads at most input_length
// bytes, writes min(w, capacity) positions (the output length) and returns
// XF_E_CAPACITY when w is larger than the capacity, as $CHAR does.
#include "xfmt/xfmt.h"

#include <cstdint>
#include <cstring>

#include "core/field.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::text {
namespace {

struct char_field {
  const unsigned char *in;  // the value's bytes
  uint32_t in_len;          // bytes of the value that may be read
  unsigned char *out;
  uint32_t room;            // positions that may be written: min(w, capacity)
  uint32_t w;               // the width, 0 when w <= 0
};

char_field open_field(const xf_frame *f) {
  char_field c{};
  c.w = f->width > 0 ? static_cast<uint32_t>(f->width) : 0;
  c.room = c.w < f->output_capacity ? c.w : f->output_capacity;
  c.in = static_cast<const unsigned char *>(f->input);
  c.in_len = c.in != nullptr ? f->input_length : 0;
  c.out = static_cast<unsigned char *>(f->output);
  return c;
}

xf_status close_field(xf_frame *f, const char_field &c) {
  f->output_length = c.room;
  return c.w > f->output_capacity ? XF_E_CAPACITY : XF_OK;
}

// Bytes of the value without its trailing blanks.
uint32_t trimmed_length(const unsigned char *s, uint32_t n) {
  while (n > 0 && s[n - 1] == ' ') --n;
  return n;
}

// Copies the first min(in_len, room) bytes through a byte table and pads the
// rest of the field with the given blank.
xf_status mapped_copy(xf_frame *f, const uint8_t *table, unsigned char blank) {
  char_field c = open_field(f);
  uint32_t n = c.in_len < c.room ? c.in_len : c.room;
  for (uint32_t i = 0; i < n; ++i) c.out[i] = table[c.in[i]];
  if (c.room > n) std::memset(c.out + n, blank, c.room - n);
  return close_field(f, c);
}

// Upper case of a Windows-1252 letter, as users of $UPCASE expect: a-z, the
// accented letters 0xE0-0xFE (not the division sign 0xF7) to 0xC0-0xDE, and
// the four letters the code page keeps outside that block (s with caron, the
// oe ligature, z with caron, y with diaeresis: 0x9A 0x9C 0x9E 0xFF to 0x8A
// 0x8C 0x8E 0x9F).
// Sharp s and the micro sign have no capital in the code page and stay.
constexpr uint8_t upper_byte(uint8_t b) {
  if ((b >= 'a' && b <= 'z') || (b >= 0xE0 && b <= 0xFE && b != 0xF7)) return static_cast<uint8_t>(b - 0x20);
  if (b == 0x9A || b == 0x9C || b == 0x9E) return static_cast<uint8_t>(b - 0x10);
  if (b == 0xFF) return 0x9F;
  return b;
}

struct byte_table {
  uint8_t v[256];
};
constexpr byte_table make_upper() {
  byte_table t{};
  for (int i = 0; i < 256; ++i) t.v[i] = upper_byte(static_cast<uint8_t>(i));
  return t;
}
constexpr byte_table upper_table = make_upper();

constexpr byte_table make_identity() {
  byte_table t{};
  for (int i = 0; i < 256; ++i) t.v[i] = static_cast<uint8_t>(i);
  return t;
}
constexpr byte_table identity_table = make_identity();

}  // namespace
}  // namespace xfmt::text

using namespace xfmt::text;

// $QUOTE w: the value without trailing blanks between double quotes, each
// inner '"' doubled: abc -> "abc", say "hi" -> "say ""hi""". When the quoted
// text is longer than w the content is cut, never the closing quote, and a
// doubled quote is never split: $QUOTE6 of abcdefg -> "abcd". A width of 1
// has room for no pair of quotes: one '*', XF_E_OVERFLOW.
XF_ROUTINE(zfmquote, f) {
  char_field c = open_field(f);
  if (c.w == 0) return close_field(f, c);
  if (c.w < 2) return xfmt::fail_stars(f, f->width, XF_E_OVERFLOW);
  uint32_t n = trimmed_length(c.in, c.in_len);
  uint32_t limit = c.w - 1;  // positions before the closing quote
  uint32_t pos = 1;          // next position of the quoted text
  uint32_t i = 0;
  // Walks the value in the w-wide field, writing only what the room allows.
  auto put = [&](uint32_t at, unsigned char b) {
    if (at < c.room) c.out[at] = b;
  };
  put(0, '"');
  for (; i < n; ++i) {
    uint32_t need = c.in[i] == '"' ? 2u : 1u;
    if (pos + need > limit) break;
    put(pos++, c.in[i]);
    if (need == 2) put(pos++, '"');
  }
  put(pos++, '"');
  if (c.room > pos) std::memset(c.out + pos, ' ', c.room - pos);
  return close_field(f, c);
}

// $UPCASE w: the value with its Windows-1252 letters in upper case, other
// bytes as they are, left-aligned and cut at w like $CHAR.
XF_ROUTINE(zfmupcase, f) { return mapped_copy(f, upper_table.v, ' '); }

// $REVERS w: the first w bytes of the value (blank padded to w) in reverse
// order, left-aligned: the blanks that ended the value would lead the
// reversed text and are moved to its end. "abc  " -> "cba  ".
XF_ROUTINE(zfmrevers, f) {
  char_field c = open_field(f);
  uint32_t n = c.in_len < c.w ? c.in_len : c.w;
  n = trimmed_length(c.in, n);
  uint32_t k = n < c.room ? n : c.room;  // reversed bytes that fit the room
  for (uint32_t i = 0; i < k; ++i) c.out[i] = c.in[n - 1 - i];
  if (c.room > k) std::memset(c.out + k, ' ', c.room - k);
  return close_field(f, c);
}

// $REVERJ w: the first w bytes of the value, blank padded to w, reversed as
// they stand: "abc  " -> "  cba". Position j of the field holds byte w-1-j.
XF_ROUTINE(zfmreverj, f) {
  char_field c = open_field(f);
  for (uint32_t j = 0; j < c.room; ++j) {
    uint32_t src = c.w - 1 - j;
    c.out[j] = src < c.in_len ? c.in[src] : ' ';
  }
  return close_field(f, c);
}

// $ASCII w: the value in ASCII. Character values on this platform are
// already ASCII (Latin-1), so the bytes are written as they stand, blank
// (0x20) padded; reading them as EBCDIC would scramble every host's text.
// Data that really is EBCDIC goes through eb2as (wztxetoa) first.
XF_ROUTINE(zfmascii, f) { return mapped_copy(f, identity_table.v, ' '); }

// $EBCDIC w: the value's ASCII bytes written as EBCDIC (as2eb), padded with
// the EBCDIC blank 0x40.
XF_ROUTINE(zfmebcdic, f) { return mapped_copy(f, as2eb, 0x40); }
