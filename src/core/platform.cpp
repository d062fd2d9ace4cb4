// The C library behind platform.hpp.
#include "core/platform.hpp"

#include <atomic>
#include <cctype>     // __ctype_toupper_loc through toupper's table
#include <cstdlib>    // getenv, exit
#include <cstring>    // strncpy
#include <ctime>      // localtime_r, tzset, timezone
#include <iconv.h>    // iconv_open, iconv, iconv_close
#include <langinfo.h> // nl_langinfo(CODESET)
#include <strings.h>  // strcasecmp
#include <sys/time.h> // gettimeofday

namespace xfmt::platform {

namespace {

wall_time system_now() {
  timeval tv{};
  gettimeofday(&tv, nullptr);
  return {static_cast<int64_t>(tv.tv_sec), static_cast<int32_t>(tv.tv_usec)};
}

bool system_local(int64_t seconds, local_time *out) {
  const time_t t = static_cast<time_t>(seconds);
  tm parts{};
  if (localtime_r(&t, &parts) == nullptr) return false;
  *out = {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
          parts.tm_min,         parts.tm_sec,     parts.tm_isdst > 0};
  return true;
}

zone_snapshot read_zone() {
  tzset();
  zone_snapshot z{};
  z.seconds_west = static_cast<int32_t>(timezone);
  const time_t now = time(nullptr);
  tm parts{};
  if (localtime_r(&now, &parts) != nullptr) {
    z.dst = parts.tm_isdst > 0;
    const char *a = parts.tm_zone != nullptr ? parts.tm_zone : "";
    std::strncpy(z.abbrev, a, sizeof z.abbrev - 1);
  }
  return z;
}

// The static's initialisation is the once-guard; only reread_zone (tests,
// no conversions running) writes it again.
zone_snapshot &zone_slot() {
  static zone_snapshot zone = read_zone();
  return zone;
}

int32_t system_zone() { return process_zone().seconds_west; }

std::atomic<const zone_snapshot *> pinned_zone{nullptr};

void copy_text(char (&to)[64], const char *from) {
  std::strncpy(to, from != nullptr ? from : "", sizeof to - 1);
  to[sizeof to - 1] = '\0';
}

environment_snapshot read_environment(uint32_t generation) {
  environment_snapshot e{};
  const char *zav = std::getenv("ZAV_LOCALE");
  e.zav_locale_set = zav != nullptr;
  copy_text(e.zav_locale, zav);
  copy_text(e.codeset, nl_langinfo(CODESET));
  e.codeset_utf8 = strcasecmp(e.codeset, "UTF-8") == 0 || strcasecmp(e.codeset, "UTF8") == 0;
  e.generation = generation;
  return e;
}

// Same once-guard as the zone; only reload_environment writes it again.
environment_snapshot &environment_slot() {
  static environment_snapshot snapshot = read_environment(1);
  return snapshot;
}

constexpr clock_source system_source{system_now, system_local, system_zone};
std::atomic<const clock_source *> installed{nullptr};

}  // namespace

const zone_snapshot &process_zone() {
  const zone_snapshot *z = pinned_zone.load(std::memory_order_acquire);
  return z != nullptr ? *z : zone_slot();
}

void reread_zone() { zone_slot() = read_zone(); }

void set_zone(const zone_snapshot *zone) { pinned_zone.store(zone, std::memory_order_release); }

const clock_source &system_clock() { return system_source; }

const clock_source &current_clock() {
  const clock_source *c = installed.load(std::memory_order_acquire);
  return c != nullptr ? *c : system_source;
}

void set_clock(const clock_source *clock) { installed.store(clock, std::memory_order_release); }

const environment_snapshot &environment() { return environment_slot(); }

void reload_environment() {
  environment_snapshot &e = environment_slot();
  e = read_environment(e.generation + 1);
  reread_zone();
}

const int32_t *toupper_table() { return *__ctype_toupper_loc(); }

void *iconv_begin(const char *to_code, const char *from_code) {
  iconv_t h = iconv_open(to_code, from_code);
  return h == reinterpret_cast<iconv_t>(-1) ? nullptr : static_cast<void *>(h);
}

bool iconv_step(void *handle, const char **in, size_t *in_left, char **out, size_t *out_left) {
  char *src = const_cast<char *>(*in);  // iconv's prototype lacks the const; it never writes there
  const size_t r = iconv(static_cast<iconv_t>(handle), &src, in_left, out, out_left);
  *in = src;
  return r != static_cast<size_t>(-1);
}

bool iconv_flush(void *handle, char **out, size_t *out_left) {
  return iconv(static_cast<iconv_t>(handle), nullptr, nullptr, out, out_left) != static_cast<size_t>(-1);
}

void iconv_reset(void *handle) { iconv(static_cast<iconv_t>(handle), nullptr, nullptr, nullptr, nullptr); }

void iconv_end(void *handle) {
  if (handle != nullptr) iconv_close(static_cast<iconv_t>(handle));
}

void exit_process(int status) { std::exit(status); }

}  // namespace xfmt::platform
