// Value-label lookup of character formats: the comparison of 16-bit texts
// (zstrcomu), the linear search (yfpfcfn) and the bisections (yfpfcfm over
// texts, yfpfcfs/yfpfcfr over one shape, yfpfcfx/yfpfcfy/yfpfcfz over the
// fixed 16-unit keys). The value is the frame's text in UTF-16 units.
#include "xfmt/xfmt.h"

#include <cstring>

#include "core/missing.hpp"
#include "userfmt/matches.hpp"
#include "userfmt/output.hpp"
#include "userfmt/records.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::userfmt {
namespace {

// Host texts need not be aligned: units are read through memcpy.
inline int16_t unit_at(const uint16_t *p, int32_t i) {
  int16_t u;
  std::memcpy(&u, p + i, sizeof u);
  return u;
}

// Signed 16-bit order, so U+8000 and up sort below U+0000; a longer text
// whose remainder is all blanks equals the shorter one.
int32_t compare_units(const uint16_t *a, int32_t an, const uint16_t *b, int32_t bn) {
  if (an < 0) an = 0;
  if (bn < 0) bn = 0;
  int32_t common = an < bn ? an : bn;
  for (int32_t i = 0; i < common; ++i) {
    int16_t x = unit_at(a, i), y = unit_at(b, i);
    if (x != y) return x < y ? -1 : 1;
  }
  const uint16_t *rest = an > bn ? a : b;
  int32_t longer = an > bn ? an : bn;
  for (int32_t i = common; i < longer; ++i)
    if (unit_at(rest, i) != 0x20) return an < bn ? -1 : 1;
  return 0;
}

// One entry seen through its own layout: a single text, or a range with its
// start and end texts.
struct view {
  bool single;
  uint8_t flags;
  const uint16_t *start;
  int32_t start_n;
  const uint16_t *end;
  int32_t end_n;
};

view view_of(const void *e) {
  switch (entry_kind(e)) {
    case XF_RANGE_CHAR_VALUE: {
      auto v = static_cast<const xf_range_char_value *>(e);
      return {true, v->flags, char_value_text(v), v->length, nullptr, 0};
    }
    case XF_RANGE_FIXED_VALUE: {
      auto v = static_cast<const xf_range_fixed *>(e);
      return {true, v->flags, v->start, fixed_key_units, nullptr, 0};
    }
    case XF_RANGE_FIXED: {
      auto v = static_cast<const xf_range_fixed *>(e);
      return {false, v->flags, v->start, fixed_key_units, v->end, fixed_key_units};
    }
    default: {
      auto v = static_cast<const xf_range_char *>(e);
      return {false, v->flags, char_range_start(v), v->start_length, char_range_end(v), v->end_length};
    }
  }
}

struct text {
  const uint16_t *units;
  int32_t n;
};

// Kind 10 compares 16-unit keys: the value is cut or blank padded to 16.
bool fixed_equal(const view &v, const text &t) {
  for (int32_t i = 0; i < fixed_key_units; ++i) {
    int16_t x = i < t.n ? unit_at(t.units, i) : int16_t{0x20};
    if (x != unit_at(v.start, i)) return false;
  }
  return true;
}

bool holds(const void *e, const text &t) {
  view v = view_of(e);
  if (v.single) {
    if (entry_kind(e) == XF_RANGE_FIXED_VALUE) return fixed_equal(v, t);
    return compare_units(t.units, t.n, v.start, v.start_n) == 0;
  }
  if (!(v.flags & XF_RANGE_LOW)) {
    int32_t c = compare_units(t.units, t.n, v.start, v.start_n);
    if (c < 0 || (c == 0 && (v.flags & XF_RANGE_START_EXCL))) return false;
  }
  if (!(v.flags & XF_RANGE_HIGH)) {
    int32_t c = compare_units(t.units, t.n, v.end, v.end_n);
    if (c > 0 || (c == 0 && (v.flags & XF_RANGE_END_EXCL))) return false;
  }
  return true;
}

// Bisection with the neighbour test at an excluded boundary, as for numbers.
const void *bisect(const void *const *r, int64_t n, const text &t) {
  int64_t lo = 1, hi = n;
  while (lo <= hi) {
    int64_t mid = lo + (hi - lo) / 2;
    const void *e = r[mid - 1];
    view v = view_of(e);
    if (v.single) {
      int32_t c = compare_units(t.units, t.n, v.start, v.start_n);
      if (c == 0) {
        if (entry_kind(e) != XF_RANGE_FIXED_VALUE || fixed_equal(v, t)) return e;
        c = 1;  // longer than the 16-unit key: sorts after it
      }
      if (c < 0) hi = mid - 1;
      else lo = mid + 1;
      continue;
    }
    int32_t cs = (v.flags & XF_RANGE_LOW) ? 1 : compare_units(t.units, t.n, v.start, v.start_n);
    if (cs < 0) {
      hi = mid - 1;
      continue;
    }
    int32_t ce = (v.flags & XF_RANGE_HIGH) ? -1 : compare_units(t.units, t.n, v.end, v.end_n);
    if (cs > 0 && ce > 0) {
      lo = mid + 1;
      continue;
    }
    if ((v.flags & XF_RANGE_START_EXCL) && cs == 0) {
      if (mid == 1) return nullptr;
      return holds(r[mid - 2], t) ? r[mid - 2] : nullptr;
    }
    if ((v.flags & XF_RANGE_END_EXCL) && ce == 0) {
      if (mid == n) return nullptr;
      return holds(r[mid], t) ? r[mid] : nullptr;
    }
    return e;
  }
  return nullptr;
}

// Dispatch widens single-byte input and counts it in units (input encoding
// still 0); a host that sends UTF-16 itself (encoding 24 or 25) counts bytes.
text frame_text(const xf_frame *f) {
  if (f->input == nullptr) return {nullptr, 0};
  uint32_t n = f->input_encoding == XF_ENC_SINGLE_BYTE ? f->input_length : f->input_length / 2;
  return {static_cast<const uint16_t *>(f->input), static_cast<int32_t>(n)};
}

inline bool wants_all(const xf_frame *f, const xf_user_format *h) {
  return h->multilabel && (f->option_flags & XF_FLAG_MULTILABEL);
}

// Pictures do not apply to text; a picture label of a character format sees
// the ordinary missing value.
const double no_number = xfmt::missing_ordinary();

xf_status no_match(xf_frame *f, const xf_user_format *h, const void *const *r, const text &t) {
  if (h->has_other && h->other_label) return write_label(f, h, r, h->other_label, no_number);
  f->option_flags |= XF_FLAG_UNFORMATTED;
  return write_text_field(f, t.units, static_cast<uint32_t>(t.n));
}

xf_status matched(xf_frame *f, const xf_user_format *h, const void *const *r, const void *e) {
  if (wants_all(f, h) || (entry_flags(e) & XF_RANGE_LABEL_LIST))
    return write_several(f, h, 0, nullptr, e, no_number);
  const void *label = entry_label(e);
  if (label == nullptr) return write_text_field(f, nullptr, 0);
  return write_label(f, h, r, label, no_number);
}

xf_status lookup_bisect(xf_frame *f, void *header, void *ranges) {
  auto h = as_header(header);
  auto r = as_ranges(ranges);
  f->option_flags &= ~XF_FLAG_UNFORMATTED;
  text t = frame_text(f);
  const void *e = bisect(r, h->range_count, t);
  return e ? matched(f, h, r, e) : no_match(f, h, r, t);
}

}  // namespace
}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

