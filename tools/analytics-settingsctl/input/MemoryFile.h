#pragma once

#include <string>

#include "input/FileDescriptor.h"

namespace settingsctl {

/// A file in memory, for library calls that take a path. The library then reads the very bytes that
/// were checked, whatever becomes of the file on disk, and a write to it can be looked at.
class MemoryFile {
 public:
  /// Holds `text` at first. Throws `Failure` where there is no memory for it.
  explicit MemoryFile(const std::string& text = {});

  /// A path that this process can open as long as this object lives.
  std::string Path() const;

  /// All bytes that it now holds.
  std::string Text() const;

 private:
  FileDescriptor m_file;
};

}  // namespace settingsctl
