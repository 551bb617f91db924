#pragma once

#include <set>
#include <string>
#include <vector>

#include "check/Checks.h"

namespace settingsctl {

/// Something that a check found in a file.
struct Finding {
  const Check* check;  ///< a row of the table
  std::string file;    ///< as messages call it
  int line;            ///< 1 where no line is to blame
  std::string message;
};

/// Gathers what is found in one file.
class Findings {
 public:
  /// @param without  names of the checks that are switched off
  Findings(std::string file, std::set<std::string> without);

  /// Whether the check is switched on.
  bool IsWanted(const std::string& check) const { return m_without.count(check) == 0; }

  /// Notes a finding, unless its check is switched off.
  ///
  /// @param check    a name of the table
  /// @param message  one sentence without a full stop; control characters are made visible
  void Add(const std::string& check, int line, const std::string& message);

  /// All findings by line, those of one line in the order in which they were noted.
  std::vector<Finding> ByLine() const;

 private:
  const std::string m_file;
  const std::set<std::string> m_without;
  std::vector<Finding> m_findings;
};

/// A text from a file as messages show it: in quotes, on one line and not too long.
std::string Quoted(const std::string& text);

}  // namespace settingsctl
