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

}  // namespace settingsctl
