// Writing labels: one text label, several labels side by side (getmulti),
// a label naming another format (yfmtlbl), the unmatched value, and the
// 16-bit field copy MPTLU.
#include "xfmt/xfmt.h"

#include <algorithm>
#include <cstring>

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "core/missing.hpp"
#include "userfmt/output.hpp"
#include "userfmt/nested_binding.hpp"
#include "userfmt/records.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::userfmt {

// A character that does not fit ends the field: nothing after it is written,
// so a cut label is never followed by blanks that hide the cut.
void label_sink::text(const uint16_t *units, uint32_t n) {
  if (n == 0 || full) return;
  const auto room = static_cast<uint32_t>(field.left());
  if (utf16) {
    uint32_t fit = std::min(n, room / 2);
    field.put(reinterpret_cast<const char *>(units), fit * 2u);
    chars += fit;
    full = fit < n;
    return;
  }
  // The encoder writes in place and stops before a character that would
  // not fit whole; the field counts what it wrote.
  uint32_t done = 0, written = 0;
  UNICODEToUTF8(units, n * 2u, reinterpret_cast<uint8_t *>(field.p) + field.length(), room, &done,
                &written);
  field.skip(written);
  chars += done;
  full = done < n;
}

void label_sink::blanks(uint32_t n) {
  if (full) return;
  const uint32_t fit = std::min(n, static_cast<uint32_t>(field.left()) / (utf16 ? 2u : 1u));
  if (utf16) {
    for (uint32_t i = 0; i < fit; ++i) field.put(" \0", 2);
  } else {
    field.put_repeat(' ', fit);
  }
  chars += fit;
}

void label_sink::bytes(const char *b, uint32_t n) {
  if (full) return;
  const uint32_t fit = std::min(n, static_cast<uint32_t>(field.left()) / (utf16 ? 2u : 1u));
  if (utf16) {
    for (uint32_t i = 0; i < fit; ++i) {
      field.put_char(b[i]);
      field.put_char('\0');
    }
  } else {
    field.put(b, fit);
  }
  chars += fit;
}

uint32_t label_field(const xf_frame *f) {
  if (f->width <= 0) return 0;
  uint32_t w = static_cast<uint32_t>(f->width);
  if (f->requested_output_encoding == XF_ENC_UTF16LE) w = std::min(w, f->output_capacity / 2);
  return w;
}

uint32_t byte_field(const xf_frame *f) {
  if (f->width <= 0 || f->output == nullptr) return 0;
  return std::min(static_cast<uint32_t>(f->width), f->output_capacity);
}

xf_status write_text_field(xf_frame *f, const uint16_t *units, uint32_t n) {
  label_sink s(f);
  uint32_t field = label_field(f);
  s.text(units, std::min(n, field));
  s.pad_to(field);
  f->output_length = s.pos();
  f->output_encoding = s.encoding();
  return XF_OK;
}

xf_status write_text_label(xf_frame *f, const xf_label_text *label) {
  uint32_t n = label->length > 0 ? static_cast<uint32_t>(label->length) : 0;
  return write_text_field(f, label_text(label), n);
}

namespace {

xf_status write_picture(xf_frame *f, const xf_user_format *h, const void *label, double value) {
  uint32_t c = byte_field(f);
  yfpict(static_cast<int32_t>(c), static_cast<char *>(f->output), label, h->round, value);
  f->output_length = c;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return XF_OK;
}

}  // namespace

xf_status write_label(xf_frame *f, const xf_user_format *h, const void *const *ranges,
                      const void *label, double value) {
  switch (label_kind(label)) {
    case XF_LABEL_TEXT: return write_text_label(f, static_cast<const xf_label_text *>(label));
    case XF_LABEL_PICTURE: return write_picture(f, h, label, value);
    default:
      return yfmtlbl(f, const_cast<xf_user_format *>(h), const_cast<void **>(ranges), label);
  }
}

// Fields wider than 32 keep the number in their last 32 positions: the
// standard routine's widest layout. Width 40: 8 blanks, then 32 positions.
xf_status write_unmatched_number(xf_frame *f, double value) {
  uint32_t c = byte_field(f);
  char *out = static_cast<char *>(f->output);
  uint32_t lead = c > 32 ? c - 32 : 0;
  if (lead) std::memset(out, ' ', lead);
  xf_frame inner = *f;
  inner.input = &value;
  inner.input_length = 8;
  inner.width = static_cast<int32_t>(c - lead);
  inner.decimals = f->decimals == 0 ? 99 : f->decimals;
  inner.output = out ? out + lead : nullptr;
  inner.output_capacity = c - lead;
  inner.output_length = 0;
  xf_status st = XF_OK;
  if (c > 0) st = zfmt(&inner);
  f->output_length = lead + inner.output_length;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return st;
}

