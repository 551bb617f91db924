// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <analytics/types/Point.h>

#include <analytics/Document.h>
#include <analytics/Export.h>

namespace analytics {

class Calibration;

/// An analytics profile: rules, engines and event sinks in the ONVIF analytics vocabulary, extended
/// by the vendor's namespace.
///
/// Rules and engines are elements of the ONVIF namespace, event sinks of the vendor's, found at any
/// depth; the URI of the namespace decides, not the prefix that a file writes. Their parameters are
/// `<tt:Parameters><tt:SimpleItem Name="" Value=""/><tt:ElementItem Name="">..</tt:ElementItem>`.
/// Queries compare "Type" and "Name" in no namespace; attributes are read in any, see
/// `DocumentNode::GetProperty`.
///
/// Queries: each call takes tags and prefixes from `Settings`, each search context the prefixes'
/// URIs. After a change of the settings an open profile needs `CreateSearchContext()`: until then a
/// new prefix selects nothing, or what it was bound to before. Tags, prefixes, types and names are
/// put into queries unescaped. A type with a double quote or an item name with a single quote
/// becomes part of the expression and can select, change or delete anything:
/// `DeleteRules("x\" or \"1\"=\"1")` deletes every rule. Callers must refuse such texts where they
/// come from outside the product, with `analytics/Text.h`:
///
///     if (!analytics::text::IsQueryType(type)) return false;  // item names: IsQueryItemName
///
/// Ownership: as `Document`. With a context of another document that one is read and changed.
///
/// Errors: as `Document`; also `std::length_error` for texts near the maximum size and whatever the
/// platform's `Trace` and `Calibration` throw get out.
///
/// Threads: one profile is used by one thread at a time. Profiles read the settings without a lock,
/// and the first good parse or query by type or name makes them: before different threads use
/// profiles, one thread parses one or calls an operation of `Settings`; during
/// `Settings::LoadSettings` no thread uses a profile.
class ANALYTICS_API ProfileDoc : public Document {
 public:
  /// Makes a closed profile.
  ProfileDoc();

  /// Closes the profile.
  ~ProfileDoc() override;

  /// Reads a point from the attributes "x" and "y" of `node`; where one is absent, empty or blank
  /// the coordinate keeps its value. Gives false, with the point unchanged, only for a null `node`.
  bool PointFromNode(DocumentNode* node, types::Point& point) override;

  /// Makes the search context with the ONVIF and the vendor's prefix bound as the settings now give
  /// them; one that is both is the vendor's, an empty one selects nothing.
  ///
  /// @return whether there is a search context now: not for a closed profile
  bool CreateSearchContext() override;

  /// The first rule of a type, in document order.
  ///
  /// @param type  compared exactly with the attribute "Type"; empty means any type, or none
  /// @return a new node that the caller deletes; null if there is none
  DocumentNode* SelectRule(const std::string& type);

  /// All rules of a type, in document order; else as `SelectRule`.
  std::vector<DocumentNode*> SelectRules(const std::string& type);

  /// Takes all rules of a type, also those within others, out of the profile and frees them; gives
  /// their number. An empty type deletes nothing: an empty filter must not wipe all rules.
  int DeleteRules(const std::string& type);

  /// The first engine of a type; else as `SelectRule`.
  DocumentNode* SelectEngine(const std::string& type);

  /// All engines of a type; else as `SelectRules`.
  std::vector<DocumentNode*> SelectEngines(const std::string& type);

  /// All event sinks of a type; else as `SelectRules`.
  std::vector<DocumentNode*> SelectEventSinks(const std::string& type);

  /// Relative XPath text of the simple items: "tt:Parameters/tt:SimpleItem", with the settings'
  /// prefix, from a rule or engine, or "tt:SimpleItem" from a "Parameters" element.
  static std::string SimpleItemQry(bool throughParameters);

  /// Relative XPath text of the element items; else as `SimpleItemQry`.
  static std::string ElementItemQry(bool throughParameters);

