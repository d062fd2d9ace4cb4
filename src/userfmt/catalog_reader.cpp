// Choosing the source of a user-defined format (xfrdcom) and the search of
// an in-memory catalog a host handed over (xfrdmnr).
#include "xfmt/xfmt.h"

#include <cstring>

#include "userfmt/format_builder.hpp"
#include "userfmt/records.hpp"

using namespace xfmt::userfmt;

extern "C" int32_t xfrdmnr(int32_t request_kind, const char *name, xf_ufmt_context *context) {
  if (context == nullptr || context->catalog == nullptr || name == nullptr) return read_not_found;
  const xf_user_format *h = context->catalog;
  const void *const *cursor = context->catalog_ranges;
  bool want_character = request_kind == kind_character;
  // The walk starts after the anchor and ends after the header whose marker
  // begins with a blank.
  for (++h;; ++h) {
    if ((h->kind == kind_character) == want_character && std::memcmp(h->name, name, 32) == 0) {
      context->control = const_cast<xf_user_format *>(h);
      context->word2 = const_cast<const void **>(cursor);
      return read_found;
    }
    if (h->marker[0] == ' ') return read_not_found;
    cursor += h->range_count;
  }
}

extern "C" int32_t xfrdcom(int32_t request_kind, const char *name, xf_ufmt_context *context,
                           void **chain) {
  if (context == nullptr) return read_not_found;
  switch (context->source) {
    case 5: return xfrdmnr(request_kind, name, context);
    case 3:  // native catalog files
    case 4:  // transport files
      return read_unsupported;
    default: return xfrdexp(request_kind, name, context, chain);
  }
}
