#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "check/Findings.h"

namespace settingsctl {

/// How files are checked.
struct CheckOptions {
  std::optional<FileKind> kind;   ///< none: told by the content
  std::set<std::string> without;  ///< names of checks that are switched off
  std::string settings;           ///< how messages call the settings file; empty if it has no name
};

/// What came of the check of some files.
struct CheckReport {
  std::vector<Finding> findings;  ///< in the order of the files, then by line
  bool isComplete = true;         ///< whether each file could be read
};

/// Checks files, with the settings that the library has now for the profiles among them.
///
/// Changes the library's settings: those of the last settings file stay loaded.
CheckReport CheckFiles(const std::vector<std::string>& paths, const CheckOptions& options);

/// Checks the text of one profile that is well-formed; for measuring.
std::vector<Finding> CheckProfileText(const std::string& name, const std::string& text);

}  // namespace settingsctl
