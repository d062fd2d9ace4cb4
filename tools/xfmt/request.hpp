// The xfmt command: a conversion as people write it ("F8.2", "DATE9.",
// "$CHAR10.", "BEST."), resolved to a handle, and the conversion of one value.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "terminal_text.hpp"
#include "xfmt/xfmt.h"
#include "xfmt/xfx.h"

namespace xfmt::cli {

// Settings that apply to every conversion of one run.
struct run_options {
  uint32_t locale_id = 0;  // 0: the process locale (ZAV_LOCALE)
  bool utf16 = false;      // put writes UTF-16LE instead of the terminal's encoding
  std::string control_file;  // user-defined formats are read from it; empty: none
  // The encoding of arguments, files and results; main opens it.
  std::shared_ptr<const terminal_encoding> terminal;
  // The encoding values arrive in when it is not the terminal's (a CSV file
  // with a UTF-8 byte-order mark); null: the terminal's.
  std::shared_ptr<const terminal_encoding> input;
};

// A converted value as the user sees it: bytes in the terminal's encoding
// (UTF-16LE under --utf16, the bytes themselves for a binary layout) and the
// positions it takes, counted as the conversion counts them (characters).
struct shown_field {
  std::string bytes;
  size_t positions = 0;
};

// A resolved conversion; owns its handle.
class conversion {
 public:
  // Parses and resolves text (informat when informat is true). On failure
  // returns nothing and sets error to a one-line message.
  static std::optional<conversion> make(std::string_view text, bool informat, const run_options &opt,
                                        std::string &error);
  conversion(conversion &&other) noexcept;
  conversion &operator=(conversion &&) = delete;
  conversion(const conversion &) = delete;
  ~conversion();

  const std::string &text() const { return text_; }  // as written, upper-cased
  const std::string &name() const { return name_; }
  // The conversion as a record: family, flags, limits.
  const xfx_spec &spec() const { return spec_; }
  int32_t width() const { return width_; }
  int32_t decimals() const { return decimals_; }
  bool explicit_width() const { return explicit_width_; }
  bool is_character() const { return !name_.empty() && name_[0] == '$'; }
  bool is_built() const;
  // A user-defined format read from the control file.
  bool is_user_defined() const;
  bool is_unicode_text() const;
  // The conversion writes the bytes of a binary layout (PIB, RB, PD, ...),
  // which go out untouched, rather than text.
  bool writes_bytes() const { return writes_bytes_; }

  // Formats one value (text for a character format, else a number or a
  // missing notation), given in the terminal's encoding. Returns false with
  // error set when the value is not valid for this conversion or a character
  // cannot be carried.
  bool put(std::string_view value, shown_field &field, xf_status &status, std::string &error) const;
  // Reads text with an informat; the result is the stored value as text
  // (shortest round-trip digits or the missing notation), or the text a
  // character informat stored, in the terminal's encoding.
  // A width that leaves part of the text unread sets note to say so.
  bool input(std::string_view value, std::string &result, xf_status &status, std::string &error,
             std::string &note) const;

 private:
  conversion() = default;
  // The value as the bytes the routine reads (Windows-1252, or UTF-16LE for
  // a user-defined character format).
  bool routine_text(std::string_view value, std::string &bytes, std::string &error) const;
  // The routine's output as characters.
  void output_text(const xf_frame &f, std::string_view out, std::u32string &text) const;

  std::string text_, name_;
  xfx_spec spec_{};
  int32_t width_ = 0, decimals_ = 0;
  bool explicit_width_ = false;
  bool writes_bytes_ = false;
  // The output is asked for as UTF-16 (national formats and user-defined
  // labels, whose text is not Windows-1252); the others write Windows-1252.
  bool wide_output_ = false;
  uint16_t block_[8] = {};
  void *handle_ = nullptr;
  // Every conversion resolves into storage the command owns (a refreshed
  // handle), so that the routine sees the request for UTF-16 output and a
  // user-defined character format can read UTF-16 input.
  std::unique_ptr<xf_user_handle> storage_;
  run_options opt_;
  // Work buffers of put, kept between values so that a long CSV file does
  // not allocate per cell; a conversion is used by one thread.
  mutable std::string input_buffer_, output_buffer_;
  mutable std::u32string chars_;
};

// Reads a numeric value: a decimal number (locale-independent) or ".",
// "._", ".A" to ".Z" (either case). An empty text is the ordinary missing value.
std::optional<double> parse_value(std::string_view text);

// The stored double as text: shortest round-trip digits, or ".", "._", ".A"...
std::string value_text(double v);

}  // namespace xfmt::cli
