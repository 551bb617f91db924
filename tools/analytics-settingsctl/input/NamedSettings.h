#pragma once

#include <string>
#include <vector>

#include "input/SettingsFile.h"

namespace settingsctl {

/// One of the settings that have a name of their own in the library.
struct NamedSetting {
  std::string name;                 ///< as its element is called, with its parents: "tags/rule"
  std::vector<std::string> values;  ///< as the library gives them; several for userdataPipe only
  bool isNumber;
  std::string source;  ///< "line 7", "missing: empty", "missing: default" or "built-in"
  int line;            ///< 0 where the file has no such element
};

/// All named settings as the library, which has loaded `file`, answers.
std::vector<NamedSetting> NamedSettings(const SettingsFile& file);

/// A variable that texts can refer to.
struct Variable {
  std::string name;
  std::string value;     ///< as it is written
  std::string expanded;  ///< as the library substitutes it; empty where there is a problem
  std::string problem;   ///< "never ends: a -> a" and the like; else empty
  int line;
};

/// The variables of the file, in document order; of several with one name only the first counts.
std::vector<Variable> Variables(const SettingsFile& file);

/// Value of a variable as the library finds it.
std::string VariableValue(const std::string& name);

}  // namespace settingsctl
