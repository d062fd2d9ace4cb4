// Literal transcriptions of the text conversions (see text_oracle.hpp).
#include "oracle/text_oracle.hpp"

namespace xfmt::oracle {

utf16_result utf8_to_unicode(const std::string &src, uint32_t capacity_units) {
  utf16_result r;
  std::size_t pos = 0;
  while (pos < src.size()) {
    unsigned lead = static_cast<unsigned char>(src[pos]);
    std::size_t trail = 0;
    if (lead >= 0xFC) trail = 5;
    else if (lead >= 0xF8) trail = 4;
    else if (lead >= 0xF0) trail = 3;
    else if (lead >= 0xE0) trail = 2;
    else if (lead >= 0xC0) trail = 1;
    if (r.units.size() >= capacity_units) { r.result = 2; break; }
    if (pos + trail >= src.size()) { r.result = 1; break; }
    static const unsigned masks[6] = {0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};
    unsigned long value = 0;
    for (std::size_t k = 0; k <= trail; ++k) {
      unsigned b = static_cast<unsigned char>(src[pos + k]);
      std::size_t still_expected = trail - k;
      if (b >= 0x80 && b <= 0xBF) value = (value << 6) | (b % 64);
      else value = (value << 6) | (b & masks[still_expected]);  // may overlap the bits above
    }
    r.units.push_back(static_cast<uint16_t>(value % 65536));
    pos += trail + 1;
  }
  return r;
}

utf8_result unicode_to_utf8(const std::vector<uint16_t> &src, uint32_t capacity) {
  utf8_result r;
  for (uint16_t u : src) {
    std::string piece;
    if (u < 0x80) {
      piece += static_cast<char>(u);
    } else if (u < 0x800) {
      piece += static_cast<char>(0xC0 + u / 64);
      piece += static_cast<char>(0x80 + u % 64);
    } else {
      piece += static_cast<char>(0xE0 + u / 4096);
      piece += static_cast<char>(0x80 + (u / 64) % 64);
      piece += static_cast<char>(0x80 + u % 64);
    }
    if (r.bytes.size() + piece.size() > capacity) { r.result = 2; break; }
    r.bytes += piece;
    ++r.chars;
  }
  return r;
}

static const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string base64_encode(const std::string &bytes, bool line_breaks) {
  // Bit by bit: append the 8 bits of every byte, cut into 6-bit pieces.
  std::string bits;
  for (char c : bytes)
    for (int i = 7; i >= 0; --i) bits += ((static_cast<unsigned char>(c) >> i) & 1) ? '1' : '0';
  while (bits.size() % 6) bits += '0';
  std::string chars;
  for (std::size_t i = 0; i < bits.size(); i += 6) chars += alphabet[std::stoi(bits.substr(i, 6), nullptr, 2)];
  while (chars.size() % 4) chars += '=';
  if (!line_breaks) return chars;
  std::string out;
  std::size_t whole = bytes.size() / 3 * 4;  // characters of whole groups: breaks only among them
  for (std::size_t i = 0; i < chars.size(); ++i) {
    out += chars[i];
    if (i < whole && (i + 1) % 76 == 0) out += '\n';
  }
  return out + '\n';
}

std::string base64_decode(const std::string &text) {
  std::string bits;
  for (char c : text) {
    if (c == '=') break;
    const char *p = nullptr;
    for (const char *a = alphabet; *a; ++a)
      if (*a == c) p = a;
    if (!p) continue;
    int v = static_cast<int>(p - alphabet);
    for (int i = 5; i >= 0; --i) bits += ((v >> i) & 1) ? '1' : '0';
  }
  std::string out;
  for (std::size_t i = 0; i + 8 <= bits.size(); i += 8) out += static_cast<char>(std::stoi(bits.substr(i, 8), nullptr, 2));
  return out;
}

}  // namespace xfmt::oracle
