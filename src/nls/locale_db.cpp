// getZAVLocDB and the internal accessor: choose a record (by id, or through
// ZAV_LOCALE) and read one field of it. No cache of the process locale: a
// change of ZAV_LOCALE shows on the next value.
#include "xfmt/xfmt.h"

#include <cstdlib>  // getenv
#include <cstring>  // memcpy, memset

#include "nls/locale.hpp"

namespace xfmt::nls {
namespace {

constexpr int lang_field = 4;     // "af"
constexpr int country_field = 5;  // "ZA"

inline char lower_ascii(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Two characters of the environment text against a two-character field.
inline bool same2(const char *s, const zav_locale_field &f) {
  return f.length == 2 && lower_ascii(s[0]) == lower_ascii(f.text[0]) &&
         lower_ascii(s[1]) == lower_ascii(f.text[1]);
}

// Positions 0-1 name the language and 3-4 the country; position 2 is any
// separator ("de_CH", "de-CH", "DExCH" all mean German_Switzerland) and what
// follows position 4 (".UTF-8", "@euro") is ignored. A text shorter than five
// characters matches nothing.
int match_environment(const char *env) {
  if (std::strlen(env) < 5) return 0;
  for (int k = 0; k < locale_count; ++k) {
    const zav_locale_field *rec = ZAVlocaleData[k];
    if (same2(env, rec[lang_field]) && same2(env + 3, rec[country_field])) return k + 1;
  }
  return 0;
}

}  // namespace

int resolve_locale_id(int id) {
  if (id >= 1 && id <= locale_count) return id;
  const char *env = std::getenv("ZAV_LOCALE");
  return match_environment(env != nullptr ? env : "en_US");
}

int frame_locale_id(const xf_frame *f) {
  return resolve_locale_id(static_cast<int>(f->option_word & XF_OPT_LOCALE_MASK));
}

bool locale_field_ok(int id, int field) {
  return id >= 1 && id <= locale_count && field >= 0 && field < locale_field_count;
}

std::string_view locale_field(int id, int field) {
  if (!locale_field_ok(id, field)) return {};
  const zav_locale_field &f = ZAVlocaleData[id - 1][field];
  if (f.length == 0) return {};
  return {f.text, f.length};
}

}  // namespace xfmt::nls

extern "C" int getZAVLocDB(char *dest, int capacity, int field, int locale_id) {
  using namespace xfmt::nls;
  if (dest == nullptr) capacity = 0;
  if (capacity > 0) std::memset(dest, 0, static_cast<std::size_t>(capacity));
  const int id = resolve_locale_id(locale_id);
  // Callers pass fields 0-188; anything else is refused rather than read
  // from a neighbouring record.
  if (!locale_field_ok(id, field)) return -1;
  const zav_locale_field &f = ZAVlocaleData[id - 1][field];
  // A negative capacity holds nothing, not even an empty field.
  if (capacity < 0 || f.length > static_cast<uint32_t>(capacity)) return -1;
  if (f.length > 0) std::memcpy(dest, f.text, f.length);
  return static_cast<int>(f.length);
}
