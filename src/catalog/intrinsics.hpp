// The three intrinsic pseudo-formats: their static rows and the lookup that
// resolution falls back to when a name is in no module.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::catalog {

// The intrinsic row of the first length bytes of name, or nullptr.
const fmtposs_row *find_intrinsic(const char *name, uint32_t length);

// True when p is one of the static intrinsic rows (never freed, never written).
bool is_intrinsic_row(const void *p);

// The "$IS-INTRINSIC" answer for an upper-cased name without trailing blanks.
bool is_intrinsic_name(const char *name, uint32_t length);

}  // namespace xfmt::catalog
