#pragma once

#include <string>

namespace tests {

/// Notices that somebody has read a file, so that a test need not guess when.
class FileReads {
 public:
  /// @param path  of a file, which may be moved afterwards
  explicit FileReads(const std::string& path);
  ~FileReads();

  FileReads(const FileReads&) = delete;
  FileReads& operator=(const FileReads&) = delete;

  /// Waits until the file was read; if it is not within half a minute the test fails.
  void WaitForOne();

 private:
  int m_inotify;
};

}  // namespace tests
