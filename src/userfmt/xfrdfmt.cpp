// Entry of the user-defined format reader, called by name resolution.
// The reader itself is not built yet: every request reports "not found", so
// resolution fails cleanly with status 1 for names outside the catalog.
#include "xfmt/xfmt.h"

extern "C" int32_t xfrdfmt(int32_t source, const char *name, int32_t length,
                           xf_ufmt_context *context, void **chain) {
  (void)source;
  (void)name;
  (void)length;
  (void)chain;
  if (context) context->source = 0;
  return 1;
}

extern "C" void setfptr(void *header, xf_user_handle *handle) {
  (void)header;
  (void)handle;
}
