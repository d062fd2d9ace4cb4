// The control-file reader: the example file's formats, XML written every
// way XML allows, and every error code.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <sstream>
#include <vector>

#include "support/random.hpp"
#include "support/rows.hpp"

#include "catalog/chain.hpp"
#include "support/frame.hpp"
#include "userfmt/control_files.hpp"
#include "userfmt/control_reader.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

std::string run_text_on(void *header, void *ranges, const std::u16string &v, int32_t w) {
  frame_box b = frame_box::chars(std::string(reinterpret_cast<const char *>(v.data()), 2 * v.size()), w);
  b.f.input_encoding = XF_ENC_UTF16LE;
  yfpfcfn(&b.f, header, ranges);
  return b.str();
}

std::string label_of(const read_request &r, double v, int32_t w) {
  frame_box b = frame_box::number(v, w, 0);
  xf_user_handle h{};
  setfptr(r.header(), &h);
  EXPECT_NE(h.routine, nullptr);
  if (!h.routine) return "";
  h.routine(&b.f, r.header(), r.ranges());
  return b.str();
}

TEST(control_reader, error_codes_of_bad_files) {
  struct row { const char *file; const char *name; int32_t rc; };
  const row rows[] = {
      {"userfmt/bad_datatype.xml",     "PIC",  -9},
      {"userfmt/missing_column.xml",   "X",    -14},
      {"userfmt/row_missing_cell.xml", "X",    -14},
      {"userfmt/nested_format.xml",    "NEST", -16},
      {"userfmt/bad_type.xml",         "BAD",  -20},
      {"userfmt/bad_reference.xml",    "REF",  -2},
      {"userfmt/unclosed.xml",         "X",    -2},
      {"userfmt/mismatched.xml",       "X",    -2},
      {"userfmt/truncated.xml",        "X",    -2},
      {"userfmt/bad_number.xml",       "NUM",  -3},
      {"cntlout.xml",                  "NOPE", 1},
      {"cntlout.xml",                  "$AGEGRP", 1},   // a numeric format asked as character
      {"cntlout.xml",                  "@AGEGRP", 1},   // formats are not informats
  };
  for (const row &r : rows) {
    read_request q(r.file, r.name);
    EXPECT_EQ(q.rc, r.rc) << r.file;
    EXPECT_EQ(q.ctx.source, 0u);
  }
}

TEST(control_reader, unsupported_sources_and_open_failure) {
  EXPECT_EQ(read_request("cntlout.xml", "AGEGRP", 3).rc, -17);
  EXPECT_EQ(read_request("cntlout.xml", "AGEGRP", 4).rc, -17);
  ::testing::internal::CaptureStdout();
  int32_t rc = read_request("no_such_dir/cntlout.xml", "AGEGRP").rc;
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Open failed\n");
  EXPECT_EQ(rc, -1);
}

TEST(control_reader, example_agegrp) {
  read_request r("cntlout.xml", "AGEGRP");
  ASSERT_EQ(r.rc, 0);
  const xf_user_format *h = r.header();
  EXPECT_EQ(std::string(h->name, 32), "AGEGRP" + std::string(26, ' '));
  EXPECT_EQ(h->kind, 1);
  EXPECT_EQ(h->range_count, 4);
  EXPECT_EQ(h->label_count, 5u);
  EXPECT_EQ(h->has_other, 1u);
  EXPECT_EQ(h->linear_search, 1);
  EXPECT_EQ(h->min_width, 1);
  EXPECT_EQ(h->max_width, 40);
  EXPECT_EQ(h->default_width, 8);
  EXPECT_EQ(h->max_label_length, 12);
  EXPECT_EQ(h->internal[0], 3);
  EXPECT_EQ(h->internal[1], 1);
  EXPECT_EQ(std::string(h[-1].marker, 8), "00000000");
  EXPECT_EQ(h->marker[0], ' ');
}

