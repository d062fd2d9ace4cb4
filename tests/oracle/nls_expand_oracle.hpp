// The slow literal national pattern expander: the oracle of the pattern
// engine.
#pragma once

#include <cstddef>
#include <cstdint>

#include "nls/expand.hpp"

namespace xfmt::oracle {

// Expands the pattern for the moment into text (room bytes; bytes past it
// are counted in *length but dropped): 0, or -2 for an unknown conversion.
int expand_literally(const nls::moment &m, const nls::field_reader &loc, const char *pattern,
                     size_t pattern_length, char *text, size_t room, size_t *length,
                     int32_t decimals);

}  // namespace xfmt::oracle
