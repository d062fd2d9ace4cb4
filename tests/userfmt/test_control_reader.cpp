// The control-file reader: the example file's formats, XML written every
// way XML allows, and every error code.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>

#include "support/random.hpp"
#include "support/rows.hpp"

#include "catalog/chain.hpp"
#include "support/frame.hpp"
#include "userfmt/control_files.hpp"
#include "userfmt/control_reader.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

// The read codes of tests/data/userfmt/reads.txt; the source asked for
// never stays in the context, and only a file that does not open says so
// on the standard output.
TEST(control_reader, read_codes_of_the_file) {
  ::testing::internal::CaptureStdout();
  for (const auto &row : tab_rows("userfmt/reads.txt")) {
    read_request q(row[1], row[2], static_cast<uint32_t>(std::stoul(row[3])));
    EXPECT_EQ(q.rc, std::stoi(row[4])) << row[0];
    EXPECT_EQ(q.ctx.source, 0u) << row[0];
  }
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Open failed\n");
}

// One field of a header, by the name tests/data/userfmt/headers.txt gives it.
double header_field(const xf_user_format *h, const std::string &field) {
  const std::pair<const char *, double> fields[] = {
      {"kind", h->kind},
      {"range_count", static_cast<double>(h->range_count)},
      {"label_count", h->label_count},
      {"has_other", h->has_other},
      {"linear_search", h->linear_search},
      {"min_width", h->min_width},
      {"max_width", h->max_width},
      {"default_width", h->default_width},
      {"max_label_length", h->max_label_length},
      {"internal0", h->internal[0]},
      {"internal1", h->internal[1]},
      {"fuzz", h->fuzz},
      {"round", h->round},
      {"multilabel", h->multilabel},
  };
  for (const auto &[name, value] : fields)
    if (field == name) return value;
  ADD_FAILURE() << "no header field " << field;
  return -1;
}

TEST(control_reader, header_fields_of_the_file) {
  for (const auto &row : tab_rows("userfmt/headers.txt")) {
    read_request r(row[1], row[2]);
    ASSERT_EQ(r.rc, 0) << row[0];
    EXPECT_DOUBLE_EQ(header_field(r.header(), row[3]), std::stod(row[4])) << row[0];
  }
}

// The header is the second of the block, the first carries the anchor's
// marker; a character format gets the linear character lookup.
TEST(control_reader, anchor_marker_and_character_routine) {
  read_request r("cntlout.xml", "AGEGRP");
  ASSERT_EQ(r.rc, 0);
  EXPECT_EQ(std::string(r.header()[-1].marker, 8), "00000000");
  EXPECT_EQ(r.header()->marker[0], ' ');
  read_request c("cntlout.xml", "$REGION");
  ASSERT_EQ(c.rc, 0);
  xf_user_handle h{};
  setfptr(c.header(), &h);
  EXPECT_EQ(h.routine, &yfpfcfn);
}

// The labels of tests/data/userfmt/labels.txt, each format read from its file.
TEST(control_reader, labels_of_the_file) {
  for (const auto &row : tab_rows("userfmt/labels.txt")) {
    read_request r(row[1], row[2]);
    ASSERT_EQ(r.rc, 0) << row[0];
    EXPECT_EQ(label_of(r, row[3], std::stoi(row[4])), unescaped(row[5].substr(1, row[5].size() - 2))) << row[0];
  }
}

TEST(control_reader, memory_buffer_and_listing) {
  std::string text = file_text("cntlout.xml");
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
  const std::string good = file_text("cntlout.xml");
  xfmt::userfmt::control_problem p = diagnose(good, "AGEGRP");
  EXPECT_EQ(p.code, 0);
  EXPECT_EQ(p.line, 0u);
  EXPECT_EQ(diagnose(good, "NOPE").code, 1);  // no row defines it: not an error of the file

  // Each fault of tests/data/userfmt/diagnoses.txt on the line where it lies.
  for (const auto &f : tab_rows("userfmt/diagnoses.txt")) {
    std::string text = good;
    const std::size_t at = text.find(f[1]);
    ASSERT_NE(at, std::string::npos) << f[0];
    text.replace(at, f[1].size(), f[2]);
    p = diagnose(text, "AGEGRP");
    EXPECT_EQ(p.code, std::stoi(f[3])) << f[0];
    EXPECT_EQ(p.line, line_of(text, at)) << f[0];
    const std::string reason = p.reason;
    EXPECT_TRUE(f[4] == "=" ? reason == f[5] : (reason.find(f[5]) != std::string::npos) == (f[4] == "~"))
        << f[0] << ": " << reason;
  }

  // A header without the columns every row needs ends at its last line.
  const std::string no_columns = "<TABLE>\n<HEADER><COLUMN name=\"FMTNAME\"/>\n</HEADER>\n</TABLE>\n";
  p = diagnose(no_columns, "AGEGRP");
  EXPECT_EQ(p.code, -14);
  EXPECT_EQ(p.line, 4u);
}

}  // namespace
