#include "check/SettingsChecks.h"

#include "check/Elements.h"
#include "input/LineNumbers.h"

namespace settingsctl {

CheckedSettings::CheckedSettings(xmlNode* rootElement, Findings& gathered)
    : root(rootElement), elements(AllElements(rootElement)), findings(gathered) {
  for (xmlNode* element : elements) {
    if (const Setting* setting = SettingOf(element)) found[setting].push_back(element);
  }
}

void CheckSettings(xmlNode* root, Findings& findings) {
  const CheckedSettings settings(root, findings);
  CheckSettingElements(settings);
  CheckSettingValues(settings);
  CheckVariables(settings);
}

}  // namespace settingsctl
