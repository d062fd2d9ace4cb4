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
  xf_status st;
  // Names outside the catalog are looked up in the control file, if any.
  xf_ufmt_context ctx{};
  ctx.control_path = opt.control_file.c_str();
  xf_ufmt_context *user = opt.control_file.empty() ? nullptr : &ctx;
  if (opt.utf16) {
    c.storage_ = std::make_unique<xf_user_handle>();
    c.handle_ = c.storage_.get();
    st = xfname3(name.data(), static_cast<int32_t>(name.size()), informat ? 73 : 0, c.block_, &c.handle_,
                 user);
  } else if (user) {
    st = xfname2(name.data(), static_cast<int32_t>(name.size()), informat ? 73 : 0, c.block_, &c.handle_,
                 user);
  } else {
    st = xfname(name.data(), static_cast<int32_t>(name.size()), informat ? 73 : 0, c.block_, &c.handle_);
  }
  if (st != XF_OK) {
    c.handle_ = nullptr;
    error = std::string(informat ? "informat '" : "format '") + name + "' is not known";
    return std::nullopt;
  }
  const uint16_t *b = c.block_;
  c.explicit_width_ = f->width.has_value();
  c.width_ = f->width.value_or(b[2]);
  c.decimals_ = f->decimals.value_or(b[6]);
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
      explicit_width_(o.explicit_width_), handle_(o.handle_), storage_(std::move(o.storage_)), opt_(o.opt_) {
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

bool conversion::is_built() const {
  const auto *kind = static_cast<const char *>(handle_) + 8;
  if (*kind == '+' || *kind == '-') return static_cast<const xf_user_handle *>(handle_)->routine != nullptr;
  return static_cast<const fmtposs_row *>(handle_)->row.routine != nullptr;
}

bool conversion::writes_windows_1252() const {
  const auto *kind = static_cast<const char *>(handle_) + 8;
  if (*kind == '+' || *kind == '-') return false;
  const auto *row = static_cast<const fmtposs_row *>(handle_);
  // The bidirectional formats write Unicode text (UTF-8) already.
  const xf_routine r = row->row.routine;
  if (r == zfmlogvs || r == zfmlogvsr || r == zfmvslog || r == zfmvslogr || r == zfmbidi) return false;
  return std::memcmp(row->module_name, "JAZWFNLS", 8) != 0;
}

namespace {

// Windows-1252 bytes (the euro sign 0x80, the yen sign 0xA5, ...) as UTF-8,
// so that a terminal shows the mark rather than a replacement character.
std::string windows_1252_to_utf8(const std::string &text) {
  std::string out;
  out.reserve(text.size() + 8);
  for (char c : text) {
    uint16_t u = wlt1unic[static_cast<unsigned char>(c)];
    if (u < 0x80) {
      out += static_cast<char>(u);
    } else if (u < 0x800) {
      out += static_cast<char>(0xC0 | (u >> 6));
      out += static_cast<char>(0x80 | (u & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | (u >> 12));
      out += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (u & 0x3F));
    }
  }
  return out;
}

}  // namespace

xf_status conversion::run(xf_frame &frame) const {
  frame.width = width_;
  frame.decimals = decimals_;
  frame.option_word = opt_.locale_id & XF_OPT_LOCALE_MASK;
  frame.requested_output_encoding = opt_.utf16 ? XF_ENC_UTF16LE : 0;
  return xffmt(&frame, handle_);
}

bool conversion::put(std::string_view value, std::string &field, xf_status &status, std::string &error) const {
  double number = 0;
  xf_frame f{};
  if (is_character()) {
    f.input = value.data();
    f.input_length = static_cast<uint32_t>(value.size());
  } else {
    std::optional<double> v = parse_value(value);
    if (!v) {
      error = "'" + std::string(value) + "' is not a number or a missing value (., ._, .A-.Z)";
      return false;
    }
    number = *v;
    f.input = &number;
    f.input_length = sizeof number;
  }
  // UTF-16 output needs two bytes a position.
  std::vector<char> out(static_cast<size_t>(width_) * (opt_.utf16 ? 2 : 1) + 1);
  f.output = out.data();
  f.output_capacity = static_cast<uint32_t>(out.size() - 1);
  status = run(f);
  if (status == XF_E_NOT_BUILT) {
    error = name_ + " is not built in this library yet";
    return false;
  }
  uint32_t n = f.output_length < f.output_capacity ? f.output_length : f.output_capacity;
  field.assign(out.data(), n);
  if (opt_.utf16 && f.output_encoding != XF_ENC_UTF16LE) {
    // Left single-byte by the library (too long to widen): widen it here so
    // that the stream stays UTF-16LE.
    std::string wide;
    for (char c : field) {
      uint16_t u = wlt1unic[static_cast<unsigned char>(c)];
      wide += static_cast<char>(u & 0xFF);
      wide += static_cast<char>(u >> 8);
    }
    field = wide;
  } else if (!opt_.utf16 && opt_.utf8_terminal && writes_windows_1252()) {
    field = windows_1252_to_utf8(field);
  }
  return true;
}

bool conversion::input(std::string_view value, std::string &result, xf_status &status, std::string &error) const {
  xf_frame f{};
  f.input = value.data();
  f.input_length = static_cast<uint32_t>(value.size());
  int32_t w = width_;
  if (!explicit_width_) {
    // Without a width the whole text is read, within the informat's limits.
    w = static_cast<int32_t>(value.size());
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
    result.assign(out.data(), n);
  } else {
    double v;
    std::memcpy(&v, out.data(), sizeof v);
    result = value_text(v);
  }
  return true;
}

}  // namespace xfmt::cli
