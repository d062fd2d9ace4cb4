// UTF-8 decoding, UTF-16 conversions, transcoding and Base64 decoding on
// arbitrary bytes, each into exact-size heap buffers so that a one-byte
// overrun is caught. The first byte picks the output room.
#include "fuzz_support.hpp"
#include "text/utf16_kernels.hpp"

namespace {

using xfmt::fuzz::check;

// An exact-size buffer; a zero-size one still has an address (the routines
// refuse null pointers), and nothing may be written to it.
template <typename T>
std::vector<T> room_for(size_t n) {
  return std::vector<T>(n == 0 ? 1 : n);
}

void utf8_routines(const uint8_t *data, uint32_t n, uint32_t room) {
  // Character by character: never uses more than is there, always progresses
  // while bytes remain.
  uint32_t pos = 0;
  while (pos < n) {
    uint32_t cp = 0, used = 0;
    const uint32_t r = UTF8_UTF32(data + pos, n - pos, &cp, &used);
    check(used >= 1 && used <= n - pos);
    check(r == 0 || cp == 0xFFFD);
    if (used <= 4) {
      int32_t bad = -1;
      isLegalUTF8(data + pos, static_cast<int32_t>(used), &bad);
      check(bad >= 0 && bad <= static_cast<int32_t>(used));
    }
    pos += used;
  }
  auto units = room_for<uint16_t>(room / 2);
  uint32_t chars = 0, bytes = 0;
  const uint32_t r = UTF8ToUNICODE(data, n, units.data(), room, &chars, &bytes);
  check(r <= 2 && chars <= room / 2 && bytes == 2 * chars);
  // The SSSE3 block loops give what the portable ones give.
  if (xfmt::text::have_ssse3()) {
    auto other = room_for<uint16_t>(room / 2);
    uint32_t c2 = 0, b2 = 0;
    const uint32_t r2 = xfmt::text::utf8_to_units(data, n, other.data(), room, &c2, &b2, false);
    check(r2 == r && c2 == chars && std::memcmp(other.data(), units.data(), 2 * chars) == 0);
  }
  auto wide = room_for<uint8_t>(room);
  uint32_t len = 0;
  ConvertToUTF32(data, n, wide.data(), room, &len, UTF8_UTF32, COPY_UTF32);
  check(len <= room && len % 4 == 0);
}

void utf16_routines(const uint8_t *data, uint32_t n, uint32_t room) {
  auto units = room_for<uint16_t>(n / 2);
  if (n >= 2) std::memcpy(units.data(), data, units.size() * 2);
  auto out = room_for<uint8_t>(room);
  uint32_t chars = 0, bytes = 0;
  const uint32_t r = UNICODEToUTF8(units.data(), n, out.data(), room, &chars, &bytes);
  check(r <= 2 && bytes <= room && chars <= n / 2);
  if (xfmt::text::have_ssse3()) {
    auto other = room_for<uint8_t>(room);
    uint32_t c2 = 0, b2 = 0;
    const uint32_t r2 = xfmt::text::units_to_utf8(units.data(), n, other.data(), room, &c2, &b2, false);
    check(r2 == r && c2 == chars && b2 == bytes && std::memcmp(other.data(), out.data(), bytes) == 0);
  }
  // Whatever UNICODEToUTF8 wrote reads back to the same units.
  auto back = room_for<uint16_t>(chars);
  uint32_t c2 = 0, b2 = 0;
  check(UTF8ToUNICODE(out.data(), bytes, back.data(), 2 * chars, &c2, &b2) == 0);
  check(c2 == chars && std::memcmp(back.data(), units.data(), 2 * chars) == 0);
}

void transcoding(const uint8_t *data, uint32_t n, uint32_t room) {
  static const uint32_t ids[] = {20, 24, 25, 26, 27, 28, 34, 36, 65, 66};
  if (n < 2) return;
  const uint32_t from = ids[data[0] % 10], to = ids[data[1] % 10];
  auto out = room_for<uint8_t>(room);
  uint32_t len = 0, used = 0;
  sanlsTranscodeUnicode(from, data + 2, n - 2, to, out.data(), room, &len, &used);
  check(len <= room && used <= n - 2);
}

void base64(const uint8_t *data, uint32_t n, uint32_t room) {
  auto out = room_for<uint8_t>(room);
  uint32_t len = 0;
  const int32_t r = decode_base64(reinterpret_cast<const char *>(data), static_cast<int32_t>(n), out.data(),
                                  static_cast<int32_t>(room), &len);
  check(r <= 0 && r >= -4 && len <= room);
  // Decoded bytes encode back to text that decodes to them again.
  auto text = room_for<char>(static_cast<size_t>((len + 2) / 3 * 4));
  uint32_t tlen = 0;
  check(encode_base64(out.data(), static_cast<int32_t>(len), text.data(), static_cast<int32_t>((len + 2) / 3 * 4), &tlen,
                      0) == 0);
  auto again = room_for<uint8_t>(len);
  uint32_t alen = 0;
  check(decode_base64(text.data(), static_cast<int32_t>(tlen), again.data(), static_cast<int32_t>(len), &alen) == 0);
  check(alen == len && std::memcmp(again.data(), out.data(), len) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1 || size > 65536) return 0;
  const uint32_t room = data[0];
  const uint8_t *rest = data + 1;
  const uint32_t n = static_cast<uint32_t>(size - 1);
  // Exact-size copy of the text so reads past its end are caught too.
  const xfmt::fuzz::exact_copy text(rest, n);
  utf8_routines(text.data(), n, room);
  utf16_routines(text.data(), n, room);
  transcoding(text.data(), n, room);
  base64(text.data(), n, room);
  return 0;
}
