// Written conversions and whole columns: random format texts through
// xfx_parse_spec and its messages; random columns of doubles or UTF-8 texts
// through the column functions (fields of bytes or UTF-32, texts) into
// exact-size buffers, twice, which must agree byte for byte and stay inside
// their buffers; the fast paths never differ from the routines they stand
// in for.
#include <string>

#include "fuzz_support.hpp"
#include "column/fast_paths.hpp"
#include "xfmt/xfx.h"

namespace {

using namespace xfmt::fuzz;

// The messages of a parse, into exact-size buffers.
void messages(xfx_error e, const std::string &text, const xfx_spec &s) {
  size_t n = xfx_error_message(e, text.data(), text.size(), &s, nullptr, 0);
  std::vector<char> out(n + 1);
  check(xfx_error_message(e, text.data(), text.size(), &s, out.data(), out.size()) == n && out[n] == '\0');
  n = xfx_describe(&s, nullptr, 0);
  out.assign(n + 1, 'x');
  check(xfx_describe(&s, out.data(), out.size()) == n && out[n] == '\0');
  n = xfx_strftime_pattern(&s, nullptr, 0);
  out.assign(n + 1, 'x');
  check(xfx_strftime_pattern(&s, out.data(), out.size()) == n);
}

void columns(xfx_conversion *c, reader &r) {
  size_t n = r.byte() % 12;
  std::vector<double> values(n);
  std::string texts;
  std::vector<int64_t> offsets(n + 1, 0);
  for (size_t i = 0; i < n; ++i) {
    values[i] = r.number();
    size_t len = r.byte() % 24;
    for (size_t k = 0; k < len; ++k) texts += static_cast<char>(r.byte());
    offsets[i + 1] = static_cast<int64_t>(texts.size());
  }
  uint32_t flags = r.byte() & 3u;
  size_t stride = 1 + r.byte() % 48;
  const xfx_spec &s = *xfx_conversion_spec(c);
  if ((s.flags & XFX_INFORMAT) && !(s.flags & XFX_CHARACTER)) {
    std::vector<double> a(n), b(n);
    check(xfx_convert_numbers(c, n, texts.data(), offsets.data(), a.data(), nullptr) == XFX_OK);
    check(xfx_convert_numbers(c, n, texts.data(), offsets.data(), b.data(), nullptr) == XFX_OK);
    check(n == 0 || std::memcmp(a.data(), b.data(), n * 8) == 0);
    return;
  }
  std::vector<char> f1(n * stride), f2(n * stride);
  std::vector<xf_status> s1(n), s2(n);
  check(xfx_convert_fixed(c, n, values.data(), texts.data(), offsets.data(), flags, f1.data(), stride, ' ',
                          s1.data()) == XFX_OK);
  check(xfx_convert_fixed(c, n, values.data(), texts.data(), offsets.data(), flags, f2.data(), stride, ' ',
                          s2.data()) == XFX_OK);
  check(f1 == f2 && s1 == s2);
  std::vector<uint32_t> u1(n * stride), u2(n * stride);
  check(xfx_convert_fixed_utf32(c, n, values.data(), texts.data(), offsets.data(), flags, u1.data(), stride, 0,
                                s1.data()) == XFX_OK);
  check(xfx_convert_fixed_utf32(c, n, values.data(), texts.data(), offsets.data(), flags, u2.data(), stride, 0,
                                s2.data()) == XFX_OK);
  check(u1 == u2 && s1 == s2);
  size_t capacity = r.byte() * 4u;
  std::vector<char> d1(capacity), d2(capacity);
  std::vector<int64_t> o1(n + 1), o2(n + 1);
  size_t done1 = 0, done2 = 0;
  xfx_error e1 = xfx_convert_strings(c, n, values.data(), texts.data(), offsets.data(), flags, d1.data(), capacity,
                                     o1.data(), nullptr, &done1);
  xfx_error e2 = xfx_convert_strings(c, n, values.data(), texts.data(), offsets.data(), flags, d2.data(), capacity,
                                     o2.data(), nullptr, &done2);
  check(e1 == e2 && done1 == done2 && done1 <= n);
  for (size_t i = 0; i < done1; ++i) check(o1[i] <= o1[i + 1]);
  check(static_cast<size_t>(o1[done1]) <= capacity);
  check(o1[done1] == 0 || std::memcmp(d1.data(), d2.data(), static_cast<size_t>(o1[done1])) == 0);
}

// The F fast path against zfmt itself.
void fixed_against_routine(reader &r) {
  double v = r.number();
  int32_t w = 2 + r.byte() % 31, d = 1 + r.byte() % 9;
  char fast[32], slow[32];
  if (!xfmt::column::fixed_fast(v, w, d, fast)) return;
  xf_frame f = frame_of(w, d, &v, 8);
  f.output = slow;
  f.output_capacity = sizeof slow;
  check(zfmt(&f) == XF_OK && std::memcmp(fast, slow, static_cast<size_t>(w)) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  reader r{data, size};
  uint8_t mode = r.byte();
  std::string text;
  if (mode & 1) {
    // A real name with a random width and decimals reaches the conversions.
    xfx_catalog_entry e;
    uint32_t index = static_cast<uint32_t>(r.byte() | r.byte() << 8) % xfx_catalog_count();
    if (xfx_catalog_entry_at(index, &e) != XFX_OK) return 0;
    text = (e.spec.flags & XFX_INFORMAT) ? "@" : "";
    text += e.spec.name;
    text += std::to_string(r.byte() % 40) + "." + std::to_string(r.byte() % 12);
  } else {
    size_t len = r.byte() % 24;
    for (size_t i = 0; i < len; ++i) text += static_cast<char>(r.byte());
  }
  xfx_spec s;
  xfx_error e = xfx_parse_spec(text.data(), text.size(), mode & 2 ? XFX_PARSE_INFORMAT : 0, nullptr, &s);
  messages(e, text, s);
  if (e == XFX_OK) {
    xfx_conversion *c = nullptr;
    if (xfx_open(text.data(), text.size(), mode & 2 ? XFX_PARSE_INFORMAT : 0, r.byte(), nullptr, &c) == XFX_OK) {
      columns(c, r);
      xfx_close(c);
    }
  }
  fixed_against_routine(r);
  return 0;
}
