#pragma once

#include "CommandLine.h"

namespace settingsctl {

/// Each adds one command to the program, in the order in which the help lists them. A command's
/// callback throws `ExitStatus` for an exit status other than 0, and `Failure` for one with a
/// message.
void AddSettingsCommand(CommandLine& program);
void AddGetCommand(CommandLine& program);
void AddExpandCommand(CommandLine& program);
void AddProfileCommand(CommandLine& program);
void AddCheckCommand(CommandLine& program);
void AddDrawCommand(CommandLine& program);
void AddSetCommand(CommandLine& program);
void AddDeleteRulesCommand(CommandLine& program);
void AddWatchCommand(CommandLine& program);
void AddAvailableCommand(CommandLine& program);
void AddReserveCommand(CommandLine& program);

}  // namespace settingsctl
