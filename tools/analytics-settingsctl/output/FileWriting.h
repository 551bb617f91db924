#pragma once

#include <string>

namespace settingsctl {

/// Writes a file so that at any moment, also after a failure, it is either as it was or complete.
///
/// The text goes into a new file in the same directory, which takes the old one's place once it is
/// on the disk; it keeps its mode and, where the caller may give files away, its owner, and a
/// symbolic link stays one, also where the file that it leads to does not exist yet. A further hard
/// link keeps the old text. Devices and pipes are written to as they are, "-" is standard output.
/// Throws `Failure` where anything of it does not succeed, or where the file may not be written.
void WriteFile(const std::string& path, const std::string& text);

}  // namespace settingsctl
