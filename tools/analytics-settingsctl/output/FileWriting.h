#pragma once

#include <string>

namespace settingsctl {

/// Writes a file so that at any moment, also after a failure, it is either as it was or complete.
///
/// The text goes into a new file in the same directory, which takes the old one's place once it is
/// on the disk; see `files::Replacement` for what it keeps. A symbolic link stays one, also where
/// the file that it leads to does not exist yet. Devices and pipes are written to as they are, "-"
/// is standard output. Throws `Failure` where anything of it does not succeed, where nobody may
/// write the file, or where it would change its owner or group.
void WriteFile(const std::string& path, const std::string& text);

}  // namespace settingsctl
