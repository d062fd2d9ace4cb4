// Value-label lookup of numeric formats: the linear search in stored order
// (yfpfnfn, which may collect every match) and the bisections over sorted
// entries (yfpfnfm mixed, yfpfnfs single values, yfpfnfr ranges).
#include "xfmt/xfmt.h"

#include "core/field.hpp"
#include "userfmt/keys.hpp"
#include "userfmt/matches.hpp"
#include "userfmt/output.hpp"
#include "userfmt/records.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::userfmt {
namespace {

inline const xf_range_numeric *num(const void *e) { return static_cast<const xf_range_numeric *>(e); }

// Full test of one entry: a single value by equality, a range by its fuzzed
// bounds and its exact excluded ends.
inline bool holds(const xf_range_numeric *e, uint64_t key) {
  if (e->entry_kind == XF_RANGE_NUMERIC_VALUE) return key == load_key(e->start_key);
  if (key < load_key(e->low_key) || key > load_key(e->high_key)) return false;
  if ((e->flags & XF_RANGE_START_EXCL) && key == load_key(e->start_key)) return false;
  if ((e->flags & XF_RANGE_END_EXCL) && key == load_key(e->end_key)) return false;
  return true;
}

// The range entry mid (1-based) whose bounds hold key: it answers, unless
// key is its excluded end, when the neighbour on that side may hold it.
inline const xf_range_numeric *landed(const xf_range_numeric *e, const void *const *r, int64_t n,
                                      int64_t mid, uint64_t key) {
  if ((e->flags & XF_RANGE_START_EXCL) && key == load_key(e->start_key)) {
    if (mid == 1) return nullptr;
    const xf_range_numeric *p = num(r[mid - 2]);
    return holds(p, key) ? p : nullptr;
  }
  if ((e->flags & XF_RANGE_END_EXCL) && key == load_key(e->end_key)) {
    if (mid == n) return nullptr;
    const xf_range_numeric *q = num(r[mid]);
    return holds(q, key) ? q : nullptr;
  }
  return e;
}

enum class shape { mixed, values, ranges };

// Bisection, 1-based as the tables are described. Two ranges may share a
// boundary: with 1-<2 and 2-3, the value 2 may land on 1-<2 (its low bound
// key is below 2 and its high bound key equals 2); the excluded end sends the
// test to the next entry, 2-3, which holds it.
template <shape S>
const xf_range_numeric *bisect(const void *const *r, int64_t n, uint64_t key) {
  int64_t lo = 1, hi = n;
  while (lo <= hi) {
    int64_t mid = lo + (hi - lo) / 2;
    const xf_range_numeric *e = num(r[mid - 1]);
    bool single = S == shape::values || (S == shape::mixed && e->entry_kind == XF_RANGE_NUMERIC_VALUE);
    if (single) {
      uint64_t s = load_key(e->start_key);
      if (key == s) return e;
      if (key < s) hi = mid - 1;
      else lo = mid + 1;
      continue;
    }
    uint64_t low = load_key(e->low_key);
    if (key < low) {
      hi = mid - 1;
      continue;
    }
    if (key > low && key > load_key(e->high_key)) {
      lo = mid + 1;
      continue;
    }
    return landed(e, r, n, mid, key);
  }
  return nullptr;
}

// The same bisection over the search index: the same midpoints and the same
// comparisons, so the same answer; the entry itself is read only for the
// candidate tests. A single value keys as the range [start, start].
const xf_range_numeric *bisect_indexed(const bound_pair *ix, const void *const *r, int64_t n,
                                       uint64_t key) {
  int64_t lo = 1, hi = n;
  while (lo <= hi) {
    int64_t mid = lo + (hi - lo) / 2;
    const bound_pair &b = ix[mid - 1];
    if (key < b.low) {
      hi = mid - 1;
      continue;
    }
    if (key > b.low && key > b.high) {
      lo = mid + 1;
      continue;
    }
    const xf_range_numeric *e = num(r[mid - 1]);
    if (e->entry_kind == XF_RANGE_NUMERIC_VALUE) return e;
    return landed(e, r, n, mid, key);
  }
  return nullptr;
}

inline bool wants_all(const xf_frame *f, const xf_user_format *h) {
  return h->multilabel && (f->option_flags & XF_FLAG_MULTILABEL);
}

xf_status no_match(xf_frame *f, const xf_user_format *h, const void *const *r, double v) {
  if (h->has_other && h->other_label) return write_label(f, h, r, h->other_label, v);
  f->option_flags |= XF_FLAG_UNFORMATTED;
  return write_unmatched_number(f, v);
}

xf_status matched(xf_frame *f, const xf_user_format *h, const void *const *r,
                  const xf_range_numeric *e, double v) {
  if (wants_all(f, h) || (e->flags & XF_RANGE_LABEL_LIST)) return write_several(f, h, 0, nullptr, e, v);
  if (e->label == nullptr) return write_text_field(f, nullptr, 0);
  return write_label(f, h, r, e->label, v);
}

template <shape S>
xf_status lookup_bisect(xf_frame *f, void *header, void *ranges) {
  auto h = as_header(header);
  auto r = as_ranges(ranges);
  f->option_flags &= ~XF_FLAG_UNFORMATTED;
  double v = frame_value(f);
  uint64_t key = key_of(v);
  const bound_pair *ix = S == shape::mixed ? search_index(h, r) : nullptr;
  const xf_range_numeric *e = ix ? bisect_indexed(ix, r, h->range_count, key) : bisect<S>(r, h->range_count, key);
  return e ? matched(f, h, r, e, v) : no_match(f, h, r, v);
}

}  // namespace
}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

XF_ROUTINE_WITH(yfpfnfn, frame, (void *header, void *ranges), (header, ranges)) {
  auto h = as_header(header);
  auto r = as_ranges(ranges);
  frame->option_flags &= ~XF_FLAG_UNFORMATTED;
  double v = xfmt::frame_value(frame);
  uint64_t key = key_of(v);
  if (!wants_all(frame, h)) {
    for (int64_t i = 0; i < h->range_count; ++i)
      if (holds(num(r[i]), key)) return matched(frame, h, r, num(r[i]), v);
    return no_match(frame, h, r, v);
  }
  match_list found(h->range_count);
  for (int64_t i = 0; i < h->range_count; ++i)
    if (holds(num(r[i]), key) && !found.add(r[i])) break;
  if (found.count() == 0) return no_match(frame, h, r, v);
  return write_several(frame, h, found.count(), found.data(), nullptr, v);
}

XF_ROUTINE_WITH(yfpfnfm, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect<shape::mixed>(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfnfs, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect<shape::values>(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfnfr, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect<shape::ranges>(frame, header, ranges);
}

extern "C" void xf_numeric_key(double value, uint8_t key[8]) { store_key(key, key_of(value)); }
