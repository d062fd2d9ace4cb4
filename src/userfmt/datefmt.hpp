// The date directives of pictures compiled ahead: the reader compiles a date
// picture's template once, when it builds the label, into plans of the
// national pattern engine kept after the label's text; each value then only
// runs them. A template that needs more than date_plans_max plans is not
// kept compiled and goes through datefmt, which compiles it on each call.
#pragma once

#include <cstddef>
#include <cstdint>

#include "nls/date_plan.hpp"

namespace xfmt::userfmt {

// A plan holds 24 steps and 112 bytes of literal text (a separator after a
// directive rides on its step): four hold about a hundred directives.
inline constexpr std::size_t date_plans_max = 4;

// Compiles template t (length bytes) of datatype (1 DATE, 2 TIME,
// 3 DATETIME) into plans; returns how many it takes, or 0 when it needs
// more than date_plans_max.
std::size_t compile_date_template(const char *t, int32_t length, int32_t datatype,
                                  nls::pattern_plan *plans);

// What datefmt writes for the template whose plans these are: the value in
// work (capacity bytes); returns the length stored.
int32_t run_date_template(const nls::pattern_plan *plans, std::size_t count, int32_t datatype,
                          double value, char *work, int32_t capacity);

}  // namespace xfmt::userfmt
