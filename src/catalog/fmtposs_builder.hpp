// Builds the possible-format table from the module tables at compile time, so
// each conversion is written down once, in its module's row. The table lists
// the modules in host order (below) and, inside a module, the rows in the
// module's own order, leaving out the rows no name may resolve to.
#pragma once

#include <array>
#include <cstddef>

#include "catalog/catalog.hpp"
#include "catalog/module_jazwfbin.hpp"
#include "catalog/module_jazwfdte.hpp"
#include "catalog/module_jazwfmsc.hpp"
#include "catalog/module_jazwfnls.hpp"
#include "catalog/module_jazwftme.hpp"
#include "catalog/module_jazwfuwf.hpp"
#include "catalog/module_jazwibin.hpp"
#include "catalog/module_jazwidte.hpp"
#include "catalog/module_jazwimsc.hpp"
#include "catalog/module_jazwiuwi.hpp"

namespace xfmt::catalog {

struct module_rows {
  const char *module;
  const fmtinfo_eachfmt *rows;
  std::size_t count;
};

template <std::size_t N>
constexpr module_rows rows_of(const char *module, const fmtinfo_eachfmt (&rows)[N]) {
  return {module, rows, N};
}

// The order hosts read the table in. It is not the search order of
// names_and_entries: here the national formats follow the user-written ones.
inline constexpr module_rows fmtposs_modules[] = {
    rows_of("JAZWFBIN", jazwfbin_rows), rows_of("JAZWFDTE", jazwfdte_rows),
    rows_of("JAZWFMSC", jazwfmsc_rows), rows_of("JAZWFTME", jazwftme_rows),
    rows_of("JAZWFUWF", jazwfuwf_rows), rows_of("JAZWFNLS", jazwfnls_rows),
    rows_of("JAZWIBIN", jazwibin_rows), rows_of("JAZWIDTE", jazwidte_rows),
    rows_of("JAZWIMSC", jazwimsc_rows), rows_of("JAZWIUWI", jazwiuwi_rows),
};

// The only module rows without a possible-format row, and so never resolved:
// the name PIBR belongs to JAZWFBIN, whose row is listed; @$F has never been
// resolvable (@$CHAR reaches the same routine), and hosts rely on that.
struct unlisted_row {
  const char *module;
  const char *name;
};
inline constexpr unlisted_row fmtposs_unlisted[] = {{"JAZWFUWF", "PIBR"}, {"JAZWIMSC", "@$F"}};

constexpr bool same_text(const char *a, const char *b) {
  while (*a != '\0' && *a == *b) ++a, ++b;
  return *a == *b;
}

constexpr bool row_is_named(const fmtinfo_eachfmt &r, const char *name) {
  uint32_t n = 0;
  while (name[n] != '\0') ++n;
  if (n != r.name_length) return false;
  for (uint32_t i = 0; i < n; ++i)
    if (r.name[i] != name[i]) return false;
  return true;
}

constexpr bool is_unlisted(const char *module, const fmtinfo_eachfmt &r) {
  for (const unlisted_row &u : fmtposs_unlisted)
    if (same_text(u.module, module) && row_is_named(r, u.name)) return true;
  return false;
}

// Every unlisted row names a row that exists, exactly once; a renamed row
// would otherwise slip into the table unnoticed.
constexpr bool unlisted_rows_exist() {
  for (const unlisted_row &u : fmtposs_unlisted) {
    int found = 0;
    for (const module_rows &m : fmtposs_modules)
      for (std::size_t i = 0; i < m.count; ++i)
        if (same_text(u.module, m.module) && row_is_named(m.rows[i], u.name)) ++found;
    if (found != 1) return false;
  }
  return true;
}

constexpr std::size_t listed_row_count() {
  std::size_t n = 0;
  for (const module_rows &m : fmtposs_modules)
    for (std::size_t i = 0; i < m.count; ++i)
      if (!is_unlisted(m.module, m.rows[i])) ++n;
  return n;
}

static_assert(unlisted_rows_exist());
static_assert(listed_row_count() == fmtposs_count);

consteval std::array<fmtposs_row, fmtposs_count> build_fmtposs() {
  std::array<fmtposs_row, fmtposs_count> table{};
  std::size_t k = 0;
  for (const module_rows &m : fmtposs_modules)
    for (std::size_t i = 0; i < m.count; ++i)
      if (!is_unlisted(m.module, m.rows[i])) table[k++] = poss(m.module, m.rows[i]);
  return table;
}

}  // namespace xfmt::catalog
