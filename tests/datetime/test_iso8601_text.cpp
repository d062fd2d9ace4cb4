// The $N8601 formats of the internal ISO 8601 value: the examples of each
// name, left-out components in every style, intervals, fractions and d,
// blank, invalid and too-long values, and a property over random elements:
// the extended datetime text names the nibbles it came from.
#include <gtest/gtest.h>

#include <string>

#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// "2023704123045FFD" -> the 8 bytes 20 23 70 41 23 04 5F FD.
std::string value(const std::string &nibbles) {
  std::string bytes;
  auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'A' + 10; };
  for (size_t i = 0; i + 1 < nibbles.size(); i += 2)
    bytes.push_back(static_cast<char>(digit(nibbles[i]) << 4 | digit(nibbles[i + 1])));
  return bytes;
}

// The field of the value at width 60, without its trailing blanks.
std::string show(xf_routine r, const std::string &nibbles) {
  frame_box b = frame_box::chars(value(nibbles), 60);
  EXPECT_EQ(r(&b.f), XF_OK) << nibbles;
  std::string t = b.str();
  EXPECT_EQ(t.size(), 60u) << nibbles;
  while (!t.empty() && t.back() == ' ') t.pop_back();
  return t;
}

TEST(n8601, cases_of_the_file) { xfmt::test::run_case_file("datetime/n8601.txt"); }

// Random valid datetimes with random components left out: the EX text holds
// the element's digits in place and "x" for the rest; with nothing left out
// the basic text is the extended one without separators.
TEST(n8601, random_datetimes_read_back) {
  auto rng = xfmt::test::rng(0x8601);
  static const char hexd[] = "0123456789ABCDEF";
  for (uint64_t i = 0; i < xfmt::test::scaled(20000); ++i) {
    const int y = static_cast<int>(rng() % 10000), m = static_cast<int>(rng() % 12) + 1, d = static_cast<int>(rng() % 28) + 1;
    const int parts[4] = {static_cast<int>(rng() % 24), static_cast<int>(rng() % 60), static_cast<int>(rng() % 60), 0};
    const unsigned omit = static_cast<unsigned>(rng() % 64);
    char n[17];
    auto put2 = [&](int at, int v, bool out) {
      n[at] = out ? 'F' : static_cast<char>('0' + v / 10);
      n[at + 1] = out ? 'F' : static_cast<char>('0' + v % 10);
    };
    for (int k = 0; k < 4; ++k) n[k] = (omit & 1) ? 'F' : static_cast<char>('0' + (y / (k == 0 ? 1000 : k == 1 ? 100 : k == 2 ? 10 : 1)) % 10);
    n[4] = (omit & 2) ? 'F' : hexd[m];
    put2(5, d, omit & 4);
    put2(7, parts[0], omit & 8);
    put2(9, parts[1], omit & 16);
    put2(11, parts[2], omit & 32);
    n[13] = 'F', n[14] = 'F', n[15] = 'D', n[16] = '\0';
    const std::string e = show(zfmn8ex, n);
    ASSERT_EQ(e.size(), 19u) << n;
    std::string expect;
    const char *seps = "----T::";
    const int widths[6] = {4, 1, 2, 2, 2, 2};
    int at = 0;
    for (int c = 0; c < 6; ++c) {
      if (c > 0) expect += seps[c == 3 ? 4 : c < 3 ? 0 : 5];
      std::string digits(n + at, n + at + widths[c]);
      if (c == 1) digits = digits == "F" ? "xx" : (m < 10 ? "0" : "1") + std::string(1, static_cast<char>('0' + m % 10));
      else if (digits.find('F') != std::string::npos) digits = std::string(static_cast<size_t>(widths[c]), 'x');
      expect += digits;
      at += widths[c];
    }
    ASSERT_EQ(e, expect) << n;
    // Nothing left out: the basic form is the extended one without "-" and ":".
    if (omit == 0) {
      std::string basic;
      for (char c : e)
        if (c != '-' && c != ':') basic += c;
      ASSERT_EQ(show(zfmn8b, n), basic) << n;
    }
  }
}

}  // namespace
