#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tests {

TemporaryDirectory::TemporaryDirectory()
    : m_path((std::filesystem::temp_directory_path() / "analytics-test-XXXXXX").string()) {
  if (!mkdtemp(m_path.data())) throw std::runtime_error("cannot make " + m_path);
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryDirectory::Write(const std::string& name, const std::string& text) const {
  std::ofstream file(PathOf(name), std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("cannot write " + PathOf(name));
  return PathOf(name);
}

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace tests
