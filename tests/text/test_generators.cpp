// The committed tables of the text conversions are what their generators
// make on this machine: the EBCDIC and code-page tables from iconv, the
// bidirectional tables (their Unicode version included) from the installed
// Unicode database.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

TEST(text_generators, reproduce_the_committed_tables) {
  ASSERT_EQ(std::system("command -v python3 >/dev/null 2>&1"), 0) << "python3 missing";
  if (std::system("command -v iconv >/dev/null 2>&1") != 0) GTEST_SKIP() << "iconv missing";
  for (const std::string generator : {"gen_ebcdic.py", "gen_codepages.py", "gen_bidi_tables.py"}) {
    const std::string cmd = "cd '" XFMT_SOURCE_DIR "' && python3 tools/gen/" + generator + " --check";
    EXPECT_EQ(std::system(cmd.c_str()), 0) << generator;
  }
}

}  // namespace
