// zstrip: the significant length of a blank-padded field.
#include "xfmt/xfmt.h"

extern "C" int32_t zstrip(const char *text, int32_t length) {
  if (length <= 0 || text == nullptr) return length;
  while (length > 0 && text[length - 1] == ' ') --length;
  return length;
}
