// Linear-scan versions of LocnameToID and EncnameToID (see the header).
#include "oracle/locale_names_oracle.hpp"

#include <utility>
#include <vector>

#include "nls/locale_names.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::oracle {
namespace {

std::string upper(const std::string &s) {
  std::string u = s;
  for (char &c : u)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  return u;
}

std::string field(int id, int f) {
  const zav_locale_field &x = ZAVlocaleData[id - 1][f];
  return x.length ? std::string(x.text, x.length) : std::string();
}

}  // namespace

uint32_t locale_id_linear(const std::string &name) {
  static const std::vector<std::string> codes = [] {
    std::vector<std::string> v;
    for (int id = 1; id <= 136; ++id) v.push_back(upper(field(id, 4)) + "_" + upper(field(id, 5)));
    return v;
  }();
  const std::string u = upper(name);
  if (u.size() != 5) return 0;
  for (size_t k = 0; k < codes.size(); ++k)
    if (u == codes[k]) return static_cast<uint32_t>(k + 1);
  if (u == "IW_IL") return 71;
  if (u == "SR_CS") return 101;
  if (u == "SH_YU" || u == "SH_CS") return 105;
  return 0;
}

uint32_t encoding_id_linear(const std::string &name) {
  static const std::vector<std::pair<std::string, uint32_t>> names = [] {
    std::vector<std::pair<std::string, uint32_t>> v;
    for (const zav_encname_bucket &b : etable)
      for (int32_t i = 0; i < b.count; ++i)
        v.emplace_back(std::string(b.entries[i].name, static_cast<size_t>(b.entries[i].length)),
                       b.entries[i].id);
    return v;
  }();
  const std::string u = upper(name);
  for (const auto &[n, id] : names)
    if (u == n) return id;
  return 0;
}

}  // namespace xfmt::oracle
