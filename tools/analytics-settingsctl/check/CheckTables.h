#pragma once

#include <vector>

#include "check/Checks.h"

namespace settingsctl {

/// The checks of settings files, and of both kinds of files where they came first.
const std::vector<Check>& SettingsCheckTable();

/// The checks of profiles.
const std::vector<Check>& ProfileCheckTable();

}  // namespace settingsctl
