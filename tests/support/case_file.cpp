#include "support/case_file.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>

#include "catalog/missing.hpp"

namespace xfmt::test {

namespace {

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// One field from p (at its first byte) to the next tab or the end; a quoted
// field ends at its closing quote. Returns false on a malformed field.
bool take_field(const std::string &s, size_t &p, std::string &out) {
  out.clear();
  if (s[p] != '"') {
    while (p < s.size() && s[p] != '\t') out.push_back(s[p++]);
    return true;
  }
  for (++p; p < s.size() && s[p] != '"'; ++p) {
    if (s[p] != '\\') {
      out.push_back(s[p]);
      continue;
    }
    if (++p == s.size()) return false;
    switch (s[p]) {
      case 't': out.push_back('\t'); break;
      case 'n': out.push_back('\n'); break;
      case 'x': {
        if (p + 2 >= s.size() || hex_digit(s[p + 1]) < 0 || hex_digit(s[p + 2]) < 0) return false;
        out.push_back(static_cast<char>(hex_digit(s[p + 1]) << 4 | hex_digit(s[p + 2])));
        p += 2;
        break;
      }
      default: out.push_back(s[p]);
    }
  }
  if (p == s.size()) return false;
  ++p;
  return p == s.size() || s[p] == '\t';
}

}  // namespace

std::vector<case_line> read_cases(const std::string &path) {
  std::vector<case_line> cases;
  std::ifstream in(std::string(XFMT_SOURCE_DIR) + "/tests/data/" + path, std::ios::binary);
  if (!in) {
    ADD_FAILURE() << "cannot read tests/data/" << path;
    return cases;
  }
  std::string s;
  for (int n = 1; std::getline(in, s); ++n) {
    if (!s.empty() && s.back() == '\r') s.pop_back();
    if (s.find_first_not_of(" \t") == std::string::npos || s[0] == '#') continue;
    case_line c{path + ":" + std::to_string(n), {}};
    for (size_t p = 0; p < s.size();) {
      if (s[p] == '\t') { ++p; continue; }
      std::string f;
      if (!take_field(s, p, f)) {
        ADD_FAILURE() << c.where << ": malformed field";
        break;
      }
      c.fields.push_back(f);
    }
    cases.push_back(std::move(c));
  }
  EXPECT_FALSE(cases.empty()) << "no case in tests/data/" << path;
  return cases;
}

xf_status status_named(const std::string &name) {
  static const struct { const char *name; xf_status status; } known[] = {
      {"OK", XF_OK}, {"REDUCED", XF_REDUCED}, {"UTF16_LABEL", XF_UTF16_LABEL},
      {"NL_WIDTH_LOW", XF_NL_WIDTH_LOW}, {"NL_WIDTH_HIGH", XF_NL_WIDTH_HIGH},
      {"NL_DECIMALS_LOW", XF_NL_DECIMALS_LOW}, {"NL_DECIMALS_HIGH", XF_NL_DECIMALS_HIGH},
      {"NOT_BUILT", XF_E_NOT_BUILT}, {"NULL_ARGUMENT", XF_E_NULL_ARGUMENT},
      {"DATE_RANGE", XF_E_DATE_RANGE}, {"HOURS_RANGE", XF_E_HOURS_RANGE},
      {"CAPACITY", XF_E_CAPACITY}, {"OVERFLOW", XF_E_OVERFLOW},
      {"IN_RANGE_WARNING", XF_IN_RANGE_WARNING}, {"IN_INVALID", XF_IN_INVALID},
      {"IN_BAD_WIDTH", XF_IN_BAD_WIDTH},
  };
  for (const auto &k : known)
    if (name == k.name) return k.status;
  char *end = nullptr;
  const unsigned long v = std::strtoul(name.c_str(), &end, 0);
  EXPECT_TRUE(!name.empty() && *end == 0) << "unknown status " << name;
  return static_cast<xf_status>(v);
}

double value_named(const std::string &text) {
  if (text == ".") return missing_ordinary();
  if (text == "._") return missing_value(0);
  if (text.size() == 2 && text[0] == '.' && text[1] >= 'A' && text[1] <= 'Z') return missing_value(2 + text[1] - 'A');
  if (text == "nan") return std::numeric_limits<double>::quiet_NaN();
  if (text.rfind("bits:", 0) == 0) return bits_double(std::strtoull(text.c_str() + 5, nullptr, 16));
  char *end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  EXPECT_TRUE(!text.empty() && *end == 0) << "bad value " << text;
  return v;
}

xf_routine routine_named(const std::string &name) {
  const bool informat = !name.empty() && name[0] == '@';
  const std::string bare = informat ? name.substr(1) : name;
  void *handle = nullptr;
  xf_routine routine = nullptr;
  if (xfname(bare.data(), static_cast<int32_t>(bare.size()), informat ? 73 : 0, nullptr, &handle) == 0) {
    routine = static_cast<const fmtposs_row *>(handle)->row.routine;
    xfdel(handle);
  }
  EXPECT_NE(routine, nullptr) << "no routine resolves from " << name;
  return routine;
}

void check_format_line(const case_line &c) {
  SCOPED_TRACE(c.where);
  const auto &f = c.fields;
  if (f.size() != 6 && !(f.size() == 7 && f[6] == "...")) {
    ADD_FAILURE() << "want NAME w d value text status";
    return;
  }
  const xf_routine routine = routine_named(f[0]);
  if (routine == nullptr) return;
  const int32_t w = std::atoi(f[1].c_str()), d = std::atoi(f[2].c_str());
  std::string want = f[4];
  if (f.size() == 7 && want.size() < static_cast<size_t>(w)) want.resize(static_cast<size_t>(w), ' ');

  constexpr size_t guard = 16;
  std::vector<unsigned char> out(static_cast<size_t>(w) + guard, 0xEE);
  double value = 0;
  std::string bytes;
  xf_frame fr{};
  if (f[3].rfind("x:", 0) == 0) {  // character input given as hexadecimal bytes
    for (size_t i = 2; i + 1 < f[3].size(); i += 2)
      bytes.push_back(static_cast<char>(hex_digit(f[3][i]) << 4 | hex_digit(f[3][i + 1])));
    fr.input = bytes.data();
    fr.input_length = static_cast<uint32_t>(bytes.size());
  } else {
    value = value_named(f[3]);
    fr.input = &value;
    fr.input_length = 8;
  }
  fr.width = w;
  fr.decimals = d;
  fr.output = out.data();
  fr.output_capacity = static_cast<uint32_t>(w);
  const xf_status st = routine(&fr);
  const size_t n = fr.output_length < static_cast<uint32_t>(w) ? fr.output_length : static_cast<size_t>(w);
  EXPECT_EQ(std::string(reinterpret_cast<const char *>(out.data()), n), want);
  EXPECT_LE(fr.output_length, static_cast<uint32_t>(w));
  EXPECT_EQ(st, status_named(f[5]));
  for (size_t i = static_cast<size_t>(w); i < out.size(); ++i) EXPECT_EQ(out[i], 0xEE) << "written past the width";
}

void check_format_file(const std::string &path) {
  for (const case_line &c : read_cases(path)) check_format_line(c);
}

}  // namespace xfmt::test
