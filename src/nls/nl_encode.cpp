// Encoding of national text: escapes to UTF-16, then the process codeset.
// ASCII text and a UTF-8 codeset need no iconv at all; other codesets keep one
// descriptor per thread, reopened only when the process codeset changes. The
// codeset and iconv come through the platform funnel.
#include "xfmt/xfmt.h"

#include "nls/nl_encode.hpp"


#include <cstring>

#include "core/platform.hpp"

namespace xfmt::nls {
namespace {

constexpr size_t unit_room = 1024;

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// "<U20AC>" (either case of U and of the digits) at t; -1 when not an escape.
long escape_at(const char *t, size_t left) {
  if (left < 7 || t[0] != '<' || (t[1] != 'U' && t[1] != 'u') || t[6] != '>') return -1;
  long v = 0;
  for (int i = 2; i < 6; ++i) {
    int d = hex_digit(t[i]);
    if (d < 0) return -1;
    v = v * 16 + d;
  }
  return v;
}

size_t utf8_put(char16_t u, char *o) {
  if (u < 0x80) {
    o[0] = static_cast<char>(u);
    return 1;
  }
  if (u < 0x800) {
    o[0] = static_cast<char>(0xC0 | (u >> 6));
    o[1] = static_cast<char>(0x80 | (u & 0x3F));
    return 2;
  }
  o[0] = static_cast<char>(0xE0 | (u >> 12));
  o[1] = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
  o[2] = static_cast<char>(0x80 | (u & 0x3F));
  return 3;
}

// One descriptor UTF-8 -> process codeset per thread, closed at thread exit.
struct thread_converter {
  char codeset[64] = {};
  bool tried = false;     // an open was attempted for codeset
  void *cd = nullptr;     // nullptr: no converter for codeset

