#pragma once

#include <string>

namespace tests {

/// A directory of its own for one test, removed with all it holds.
class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();

  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::string& Path() const { return m_path; }

  /// Path of a file in the directory, which need not exist.
  std::string PathOf(const std::string& name) const { return m_path + "/" + name; }

  /// Writes a file and gives its path.
  std::string Write(const std::string& name, const std::string& text) const;

 private:
  std::string m_path;
};

/// All bytes of a file; empty if it cannot be read.
std::string FileText(const std::string& path);

}  // namespace tests
