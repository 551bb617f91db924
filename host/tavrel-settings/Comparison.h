#pragma once

#include <string>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

/// Whether a pattern, as `TavrelSettingsClient` describes it, matches a group.
bool Matches(const std::string& pattern, const std::string& group);

/// The groups that a pattern matches.
core::IniFile::Groups Matching(const std::string& pattern, const core::IniFile::Groups& groups);

/// What turns `before` into `after` when it is merged: new groups, new and changed keys, and marks
/// for what is gone.
core::IniFile Changes(const core::IniFile::Groups& before, const core::IniFile::Groups& after);

/// Whether there is neither a setting nor a mark.
bool IsEmpty(const core::IniFile& changes);

}  // namespace settings
}  // namespace tavrel
