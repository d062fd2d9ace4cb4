// The xfmt command: a conversion as people write it ("F8.2", "DATE9.",
// "$CHAR10.", "BEST."), resolved to a handle, and the conversion of one value.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "xfmt/xfmt.h"

namespace xfmt::cli {

// Settings that apply to every conversion of one run.
struct run_options {
  uint32_t locale_id = 0;  // 0: the process locale (ZAV_LOCALE)
  bool utf16 = false;      // ask for UTF-16LE output
  std::string control_file;  // user-defined formats are read from it; empty: none
  bool utf8_terminal = false;  // the process codeset is UTF-8: show Windows-1252 marks as UTF-8
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
  int32_t width() const { return width_; }
  int32_t decimals() const { return decimals_; }
  bool explicit_width() const { return explicit_width_; }
  bool is_character() const { return !name_.empty() && name_[0] == '$'; }
  bool is_built() const;
  // True when the conversion writes single-byte Windows-1252 text (every
  // catalogued format outside the national-language module, whose text is
  // already in the process codeset).
  bool writes_windows_1252() const;
  // Limits of the width block, for messages.
  uint16_t min_width() const { return block_[0]; }
  uint16_t max_width() const { return block_[1]; }

  // Formats one value (text for a character format, else a number or a
  // missing notation). Returns false with error set when the value is not
  // valid for this conversion.
  bool put(std::string_view value, std::string &field, xf_status &status, std::string &error) const;
  // Reads text with an informat; the result is the stored value as text
  // (shortest round-trip digits or the missing notation), or the text a
  // character informat stored.
  bool input(std::string_view value, std::string &result, xf_status &status, std::string &error) const;

 private:
  conversion() = default;
  xf_status run(xf_frame &frame) const;

  std::string text_, name_;
  int32_t width_ = 0, decimals_ = 0;
  bool explicit_width_ = false;
  uint16_t block_[8] = {};
  void *handle_ = nullptr;
  // UTF-16 runs resolve into storage the command owns (a refreshed handle),
  // so that the routine sees the request for UTF-16 output.
  std::unique_ptr<xf_user_handle> storage_;
  run_options opt_;
};

// Reads a numeric value: a decimal number (locale-independent) or ".",
// "._", ".A" to ".Z" (either case). An empty text is the ordinary missing value.
std::optional<double> parse_value(std::string_view text);

// The stored double as text: shortest round-trip digits, or ".", "._", ".A"...
std::string value_text(double v);

}  // namespace xfmt::cli
