#pragma once

#include <string>

namespace settingsctl {

/// Writes one line to standard error, behind the program's name. Control characters, which names of
/// files may hold, are made visible.
void PrintMessage(const std::string& message);

}  // namespace settingsctl
