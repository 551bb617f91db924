#pragma once

#include <string>

namespace settingsctl {

/// What `patch` needs to make the new text of the old one, with three lines of context; empty if
/// the texts are equal.
std::string UnifiedDiff(const std::string& oldName, const std::string& oldText,
                        const std::string& newName, const std::string& newText);

}  // namespace settingsctl
