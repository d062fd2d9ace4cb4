// Giving back a handle of any kind: a character user format ('+') owns a
// chain that only free_user_handle walks; every other handle (catalog,
// intrinsic row, numeric user format) is xfdel's. xfrelease and the internal
// callers that open a handle for a moment all release through here.
#pragma once

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::catalog {

inline xf_status release_handle(void *handle) {
  if (handle == nullptr) return XF_OK;
  if (kind_of_handle(handle) == handle_kind::user_character) {
    free_user_handle(static_cast<xf_user_handle *>(handle));
    return XF_OK;
  }
  return xfdel(handle);
}

}  // namespace xfmt::catalog
