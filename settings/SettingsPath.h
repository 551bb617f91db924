#pragma once

#include <string>

namespace analytics {

/// Where the settings are if nothing says otherwise.
constexpr char kBuiltInSettingsPath[] = "/usr/local/kestal/analytics/conf/analytics.ini";

/// Path of the settings file: the first word that `ANALYTICS_INI` expands to as in a POSIX shell.
///
/// The raw text of the variable where the expansion fails; the built-in path where the variable is
/// not set or expands to no word. The first word may be empty, as `""` is.
std::string ResolveSettingsPath();

}  // namespace analytics
