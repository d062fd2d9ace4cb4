// The two name tables that LocnameToID and EncnameToID probe, exported with
// C linkage under their short names. Kept out of xfmt.h: a global called
// `table` would shadow every parameter of that name in the host's code.
#pragma once

#include "xfmt/xfmt.h"

extern "C" {
XF_API extern const zav_locname_bucket table[79];
XF_API extern const zav_encname_bucket etable[122];
}
