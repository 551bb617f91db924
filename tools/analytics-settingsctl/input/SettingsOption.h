#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace settingsctl {

/// Adds the option --settings FILE.
inline void AddSettingsOption(CLI::App& command, std::string& file) {
  command.add_option("--settings", file, "Settings file; else the one that the library finds")
      ->type_name("FILE");
}

}  // namespace settingsctl
