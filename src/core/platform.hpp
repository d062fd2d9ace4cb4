// The one funnel to the C library's process-wide services: the clock and
// local time, the time zone, the environment, the locale's codeset and
// toupper table, and iconv. Tests pin the clock and the zone here; nothing
// else in the library calls these C functions directly (a test greps src/
// for them).
#pragma once

#include <cstddef>
#include <cstdint>

namespace xfmt::platform {

struct wall_time {
  int64_t seconds;       // since 1970-01-01 00:00:00 UTC
  int32_t microseconds;  // 0-999999
};

struct local_time {
  int32_t year;    // four digits
  int32_t month;   // 1-12
  int32_t day;     // 1-31
  int32_t hour;    // 0-23
  int32_t minute;  // 0-59
  int32_t second;  // 0-60
  bool dst;        // daylight saving time in force
};

// A source of the current time. The system one reads gettimeofday,
// localtime_r and, for the zone, process_zone().
struct clock_source {
  wall_time (*now)();
  bool (*to_local)(int64_t seconds, local_time *out);
  int32_t (*zone_seconds_west)();  // standard time, seconds west of UTC
};

// The process time zone as the C library knows it (TZ, tzset): the standard
// offset, whether daylight saving time was in force and the abbreviation.
// It is read once, on first use, under a real once-guard (a function-local
// static), so threads that all convert their first zoned value at the same
// moment read the C library's globals once; later values pay nothing. A
// change of TZ later in the process is not seen until reread_zone.
struct zone_snapshot {
  int32_t seconds_west;  // standard time
  bool dst;              // daylight saving time in force when it was read
  char abbrev[16];       // "%Z", NUL terminated
};
// The zone in use: the process zone, unless a test pinned another.
const zone_snapshot &process_zone();
// Tests only: reads the zone again after a change of TZ. Not to be called
// while conversions run on other threads.
void reread_zone();
// Tests only: pins the zone that process_zone returns (nullptr returns to
// the process zone). Same restriction as set_clock.
void set_zone(const zone_snapshot *zone);

const clock_source &system_clock();
// The clock in use: the system clock unless a test installed another.
const clock_source &current_clock();
// Tests only: installs a clock (nullptr restores the system clock). Not to be
// called while conversions run on other threads.
void set_clock(const clock_source *clock);

// What the library takes from the process environment: ZAV_LOCALE and the
// codeset of the C library's locale (nl_langinfo(CODESET)). Read once, on
// first use, under a once-guard (a function-local static), so a value pays
// nothing for them; a later setenv or setlocale is not seen until
// reload_environment. generation changes at every reload, so callers may
// cache what they derive from the rest.
struct environment_snapshot {
  bool zav_locale_set;
  char zav_locale[64];  // NUL terminated, cut at 63 bytes (only 0-4 matter)
  char codeset[64];     // NUL terminated, "" when the C library names none
  bool codeset_utf8;    // the codeset is UTF-8 (named "UTF-8" or "UTF8", any case)
  uint32_t generation;
};
const environment_snapshot &environment();
// Reads ZAV_LOCALE, the codeset and the zone again: what a test calls after
// setenv or setlocale (internal, not exported). Not to be called while
// conversions run on other threads.
void reload_environment();

// The current locale's toupper table, indexable by -128..255; fetch it once
// per call of a routine, not per byte.
const int32_t *toupper_table();

// iconv: an opaque handle, NULL when the conversion is not available.
void *iconv_begin(const char *to_code, const char *from_code);
// Converts as iconv does; returns false on any error (with the pointers and
// counts advanced past what was converted).
bool iconv_step(void *handle, const char **in, size_t *in_left, char **out, size_t *out_left);
// Writes what ends the output's shift state; false when it does not fit.
bool iconv_flush(void *handle, char **out, size_t *out_left);
// Returns the descriptor to its initial shift state.
void iconv_reset(void *handle);
void iconv_end(void *handle);

// Ends the process with the given status.
[[noreturn]] void exit_process(int status);

}  // namespace xfmt::platform
