// The common body of the NLDATE, NLDATM and NLTIME members: validation, the
// missing and range rules, the two-pattern and one-pattern rules, the short
// numeric forms, and placing the encoded text in the field.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

#include "core/field.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::nls {

enum class value_kind : uint8_t {
  date,              // a date value
  datetime,          // a datetime value, datetime patterns
  date_of_datetime,  // a datetime value shown by its date part
  time,              // a time of day
};

// Short numeric forms, built from the locale's date order (field 6) and
// separator (field 153) to suit the width.
enum class short_form : uint8_t { none, date, year_month, month_day, year_quarter, datetime };

struct member_spec {
  int16_t min_width;
  int16_t max_decimals;
  value_kind kind;
  int32_t first;   // locale field code of the first pattern
  int32_t second;  // of the second; 0: none
  short_form fallback;
};

// NLDATE, NLDATM, NLTIME and their kin: first pattern, second pattern, the
// short numeric form when there is one, else a field of '*'. The members of
// a date value whose first pattern is a date plan that fits the field take
// a short way to the same bytes.
xf_status run_two_pattern(xf_frame *f, const member_spec &spec);

// The L, M, N and W members: the first row of their pattern table only; a
// shortened text is accepted.
xf_status run_one_pattern(xf_frame *f, const member_spec &spec, const xf_nl_pattern *table);

// The S members: the short numeric form alone.
xf_status run_short(xf_frame *f, const member_spec &spec);

// NLSTRMON, NLSTRQTR, NLSTRWK: the name numbered by the value (1..count),
// full when it fits, else abbreviated.
xf_status run_name(xf_frame *f, int full_first, int abbrev_first, int count);

inline constexpr int nl_max_width = 200;

xf_status validate_width_and_decimals(const xf_frame *f, int min_width, int max_decimals);

// Shared by the members: validation of w and d (when the frame asks),
// 39-42, or 0 to go on.
inline xf_status validate(const xf_frame *f, int min_width, int max_decimals) {
  if ((f->option_word & XF_OPT_VALIDATE) == 0) return XF_OK;
  return validate_width_and_decimals(f, min_width, max_decimals);
}

void place_left_utf16(xf_frame *f, uint32_t n);

// The encoded text stands in the first n bytes of the output: the rest of
// the capacity becomes blank, and n the output length.
inline void place_left(xf_frame *f, uint32_t n, bool utf16) {
  if (utf16) {
    place_left_utf16(f, n);
    return;
  }
  const uint32_t cap = f->output_capacity;
  if (cap > n) fill_bytes(frame_out(f) + n, cap - n, ' ');
  f->output_length = n;
  f->output_encoding = XF_ENC_SINGLE_BYTE;
}

}  // namespace xfmt::nls

// The exported routine NAME of a member: the runner RUN (run_two_pattern
// or run_short) over the member_spec that the remaining
// arguments fill in. The members are then a table, one row each, beside
// their pattern tables.
#define XF_NL_MEMBER(NAME, RUN, ...)                                   \
  XF_ROUTINE(NAME, f) {                                               \
    static constexpr ::xfmt::nls::member_spec spec{__VA_ARGS__};      \
    return ::xfmt::nls::RUN(f, spec);                                 \
  }

// The same for a one-pattern member reading the first row of TABLE.
#define XF_NL_MEMBER_TABLE(NAME, TABLE, ...)                           \
  XF_ROUTINE(NAME, f) {                                               \
    static constexpr ::xfmt::nls::member_spec spec{__VA_ARGS__};      \
    return ::xfmt::nls::run_one_pattern(f, spec, TABLE);              \
  }
