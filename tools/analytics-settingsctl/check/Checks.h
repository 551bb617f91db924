#pragma once

#include <string>
#include <vector>

namespace settingsctl {

/// How much a finding matters: an error means that something written in the file is lost, a warning
/// that the library reads something else than its writer may expect.
enum class Severity { kError, kWarning };

/// What a file is checked as.
enum class FileKind { kSettings, kProfile };

/// One check, as it is listed, explained and switched off.
struct Check {
  const char* name;
  const char* files;  ///< "settings", "profile" or "any"
  Severity severity;
  const char* description;  ///< one line: what is found
  const char* hint;         ///< one sentence: what to do
  const char* example;      ///< a fragment that is found
};

/// All checks, in the order in which they are listed.
const std::vector<Check>& AllChecks();

/// The check of a name; null if there is none.
const Check* FindCheck(const std::string& name);

/// "error" or "warning".
const char* SeverityName(Severity severity);

}  // namespace settingsctl
