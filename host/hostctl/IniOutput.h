#pragma once

#include <ostream>

#include <tavrel/core/IniFile.h>

namespace hostctl {

/// Writes groups with their keys as a store has them, with a blank line between groups.
void WriteSettings(std::ostream& out, const tavrel::core::IniFile& settings);

/// Writes a change: "-[group]" for a removed group, and each other group with its new and changed
/// keys and "- key" for a removed one.
void WriteChanges(std::ostream& out, const tavrel::core::IniFile& changes);

}  // namespace hostctl
