// $BIDI: a text turned around by reversal, in either direction. The words
// and numbers come in reverse sequence while every run of blanks keeps its
// place (leading and trailing runs too); a word that is right to left (its
// first strong character is Hebrew, Arabic or another right-to-left script)
// is also spelled backwards, with its brackets and other mirrored
// characters turned round as the algorithm turns them; any other word keeps
// its spelling:
// "abc 123 H" -> "H' 123 abc", "  ab  c" -> "  c  ab".
// Blanks are the white-space characters: Bidi_Class WS, S (tab) and B (line
// and paragraph separators, which so stay where they are).
#include "xfmt/xfmt.h"

#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"
#include "text/bidi_text.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::text {
namespace {

bool is_blank(uint32_t cp) {
  uint8_t c = bidi_props(cp) & bidi_class_bits;
  return c == bidi::WS || c == bidi::S || c == bidi::B;
}

// Start of the character that ends at pos (pos > 0).
uint32_t previous(const bidi_source &src, uint32_t pos) {
  if (src.form == bidi_form::utf8) {
    do --pos;
    while (pos > 0 && (src.p[pos] & 0xC0) == 0x80);
    return pos;
  }
  auto unit = [&](uint32_t at) -> uint32_t {
    return src.form == bidi_form::utf16le ? uint32_t{src.p[at]} | uint32_t{src.p[at + 1]} << 8
                                          : uint32_t{src.p[at]} << 8 | uint32_t{src.p[at + 1]};
  };
  uint32_t u = unit(pos - 2);
  if (u >= 0xDC00 && u < 0xE000 && pos >= 4) {
    uint32_t h = unit(pos - 4);
    if (h >= 0xD800 && h < 0xDC00) return pos - 4;
  }
  return pos - 2;
}

uint32_t char_at(const bidi_source &src, uint32_t pos) {
  uint32_t cp;
  bidi_decode(src, pos, cp);
  return cp;
}

// Writes the word src[from, to): backwards and mirrored when it is right to left.
void put_word(bidi_sink &sink, const bidi_source &src, uint32_t from, uint32_t to) {
  bool rtl = false;
  for (uint32_t pos = from; pos < to;) {
    uint32_t cp;
    pos += bidi_decode(src, pos, cp);
    uint8_t c = bidi_props(cp) & bidi_class_bits;
    if (c == bidi::L) break;
    if (c == bidi::R || c == bidi::AL) {
      rtl = true;
      break;
    }
  }
  if (rtl) {
    for (uint32_t pos = to; pos > from && !sink.full;) {
      pos = previous(src, pos);
      uint32_t cp = char_at(src, pos);
      sink.put(bidi_props(cp) & bidi_mirrored_bit ? bidi_mirror(cp) : cp);
    }
    return;
  }
  for (uint32_t pos = from; pos < to && !sink.full;) {
    uint32_t cp;
    pos += bidi_decode(src, pos, cp);
    sink.put(cp);
  }
}

}  // namespace
}  // namespace xfmt::text

using namespace xfmt::text;

XF_ROUTINE(zfmbidi, frame) {
  bidi_source src = bidi_open_source(frame);
  if (src.form == bidi_form::bytes) return bidi_pass_through(frame, src);
  bidi_sink sink = bidi_open_sink(frame, src);
  // front walks the slots from the left; back takes the words from the right.
  uint32_t front = 0, back = src.len;
  while (front < src.len && !sink.full) {
    uint32_t cp;
    uint32_t size = bidi_decode(src, front, cp);
    if (is_blank(cp)) {
      sink.put(cp);
      front += size;
      continue;
    }
    while (front < src.len && !is_blank(char_at(src, front))) front += bidi_decode(src, front, cp);
    uint32_t word_end = back;
    while (word_end > 0 && is_blank(char_at(src, previous(src, word_end)))) word_end = previous(src, word_end);
    uint32_t word_start = word_end;
    while (word_start > 0 && !is_blank(char_at(src, previous(src, word_start)))) word_start = previous(src, word_start);
    back = word_start;
    put_word(sink, src, word_start, word_end);
  }
  return bidi_close_sink(frame, sink);
}
