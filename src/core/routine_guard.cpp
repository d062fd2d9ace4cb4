// The irregular path of the routine entry guard (see routine_guard.hpp).
#include "core/routine_guard.hpp"

namespace xfmt {
namespace {

// The buffer a zero-capacity call writes into instead of a null pointer. A
// routine writes nothing at capacity 0, so sharing it between threads is safe.
char empty_output[1];

int32_t clamp_to_bound(int32_t v) {
  if (v > frame_bound) return frame_bound;
  if (v < -frame_bound) return -frame_bound;
  return v;
}

}  // namespace

bool repair_frame(xf_frame *f, frame_repair &r, xf_status *status) {
  if (f == nullptr) {
    *status = XF_E_NULL_ARGUMENT;
    return false;
  }
  if (f->output == nullptr && f->output_capacity != 0) {
    f->output_length = 0;
    *status = XF_E_CAPACITY;
    return false;
  }
  r.width = f->width;
  r.decimals = f->decimals;
  r.input = f->input;
  r.input_length = f->input_length;
  r.output = f->output;
  r.new_width = clamp_to_bound(f->width);
  r.new_decimals = clamp_to_bound(f->decimals);
  r.width_changed = r.new_width != f->width;
  r.decimals_changed = r.new_decimals != f->decimals;
  r.input_changed = f->input == nullptr && f->input_length != 0;
  r.output_changed = f->output == nullptr;
  f->width = r.new_width;
  f->decimals = r.new_decimals;
  if (r.input_changed) f->input_length = 0;
  if (r.output_changed) f->output = empty_output;
  return true;
}

void restore_frame(xf_frame *f, const frame_repair &r) {
  if (r.width_changed && f->width == r.new_width) f->width = r.width;
  if (r.decimals_changed && f->decimals == r.new_decimals) f->decimals = r.decimals;
  if (r.input_changed && f->input == nullptr && f->input_length == 0) f->input_length = r.input_length;
  if (r.output_changed && f->output == empty_output) f->output = r.output;
}

}  // namespace xfmt
