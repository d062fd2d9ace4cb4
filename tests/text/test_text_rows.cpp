// The character and text conversions of tests/data/text/conversions.txt:
// each call gets an exact-size copy of its input and an output buffer of
// the row's capacity followed by guard bytes, which must stay untouched.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "support/rows.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::unescaped;

struct outcome {
  int64_t result = 0, count = 0;
  std::string out;  // the bytes written, or a decoded code point as 8 hex digits
};

struct call {
  std::vector<uint8_t> in;  // exactly the input
  uint32_t cp = 0;          // the input of the code point routines
  std::vector<uint8_t> out; // capacity, then guard bytes
  uint32_t cap = 0;
  std::vector<uint32_t> params;
};

std::string hex8(uint32_t v) {
  char s[9];
  std::snprintf(s, sizeof s, "%08X", v);
  return s;
}

// UTF-16 units from the big-endian bytes the file writes (an odd last byte
// leaves a zero unit), and units back to such bytes.
std::vector<uint16_t> units_of(const uint8_t *p, uint32_t bytes) {
  std::vector<uint16_t> units((bytes + 1) / 2);
  for (uint32_t k = 0; k + 1 < bytes; k += 2) units[k / 2] = static_cast<uint16_t>(p[k] << 8 | p[k + 1]);
  return units;
}

std::string bytes_of(const uint16_t *units, uint32_t n) {
  std::string s;
  for (uint32_t k = 0; k < n; ++k) s += {static_cast<char>(units[k] >> 8), static_cast<char>(units[k])};
  return s;
}

outcome run(const std::string &routine, call &c) {
  outcome o;
  uint32_t n = 0, used = 0, cp = 0;
  const uint8_t *in = c.in.data();  // exactly the input (null or not when empty)
  const auto len = static_cast<uint32_t>(c.in.size());
  uint8_t *out = c.out.data();
  const auto written = [&](uint32_t k) { o.out.assign(reinterpret_cast<const char *>(out), k); };
  const auto decoded = [&](uint32_t r) {
    o.result = r;
    o.count = used;
    o.out = hex8(cp);
  };
  // Code point in, bytes out.
  using storer = uint32_t (*)(uint32_t, uint8_t *, uint32_t, uint32_t *);
  const std::pair<const char *, storer> storers[] = {{"COPY_UTF32", COPY_UTF32},   {"COPY_UTF32_SWAP", COPY_UTF32_SWAP},
                                                      {"UTF32_UTF8", UTF32_UTF8},   {"UTF32_UTF16", UTF32_UTF16},
                                                      {"UTF32_UTF16_SWAP", UTF32_UTF16_SWAP}};
  for (const auto &[name, f] : storers) {
    if (routine != name) continue;
    o.result = f(c.cp, out, c.cap, &n);
    o.count = n;
    written(n);
    return o;
  }
  if (routine == "UTF8_UTF32") decoded(UTF8_UTF32(in, len, &cp, &used));
  else if (routine == "UTF16_UTF32") decoded(UTF16_UTF32(in, len, &cp, &used));
  else if (routine == "UTF16_UTF32_SWAP") decoded(UTF16_UTF32_SWAP(in, len, &cp, &used));
  else if (routine == "isLegalUTF8") {
    int32_t bad = -1;
    o.result = isLegalUTF8(in, static_cast<int32_t>(len), &bad);
    o.count = bad;
  } else if (routine == "NLSNUMCHAR") {
    o.count = NLSNUMCHAR(c.params.at(0), len ? in : nullptr, static_cast<int32_t>(c.params.size() > 1 ? c.params[1] : len));
  } else if (routine == "encode_base64" || routine == "decode_base64") {
    const auto cap = static_cast<int32_t>(c.cap);
    if (!len) in = reinterpret_cast<const uint8_t *>("");  // null is refused; empty text is not
    o.result = routine == "decode_base64"
                   ? decode_base64(reinterpret_cast<const char *>(in), static_cast<int32_t>(len), out, cap, &n)
                   : encode_base64(in, static_cast<int32_t>(len), reinterpret_cast<char *>(out), cap, &n,
                                   c.params.empty() ? 0 : 1);
    o.count = n;
    written(o.result < 0 && routine == "encode_base64" ? c.cap : n);  // refused: the whole buffer
  } else if (routine == "UNICODEToUTF8") {
    const std::vector<uint16_t> units = units_of(in, len);
    o.result = UNICODEToUTF8(units.data(), len, out, c.cap, &n, &used);
    o.count = n;
    written(used);
  } else if (routine == "UTF8ToUNICODE" || routine == "LATIN1ToUNICODE") {
    std::vector<uint16_t> units(c.cap / 2);
    o.result = routine == "UTF8ToUNICODE" ? UTF8ToUNICODE(in, len, units.data(), c.cap, &n, &used)
                                          : LATIN1ToUNICODE(in, len, units.data(), c.cap / 2, &n);
    o.count = n;
    o.out = bytes_of(units.data(), n);
    if (routine == "UTF8ToUNICODE") {
      EXPECT_EQ(used, 2 * n) << "bytes written";
    }
  } else if (routine == "getUnicodeWidthFromNarrow") {
    const std::vector<uint16_t> units = units_of(in, len);
    const void *text = !len ? nullptr : c.params.at(0) == 20 ? static_cast<const void *>(in) : units.data();
    o.result = getUnicodeWidthFromNarrow(c.params.at(0), text, static_cast<int32_t>(c.params.at(1)),
                                         static_cast<int32_t>(c.params.at(2)));
  } else if (routine == "UPCASE" || routine == "LOWCASE") {
    std::vector<uint16_t> units = units_of(in, len);  // in place
    o.result = (routine == "UPCASE" ? UPCASE : LOWCASE)(units.data(), static_cast<uint32_t>(units.size()));
    o.out = bytes_of(units.data(), static_cast<uint32_t>(units.size()));
  } else if (routine == "MPTLU") {
    // Units copied into the output buffer (the capacity its bytes), cut or
    // padded with blanks; the guard bytes after it stay.
    const std::vector<uint16_t> units = units_of(in, len);
    std::vector<uint16_t> to(c.cap / 2);
    MPTLU(len ? units.data() : nullptr, static_cast<int32_t>(units.size()), reinterpret_cast<uint16_t *>(out),
          static_cast<int32_t>(to.size()));
    if (!to.empty()) std::memcpy(to.data(), out, 2 * to.size());
    o.out = bytes_of(to.data(), static_cast<uint32_t>(to.size()));
  } else if (routine == "zas2eb" || routine == "zeb2as" || routine == "wztxatoe" || routine == "wztxetoa") {
    // In place on the output buffer holding a copy of the input; a parameter
    // is the length passed instead of the input's.
    void (*const translate)(uint8_t *, int32_t) = routine == "zas2eb"     ? zas2eb
                                                  : routine == "zeb2as"   ? zeb2as
                                                  : routine == "wztxatoe" ? wztxatoe
                                                                          : wztxetoa;
    if (len) std::memcpy(out, in, len);
    translate(out, c.params.empty() ? static_cast<int32_t>(len) : static_cast<int32_t>(c.params[0]));
    written(len);
  } else {
    if (routine == "ConvertToUTF32")
      o.result = ConvertToUTF32(len ? in : nullptr, len, out, c.cap, &n, UTF8_UTF32, c.params.empty() ? COPY_UTF32 : COPY_UTF32_SWAP);
    else if (routine == "ConvertFromUTF32") o.result = ConvertFromUTF32(in, len, 1, out, c.cap, &n, UTF32_UTF8);
    else if (routine == "UTF32_UTF16s") o.result = UTF32_UTF16s(in, len, out, c.cap, &n);
    else if (routine == "UTF32_UTF16s_SWAP") o.result = UTF32_UTF16s_SWAP(in, len, out, c.cap, &n);
    else if (routine == "ConvertOSToUTF32") o.result = ConvertOSToUTF32(c.params.at(0), c.params.at(1), in, len, out, c.cap, &n);
    else if (routine == "ConvertOSFromUTF32") o.result = ConvertOSFromUTF32(c.params.at(0), c.params.at(1), in, len, out, c.cap, &n);
    else if (routine == "sanlsTranscodeUnicode")
      o.result = sanlsTranscodeUnicode(c.params.at(0), in, len, c.params.at(1), c.cap ? out : nullptr, c.cap, &n, &used);
    else ADD_FAILURE() << "no routine " << routine;
    o.count = routine == "sanlsTranscodeUnicode" ? used : n;
    written(n);
  }
  return o;
}

