// Locale lookups on arbitrary input: LocnameToID and EncnameToID on exact-size
// buffers, getZAVLocDB with any capacity, field and id. Checks the promises:
// nothing read or written out of bounds, only a-z changed, the id cell
// consistent with the result, the destination zero past the copied field.
#include "fuzz_support.hpp"

namespace {

using xfmt::fuzz::check;

void upper_ascii_ref(std::vector<char> &v) {
  for (char &c : v)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
}

void locname(const uint8_t *data, size_t size) {
  std::vector<char> buf(data, data + size), want(buf);
  uint32_t id = 12345;
  uint32_t rc = LocnameToID(buf.data(), static_cast<uint32_t>(buf.size()), &id);
  if (size == 5) upper_ascii_ref(want);
  check(buf == want);
  check(rc == 0 ? (id >= 1 && id <= 136 && size == 5) : (rc == 5 && id == 0));
}

void encname(const uint8_t *data, size_t size) {
  std::vector<char> buf(data, data + size), want(buf);
  uint32_t id = 12345;
  uint32_t rc = EncnameToID(buf.data(), static_cast<int32_t>(buf.size()), &id);
  if (size >= 4) upper_ascii_ref(want);
  check(buf == want);
  check(rc == 0 ? (id >= 20 && id <= 248) : (rc == 4 && id == 0));
}

void locdb(const uint8_t *data, size_t size) {
  if (size < 3) return;
  int capacity = data[0];           // 0..255
  int field = data[1] - 30;         // -30..225: bad fields too
  int id = static_cast<int8_t>(data[2]) + 60;  // -68..187: ids in and out of range
  std::vector<char> buf(static_cast<size_t>(capacity), 'x');
  int n = getZAVLocDB(buf.empty() ? nullptr : buf.data(), capacity, field, id);
  check(n >= -1 && n <= capacity);
  for (int i = n < 0 ? 0 : n; i < capacity; ++i) check(buf[static_cast<size_t>(i)] == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  switch (data[0] % 3) {
    case 0: locname(data + 1, size - 1); break;
    case 1: encname(data + 1, size - 1); break;
    default: locdb(data + 1, size - 1); break;
  }
  return 0;
}