xf_status write_several(xf_frame *f, const xf_user_format *h, int64_t count,
                        const void *const *matches, const void *entry, double value) {
  bool collect = matches != nullptr;
  int32_t r = getmulti(collect ? 1 : 0, f, collect ? count : 0, matches, entry, value, h->round);
  return static_cast<xf_status>(r);
}

}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

extern "C" void MPTLU(const uint16_t *source, int32_t source_units, uint16_t *dest,
                      int32_t dest_units) {
  if (dest_units <= 0) return;
  int32_t n = std::clamp(source_units, 0, dest_units);
  if (n > 0) std::memmove(dest, source, static_cast<size_t>(n) * 2u);
  for (int32_t i = n; i < dest_units; ++i) dest[i] = 0x20;
}

namespace {

// One slot of getmulti: a picture rendered in w bytes, as w characters.
void picture_slot(label_sink &s, const void *label, uint32_t w, int32_t round, double value) {
  char work[512];
  if (w > sizeof work) {
    s.blanks(w);
    return;
  }
  yfpict(static_cast<int32_t>(w), work, label, round, value);
  s.bytes(work, w);
}

struct multi_state {
  xf_frame *f;
  label_sink sink;
  uint32_t w;
  uint64_t c;       // capacity in characters
  uint64_t length;  // L, in characters
  uint64_t slot;    // start of the current slot, in characters
  int32_t round;
  double value;
};

void multi_label(multi_state &m, const void *label) {
  uint8_t kind = label_kind(label);
  bool fits_slot = m.slot + m.w <= m.c;
  if (kind == XF_LABEL_TEXT) {
    // The length becomes 3 x w after every text label, not L + w: the rule
    // hosts have always seen, so two labels need a capacity of 4 x w.
    m.length += m.w;
    if (m.length <= m.c && fits_slot) {
      auto t = static_cast<const xf_label_text *>(label);
      uint32_t n = t->length > 0 ? static_cast<uint32_t>(t->length) : 0;
      m.sink.pad_to(static_cast<uint32_t>(m.slot));
      m.sink.text(label_text(t), std::min(n, m.w));
      m.sink.pad_to(static_cast<uint32_t>(m.slot + m.w));
    }
    m.length = 3ull * m.w;
  } else if (kind == XF_LABEL_PICTURE) {
    if (fits_slot) {
      m.sink.pad_to(static_cast<uint32_t>(m.slot));
      picture_slot(m.sink, label, m.w, m.round, m.value);
    }
    m.length += m.w;
  } else {
    m.length += m.w;
  }
  m.slot += m.w;
}

void multi_entry(multi_state &m, const void *entry, bool collect) {
  const void *label = entry_label(entry);
  if (label == nullptr) return;
  if (entry_flags(entry) & XF_RANGE_LABEL_LIST) {
    uint32_t n = list_count(label);
    if (!collect) n = std::min(n, 1u);
    for (uint32_t i = 0; i < n; ++i) {
      const void *l = list_label(label, i);
      if (l) multi_label(m, l);
    }
  } else {
    multi_label(m, label);
  }
}

}  // namespace

extern "C" int32_t getmulti(int32_t collect, xf_frame *frame, int64_t count,
                            const void *const *matches, const void *entry, double value,
                            int32_t round) {
  multi_state m{frame, label_sink(frame), 0, 0, 0, 0, round, value};
  m.w = frame->width > 0 ? static_cast<uint32_t>(frame->width) : 0;
  m.c = m.sink.utf16 ? m.sink.capacity() / 2 : m.sink.capacity();
  frame->output_length = 0;
  if (collect) {
    for (int64_t i = 0; i < count; ++i) multi_entry(m, matches[i], true);
  } else if (entry) {
    multi_entry(m, entry, false);
  }
  if (m.length <= m.c) {
    m.sink.pad_to(static_cast<uint32_t>(m.length));
    frame->output_length = m.sink.pos();
    frame->output_encoding = m.sink.encoding();
    return 0;
  }
  uint32_t n = std::min(m.sink.capacity(), m.w);
  if (n) std::memset(frame->output, '*', n);
  frame->output_length = n;
  frame->output_encoding = XF_ENC_SINGLE_BYTE;
  return -1;
}

