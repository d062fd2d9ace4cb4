// Slow references for the name lookups: a linear scan instead of a hash
// probe. They do not touch the caller's text.
#pragma once

#include <cstdint>
#include <string>

namespace xfmt::oracle {

// The locale id of a five-character code, compared case-insensitively
// against every record's language and country fields (with the separator
// "_") and the four aliases; 0 when none matches.
uint32_t locale_id_linear(const std::string &name);

// The encoding id of a name, compared case-insensitively against every entry
// of every bucket; 0 when none matches.
uint32_t encoding_id_linear(const std::string &name);

}  // namespace xfmt::oracle
