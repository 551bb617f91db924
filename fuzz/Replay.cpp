// Runs a target over the files and directories named on the command line, without libFuzzer: so the
// inputs kept with the sources are tests of every build, whatever the compiler.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Entry.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool Run(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return false;
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
  return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  LLVMFuzzerInitialize(&argumentCount, &arguments);
  int inputs = 0;
  for (int index = 1; index < argumentCount; ++index) {
    for (const fs::path& file : FilesOf(arguments[index])) {
      if (!Run(file)) return 2;
      ++inputs;
    }
  }
  std::fprintf(stderr, "%d inputs\n", inputs);
  return inputs > 0 ? 0 : 1;  // a test without inputs would prove nothing
}