  /// Value of the first simple item of a name.
  ///
  /// @param name     compared exactly with the attribute "Name"
  /// @param context  a rule or engine, or its "Parameters" element if not `throughParameters`; null
  ///                 means the root element
  /// @return the text of "Value"; empty if there is no such item or attribute
  std::string GetSimpleItemValue(const std::string& name, DocumentNode* context,
                                 bool throughParameters = true);

  /// Refused: an integer needs all four arguments, and `(name, 0, node)` must not ask for the text
  /// at the root element with `node` as a truth value.
  template <typename Node>
  std::string GetSimpleItemValue(const std::string& name, DocumentNode* context,
                                 Node* node) = delete;

  /// The same as an integer; the default if there is no such item or its value is empty or blank, 0
  /// if the value starts with no number ("true"). No argument has a default, so that 0 or `NULL` as
  /// the second of two or three stays a context.
  int GetSimpleItemValue(const std::string& name, int defaultValue, DocumentNode* context,
                         bool throughParameters);

  /// Sets the value of the first simple item of a name in a rule or engine. Gives false, with
  /// nothing changed, if there is no such item.
  bool SetSimpleItemValue(const std::string& name, int value, DocumentNode* context = nullptr);

  /// Sets it to a text, see `DocumentNode::SetProperty`; else as the form for integers.
  bool SetSimpleItemValue(const std::string& name, const std::string& value,
                          DocumentNode* context = nullptr);

  /// Sets the value of the first simple item of a name, or appends a new item.
  ///
  /// What its query does not find is appended by every call, so that the profile grows without
  /// bound: most names that `text::IsQueryItemName` refuses ("Driver's side"), and any name without
  /// search context, outside the ONVIF namespace or after a change of its prefix.
  ///
  /// @param parameters  the "Parameters" element itself; null means the root element, to which
  ///                    nothing is appended
  /// @return always true, also when nothing was written because `parameters` is null or empty: kept
  ///         for compatibility, installed runtimes see it
  bool SetOrAddSimpleItemValue(const std::string& name, int value,
                               DocumentNode* parameters = nullptr);

  /// Sets it to a text, see `DocumentNode::SetProperty`; else as the form for integers.
  bool SetOrAddSimpleItemValue(const std::string& name, const std::string& value,
                               DocumentNode* parameters = nullptr);

  /// Whether a rule of a type, as in `SelectRule`, is active: its simple item "Active" starts with
  /// an integer other than 0. "true" is not active.
  bool RuleIsActive(const std::string& type);

  /// The distinct types of the active rules, without empty ones, in the order of their first active
  /// rule.
  std::vector<std::string> ActiveRules();

  /// Appends the points that `xpath` selects to a list, which is not cleared; gives whether there
  /// are any. A coordinate is 0 where its attribute, "x" or "y", is absent, empty or blank. What
  /// was appended before an exception stays.
  bool GetPoints(std::vector<types::Point>& points, const std::string& xpath,
                 DocumentNode* context = nullptr);

  /// Reads the first two points that `xpath` selects, as `GetPoints` does. Gives false, with the
  /// line unchanged, if there are fewer.
  bool GetLine(types::Point (&line)[2], const std::string& xpath, DocumentNode* context = nullptr);

  /// Reads (left, top) and (right, bottom) from the attributes of these names of the first element
  /// that `xpath` selects; where one is absent, empty or blank the coordinate keeps its value.
  /// Gives false, with the rectangle unchanged, if nothing is selected.
  bool GetRectangle(types::Point (&rect)[2], const std::string& xpath,
                    DocumentNode* context = nullptr);

  /// The camera calibration of a rule or engine: the vendor's "Calibration" element within the
  /// ONVIF element item named "Calibration"; several count as one.
  ///
  /// @param calibration  what the profile lacks keeps its value; all four setters are called anyway
  /// @return always true; to know whether there is a calibration, select its element item
  bool GetCalibration(Calibration& calibration, DocumentNode* context = nullptr);
};

}  // namespace analytics
