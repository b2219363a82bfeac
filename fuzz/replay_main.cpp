// Runs a fuzz target over stored inputs, without libFuzzer: the folders named on the command line, of which
// the first must hold some. Ends with an abort at the first input that breaks the target.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

#include "fuzz_target.h"

namespace {

std::set<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  if (!std::filesystem::exists(folder)) return {};
  return {std::filesystem::directory_iterator(folder), {}};
}

void replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  // Told before, since a broken target does not come back.
  std::printf("%s\n", file.c_str());
  std::fflush(stdout);
  fuzz::tryInput(bytes);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || filesIn(argv[1]).empty()) throw std::runtime_error("there is nothing to replay");
  for (int i = 1; i < argc; ++i) {
    for (const std::filesystem::path& file : filesIn(argv[i])) replay(file);
  }
}
