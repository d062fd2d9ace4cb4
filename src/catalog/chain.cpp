// Allocation chain (xfmalloc, xffree) and handle release (xfdel, xfrelease).
#include "xfmt/xfmt.h"

#include <cstdlib>  // calloc, free
#include <cstring>  // memcpy

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "catalog/handle_release.hpp"
#include "catalog/intrinsics.hpp"

namespace xfmt::catalog {

namespace {

uint64_t load_word(const void *p) {
  uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

void store_word(void *p, uint64_t w) { std::memcpy(p, &w, sizeof w); }

}  // namespace

void free_chain(void *first) {
  void *block = first;
  while (block != nullptr) {
    void *next = reinterpret_cast<void *>(static_cast<uintptr_t>(load_word(block)));
    std::free(block);
    block = next;
  }
}

void free_user_handle(xf_user_handle *handle) {
  if (handle != nullptr) free_chain(handle->chain_first);
}

}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" {

void *xfmalloc(void **chain, uint64_t size) {
  if (chain == nullptr) return nullptr;
  // Refuse sizes whose block size would wrap; resolution never asks for more
  // than a few kilobytes.
  if (size > (uint64_t{1} << 40)) return nullptr;
  uint64_t total = chain_header_bytes + size + chain_spare_bytes;
  void *block = std::calloc(1, static_cast<size_t>(total));
  if (block == nullptr) return nullptr;
  store_word(static_cast<unsigned char *>(block) + 8, size);
  if (*chain != nullptr) store_word(*chain, static_cast<uint64_t>(reinterpret_cast<uintptr_t>(block)));
  *chain = block;
  return static_cast<unsigned char *>(block) + chain_header_bytes;
}

void xffree(void *block) { (void)block; }

xf_status xfdel(void *handle) {
  if (handle == nullptr || is_intrinsic_row(handle)) return XF_OK;
  const auto *bytes = static_cast<const unsigned char *>(handle);
  if (bytes[8] == '-') {
    // A numeric user-defined handle owns its whole chain, itself included.
    xf_user_handle *user = static_cast<xf_user_handle *>(handle);
    free_chain(user->chain_first);
    return XF_OK;
  }
  // A handle allocated by resolution (link 0) is one block; a refreshed
  // handle (link = itself) and a "+" handle stay with their owner.
  if (load_word(handle) == 0) std::free(chain_block_of(handle));
  return XF_OK;
}

xf_status xfrelease(void *handle) { return release_handle(handle); }

}  // extern "C"
