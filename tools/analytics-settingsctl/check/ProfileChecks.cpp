#include "check/ProfileChecks.h"

#include "input/LineNumbers.h"

namespace settingsctl {

void CheckProfile(analytics::ProfileDoc& profile, Findings& findings, const std::string& settings) {
  CheckedProfile checked = {profile, ProfileVocabulary::OfSettings(), findings,
                            AllElements(profile), settings};
  const UsableNamespaces usable = CheckQueries(checked);
  if (!usable.onvif) return;
  CheckOwners(checked);
  CheckParameters(checked);
  CheckItems(checked);
  CheckGeometry(checked);
  if (usable.vendors) CheckCalibrations(checked);
}

}  // namespace settingsctl
