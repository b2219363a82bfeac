// Runs a fuzz target over stored inputs, without libFuzzer: the folders named on the command line, of which
// the first must hold some. Ends with an abort at the first input that breaks the target.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  if (!std::filesystem::exists(folder)) return files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return bytes;
}

void replay(const std::filesystem::path& file) {
  const std::string bytes = bytesOf(file);
  // Told before, since a broken target does not come back.
  std::printf("%s\n", file.c_str());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 2 || filesIn(argv[1]).empty()) {
    std::fputs("There is nothing to replay\n", stderr);
    return 1;
  }
  for (int i = 1; i < argc; ++i) {
    for (const std::filesystem::path& file : filesIn(argv[i])) replay(file);
  }
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
