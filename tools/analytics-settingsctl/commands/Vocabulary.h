#pragma once

#include <string>

namespace settingsctl {

/// As `LoadSettingsFile`, for commands that only need the vocabulary of profiles: if ANALYTICS_INI
/// is set but its file cannot be used, a note goes to standard error.
///
/// @return how messages call the file; empty where the built-in settings apply
std::string LoadVocabulary(const std::string& file);

}  // namespace settingsctl
