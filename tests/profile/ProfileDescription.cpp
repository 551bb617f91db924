#include "tests/profile/ProfileDescription.h"

#include <algorithm>
#include <sstream>

#include <analytics/Calibration.h>
#include <analytics/DocumentNode.h>

#include "tests/profile/CalibrationText.h"
#include "tests/support/Nodes.h"

namespace tests {
namespace {

using analytics::DocumentNode;
using analytics::ProfileDoc;
using analytics::types::Point;
using Nodes = std::vector<NodePtr>;

constexpr int kMissing = -1;        // the default of each integer that is read
constexpr Point kPlace = {-7, -7};  // a point before it is read
constexpr char kPointQry[] = ".//tt:Point";

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

std::string ListOrNone(const std::string& list) { return list.empty() ? " none" : list; }

/// Writes the text for one profile, element by element.
class Description {
 public:
  explicit Description(ProfileDoc& profile) : m_profile(profile) {}

  std::string Text() {
    const Nodes engines = Owned(m_profile.SelectEngines(""));
    const Nodes rules = Owned(m_profile.SelectRules(""));
    const Nodes eventSinks = Owned(m_profile.SelectEventSinks(""));
    m_text << "engines: " << engines.size() << "\nrules: " << rules.size()
           << "\nevent sinks: " << eventSinks.size() << '\n';
    AddCounts();
    AddElements("engine", engines);
    AddElements("rule", rules);
    for (std::size_t index = 0; index < eventSinks.size(); ++index) {
      AddTitle("event sink", index, *eventSinks[index]);
    }
    AddActivity(rules);
    return m_text.str();
  }

 private:
  void AddCounts() {
    std::vector<Point> points;
    m_profile.GetPoints(points, "//tt:Point");
    m_text << "simple items of the schema: " << All(m_profile, "//tt:SimpleItem").size()
           << "\nelement items of the schema: " << All(m_profile, "//tt:ElementItem").size()
           << "\npoints of the schema: " << points.size() << '\n';
  }

  void AddTitle(const std::string& kind, std::size_t index, DocumentNode& element) {
    m_text << '\n'
           << kind << ' ' << index + 1 << ": type " << Quoted(element.GetProperty("Type"))
           << ", name " << Quoted(element.GetProperty("Name")) << '\n';
  }

  void AddElements(const std::string& kind, const Nodes& elements) {
    for (std::size_t index = 0; index < elements.size(); ++index) {
      AddTitle(kind, index, *elements[index]);
      AddParameters(elements[index].get());
    }
  }

  void AddParameters(DocumentNode* element) {
    m_text << "  simple items that queries reach: "
           << All(m_profile, ProfileDoc::SimpleItemQry(true), element).size()
           << "\n  element items that queries reach: "
           << All(m_profile, ProfileDoc::ElementItemQry(true), element).size() << '\n';
    for (const NodePtr& item : ItemsOfAnyNamespace("SimpleItem", element)) {
      AddSimpleItem(*item, element);
    }
    for (const NodePtr& item : ItemsOfAnyNamespace("ElementItem", element)) AddElementItem(*item);
    AddCalibration(element);
  }

  Nodes ItemsOfAnyNamespace(const std::string& tag, DocumentNode* element) {
    return All(m_profile, "*[local-name() = 'Parameters']/*[local-name() = '" + tag + "']",
               element);
  }

  void AddSimpleItem(DocumentNode& item, DocumentNode* element) {
    const std::string name = item.GetProperty("Name");
    m_text << "  simple item " << Quoted(name) << " = " << Quoted(item.GetProperty("Value"))
           << ": read " << Quoted(m_profile.GetSimpleItemValue(name, element, true))
           << ", as integer " << m_profile.GetSimpleItemValue(name, kMissing, element, true)
           << '\n';
  }

  void AddElementItem(DocumentNode& item) {
    m_text << "  element item " << Quoted(item.GetProperty("Name"))
           << "\n    points:" << ListOrNone(Points(item)) << "\n    line:" << Line(item)
           << "\n    places:" << ListOrNone(Places(item))
           << "\n    rectangles:" << ListOrNone(Rectangles(item)) << '\n';
  }

  std::string Points(DocumentNode& item) {
    std::vector<Point> points;
    m_profile.GetPoints(points, kPointQry, &item);
    std::string text;
    for (const Point& point : points) text += ' ' + PointText(point);
    return text;
  }

  std::string Line(DocumentNode& item) {
    Point line[2] = {kPlace, kPlace};
    return m_profile.GetLine(line, kPointQry, &item) ? ' ' + PairText(line) : " none";
  }

  std::string Places(DocumentNode& item) {
    std::string text;
    for (const NodePtr& node : All(m_profile, ".//*[@x or @y]", &item)) {
      Point place = kPlace;
      m_profile.PointFromNode(node.get(), place);
      text += ' ' + PointText(place);
    }
    return text;
  }

  std::string Rectangles(DocumentNode& item) {
    std::string text;
    for (const NodePtr& node :
         All(m_profile, ".//*[@left and @top and @right and @bottom]", &item)) {
      Point corners[2] = {kPlace, kPlace};
      m_profile.GetRectangle(corners, ".", node.get());
      text += ' ' + PairText(corners);
    }
    return text;
  }

  void AddCalibration(DocumentNode* element) {
    analytics::Calibration calibration;
    FillCalibration(calibration);
    const std::string before = CalibrationText(calibration);
    m_profile.GetCalibration(calibration, element);
    const std::string after = CalibrationText(calibration);
    m_text << "  calibration: " << (after == before ? "none" : after) << '\n';
  }

  const char* State(const std::string& type) {
    return m_profile.RuleIsActive(type) ? "active\n" : "not active\n";
  }

  void AddActivity(const Nodes& rules) {
    m_text << '\n';
    std::vector<std::string> seen = {""};
    for (const NodePtr& rule : rules) {
      const std::string type = rule->GetProperty("Type");
      if (std::count(seen.begin(), seen.end(), type) > 0) continue;
      seen.push_back(type);
      m_text << "type " << Quoted(type) << ": number " << Owned(m_profile.SelectRules(type)).size()
             << ", " << State(type);
    }
    m_text << "any type: " << State("") << "active rules:";
    std::string active;
    for (const std::string& type : m_profile.ActiveRules()) active += ' ' + Quoted(type);
    m_text << ListOrNone(active) << '\n';
  }

  ProfileDoc& m_profile;
  std::ostringstream m_text;
};

}  // namespace

std::string Describe(ProfileDoc& profile) { return Description(profile).Text(); }

}  // namespace tests
