// The literal encoder (see nls_encode_oracle.hpp).
#include "nls_encode_oracle.hpp"

#include <iconv.h>
#include <langinfo.h>
#include <strings.h>

#include <vector>

namespace xfmt::oracle {
namespace {

std::vector<char16_t> to_units(const std::string &t) {
  std::vector<char16_t> u;
  for (size_t i = 0; i < t.size();) {
    auto hex = [](char c) {
      if (c >= '0' && c <= '9') return c - '0';
      if (c >= 'a' && c <= 'f') return c - 'a' + 10;
      if (c >= 'A' && c <= 'F') return c - 'A' + 10;
      return -1;
    };
    if (i + 7 <= t.size() && t[i] == '<' && (t[i + 1] == 'U' || t[i + 1] == 'u') &&
        t[i + 6] == '>' && hex(t[i + 2]) >= 0 && hex(t[i + 3]) >= 0 && hex(t[i + 4]) >= 0 &&
        hex(t[i + 5]) >= 0) {
      int v = ((hex(t[i + 2]) * 16 + hex(t[i + 3])) * 16 + hex(t[i + 4])) * 16 + hex(t[i + 5]);
      u.push_back(v == 0xA4 ? char16_t{1} : static_cast<char16_t>(v));
      i += 7;
    } else {
      unsigned char c = static_cast<unsigned char>(t[i++]);
      u.push_back(c == 0xA4 ? char16_t{1} : char16_t{c});
    }
  }
  return u;
}

bool run(const char *to, const char *from, const std::string &in, std::string &out) {
  iconv_t cd = iconv_open(to, from);
  if (cd == reinterpret_cast<iconv_t>(-1)) return false;
  std::vector<char> buf(in.size() * 4 + 16);
  char *ip = const_cast<char *>(in.data());
  char *op = buf.data();
  size_t il = in.size(), ol = buf.size();
  bool ok = iconv(cd, &ip, &il, &op, &ol) != static_cast<size_t>(-1);
  iconv_close(cd);
  out.assign(buf.data(), static_cast<size_t>(op - buf.data()));
  return ok;
}

// One character at a time, "?" for those the codeset lacks.
std::string convert(const std::vector<char16_t> &u, size_t n) {
  const char *cs = nl_langinfo(CODESET);
  std::string all;
  for (size_t i = 0; i < n; ++i) {
    std::string le(2, '\0'), utf8, target;
    le[0] = static_cast<char>(u[i] & 0xFF);
    le[1] = static_cast<char>(u[i] >> 8);
    run("UTF-8", "UTF-16LE", le, utf8);
    if (strcasecmp(cs, "UTF-8") == 0 || strcasecmp(cs, "UTF8") == 0)
      target = utf8;
    else if (!run(cs, "UTF-8", utf8, target))
      target = "?";
    all += target;
  }
  return all;
}

}  // namespace

encoded_text encode_literally(const std::string &narrow, int width, uint32_t capacity) {
  std::vector<char16_t> u = to_units(narrow);
  size_t n = u.size();
  std::string text = convert(u, n);
  bool cut = false;
  while (text.size() > static_cast<size_t>(width > 0 ? width : 0) && n > 0) {
    cut = true;
    text = convert(u, --n);
  }
  if (text.size() > capacity) return {2, ""};
  return {cut ? 1 : static_cast<int>(text.size()) - width, text};
}

}  // namespace xfmt::oracle
