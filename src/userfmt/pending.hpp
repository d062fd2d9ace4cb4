// Routines of other subsystems that this one calls, declared here until
// their branches are merged and xfmt.h declares them.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

extern "C" {
__attribute__((weak)) xf_status zfmt(xf_frame *frame);
__attribute__((weak)) double zjuldat(double date);
__attribute__((weak)) int32_t zymdjul(double *year, double *month, double *day, double julian);
__attribute__((weak)) double zwekday(double date);
__attribute__((weak)) double zdatprt(double dt);
__attribute__((weak)) double ztimprt(double dt);
__attribute__((weak)) double zhour(double v);
__attribute__((weak)) double zminute(double v);
__attribute__((weak)) double zsecond(double v);
__attribute__((weak)) extern const char *const months[12];
__attribute__((weak)) extern const char *const weekdays[7];
}
