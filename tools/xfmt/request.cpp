// Conversions as the command's user writes them, and single values.
#include "request.hpp"

#include <charconv>
#include <cstring>
#include <vector>

#include "catalog/chain.hpp"
#include "core/missing.hpp"
#include "helpful_errors.hpp"
#include "iso_dates.hpp"

namespace xfmt::cli {
namespace {

char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::optional<double> parse_value(std::string_view text) {
  double v = 0;
  if (text.empty()) text = ".";
  if (text[0] == '.' && text.size() <= 2) {
    if (xfx_missing_value(text.size() == 1 ? '.' : text[1], &v) != XFX_OK) return std::nullopt;
    return v;
  }
  const char *first = text.data();
  const char *last = first + text.size();
  if (*first == '+') ++first;  // from_chars takes no leading plus
  auto [ptr, ec] = std::from_chars(first, last, v);
  if (ec != std::errc() || ptr != last || first == last) return std::nullopt;
  return v;
}

std::string value_text(double v) {
  if (int sym = xfx_missing_symbol(v)) return sym == '.' ? "." : std::string(".") + static_cast<char>(sym);
  char buf[64];
  auto [ptr, ec] = std::to_chars(buf, buf + sizeof buf, v);
  if (ec != std::errc()) return "?";
  return std::string(buf, ptr);
}

std::optional<conversion> conversion::make(std::string_view text, bool informat, const run_options &opt,
                                           std::string &error) {
  // Names outside the catalog are looked up in the control file, if any.
  xf_ufmt_context ctx{};
  ctx.control_path = opt.control_file.c_str();
  xf_ufmt_context *user = opt.control_file.empty() ? nullptr : &ctx;
  xfx_spec spec{};
  xfx_error e = xfx_parse_spec(text.data(), text.size(), informat ? XFX_PARSE_INFORMAT : 0u, user, &spec);
  if (e != XFX_OK) {
    error = spec_error_message(e, text, spec, informat, opt);
    return std::nullopt;
  }
  conversion c;
  c.opt_ = opt;
  for (char ch : text) c.text_ += upper(ch);
  c.name_.assign(spec.name, spec.name_length);
  c.spec_ = spec;
  c.storage_ = std::make_unique<xf_user_handle>();
  c.handle_ = c.storage_.get();
  xf_status st = xfname3(c.name_.data(), static_cast<int32_t>(c.name_.size()), informat ? 73 : 0, c.block_,
                         &c.handle_, user);
  if (st != XF_OK) {
    c.handle_ = nullptr;
    error = std::string(informat ? "informat '" : "format '") + c.name_ + "' cannot be resolved (status " +
            std::to_string(st) + ")";
    return std::nullopt;
  }
  c.explicit_width_ = (spec.flags & XFX_WIDTH_GIVEN) != 0;
  c.width_ = spec.width;
  c.decimals_ = spec.decimals;
  c.writes_bytes_ = !informat && (spec.flags & XFX_BYTES) != 0;
  c.wide_output_ = !c.writes_bytes_ && (c.is_user_defined() || std::strcmp(spec.module, "JAZWFNLS") == 0);
  return c;
}

conversion::conversion(conversion &&o) noexcept
    : text_(std::move(o.text_)), name_(std::move(o.name_)), spec_(o.spec_), width_(o.width_), decimals_(o.decimals_),
      explicit_width_(o.explicit_width_), writes_bytes_(o.writes_bytes_), wide_output_(o.wide_output_),
      handle_(o.handle_),
      storage_(std::move(o.storage_)), opt_(o.opt_) {
  std::memcpy(block_, o.block_, sizeof block_);
  o.handle_ = nullptr;
}

conversion::~conversion() {
  if (handle_ == nullptr) return;
  // xfrelease frees a user handle's chain ("+" too) and leaves a handle
  // refreshed in storage_ where it is (storage_ itself is not on a chain).
  xfrelease(handle_);
}

bool conversion::is_user_defined() const {
  const char kind = static_cast<const char *>(handle_)[8];
  return kind == '+' || kind == '-';
}

bool conversion::is_built() const {
  if (is_user_defined()) return static_cast<const xf_user_handle *>(handle_)->routine != nullptr;
  return static_cast<const fmtposs_row *>(handle_)->row.routine != nullptr;
}

// The bidirectional formats read and write Unicode text (UTF-8) themselves.
bool conversion::is_unicode_text() const {
  if (is_user_defined()) return false;
  const xf_routine r = static_cast<const fmtposs_row *>(handle_)->row.routine;
  return r == zfmlogvs || r == zfmlogvsr || r == zfmvslog || r == zfmvslogr || r == zfmbidi;
}

bool conversion::routine_text(std::string_view value, std::string &bytes, std::string &error) const {
  std::u32string &chars = chars_;
  const terminal_encoding &from = opt_.input ? *opt_.input : *opt_.terminal;
  if (!from.decode(value, chars, error)) return false;
  bytes.clear();
  if (is_user_defined()) {
    for (char32_t c : chars) utf16le_append(c, bytes);
    return true;
  }
  if (is_unicode_text()) {
    for (char32_t c : chars) utf8_append(c, bytes);
    return true;
  }
  size_t bad = 0;
  if (windows_1252_encode(chars, bytes, bad)) return true;
  error = "the character " + describe_character(chars[bad]) + " of " + quoted(value) + " cannot be read by " + name_ +
          ", which reads Windows-1252 text";
  return false;
}

void conversion::output_text(const xf_frame &f, std::string_view out, std::u32string &text) const {
  text.clear();
  if (f.output_encoding == XF_ENC_UTF16LE) {
    utf16le_decode(out, text);
    return;
  }
  // Left single-byte (longer than the library widens): the national formats
  // write the process codeset, user-defined labels UTF-8, the rest
  // Windows-1252.
  const auto *row = static_cast<const fmtposs_row *>(handle_);
  bool national = !is_user_defined() && std::memcmp(row->module_name, "JAZWFNLS", 8) == 0;
  std::string ignored;
  size_t bad = 0;
  if ((is_user_defined() || is_unicode_text()) && utf8_decode(out, text, bad)) return;
  if (national && opt_.terminal->decode(out, text, ignored)) return;
  text.clear();
  windows_1252_decode(out, text);
}

bool conversion::put(std::string_view value, shown_field &field, xf_status &status, std::string &error) const {
  double number = 0;
  std::string &input = input_buffer_;
  xf_frame f{};
  if (is_character()) {
    if (!routine_text(value, input, error)) return false;
    f.input = input.data();
    f.input_length = static_cast<uint32_t>(input.size());
    if (is_user_defined()) f.input_encoding = XF_ENC_UTF16LE;
  } else {
    std::optional<double> v = parse_value(value);
    // Date, time and datetime conversions also take ISO 8601 text.
    if (!v) {
      error.clear();
      v = read_iso_8601(value, spec_.family, error);
      if (!v && !error.empty()) return false;
    }
    if (!v) {
      std::string hint = family_value_hint(spec_.family);
      error = quoted(value) + " is not a number or a missing value (., ._, .A-.Z)";
      if (!hint.empty()) error = quoted(value) + " is not " + hint + ", nor a missing value (., ._, .A-.Z)";
      return false;
    }
    number = *v;
    f.input = &number;
    f.input_length = sizeof number;
  }
  // Room for UTF-16 and for the routines that write past w (never more than
  // a few positions).
  std::string &out = output_buffer_;
  out.resize(static_cast<size_t>(width_) * 4 + 64);
  f.output = out.data();
  f.output_capacity = static_cast<uint32_t>(out.size());
  f.width = width_;
  f.decimals = decimals_;
  f.option_word = opt_.locale_id & XF_OPT_LOCALE_MASK;
  f.requested_output_encoding = wide_output_ ? XF_ENC_UTF16LE : 0;
  status = xffmt(&f, handle_);
  if (status == XF_E_NOT_BUILT) {
    error = name_ + " is not built in this library yet";
    return false;
  }
  uint32_t n = f.output_length < f.output_capacity ? f.output_length : f.output_capacity;
  std::string_view written(out.data(), n);
  field.bytes.clear();
  if (writes_bytes_) {
    field.bytes.assign(written);
    field.positions = n;
    return true;
  }
  if (!opt_.utf16 && opt_.terminal->is_utf8() && f.output_encoding != XF_ENC_UTF16LE) {
    // Plain ASCII, the common case, is the same bytes in UTF-8.
    bool ascii = true;
    for (char ch : written) ascii = ascii && static_cast<unsigned char>(ch) < 0x80;
    if (ascii) {
      field.bytes.assign(written);
      field.positions = n;
      return true;
    }
  }
  std::u32string &text = chars_;
  output_text(f, written, text);
  field.positions = text.size();
  if (opt_.utf16) {
    for (char32_t c : text) utf16le_append(c, field.bytes);
    return true;
  }
  if (opt_.terminal->encode(text, field.bytes, error)) return true;
  error = text_ + ": " + error;
  return false;
}

bool conversion::input(std::string_view value, std::string &result, xf_status &status, std::string &error,
                       std::string &note) const {
  std::string text;
  if (!routine_text(value, text, error)) return false;
  xf_frame f{};
  f.input = text.data();
  f.input_length = static_cast<uint32_t>(text.size());
  int32_t w = width_;
  if (!explicit_width_) {
    // Without a width the whole text is read, up to the informat's widest.
    w = static_cast<int32_t>(text.size());
    if (w < block_[0]) w = block_[0];
    if (w > block_[1]) w = block_[1];
  }
  note.clear();
  if (text.size() > static_cast<size_t>(w)) {
    // The informat reads w characters (Windows-1252: one byte each).
    std::u32string head;
    windows_1252_decode(std::string_view(text).substr(0, static_cast<size_t>(w)), head);
    std::string shown;
    std::string ignored;
    opt_.terminal->encode(head, shown, ignored);
    note = text_ + " reads only the first " + std::to_string(w) + " of " + std::to_string(text.size()) +
           " characters of " + quoted(value) + ", that is " + quoted(shown);
    if (explicit_width_) note += "; without a width (" + name_ + ".) the whole text is read";
    else note += ", the widest " + name_ + " allows";
  }
  bool text_result = is_character();
  std::vector<char> out(text_result ? static_cast<size_t>(w) + 1 : 8);
  f.output = out.data();
  f.output_capacity = static_cast<uint32_t>(text_result ? out.size() - 1 : 8);
  f.width = w;
  f.decimals = decimals_;
  f.option_word = opt_.locale_id & XF_OPT_LOCALE_MASK;
  status = xffmt(&f, handle_);
  if (status == XF_E_NOT_BUILT) {
    error = "informat " + name_ + " is not built in this library yet";
    return false;
  }
  if (text_result) {
    uint32_t n = f.output_length < f.output_capacity ? f.output_length : f.output_capacity;
    std::u32string chars;
    windows_1252_decode(std::string_view(out.data(), n), chars);
    result.clear();
    if (opt_.terminal->encode(chars, result, error)) return true;
    error = text_ + ": " + error;
    return false;
  } else {
    double v;
    std::memcpy(&v, out.data(), sizeof v);
    result = value_text(v);
  }
  return true;
}

}  // namespace xfmt::cli
