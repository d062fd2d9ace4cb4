// Replay driver for compilers without libFuzzer: feeds every file named on the
// command line (or every file of a named folder) to LLVMFuzzerTestOneInput.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {
int run_file(const std::filesystem::path &path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  // An exact-size heap copy lets AddressSanitizer see a one-byte overrun.
  std::vector<uint8_t> copy(bytes.begin(), bytes.end());
  return LLVMFuzzerTestOneInput(copy.data(), copy.size());
}
}  // namespace

int main(int argc, char **argv) {
  std::size_t files = 0;
  for (int i = 1; i < argc; ++i) {
    std::filesystem::path p(argv[i]);
    if (std::filesystem::is_directory(p)) {
      for (const auto &e : std::filesystem::directory_iterator(p))
        if (e.is_regular_file()) { run_file(e.path()); ++files; }
    } else {
      run_file(p);
      ++files;
    }
  }
  std::printf("replayed %zu inputs\n", files);
  return 0;
}
