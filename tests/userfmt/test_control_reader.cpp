// The control-file reader: the example file's formats, XML written every
// way XML allows, and every error code.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

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
  EXPECT_EQ(label_of(r, 5, 12), "child       ");
  EXPECT_EQ(label_of(r, 13, 12), "teen & young");
  EXPECT_EQ(label_of(r, 19.99, 12), "teen & young");
  EXPECT_EQ(label_of(r, 20, 12), "adult       ");
  EXPECT_EQ(label_of(r, -1e300, 5), "child");
  EXPECT_EQ(label_of(r, missing_letter('A'), 8), "refused ");
  EXPECT_EQ(label_of(r, missing_letter('.'), 8), "unknown ");
}

TEST(control_reader, example_yesno_region_money_score_stamp) {
  read_request y("cntlout.xml", "YESNO");
  ASSERT_EQ(y.rc, 0);
  EXPECT_EQ(y.header()->linear_search, 0);
  EXPECT_DOUBLE_EQ(y.header()->fuzz, 1e-12);
  EXPECT_EQ(label_of(y, 1 + 1e-13, 3), "Yes");
  EXPECT_EQ(label_of(y, 0, 3), "No ");
  EXPECT_EQ(label_of(y, 2, 3), "  2");

  read_request c("cntlout.xml", "$REGION");
  ASSERT_EQ(c.rc, 0);
  EXPECT_EQ(c.header()->kind, 11);
  xf_user_handle h{};
  setfptr(c.header(), &h);
  EXPECT_EQ(h.routine, &yfpfcfn);
  // 14 positions, 14 bytes: the dash takes three of them.
  EXPECT_EQ(run_text_on(c.header(), c.ranges(), u"P", 14), "Middle \xE2\x80\x93 N t");
  EXPECT_EQ(run_text_on(c.header(), c.ranges(), u"W", 5), "West ");

  read_request m("cntlout.xml", "MONEY");
  ASSERT_EQ(m.rc, 0);
  EXPECT_EQ(m.header()->kind, 3);
  EXPECT_EQ(m.header()->round, 1);
  EXPECT_EQ(label_of(m, 1234.567, 14), "     $1,234.57");

  read_request s("cntlout.xml", "SCORE");
  ASSERT_EQ(s.rc, 0);
  EXPECT_EQ(s.header()->multilabel, 1);

  read_request d("cntlout.xml", "STAMP");
  ASSERT_EQ(d.rc, 0);
  EXPECT_EQ(label_of(d, 23195, 10), "2023-07-04");
}

TEST(control_reader, xml_variants_read_alike) {
  read_request r("userfmt/variants.xml", "VAR");
  ASSERT_EQ(r.rc, 0);
  EXPECT_EQ(r.header()->range_count, 4);
  EXPECT_EQ(label_of(r, 1, 15), "one <5> \"q\" 'a'");
  EXPECT_EQ(label_of(r, 2.5, 13), "<two & three>");
  EXPECT_EQ(label_of(r, 4, 11), "line1\nline2");
  EXPECT_EQ(label_of(r, 5, 600), std::string(600, 'L'));
  EXPECT_EQ(r.header()->max_width, 700);
  read_request lower("userfmt/variants.xml", "LOWER");
  ASSERT_EQ(lower.rc, 0);
  EXPECT_EQ(label_of(lower, missing_letter('B'), 6), "miss B");
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

}  // namespace
