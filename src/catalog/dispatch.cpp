// Dispatch (xffmt): one value through the routine behind a handle, then the
// output encoding the host asked for.
#include "xfmt/xfmt.h"

#include <cstring>

#include "catalog/output_encoding.hpp"

namespace xfmt::catalog {
namespace {

bool is_user_handle(const void *handle) {
  char kind = static_cast<const char *>(handle)[8];
  return kind == '+' || kind == '-';
}

// A user-defined handle: its label routine with the handle's two context
// words. A character format reads UTF-16: single-byte input is widened for
// the call into a local buffer (512 units; longer input is cut there) and the
// input length counts units.
xf_status call_user(xf_frame *frame, const xf_user_handle *h) {
  if (h->routine == nullptr) return XF_E_NOT_BUILT;
  if (h->kind != '+' || frame->input_encoding != XF_ENC_SINGLE_BYTE)
    return h->routine(frame, h->header, h->ranges);
  uint16_t wide[512];
  uint32_t units = widen_latin1(frame, wide);
  const void *input = frame->input;
  uint32_t input_length = frame->input_length;
  frame->input = wide;
  frame->input_length = units;
  xf_status st = h->routine(frame, h->header, h->ranges);
  frame->input = input;
  frame->input_length = input_length;
  return st;
}

// A catalog handle: a refreshed handle (link = itself) converts on the
// caller's frame; any other runs on a copy without encodings, and only the
// output length comes back. Returns the frame the routine saw, for the
// encoding step.
xf_status call_catalog(xf_frame *frame, const fmtposs_row *h, xf_frame &copy, xf_frame *&seen) {
  xf_routine routine = h->row.routine;
  if (routine == nullptr) return XF_E_NOT_BUILT;
  if (h->link == static_cast<uint64_t>(reinterpret_cast<uintptr_t>(h))) {
    seen = frame;
    return routine(frame);
  }
  copy = *frame;
  copy.input_encoding = 0;
  copy.requested_output_encoding = 0;
  copy.output_encoding = 0;
  seen = &copy;
  xf_status st = routine(&copy);
  frame->output_length = copy.output_length;
  return st;
}

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" xf_status xffmt(xf_frame *frame, void *handle) {
  if (frame == nullptr || handle == nullptr) return XF_E_NULL_ARGUMENT;
  xf_status st;
  bool user = is_user_handle(handle);
  xf_frame copy;
  xf_frame *seen = frame;
  if (user) st = call_user(frame, static_cast<const xf_user_handle *>(handle));
  else st = call_catalog(frame, static_cast<const fmtposs_row *>(handle), copy, seen);
  if (st == XF_OK || st == XF_REDUCED) encode_output(seen, user);
  return st;
}
