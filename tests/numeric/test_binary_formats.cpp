// IB, IBR, PIB, PIBR, PD, PK, ZD, RB and VAXRB and the mainframe integer,
// packed and zoned forms: exact bytes, boundaries of every width, rounding
// with d, and the slow oracle over random values.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

#include "catalog/missing.hpp"
#include "numeric/binary_codec.hpp"
#include "oracle/binary_oracle.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

std::string hex(const std::string &s) {
  std::string h;
  char buf[4];
  for (char c : s) {
    std::snprintf(buf, sizeof buf, "%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    h += buf;
  }
  return h;
}

struct row {
  double value;
  int32_t w;
  int32_t d;
  const char *bytes;  // in hex
  xf_status status;
};

void check(xf_routine routine, const char *name, const row &r) {
  frame_box b = frame_box::number(r.value, r.w, r.d);
  xf_status st = routine(&b.f);
  EXPECT_EQ(hex(b.str()), r.bytes) << name << " value " << r.value << " w " << r.w << " d " << r.d;
  EXPECT_EQ(st, r.status) << name << " value " << r.value << " w " << r.w << " d " << r.d;
}

const double missing_a = xfmt::missing_value(2);
const double dot = xfmt::missing_ordinary();
const double inf = std::numeric_limits<double>::infinity();

// The host's byte order: native fields are the mirror of the big-endian
// patterns on a little-endian host.
std::string native(std::string big_hex) {
  if (xfmt::numeric::host_big) return big_hex;
  std::string out;
  for (size_t i = big_hex.size(); i >= 2; i -= 2) out += big_hex.substr(i - 2, 2);
  return out;
}

void check_native(xf_routine routine, const char *name, const row &r) {
  row n = r;
  std::string h = native(r.bytes);
  n.bytes = h.c_str();
  check(routine, name, n);
}

TEST(binary_formats, s370fib_and_ib_bytes) {
  const row rows[] = {
      {1, 4, 0, "00000001", XF_OK},
      {-1, 4, 0, "FFFFFFFF", XF_OK},
      {-1, 1, 0, "FF", XF_OK},
      {127, 1, 0, "7F", XF_OK},
      {-128, 1, 0, "80", XF_OK},
      {128, 1, 0, "7F", XF_E_OVERFLOW},
      {-129, 1, 0, "80", XF_E_OVERFLOW},
      {32767, 2, 0, "7FFF", XF_OK},
      {-32768, 2, 0, "8000", XF_OK},
      {258, 2, 0, "0102", XF_OK},
      {1.5, 2, 0, "0002", XF_OK},      // half away from zero
      {-1.5, 2, 0, "FFFE", XF_OK},
      {2.5, 2, 0, "0003", XF_OK},
      {0.4, 2, 0, "0000", XF_OK},
      {-0.4, 2, 0, "0000", XF_OK},    // -0 stores 0
      {1.25, 2, 1, "000D", XF_OK},    // 12.5 rounds to 13
      {1.005, 2, 2, "0064", XF_OK},   // the double is 1.00499999...: 100
      {12.34, 4, 2, "000004D2", XF_OK},
      {-9223372036854775808.0, 8, 0, "8000000000000000", XF_OK},
      {9223372036854775808.0, 8, 0, "7FFFFFFFFFFFFFFF", XF_E_OVERFLOW},
      {9223372036854774784.0, 8, 0, "7FFFFFFFFFFFFC00", XF_OK},
      {1e300, 8, 0, "7FFFFFFFFFFFFFFF", XF_E_OVERFLOW},
      {inf, 3, 0, "7FFFFF", XF_E_OVERFLOW},
      {-inf, 3, 0, "800000", XF_E_OVERFLOW},
      {dot, 4, 0, "00000000", XF_OK},
      {missing_a, 2, 0, "0000", XF_OK},
      {std::nan(""), 2, 0, "0000", XF_OK},
      {5, 3, 99, "000005", XF_OK},     // d outside 0..31 counts as 0
  };
  for (const row &r : rows) {
    check(zfms370ib, "S370FIB", r);
    check_native(zfmib, "IB", r);
  }
  const row known[] = {
      {-300, 2, 0, "FED4", XF_OK},      {1, 2, 2, "0064", XF_OK},       {70000, 2, 0, "7FFF", XF_E_OVERFLOW},
      {-70000, 2, 0, "8000", XF_E_OVERFLOW}, {2.9, 2, 0, "0003", XF_OK}, {-2.9, 2, 0, "FFFD", XF_OK},
  };
  for (const row &r : known) check(zfms370ib, "S370FIB", r);
  const row native_ib[] = {
      {-300, 4, 0, "D4FEFFFF", XF_OK}, {70000, 4, 0, "70110100", XF_OK}, {12.5, 2, 1, "7D00", XF_OK}};
  if (!xfmt::numeric::host_big)
    for (const row &r : native_ib) check(zfmib, "IB", r);
}

TEST(binary_formats, s370fibu_s370fpib_bytes) {
  const row ibu[] = {
      {300, 2, 0, "012C", XF_OK},   {-5, 2, 0, "0005", XF_OK},   {65535, 2, 0, "FFFF", XF_OK},
      {70000, 2, 0, "FFFF", XF_E_OVERFLOW}, {-70000, 2, 0, "FFFF", XF_E_OVERFLOW}, {0, 1, 0, "00", XF_OK},
      {dot, 2, 0, "0000", XF_OK},   {-inf, 1, 0, "FF", XF_E_OVERFLOW}, {1.5, 8, 1, "000000000000000F", XF_OK},
  };
  for (const row &r : ibu) check(zfms370ibu, "S370FIBU", r);
  const row pib[] = {
      {200, 1, 0, "C8", XF_OK},     {1000, 2, 0, "03E8", XF_OK}, {-5, 2, 0, "FFFB", XF_OK},
      {256, 1, 0, "FF", XF_E_OVERFLOW}, {255, 1, 0, "FF", XF_OK}, {-128, 1, 0, "80", XF_OK},
      {-129, 1, 0, "80", XF_E_OVERFLOW}, {-inf, 2, 0, "8000", XF_E_OVERFLOW}, {dot, 2, 0, "0000", XF_OK},
  };
  for (const row &r : pib) check(zfms370pib, "S370FPIB", r);
}

TEST(binary_formats, ibr_and_pib_bytes) {
  const row ibr[] = {
      {1, 4, 0, "01000000", XF_OK},
      {-2, 4, 0, "FEFFFFFF", XF_OK},
      {258, 2, 0, "0201", XF_OK},
      {-32769, 2, 0, "0080", XF_E_OVERFLOW},
  };
  for (const row &r : ibr) check(zfmibr, "IBR", r);
  const row pib[] = {
      {255, 1, 0, "FF", XF_OK},
      {256, 1, 0, "FF", XF_E_OVERFLOW},
      {-1, 1, 0, "FF", XF_E_OVERFLOW},  // every negative value: the bytes of -1
      {-300, 2, 0, "FFFF", XF_E_OVERFLOW},
      {-0.2, 1, 0, "00", XF_OK},
      {65535, 2, 0, "FFFF", XF_OK},
      {258, 2, 0, "0102", XF_OK},
      {18446744073709551615.0, 8, 0, "FFFFFFFFFFFFFFFF", XF_E_OVERFLOW},  // the double is 2^64
      {18446744073709549568.0, 8, 0, "FFFFFFFFFFFFF800", XF_OK},
      {2.55, 1, 2, "FF", XF_OK},
  };
  for (const row &r : pib) check_native(zfmpib, "PIB", r);
  const row pibr[] = {
      {258, 3, 0, "020100", XF_OK},
      {256, 2, 0, "0001", XF_OK},
      {-5, 2, 0, "FFFF", XF_E_OVERFLOW},
  };
  for (const row &r : pibr) check(zfmpibr, "PIBR", r);
}

TEST(binary_formats, pd_pk_zd_bytes) {
  const row pd[] = {
      {0, 1, 0, "0C", XF_OK},
      {9, 1, 0, "9C", XF_OK},
      {-9, 1, 0, "9D", XF_OK},
      {10, 1, 0, "9C", XF_E_OVERFLOW},
      {-10, 1, 0, "9D", XF_E_OVERFLOW},
      {123, 2, 0, "123C", XF_OK},
      {-123, 3, 0, "00123D", XF_OK},
      {-1.234, 3, 2, "00123D", XF_OK},
      {12.345, 4, 3, "0012345C", XF_OK},
      {dot, 2, 0, "000D", XF_OK},  // missing: minus zero
      {missing_a, 1, 0, "0D", XF_OK},
      {inf, 2, 0, "999C", XF_E_OVERFLOW},
      {-inf, 2, 0, "999D", XF_E_OVERFLOW},
      {999999999999999.0, 8, 0, "999999999999999C", XF_OK},
      {1e30, 16, 0, "1000000000000000019884624838656C", XF_OK},
  };
  for (const row &r : pd) {
    check(zfmpd, "PD", r);
    if (r.w <= 16) check(zfms370pd, "S370FPD", r);
  }
  const row s370pd[] = {
      {-4567, 3, 0, "04567D", XF_OK}, {12345, 3, 0, "12345C", XF_OK}, {1.5, 3, 1, "00015C", XF_OK},
      {123456, 3, 0, "99999C", XF_E_OVERFLOW}, {-2.75, 2, 1, "028D", XF_OK},
  };
  for (const row &r : s370pd) check(zfms370pd, "S370FPD", r);
  const row pdu[] = {
      {45, 2, 0, "045F", XF_OK}, {-45, 2, 0, "045F", XF_OK}, {0, 1, 0, "0F", XF_OK},
      {1000, 2, 0, "999F", XF_E_OVERFLOW}, {-1e300, 2, 0, "999F", XF_E_OVERFLOW}, {dot, 2, 0, "000F", XF_OK},
  };
  for (const row &r : pdu) check(zfms370pdu, "S370FPDU", r);
  const row pk[] = {
      {0, 1, 0, "00", XF_OK},
      {99, 1, 0, "99", XF_OK},
      {100, 1, 0, "99", XF_E_OVERFLOW},
      {1234, 3, 0, "001234", XF_OK},
      {-1, 2, 0, "0000", XF_E_OVERFLOW},
      {1.5, 2, 1, "0015", XF_OK},
  };
  for (const row &r : pk) check(zfmpk, "PK", r);
  const row zd[] = {
      {0, 1, 0, "C0", XF_OK},
      {5, 1, 0, "C5", XF_OK},
      {-5, 1, 0, "D5", XF_OK},
      {123, 4, 0, "F0F1F2C3", XF_OK},
      {-123, 4, 0, "F0F1F2D3", XF_OK},
      {-1.23, 3, 2, "F1F2D3", XF_OK},
      {1000, 3, 0, "F9F9C9", XF_E_OVERFLOW},
      {dot, 2, 0, "F0C0", XF_OK},
      {0, 3, 0, "F0F0C0", XF_OK},
      {1234, 3, 0, "F9F9C9", XF_E_OVERFLOW},
      {-45, 4, 0, "F0F0F4D5", XF_OK},
      {7.25, 4, 2, "F0F7F2C5", XF_OK},
  };
  for (const row &r : zd) check(zfms370zd, "S370FZD", r);
  const row ascii_zd[] = {
      {45, 3, 0, "303445", XF_OK},     {-45, 3, 0, "30344E", XF_OK},   {340, 4, 0, "3033347B", XF_OK},
      {-340, 4, 0, "3033347D", XF_OK}, {5678, 8, 0, "3030303035363748", XF_OK}, {-9, 1, 0, "52", XF_OK},
      {1000, 3, 0, "393949", XF_E_OVERFLOW}, {-1000, 3, 0, "393952", XF_E_OVERFLOW}, {dot, 2, 0, "307B", XF_OK},
  };
  for (const row &r : ascii_zd) check(zfmzd, "ZD", r);
  const row zdl[] = {{45, 3, 0, "C0F4F5", XF_OK}, {-45, 3, 0, "D0F4F5", XF_OK}, {-1000, 3, 0, "D9F9F9", XF_E_OVERFLOW}};
  for (const row &r : zdl) check(zfms370zdl, "S370FZDL", r);
  const row zds[] = {{45, 4, 0, "4EF0F4F5", XF_OK}, {-45, 4, 0, "60F0F4F5", XF_OK}, {0, 2, 0, "4EF0", XF_OK},
                     {100, 3, 0, "4EF9F9", XF_E_OVERFLOW}};
  for (const row &r : zds) check(zfms370zds, "S370FZDS", r);
  const row zdt[] = {{45, 4, 0, "F0F4F54E", XF_OK}, {-45, 4, 0, "F0F4F560", XF_OK}, {-0.4, 2, 0, "F04E", XF_OK}};
  for (const row &r : zdt) check(zfms370zdt, "S370FZDT", r);
  const row zdu[] = {{45, 3, 0, "F0F4F5", XF_OK}, {-45, 3, 0, "F0F4F5", XF_OK}, {-1000, 3, 0, "F9F9F9", XF_E_OVERFLOW}};
  for (const row &r : zdu) check(zfms370zdu, "S370FZDU", r);
  for (xf_routine r : {zfms370zds, zfms370zdt}) {
    frame_box b = frame_box::number(1, 1, 0);
    EXPECT_EQ(r(&b.f), XF_E_OVERFLOW);
    EXPECT_EQ(b.f.output_length, 0u);
  }
}

TEST(binary_formats, rb_and_vaxrb_bytes) {
  const row rb[] = {
      {1, 8, 0, "3FF0000000000000", XF_OK},
      {1, 4, 0, "3FF00000", XF_OK},
      {-2, 2, 0, "C000", XF_OK},
      {0.1, 8, 0, "3FB999999999999A", XF_OK},
      {1.5, 8, 1, "402E000000000000", XF_OK},  // 15
      {dot, 8, 0, "FFFFFE0000000000", XF_OK},
      {missing_a, 8, 3, "FFFFFD0000000000", XF_OK},
  };
  for (const row &r : rb) check_native(zfmrb, "RB", r);
  const row rb_edges[] = {
      {1e308, 8, 1, "FFFFD10000000000", XF_E_OVERFLOW},  // the product overflows the double
      {-inf, 8, 0, "FFFFD10000000000", XF_E_OVERFLOW},
      {2, 8, 0, "4000000000000000", XF_OK},
  };
  for (const row &r : rb_edges) check_native(zfmrb, "RB", r);
  const row vax[] = {
      {1, 8, 0, "8040000000000000", XF_OK},    // 0.1b x 2^1: exponent 129
      {-1, 8, 0, "80C0000000000000", XF_OK},
      {0.5, 4, 0, "00400000", XF_OK},
      {3, 8, 0, "4041000000000000", XF_OK},      // 0.11b x 2^2
      {0, 8, 0, "0000000000000000", XF_OK},
      {dot, 8, 0, "0000000000000000", XF_OK},
      {1e39, 8, 0, "FF7FFFFFFFFFFFFF", XF_E_OVERFLOW},
      {-1e39, 8, 0, "FFFFFFFFFFFFFFFF", XF_E_OVERFLOW},
      {1e-40, 8, 0, "0000000000000000", XF_OK},
  };
  for (const row &r : vax) check(zfmvaxrb, "VAXRB", r);
}

using routine_entry = std::pair<xf_routine, char>;
constexpr bool big = xfmt::numeric::host_big;
const routine_entry integer_routines[] = {
    {zfmib, big ? 'I' : 'i'}, {zfmibr, 'i'},    {zfmpib, big ? 'P' : 'p'}, {zfmpibr, 'p'},   {zfmpd, 'D'},
    {zfmpk, 'K'},             {zfmzd, 'z'},     {zfms370ib, 'I'},          {zfms370ibu, 'U'}, {zfms370pib, 'Q'},
    {zfms370pd, 'D'},         {zfms370zd, 'Z'}};
constexpr uint64_t n_integer_routines = sizeof integer_routines / sizeof integer_routines[0];

int max_width(char kind) {
  return kind == 'Z' || kind == 'z' ? 32 : kind == 'D' || kind == 'K' ? 16 : 8;
}

TEST(binary_formats, bad_width_and_small_capacity_write_nothing) {
  for (const routine_entry &e : integer_routines) {
    for (int w : {0, -1, max_width(e.second) + 1}) {
      frame_box b = frame_box::number(1, w, 0, 40);
      EXPECT_EQ(e.first(&b.f), XF_E_OVERFLOW) << e.second << " w " << w;
      EXPECT_EQ(b.f.output_length, 0u);
      EXPECT_EQ(b.buffer(), std::string(40, '\xEE'));
    }
    frame_box b = frame_box::number(1, 4, 0, 3);
    EXPECT_EQ(e.first(&b.f), XF_E_CAPACITY) << e.second;
    EXPECT_EQ(b.f.output_length, 0u);
    EXPECT_EQ(b.buffer(), std::string(3, '\xEE'));
  }
  for (xf_routine r : {zfmrb, zfmvaxrb}) {
    frame_box b = frame_box::number(1, 9, 0, 9);
    EXPECT_EQ(r(&b.f), XF_E_OVERFLOW);
    EXPECT_EQ(b.f.output_length, 0u);
  }
}

// The extremes of every width: the largest and the most negative value fit,
// one past either stores the extreme with XF_E_OVERFLOW.
TEST(binary_formats, extremes_of_every_width) {
  for (const routine_entry &e : integer_routines) {
    for (int w = 1; w <= max_width(e.second); ++w) {
      for (double v : {std::ldexp(1.0, 8 * w - 1), std::ldexp(1.0, 8 * w), -std::ldexp(1.0, 8 * w - 1),
                       std::pow(10.0, w) - 1, std::pow(10.0, 2 * w - 1), -std::pow(10.0, w), 0.0}) {
        if (std::fabs(v) >= 1e15) continue;  // exactness of the double; the random test covers the rest
        frame_box b = frame_box::number(v, w, 0);
        xf_status st = e.first(&b.f);
        xfmt::oracle::bytes_result want = xfmt::oracle::binary_oracle(e.second, v, w, 0);
        EXPECT_EQ(hex(b.str()), hex(want.bytes)) << e.second << " value " << v << " w " << w;
        EXPECT_EQ(st, want.status) << e.second << " value " << v << " w " << w;
      }
    }
  }
}

double random_value(std::mt19937_64 &g) {
  switch (g() % 4) {
    case 0: return static_cast<double>(static_cast<int64_t>(g()) >> (g() % 64));
    case 1: return static_cast<double>(static_cast<int64_t>(g() % 2000001) - 1000000) / 1000.0;
    case 2: return std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 120) - 60) *
                   (g() % 2 ? -1 : 1);
    default: return xfmt::bits_double(g());
  }
}

