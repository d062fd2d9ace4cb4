// Dispatch (xffmt): one value through the routine behind a handle, then the
// output encoding the host asked for.
#include "xfmt/xfmt.h"

#include <cstring>

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "catalog/output_encoding.hpp"
#include "userfmt/nested_binding.hpp"

namespace xfmt::catalog {
namespace {

// A user-defined handle: its label routine with the handle's two context
// words. A character format reads UTF-16: single-byte input is widened for
// the call into a local buffer (512 units; longer input is cut there) and the
// input length counts units.
xf_status call_user(xf_frame *frame, const xf_user_handle *h) {
  if (h->routine == nullptr) return XF_E_NOT_BUILT;
  // The labels this format nests were bound at resolution; the table is the
  // last block of the handle's chain.
  const userfmt::nested_table *bound = nullptr;
  if (h->reserved1[0] == userfmt::handle_has_nested && h->chain_last != nullptr)
    bound = reinterpret_cast<const userfmt::nested_table *>(
        static_cast<const unsigned char *>(h->chain_last) + chain_header_bytes);
  userfmt::nested_scope scope(bound);
  if (kind_of_handle(h) != handle_kind::user_character || frame->input_encoding != XF_ENC_SINGLE_BYTE)
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
// caller's frame; any other converts as if on a copy without encodings, of
// which only the output length comes back.
//
// The "copy" is made in place: the caller's fields are saved one by one,
// the encodings zeroed, the routine run on the caller's frame, and every
// field but the output length put back. A whole-frame copy would read the
// frame back in 16-byte pieces right after the host wrote it field by field,
// which defeats store-to-load forwarding and cost more than the conversion
// of a short informat; saving field by field reads each field as it was
// written. What the host and the routine see is the same as with a copy.
xf_status call_catalog(xf_frame *frame, const fmtposs_row *h, bool &refreshed) {
  xf_routine routine = h->row.routine;
  if (routine == nullptr) return XF_E_NOT_BUILT;
  refreshed = h->link == static_cast<uint64_t>(reinterpret_cast<uintptr_t>(h));
  if (refreshed) return routine(frame);
  const int32_t width = frame->width;
  const int32_t decimals = frame->decimals;
  const void *const input = frame->input;
  const uint32_t input_length = frame->input_length;
  void *const output = frame->output;
  const uint32_t output_capacity = frame->output_capacity;
  const uint64_t reserved = frame->reserved;
  const uint64_t option_word = frame->option_word;
  const uint32_t option_flags = frame->option_flags;
  const uint32_t input_encoding = frame->input_encoding;
  const uint32_t requested_output_encoding = frame->requested_output_encoding;
  const uint32_t output_encoding = frame->output_encoding;
  frame->input_encoding = 0;
  frame->requested_output_encoding = 0;
  frame->output_encoding = 0;
  xf_status st = routine(frame);
  frame->width = width;
  frame->decimals = decimals;
  frame->input = input;
  frame->input_length = input_length;
  frame->output = output;
  frame->output_capacity = output_capacity;
  frame->reserved = reserved;
  frame->option_word = option_word;
  frame->option_flags = option_flags;
  frame->input_encoding = input_encoding;
  frame->requested_output_encoding = requested_output_encoding;
  frame->output_encoding = output_encoding;
  return st;
}

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" xf_status xffmt(xf_frame *frame, void *handle) {
  if (frame == nullptr || handle == nullptr) return XF_E_NULL_ARGUMENT;
  if (is_user_handle(handle)) {
    xf_status st = call_user(frame, static_cast<const xf_user_handle *>(handle));
    if (st == XF_OK || st == XF_REDUCED) encode_output(frame, true);
    return st;
  }
  bool refreshed = false;
  xf_status st = call_catalog(frame, static_cast<const fmtposs_row *>(handle), refreshed);
  // Without a refresh the routine saw a requested encoding of 0, so the
  // encoding step has nothing to do: only a refreshed handle (which converts
  // on the caller's frame as it stands) can be widened.
  if (refreshed && (st == XF_OK || st == XF_REDUCED)) encode_output(frame, false);
  return st;
}