int64_t result_of(const std::string &s) {
  if (s == "OK") return 0;
  if (s == "SMALL") return XF_TX_OUTPUT_SMALL;
  if (s == "BAD") return XF_TX_BAD_LEAD;
  if (s == "CUT") return XF_TX_CUT_OFF;
  return std::stoll(s);
}

TEST(text_conversions, calls_of_the_file) {
  constexpr size_t guard = 16;
  for (const auto &r : xfmt::test::tab_rows("text/conversions.txt")) {
    ASSERT_GE(r.size(), 7u) << r[0];
    std::vector<std::string> words;
    for (size_t at = 0, next; at <= r[1].size(); at = next + 1) {
      next = r[1].find(' ', at);
      if (next == std::string::npos) next = r[1].size();
      words.push_back(r[1].substr(at, next - at));
    }
    call c;
    for (size_t k = 1; k < words.size(); ++k) c.params.push_back(static_cast<uint32_t>(std::stoul(words[k])));
    const std::string in = unescaped(r[2]);
    c.in.assign(in.begin(), in.end());
    if (r[2].rfind("U+", 0) == 0) c.cp = static_cast<uint32_t>(std::stoul(r[2].substr(2), nullptr, 16));
    c.cap = r[3] == "-" ? 0 : static_cast<uint32_t>(std::stoul(r[3]));
    c.out.assign(c.cap + guard, 0xEE);
    const outcome o = run(words[0], c);
    EXPECT_EQ(o.result, result_of(r[4])) << r[0];
    if (r[5] != "*") {
      EXPECT_EQ(o.count, std::stoll(r[5])) << r[0];
    }
    if (r[6] != "*") {
      EXPECT_EQ(o.out, unescaped(r[6])) << r[0];
    }
    EXPECT_EQ(std::vector<uint8_t>(c.out.begin() + c.cap, c.out.end()), std::vector<uint8_t>(guard, 0xEE))
        << r[0] << ": written past the capacity";
  }
}

}  // namespace
