// Slow, literal reference versions of the dates in words and the 12-hour
// datetimes: the calendar day by stepping years and months, every layout
// built with snprintf, the first one that fits taken. For the differential
// tests of word_dates.cpp and ampm_datetimes.cpp.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

// Year, month (1-12), day and weekday (0 = Sunday) of a valid date value.
void calendar_day(int64_t date, int64_t &year, int32_t &month, int32_t &day, int32_t &weekday);

// The field of width w of WEEKDATE ('E'), WEEKDATX ('X'), WORDDATE ('W')
// or WORDDATX ('V') for a valid date value; stars when nothing fits.
std::string words_field(char family, int64_t date, int32_t w);

// MDYAMPM and DATEAMPM fields of a datetime given in quarter seconds
// (exact), width w and decimals d.
std::string mdyampm_field(int64_t quarters, int32_t w, int32_t d);
std::string dateampm_field(int64_t quarters, int32_t w, int32_t d);

}  // namespace xfmt::oracle
