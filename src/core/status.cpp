// Names of statuses, for the xfmt command and for test messages.
#include "core/status.hpp"

#include <cstdio>

namespace xfmt {

const char *status_name(xf_status status) {
  switch (status) {
    case XF_OK: return "ok";
    case XF_REDUCED: return "decimals reduced to fit";
    case XF_UTF16_LABEL: return "label delivered as UTF-16";
    case XF_NL_WIDTH_LOW: return "width below the minimum";
    case XF_NL_WIDTH_HIGH: return "width above the maximum";
    case XF_NL_DECIMALS_LOW: return "decimals below the minimum";
    case XF_NL_DECIMALS_HIGH: return "decimals above the maximum";
    case XF_E_NOT_BUILT: return "conversion not available in this library";
    case XF_E_NULL_ARGUMENT: return "frame or handle is NULL";
    case XF_E_DATE_RANGE: return "date or time out of range";
    case XF_E_HOURS_RANGE: return "hours out of range";
    case XF_E_CAPACITY: return "width larger than the output capacity";
    case XF_E_OVERFLOW: return "number does not fit the width";
    case XF_IN_RANGE_WARNING: return "value outside the double range";
    case XF_IN_INVALID: return "invalid text";
    case XF_IN_BAD_WIDTH: return "bad width or decimals";
    default: break;
  }
  thread_local char buf[32];
  std::snprintf(buf, sizeof buf, "status 0x%08X", static_cast<unsigned>(status));
  return buf;
}

}  // namespace xfmt
