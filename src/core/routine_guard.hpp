// The entry guard of every conversion routine. A host is told to check
// widths and decimals against the catalog's limits, but a routine must still
// do bounded work and stay defined for any frame a careless host can build:
// a null frame, a null output with a nonzero capacity, a null input, a width
// or decimals near INT32_MIN or INT32_MAX.
//
// Every exported routine is defined through XF_ROUTINE (or, when it takes
// more than the frame, wraps its body in guarded_call), so a host that calls
// zfmt directly gets the same protection as one that goes through xffmt; so
// does every internal call of one routine by another. A frame within the
// plain bounds costs five compares and goes straight to the body.
//
// What the guard answers or changes, outside the plain bounds only:
//   - a null frame: XF_E_NULL_ARGUMENT;
//   - a null output with a nonzero capacity: output length 0, XF_E_CAPACITY;
//   - a width or decimals beyond +-32767 (no catalogued name allows more):
//     brought to the nearest of those bounds for the call;
//   - a null input: read as an input of length 0;
//   - a null output with capacity 0: the routine writes into a valid empty
//     buffer, so that no library call ever sees a null pointer.
// Each field changed for the call is put back afterwards unless the routine
// itself stored a new value there (F stores the width it reduced to).
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt {

// The largest magnitude of width and decimals a routine ever sees: the widest
// catalogued conversion (32767 positions).
inline constexpr int32_t frame_bound = 32767;

inline bool frame_in_bounds(int32_t v) {
  return static_cast<uint32_t>(v) + static_cast<uint32_t>(frame_bound) <=
         2u * static_cast<uint32_t>(frame_bound);
}

// True when the frame can go to the routine untouched.
inline bool frame_is_plain(const xf_frame *f) {
  return f != nullptr && f->output != nullptr && f->input != nullptr && frame_in_bounds(f->width) &&
         frame_in_bounds(f->decimals);
}

// The fields a guarded call changed, to put back after it.
struct frame_repair {
  int32_t width, decimals;
  const void *input;
  uint32_t input_length;
  void *output;
  int32_t new_width, new_decimals;
  bool width_changed, decimals_changed, input_changed, output_changed;
};

// Prepares an irregular frame for its routine. Returns false, with the status
// to answer in *status, when the call must not happen at all.
bool repair_frame(xf_frame *f, frame_repair &r, xf_status *status);
void restore_frame(xf_frame *f, const frame_repair &r);

template <class Body>
inline xf_status guarded_call(xf_frame *f, Body &&body) {
  if (frame_is_plain(f)) [[likely]]
    return body(f);
  frame_repair r;
  xf_status status;
  if (!repair_frame(f, r, &status)) return status;
  status = body(f);
  restore_frame(f, r);
  return status;
}

}  // namespace xfmt

// Defines the exported routine NAME, with its frame parameter named PARAM,
// as the guard around the body that follows the macro:
//     XF_ROUTINE(zfmb, f) { return with_decimals(f, 99); }
#define XF_ROUTINE(NAME, PARAM)                                                       \
  static xf_status NAME##_body(xf_frame *PARAM);                                     \
  extern "C" XF_API xf_status NAME(xf_frame *guarded_frame) {                         \
    return ::xfmt::guarded_call(guarded_frame, NAME##_body);                            \
  }                                                                                   \
  static xf_status NAME##_body(xf_frame *PARAM)

// The same for a routine that takes more than the frame; the extra
// parameters are given twice, declared and as arguments:
//     XF_ROUTINE_WITH(zfmdlmy, f, (char separator), (separator)) { ... }
#define XF_UNPAREN(...) __VA_ARGS__
#define XF_ROUTINE_WITH(NAME, PARAM, DECLS, ARGS)                                         \
  static xf_status NAME##_body(xf_frame *PARAM, XF_UNPAREN DECLS);                         \
  extern "C" XF_API xf_status NAME(xf_frame *guarded_frame, XF_UNPAREN DECLS) {           \
    return ::xfmt::guarded_call(guarded_frame,                                             \
                                [&](xf_frame *g) { return NAME##_body(g, XF_UNPAREN ARGS); }); \
  }                                                                                        \
  static xf_status NAME##_body(xf_frame *PARAM, XF_UNPAREN DECLS)
