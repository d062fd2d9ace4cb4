#include "oracle/nls_member_oracle.hpp"

#include <cstring>

#include "oracle/nls_encode_oracle.hpp"

namespace xfmt::oracle {
namespace {

// The expansion of one pattern code, or false when it cannot be made in
// 1024 bytes (or the pattern cannot be read or holds a bad letter).
bool expand_code(const member_case &c, bool datetime, int code, std::string *text) {
  char buf[1024];
  int32_t len = static_cast<int32_t>(sizeof buf);
  int r = datetime ? zkfdttm(c.value, c.locale, buf, &len, nullptr, code, c.decimals)
                   : zkfdate(c.value, c.locale, buf, &len, nullptr, code);
  if (r != 0) return false;
  text->assign(buf, static_cast<size_t>(len));
  return true;
}

member_outcome stars(const member_case &c, xf_status status) {
  member_outcome o{status, 0, std::string(c.capacity, '\xEE'), false};
  uint32_t n = static_cast<uint32_t>(c.width) < c.capacity ? static_cast<uint32_t>(c.width)
                                                          : c.capacity;
  for (uint32_t i = 0; i < n; ++i) o.buffer[i] = '*';
  o.length = n;
  return o;
}

}  // namespace

member_outcome two_pattern_literally(const member_case &c, bool datetime, int first, int second,
                                     xf_routine short_member) {
  bool no_room = false;
  for (int code : {first, second}) {
    if (code == 0) continue;
    std::string text;
    if (!expand_code(c, datetime, code, &text)) continue;
    encoded_text e = encode_literally(text, c.width, c.capacity);
    if (e.result <= 0) {
      member_outcome o{XF_OK, static_cast<uint32_t>(e.bytes.size()),
                       std::string(c.capacity, ' '), false};
      o.buffer.replace(0, e.bytes.size(), e.bytes);
      return o;
    }
    no_room = no_room || e.result == 2;
  }
  if (short_member == nullptr) return stars(c, no_room ? XF_E_CAPACITY : XF_E_OVERFLOW);
  member_outcome o{XF_OK, 0, std::string(c.capacity, '\xEE'), true};
  double v = c.value;
  xf_frame f{};
  f.input = &v;
  f.input_length = 8;
  f.width = c.width;
  f.decimals = c.decimals;
  f.output = o.buffer.empty() ? nullptr : o.buffer.data();
  f.output_capacity = c.capacity;
  f.option_word = static_cast<uint64_t>(c.locale);
  o.status = short_member(&f);
  o.length = f.output_length;
  if (o.status != XF_OK && no_room) o.status = XF_E_CAPACITY;
  return o;
}

}  // namespace xfmt::oracle
