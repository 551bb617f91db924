#pragma once

#include <string>

namespace bench {

/// An analytics profile as a camera holds it: one engine with a calibration, and rules, each with
/// five simple items and a polygon. Two rules of three are active.
struct Profile {
  int rules = 100;
  int types = 8;
  int corners = 8;

  std::string Text() const;
};

/// XPath of the rule in the middle of a profile.
std::string MiddleRuleQry(const Profile& profile);

/// A type of rules; a profile has those from 0 to `types` - 1.
std::string TypeOf(int number);

/// A settings file that has every setting, two pipes and eight variables.
std::string SettingsText();

/// Makes known where the settings file and other files of this program lie.
void SetDirectory(const std::string& directory);

/// Path of a file in that directory.
std::string PathOf(const std::string& name);

/// All of a text but its blanks, so that texts are the same that differ in their layout only.
std::string Compact(const std::string& text);

}  // namespace bench
