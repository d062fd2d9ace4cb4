// Unicode's own conformance files for the bidirectional algorithm, read in
// full from the Unicode Character Database that Debian's unicode-data
// package installs: BidiTest.txt (class sequences, every paragraph
// direction of the line's bit set) and BidiCharacterTest.txt (code points,
// brackets included). Each failure names the file's line. The files'
// absence is a failure, not a skip: the test would otherwise pass empty.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "text/bidi.hpp"
#include "text/bidi_tables.hpp"
#include "support/frame.hpp"
#include "xfmt/xfmt.h"

namespace {

using namespace xfmt::text;

const char *const ucd_dir = "/usr/share/unicode/";

const char *const class_names[] = {"L",   "R",   "AL",  "EN",  "ES",  "ET",  "AN",  "CS",
                                   "NSM", "BN",  "B",   "S",   "WS",  "ON",  "LRE", "LRO",
                                   "RLE", "RLO", "PDF", "LRI", "RLI", "FSI", "PDI"};

int class_of(const std::string &name) {
  for (int c = 0; c < bidi::class_count; ++c)
    if (name == class_names[c]) return c;
  return -1;
}

std::vector<std::string> words(const std::string &s) {
  std::istringstream in(s);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

std::vector<std::string> split(const std::string &s, char sep) {
  std::vector<std::string> out;
  size_t start = 0;
  for (size_t at; (at = s.find(sep, start)) != std::string::npos; start = at + 1) out.push_back(s.substr(start, at - start));
  out.push_back(s.substr(start));
  return out;
}

// The levels as the files write them ("x" for removed characters) and the
// visual order without the removed characters.
std::string levels_text(const bidi_paragraph &p) {
  std::string s;
  for (uint32_t i = 0; i < p.n; ++i) {
    if (i) s += ' ';
    s += bidi::is_removed(p.cls[i]) ? std::string("x") : std::to_string(p.level[i]);
  }
  return s;
}

std::string order_text(const bidi_paragraph &p) {
  uint16_t order[bidi_max];
  bidi_visual_order(p.level, p.n, order);
  std::string s;
  for (uint32_t k = 0; k < p.n; ++k) {
    if (bidi::is_removed(p.cls[order[k]])) continue;
    if (!s.empty()) s += ' ';
    s += std::to_string(order[k]);
  }
  return s;
}

std::string normalized(const std::string &s) {
  std::string out;
  for (const std::string &w : words(s)) out += (out.empty() ? "" : " ") + w;
  return out;
}

// The lines of a file of the database that hold data, with their numbers;
// a missing file fails the test.
std::vector<std::pair<long, std::string>> data_lines(const char *name) {
  std::ifstream f(std::string(ucd_dir) + name);
  EXPECT_TRUE(f.is_open()) << ucd_dir << name << " is missing (Debian package unicode-data)";
  std::vector<std::pair<long, std::string>> out;
  long number = 0;
  for (std::string line; std::getline(f, line);)
    if (++number, !line.empty() && line[0] != '#') out.emplace_back(number, line);
  return out;
}

struct tally {
  long cases = 0;
  long failures = 0;
  void fail(const char *file, long line, const std::string &what) {
    if (++failures <= 20) ADD_FAILURE() << file << ":" << line << ": " << what;
  }
};

TEST(bidi_conformance, exhaustive_bidi_test_txt) {
  const std::string path = "BidiTest.txt";
  static bidi_paragraph p;
  tally t;
  std::string levels, reorder;
  for (const auto &[number, line] : data_lines("BidiTest.txt")) {
    if (line.rfind("@Levels:", 0) == 0) {
      levels = normalized(line.substr(8));
      continue;
    }
    if (line.rfind("@Reorder:", 0) == 0) {
      reorder = normalized(line.substr(9));
      continue;
    }
    if (line[0] == '@') continue;
    auto fields = split(line, ';');
    ASSERT_EQ(fields.size(), 2u) << path << ":" << number;
    auto names = words(fields[0]);
    ASSERT_LE(names.size(), bidi_max) << path << ":" << number;
    p.n = static_cast<uint32_t>(names.size());
    for (uint32_t i = 0; i < p.n; ++i) {
      int c = class_of(names[i]);
      ASSERT_GE(c, 0) << path << ":" << number << ": class " << names[i];
      p.cls[i] = static_cast<uint8_t>(c);
      p.cp[i] = 0;
      p.flags[i] = 0;
    }
    const int bits = std::stoi(normalized(fields[1]), nullptr, 16);
    const int directions[] = {bidi_auto, bidi_ltr, bidi_rtl};
    for (int b = 0; b < 3; ++b) {
      if (!(bits & (1 << b))) continue;
      ++t.cases;
      bidi_resolve(p, directions[b]);
      std::string got = levels_text(p);
      if (got != levels) {
        t.fail("BidiTest.txt", number, "direction bit " + std::to_string(1 << b) + ": levels " + got + ", expected " + levels);
        continue;
      }
      got = order_text(p);
      if (got != reorder)
        t.fail("BidiTest.txt", number, "direction bit " + std::to_string(1 << b) + ": order " + got + ", expected " + reorder);
    }
  }
  std::printf("BidiTest.txt: %ld of %ld cases pass\n", t.cases - t.failures, t.cases);
  EXPECT_GT(t.cases, 700000);
  EXPECT_EQ(t.failures, 0);
}

// UTF-8 through the library's own encoder (every code point of it is
// checked in test_utf8_chars).
std::string utf8_of(const std::vector<uint32_t> &cps) {
  std::string s;
  for (uint32_t cp : cps) {
    uint8_t buf[4];
    uint32_t n = 0;
    UTF32_UTF8(cp, buf, 4, &n);
    s.append(reinterpret_cast<const char *>(buf), n);
  }
  return s;
}

std::vector<uint32_t> code_points_of(const std::string &s) {
  std::vector<uint32_t> out;
  for (size_t i = 0; i < s.size();) {
    uint32_t cp = 0, used = 0;
    UTF8_UTF32(reinterpret_cast<const uint8_t *>(s.data() + i), static_cast<uint32_t>(s.size() - i), &cp, &used);
    out.push_back(cp);
    i += used ? used : 1;
  }
  return out;
}

// One field through a format routine, w = the text's bytes.
std::string run_format(xf_routine routine, const std::string &text) {
  xfmt::test::frame_box b = xfmt::test::frame_box::chars(text, static_cast<int32_t>(text.size()));
  routine(&b.f);
  return b.str();
}

// BidiCharacterTest.txt: the algorithm's paragraph level, levels and order
// for each line; then, for the lines with a fixed paragraph direction,
// $LOGVS and $LOGVSR themselves (UTF-8 in and out): the visible characters
// in the file's order, mirrored where the file's level is odd. Then $VSLOG
// and $VSLOGR on each visual text: where the visual text's own levels are
// those of the logical text (the inverse is then defined), the logical text
// must come back byte for byte.
TEST(bidi_conformance, exhaustive_bidi_character_test_txt) {
  const char *const file = "BidiCharacterTest.txt";
  static bidi_paragraph p;
  tally t, forward, back;
  long skipped = 0, recovered = 0;
  for (const auto &[number, line] : data_lines(file)) {
    auto fields = split(line, ';');
    ASSERT_EQ(fields.size(), 5u) << file << ":" << number;
    std::vector<uint32_t> x;
    for (const std::string &w : words(fields[0])) x.push_back(static_cast<uint32_t>(std::stoul(w, nullptr, 16)));
    ASSERT_LE(x.size(), bidi_max) << file << ":" << number;
    p.n = static_cast<uint32_t>(x.size());
    for (uint32_t i = 0; i < p.n; ++i) p.cp[i] = x[i];
    bidi_classify(p);
    ++t.cases;
    const int direction = std::stoi(fields[1]);
    bidi_resolve(p, direction);
    if (std::to_string(p.base) != normalized(fields[2])) {
      t.fail(file, number, "paragraph level " + std::to_string(p.base));
      continue;
    }
    std::string text = levels_text(p);
    if (text != normalized(fields[3])) {
      t.fail(file, number, "levels " + text + ", expected " + normalized(fields[3]));
      continue;
    }
    text = order_text(p);
    if (text != normalized(fields[4])) {
      t.fail(file, number, "order " + text + ", expected " + normalized(fields[4]));
      continue;
    }

    if (direction == bidi_auto) continue;
    // The formats drop trailing blanks (padding of the value).
    if (x.back() == 0x20) {
      ++skipped;
      continue;
    }
    const std::string logical = utf8_of(x);
    const std::string visual = run_format(direction == bidi_rtl ? zfmlogvsr : zfmlogvs, logical);
    ++forward.cases;
    auto levels = words(fields[3]);
    std::vector<uint32_t> want;
    for (const std::string &k : words(fields[4])) {
      size_t i = std::stoul(k);
      uint32_t cp = x[i];
      if (std::stoi(levels[i]) & 1) cp = bidi_mirror(cp);
      want.push_back(cp);
    }
    std::vector<uint32_t> got;
    for (uint32_t cp : code_points_of(visual))
      if (!bidi::is_removed(bidi_props(cp) & bidi_class_bits)) got.push_back(cp);
    if (got != want) {
      forward.fail(file, number, "the format's visual order differs");
      continue;
    }

    // The levels of the logical text in visual order (resolved above), and
    // those the visual text has of its own.
    uint16_t order[bidi_max];
    bidi_visual_order(p.level, p.n, order);
    std::vector<uint8_t> carried(p.n);
    for (uint32_t k = 0; k < p.n; ++k) carried[k] = p.level[order[k]];
    std::vector<uint32_t> v = code_points_of(visual);
    p.n = static_cast<uint32_t>(v.size());
    for (uint32_t i = 0; i < p.n; ++i) p.cp[i] = v[i];
    bidi_classify(p);
    bidi_resolve(p, direction);
    const bool defined = std::vector<uint8_t>(p.level, p.level + p.n) == carried;
    const std::string again = run_format(direction == bidi_rtl ? zfmvslogr : zfmvslog, visual);
    if (again == logical) ++recovered;
    if (!defined) continue;
    ++back.cases;
    if (again != logical) back.fail(file, number, "visual to logical lost the text");
  }
  std::printf("BidiCharacterTest.txt: %ld of %ld cases pass\n", t.cases - t.failures, t.cases);
  EXPECT_GT(t.cases, 90000);
  EXPECT_EQ(t.failures, 0);
  std::printf("the formats on BidiCharacterTest.txt: %ld of %ld visual orders right (%ld lines end in a blank);\n"
              "  visual to logical defined for %ld, right for %ld of them; %ld of %ld came back exactly\n",
              forward.cases - forward.failures, forward.cases, skipped, back.cases, back.cases - back.failures,
              recovered, forward.cases);
  EXPECT_GT(forward.cases, 90000);
  EXPECT_EQ(forward.failures, 0);
  EXPECT_GT(back.cases, 80000);
  EXPECT_EQ(back.failures, 0);
}

}  // namespace
