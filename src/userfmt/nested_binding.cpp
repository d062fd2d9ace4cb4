// Binding nested labels at resolution: walk the format's labels, resolve
// every format label once on the outer handle's chain, and detect a format
// that nests itself through a stack of the headers being bound.
#include "userfmt/nested_binding.hpp"

#include <cstring>

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "userfmt/records.hpp"

namespace xfmt::userfmt {
namespace {

thread_local const nested_table *current = nullptr;
// Headers whose labels are being bound on this thread, outermost first.
thread_local const xf_user_format *binding_stack[max_nested_depth];
thread_local int binding_depth = 0;
// Why the innermost bind refused: nested_cycle or nested_too_deep.
thread_local int32_t refusal = nested_unknown;

bool is_format_label(const void *label) {
  if (label == nullptr) return false;
  uint8_t k = label_kind(label);
  return k != XF_LABEL_TEXT && k != XF_LABEL_PICTURE;
}

// Calls f on every format label of the format, in entry order then OTHER.
template <class F>
void each_format_label(const xf_user_format *h, const void *const *ranges, F f) {
  auto visit = [&](const void *label, bool list) {
    if (label == nullptr) return;
    if (!list) {
      if (is_format_label(label)) f(label);
      return;
    }
    for (uint32_t i = 0; i < list_count(label); ++i)
      if (is_format_label(list_label(label, i))) f(list_label(label, i));
  };
  for (int64_t i = 0; ranges != nullptr && i < h->range_count; ++i)
    if (ranges[i] != nullptr) visit(entry_label(ranges[i]), entry_flags(ranges[i]) & XF_RANGE_LABEL_LIST);
  if (h->has_other) visit(h->other_label, false);
}

bool is_anchor(const xf_user_format *h) { return std::memcmp(h->marker, "00000000", 8) == 0; }

void store_word(void *p, const void *w) { std::memcpy(p, &w, sizeof w); }

// Resolves one label's name within the catalog of its format.
void bind_one(nested_binding &b, const xf_user_format *header, const void *const *ranges,
              void **chain) {
  auto lf = static_cast<const xf_label_format *>(b.label);
  b.state = nested_unknown;
  int32_t len = 32;
  while (len > 0 && lf->name[len - 1] == ' ') --len;
  if (len == 0) return;
  // The name may resolve to any format of the same catalog: walk back to
  // its anchor.
  auto h = header;
  auto r = ranges;
  while (!is_anchor(h)) {
    --h;
    r -= h->range_count;
  }
  xf_ufmt_context ctx{};
  ctx.source = 5;
  ctx.catalog = h;
  ctx.catalog_ranges = r;
  // The inner handle lives in storage on the outer chain: resolution fills
  // it in place, and a user format's own chain is spliced onto the outer one
  // so that releasing the outer handle releases everything.
  void *storage = xfmalloc(chain, sizeof(xf_user_handle) + sizeof(fmtposs_row));
  if (storage == nullptr) return;
  *chain = catalog::chain_block_of(storage);
  void *handle = storage;
  refusal = nested_unknown;
  if (xfname3(lf->name, len, 0, b.widths, &handle, &ctx) != XF_OK || handle == nullptr) {
    b.state = refusal;
    return;
  }
  if (catalog::is_user_handle(handle)) {
    auto *u = static_cast<xf_user_handle *>(handle);
    store_word(*chain, u->chain_first);
    *chain = u->chain_last;
    u->chain_first = nullptr;  // the outer chain owns the blocks now
  }
  b.handle = handle;
  b.state = nested_bound;
}

}  // namespace

int bind_nested(const xf_user_format *header, const void *const *ranges, void **chain,
                const nested_table **table) {
  *table = nullptr;
  if (header == nullptr) return 0;
  uint64_t count = 0;
  each_format_label(header, ranges, [&](const void *) { ++count; });
  if (count == 0) return 0;
  for (int i = 0; i < binding_depth; ++i)
    if (binding_stack[i] == header) {
      refusal = nested_cycle;
      return 1;
    }
  if (binding_depth >= max_nested_depth) {
    refusal = nested_too_deep;
    return 1;
  }
  auto *t = static_cast<nested_table *>(
      xfmalloc(chain, sizeof(nested_table) + (count - 1) * sizeof(nested_binding)));
  if (t == nullptr) return 1;
  *chain = catalog::chain_block_of(t);
  t->count = count;
  uint64_t i = 0;
  each_format_label(header, ranges, [&](const void *label) { t->rows[i++].label = label; });
  binding_stack[binding_depth++] = header;
  for (i = 0; i < count; ++i) bind_one(t->rows[i], header, ranges, chain);
  --binding_depth;
  // The table is the chain's last block, where the handle finds it; a block
  // the bindings spliced on after it would hide it, so it moves to the end.
  if (*chain != catalog::chain_block_of(t)) {
    auto *last = static_cast<nested_table *>(
        xfmalloc(chain, sizeof(nested_table) + (count - 1) * sizeof(nested_binding)));
    if (last == nullptr) return 1;
    *chain = catalog::chain_block_of(last);
    std::memcpy(last, t, sizeof(nested_table) + (count - 1) * sizeof(nested_binding));
    t = last;
  }
  *table = t;
  return 0;
}

const nested_table *current_nested() { return current; }

nested_scope::nested_scope(const nested_table *t) : saved_(current) { current = t; }
nested_scope::~nested_scope() { current = saved_; }

}  // namespace xfmt::userfmt
