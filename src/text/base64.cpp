// Base64 encoder and decoder with the standard alphabet and "=" padding.
#include "xfmt/xfmt.h"

#include <array>
#include <cstdint>
#include <cstring>

extern "C" {
const char base64tab[65] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
}

namespace {

// Two alphabet characters for each 12-bit value: the encoder's inner loop
// makes eight characters from six bytes with four lookups (8 KiB of table).
struct pair_table {
  char c[4096][2];
};
constexpr pair_table make_pairs() {
  constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  pair_table t{};
  for (unsigned v = 0; v < 4096; ++v) {
    t.c[v][0] = alphabet[v >> 6];
    t.c[v][1] = alphabet[v & 63];
  }
  return t;
}
constexpr pair_table pairs = make_pairs();

constexpr std::array<uint8_t, 256> make_index() {
  constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<uint8_t, 256> t{};
  for (auto &x : t) x = 255;
  for (unsigned i = 0; i < 64; ++i) t[static_cast<unsigned char>(alphabet[i])] = static_cast<uint8_t>(i);
  return t;
}
constexpr std::array<uint8_t, 256> index_table = make_index();

inline void put_pair(char *out, uint32_t v12) { std::memcpy(out, pairs.c[v12], 2); }

// Encodes whole groups of three bytes: groups x 3 bytes in, groups x 4 out.
void encode_groups(const uint8_t *in, uint32_t groups, char *out) {
  uint32_t g = 0;
  // Two groups at once from an eight-byte load (two bytes of it unused); the
  // load stays inside the input because a further group follows.
  for (; g + 3 <= groups; g += 2) {
    uint64_t w = 0;
    for (int i = 0; i < 8; ++i) w = (w << 8) | in[i];
    put_pair(out, static_cast<uint32_t>(w >> 52) & 0xFFF);
    put_pair(out + 2, static_cast<uint32_t>(w >> 40) & 0xFFF);
    put_pair(out + 4, static_cast<uint32_t>(w >> 28) & 0xFFF);
    put_pair(out + 6, static_cast<uint32_t>(w >> 16) & 0xFFF);
    in += 6;
    out += 8;
  }
  for (; g < groups; ++g) {
    const uint32_t v = uint32_t{in[0]} << 16 | uint32_t{in[1]} << 8 | in[2];
    put_pair(out, v >> 12);
    put_pair(out + 2, v & 0xFFF);
    in += 3;
    out += 4;
  }
}

// The last one or two bytes, padded with "=".
void encode_tail(const uint8_t *in, uint32_t rest, char *out) {
  const uint32_t b0 = in[0];
  const uint32_t b1 = rest == 2 ? in[1] : 0;
  out[0] = base64tab[b0 >> 2];
  out[1] = base64tab[(b0 & 3) << 4 | b1 >> 4];
  out[2] = rest == 2 ? base64tab[(b1 & 15) << 2] : '=';
  out[3] = '=';
}

constexpr uint32_t groups_per_line = 19;  // 19 x 4 = 76 characters

}  // namespace

extern "C" {
const uint8_t base64idx[256] = {
#define XF_I(n) index_table[n], index_table[n + 1], index_table[n + 2], index_table[n + 3], \
    index_table[n + 4], index_table[n + 5], index_table[n + 6], index_table[n + 7]
    XF_I(0),   XF_I(8),   XF_I(16),  XF_I(24),  XF_I(32),  XF_I(40),  XF_I(48),  XF_I(56),
    XF_I(64),  XF_I(72),  XF_I(80),  XF_I(88),  XF_I(96),  XF_I(104), XF_I(112), XF_I(120),
    XF_I(128), XF_I(136), XF_I(144), XF_I(152), XF_I(160), XF_I(168), XF_I(176), XF_I(184),
    XF_I(192), XF_I(200), XF_I(208), XF_I(216), XF_I(224), XF_I(232), XF_I(240), XF_I(248),
#undef XF_I
};
}

extern "C" int32_t encode_base64(const uint8_t *in, int32_t count, char *out, int32_t capacity,
                                 uint32_t *out_len, int32_t line_breaks) {
  if (in == nullptr || out == nullptr || out_len == nullptr || count < 0 || capacity < 0) return -1;
  const uint64_t size = (static_cast<uint64_t>(count) + 2) / 3 * 4;
  const uint64_t need = line_breaks ? size + size / 76 + 2 : size;
  if (static_cast<uint64_t>(capacity) < need) return -1;

  const uint32_t n = static_cast<uint32_t>(count);
  const uint32_t groups = n / 3;
  const uint32_t rest = n % 3;
  char *p = out;
  if (!line_breaks) {
    encode_groups(in, groups, p);
    p += 4 * groups;
  } else {
    // A line feed follows every 76 characters of whole groups, the last full
    // line included: 57 bytes give 76 characters, a line feed, and then the
    // final line feed below.
    uint32_t g = 0;
    for (; g + groups_per_line <= groups; g += groups_per_line) {
      encode_groups(in + 3 * g, groups_per_line, p);
      p += 4 * groups_per_line;
      *p++ = '\n';
    }
    encode_groups(in + 3 * g, groups - g, p);
    p += 4 * (groups - g);
  }
  if (rest) {
    encode_tail(in + 3 * groups, rest, p);
    p += 4;
  }
  if (line_breaks) {
    *p++ = '\n';
    *p = '\0';  // not counted
  }
  *out_len = static_cast<uint32_t>(p - out);
  return 0;
}

extern "C" int32_t decode_base64(const char *in, int32_t length, uint8_t *out, int32_t capacity,
                                 uint32_t *out_len) {
  if (in == nullptr || out == nullptr || out_len == nullptr) return -1;
  if (length < 1) {
    *out_len = 0;
    return 0;
  }
  const uint32_t len = static_cast<uint32_t>(length);
  const uint32_t cap = capacity < 0 ? 0u : static_cast<uint32_t>(capacity);
  uint32_t o = 0;
  uint32_t quad = 0;   // bits gathered, six per character
  uint32_t have = 0;   // characters in quad (0-3)
  bool stray = false;  // a character outside the alphabet was skipped
  for (uint32_t i = 0; i < len; ++i) {
    const uint8_t c = static_cast<uint8_t>(in[i]);
    const uint8_t v = base64idx[c];
    if (v == 255) {
      if (c == '=') break;
      if (c != '\r' && c != '\n' && c != ' ' && c != '\t') stray = true;
      continue;
    }
    quad = quad << 6 | v;
    if (++have < 4) continue;
    const uint8_t bytes[3] = {static_cast<uint8_t>(quad >> 16), static_cast<uint8_t>(quad >> 8),
                              static_cast<uint8_t>(quad)};
    for (uint8_t b : bytes) {
      if (o >= cap) {
        *out_len = o;
        return -3;
      }
      out[o++] = b;
    }
    quad = 0;
    have = 0;
  }
  // A final group of two or three characters carries one or two whole bytes;
  // a lone character carries six bits, less than a byte.
  if (have == 1) {
    *out_len = o;
    return -4;
  }
  if (have >= 2) {
    const uint32_t extra = have - 1;
    quad <<= 6 * (4 - have);
    for (uint32_t k = 0; k < extra; ++k) {
      if (o >= cap) {
        *out_len = o;
        return -3;
      }
      out[o++] = static_cast<uint8_t>(quad >> (16 - 8 * k));
    }
  }
  *out_len = o;
  return stray ? -2 : 0;
}
