// The terminal's encoding, Windows-1252, UTF-8 and UTF-16LE as the command
// meets them.
#include "terminal_text.hpp"

#include <langinfo.h>  // nl_langinfo: the codeset of the process locale

#include <cerrno>
#include <cstdio>

#include "text/codepage.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::cli {
namespace {

std::string lower(std::string s) {
  for (char &c : s)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return s;
}

bool names_utf8(const std::string &name) {
  std::string n = lower(name);
  return n == "utf-8" || n == "utf8";
}

std::string hex_byte(unsigned char b) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "0x%02X", b);
  return buf;
}

}  // namespace

std::unique_ptr<terminal_encoding> terminal_encoding::open(const std::string &name, std::string &error) {
  std::unique_ptr<terminal_encoding> t(new terminal_encoding);
  t->name_ = name;
  if (t->name_.empty()) {
    const char *cs = nl_langinfo(CODESET);
    t->name_ = cs != nullptr && *cs != '\0' ? cs : "UTF-8";
  }
  t->utf8_ = names_utf8(t->name_);
  if (t->utf8_) return t;
  t->from_ = iconv_open("UTF-32LE", t->name_.c_str());
  t->to_ = iconv_open(t->name_.c_str(), "UTF-32LE");
  if (t->from_ == reinterpret_cast<iconv_t>(-1) || t->to_ == reinterpret_cast<iconv_t>(-1)) {
    error = "no converter for the encoding '" + t->name_ + "'";
    return nullptr;
  }
  return t;
}

terminal_encoding::~terminal_encoding() {
  if (from_ != reinterpret_cast<iconv_t>(-1)) iconv_close(from_);
  if (to_ != reinterpret_cast<iconv_t>(-1)) iconv_close(to_);
}

bool terminal_encoding::decode(std::string_view bytes, std::u32string &out, std::string &error) const {
  out.clear();
  if (utf8_) {
    size_t bad = 0;
    if (utf8_decode(bytes, out, bad)) return true;
    error = "byte " + hex_byte(static_cast<unsigned char>(bytes[bad])) + " at position " + std::to_string(bad + 1) +
            " of " + quoted(bytes) + " is not UTF-8 (the terminal's encoding; see --encoding)";
    return false;
  }
  iconv(from_, nullptr, nullptr, nullptr, nullptr);
  char *in = const_cast<char *>(bytes.data());
  size_t in_left = bytes.size();
  char buf[1024];
  while (in_left > 0) {
    char *o = buf;
    size_t o_left = sizeof buf;
    size_t rc = iconv(from_, &in, &in_left, &o, &o_left);
    for (char *p = buf; p + 4 <= o; p += 4) {
      auto b = reinterpret_cast<const unsigned char *>(p);
      out += static_cast<char32_t>(uint32_t{b[0]} | uint32_t{b[1]} << 8 | uint32_t{b[2]} << 16 | uint32_t{b[3]} << 24);
    }
    if (rc == static_cast<size_t>(-1) && errno != E2BIG) {
      size_t at = bytes.size() - in_left;
      error = "byte " + hex_byte(static_cast<unsigned char>(bytes[at])) + " at position " + std::to_string(at + 1) +
              " of " + quoted(bytes) + " is not " + name_ + " text (the terminal's encoding; see --encoding)";
      return false;
    }
  }
  return true;
}

bool terminal_encoding::encode(std::u32string_view text, std::string &out, std::string &error) const {
  if (utf8_) {
    for (char32_t c : text) utf8_append(c, out);
    return true;
  }
  iconv(to_, nullptr, nullptr, nullptr, nullptr);
  // One character at a time, so that the one iconv refuses is known.
  for (char32_t c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
      continue;
    }
    unsigned char in4[4] = {static_cast<unsigned char>(c), static_cast<unsigned char>(c >> 8),
                            static_cast<unsigned char>(c >> 16), static_cast<unsigned char>(c >> 24)};
    char *in = reinterpret_cast<char *>(in4);
    size_t in_left = 4;
    char buf[16];
    char *o = buf;
    size_t o_left = sizeof buf;
    if (iconv(to_, &in, &in_left, &o, &o_left) == static_cast<size_t>(-1)) {
      error = "the character " + describe_character(c) + " cannot be written in " + name_ +
              " (the terminal's encoding; see --encoding)";
      return false;
    }
    out.append(buf, static_cast<size_t>(o - buf));
  }
  return true;
}

std::string describe_character(char32_t c) {
  char code[16];
  std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(c));
  if (c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF) return code;
  std::string s = "'";
  utf8_append(c, s);
  return s + "' (" + code + ")";
}

