// The committed tables are what the generators make from their sources: run
// them into a temporary file and compare byte for byte. Skipped on a machine
// without the sources (the locale package, ICU's development files, Python).
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>  // getpid

namespace {

namespace fs = std::filesystem;

const std::string source_dir = XFMT_SOURCE_DIR;

std::string slurp(const fs::path &p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

bool ok(const std::string &cmd) { return std::system((cmd + " >/dev/null 2>&1").c_str()) == 0; }

// Runs a generator with --out into a temporary file; returns its output.
std::string generate(const std::string &script, const char *tag) {
  fs::path out = fs::temp_directory_path() / (std::string("xfmt_gen_") + tag + "_" +
                                              std::to_string(::getpid()) + ".cpp");
  std::string cmd = "python3 " + source_dir + "/tools/gen/" + script + " --out " + out.string();
  EXPECT_TRUE(ok(cmd)) << cmd;
  std::string text = slurp(out);
  fs::remove(out);
  return text;
}

TEST(locale_generator, name_buckets_reproduce) {
  if (!ok("python3 --version")) GTEST_SKIP() << "no python3";
  std::string made = generate("gen_locale_names.py", "names");
  EXPECT_TRUE(made == slurp(source_dir + "/src/nls/locale_name_buckets.inc"))
      << "rerun: python3 tools/gen/gen_locale_names.py";
}

TEST(locale_generator, locale_data_reproduces) {
  if (!ok("python3 --version")) GTEST_SKIP() << "no python3";
  if (!fs::exists("/usr/share/i18n/locales/af_ZA")) GTEST_SKIP() << "no locale sources (package locales)";
  if (!ok("pkg-config --exists icu-i18n icu-uc") || !ok("c++ --version"))
    GTEST_SKIP() << "no ICU development files (package libicu-dev)";
  const std::string committed = slurp(source_dir + "/src/nls/locale_data.cpp");
  // Other versions of the sources make other data; only the same versions
  // must give the same bytes.
  std::string made = generate("gen_locale_data.py", "data");
  auto second_line = [](const std::string &s) {
    size_t a = s.find('\n') + 1;
    return s.substr(a, s.find('\n', a) - a);
  };
  if (second_line(made) != second_line(committed))
    GTEST_SKIP() << "sources differ: " << second_line(made);
  EXPECT_TRUE(made == committed) << "rerun: python3 tools/gen/gen_locale_data.py";
}

}  // namespace
