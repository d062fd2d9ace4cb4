// Writing labels into the host's buffer: a field of characters delivered as
// UTF-16LE when the host asks for it, else as UTF-8, never past the
// capacity and never splitting a character.
#pragma once

#include <cstdint>

#include "core/bounded_text.hpp"

#include "xfmt/xfmt.h"

namespace xfmt::userfmt {

struct label_sink {
  core::bounded_text field;  // the field's bytes: never past the capacity
  uint32_t chars = 0;        // field positions written
  bool utf16;
  bool full = false;         // a character did not fit: the field ends there

  label_sink(xf_frame *f)
      : field(static_cast<char *>(f->output), f->output ? f->output_capacity : 0),
        utf16(f->requested_output_encoding == XF_ENC_UTF16LE) {}

  // Bytes written, and the capacity.
  uint32_t pos() const { return static_cast<uint32_t>(field.length()); }
  uint32_t capacity() const { return static_cast<uint32_t>(field.room); }

  // Writes n units of text; stops at the first one that does not fit.
  void text(const uint16_t *units, uint32_t n);
  // Writes n blanks (as far as they fit).
  void blanks(uint32_t n);
  // Writes bytes of single-byte text, each its own character.
  void bytes(const char *b, uint32_t n);
  // Blanks up to field position target.
  void pad_to(uint32_t target) {
    if (target > chars) blanks(target - chars);
  }
  uint32_t encoding() const { return utf16 ? XF_ENC_UTF16LE : XF_ENC_SINGLE_BYTE; }
};

// The field width in characters: w, but at most what the capacity holds of
// UTF-16 units when those are delivered; never negative.
uint32_t label_field(const xf_frame *f);

// Single-byte field of pictures and unmatched numbers: min(w, capacity).
uint32_t byte_field(const xf_frame *f);

// Writes one text label in a field of label_field() characters, sets the
// output length and encoding; returns 0.
xf_status write_text_label(xf_frame *f, const xf_label_text *label);

// Writes text (units) into a field of label_field() characters: the value of
// an unmatched character format.
xf_status write_text_field(xf_frame *f, const uint16_t *units, uint32_t n);

// Writes one label of any kind for a matched entry or OTHER.
xf_status write_label(xf_frame *f, const xf_user_format *h, const void *const *ranges,
                      const void *label, double value);

// The value of a numeric format matched by nothing and without OTHER.
xf_status write_unmatched_number(xf_frame *f, double value);

// Several labels, or a label list: getmulti's worker on behalf of a lookup.
xf_status write_several(xf_frame *f, const xf_user_format *h, int64_t count,
                        const void *const *matches, const void *entry, double value);

}  // namespace xfmt::userfmt
