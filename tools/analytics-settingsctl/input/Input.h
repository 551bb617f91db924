#pragma once

#include <string>

namespace settingsctl {

/// The whole of a file that was named on the command line.
struct Input {
  std::string path;  ///< as it was named; "-" for standard input
  std::string name;  ///< as messages call it: the path, or "standard input"
  std::string text;  ///< all bytes; never empty
};

/// Reads a file whole, "-" from standard input.
///
/// Throws `Failure` where the file is missing, a directory, unreadable, empty, larger than 64 MiB
/// or changed while it was read. Never waits for a pipe that nobody writes to.
Input ReadInput(const std::string& path);

}  // namespace settingsctl
