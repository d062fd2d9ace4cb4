// User-defined formats as a host sees them: xfname2 with a context, xffmt,
// xfdel; the control file in the current folder or elsewhere (the in-memory
// catalog, source 5, is in test_nested_binding.cpp).
#include <gtest/gtest.h>

#include "catalog/chain.hpp"
#include "support/frame.hpp"
#include "userfmt/control_files.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

std::string put_text(void *handle, const std::string &v, int32_t w) {
  frame_box b = frame_box::chars(v, w);
  xffmt(&b.f, handle);
  return b.str();
}

TEST(end_to_end, zero_context_reads_the_control_file_of_the_current_folder) {
  in_data_dir here;
  xf_ufmt_context ctx{};
  resolved r("AGEGRP", &ctx);
  ASSERT_EQ(r.status, 0u);
  EXPECT_EQ(static_cast<char *>(r.handle)[8], '-');
  EXPECT_EQ(r.widths[0], 1);
  EXPECT_EQ(r.widths[1], 40);
  EXPECT_EQ(r.widths[2], 8);
  EXPECT_EQ(put(r.handle, 15, 15).text, "teen & young   ");
  // UTF-16 when the host asks for it.
  EXPECT_EQ(put(r.handle, 3, 5, XF_ENC_UTF16LE, 10).text, std::string("c\0h\0i\0l\0d\0", 10));
  resolved money("MONEY", &ctx);
  ASSERT_EQ(money.status, 0u);
  EXPECT_EQ(put(money.handle, 1e6, 14).text, " $1,000,000.00");
  resolved region("$REGION", &ctx);
  ASSERT_EQ(region.status, 0u);
  EXPECT_EQ(static_cast<char *>(region.handle)[8], '+');
  EXPECT_EQ(put_text(region.handle, "E", 5), "East ");
  // 20 positions of which the dash takes 3 bytes: the 20-byte buffer ends
  // after three of the five padding blanks.
  EXPECT_EQ(put_text(region.handle, "Q", 20), "Middle \xE2\x80\x93 N to S   ");
  EXPECT_EQ(put_text(region.handle, "X", 3), "X  ");
  resolved none("NOSUCH", &ctx);
  EXPECT_EQ(none.status, 1u);
  EXPECT_EQ(none.handle, nullptr);
}

TEST(end_to_end, control_file_elsewhere_and_ready_control_block) {
  std::string path = (data_dir() / "cntlout.xml").string();
  xf_ufmt_context ctx{};
  ctx.control_path = path.c_str();
  resolved r("YESNO", &ctx);
  ASSERT_EQ(r.status, 0u);
  EXPECT_EQ(put(r.handle, 1, 3).text, "Yes");
  // A context that already carries the control block resolves at once.
  auto *h = static_cast<xf_user_handle *>(r.handle);
  xf_ufmt_context ready{};
  ready.control = h->header;
  ready.word2 = h->ranges;
  void *again = nullptr;
  ASSERT_EQ(xfname2("YESNO", 5, 0, nullptr, &again, &ready), 0u);
  EXPECT_EQ(put(again, 0, 3).text, "No ");
  xfmt::catalog::free_user_handle(static_cast<xf_user_handle *>(again));
}

TEST(end_to_end, informat_requests_never_find_formats) {
  in_data_dir here;
  xf_ufmt_context ctx{};
  resolved r("AGEGRP", &ctx, 73);
  EXPECT_EQ(r.status, 1u);
  EXPECT_EQ(r.handle, nullptr);
}

}  // namespace
