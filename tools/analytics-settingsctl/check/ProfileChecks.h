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
  ProfileVocabulary words;
  Findings& findings;
  std::vector<xmlNode*> elements;  ///< of the library's own tree, in document order
  std::string settings;            ///< how messages call the settings file; empty if it has no name

  /// Whether what seems to stand in the wrong place does. Where nothing is found, or a query fails,
  /// its place may well be right.
  bool placesAreKnown = true;
};

/// Runs all checks of profiles.
///
/// @param profile   open, its elements numbered by `NumberLines`
/// @param settings  how messages call the settings file; empty if it has no name
void CheckProfile(analytics::ProfileDoc& profile, Findings& findings, const std::string& settings);

/// The namespaces in which the library's queries find elements.
struct UsableNamespaces {
  bool onvif;
  bool vendors;
};

/// Compares what the file holds with what the library's own queries find, and takes the tags of
/// queries that fail out of the vocabulary, so that nothing is told that only follows from that.
///
/// @return for which namespaces the library's answers say something about the file
UsableNamespaces CheckQueries(CheckedProfile& checked);

/// The parts of `CheckProfile`, each of several checks.
void CheckOwners(const CheckedProfile& checked);
void CheckParameters(const CheckedProfile& checked);
void CheckItems(const CheckedProfile& checked);
void CheckGeometry(const CheckedProfile& checked);
void CheckCalibrations(const CheckedProfile& checked);

}  // namespace settingsctl
