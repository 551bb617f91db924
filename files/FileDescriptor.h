#pragma once

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace files {

/// Throws what `errno` says of a failed `action` on `path`, as a `std::system_error`, which is a
/// `std::runtime_error`.
[[noreturn]] inline void ThrowErrno(const char* action, const std::string& path) {
  const int error = errno;  // composing the message may change it
  throw std::system_error(error, std::generic_category(), std::string(action) + " " + path);
}

/// Passes on what a system call gave, or throws if it says that the call failed.
inline int Checked(int result, const char* action, const std::string& path) {
  if (result == -1) ThrowErrno(action, path);
  return result;
}

/// Owns a file descriptor.
class FileDescriptor {
 public:
  /// @param descriptor  what a system call gave; a failed call throws as `Checked` does
  FileDescriptor(int descriptor, const char* action, const std::string& path)
      : m_descriptor(Checked(descriptor, action, path)) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  ~FileDescriptor() {
    if (m_descriptor != -1) close(m_descriptor);
  }

  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  int Get() const { return m_descriptor; }

 private:
  int m_descriptor;
};

}  // namespace files
