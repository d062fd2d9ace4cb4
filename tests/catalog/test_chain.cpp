// The allocation chain, handle release and the user-defined paths of
// resolution. Leaks show under LeakSanitizer in the sanitizer build.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "catalog/chain.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::catalog::chain_block_of;
using xfmt::catalog::free_chain;
using xfmt::catalog::free_user_handle;

uint64_t word(const void *p, int i) {
  uint64_t w;
  std::memcpy(&w, static_cast<const unsigned char *>(p) + 8 * i, 8);
  return w;
}

TEST(chain, blocks_are_zeroed_and_linked_first_to_last) {
  void *chain = nullptr;
  auto *a = static_cast<unsigned char *>(xfmalloc(&chain, 24));
  ASSERT_NE(a, nullptr);
  void *first = chain;
  EXPECT_EQ(first, chain_block_of(a));
  auto *b = static_cast<unsigned char *>(xfmalloc(&chain, 100));
  auto *c = static_cast<unsigned char *>(xfmalloc(&chain, 0));
  ASSERT_NE(b, nullptr);
  ASSERT_NE(c, nullptr);
  EXPECT_EQ(chain, chain_block_of(c));
  EXPECT_EQ(word(first, 0), reinterpret_cast<uint64_t>(chain_block_of(b)));
  EXPECT_EQ(word(chain_block_of(b), 0), reinterpret_cast<uint64_t>(chain_block_of(c)));
  EXPECT_EQ(word(chain_block_of(c), 0), 0u);
  EXPECT_EQ(word(chain_block_of(b), 1), 100u);  // the second header word keeps the size
  for (int i = 0; i < 24; ++i) EXPECT_EQ(a[i], 0);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(b[i], 0);
  xffree(b);  // does nothing
  free_chain(first);
}

TEST(chain, refuses_a_missing_head_and_absurd_sizes) {
  EXPECT_EQ(xfmalloc(nullptr, 8), nullptr);
  void *chain = nullptr;
  EXPECT_EQ(xfmalloc(&chain, ~uint64_t{0}), nullptr);
  EXPECT_EQ(chain, nullptr);
}

// A user-defined handle at the head of a chain of extra blocks, as the reader
// leaves it.
xf_user_handle *user_chain(char kind, int extra_blocks) {
  void *chain = nullptr;
  auto *h = static_cast<xf_user_handle *>(xfmalloc(&chain, sizeof(xf_user_handle)));
  h->chain_first = chain;
  for (int i = 0; i < extra_blocks; ++i) xfmalloc(&chain, 64);
  h->chain_last = chain;
  h->link = reinterpret_cast<uint64_t>(h);
  h->kind = kind;
  h->one = 1;
  return h;
}

TEST(release, xfdel_frees_numeric_user_handles_only) {
  EXPECT_EQ(xfdel(user_chain('-', 3)), XF_OK);
  xf_user_handle *h = user_chain('+', 2);
  EXPECT_EQ(xfdel(h), XF_OK);
  EXPECT_EQ(h->kind, '+');  // still there
  free_user_handle(h);
}

TEST(user_resolution, without_a_context_an_unknown_name_fails) {
  void *h = nullptr;
  EXPECT_EQ(xfname2("AGEGRP", 6, 0, nullptr, &h, nullptr), 1u);
  EXPECT_EQ(h, nullptr);
}

TEST(user_resolution, a_reader_that_finds_nothing_leaks_nothing) {
  // The reader answers "not found" for this name in every build (no control
  // file holds it), so the chain resolution allocated is freed again.
  xf_ufmt_context ctx{};
  ctx.source = 4;  // a transport file: not read by this library
  void *h = nullptr;
  uint16_t block[8] = {9, 9, 9, 9, 9, 9, 9, 9};
  EXPECT_EQ(xfname2("NOSUCHFMTXYZ", 12, 0, block, &h, &ctx), 1u);
  EXPECT_EQ(h, nullptr);
  EXPECT_EQ(block[0], 9);
  EXPECT_EQ(ctx.source, 4u);  // the reader worked on a copy
  // The caller's own storage is untouched as well.
  std::vector<unsigned char> own(sizeof(xf_user_handle), 0xAB);
  void *storage = own.data();
  EXPECT_EQ(xfname3("NOSUCHFMTXYZ", 12, 0, nullptr, &storage, &ctx), 1u);
  EXPECT_EQ(storage, own.data());
  EXPECT_EQ(own[8], 0xAB);
}