extern "C" int32_t zstrcomu(const uint16_t *a, int32_t a_units, const uint16_t *b, int32_t b_units) {
  return compare_units(a, a_units, b, b_units);
}

XF_ROUTINE_WITH(yfpfcfn, frame, (void *header, void *ranges), (header, ranges)) {
  auto h = as_header(header);
  auto r = as_ranges(ranges);
  frame->option_flags &= ~XF_FLAG_UNFORMATTED;
  text t = frame_text(frame);
  if (!wants_all(frame, h)) {
    for (int64_t i = 0; i < h->range_count; ++i)
      if (holds(r[i], t)) return matched(frame, h, r, r[i]);
    return no_match(frame, h, r, t);
  }
  // Collecting: every match in stored order, in slots of the field.
  match_list found(h->range_count);
  for (int64_t i = 0; i < h->range_count; ++i)
    if (holds(r[i], t) && !found.add(r[i])) break;
  if (found.count() == 0) return no_match(frame, h, r, t);
  return write_several(frame, h, found.count(), found.data(), nullptr, no_number);
}

// Every shape is read through its own layout, so the specialised entries
// share the one bisection; they remain for hosts that call them by name.
XF_ROUTINE_WITH(yfpfcfm, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfcfs, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfcfr, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfcfx, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfcfy, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
XF_ROUTINE_WITH(yfpfcfz, frame, (void *header, void *ranges), (header, ranges)) {
  return lookup_bisect(frame, header, ranges);
}
