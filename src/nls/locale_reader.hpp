// The expander's view of a database record: a field_reader over a resolved
// locale id (0, no record, reads nothing).
#pragma once

#include "nls/expand.hpp"
#include "nls/locale.hpp"

namespace xfmt::nls {

inline bool read_locale_field(const void *context, int field, std::string_view *text) {
  const int id = static_cast<int>(reinterpret_cast<intptr_t>(context));
  if (!locale_field_ok(id, field)) return false;
  *text = locale_field(id, field);
  return true;
}

inline field_reader locale_reader(int id) {
  const bool valid = id >= 1 && id <= locale_count;
  return {reinterpret_cast<const void *>(static_cast<intptr_t>(id)), &read_locale_field,
          valid ? ZAVlocaleData[id - 1] : nullptr};
}

}  // namespace xfmt::nls
