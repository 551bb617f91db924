#include "check/ProfileChecks.h"

#include "input/LineNumbers.h"

namespace settingsctl {

void CheckProfile(analytics::ProfileDoc& profile, Findings& findings) {
  const CheckedProfile checked = {profile, ProfileVocabulary::OfSettings(), findings,
                                  AllElements(profile)};
  if (!CheckQueries(checked)) return;
  CheckOwners(checked);
  CheckParameters(checked);
  CheckItems(checked);
  CheckGeometry(checked);
  CheckCalibrations(checked);
}

}  // namespace settingsctl
