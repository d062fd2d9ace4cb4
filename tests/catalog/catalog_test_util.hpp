// Small helpers shared by the catalog tests.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include "xfmt/xfmt.h"

namespace xfmt::test {

// The 16-byte width block as eight u16 values.
struct width_block {
  uint16_t v[8] = {0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE};
  bool operator==(const width_block &o) const { return std::memcmp(v, o.v, sizeof v) == 0; }
};

inline width_block expected_block(const fmtinfo_eachfmt &r) {
  width_block b;
  uint16_t w[8] = {r.min_width, r.max_width, r.default_width, r.national,
                   r.min_decimals, r.max_decimals, r.default_decimals, 0};
  std::memcpy(b.v, w, sizeof w);
  return b;
}

inline std::string block_text(const width_block &b) {
  std::string s;
  for (uint16_t x : b.v) s += std::to_string(x) + " ";
  return s;
}

inline std::string name_of(const fmtinfo_eachfmt &r) { return std::string(r.name, r.name_length); }

// The module row a possible-format row names, looked up through xfload.
inline const fmtinfo_eachfmt *module_row(const fmtposs_row &p) {
  xf_status st = 0;
  const fmtinfo *m = xfload(nullptr, p.module_name, p.module_name_length, &st);
  for (uint64_t i = 0; m != nullptr && i < m->count; ++i)
    if (m->rows[i].name_length == p.row.name_length &&
        std::memcmp(m->rows[i].name, p.row.name, p.row.name_length) == 0)
      return &m->rows[i];
  return nullptr;
}

// Resolves a name given as a C string; returns the status, fills handle and block.
inline xf_status resolve(const std::string &name, void **handle, width_block *block = nullptr,
                         int32_t kind = 0) {
  return xfname(name.data(), static_cast<int32_t>(name.size()), kind, block ? block->v : nullptr, handle);
}

}  // namespace xfmt::test
