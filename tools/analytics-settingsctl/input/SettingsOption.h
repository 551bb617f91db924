#pragma once

#include <string>

#include "CommandLine.h"

namespace settingsctl {

/// Adds the option --settings FILE.
inline void AddSettingsOption(const Command& command, std::string& file) {
  command.Add("--settings", file, "Settings file; else the one that the library finds")
      .TypeName("FILE");
}

}  // namespace settingsctl
