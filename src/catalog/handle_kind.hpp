// What a handle is, read from its kind byte (offset 8). A user-defined handle
// keeps '+' (character format) or '-' (numeric format) there; a catalog handle
// has the first letter of its module name, an intrinsic row a blank. Every
// place that must tell them apart asks here.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::catalog {

static_assert(offsetof(xf_user_handle, kind) == 8 && offsetof(fmtposs_row, module_name) == 8);

enum class handle_kind : uint8_t { catalog, user_character, user_numeric };

inline handle_kind kind_of_handle(const void *handle) {
  switch (static_cast<const char *>(handle)[8]) {
    case '+': return handle_kind::user_character;
    case '-': return handle_kind::user_numeric;
    default: return handle_kind::catalog;
  }
}

inline bool is_user_handle(const void *handle) {
  return kind_of_handle(handle) != handle_kind::catalog;
}

}  // namespace xfmt::catalog
