#pragma once

#include <utility>

#include <unistd.h>

namespace settingsctl {

/// Closes an open file at the end of its scope.
class FileDescriptor {
 public:
  /// @param number  what `open` gave; negative if it failed
  explicit FileDescriptor(int number) : m_number(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  ~FileDescriptor() {
    if (IsOpen()) close(m_number);
  }

  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  bool IsOpen() const { return m_number >= 0; }
  int Get() const { return m_number; }

 private:
  int m_number;
};

}  // namespace settingsctl
