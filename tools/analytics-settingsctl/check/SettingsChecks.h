#pragma once

#include <map>
#include <vector>

#include <libxml/tree.h>

#include "check/Findings.h"
#include "check/SettingsVocabulary.h"

namespace settingsctl {

/// A settings file that the library has loaded, and what is found in it.
struct CheckedSettings {
  CheckedSettings(xmlNode* rootElement, Findings& gathered);

  xmlNode* root;
  std::vector<xmlNode*> elements;                         ///< all of them, in document order
  std::map<const Setting*, std::vector<xmlNode*>> found;  ///< the elements of each setting
  Findings& findings;
};

/// Runs all checks of settings files.
///
/// @param root  of a file whose settings `analytics::Settings` now has
void CheckSettings(xmlNode* root, Findings& findings);

/// The parts of the above, each of several checks.
void CheckSettingElements(const CheckedSettings& settings);
void CheckSettingValues(const CheckedSettings& settings);
void CheckVariables(const CheckedSettings& settings);

}  // namespace settingsctl
