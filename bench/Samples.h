#pragma once

#include <string>

namespace bench {

/// Number of rules in the profile of all work that is measured with one profile only.
constexpr int kUsualRules = 100;

/// An analytics profile as a camera holds it: one engine with a calibration, and `rules` rules of
/// eight types, each with five simple items and a polygon of eight points. Two rules of three are
/// active.
std::string ProfileText(int rules);

/// XPath of the rule in the middle of `ProfileText(rules)`.
std::string MiddleRuleQry(int rules);

/// A settings file that has every setting, two pipes and four variables.
std::string SettingsText();

}  // namespace bench
