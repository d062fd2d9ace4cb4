// The one answer nls gives inside itself when text is made and placed: done,
// cut to fit, too long, or not usable. The exported routines keep their own
// numeric codes; these are turned into them at the edge.
#pragma once

#include <cstdint>

namespace xfmt::nls {

enum class nl_result : uint8_t {
  done,       // the whole text is made (and, when placed, fits the width)
  shortened,  // placed with trailing characters dropped to fit the width
  too_long,   // longer than the room: only its first bytes were stored
  no_room,    // longer than the output capacity: nothing written
  unusable,   // an unknown conversion, an unreadable field, an unconvertible character
};

}  // namespace xfmt::nls
