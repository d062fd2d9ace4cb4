// Conversions as the command's user writes them, and single values.
#include "request.hpp"

#include <charconv>
#include <cstring>
#include <vector>

#include "catalog/chain.hpp"
#include "catalog/missing.hpp"

namespace xfmt::cli {
namespace {

constexpr char missing_letters[] = "_ABCDEFGHIJKLMNOPQRSTUVWXYZ";

char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Splits "NAMEw.d" into its parts: the width is the run of digits just
// before the ".", the decimals the digits after it. No catalogued name ends
// in a digit, so "E8601DA10." is E8601DA with width 10.
struct written_format {
  std::string name;
  std::optional<int32_t> width, decimals;
};

bool parse_number(std::string_view digits, int32_t &out) {
  if (digits.empty() || digits.size() > 6) return false;
  int32_t v = 0;
  for (char c : digits) {
    if (!is_digit(c)) return false;
    v = v * 10 + (c - '0');
  }
  out = v;
  return true;
}

std::optional<written_format> split_format(std::string_view text, std::string &error) {
  written_format f;
  size_t dot = text.find('.');
  std::string_view head = text.substr(0, dot);
  std::string_view tail = dot == std::string_view::npos ? std::string_view{} : text.substr(dot + 1);
  size_t end = head.size();
  while (end > 0 && is_digit(head[end - 1])) --end;
  for (char c : head.substr(0, end)) f.name += upper(c);
  if (f.name.empty() || f.name.size() > 32) {
    error = "'" + std::string(text) + "' is not a format (NAME, optional width, '.', optional decimals)";
    return std::nullopt;
  }
  int32_t v = 0;
  if (end < head.size()) {
    if (!parse_number(head.substr(end), v)) {
      error = "width of '" + std::string(text) + "' is too large";
      return std::nullopt;
    }
    f.width = v;
  }
  if (!tail.empty()) {
    if (!parse_number(tail, v)) {
      error = "decimals of '" + std::string(text) + "' must be digits";
      return std::nullopt;
    }
    f.decimals = v;
  }
  return f;
}

std::string limits(uint16_t lo, uint16_t hi) { return std::to_string(lo) + " to " + std::to_string(hi); }

}  // namespace

std::optional<double> parse_value(std::string_view text) {
  if (text.empty() || text == ".") return missing_ordinary();
  if (text.size() == 2 && text[0] == '.') {
    const char *p = std::strchr(missing_letters, upper(text[1]));
    if (p == nullptr || *p == '\0') return std::nullopt;
    // Row 0 of the missing table is "._", row 1 ".", rows 2.. the letters.
    int i = static_cast<int>(p - missing_letters);
    return missing_value(i == 0 ? 0 : i + 1);
  }
  const char *first = text.data();
  const char *last = first + text.size();
  if (*first == '+') ++first;  // from_chars takes no leading plus
  double v = 0;
  auto [ptr, ec] = std::from_chars(first, last, v);
  if (ec != std::errc() || ptr != last || first == last) return std::nullopt;
  return v;
}

std::string value_text(double v) {
  uint64_t b = double_bits(v);
  if (is_missing_bits(b)) {
    char sym = missing_symbol(b);
    if (sym == '.') return ".";
    return std::string(".") + sym;
  }
  char buf[64];
  auto [ptr, ec] = std::to_chars(buf, buf + sizeof buf, v);
  if (ec != std::errc()) return "?";
  return std::string(buf, ptr);
}

namespace {

// The binary layouts: their fields are bytes for a file or another program,
// not text, and go out as the routine wrote them.
bool binary_layout(std::string_view module, std::string_view name) {
  auto starts = [&name](std::string_view p) { return name.substr(0, p.size()) == p; };
  if (module == "JAZWFBIN")
    return !(name == "HEX" || name == "OCTAL" || name == "BINARY" || name == "$HEX" || name == "$OCTAL" ||
             name == "$BINARY");
  if (module == "JAZWFUWF")
    return starts("S370F") || starts("IEEE") || name == "FLOAT" || name == "MRB" || name == "PCPIB" ||
           starts("XPORT") || name == "$EBCDIC";
  if (module == "JAZWFDTE") return name == "PDJULG" || name == "PDJULI";
  return false;
}

}  // namespace

std::optional<conversion> conversion::make(std::string_view text, bool informat, const run_options &opt,
                                           std::string &error) {
  std::optional<written_format> f = split_format(text, error);
  if (!f) return std::nullopt;
  std::string name = f->name;
  if (informat && name[0] == '@') name.erase(0, 1);  // "@F" and "F" ask for the same informat
  conversion c;
  c.opt_ = opt;
  for (char ch : text) c.text_ += upper(ch);
  c.name_ = name;
  // Names outside the catalog are looked up in the control file, if any.
  xf_ufmt_context ctx{};
  ctx.control_path = opt.control_file.c_str();
  xf_ufmt_context *user = opt.control_file.empty() ? nullptr : &ctx;
  c.storage_ = std::make_unique<xf_user_handle>();
  c.handle_ = c.storage_.get();
  xf_status st = xfname3(name.data(), static_cast<int32_t>(name.size()), informat ? 73 : 0, c.block_, &c.handle_,
                         user);
  if (st != XF_OK) {
    c.handle_ = nullptr;
    error = std::string(informat ? "informat '" : "format '") + name + "' is not known";
    return std::nullopt;
  }
  const uint16_t *b = c.block_;
  c.explicit_width_ = f->width.has_value();
  c.width_ = f->width.value_or(b[2]);
  c.decimals_ = f->decimals.value_or(b[6]);
  if (!informat && !c.is_user_defined()) {
    const auto *row = static_cast<const fmtposs_row *>(c.handle_);
    c.writes_bytes_ = binary_layout(std::string_view(row->module_name, row->module_name_length), name);
  }
  if (c.width_ < b[0] || c.width_ > b[1]) {
    error = "width " + std::to_string(c.width_) + " is outside the limits of " + name + " (" + limits(b[0], b[1]) + ")";
    return std::nullopt;
  }
  if (c.decimals_ < b[4] || c.decimals_ > b[5]) {
    error = "decimals " + std::to_string(c.decimals_) + " are outside the limits of " + name + " (" +
            limits(b[4], b[5]) + ")";
    return std::nullopt;
  }
  return c;
}

conversion::conversion(conversion &&o) noexcept
    : text_(std::move(o.text_)), name_(std::move(o.name_)), width_(o.width_), decimals_(o.decimals_),
      explicit_width_(o.explicit_width_), writes_bytes_(o.writes_bytes_), handle_(o.handle_),
      storage_(std::move(o.storage_)), opt_(o.opt_) {
  std::memcpy(block_, o.block_, sizeof block_);
  o.handle_ = nullptr;
}

conversion::~conversion() {
  if (handle_ == nullptr) return;
  const auto *kind = static_cast<const char *>(handle_) + 8;
  // A "+" user handle is not released by xfdel; the command owns it outright.
  // xfdel leaves a handle refreshed in storage_ alone and frees the chain of
  // a "-" handle (storage_ itself is not on it).
  if (*kind == '+') catalog::free_user_handle(static_cast<xf_user_handle *>(handle_));
  else xfdel(handle_);
}

bool conversion::is_user_defined() const {
  const char kind = static_cast<const char *>(handle_)[8];
  return kind == '+' || kind == '-';
}

bool conversion::is_built() const {
  if (is_user_defined()) return static_cast<const xf_user_handle *>(handle_)->routine != nullptr;
  return static_cast<const fmtposs_row *>(handle_)->row.routine != nullptr;
}

bool conversion::routine_text(std::string_view value, std::string &bytes, std::string &error) const {
  std::u32string chars;
  const terminal_encoding &from = opt_.input ? *opt_.input : *opt_.terminal;
  if (!from.decode(value, chars, error)) return false;
  bytes.clear();
  if (is_user_defined()) {
    for (char32_t c : chars) utf16le_append(c, bytes);
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
  if (is_user_defined() && utf8_decode(out, text, bad)) return;
  if (national && opt_.terminal->decode(out, text, ignored)) return;
  text.clear();
  windows_1252_decode(out, text);
}

bool conversion::put(std::string_view value, shown_field &field, xf_status &status, std::string &error) const {
  double number = 0;
  std::string input;
  xf_frame f{};
  if (is_character()) {
    if (!routine_text(value, input, error)) return false;
    f.input = input.data();
    f.input_length = static_cast<uint32_t>(input.size());
    if (is_user_defined()) f.input_encoding = XF_ENC_UTF16LE;
  } else {
    std::optional<double> v = parse_value(value);
    if (!v) {
      error = quoted(value) + " is not a number or a missing value (., ._, .A-.Z)";
      return false;
    }
    number = *v;
    f.input = &number;
    f.input_length = sizeof number;
  }
  // Room for UTF-16 and for the routines that write past w (never more than
  // a few positions).
  std::vector<char> out(static_cast<size_t>(width_) * 4 + 64);
  f.output = out.data();
  f.output_capacity = static_cast<uint32_t>(out.size());
  f.width = width_;
  f.decimals = decimals_;
  f.option_word = opt_.locale_id & XF_OPT_LOCALE_MASK;
  f.requested_output_encoding = writes_bytes_ ? 0 : XF_ENC_UTF16LE;
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
  std::u32string text;
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

bool conversion::input(std::string_view value, std::string &result, xf_status &status, std::string &error) const {
  std::string text;
  if (!routine_text(value, text, error)) return false;
  xf_frame f{};
  f.input = text.data();
  f.input_length = static_cast<uint32_t>(text.size());
  int32_t w = width_;
  if (!explicit_width_) {
    // Without a width the whole text is read, within the informat's limits.
    w = static_cast<int32_t>(text.size());
    if (w < block_[0]) w = block_[0];
    if (w > block_[1]) w = block_[1];
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