bool utf8_decode(std::string_view bytes, std::u32string &out, size_t &bad_at) {
  const auto *s = reinterpret_cast<const unsigned char *>(bytes.data());
  size_t n = bytes.size();
  for (size_t i = 0; i < n;) {
    unsigned char b = s[i];
    if (b < 0x80) {
      out += static_cast<char32_t>(b);
      ++i;
      continue;
    }
    size_t len = b >= 0xC2 && b <= 0xDF ? 2 : b >= 0xE0 && b <= 0xEF ? 3 : b >= 0xF0 && b <= 0xF4 ? 4 : 0;
    if (len == 0 || i + len > n) {
      bad_at = i;
      return false;
    }
    char32_t c = b & (0x7F >> len);
    for (size_t k = 1; k < len; ++k) {
      if ((s[i + k] & 0xC0) != 0x80) {
        bad_at = i + k;
        return false;
      }
      c = c << 6 | (s[i + k] & 0x3F);
    }
    // Overlong forms, surrogates and code points past U+10FFFF.
    if ((len == 3 && c < 0x800) || (len == 4 && (c < 0x10000 || c > 0x10FFFF)) || (c >= 0xD800 && c < 0xE000)) {
      bad_at = i;
      return false;
    }
    out += c;
    i += len;
  }
  return true;
}

void utf8_append(char32_t c, std::string &out) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

void windows_1252_decode(std::string_view bytes, std::u32string &out) {
  for (char b : bytes) out += static_cast<char32_t>(wlt1unic[static_cast<unsigned char>(b)]);
}

bool windows_1252_encode(std::u32string_view text, std::string &out, size_t &bad_at) {
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    int32_t b = c < 0x80 ? static_cast<int32_t>(c) : xfmt::text::codepage_byte(wlt1unic, c);
    if (b < 0) {
      bad_at = i;
      return false;
    }
    out += static_cast<char>(b);
  }
  return true;
}

void utf16le_decode(std::string_view bytes, std::u32string &out) {
  const auto *s = reinterpret_cast<const unsigned char *>(bytes.data());
  size_t units = bytes.size() / 2;
  for (size_t i = 0; i < units; ++i) {
    char32_t u = char32_t{s[2 * i]} | char32_t{s[2 * i + 1]} << 8;
    if (u >= 0xD800 && u < 0xDC00 && i + 1 < units) {
      char32_t v = char32_t{s[2 * i + 2]} | char32_t{s[2 * i + 3]} << 8;
      if (v >= 0xDC00 && v < 0xE000) {
        out += 0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00);
        ++i;
        continue;
      }
    }
    out += u;
  }
}

void utf16le_append(char32_t c, std::string &out) {
  auto unit = [&out](uint32_t u) {
    out += static_cast<char>(u & 0xFF);
    out += static_cast<char>(u >> 8);
  };
  if (c < 0x10000) {
    unit(c);
  } else {
    c -= 0x10000;
    unit(0xD800 + (c >> 10));
    unit(0xDC00 + (c & 0x3FF));
  }
}

std::string quoted(std::string_view text, size_t limit) {
  std::string out = "'";
  size_t chars = 0, i = 0;
  for (; i < text.size() && chars < limit; ++chars) {
    unsigned char b = static_cast<unsigned char>(text[i]);
    // Controls are shown escaped: a NUL or a line end would hide the rest.
    if (b < 0x20 || b == 0x7F) {
      static const char names[] = "0-------tn--r";
      char buf[8];
      if (b < sizeof names - 1 && names[b] != '-') std::snprintf(buf, sizeof buf, "\\%c", names[b]);
      else std::snprintf(buf, sizeof buf, "\\x%02X", b);
      out += buf;
      ++i;
      continue;
    }
    size_t len = 1;
    if (b >= 0x80) {
      // A whole UTF-8 character goes out as it is; any other high byte is
      // shown escaped, so that the message stays readable text.
      std::u32string one;
      size_t bad = 0;
      len = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
      if (len == 1 || i + len > text.size() || !utf8_decode(text.substr(i, len), one, bad)) {
        char buf[8];
        std::snprintf(buf, sizeof buf, "\\x%02X", b);
        out += buf;
        ++i;
        continue;
      }
    }
    out.append(text.substr(i, len));
    i += len;
  }
  out += '\'';
  if (i < text.size()) out += "... (" + std::to_string(text.size()) + " bytes)";
  return out;
}

}  // namespace xfmt::cli
