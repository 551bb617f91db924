#pragma once

#include <map>
#include <string>
#include <vector>

#include <libxml/tree.h>

#include <analytics/ProfileDoc.h>

#include "check/Findings.h"
#include "check/ProfileVocabulary.h"

namespace settingsctl {

/// A profile that the library has parsed, and what is found in it.
struct CheckedProfile {
  analytics::ProfileDoc& profile;
  const ProfileVocabulary words;
  Findings& findings;
  std::vector<xmlNode*> elements;  ///< of the library's own tree, in document order
};

/// Runs all checks of profiles.
///
/// @param profile  open, its elements numbered by `NumberLines`
void CheckProfile(analytics::ProfileDoc& profile, Findings& findings);

/// Compares what the file holds with what the library's own queries find.
///
/// @return whether the queries work: if not, what the library answers says nothing about the file
bool CheckQueries(const CheckedProfile& checked);

/// The parts of `CheckProfile`, each of several checks.
void CheckOwners(const CheckedProfile& checked);
void CheckParameters(const CheckedProfile& checked);
void CheckItems(const CheckedProfile& checked);
void CheckGeometry(const CheckedProfile& checked);
void CheckCalibrations(const CheckedProfile& checked);

}  // namespace settingsctl
