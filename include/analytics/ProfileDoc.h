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
/// Rules and engines are elements of the ONVIF namespace, event sinks of the vendor's; they are
/// found at any depth. The tags and prefixes of all queries come from `analytics::Settings` at each
/// call, the prefixes' URIs each time a search context is made (after each parse). So a change of
/// the settings' prefixes takes the profile's queries with it only after the next parse or
/// `CreateSearchContext()`; until then they select nothing. A file may write any prefix: the
/// namespace URI decides.
///
/// Parameters hang below a rule or engine as
/// `<tt:Parameters><tt:SimpleItem Name="" Value=""/><tt:ElementItem Name="">..</tt:ElementItem>`.
///
/// Ownership, errors and threads: as `Document`. In addition the first profile parsed loads the
/// settings, and texts near the maximum string size give `std::length_error`. Types and names are
/// put into queries without escaping: a type with a double quote and an item name with a single
/// quote match nothing.
///
/// Geometry is in image coordinates, in pixels or whatever unit the profile uses.
class ANALYTICS_API ProfileDoc : public Document {
 public:
  /// Makes a closed profile.
  ProfileDoc();

  ~ProfileDoc() override;

  /// Reads a point from the attributes "x" and "y" of `node`.
  ///
  /// @param point  a coordinate whose attribute is absent, empty or blank keeps its value
  /// @return false, with the point unchanged, only if `node` is null
  bool PointFromNode(DocumentNode* node, types::Point& point) override;

  /// Makes the search context with the ONVIF and the vendor's prefix bound, as the settings now
  /// give them.
  ///
  /// @return whether there is a search context now; true also when libxml2 refuses a prefix (an
  ///         empty one), whose queries then select nothing
  bool CreateSearchContext() override;

  /// The first rule of a type.
  ///
  /// @param type  compared exactly with the attribute "Type"; empty means any type, or none
  /// @return a new node that the caller deletes; null if there is none
  DocumentNode* SelectRule(const std::string& type);

  /// All rules of a type, in document order; else as `SelectRule`.
  std::vector<DocumentNode*> SelectRules(const std::string& type);

  /// Takes all rules of a type out of the profile and frees them.
  ///
  /// @param type  compared exactly; empty deletes nothing, so that an empty filter can never wipe
  ///              all rules
  /// @return how many rules were deleted
  int DeleteRules(const std::string& type);

  /// The first engine of a type; else as `SelectRule`.
  DocumentNode* SelectEngine(const std::string& type);

  /// All engines of a type, in document order; else as `SelectRule`.
  std::vector<DocumentNode*> SelectEngines(const std::string& type);

  /// All event sinks of a type, in document order; else as `SelectRule`.
  std::vector<DocumentNode*> SelectEventSinks(const std::string& type);

  /// Relative XPath text of the simple items.
  ///
  /// @param throughParameters  true: for a rule or engine as context, "tt:Parameters/tt:SimpleItem"
  ///                           with the settings' prefix; false: for a "Parameters" element as
  ///                           context, "tt:SimpleItem"
  static std::string SimpleItemQry(bool throughParameters);

  /// Relative XPath text of the element items; else as `SimpleItemQry`.
  static std::string ElementItemQry(bool throughParameters);

  /// Value of a simple item.
  ///
  /// @param name               the item's "Name", compared exactly
  /// @param context            a rule or engine, or its "Parameters" element
  /// @param throughParameters  which of both `context` is, see `SimpleItemQry`
  /// @return the text of "Value"; empty if there is no such item or attribute
  std::string GetSimpleItemValue(const std::string& name, DocumentNode* context,
                                 bool throughParameters = true);

  /// Value of a simple item as an integer; else as the form for text.
  ///
  /// @param defaultValue  the answer if there is no such item or its value is empty or blank
  /// @return the number that the value starts with, 0 if it starts with none ("true")
  int GetSimpleItemValue(const std::string& name, int defaultValue, DocumentNode* context,
                         bool throughParameters);

  /// Sets the value of a simple item that exists.
  ///
  /// @param context  the rule or engine
  /// @return false, with nothing changed, if there is no such item
  bool SetSimpleItemValue(const std::string& name, int value, DocumentNode* context = nullptr);

  /// Sets the value of a simple item that exists; else as the form for integers.
  bool SetSimpleItemValue(const std::string& name, const std::string& value,
                          DocumentNode* context = nullptr);

  /// Sets the value of a simple item, appending the item if there is none.
  ///
  /// @param parameters  the "Parameters" element itself
  /// @return always true, also when nothing could be written because `parameters` is null or empty:
  ///         callers treat a profile without a place for the item as up to date
  bool SetOrAddSimpleItemValue(const std::string& name, int value,
                               DocumentNode* parameters = nullptr);

  /// Sets the value of a simple item, appending the item if there is none; else as the form for
  /// integers.
  bool SetOrAddSimpleItemValue(const std::string& name, const std::string& value,
                               DocumentNode* parameters = nullptr);

  /// Whether at least one rule of a type is active: its simple item "Active" starts with an integer
  /// other than 0. "true" is not active.
  ///
  /// @param type  as in `SelectRule`
  bool RuleIsActive(const std::string& type);

  /// The distinct types of the active rules, in the order in which they first occur; rules without
  /// a type are left out.
  std::vector<std::string> ActiveRules();

  /// Appends the points that `xpath` selects, in document order.
  ///
  /// @param points   appended to and never cleared, so that lists can be gathered
  /// @param xpath    selects the elements with the attributes "x" and "y"; an absent one is 0
  /// @param context  where a relative path starts; null means the root element
  /// @return whether anything was selected
  bool GetPoints(std::vector<types::Point>& points, const std::string& xpath,
                 DocumentNode* context = nullptr);

  /// The first two points that `xpath` selects.
  ///
  /// @return false, with the line unchanged, if there are fewer than two
  bool GetLine(types::Point (&line)[2], const std::string& xpath, DocumentNode* context = nullptr);

  /// A rectangle from the attributes of the first element that `xpath` selects.
  ///
  /// @param rect  set to (left, top) and (right, bottom); a coordinate whose attribute is absent,
  ///              empty or blank keeps its value
  /// @return false, with the rectangle unchanged, if nothing is selected
  bool GetRectangle(types::Point (&rect)[2], const std::string& xpath,
                    DocumentNode* context = nullptr);

  /// The camera calibration of a rule or engine: the vendor's "Calibration" element within the
  /// ONVIF element item named "Calibration".
  ///
  /// @param calibration  what the profile lacks keeps its value; all four setters are called in any
  ///                     case
  /// @param context      the rule or engine
  /// @return always true; to know whether there is a calibration, select its element item
  bool GetCalibration(Calibration& calibration, DocumentNode* context = nullptr);
};

}  // namespace analytics
