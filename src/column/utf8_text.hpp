// UTF-8 on the host side of the column functions: the Windows-1252 bytes of
// the catalogued conversions and the UTF-16 of national text and user labels
// turned into UTF-8, and UTF-8 input turned into what a routine reads.
#pragma once

#include <cstddef>
#include <cstdint>

namespace xfmt::column {

// Bytes the UTF-8 form of n Windows-1252 bytes takes.
size_t utf8_length_of_1252(const unsigned char *src, size_t n);

// Expands n Windows-1252 bytes at buf into their UTF-8 form in place; buf
// has room for utf8_length_of_1252 bytes. Returns that length.
size_t expand_1252_in_place(unsigned char *buf, size_t n);

// UTF-16LE (bytes, an odd last byte ignored; pairs of surrogates joined, a
// lone surrogate U+FFFD) to UTF-8. Returns the bytes the whole text needs;
// writes only what fits capacity.
size_t utf8_from_utf16le(const unsigned char *src, size_t bytes, unsigned char *dst, size_t capacity);

// Decodes one UTF-8 character at src[i..n): returns its code point and
// advances i, or returns -1 for an invalid sequence (overlong forms,
// surrogates and values above U+10FFFF included).
int32_t next_code_point(const unsigned char *src, size_t n, size_t &i);

// The Windows-1252 byte of a code point, or -1 when it has none.
int windows_1252_byte(int32_t cp);

enum class text_result { ok, unrepresentable, bad_utf8, too_long };

// UTF-8 to Windows-1252 into dst (capacity bytes); *written gets the bytes.
text_result utf8_to_1252(const unsigned char *src, size_t n, unsigned char *dst, size_t capacity,
                         size_t &written);

// UTF-8 to UTF-16 code units (native order; characters above U+FFFF as
// surrogate pairs) into dst (capacity units).
text_result utf8_to_utf16(const unsigned char *src, size_t n, uint16_t *dst, size_t capacity,
                          size_t &units);

}  // namespace xfmt::column
