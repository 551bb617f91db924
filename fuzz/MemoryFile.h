#pragma once

#include <string>

namespace fuzz {

/// A file in memory that the library reads by its path, written again for each input.
class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();

  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  const std::string& Path() const { return m_path; }

  /// Replaces what the file holds.
  void Write(const std::string& text) const;

 private:
  const int m_descriptor;
  const std::string m_path;
};

}  // namespace fuzz
