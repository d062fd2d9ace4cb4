// Entry of the user-defined format reader from name resolution (xfrdfmt),
// and the choice of the lookup routine of a user-defined handle (setfptr).
#include "xfmt/xfmt.h"

#include <cstring>

#include "userfmt/format_builder.hpp"
#include "userfmt/records.hpp"

using namespace xfmt::userfmt;

extern "C" int32_t xfrdfmt(int32_t source, const char *name, int32_t length,
                           xf_ufmt_context *context, void **chain) {
  if (context == nullptr) return read_not_found;
  if (source != 0) context->source = static_cast<uint32_t>(source);
  int32_t rc = read_not_found;
  if (name != nullptr && length > 0) {
    // "@$" character informat, "@" numeric informat, "$" character format.
    int32_t kind = kind_numeric;
    int32_t skip = 0;
    if (length >= 2 && name[0] == '@' && name[1] == '$') kind = request_char_informat, skip = 2;
    else if (name[0] == '@') kind = request_num_informat, skip = 1;
    else if (name[0] == '$') kind = kind_character, skip = 1;
    int32_t n = length - skip;
    if (n > 0 && n <= 32) {
      char padded[32];
      std::memset(padded, ' ', sizeof padded);
      std::memcpy(padded, name + skip, static_cast<size_t>(n));
      rc = xfrdcom(kind, padded, context, chain);
    }
  }
  context->source = 0;
  return rc;
}

extern "C" void setfptr(void *header, xf_user_handle *handle) {
  if (header == nullptr || handle == nullptr) return;
  auto h = static_cast<const xf_user_format *>(header);
  handle->min_width = h->min_width;
  handle->max_width = h->max_width;
  handle->default_width = h->default_width;
  switch (h->kind) {
    case kind_numeric:
    case kind_picture: handle->routine = h->linear_search ? yfpfnfn : yfpfnfm; break;
    case kind_character: handle->routine = h->linear_search ? yfpfcfn : yfpfcfm; break;
    default: break;
  }
}
