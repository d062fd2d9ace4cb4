// From the expander's narrow text (escapes "<UXXXX>", bytes as Latin-1) to
// the bytes a host receives: the process codeset, or UTF-16LE when the host
// asked for it, shortened character by character to the width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "xfmt/xfmt.h"

namespace xfmt::nls {

// Results of encode_text, as getExpResultFromNarrowCharBuf returns them:
// zero or negative: the text fits whole (its length minus the width);
inline constexpr int encode_shortened = 1;  // trailing characters dropped to fit the width
inline constexpr int encode_no_room = 2;    // longer than the output capacity, nothing written
inline constexpr int encode_unconvertible = 4;

// The marker the currency sign U+00A4 becomes on the way.
inline constexpr char16_t currency_marker = 0x0001;

// Converts text (length bytes) and writes at most capacity bytes at out; the
// byte count goes to *out_length. With utf16 the output is UTF-16LE and the
// width counts code units; otherwise the process codeset and width in bytes.
int encode_text(bool utf16, const char *text, size_t length, int32_t width, char *out,
                uint32_t capacity, uint32_t *out_length);

// True when text reaches the output without becoming "?": always for UTF-16
// or a UTF-8 process codeset, and for ASCII text.
bool representable(bool utf16, std::string_view text);

// The narrow text decoded to UTF-16 (escapes and the currency marker
// resolved); returns the unit count, at most room.
size_t decode_narrow(const char *text, size_t length, char16_t *units, size_t room);

// Blank-fills the w-wide field (units of 1 byte, or of 2 with utf16) and
// places the encoded text (bytes long, at most the field) at its right end;
// the output length is the field and the output encoding says which units.
// The caller has checked that the field fits the capacity.
void place_encoded_right(xf_frame *f, const char *text, uint32_t bytes, int32_t w, bool utf16);

}  // namespace xfmt::nls