TEST(control_reader, example_yesno_region_money_score) {
  read_request y("cntlout.xml", "YESNO");
  ASSERT_EQ(y.rc, 0);
  EXPECT_EQ(y.header()->linear_search, 0);
  EXPECT_DOUBLE_EQ(y.header()->fuzz, 1e-12);

  read_request c("cntlout.xml", "$REGION");
  ASSERT_EQ(c.rc, 0);
  EXPECT_EQ(c.header()->kind, 11);
  xf_user_handle h{};
  setfptr(c.header(), &h);
  EXPECT_EQ(h.routine, &yfpfcfn);

  read_request m("cntlout.xml", "MONEY");
  ASSERT_EQ(m.rc, 0);
  EXPECT_EQ(m.header()->kind, 3);
  EXPECT_EQ(m.header()->round, 1);

  read_request s("cntlout.xml", "SCORE");
  ASSERT_EQ(s.rc, 0);
  EXPECT_EQ(s.header()->multilabel, 1);
}

// The labels of tests/data/userfmt/labels.txt, each format read from its file.
TEST(control_reader, labels_of_the_file) {
  for (const auto &row : tab_rows("userfmt/labels.txt")) {
    read_request r(row[1], row[2]);
    ASSERT_EQ(r.rc, 0) << row[0];
    const std::string want = unescaped(row[5].substr(1, row[5].size() - 2));
    if (row[2][0] == '$') {
      const std::string in = unescaped(row[3]);
      EXPECT_EQ(run_text_on(r.header(), r.ranges(), std::u16string(in.begin(), in.end()), std::stoi(row[4])), want)
          << row[0];
    } else {
      const double v = row[3][0] == '.' ? missing_letter(row[3].size() == 1 ? '.' : row[3][1]) : std::stod(row[3]);
      EXPECT_EQ(label_of(r, v, std::stoi(row[4])), want) << row[0];
    }
  }
}

TEST(control_reader, xml_variants_read_alike) {
  read_request r("userfmt/variants.xml", "VAR");
  ASSERT_EQ(r.rc, 0);
  EXPECT_EQ(r.header()->range_count, 4);
  EXPECT_EQ(label_of(r, 5, 600), std::string(600, 'L'));
  EXPECT_EQ(r.header()->max_width, 700);
}

