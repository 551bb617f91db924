#pragma once

#include <optional>
#include <string>

#include "input/Input.h"

namespace settingsctl {

/// The environment variable that names the settings file.
constexpr char kSettingsVariable[] = "ANALYTICS_INI";

/// The settings file that the library has loaded.
struct SettingsFile {
  std::string path;            ///< as it was named or as the library resolves it
  std::string origin;          ///< how it was found, such as "ANALYTICS_INI"
  std::optional<Input> input;  ///< what was read; none where the file cannot be used
  std::string problem;         ///< why it cannot be used and what to do: a sentence; else empty
};

/// Has the library load the settings for this process from the very bytes that are returned.
///
/// @param file  the file or "-"; empty means the one that the library finds itself. A `file` that
///              cannot be used throws `Failure`; one that the library finds itself is a `problem`,
///              and the built-in settings apply.
SettingsFile LoadSettingsFile(const std::string& file);

/// Throws `Failure` of status 1 if the file has a problem, for commands that have printed what the
/// runtime gets all the same.
void RequireUsable(const SettingsFile& file);

}  // namespace settingsctl
