// Date pictures the reader builds run plans compiled with the label; a host's
// label compiles its template on each call. Both give the same bytes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "catalog/chain.hpp"
#include "support/rows.hpp"
#include "userfmt/control_reader.hpp"
#include "userfmt/records.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

// One picture row LOW-HIGH in a control file's bytes, read back.
class reader_picture {
 public:
  reader_picture(const std::string &tpl, const std::string &datatype) {
    const std::pair<const char *, std::string> cells[] = {
        {"FMTNAME", "D"}, {"START", "LOW"}, {"END", "HIGH"}, {"LABEL", tpl}, {"MIN", "1"},
        {"MAX", "40"}, {"DEFAULT", "10"}, {"FUZZ", "0"}, {"TYPE", "P"}, {"SEXCL", "N"},
        {"EEXCL", "N"}, {"HLO", "LH"}, {"PREFIX", ""}, {"MULT", "0"}, {"FILL", ""},
        {"NOEDIT", "0"}, {"DATATYPE", datatype}, {"LANGUAGE", "English"}, {"DECSEP", ""},
        {"DIG3SEP", ""}};
    std::string head, row;
    for (const auto &[c, v] : cells) {
      head.append("<COLUMN name=\"").append(c).append("\"/>");
      row.append("<").append(c).append(">").append(v).append("</").append(c).append(">");
    }
    const std::string xml = "<TABLE><HEADER>" + head + "</HEADER><ROW>" + row + "</ROW></TABLE>";
    xfmalloc(&chain_, 0);
    first_ = chain_;
    std::string name = "D" + std::string(31, ' ');
    xf_ufmt_context ctx{};
    rc = xfmt::userfmt::read_control_buffer(xml.data(), xml.size(), 1, name.data(), &ctx, &chain_);
    if (rc == 0)
      label = static_cast<const xf_picture_label *>(
          xfmt::userfmt::entry_label(static_cast<void *const *>(ctx.word2)[0]));
  }
  ~reader_picture() { xfmt::catalog::free_chain(first_); }
  reader_picture(const reader_picture &) = delete;
  reader_picture &operator=(const reader_picture &) = delete;

  int32_t rc = -1;
  const xf_picture_label *label = nullptr;

 private:
  void *chain_ = nullptr;
  void *first_ = nullptr;
};

std::string pict(const void *label, int32_t w, double v) {
  std::string out(static_cast<size_t>(w), '\xEE');
  yfpict(w, out.data(), label, 0, v);
  return out;
}

// Values of each datatype across and beyond its range, missing ones and NaN.
std::vector<double> sweep(int datatype) {
  std::vector<double> v = {missing_letter('.'), missing_letter('A'), missing_letter('_'),
                           std::numeric_limits<double>::quiet_NaN(), 1e15, -1e15, 0, -0.5, 0.5};
  const double first = datatype == 1 ? -140000 : datatype == 2 ? -90000 : -1.3e10;
  const double step = datatype == 1 ? 613.3 : datatype == 2 ? 1709.7 : 4.1e7;
  for (int i = 0; i < 600; ++i) v.push_back(first + i * step);
  return v;
}

void expect_same_bytes(const std::string &tpl, int datatype, uint8_t want_plans_at_least,
                       const std::string &where) {
  static const char *const names[] = {"", "DATE", "TIME", "DATETIME"};
  reader_picture built(tpl, names[datatype]);
  ASSERT_EQ(built.rc, 0) << where;
  const uint8_t plans = xfmt::userfmt::picture_plan_count(built.label);
  if (want_plans_at_least > 0) EXPECT_GE(plans, want_plans_at_least) << where;
  else EXPECT_EQ(plans, 0) << where;
  memory_format host(3);
  const void *plain = host.picture(tpl, ' ', "", 0, false, static_cast<uint8_t>(datatype));
  // Padding a host leaves unset must not pass for the reader's mark.
  std::memset(static_cast<xf_picture_label *>(const_cast<void *>(plain))->reserved, 1, 6);
  for (double v : sweep(datatype))
    for (int32_t w : {200, 40, 9, 1})
      ASSERT_EQ(pict(built.label, w, v), pict(plain, w, v)) << where << " w " << w << " value " << v;
}

TEST(date_picture_compiled, same_bytes_as_the_host_label) {
  for (const auto &r : tab_rows("userfmt/date_templates.txt"))
    expect_same_bytes(r[2].substr(1, r[2].size() - 2), std::stoi(r[1]), 1, r[0]);
}

// A template beyond the plans a label keeps goes through datefmt instead.
TEST(date_picture_compiled, long_template_compiles_on_each_call) {
  std::string tpl;
  for (int i = 0; i < 40; ++i) tpl += "%A, %0d %B %Y; ";
  expect_same_bytes(tpl, 1, 0, "long date");
  expect_same_bytes(tpl.substr(0, 150), 1, 2, "two plans");
}

}  // namespace
