#pragma once

#include <CLI/CLI.hpp>

namespace settingsctl {

/// Each adds one command to the program, in the order in which the help lists them. A command's
/// callback throws `CLI::RuntimeError` for an exit status other than 0, and `Failure` for one with
/// a message.
void AddSettingsCommand(CLI::App& app);
void AddGetCommand(CLI::App& app);
void AddExpandCommand(CLI::App& app);
void AddProfileCommand(CLI::App& app);
void AddCheckCommand(CLI::App& app);
void AddDrawCommand(CLI::App& app);
void AddSetCommand(CLI::App& app);
void AddDeleteRulesCommand(CLI::App& app);
void AddWatchCommand(CLI::App& app);
void AddAvailableCommand(CLI::App& app);
void AddReserveCommand(CLI::App& app);

}  // namespace settingsctl
