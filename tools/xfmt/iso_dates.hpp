// Dates and times as people type them (ISO 8601: 2023-07-04, 12:34:56,
// 2023-07-04T12:34:56), read as the values the library stores: days since
// 1960-01-01, seconds since midnight, seconds since 1960-01-01T00:00:00.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace xfmt::cli {

// The value of text for a conversion of the given family (XFX_FAMILY_DATE,
// _TIME, _DURATION or _DATETIME); nothing for other families or text that
// is not ISO 8601, with error set when the text is ISO 8601 in form but
// names no real day or time.
std::optional<double> read_iso_8601(std::string_view text, uint32_t family, std::string &error);

// What a value of the family is, for messages: "a day count from 1960-01-01
// (0 is 1960-01-01) or a date as 2023-07-04"; empty for other families.
std::string family_value_hint(uint32_t family);

}  // namespace xfmt::cli
