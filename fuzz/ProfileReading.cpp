#include "fuzz/ProfileReading.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include <analytics/Calibration.h>
#include <analytics/DocumentNode.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/NumberModel.h"
#include "fuzz/Tree.h"

namespace fuzz {
namespace {

using analytics::types::Point;

bool HasAttribute(const xmlNode* element, const char* name, const std::string& value) {
  const xmlAttr* const attribute = PlainAttribute(element, name);
  return attribute && TextOf(reinterpret_cast<const xmlNode*>(attribute)) == value;
}

int NumberOf(const xmlNode* element, const char* name, int fallback) {
  return IntOf(PropertyText(element, name), fallback);
}

bool AreSame(const Point& one, const Point& other) { return one.x == other.x && one.y == other.y; }

void RequireSamePoints(const Point (&answer)[2], const Point (&expected)[2], const char* what) {
  Require(AreSame(answer[0], expected[0]) && AreSame(answer[1], expected[1]), what);
}

void ReadRectangle(const std::vector<xmlNode*>& elements, Point (&rectangle)[2]) {
  if (elements.empty()) return;
  rectangle[0].x = NumberOf(elements[0], "left", rectangle[0].x);
  rectangle[0].y = NumberOf(elements[0], "top", rectangle[0].y);
  rectangle[1].x = NumberOf(elements[0], "right", rectangle[1].x);
  rectangle[1].y = NumberOf(elements[0], "bottom", rectangle[1].y);
}

void ReadLine(const std::vector<xmlNode*>& points, Point (&line)[2]) {
  if (points.size() < 2) return;
  for (std::size_t index = 0; index < 2; ++index)
    line[index] = {NumberOf(points[index], "x", 0), NumberOf(points[index], "y", 0)};
}

void CompareCalibration(analytics::ProfileDoc& profile, const ProfileReading& reading,
                        xmlNode* rule, analytics::DocumentNode* context, int start) {
  Point nearLeft[2] = {{start, start + 1}, {start + 2, start + 3}};
  Point nearWidth[2] = {{start + 4, start}, {start, start + 4}};
  Point farWidth[2] = {{start + 5, start}, {start, start + 5}};
  analytics::Calibration calibration;
  calibration.SetNearLeftSize(nearLeft);
  calibration.SetNearWidth(nearWidth);
  calibration.SetFarWidth(farWidth);
  calibration.SetPhysicalHeight(start);
  Require(Call([&] { return profile.GetCalibration(calibration, context); }), "a calibration");
  ReadRectangle(reading.Pieces(rule, "ObjectAtNearLeft"), nearLeft);
  ReadLine(reading.Points(reading.Pieces(rule, "NearWidth")), nearWidth);
  ReadLine(reading.Points(reading.Pieces(rule, "FarWidth")), farWidth);
  const std::vector<xmlNode*> heights = reading.Pieces(rule, "PhysicalHeight");
  RequireSamePoints(calibration.NearLeftSize(), nearLeft, "the near left size");
  RequireSamePoints(calibration.NearWidth(), nearWidth, "the near width");
  RequireSamePoints(calibration.FarWidth(), farWidth, "the far width");
  RequireSame(calibration.PhysicalHeight(), IntOf(heights.empty() ? "" : TextOf(heights[0]), start),
              "the physical height");
}

void ComparePoints(analytics::ProfileDoc& profile, const ProfileReading& reading, xmlNode* context,
                   analytics::DocumentNode* node) {
  const std::vector<xmlNode*> expected = reading.Points({context});
  std::vector<Point> points(1);
  const std::string query = std::string(reading.Names().onvifPrefix) + ":Point";
  const bool areThere = Call([&] {
    points.resize(1);  // a call that runs out of memory leaves what it has appended so far
    return profile.GetPoints(points, query, node);
  });
  Require(areThere == !expected.empty(), "whether there are points");
  Require(points.size() == expected.size() + 1, "how many points there are");
  for (std::size_t index = 0; index < expected.size(); ++index) {
    const Point point{NumberOf(expected[index], "x", 0), NumberOf(expected[index], "y", 0)};
    Require(AreSame(points[index + 1], point), "a point");
  }
}

void CompareRectangle(analytics::ProfileDoc& profile, const ProfileReading& reading, int start) {
  const Vocabulary& names = reading.Names();
  const std::vector<xmlNode*> elements = reading.All(names.kestalUri, "ObjectAtNearLeft");
  Point rectangle[2] = {{start, 1}, {2, start}};
  Point expected[2] = {{start, 1}, {2, start}};
  ReadRectangle(elements, expected);
  const std::string query = std::string("//") + names.kestalPrefix + ":ObjectAtNearLeft";
  const bool isThere = Call([&] { return profile.GetRectangle(rectangle, query); });
  Require(isThere == !elements.empty(), "whether it is there");
  RequireSamePoints(rectangle, expected, "a rectangle");
  if (elements.empty()) return;
  Point point{start, start};
  analytics::DocumentNode node(elements[0]);
  Require(Call([&] { return profile.PointFromNode(&node, point); }), "a point of a node");
  Require(AreSame(point, {NumberOf(elements[0], "x", start), NumberOf(elements[0], "y", start)}),
          "a point of a node");
}

}  // namespace

std::vector<xmlNode*> ProfileReading::Rules(const std::string& type) const {
  return ElementsOfType(m_names.onvifUri, m_names.rule, type);
}

std::vector<xmlNode*> ProfileReading::Engines(const std::string& type) const {
  return ElementsOfType(m_names.onvifUri, m_names.engine, type);
}

std::vector<xmlNode*> ProfileReading::EventSinks(const std::string& type) const {
  return ElementsOfType(m_names.kestalUri, m_names.eventSink, type);
}

std::vector<xmlNode*> ProfileReading::All(const char* uri, const char* tag) const {
  return ElementsOf(m_document, uri, tag);
}

std::vector<xmlNode*> ProfileReading::ElementsOfType(const char* uri, const char* tag,
                                                     const std::string& type) const {
  std::vector<xmlNode*> elements = All(uri, tag);
  if (type.empty()) return elements;
  const auto isOther = [&](const xmlNode* element) {
    // A double quote would end the text that the type is compared with.
    return type.find('"') != std::string::npos || !HasAttribute(element, "Type", type);
  };
  elements.erase(std::remove_if(elements.begin(), elements.end(), isOther), elements.end());
  return elements;
}

bool ProfileReading::IsActive(const std::string& type) const {
  const std::vector<xmlNode*> rules = Rules(type);
  return std::any_of(rules.begin(), rules.end(),
                     [this](xmlNode* rule) { return ItemNumber(rule, "Active", true, 0) != 0; });
}

std::vector<std::string> ProfileReading::ActiveTypes() const {
  std::vector<std::string> types;
  for (xmlNode* const rule : Rules("")) {
    const std::string type = PropertyText(rule, "Type");
    const bool isKnown = std::find(types.begin(), types.end(), type) != types.end();
    if (ItemNumber(rule, "Active", true, 0) != 0 && !type.empty() && !isKnown)
      types.push_back(type);
  }
  return types;
}

std::vector<xmlNode*> ProfileReading::AllParameters() const {
  return All(m_names.onvifUri, "Parameters");
}

std::vector<xmlNode*> ProfileReading::Items(xmlNode* context, const char* tag,
                                            bool throughParameters) const {
  std::vector<xmlNode*> parents{context ? context : xmlDocGetRootElement(m_document)};
  if (throughParameters) parents = ChildrenOf(parents, m_names.onvifUri, "Parameters");
  return ChildrenOf(parents, m_names.onvifUri, tag);
}

xmlNode* ProfileReading::Item(xmlNode* context, const std::string& name,
                              bool throughParameters) const {
  // A single quote would end the text that the name is compared with.
  if (name.find('\'') != std::string::npos) return nullptr;
  for (xmlNode* const item : Items(context, "SimpleItem", throughParameters)) {
    if (HasAttribute(item, "Name", name)) return item;
  }
  return nullptr;
}

std::string ProfileReading::ItemText(xmlNode* context, const std::string& name,
                                     bool throughParameters) const {
  return PropertyText(Item(context, name, throughParameters), "Value");
}

int ProfileReading::ItemNumber(xmlNode* context, const std::string& name, bool throughParameters,
                               int fallback) const {
  return IntOf(ItemText(context, name, throughParameters), fallback);
}

std::vector<xmlNode*> ProfileReading::Pieces(xmlNode* context, const char* tag) const {
  std::vector<xmlNode*> named;
  for (xmlNode* const item : Items(context, "ElementItem", true)) {
    if (HasAttribute(item, "Name", "Calibration")) named.push_back(item);
  }
  return ChildrenOf(ChildrenOf(named, m_names.kestalUri, "Calibration"), m_names.kestalUri, tag);
}

std::vector<xmlNode*> ProfileReading::Points(const std::vector<xmlNode*>& parents) const {
  return ChildrenOf(parents, m_names.onvifUri, "Point");
}

void CompareGeometry(analytics::ProfileDoc& profile, const ProfileReading& reading, xmlNode* rule,
                     int start) {
  const std::unique_ptr<analytics::DocumentNode> node(rule ? new analytics::DocumentNode(rule)
                                                           : nullptr);
  CompareCalibration(profile, reading, rule, node.get(), start);
  if (rule) ComparePoints(profile, reading, rule, node.get());
  CompareRectangle(profile, reading, start);
}

}  // namespace fuzz