TEST(user_resolution, a_catalogued_name_never_reaches_the_reader) {
  xf_ufmt_context ctx{};
  void *h = nullptr;
  ASSERT_EQ(xfname2("DATE", 4, 0, nullptr, &h, &ctx), XF_OK);
  EXPECT_EQ(static_cast<fmtposs_row *>(h)->module_name[0], 'J');
  xfdel(h);
}

// A loaded control block stands for a format the host already read; zero
// bytes are a header of no known kind, so no label routine is installed.
alignas(16) unsigned char ready_block[4096];

TEST(user_resolution, a_ready_control_block_gives_a_user_handle) {
  xf_ufmt_context ctx{};
  ctx.control = ready_block;
  ctx.word2 = ready_block + 2048;
  void *h = nullptr;
  uint16_t block[8] = {9, 9, 9, 9, 9, 9, 9, 9};
  ASSERT_EQ(xfname2("AGEGRP", 6, 0, block, &h, &ctx), XF_OK);
  auto *u = static_cast<xf_user_handle *>(h);
  EXPECT_EQ(u->link, reinterpret_cast<uint64_t>(u));
  EXPECT_EQ(u->kind, '-');
  EXPECT_EQ(u->one, 1u);
  EXPECT_EQ(std::string(u->name, 32), "AGEGRP" + std::string(26, ' '));
  EXPECT_EQ(u->name_length, 6u);
  EXPECT_EQ(u->header, ready_block);
  EXPECT_EQ(u->ranges, ready_block + 2048);
  EXPECT_EQ(u->chain_first, chain_block_of(u));
  EXPECT_EQ(u->chain_last, chain_block_of(u));
  const uint16_t want[8] = {u->min_width, u->max_width, u->default_width, 0, 0, 0, 0, 0};
  EXPECT_EQ(std::memcmp(block, want, sizeof want), 0);
  EXPECT_EQ(xfdel(h), XF_OK);  // "-": the chain goes
}

// A thousand resolutions of every kind of handle, each released with
// xfrelease: catalog handles, refreshed records, intrinsic rows, "+" and "-"
// user handles, in new records and in the caller's storage. Under
// LeakSanitizer any block left behind fails the run.
TEST(user_resolution, xfrelease_frees_every_kind_of_handle) {
  xf_ufmt_context ctx{};
  ctx.control = ready_block;
  for (int i = 0; i < 1000; ++i) {
    void *h = nullptr;
    ASSERT_EQ(xfname2("$SEX", 4, 0, nullptr, &h, &ctx), XF_OK);
    ASSERT_EQ(static_cast<char *>(h)[8], '+');
    EXPECT_EQ(xfrelease(h), XF_OK);
    h = nullptr;
    ASSERT_EQ(xfname2("AGEGRP", 6, 0, nullptr, &h, &ctx), XF_OK);
    EXPECT_EQ(xfrelease(h), XF_OK);
    xf_user_handle own{};
    h = &own;
    ASSERT_EQ(xfname3("$SEX", 4, 0, nullptr, &h, &ctx), XF_OK);
    EXPECT_EQ(xfrelease(h), XF_OK);
    EXPECT_EQ(own.kind, '+');  // the caller's record stays
    xf_user_handle mine{};
    h = &mine;
    ASSERT_EQ(xfname3("AGEGRP", 6, 0, nullptr, &h, &ctx), XF_OK);
    ASSERT_EQ(h, &mine);
    EXPECT_EQ(mine.kind, '-');
    EXPECT_EQ(xfrelease(h), XF_OK);  // its chain goes, the record stays
    h = nullptr;
    ASSERT_EQ(xfname("COMMA", 5, 0, nullptr, &h), XF_OK);
    EXPECT_EQ(xfrelease(h), XF_OK);
    fmtposs_row row{};
    h = &row;
    ASSERT_EQ(xfname3("DATE", 4, 0, nullptr, &h, nullptr), XF_OK);
    EXPECT_EQ(h, &row);
    EXPECT_EQ(xfrelease(h), XF_OK);
    h = nullptr;
    ASSERT_EQ(xfname("_C_R_A_S_H_", 11, 0, nullptr, &h), XF_OK);
    EXPECT_EQ(xfrelease(h), XF_OK);
  }
  EXPECT_EQ(xfrelease(nullptr), XF_OK);
}

}  // namespace
