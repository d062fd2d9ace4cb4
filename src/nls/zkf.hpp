// From stored values to the expander: a date, a datetime or a time of day
// taken apart into a moment, checked against its range, rounded to the
// decimals shown, then expanded with a pattern or a locale field.
#pragma once

#include <cstddef>
#include <cstdint>

#include "datetime/calendar.hpp"
#include "nls/expand.hpp"

namespace xfmt::nls {

inline constexpr int zkf_unreadable = -1;
inline constexpr int zkf_out_of_range = -3;

// Field codes: 1..188 a locale field; datetime codes may add 256 (" %z"
// appended) and 4096 (marks a datetime field in the pattern tables).
inline constexpr int code_with_zone = 256;
inline constexpr int code_datetime = 4096;

inline bool date_value_in_range(double v) { return datetime::date_in_range(v); }
inline bool datetime_value_in_range(double v) { return datetime::datetime_in_range(v); }

// The moment of a date value (day part only).
moment date_moment_of(double date);
// The moment of a datetime or time value rounded to decimals; a time value
// has no date part.
moment datetime_moment_of(double value, int32_t decimals, bool with_date);

// Expands pattern (or, when pattern is null, the locale field code & 0xFF)
// for the moment into text (room *length); appends " %z" when the code asks.
// Returns the expand result, or zkf_unreadable; *length gets the length.
int zkf_expand(const moment &m, const field_reader &loc, const char *pattern, size_t pattern_length,
               int code, char *text, int32_t *length, int32_t decimals);

}  // namespace xfmt::nls
