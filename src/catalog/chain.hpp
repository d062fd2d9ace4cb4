// The allocation chain of resolution: blocks from xfmalloc linked through
// their first word, freed as a whole by xfdel.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::catalog {

// A block is [link][size] header words, then the caller's bytes, then one
// spare word; xfmalloc returns the address just past the header.
inline constexpr uint64_t chain_header_bytes = 16;
inline constexpr uint64_t chain_spare_bytes = 8;

// The block that holds the record xfmalloc returned.
inline void *chain_block_of(void *record) {
  return static_cast<unsigned char *>(record) - chain_header_bytes;
}

// Frees every block from first on, following each block's first word.
void free_chain(void *first);

// Frees the whole chain of a user-defined handle, whatever its kind. xfdel
// leaves "+" handles alone (their records may be shared with the host's
// catalog); a caller that owns such a handle outright releases it here.
void free_user_handle(xf_user_handle *handle);

}  // namespace xfmt::catalog
