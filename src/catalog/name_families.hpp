// What a catalogued name converts: its value family, its flags beyond the
// catalog row (locale-dependent text, raw bytes) and a one-line description,
// all derived from a short table of name rules rather than one entry per name.
#pragma once

#include <cstddef>
#include <cstdint>

#include "catalog/written_format.hpp"

namespace xfmt::catalog {

struct name_traits {
  uint32_t family = XFX_FAMILY_NONE;
  uint32_t flags = 0;  // XFX_NATIONAL, XFX_BYTES
};

// name without "@"; informat selects the informat rules where they differ.
name_traits traits_of(const char *name, uint32_t length, bool informat);

// Writes the description of a name (without "@") to sink.
void describe_name(const char *name, uint32_t length, bool informat, text_sink &sink);

}  // namespace xfmt::catalog