namespace {

// Nesting depth of yfmtlbl on this thread: a guard behind the cycle check of
// the binding, and the only one for a host that calls yfmtlbl itself.
thread_local int nested_depth = 0;

xf_status nested_failed(xf_frame *f) {
  uint32_t c = byte_field(f);
  if (c) std::memset(f->output, '*', c);
  f->output_length = c;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return XF_OK;
}

bool is_anchor(const xf_user_format *h) { return std::memcmp(h->marker, "00000000", 8) == 0; }

const nested_binding *bound_row(const void *label) {
  const nested_table *t = current_nested();
  if (t == nullptr) return nullptr;
  for (uint64_t i = 0; i < t->count; ++i)
    if (t->rows[i].label == label) return &t->rows[i];
  return nullptr;
}

// Writes the value through the inner handle with the label's width, within
// the caller's and the inner format's limits.
xf_status write_nested(xf_frame *frame, const void *header, const xf_label_format *lf,
                       void *handle, const uint16_t *widths) {
  int32_t lw = lf->width < 0 ? -lf->width : lf->width;
  int32_t w = std::min(frame->width, lw);
  w = std::min<int32_t>(widths[1], std::max<int32_t>(widths[0], w));
  xf_frame inner{};
  inner.input = frame->input;
  inner.input_length = frame->input_length;
  inner.option_word = frame->option_word;
  inner.option_flags = frame->option_flags;
  // A character value reaches the lookup as UTF-16 whatever the host sent.
  inner.input_encoding = as_header(header)->kind == kind_character ? XF_ENC_UTF16LE
                                                                   : frame->input_encoding;
  inner.requested_output_encoding = frame->requested_output_encoding;
  inner.width = w;
  inner.decimals = lf->decimals;
  inner.output = frame->output;
  inner.output_capacity = std::min(frame->output ? frame->output_capacity : 0u,
                                   static_cast<uint32_t>(lw));
  ++nested_depth;
  xf_status st = xffmt(&inner, handle);
  --nested_depth;
  frame->output_length = inner.output_length;
  frame->output_encoding = inner.output_encoding;
  return st;
}

}  // namespace

XF_ROUTINE_WITH(yfmtlbl, frame, (void *header, void *ranges, const void *label), (header, ranges, label)) {
  auto lf = static_cast<const xf_label_format *>(label);
  if (nested_depth >= max_nested_depth) return nested_failed(frame);
  // A label bound when its format was resolved: no look-up, no allocation.
  // A cycle, an unknown name or too deep a nesting writes stars.
  if (const nested_binding *b = bound_row(label)) {
    if (b->state != nested_bound) return nested_failed(frame);
    return write_nested(frame, header, lf, b->handle, b->widths);
  }
  // A host calling this routine with records no handle bound: resolve the
  // name for this value. 1. Walk back to the anchor so that the name may
  // resolve to any format of the same catalog.
  auto h = as_header(header);
  auto r = as_ranges(ranges);
  while (!is_anchor(h)) {
    --h;
    r -= h->range_count;
  }
  // 2. The name without trailing blanks.
  int32_t len = 32;
  while (len > 0 && lf->name[len - 1] == ' ') --len;
  if (len == 0) return nested_failed(frame);

  xf_ufmt_context ctx{};
  ctx.source = 5;
  ctx.catalog = h;
  ctx.catalog_ranges = r;
  // Handle storage of our own: resolution fills it in place.
  alignas(16) unsigned char storage[sizeof(xf_user_handle) + sizeof(fmtposs_row)] = {};
  void *handle = storage;
  uint16_t widths[8] = {};
  ++nested_depth;
  xf_status st = xfname3(lf->name, len, 0, widths, &handle, &ctx);
  --nested_depth;
  if (st != XF_OK || handle == nullptr) return nested_failed(frame);
  st = write_nested(frame, header, lf, handle, widths);
  // A user-defined format resolved into our storage still anchors a chain
  // block of its own; a catalogued one allocated nothing.
  if (xfmt::catalog::is_user_handle(handle)) xfmt::catalog::free_user_handle(static_cast<xf_user_handle *>(handle));
  return st;
}
