// Intrinsic pseudo-formats: "_C_R_A_S_H_", "INTRINSIC-CRDATE" and
// "$IS-INTRINSIC". They live in no module; resolution hands out the address
// of their static rows.
#include "xfmt/xfmt.h"

#include <cstring>

#include "catalog/catalog.hpp"
#include "catalog/intrinsics.hpp"
#include "core/routine_guard.hpp"

namespace xfmt::catalog {
namespace {

// The resolved-record shape: link 0, kind byte blank, module name length 1.
constexpr fmtposs_row intrinsic(const char *name, uint16_t w, xf_routine routine) {
  fmtposs_row p{};
  p.module_name[0] = ' ';
  p.module_name_length = 1;
  p.row = row(name, w, w, w, 0, 0, 0, routine);
  return p;
}

constexpr char build_date[] = "Apr 18 2019";
constexpr char build_time[] = "13:09:42";

bool same(const char *a, uint32_t la, const char *b) {
  uint32_t lb = static_cast<uint32_t>(std::strlen(b));
  return la == lb && std::memcmp(a, b, la) == 0;
}

// Copies min(n, capacity) bytes of text into the output; returns the count.
uint32_t put_cut(xf_frame *f, const char *text, uint32_t n) {
  if (n > f->output_capacity) n = f->output_capacity;
  if (n) std::memcpy(f->output, text, n);
  f->output_length = n;
  return n;
}

char ascii_upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

// The first 32 bytes of the input as single-byte text. UTF-16 input is
// narrowed unit by unit; a unit above 0x7F cannot be part of any intrinsic or
// catalogued name, so it becomes 0x7F and the answer is "NO ".
uint32_t input_name(const xf_frame *f, char (&name)[32]) {
  uint32_t n = f->input_length < 32 ? f->input_length : 32;
  if (f->input == nullptr) return 0;
  const auto *in = static_cast<const unsigned char *>(f->input);
  if (f->input_encoding != XF_ENC_UTF16BE && f->input_encoding != XF_ENC_UTF16LE) {
    std::memcpy(name, in, n);
    return n;
  }
  uint32_t units = n / 2;
  for (uint32_t i = 0; i < units; ++i) {
    unsigned lo = in[2 * i], hi = in[2 * i + 1];
    unsigned u = f->input_encoding == XF_ENC_UTF16LE ? (hi << 8 | lo) : (lo << 8 | hi);
    name[i] = static_cast<char>(u < 0x80 ? u : 0x7F);
  }
  return units;
}

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" {

constinit const fmtposs_row crashfmt = intrinsic("_C_R_A_S_H_", 1, zfmcrash);
constinit const fmtposs_row ver_num[2] = {
    intrinsic("INTRINSIC-CRDATE", 20, zfmvernum),
    intrinsic("$IS-INTRINSIC", 3, zfmintrns),
};

void get_date_time(const char **date, const char **time) {
  if (date) *date = build_date;
  if (time) *time = build_time;
}

XF_ROUTINE(zfmcrash, frame) {
  put_cut(frame, "X", 1);
  return XF_OK;
}

XF_ROUTINE(zfmvernum, frame) {
  const char *date = nullptr, *time = nullptr;
  get_date_time(&date, &time);
  char stamp[20];  // "Apr 18 2019 13:09:42"
  std::memcpy(stamp, date, 11);
  stamp[11] = ' ';
  std::memcpy(stamp + 12, time, 8);
  uint32_t w = frame->width > 0 ? static_cast<uint32_t>(frame->width) : 0;
  put_cut(frame, stamp, w < 20 ? w : 20);
  return XF_OK;
}

XF_ROUTINE(zfmintrns, frame) {
  char name[32];
  uint32_t n = input_name(frame, name);
  n = static_cast<uint32_t>(zstrip(name, static_cast<int32_t>(n)));
  for (uint32_t i = 0; i < n; ++i) name[i] = ascii_upper(name[i]);
  put_cut(frame, is_intrinsic_name(name, n) ? "YES" : "NO ", 3);
  frame->output_encoding = XF_ENC_SINGLE_BYTE;
  return XF_OK;
}

}  // extern "C"

namespace xfmt::catalog {

const fmtposs_row *find_intrinsic(const char *name, uint32_t length) {
  if (same(name, length, "_C_R_A_S_H_")) return &crashfmt;
  if (same(name, length, "INTRINSIC-CRDATE")) return &ver_num[0];
  if (same(name, length, "$IS-INTRINSIC")) return &ver_num[1];
  return nullptr;
}

bool is_intrinsic_row(const void *p) { return p == &crashfmt || p == &ver_num[0] || p == &ver_num[1]; }

bool is_intrinsic_name(const char *name, uint32_t length) {
  if (length == 1 && (name[0] == 'F' || name[0] == '$')) return true;
  if (same(name, length, "$F")) return true;
  for (const fmtposs_row &p : fmtposs) {
    const fmtinfo_eachfmt &r = p.row;
    if (r.name[0] == '-' || r.name[0] == '@') continue;
    if (r.name_length == length && std::memcmp(r.name, name, length) == 0) return true;
  }
  return same(name, length, "$IS-INTRINSIC") || same(name, length, "$FMT-META") ||
         same(name, length, "INTRINSIC-CRDATE") || same(name, length, "$UFMT-CRDATE");
}

}  // namespace xfmt::catalog
