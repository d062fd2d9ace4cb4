// Name resolution: xfinit, xfname, xfname2 and their worker xfname3.
//
// Order of the steps (each one may end the resolution):
//   1. "$", "$F" and "$f" stand for "$CHAR";
//   2. a context that already carries a loaded control block gives a
//      user-defined handle for it;
//   3. an informat request puts "@" before the name;
//   4. the possible-format table names the module, the module's table the row;
//   5. the intrinsic names answer without a module;
//   6. with a context, the user-format reader is asked;
//   7. the handle is handed back (allocated, refreshed or static);
//   8. the width block is written.
#include "xfmt/xfmt.h"

#include <cstring>

#include "catalog/catalog.hpp"
#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "catalog/intrinsics.hpp"
#include "userfmt/nested_binding.hpp"

namespace xfmt::catalog {
namespace {

// Longest name resolution looks at: catalogued names have at most 16 bytes,
// user-defined names 32 plus the "@" of an informat request.
constexpr uint32_t max_name_length = 64;

constexpr int32_t informat_kind = 73;  // 'I'

bool row_is(const fmtinfo_eachfmt &r, const char *name, uint32_t length) {
  return r.name_length == length && r.name[0] == name[0] && std::memcmp(r.name, name, length) == 0;
}

enum class search { found, absent, failed };

// Step 4: the possible-format row, then the module row of the same name.
search search_catalog(const char *name, uint32_t length, const fmtposs_row *&poss,
                      const fmtinfo_eachfmt *&row_found) {
  for (const fmtposs_row &p : fmtposs) {
    if (!row_is(p.row, name, length)) continue;
    xf_status st = 0;
    const fmtinfo *module = xfload(nullptr, p.module_name, p.module_name_length, &st);
    if (module == nullptr) return search::failed;
    for (uint64_t i = 0; i < module->count; ++i) {
      if (row_is(module->rows[i], name, length)) {
        poss = &p;
        row_found = &module->rows[i];
        return search::found;
      }
    }
    return search::failed;
  }
  return search::absent;
}

void write_width_block(void *width_block, const fmtinfo_eachfmt &r) {
  if (width_block == nullptr) return;
  uint16_t w[8] = {r.min_width, r.max_width, r.default_width, r.national,
                   r.min_decimals, r.max_decimals, r.default_decimals, 0};
  std::memcpy(width_block, w, sizeof w);
}

void write_width_block(void *width_block, const xf_user_handle &h) {
  if (width_block == nullptr) return;
  uint16_t w[8] = {h.min_width, h.max_width, h.default_width, 0, 0, 0, 0, 0};
  std::memcpy(width_block, w, sizeof w);
}

// Fills a user-defined handle for the format whose header and range array
// the context carries, then lets setfptr choose its routine (setfptr also
// copies the format's three widths into the handle).
void fill_user_handle(xf_user_handle *h, const char *name, uint32_t length,
                      const xf_ufmt_context &ctx, void *first, void *last, bool nested) {
  std::memset(h, 0, sizeof *h);
  h->link = static_cast<uint64_t>(reinterpret_cast<uintptr_t>(h));
  h->kind = name[0] == '$' ? '+' : '-';
  h->one = 1;
  uint32_t n = length < sizeof h->name ? length : static_cast<uint32_t>(sizeof h->name);
  std::memset(h->name, ' ', sizeof h->name);
  std::memcpy(h->name, name, n);
  h->name_length = n;
  h->header = ctx.control;
  h->ranges = ctx.word2;
  h->chain_first = first;
  h->chain_last = last;
  if (nested) h->reserved1[0] = xfmt::userfmt::handle_has_nested;
  setfptr(ctx.control, h);
}

// The caller's handle storage when it already holds a record to refresh;
// a static intrinsic row is never refreshed in place.
void *owned_storage(void **slot) {
  return (*slot != nullptr && !is_intrinsic_row(*slot)) ? *slot : nullptr;
}

// Steps 2 and 6 allocate on a fresh chain. When the caller supplies the
// storage a zero-size first block still anchors the chain, so that the
// chain can be freed from its first block.
xf_user_handle *user_storage(void **slot, void *&chain) {
  if (void *own = owned_storage(slot)) {
    if (xfmalloc(&chain, 0) == nullptr) return nullptr;
    return static_cast<xf_user_handle *>(own);
  }
  return static_cast<xf_user_handle *>(xfmalloc(&chain, sizeof(xf_user_handle)));
}

// Nested labels are resolved here, once, on the handle's chain; the table
// of bindings is left as the chain's last block.
xf_status bind_labels(const xf_ufmt_context &ctx, void *&chain,
                      const xfmt::userfmt::nested_table *&table) {
  return xfmt::userfmt::bind_nested(static_cast<const xf_user_format *>(ctx.control),
                                    static_cast<const void *const *>(ctx.word2), &chain, &table) == 0
             ? XF_OK
             : 1;
}

// Step 2: a control block the host already loaded.
xf_status resolve_ready(const char *name, uint32_t length, const xf_ufmt_context &ctx,
                        void *width_block, void **slot) {
  void *chain = nullptr;
  xf_user_handle *h = user_storage(slot, chain);
  if (h == nullptr) return 1;
  void *first = chain;  // the handle's block, or the anchor block
  const xfmt::userfmt::nested_table *nested = nullptr;
  if (bind_labels(ctx, chain, nested) != XF_OK) {
    free_chain(first);
    return 1;
  }
  fill_user_handle(h, name, length, ctx, first, chain, nested != nullptr);
  write_width_block(width_block, *h);
  *slot = h;
  return XF_OK;
}

// Step 6: the user-format reader. Everything it allocates hangs on the same
// chain as the handle, so a failed read frees one chain and leaks nothing.
xf_status resolve_user(const char *name, uint32_t length, const xf_ufmt_context &ctx,
                       void *width_block, void **slot) {
  xf_ufmt_context copy;
  std::memcpy(&copy, &ctx, sizeof copy);
  void *chain = nullptr;
  xf_user_handle *h = user_storage(slot, chain);
  if (h == nullptr) return 1;
  void *first = chain;  // the handle's block, or the anchor block
  if (xfrdfmt(0, name, static_cast<int32_t>(length), &copy, &chain) != 0) {
    free_chain(first);
    return 1;
  }
  const xfmt::userfmt::nested_table *nested = nullptr;
  if (bind_labels(copy, chain, nested) != XF_OK) {
    free_chain(first);
    return 1;
  }
  fill_user_handle(h, name, length, copy, first, chain, nested != nullptr);
  write_width_block(width_block, *h);
  *slot = h;
  return XF_OK;
}

// Step 7 for a catalog row: a new 80-byte handle with link 0, or the
// caller's storage refreshed with its link pointing at itself.
xf_status hand_back(const fmtposs_row &poss, const fmtinfo_eachfmt &r, void **slot) {
  fmtposs_row *h = static_cast<fmtposs_row *>(owned_storage(slot));
  bool refresh = h != nullptr;
  if (!refresh) {
    void *chain = nullptr;
    h = static_cast<fmtposs_row *>(xfmalloc(&chain, sizeof(fmtposs_row)));
    if (h == nullptr) return 1;
  }
  std::memcpy(h, &poss, sizeof *h);
  h->row = r;
  h->link = refresh ? static_cast<uint64_t>(reinterpret_cast<uintptr_t>(h)) : 0;
  *slot = h;
  return XF_OK;
}

// Step 7 for an intrinsic name: the static row itself, or a copy of it in
// the caller's storage.
void hand_back_intrinsic(const fmtposs_row &row_static, void **slot) {
  if (fmtposs_row *h = static_cast<fmtposs_row *>(owned_storage(slot))) {
    std::memcpy(h, &row_static, sizeof *h);
    h->link = static_cast<uint64_t>(reinterpret_cast<uintptr_t>(h));
    return;
  }
  *slot = const_cast<fmtposs_row *>(&row_static);
}

xf_status resolve(const char *name, int32_t length, int32_t kind, void *width_block, void **slot,
                  const xf_ufmt_context *ctx) {
  if (name == nullptr || length <= 0 || static_cast<uint32_t>(length) >= max_name_length) return 1;
  uint32_t n = static_cast<uint32_t>(length);

  // 1. Character shorthand.
  if (name[0] == '$' && (n == 1 || (n == 2 && (name[1] == 'F' || name[1] == 'f')))) {
    name = "$CHAR";
    n = 5;
  }

  // 2. Ready user format.
  if (ctx != nullptr && ctx->control != nullptr && ctx->read_from_file == 0)
    return resolve_ready(name, n, *ctx, width_block, slot);

  // 3. Informat prefix.
  char buf[max_name_length + 1];
  if (kind == informat_kind) {
    buf[0] = '@';
    std::memcpy(buf + 1, name, n);
    name = buf;
    ++n;
  }

  // 4. Catalog search.
  const fmtposs_row *poss = nullptr;
  const fmtinfo_eachfmt *r = nullptr;
  switch (search_catalog(name, n, poss, r)) {
    case search::failed: return 1;
    case search::found:
      if (hand_back(*poss, *r, slot) != XF_OK) return 1;
      write_width_block(width_block, *r);
      return XF_OK;
    case search::absent: break;
  }

  // 5. Intrinsic names.
  if (const fmtposs_row *intr = find_intrinsic(name, n)) {
    hand_back_intrinsic(*intr, slot);
    write_width_block(width_block, intr->row);
    return XF_OK;
  }

  // 6. User-defined fallback.
  if (ctx == nullptr) return 1;
  return resolve_user(name, n, *ctx, width_block, slot);
}

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" {

xf_status xfinit(void) { return XF_OK; }
xf_status xfinit2(void) { return XF_OK; }

xf_status xfname(const char *name, int32_t length, int32_t kind, void *width_block, void **handle) {
  if (handle) *handle = nullptr;
  return xfname3(name, length, kind, width_block, handle, nullptr);
}

xf_status xfname2(const char *name, int32_t length, int32_t kind, void *width_block, void **handle,
                  void *context) {
  if (handle) *handle = nullptr;
  return xfname3(name, length, kind, width_block, handle, context);
}

xf_status xfname3(const char *name, int32_t length, int32_t kind, void *width_block, void **handle,
                  void *context) {
  const auto *ctx = static_cast<const xf_ufmt_context *>(context);
  if (handle != nullptr) return resolve(name, length, kind, width_block, handle, ctx);
  // No handle storage: the caller wants the width block only; release what
  // resolution allocated.
  void *local = nullptr;
  xf_status st = resolve(name, length, kind, width_block, &local, ctx);
  if (local != nullptr && !is_intrinsic_row(local)) {
    if (is_user_handle(local)) free_user_handle(static_cast<xf_user_handle *>(local));
    else xfdel(local);
  }
  return st;
}

}  // extern "C"
