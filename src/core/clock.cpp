// The current date and time, the time-zone offset, and the process end
// routines. All time comes through platform.hpp so tests can fix it.
#include "xfmt/xfmt.h"

#include <cstdint>

#include "core/platform.hpp"  // current_clock, exit_process

namespace {

xfmt::platform::local_time local_now(int32_t *microseconds) {
  const auto &clock = xfmt::platform::current_clock();
  const xfmt::platform::wall_time t = clock.now();
  xfmt::platform::local_time parts{1970, 1, 1, 0, 0, 0, false};
  clock.to_local(t.seconds, &parts);
  if (microseconds != nullptr) *microseconds = t.microseconds;
  return parts;
}

}  // namespace

extern "C" void wzdate(int32_t *month, int32_t *day, int32_t *year) {
  const auto parts = local_now(nullptr);
  if (month != nullptr) *month = parts.month;
  if (day != nullptr) *day = parts.day;
  if (year != nullptr) *year = parts.year;
}

extern "C" void wztime(int32_t *hour, int32_t *minute, double *seconds) {
  int32_t micro = 0;
  const auto parts = local_now(&micro);
  if (hour != nullptr) *hour = parts.hour;
  if (minute != nullptr) *minute = parts.minute;
  if (seconds != nullptr) *seconds = parts.second + micro / 1e6;
}

extern "C" double vtutod(void) {
  const xfmt::platform::wall_time t = xfmt::platform::current_clock().now();
  return static_cast<double>(t.seconds) + t.microseconds / 1e6;
}

extern "C" void hztz(int32_t *offset) {
  if (offset == nullptr) return;
  const auto &clock = xfmt::platform::current_clock();
  int32_t west = clock.zone_seconds_west();
  // Daylight saving moves local time an hour east: Central Europe in summer
  // is -3600 - 3600 = -7200 seconds west.
  const auto parts = local_now(nullptr);
  if (parts.dst) west -= 3600;
  *offset = west;
}

extern "C" void vacrash(void) { xfmt::platform::exit_process(0); }

extern "C" void vaterm(void) {}