TEST(binary_formats, oracle_random) {
  std::mt19937_64 g = xfmt::test::rng(0xB1);
  uint64_t n = xfmt::test::scaled(20000);
  for (uint64_t i = 0; i < n; ++i) {
    const routine_entry &e = integer_routines[g() % n_integer_routines];
    double v = random_value(g);
    int w = 1 + static_cast<int>(g() % static_cast<uint64_t>(max_width(e.second)));
    int d = g() % 3 ? static_cast<int>(g() % 6) : static_cast<int>(g() % 32);
    frame_box b = frame_box::number(v, w, d);
    xf_status st = e.first(&b.f);
    xfmt::oracle::bytes_result want = xfmt::oracle::binary_oracle(e.second, v, w, d);
    ASSERT_EQ(hex(b.str()), hex(want.bytes))
        << e.second << " bits " << std::hex << xfmt::double_bits(v) << std::dec << " w " << w << " d " << d;
    ASSERT_EQ(st, want.status) << e.second << " bits " << std::hex << xfmt::double_bits(v);
  }
}

}  // namespace

namespace {

// The names resolve to these routines, and a call through the handle gives
// the same bytes as the direct call.
TEST(binary_formats, through_the_catalog) {
  struct entry {
    const char *name;
    int32_t kind;
    int32_t w;
    double value;
    const char *bytes;
  };
  const entry entries[] = {{"IBR", 0, 2, -2, "FEFF"},        {"PD", 0, 2, -12, "012D"},
                           {"ZD", 0, 2, 12, "3142"},        {"S370FZD", 0, 2, 12, "F1C2"},
                           {"S370FIB", 0, 2, -2, "FFFE"},        {"HEX", 0, 4, 255, "00FF"},
                           {"BINARY", 0, 4, 5, "0101"},     {"VAXRB", 0, 4, 1, "80400000"}};
  for (const entry &e : entries) {
    void *h = nullptr;
    uint16_t block[8];
    ASSERT_EQ(xfname(e.name, static_cast<int32_t>(std::strlen(e.name)), e.kind, block, &h), XF_OK) << e.name;
    frame_box b = frame_box::number(e.value, e.w, 0);
    EXPECT_EQ(xffmt(&b.f, h), XF_OK) << e.name;
    std::string got = b.str();
    bool text = std::strcmp(e.name, "HEX") == 0 || std::strcmp(e.name, "BINARY") == 0;
    EXPECT_EQ(text ? got : hex(got), e.bytes) << e.name;
    EXPECT_EQ(xfdel(h), XF_OK);
  }
  void *h = nullptr;
  ASSERT_EQ(xfname("IB", 2, 73, nullptr, &h), XF_OK);
  frame_box in = frame_box::chars(std::string(big ? "\xFF\xFE" : "\xFE\xFF", 2), 2, 0, 8);
  EXPECT_EQ(xffmt(&in.f, h), XF_OK);
  EXPECT_EQ(in.result(), -2.0);
  EXPECT_EQ(xfdel(h), XF_OK);
}

}  // namespace
