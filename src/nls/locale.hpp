// The locale lookup that the national-language conversions use per value:
// which record a frame means, and the raw text of one of its fields.
// Fields hold "<U00A0>" escapes for characters outside ASCII; these
// accessors hand the text on unexpanded.
#pragma once

#include <string_view>

#include "nls/locale_fields.hpp"
#include "xfmt/xfmt.h"

namespace xfmt::nls {

inline constexpr int locale_count = 136;
inline constexpr int locale_field_count = 189;
static_assert(lf::paper_width_mm == locale_field_count - 1);

// id itself when it is 1..136; otherwise the first record whose language and
// country codes match positions 0-1 and 3-4 of ZAV_LOCALE (case-insensitive;
// "en_US" when unset), read anew on every call; 0 when none matches.
int resolve_locale_id(int id);

// resolve_locale_id of the frame's locale bits (option_word & 0xFFFF); the
// usual case, a record number, without a call.
inline int frame_locale_id(const xf_frame *f) {
  const int id = static_cast<int>(f->option_word & XF_OPT_LOCALE_MASK);
  return id >= 1 && id <= locale_count ? id : resolve_locale_id(id);
}

// The field's text as stored (escapes not expanded), for an id already
// resolved (1..136); empty for a bad id or field, or an empty field.
std::string_view locale_field(int id, int field);

// False when the field cannot be read (id outside 1..136 or field outside
// 0..188), true otherwise, also when the field is empty.
bool locale_field_ok(int id, int field);

}  // namespace xfmt::nls
