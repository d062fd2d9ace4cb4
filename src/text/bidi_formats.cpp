// $LOGVS, $LOGVSR (logical order to visual) and $VSLOG, $VSLOGR (visual
// order back to logical). The value, without the blanks that pad it, is
// split into paragraphs at each paragraph separator and reordered paragraph
// by paragraph through the bidirectional algorithm with the direction the
// name fixes; the visual text goes left-aligned into the w-wide field.
//
// Visual to logical runs the same algorithm over the visual text: reversing
// the runs of each level (L2) undoes itself when the levels are the same, so
// a visual text whose own levels are those of its logical text comes back
// exactly, mirrored brackets included. Where they differ the inverse is
// ambiguous ("H 123" and "123 H" both show as "123 H'") and the answer is
// the reading in visual order; the README gives the measured limits.
//
// A paragraph longer than the work arrays (bidi_max characters) is cut after
// its last blank before the limit, or at the limit, and the pieces follow
// each other as lines of the same paragraph would.
#include "xfmt/xfmt.h"

#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"
#include "text/bidi_text.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::text {
namespace {

// The value's length without its trailing blanks (U+0020).
uint32_t trimmed(const bidi_source &src) {
  uint32_t n = src.len;
  if (src.form == bidi_form::utf16le) {
    while (n >= 2 && src.p[n - 2] == ' ' && src.p[n - 1] == 0) n -= 2;
  } else if (src.form == bidi_form::utf16be) {
    while (n >= 2 && src.p[n - 2] == 0 && src.p[n - 1] == ' ') n -= 2;
  } else {
    while (n > 0 && src.p[n - 1] == ' ') --n;
  }
  return n;
}

// Reads and classifies the next piece of text from pos into p: up to and
// including a paragraph separator, at most bidi_max characters. Returns the
// position after the piece.
uint32_t read_piece(bidi_paragraph &p, const bidi_source &src, uint32_t pos, uint32_t end) {
  uint32_t n = 0;
  while (n < bidi_max && pos < end) {
    uint32_t cp;
    pos += bidi_decode(src, pos, cp);
    const uint8_t props = bidi_props(cp);
    p.cp[n] = cp;
    p.cls[n] = props & bidi_class_bits;
    p.flags[n] = props & static_cast<uint8_t>(~bidi_class_bits);
    if (p.cls[n++] == bidi::B) break;
  }
  p.n = n;
  if (n < bidi_max || pos >= end || p.cls[n - 1] == bidi::B) return pos;
  // Full: end the piece after its last blank in the second half, and give
  // the rest back to the source.
  uint32_t cut = n;
  for (uint32_t k = n; k > n / 2; --k)
    if (p.cls[k - 1] == bidi::WS || p.cls[k - 1] == bidi::S) {
      cut = k;
      break;
    }
  for (uint32_t k = cut; k < n; ++k) pos -= bidi_encoded_size(src.form, p.cp[k]);
  p.n = cut;
  return pos;
}

xf_status reorder(xf_frame *f, int direction) {
  bidi_source src = bidi_open_source(f);
  if (src.form == bidi_form::bytes) return bidi_pass_through(f, src);
  bidi_sink sink = bidi_open_sink(f, src);
  const uint32_t end = trimmed(src);
  bidi_paragraph p;
  uint16_t order[bidi_max];
  for (uint32_t pos = 0; pos < end && !sink.full;) {
    pos = read_piece(p, src, pos, end);
    bidi_resolve(p, direction);
    bidi_mirror_odd(p);
    bidi_visual_order(p.level, p.n, order);
    for (uint32_t k = 0; k < p.n; ++k) sink.put(p.cp[order[k]]);
  }
  return bidi_close_sink(f, sink);
}

}  // namespace
}  // namespace xfmt::text

using namespace xfmt::text;

XF_ROUTINE(zfmlogvs, frame) { return reorder(frame, bidi_ltr); }
XF_ROUTINE(zfmlogvsr, frame) { return reorder(frame, bidi_rtl); }
XF_ROUTINE(zfmvslog, frame) { return reorder(frame, bidi_ltr); }
XF_ROUTINE(zfmvslogr, frame) { return reorder(frame, bidi_rtl); }
