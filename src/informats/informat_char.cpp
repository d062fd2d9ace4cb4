// The character informats: @$CHAR and @$F (zifmc), @$CHARZB (zifmzbc),
// @$QUOTE (zifmcq), @$ASCII (zifmascii), @$EBCDIC (zifmebcdic), @$UPCASE
// (zifmupcase), @$REVERJ (zifmreverj) and @$REVERS (zifmrevers). Each
// delivers w bytes: the first min(w, input length) bytes of the text, padded
// with blanks to w (then translated or reversed).
#include "xfmt/xfmt.h"

#include <cstring>
#include "core/routine_guard.hpp"


namespace {

// Writes text[0, n) padded with blanks to w bytes, each byte through map.
// With less than w bytes of room the field is cut to the capacity and the
// status says so.
xf_status deliver(xf_frame *f, const char *text, size_t n, int64_t w, char (*map)(char)) {
  size_t room = f->output == nullptr ? 0 : f->output_capacity;
  size_t field = static_cast<size_t>(w);
  size_t out_n = field < room ? field : room;
  char *out = static_cast<char *>(f->output);
  size_t copy = n < out_n ? n : out_n;
  for (size_t i = 0; i < copy; ++i) out[i] = map(text[i]);
  if (out_n > copy) std::memset(out + copy, ' ', out_n - copy);
  f->output_length = static_cast<uint32_t>(out_n);
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return out_n < field ? XF_E_CAPACITY : XF_OK;
}

char keep(char c) { return c; }
char from_ebcdic(char c) { return static_cast<char>(eb2as[static_cast<unsigned char>(c)]); }
// Only a-z: accented letters stay as they are, as the $UPCASE format does.
char upper_ascii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
char zero_to_blank(char c) { return c == '\0' ? ' ' : c; }

size_t text_length(const xf_frame *f) {
  if (f->input == nullptr || f->width <= 0) return 0;
  size_t w = static_cast<size_t>(f->width);
  return w < f->input_length ? w : f->input_length;
}

xf_status char_informat(xf_frame *f, char (*map)(char)) {
  if (f->width < 0) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  return deliver(f, static_cast<const char *>(f->input), text_length(f), f->width, map);
}

}  // namespace

XF_ROUTINE(zifmc, f) { return char_informat(f, keep); }

XF_ROUTINE(zifmzbc, f) { return char_informat(f, zero_to_blank); }

// One pair of matching quotes goes: blanks before the opening quote are
// dropped, and when the last non-blank byte is the same quote the text
// between them is delivered as it stands ("'a''b'" gives a''b). Text
// without such a pair is delivered unchanged.
XF_ROUTINE(zifmcq, f) {
  if (f->width < 0) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  const char *text = static_cast<const char *>(f->input);
  size_t n = text_length(f);
  size_t first = 0;
  while (first < n && text[first] == ' ') ++first;
  size_t last = n;
  while (last > first && text[last - 1] == ' ') --last;
  if (last - first >= 2 && (text[first] == '\'' || text[first] == '"') && text[last - 1] == text[first])
    return deliver(f, text + first + 1, last - first - 2, f->width, keep);
  return deliver(f, text, n, f->width, keep);
}

XF_ROUTINE(zifmascii, f) { return char_informat(f, keep); }

XF_ROUTINE(zifmebcdic, f) { return char_informat(f, from_ebcdic); }

XF_ROUTINE(zifmupcase, f) { return char_informat(f, upper_ascii); }

namespace {

// The w-byte field (text, then blanks) read from its end. With justify, the
// blanks at the end of the field (which would lead the reversed text) move
// behind it: "XYZ  " gives "ZYX  " rather than "  ZYX". Positions past the
// capacity are not written (XF_E_CAPACITY, as for the other informats).
xf_status reversed(xf_frame *f, bool justify) {
  if (f->width < 0) {
    f->output_length = 0;
    return XF_IN_BAD_WIDTH;
  }
  const char *text = static_cast<const char *>(f->input);
  const size_t n = text_length(f), w = static_cast<size_t>(f->width);
  size_t trailing = 0;  // blanks at the end of the field, padding included
  if (justify) {
    size_t k = n;
    while (k > 0 && text[k - 1] == ' ') --k;
    trailing = w - k;
  }
  const size_t room = f->output == nullptr ? 0 : f->output_capacity;
  const size_t out_n = w < room ? w : room;
  char *out = static_cast<char *>(f->output);
  for (size_t i = 0; i < out_n; ++i) {
    if (i >= w - trailing) {
      out[i] = ' ';
      continue;
    }
    const size_t from = w - 1 - trailing - i;
    out[i] = from < n ? text[from] : ' ';
  }
  f->output_length = static_cast<uint32_t>(out_n);
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  return out_n < w ? XF_E_CAPACITY : XF_OK;
}

}  // namespace

XF_ROUTINE(zifmreverj, f) { return reversed(f, false); }

XF_ROUTINE(zifmrevers, f) { return reversed(f, true); }
