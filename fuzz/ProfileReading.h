#pragma once

#include <string>
#include <vector>

#include <libxml/tree.h>

#include <analytics/ProfileDoc.h>
#include <analytics/types/Point.h>

#include "fuzz/MadeProfile.h"

namespace fuzz {

/// Answers what the library answers about a profile, by walking its tree without XPath.
///
/// A context that is null stands for the root element.
class ProfileReading {
 public:
  ProfileReading(xmlDoc* document, const Vocabulary& names)
      : m_document(document), m_names(names) {}

  std::vector<xmlNode*> Rules(const std::string& type) const;
  std::vector<xmlNode*> Engines(const std::string& type) const;
  std::vector<xmlNode*> EventSinks(const std::string& type) const;

  bool IsActive(const std::string& type) const;
  std::vector<std::string> ActiveTypes() const;

  /// All elements that hold items, wherever they are.
  std::vector<xmlNode*> AllParameters() const;

  /// The first item of a name; null if there is none.
  xmlNode* Item(xmlNode* context, const std::string& name, bool throughParameters) const;
  std::string ItemText(xmlNode* context, const std::string& name, bool throughParameters) const;
  int ItemNumber(xmlNode* context, const std::string& name, bool throughParameters,
                 int fallback) const;

  /// The pieces of that tag in the calibrations of a rule.
  std::vector<xmlNode*> Pieces(xmlNode* context, const char* tag) const;

  /// The points that are children of some elements.
  std::vector<xmlNode*> Points(const std::vector<xmlNode*>& parents) const;

  /// All elements of a name, wherever they are.
  std::vector<xmlNode*> All(const char* uri, const char* tag) const;

  const Vocabulary& Names() const { return m_names; }

 private:
  std::vector<xmlNode*> ElementsOfType(const char* uri, const char* tag,
                                       const std::string& type) const;
  std::vector<xmlNode*> Items(xmlNode* context, const char* tag, bool throughParameters) const;

  xmlDoc* const m_document;
  const Vocabulary& m_names;
};

/// Compares points, lines, rectangles and the calibration of a rule with those of the tree.
///
/// @param start  what all values are before they are read
void CompareGeometry(analytics::ProfileDoc& profile, const ProfileReading& reading, xmlNode* rule,
                     int start);

}  // namespace fuzz