  ~thread_converter() { platform::iconv_end(cd); }
  bool open_for(const char *cs) {
    if (tried && std::strcmp(codeset, cs) == 0) {
      if (cd != nullptr) platform::iconv_reset(cd);  // back to the initial shift state
      return cd != nullptr;
    }
    platform::iconv_end(cd);
    const size_t n = strnlen(cs, sizeof codeset - 1);
    std::memcpy(codeset, cs, n);
    codeset[n] = '\0';
    cd = platform::iconv_begin(cs, "UTF-8");
    tried = true;
    return cd != nullptr;
  }
  // Converts UTF-8 bytes; returns the output count or -1 on any failure.
  long run(const char *in, size_t n, char *out, size_t room) {
    platform::iconv_reset(cd);
    const char *ip = in;
    char *op = out;
    size_t il = n, ol = room;
    if (!platform::iconv_step(cd, &ip, &il, &op, &ol)) return -1;
    if (!platform::iconv_flush(cd, &op, &ol)) return -1;
    return static_cast<long>(op - out);
  }
};

thread_local thread_converter converter;

// Units to the process codeset, character by character, so that the text
// can then be cut at any character: lens[i] gets the bytes of unit i. A
// character the codeset cannot represent becomes "?"; a codeset without a
// converter keeps ASCII and turns the rest into "?".
size_t to_codeset(const platform::environment_snapshot &e, const char16_t *u, size_t n, char *out,
                  size_t room, uint8_t *lens) {
  const bool utf8 = e.codeset_utf8;
  const bool have = !utf8 && converter.open_for(e.codeset);
  size_t o = 0;
  for (size_t i = 0; i < n; ++i) {
    char one[3];
    const size_t ol = utf8_put(u[i], one);
    long got = -1;
    if (u[i] < 0x80 || utf8) {
      if (o + ol <= room) std::memcpy(out + o, one, ol);
      got = static_cast<long>(ol);
    } else if (have && o < room) {
      got = converter.run(one, ol, out + o, room - o);
    }
    if (got < 0 || got > 16) {
      if (o < room) out[o] = '?';
      got = 1;
    }
    lens[i] = static_cast<uint8_t>(got);
    o += static_cast<size_t>(got);
  }
  return o;
}

}  // namespace

size_t decode_narrow(const char *t, size_t len, char16_t *units, size_t room) {
  size_t n = 0;
  for (size_t i = 0; i < len && n < room;) {
    long e = escape_at(t + i, len - i);
    char16_t u;
    if (e >= 0) {
      u = static_cast<char16_t>(e);
      i += 7;
    } else {
      u = static_cast<unsigned char>(t[i]);
      ++i;
    }
    units[n++] = u == 0x00A4 ? currency_marker : u;
  }
  return n;
}

int encode_text(bool utf16, const char *text, size_t length, int32_t width, char *out,
                uint32_t capacity, uint32_t *out_length) {
  *out_length = 0;
  size_t w = width > 0 ? static_cast<size_t>(width) : 0;
  if (!utf16) {
    // Plain ASCII without escapes reaches every ASCII-based codeset as it is.
    bool plain = length <= unit_room;
    for (size_t i = 0; plain && i < length; ++i)
      plain = static_cast<unsigned char>(text[i]) < 0x80 && text[i] != '<';
    if (plain) {
      size_t len = length > w ? w : length;
      if (len > capacity) return encode_no_room;
      if (len > 0) std::memcpy(out, text, len);
      *out_length = static_cast<uint32_t>(len);
      return length > w ? encode_shortened : static_cast<int>(len) - static_cast<int>(w);
    }
  }
  char16_t u[unit_room];
  size_t n = decode_narrow(text, length, u, unit_room);

  if (utf16) {
    bool cut = n > w;
    if (cut) n = w;
    if (2 * n > capacity) return encode_no_room;
    for (size_t i = 0; i < n; ++i) {
      out[2 * i] = static_cast<char>(u[i] & 0xFF);
      out[2 * i + 1] = static_cast<char>(u[i] >> 8);
    }
    *out_length = static_cast<uint32_t>(2 * n);
    return cut ? encode_shortened : static_cast<int>(n) - static_cast<int>(w);
  }

  bool ascii = true;
  for (size_t i = 0; i < n; ++i) ascii = ascii && u[i] < 0x80;
  char bytes[unit_room * 4];
  size_t len = n;
  size_t keep = n;  // characters kept
  if (ascii) {
    for (size_t i = 0; i < n; ++i) bytes[i] = static_cast<char>(u[i]);
    if (len > w) keep = len = w;
  } else {
    uint8_t lens[unit_room];
    len = to_codeset(platform::environment(), u, n, bytes, sizeof bytes, lens);
    if (len > sizeof bytes) return encode_unconvertible;
    while (len > w && keep > 0) len -= lens[--keep];
  }
  const bool cut = keep < n;
  if (len > capacity) return encode_no_room;
  if (len > 0) std::memcpy(out, bytes, len);
  *out_length = static_cast<uint32_t>(len);
  return cut ? encode_shortened : static_cast<int>(len) - static_cast<int>(w);
}

bool representable(bool utf16, std::string_view text) {
  if (utf16) return true;
  char16_t u[unit_room];
  size_t n = decode_narrow(text.data(), text.size(), u, unit_room);
  bool ascii = true;
  for (size_t i = 0; i < n; ++i) ascii = ascii && u[i] < 0x80;
  if (ascii) return true;
  const platform::environment_snapshot &e = platform::environment();
  if (e.codeset_utf8) return true;
  char utf8[unit_room * 3];
  size_t k = 0;
  for (size_t i = 0; i < n; ++i) k += utf8_put(u[i], utf8 + k);
  char out[unit_room * 4];
  return converter.open_for(e.codeset) && converter.run(utf8, k, out, sizeof out) >= 0;
}

void place_encoded_right(xf_frame *f, const char *text, uint32_t bytes, int32_t w, bool utf16) {
  char *out = static_cast<char *>(f->output);
  const uint32_t unit = utf16 ? 2 : 1;
  const uint32_t field = static_cast<uint32_t>(w) * unit;
  if (utf16) {
    for (uint32_t i = 0; i < field; i += 2) {
      out[i] = ' ';
      out[i + 1] = '\0';
    }
  } else {
    std::memset(out, ' ', field - bytes);
  }
  std::memcpy(out + field - bytes, text, bytes);
  f->output_length = field;
  f->output_encoding = utf16 ? XF_ENC_UTF16LE : XF_ENC_SINGLE_BYTE;
}

}  // namespace xfmt::nls

extern "C" int getExpResultFromNarrowCharBuf(const xf_frame *frame, char *text, int32_t *length,
                                             int32_t width, uint32_t capacity) {
  if (text == nullptr || length == nullptr || *length < 0) return xfmt::nls::encode_unconvertible;
  bool utf16 = frame != nullptr && (frame->requested_output_encoding == XF_ENC_UTF16LE ||
                                    frame->output_encoding == XF_ENC_UTF16LE);
  char out[4096];
  uint32_t room = capacity < sizeof out ? capacity : static_cast<uint32_t>(sizeof out);
  uint32_t n = 0;
  int r = xfmt::nls::encode_text(utf16, text, static_cast<size_t>(*length), width, out, room, &n);
  if (r == xfmt::nls::encode_no_room || r == xfmt::nls::encode_unconvertible) return r;
  std::memcpy(text, out, n);
  *length = static_cast<int32_t>(n);
  return r;
}
