// The case check and the case-file reader of support/cases.hpp.
#include "support/cases.hpp"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <sstream>
#include <utility>

#include "core/missing.hpp"
#include "core/platform.hpp"
#include "oracle/text_oracle.hpp"

namespace xfmt::test {
namespace {

constexpr size_t guard_size = 16;
constexpr unsigned char guard_byte = 0xEE;

struct status_name {
  const char *name;
  xf_status value;
};
constexpr status_name status_names[] = {
    {"OK", XF_OK},
    {"REDUCED", XF_REDUCED},
    {"UTF16_LABEL", XF_UTF16_LABEL},
    {"NL_WIDTH_LOW", XF_NL_WIDTH_LOW},
    {"NL_WIDTH_HIGH", XF_NL_WIDTH_HIGH},
    {"NL_DECIMALS_LOW", XF_NL_DECIMALS_LOW},
    {"NL_DECIMALS_HIGH", XF_NL_DECIMALS_HIGH},
    {"E_NOT_BUILT", XF_E_NOT_BUILT},
    {"E_NULL_ARGUMENT", XF_E_NULL_ARGUMENT},
    {"E_DATE_RANGE", XF_E_DATE_RANGE},
    {"E_HOURS_RANGE", XF_E_HOURS_RANGE},
    {"E_CAPACITY", XF_E_CAPACITY},
    {"E_OVERFLOW", XF_E_OVERFLOW},
    {"IN_RANGE_WARNING", XF_IN_RANGE_WARNING},
    {"IN_INVALID", XF_IN_INVALID},
    {"IN_BAD_WIDTH", XF_IN_BAD_WIDTH},
    {"TX_OUTPUT_SMALL", XF_TX_OUTPUT_SMALL},
    {"TX_BAD_LEAD", XF_TX_BAD_LEAD},
    {"TX_CUT_OFF", XF_TX_CUT_OFF},
};

std::string status_text(xf_status s) {
  for (const status_name &n : status_names)
    if (n.value == s) return n.name;
  std::ostringstream o;
  o << "0x" << std::hex << s;
  return o.str();
}

std::string hex64(uint64_t bits) {
  std::ostringstream o;
  o << "raw:" << std::hex << std::uppercase << bits;
  return o.str();
}

std::string describe(const format_case &c) {
  std::ostringstream o;
  if (!c.where.empty()) o << c.where << ": ";
  o << (c.name.empty() ? "routine" : c.name) << " w " << c.w << " d " << c.d << " of ";
  if (c.text_input) o << '"' << shown(c.text) << '"';
  else o << c.value << " (" << hex64(double_bits(c.value)) << ")";
  return o.str();
}

// UTF-8 text as the UTF-16LE bytes a host asking for UTF-16 receives.
std::string utf16le(const std::string &utf8) {
  std::string out;
  for (uint16_t u : oracle::utf8_to_unicode(utf8, static_cast<uint32_t>(utf8.size())).units) {
    out += static_cast<char>(u & 0xFF);
    out += static_cast<char>(u >> 8);
  }
  return out;
}

// One run on a fresh frame: the whole buffer (capacity and guard) and the frame.
struct outcome {
  xf_status status;
  std::vector<unsigned char> buffer;
  xf_frame frame;
};

outcome run_once(xf_routine routine, const format_case &c, uint32_t capacity) {
  outcome r{};
  r.buffer.assign(capacity + guard_size, guard_byte);
  double value = c.value;
  xf_frame &f = r.frame;
  f.width = c.w;
  f.decimals = c.d;
  if (c.text_input) {
    f.input = c.text.data();
    f.input_length = static_cast<uint32_t>(c.text.size());
  } else {
    f.input = &value;
    f.input_length = 8;
  }
  if (c.no_input) f.input = nullptr;
  f.output = capacity ? r.buffer.data() : nullptr;
  f.output_capacity = capacity;
  f.option_word = c.option_word;
  f.option_flags = c.option_flags;
  f.input_encoding = c.input_encoding;
  f.requested_output_encoding = c.requested_encoding;
  r.status = routine(&f);
  f.input = nullptr;
  f.output = nullptr;
  return r;
}

// Tokens of one line: quoted text unescaped, "#" outside quotes ends the line.
struct token {
  std::string text;
  bool quoted;
};

std::optional<std::vector<token>> split(const std::string &line, std::string &error) {
  std::vector<token> out;
  size_t i = 0;
  while (i < line.size()) {
    char ch = line[i];
    if (ch == ' ' || ch == '\t' || ch == '\r') { ++i; continue; }
    if (ch == '#') break;
    if (ch != '"') {
      size_t j = i;
      while (j < line.size() && line[j] != ' ' && line[j] != '\t' && line[j] != '\r') ++j;
      out.push_back({line.substr(i, j - i), false});
      i = j;
      continue;
    }
    std::string s;
    for (++i;; ++i) {
      if (i >= line.size()) { error = "unterminated quote"; return std::nullopt; }
      char q = line[i];
      if (q == '"') { ++i; break; }
      if (q != '\\') { s += q; continue; }
      if (++i >= line.size()) { error = "backslash at the end"; return std::nullopt; }
      switch (line[i]) {
        case '"': s += '"'; break;
        case '\\': s += '\\'; break;
        case 't': s += '\t'; break;
        case 'n': s += '\n'; break;
        case '0': s += '\0'; break;
        case 'x': {
          if (i + 2 >= line.size()) { error = "short \\x escape"; return std::nullopt; }
          char *end = nullptr;
          const std::string hh = line.substr(i + 1, 2);
          long v = std::strtol(hh.c_str(), &end, 16);
          if (end != hh.c_str() + 2) { error = "bad \\x escape"; return std::nullopt; }
          s += static_cast<char>(v);
          i += 2;
          break;
        }
        default: error = "unknown escape"; return std::nullopt;
      }
    }
    out.push_back({std::move(s), true});
  }
  return out;
}

// A number, a missing value or raw:HEX as the double's bits.
std::optional<uint64_t> parse_bits(const std::string &s) {
  if (s == ".") return missing_ordinary_bits;
  if (s.size() == 2 && s[0] == '.' && (s[1] == '_' || (s[1] >= 'A' && s[1] <= 'Z')))
    return miss(s[1]);
  char *end = nullptr;
  if (s.rfind("raw:", 0) == 0) {
    uint64_t b = std::strtoull(s.c_str() + 4, &end, 16);
    if (s.size() == 4 || *end) return std::nullopt;
    return b;
  }
  double v = std::strtod(s.c_str(), &end);
  if (s.empty() || *end) return std::nullopt;
  return double_bits(v);
}

bool is_hex(const std::string &s) { return s.rfind("hex:", 0) == 0; }

// Quoted text as it is, hex:HH... as its bytes.
bool text_of(const token &t, std::string &out) {
  if (t.quoted) {
    out = t.text;
    return true;
  }
  out.clear();
  const std::string h = t.text.substr(4);
  if (h.size() % 2) return false;
  for (size_t i = 0; i < h.size(); i += 2) {
    const std::string hh = h.substr(i, 2);
    char *end = nullptr;
    long v = std::strtol(hh.c_str(), &end, 16);
    if (end != hh.c_str() + 2) return false;
    out += static_cast<char>(v);
  }
  return true;
}

bool host_big_endian() {
  const uint16_t one = 1;
  unsigned char first;
  std::memcpy(&first, &one, 1);
  return first == 0;
}

std::optional<int64_t> parse_int(const std::string &s) {
  char *end = nullptr;
  long long v = std::strtoll(s.c_str(), &end, 0);
  if (s.empty() || *end) return std::nullopt;
  return v;
}

std::optional<xf_status> parse_status(const std::string &s) {
  for (const status_name &n : status_names)
    if (s == n.name) return n.value;
  auto v = parse_int(s);
  if (v && *v >= 0 && *v <= 0xFFFFFFFF) return static_cast<xf_status>(*v);
  return std::nullopt;
}

std::optional<format_case> parse_case(const std::vector<token> &t, std::string &error) {
  if (t.size() < 6) { error = "fewer than six fields"; return std::nullopt; }
  format_case c;
  c.name = t[0].text;
  c.routine = routine_named(c.name);
  if (!c.routine) { error = "no routine catalogued as " + c.name; return std::nullopt; }
  auto w = parse_int(t[1].text), d = parse_int(t[2].text);
  if (t[1].quoted || t[2].quoted || !w || !d) { error = "bad width or decimals"; return std::nullopt; }
  c.w = static_cast<int32_t>(*w);
  c.d = static_cast<int32_t>(*d);
  if (t[3].quoted || is_hex(t[3].text)) {
    c.text_input = true;
    if (!text_of(t[3], c.text)) { error = "bad hex " + t[3].text; return std::nullopt; }
  } else if (auto b = parse_bits(t[3].text)) {
    c.value = bits_double(*b);
  } else {
    error = "bad input " + t[3].text;
    return std::nullopt;
  }
  if (t[4].quoted || is_hex(t[4].text)) {
    if (!text_of(t[4], c.want)) { error = "bad hex " + t[4].text; return std::nullopt; }
  } else if (auto b = parse_bits(t[4].text)) {
    c.stores_double = true;
    c.want_bits = *b;
  } else {
    error = "bad expected value " + t[4].text;
    return std::nullopt;
  }
  auto st = parse_status(t[5].text);
  if (t[5].quoted || !st) { error = "bad status " + t[5].text; return std::nullopt; }
  c.status = *st;
  for (size_t i = 6; i < t.size(); ++i) {
    const std::string &o = t[i].text;
    if (o == "native" && !t[i].quoted) {
      if (!host_big_endian()) {
        std::reverse(c.text.begin(), c.text.end());
        std::reverse(c.want.begin(), c.want.end());
      }
      continue;
    }
    if ((o == "utf8" || o == "utf16" || o == "noinput") && !t[i].quoted) {
      (o == "utf8" ? c.utf8_codeset : o == "utf16" ? c.utf16 : c.no_input) = true;
      continue;
    }
    size_t eq = o.find('=');
    if (eq != std::string::npos && eq + 1 < o.size() && !t[i].quoted &&
        (o.rfind("tz=", 0) == 0 || o.rfind("zav=", 0) == 0)) {
      (o[0] == 't' ? c.zone : c.zav_locale) = o.substr(eq + 1);
      continue;
    }
    auto v = eq == std::string::npos ? std::nullopt : parse_int(o.substr(eq + 1));
    if (t[i].quoted || !v || *v < 0) { error = "bad option " + o; return std::nullopt; }
    const std::string key = o.substr(0, eq);
    if (key == "cap") c.capacity = *v;
    else if (key == "opt") c.option_word = static_cast<uint64_t>(*v);
    else if (key == "flags") c.option_flags = static_cast<uint32_t>(*v);
    else if (key == "enc") c.input_encoding = static_cast<uint32_t>(*v);
    else if (key == "renc") c.requested_encoding = static_cast<uint32_t>(*v);
    else if (key == "len") c.length = *v;
    else if (key == "width") c.width_after = static_cast<int32_t>(*v);
    else { error = "unknown option " + o; return std::nullopt; }
  }
  return c;
}

std::string data_path(const std::string &file) {
  return std::string(XFMT_SOURCE_DIR) + "/tests/data/" + file;
}

}  // namespace

codeset_scope::codeset_scope(const char *locale_name) : saved_(std::setlocale(LC_ALL, nullptr)) {
  std::setlocale(LC_ALL, locale_name);
  platform::reload_environment();
}

codeset_scope::~codeset_scope() {
  std::setlocale(LC_ALL, saved_.c_str());
  platform::reload_environment();
}

variable_scope::variable_scope(const char *name, const char *value) : name_(name) {
  if (const char *old = std::getenv(name)) saved_ = old;
  set(value);
}

variable_scope::~variable_scope() { set(saved_ ? saved_->c_str() : nullptr); }

void variable_scope::set(const char *value) const {
  if (value) setenv(name_, value, 1);
  else unsetenv(name_);
  if (std::string_view(name_) == "TZ") platform::reread_zone();
  else platform::reload_environment();
}

uint64_t num(double v) { return double_bits(v); }

uint64_t miss(char letter) {
  if (letter == '_') return missing_underscore_bits;
  if (letter == '.') return missing_ordinary_bits;
  return double_bits(missing_value(letter - 'A' + 2));
}

std::string shown(std::string_view bytes) {
  static const char digits[] = "0123456789ABCDEF";
  std::string s;
  for (char c : bytes) {
    const auto ch = static_cast<unsigned char>(c);
    if (ch >= 0x20 && ch < 0x7F && ch != '\\') {
      s += static_cast<char>(ch);
    } else {
      s += "\\x";
      s += digits[ch >> 4];
      s += digits[ch & 15];
    }
  }
  return s;
}

format_case number_case(xf_routine r, double v, int32_t w, int32_t d, std::string want,
                        xf_status st) {
  format_case c;
  c.routine = r;
  c.value = v;
  c.w = w;
  c.d = d;
  c.want = std::move(want);
  c.status = st;
  return c;
}

format_case text_case(xf_routine r, std::string in, int32_t w, int32_t d, std::string want,
                      xf_status st) {
  format_case c = number_case(r, 0, w, d, std::move(want), st);
  c.text_input = true;
  c.text = std::move(in);
  return c;
}

format_case informat_case(xf_routine r, std::string in, int32_t w, int32_t d, uint64_t bits,
                          xf_status st) {
  format_case c = text_case(r, std::move(in), w, d, "", st);
  c.stores_double = true;
  c.want_bits = bits;
  return c;
}

xf_routine routine_named(std::string_view name) {
  for (const names_and_entries_row &m : names_and_entries) {
    const fmtinfo *info = m.entry ? m.entry() : nullptr;
    for (uint64_t i = 0; info && i < info->count; ++i) {
      const fmtinfo_eachfmt &e = info->rows[i];
      std::string_view n(e.name, e.name_length <= sizeof e.name ? e.name_length : 0);
      while (!n.empty() && n.back() == ' ') n.remove_suffix(1);
      if (n == name && e.routine) return e.routine;
    }
  }
  // The intrinsic pseudo-formats live in static rows of their own.
  for (const fmtposs_row *r : {&crashfmt, &ver_num[0], &ver_num[1]})
    if (r->row.name_length <= sizeof r->row.name && std::string_view(r->row.name, r->row.name_length) == name)
      return r->row.routine;
  // The missing-value display every number format calls, by its C name.
  if (name == "zfmmiss") return zfmmiss;
  return nullptr;
}

testing::AssertionResult holds(const format_case &c) {
  xf_routine routine = c.routine ? c.routine : routine_named(c.name);
  if (!routine) return testing::AssertionFailure() << describe(c) << ": no routine";
  const uint32_t unit = c.utf16 ? 2 : 1;
  const uint32_t capacity = static_cast<uint32_t>(
      c.capacity >= 0 ? c.capacity : c.stores_double ? 8 : (c.w > 0 ? int64_t{unit} * c.w : 0));
  format_case run = c;
  if (c.utf16) {
    run.requested_encoding = XF_ENC_UTF16LE;
    run.want = utf16le(c.want);
  }
  std::optional<codeset_scope> codeset;
  std::optional<variable_scope> zone, zav;
  if (c.utf8_codeset) codeset.emplace("C.UTF-8");
  if (!c.zone.empty()) zone.emplace("TZ", c.zone.c_str());
  if (!c.zav_locale.empty())
    zav.emplace("ZAV_LOCALE", c.zav_locale == "-" ? nullptr : c.zav_locale.c_str());
  const outcome a = run_once(routine, run, capacity);
  const outcome b = run_once(routine, run, capacity);
  std::ostringstream why;
  if (c.utf16 && a.frame.output_encoding != XF_ENC_UTF16LE)
    why << "; output encoding " << a.frame.output_encoding << ", expected UTF-16LE";
  for (size_t i = capacity; i < a.buffer.size(); ++i)
    if (a.buffer[i] != guard_byte) {
      why << "; wrote past the capacity " << capacity << " at byte " << i;
      break;
    }
  if (a.frame.output_length > capacity)
    why << "; output length " << a.frame.output_length << " beyond the capacity " << capacity;
  const int32_t width_after = c.width_after >= 0 ? c.width_after : c.w;
  if (a.frame.width != width_after || a.frame.decimals != c.d)
    why << "; frame left at w " << a.frame.width << " d " << a.frame.decimals;
  if (a.status != c.status)
    why << "; status " << status_text(a.status) << ", expected " << status_text(c.status);
  const size_t shown_length = c.length >= 0 ? capacity : a.frame.output_length;
  const std::string got(reinterpret_cast<const char *>(a.buffer.data()),
                        shown_length < capacity ? shown_length : capacity);
  const std::string &want = run.want;
  if (c.length >= 0 && int64_t{a.frame.output_length} != c.length)
    why << "; output length " << a.frame.output_length << ", expected " << c.length;
  if (c.stores_double) {
    uint64_t bits = 0;
    if (capacity >= 8) std::memcpy(&bits, a.buffer.data(), 8);
    if (bits != c.want_bits)
      why << "; stored " << hex64(bits) << " (" << bits_double(bits) << "), expected "
          << hex64(c.want_bits) << " (" << bits_double(c.want_bits) << ")";
    if (a.frame.output_length != 8) why << "; output length " << a.frame.output_length << ", expected 8";
  } else if (got != want || (c.length < 0 && a.frame.output_length != want.size())) {
    why << "; delivered \"" << shown(got) << "\" (length " << a.frame.output_length
        << "), expected \"" << shown(want) << "\"";
  }
  if (a.status != b.status || a.buffer != b.buffer || a.frame.output_length != b.frame.output_length)
    why << "; a second run gave a different result";
  if (why.str().empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << describe(c) << why.str();
}

std::vector<format_case> read_cases(const std::string &file) {
  std::vector<format_case> cases;
  std::ifstream in(data_path(file), std::ios::binary);
  if (!in) {
    ADD_FAILURE() << "cannot read " << data_path(file);
    return cases;
  }
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    std::string error;
    const std::string where = file + ":" + std::to_string(n);
    auto tokens = split(line, error);
    if (tokens && tokens->empty()) continue;
    std::optional<format_case> c;
    if (tokens) c = parse_case(*tokens, error);
    if (!c) {
      ADD_FAILURE() << where << ": " << error;
      continue;
    }
    c->where = where;
    cases.push_back(std::move(*c));
  }
  return cases;
}

void run_case_file(const std::string &file) {
  const std::vector<format_case> cases = read_cases(file);
  EXPECT_FALSE(cases.empty()) << file << " holds no case";
  for (const format_case &c : cases) EXPECT_TRUE(holds(c));
}

}  // namespace xfmt::test