TEST(control_reader, memory_buffer_and_listing) {
  std::ifstream in(data_dir() / "cntlout.xml", std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  std::string text = ss.str();
  std::string names;
  int32_t rc = xfmt::userfmt::list_control_formats(
      text.data(), text.size(),
      [](void *user, const char *n, std::size_t len, char type) {
        *static_cast<std::string *>(user) += std::string(n, len) + ":" + type + " ";
      },
      &names);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(names, "AGEGRP:N YESNO:N REGION:C MONEY:P SCORE:N STAMP:P ");
  // Every prefix of the file is refused cleanly, never read past its end.
  for (std::size_t n = 0; n < text.size(); n += 97) {
    std::string cut = text.substr(0, n);
    xf_ufmt_context ctx{};
    void *chain = nullptr;
    xfmalloc(&chain, 0);
    void *first = chain;
    EXPECT_LT(xfmt::userfmt::read_control_buffer(cut.data(), cut.size(), 1, "AGEGRP                          ",
                                                 &ctx, &chain), 0) << n;
    xfmt::catalog::free_chain(first);
  }
}

std::string random_control_text(std::mt19937_64 &g, bool sorted_search) {
  std::string s = "<TABLE><HEADER>";
  for (const char *c : {"FMTNAME", "START", "END", "LABEL", "MIN", "MAX", "DEFAULT", "FUZZ", "TYPE",
                        "SEXCL", "EEXCL", "HLO"})
    s.append("<COLUMN name='").append(c).append("'/>");
  s += "</HEADER>";
  double at = -50.0 + static_cast<double>(g() % 20);
  double fuzz = g() % 3 == 0 ? 0.25 : 0.0;
  int n = static_cast<int>(g() % 80) + 1;
  bool shared = false;  // this row starts where the previous, excluded, end lies
  for (int i = 0; i < n; ++i) {
    double len = static_cast<double>(g() % 6);
    bool excl = len > 0 && g() % 2;
    // No fuzz on either side of a shared boundary: the table stays without
    // overlaps, where bisection and linear search must agree.
    bool no_fuzz = excl || shared;
    shared = excl;
    s.append("<ROW><FMTNAME>R</FMTNAME><START>").append(std::to_string(at)).append("</START><END>");
    s.append(std::to_string(at + len)).append("</END><LABEL>l").append(std::to_string(i));
    s.append("</LABEL><MIN>1</MIN><MAX>40</MAX><DEFAULT>4</DEFAULT><FUZZ>");
    s.append(no_fuzz ? "0" : std::to_string(fuzz)).append("</FUZZ><TYPE>N</TYPE><SEXCL>N</SEXCL><EEXCL>");
    s.append(excl ? "Y" : "N").append("</EEXCL><HLO>").append(sorted_search ? "S" : "").append("</HLO></ROW>");
    at += len + (excl ? 0.0 : 1.0 + 2 * fuzz + static_cast<double>(g() % 2));
  }
  return s + "</TABLE>";
}

std::string lookup(const xf_ufmt_context &ctx, double v) {
  frame_box b = frame_box::number(v, 4, 0);
  xf_user_handle h{};
  setfptr(ctx.control, &h);
  h.routine(&b.f, ctx.control, ctx.word2);
  return b.str();
}

TEST(control_reader, indexed_bisection_agrees_with_linear_search) {
  auto g = rng(47);
  uint64_t files = scaled(100);
  for (uint64_t t = 0; t < files; ++t) {
    uint64_t salt = g();
    std::mt19937_64 g1(salt), g2(salt);
    std::string sorted = random_control_text(g1, true), linear = random_control_text(g2, false);
    xf_ufmt_context a{}, b{};
    void *chain = nullptr;
    xfmalloc(&chain, 0);
    void *first = chain;
    ASSERT_EQ(xfmt::userfmt::read_control_buffer(sorted.data(), sorted.size(), 1, "R                               ", &a, &chain), 0);
    ASSERT_EQ(xfmt::userfmt::read_control_buffer(linear.data(), linear.size(), 1, "R                               ", &b, &chain), 0);
    ASSERT_EQ(static_cast<xf_user_format *>(a.control)->reserved[0], 1);
    for (int k = 0; k < 300; ++k) {
      double v = -55.0 + static_cast<double>(g() % 3000) * 0.125;
      std::string indexed = lookup(a, v);
      ASSERT_EQ(indexed, lookup(b, v)) << "seed " << test_seed() << " file " << t << " value " << v;
      // Without its index the same bisection gives the same bytes.
      static_cast<xf_user_format *>(a.control)->reserved[0] = 0;
      ASSERT_EQ(indexed, lookup(a, v));
      static_cast<xf_user_format *>(a.control)->reserved[0] = 1;
    }
    xfmt::catalog::free_chain(first);
  }
}

TEST(control_reader, character_format_named_with_its_dollar) {
  std::string text =
      "<TABLE><HEADER><COLUMN name='FMTNAME'/><COLUMN name='START'/><COLUMN name='END'/>"
      "<COLUMN name='LABEL'/><COLUMN name='MIN'/><COLUMN name='MAX'/><COLUMN name='DEFAULT'/>"
      "<COLUMN name='FUZZ'/><COLUMN name='TYPE'/><COLUMN name='SEXCL'/><COLUMN name='EEXCL'/>"
      "<COLUMN name='HLO'/></HEADER><ROW><FMTNAME>$codes</FMTNAME><START>a</START><END/>"
      "<LABEL>Alpha</LABEL><MIN/><MAX/><DEFAULT/><FUZZ/><TYPE>c</TYPE><SEXCL/><EEXCL/><HLO/></ROW></TABLE>";
  xf_ufmt_context ctx{};
  void *chain = nullptr;
  xfmalloc(&chain, 0);
  void *first = chain;
  ASSERT_EQ(xfmt::userfmt::read_control_buffer(text.data(), text.size(), 11, "CODES                           ",
                                               &ctx, &chain), 0);
  auto *h = static_cast<xf_user_format *>(ctx.control);
  // Empty widths: 1 to 40, the default the longest label.
  EXPECT_EQ(h->min_width, 1);
  EXPECT_EQ(h->max_width, 40);
  EXPECT_EQ(h->default_width, 5);
  EXPECT_EQ(run_text_on(ctx.control, ctx.word2, u"a", 6), "Alpha ");
  EXPECT_EQ(run_text_on(ctx.control, ctx.word2, u"A", 6), "A     ");
  xfmt::catalog::free_chain(first);
}

// A control file of format REV (rows: start, end, label, HLO); every call
// writes a file of its own, so that none is answered from the reader's cache.
std::string rows_file(const std::string &type, const std::vector<std::vector<std::string>> &rows) {
  static int files = 0;
  std::vector<control_row> out;
  for (const auto &r : rows) out.push_back({"REV", type, r[0], r[1], r[2], r[3]});
  return write_control_file("rows" + std::to_string(files++) + ".xml", out);
}

std::string one_row_file(const std::string &type, const std::string &start, const std::string &end,
                         const std::string &label) {
  return rows_file(type, {{start, end, label, ""}});
}

// A file that never ends is read up to the limit and refused with its own
// code, never parsed; a range whose START lies above its END is a bad row.
TEST(control_reader, endless_file_and_reversed_ranges) {
  xfmt::test::read_request endless("/dev/zero", "X");
  EXPECT_EQ(endless.rc, -21);
  const struct { const char *name, *type, *start, *end; int rc; } rows[] = {
      {"REV", "N", "5", "1", -3}, {"REV", "N", "1", "5", 0}, {"REV", "N", "3", "3", 0},
      {"$REV", "C", "b", "a", -3}, {"$REV", "C", "a", "b", 0}};
  for (const auto &r : rows) {
    xfmt::test::read_request q(one_row_file(r.type, r.start, r.end, "x"), r.name);
    EXPECT_EQ(q.rc, r.rc) << r.type << " " << r.start << ".." << r.end;
  }
}

xfmt::userfmt::control_problem diagnose(const std::string &text, const char *name) {
  char padded[33];
  std::snprintf(padded, sizeof padded, "%-32s", name);
  return xfmt::userfmt::diagnose_control_buffer(text.data(), text.size(), 1, padded);
}

std::size_t line_of(const std::string &text, std::size_t offset) {
  return 1 + static_cast<std::size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

// The line and reason a person gets for a control file that cannot be read:
// the line is where the reading stopped, whatever broke it.
TEST(control_reader, diagnosis_names_line_and_reason) {
  std::ifstream in(data_dir() / "cntlout.xml", std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  const std::string good = ss.str();
  xfmt::userfmt::control_problem p = diagnose(good, "AGEGRP");
  EXPECT_EQ(p.code, 0);
  EXPECT_EQ(p.line, 0u);
  EXPECT_EQ(diagnose(good, "NOPE").code, 1);  // no row defines it: not an error of the file

  // Each fault on the line where it lies: an element closed with the wrong
  // name, a TYPE the reader does not know, a reversed range (named as such)
  // and another bad row (which keeps the general reason).
  const struct {
    const char *find, *put;
    int32_t code;
    char match;  // '=' the reason, '~' contains it, '!' does not contain it
    const char *reason;
  } faults[] = {
      {"</ROW>", "</RO>", -2, '~', "malformed XML"},
      {"<TYPE>N</TYPE>", "<TYPE>Q</TYPE>", -20, '=', "an unknown TYPE"},
      {"<START>13</START><END>20</END>", "<START>20</START><END>13</END>", -3, '=',
       "a range whose START lies above its END"},
      {"<START>13</START><END>20</END>", "<START>1x</START><END>20</END>", -3, '!', "above"},
  };
  for (const auto &f : faults) {
    std::string text = good;
    const std::size_t at = text.find(f.find);
    text.replace(at, std::strlen(f.find), f.put);
    p = diagnose(text, "AGEGRP");
    EXPECT_EQ(p.code, f.code) << f.put;
    EXPECT_EQ(p.line, line_of(text, at)) << f.put;
    const std::string reason = p.reason;
    EXPECT_TRUE(f.match == '=' ? reason == f.reason
                               : (reason.find(f.reason) != std::string::npos) == (f.match == '~'))
        << f.put << ": " << reason;
  }

  // A header without the columns every row needs ends at its last line.
  const std::string no_columns = "<TABLE>\n<HEADER><COLUMN name=\"FMTNAME\"/>\n</HEADER>\n</TABLE>\n";
  p = diagnose(no_columns, "AGEGRP");
  EXPECT_EQ(p.code, -14);
  EXPECT_EQ(p.line, 4u);
}

// Overlapping ranges: the first in the file's order wins, also in a format
// sorted for bisection ("S" in HLO), which then keeps the linear search;
// ranges apart keep the bisection.
TEST(control_reader, overlapping_ranges_first_in_file_order) {
  for (const char *hlo : {"", "S"}) {
    xfmt::test::read_request q(
        rows_file("N", {{"5", "6", "inner", hlo}, {"1", "10", "outer", hlo}, {"20", "30", "far", hlo}}), "REV");
    ASSERT_EQ(q.rc, 0) << hlo;
    EXPECT_EQ(q.header()->linear_search, 1) << hlo;
    EXPECT_EQ(label_of(q, 5, 8), "inner   ") << hlo;
    EXPECT_EQ(label_of(q, 2, 8), "outer   ") << hlo;
    EXPECT_EQ(label_of(q, 25, 8), "far     ") << hlo;
    xfmt::test::read_request c(
        rows_file("C", {{"b", "c", "inner", hlo}, {"a", "z", "outer", hlo}}), "$REV");
    ASSERT_EQ(c.rc, 0) << hlo;
    EXPECT_EQ(c.header()->linear_search, 1) << hlo;
  }
  xfmt::test::read_request apart(
      rows_file("N", {{"20", "30", "far", "S"}, {"1", "10", "near", "S"}, {"10", "12", "edge", "S"}}), "REV");
  ASSERT_EQ(apart.rc, 0);
  EXPECT_EQ(apart.header()->linear_search, 1);  // 10 lies in two ranges
  xfmt::test::read_request sorted(rows_file("N", {{"20", "30", "far", "S"}, {"1", "10", "near", "S"}}), "REV");
  ASSERT_EQ(sorted.rc, 0);
  EXPECT_EQ(sorted.header()->linear_search, 0);
  EXPECT_EQ(label_of(sorted, 25, 8), "far     ");
  EXPECT_EQ(label_of(sorted, 10, 8), "near    ");
}

// Label bytes that are not UTF-8 refuse the row; a NUL inside a label is a
// character like any other, never the end of the label.
TEST(control_reader, labels_that_do_not_convert_and_nul_bytes) {
  xfmt::test::read_request bad(one_row_file("N", "1", "", std::string("x\xFF\xFEy")), "REV");
  EXPECT_LT(bad.rc, 0);
  xfmt::test::read_request nul(one_row_file("N", "1", "", std::string("ab\0cd", 5)), "REV");
  ASSERT_EQ(nul.rc, 0);
  EXPECT_EQ(label_of(nul, 1, 8), std::string("ab\0cd   ", 8));
}

}  // namespace
