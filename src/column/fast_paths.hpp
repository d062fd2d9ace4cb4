// Column fast paths: the common case of two hot conversions done without the
// general routine, byte for byte (and bit for bit) as the routine does it.
// Each answers false for anything outside its case, and the column then
// calls the routine. tests/column proves them against the routines over
// millions of random values.
#pragma once

#include <cstddef>
#include <cstdint>

namespace xfmt::column {

// F w.d (zfmt) of a finite, non-missing v whose d decimals fit w without
// reduction: 2 <= w <= 32, 1 <= d <= 9, at most 15 significant digits.
// Writes exactly w bytes at out.
bool fixed_fast(double v, int32_t w, int32_t d, char *out);

// @F and @E (wzifmn) of a plain decimal text: blanks, an optional "-",
// digits with at most one ".", blanks; at most 19 digits whose value is at
// most 2^53 and at most 22 decimals (the quotient of two exact doubles is
// the correctly rounded value the reader stores). implied: the decimals
// that a text without "." has.
bool plain_number_fast(const unsigned char *text, size_t n, int32_t implied, double &out);

}  // namespace xfmt::column
