// Frames outside every limit: each catalogued conversion called with widths
// and decimals at the ends of int32_t, around its own limits and at 32767,
// capacities 0, 1, w-1 and w, in a buffer whose bytes past the capacity must
// stay untouched. Every call must return, write nothing past the capacity,
// report no more than the capacity and give the same bytes when repeated. The
// regression tests of faults the sweep does not reach come first.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace {

// The formats' fields at decimals INT32_MIN and INT32_MAX are case lines of
// tests/data/catalog/extreme_decimals.txt; the exported layout helper reads a
// decimals code of any magnitude too.
TEST(bad_frames, fmte_reads_int_min_decimals) {
  char out[16];
  EXPECT_EQ(fmte(1e20, 8, INT32_MIN, out, sizeof out), 8);
  EXPECT_EQ(std::string(out, 8), "1.00E+20");
}

// ---------------------------------------------------------------------------
// The sweep

constexpr uint32_t buffer_max = 32768;  // capacities above this are cut to it
constexpr uint32_t tail = 64;           // guard bytes after the largest capacity
constexpr unsigned char untouched = 0xA5;

struct sweep_buffer {
  std::vector<unsigned char> bytes = std::vector<unsigned char>(buffer_max + tail, untouched);
  std::vector<unsigned char> reference = bytes;
};

std::vector<int32_t> frame_values(int32_t low, int32_t high) {
  std::vector<int32_t> v = {INT32_MIN, -1, 0, 1, low, high, high + 1, 32767, INT32_MAX};
  std::sort(v.begin(), v.end());
  v.erase(std::unique(v.begin(), v.end()), v.end());
  return v;
}

const double numbers[] = {1.0, -1234.5678, 1e300, 1.5e9 + 0.25, std::nan("")};
const char *const texts[] = {"12345", "-1,234.5", "01JAN2020", "12:34:56", "", "abc def"};

struct call_result {
  xf_status status;
  uint32_t length;
  std::string bytes;
};

// One call on a fresh buffer; checks what lies past the capacity.
call_result call_once(xf_routine r, xf_frame f, sweep_buffer &buf, uint32_t capacity,
                      const std::string &what) {
  f.output = buf.bytes.data();
  f.output_capacity = capacity;
  f.output_length = 0xDEADBEEF;
  call_result res;
  res.status = r(&f);
  const uint32_t kept = std::min(capacity, buffer_max);
  EXPECT_EQ(std::memcmp(buf.bytes.data() + kept, buf.reference.data() + kept, buf.bytes.size() - kept), 0)
      << what << ": written past the capacity";
  res.length = f.output_length;
  // A routine that refuses the frame outright (F with w < 1) may leave the
  // length as it was; any length it does store is within the capacity.
  if (res.length != 0xDEADBEEF) {
    EXPECT_LE(res.length, capacity) << what << ": output length beyond the capacity";
  }
  res.bytes.assign(reinterpret_cast<const char *>(buf.bytes.data()), kept);
  std::memset(buf.bytes.data(), untouched, kept);
  return res;
}

void sweep_row(const fmtinfo_eachfmt &row, sweep_buffer &buf, unsigned &calls) {
  const std::string name(row.name, row.name_length);
  const bool informat = name[0] == '@';
  const bool character = name[0] == '$' || (informat && name[1] == '$');
  const std::vector<int32_t> widths = frame_values(row.min_width, row.max_width);
  const std::vector<int32_t> decimals = frame_values(row.min_decimals, row.max_decimals);
  unsigned pick = 0;
  for (int32_t w : widths) {
    for (int32_t d : decimals) {
      const uint32_t wu = static_cast<uint32_t>(std::max(w, 0));
      const uint32_t w_capacity = std::min(wu, buffer_max);
      for (uint32_t capacity : {0u, 1u, w_capacity > 0 ? w_capacity - 1 : 0u, w_capacity}) {
        ++pick;
        xf_frame f{};
        f.width = w;
        f.decimals = d;
        double value = numbers[pick % std::size(numbers)];
        std::string text = texts[pick % std::size(texts)];
        if (informat || character) {
          f.input = text.data();
          f.input_length = static_cast<uint32_t>(text.size());
        } else {
          f.input = &value;
          f.input_length = 8;
        }
        const std::string what = name + " w=" + std::to_string(w) + " d=" + std::to_string(d) +
                                 " capacity=" + std::to_string(capacity);
        const call_result a = call_once(row.routine, f, buf, capacity, what);
        const call_result b = call_once(row.routine, f, buf, capacity, what);
        EXPECT_EQ(a.status, b.status) << what;
        EXPECT_EQ(a.length, b.length) << what;
        EXPECT_EQ(a.bytes, b.bytes) << what << ": not the same bytes twice";
        calls += 2;
      }
    }
  }
  // A null output: refused when a capacity is claimed, harmless at 0.
  double value = 1.0;
  xf_frame f{};
  f.width = row.default_width;
  f.decimals = row.default_decimals;
  f.input = &value;
  f.input_length = 8;
  f.output_capacity = 16;
  EXPECT_EQ(row.routine(&f), XF_E_CAPACITY) << name << ": null output";
  f.output_capacity = 0;
  row.routine(&f);
  EXPECT_EQ(f.output, nullptr) << name;
  // A null input that claims a length.
  f.input = nullptr;
  f.input_length = 1000;
  f.output = buf.bytes.data();
  f.output_capacity = 16;
  row.routine(&f);
  EXPECT_EQ(f.input_length, 1000u) << name;
  std::memset(buf.bytes.data(), untouched, 16);
}

TEST(bad_frames, sweep_of_every_catalogued_conversion) {
  sweep_buffer buf;
  unsigned calls = 0, rows = 0;
  for (const fmtposs_row &p : fmtposs) {
    // Every catalogued name as a host resolves it (informats by kind 73).
    std::string name(p.row.name, p.row.name_length);
    const int32_t kind = name[0] == '@' ? 73 : 0;
    if (kind == 73) name.erase(0, 1);
    void *h = nullptr;
    ASSERT_EQ(xfname(name.data(), static_cast<int32_t>(name.size()), kind, nullptr, &h), XF_OK) << name;
    const fmtinfo_eachfmt row = static_cast<const fmtposs_row *>(h)->row;
    if (row.routine != nullptr) {
      sweep_row(row, buf, calls);
      ++rows;
    }
    xfdel(h);
  }
  // The intrinsic rows (the crash routine ends the process by design).
  for (const fmtposs_row &r : ver_num) sweep_row(r.row, buf, calls);
  EXPECT_GE(rows, 368u);  // every conversion built today
  std::printf("bad-frame sweep: %u conversions, %u calls\n", rows, calls);
}

}  // namespace
