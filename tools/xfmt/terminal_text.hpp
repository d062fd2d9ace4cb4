// Text between the command's user and the conversions: the user's side is
// the terminal's encoding (UTF-8, or the codeset the locale names, or the one
// given with --encoding); the conversions read Windows-1252 bytes or UTF-16
// and write UTF-16 (the command asks for it). Everything meets as code points.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace xfmt::cli {

// One encoding the user's text is in. UTF-8 is decoded and encoded here;
// any other codeset through iconv (descriptors opened once per run).
class terminal_encoding {
 public:
  // name empty: the codeset of the process locale. Returns nothing with
  // error set when the system has no converter for the name.
  static std::unique_ptr<terminal_encoding> open(const std::string &name, std::string &error);
  ~terminal_encoding();
  terminal_encoding(const terminal_encoding &) = delete;
  terminal_encoding &operator=(const terminal_encoding &) = delete;

  const std::string &name() const { return name_; }
  bool is_utf8() const { return utf8_; }

  // Decodes bytes into code points. A byte sequence that is not text in this
  // encoding gives false and an error naming the byte and its position.
  bool decode(std::string_view bytes, std::u32string &out, std::string &error) const;
  // Encodes code points; a character this encoding cannot write gives false
  // and an error naming the character.
  bool encode(std::u32string_view text, std::string &out, std::string &error) const;

 private:
  terminal_encoding() = default;
  std::string name_;
  bool utf8_ = true;
  iconv_t from_ = reinterpret_cast<iconv_t>(-1);  // name_ -> UTF-32LE
  iconv_t to_ = reinterpret_cast<iconv_t>(-1);    // UTF-32LE -> name_
};

// A character for a message: "'ü' (U+00FC)", or "U+0007" for a control.
std::string describe_character(char32_t c);

// Strict UTF-8 (no overlong forms, no surrogates, nothing past U+10FFFF).
bool utf8_decode(std::string_view bytes, std::u32string &out, size_t &bad_at);
void utf8_append(char32_t c, std::string &out);

// Windows-1252, the single-byte text of the catalogued conversions. Every
// byte decodes (its five holes are the C1 controls of the same value);
// encoding fails on the first character the code page lacks, its index in
// bad_at.
void windows_1252_decode(std::string_view bytes, std::u32string &out);
bool windows_1252_encode(std::u32string_view text, std::string &out, size_t &bad_at);

// UTF-16LE bytes (surrogate pairs joined; a lone surrogate stays as it is).
void utf16le_decode(std::string_view bytes, std::u32string &out);
void utf16le_append(char32_t c, std::string &out);

// At most limit characters of a user's text for a message, "..." marking a
// cut; the text stays in the terminal's encoding (a cut never splits a
// UTF-8 sequence).
std::string quoted(std::string_view text, size_t limit = 60);

}  // namespace xfmt::cli
