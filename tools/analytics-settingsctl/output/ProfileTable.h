#pragma once

#include <ostream>

#include "input/ProfileContents.h"
#include "output/Json.h"

namespace settingsctl {

/// Writes what a profile holds as tables of at most 80 columns.
void WriteProfile(std::ostream& out, const std::string& name, const ProfileContents& contents);

/// The same as a document for other programs.
Json ProfileJson(const std::string& name, const ProfileContents& contents);

}  // namespace settingsctl
