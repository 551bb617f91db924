#pragma once

#include <string>

namespace files {

/// What the names of all new files that are to replace the one at `path` start with; digits and
/// dashes follow. Hidden, so that it is not in the way where a writer was killed.
std::string ReplacementPrefix(const std::string& path);

/// Removes, as far as that is allowed, the new files that killed writers of `path` left. To be
/// called only while nobody else replaces that file.
void RemoveAbandonedFiles(const std::string& path);

}  // namespace files
