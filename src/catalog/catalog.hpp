// The catalog: compile-time builders of module rows and possible-format rows,
// and the internal view of the module tables. Other subsystems include this
// only to register their routines in the module_*.hpp tables.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::catalog {

// Names are blank padded to at least eight characters, then NUL padded to 16.
constexpr void put_name(char (&dst)[16], uint32_t &len, const char *name) {
  uint32_t n = 0;
  while (name[n] != '\0') ++n;
  len = n;
  for (uint32_t i = 0; i < 16; ++i) dst[i] = i < n ? name[i] : (i < 8 ? ' ' : '\0');
}

constexpr fmtinfo_eachfmt row(const char *name, uint16_t min_w, uint16_t max_w, uint16_t def_w,
                              uint16_t min_d, uint16_t max_d, uint16_t def_d, xf_routine routine,
                              uint16_t national = 0) {
  fmtinfo_eachfmt r{};
  put_name(r.name, r.name_length, name);
  r.min_width = min_w;
  r.max_width = max_w;
  r.default_width = def_w;
  r.national = national;
  r.min_decimals = min_d;
  r.max_decimals = max_d;
  r.default_decimals = def_d;
  r.routine = routine;
  return r;
}

// A possible-format row: module name (NUL padded), its length 8, and the
// conversion name and length; every other byte zero.
constexpr fmtposs_row poss(const char *module, const char *name) {
  fmtposs_row p{};
  for (int i = 0; i < 16; ++i) p.module_name[i] = '\0';
  for (int i = 0; module[i] != '\0' && i < 16; ++i) p.module_name[i] = module[i];
  p.module_name_length = 8;
  put_name(p.row.name, p.row.name_length, name);
  return p;
}

// The possible-format row of a module row: its name only, limits and routine
// stay zero (resolution reads them from the module row).
constexpr fmtposs_row poss(const char *module, const fmtinfo_eachfmt &r) {
  fmtposs_row p = poss(module, "");
  for (int i = 0; i < 16; ++i) p.row.name[i] = r.name[i];
  p.row.name_length = r.name_length;
  return p;
}

inline constexpr std::size_t module_count = 10;
inline constexpr std::size_t fmtposs_count = 548;

}  // namespace xfmt::catalog
