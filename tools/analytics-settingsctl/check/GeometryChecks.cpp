#include <algorithm>

#include <analytics/DocumentNode.h>

#include "check/Elements.h"
#include "check/Number.h"
#include "check/ProfileChecks.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

const std::vector<std::string>& PointSides() {
  static const std::vector<std::string> s_sides = {"x", "y"};
  return s_sides;
}

const std::vector<std::string>& RectangleSides() {
  static const std::vector<std::string> s_sides = {"left", "top", "right", "bottom"};
  return s_sides;
}

bool IsInVocabulary(const ProfileVocabulary& words, const xmlNode* element) {
  const std::string uri = NamespaceOf(element);
  return uri == words.onvifNs || uri == words.kestalNs;
}

bool IsPoint(const ProfileVocabulary& words, const xmlNode* element) {
  return IsElement(element, words.onvifNs, "Point");
}

bool HasSide(xmlNode* element, const std::string& side) {
  return xmlHasProp(element, reinterpret_cast<const xmlChar*>(side.c_str())) != nullptr;
}

/// A rectangle may have any name: three of the four attributes tell it from other elements.
bool IsRectangle(const ProfileVocabulary& words, xmlNode* element) {
  if (!IsInVocabulary(words, element)) return false;
  const std::string name = NameOf(element);
  if (name == "Rectangle" || name == "ObjectAtNearLeft") return true;
  const auto& sides = RectangleSides();
  return std::count_if(sides.begin(), sides.end(),
                       [&](const std::string& side) { return HasSide(element, side); }) >= 3;
}

std::string ReadInstead(xmlNode* element) {
  return NameOf(element) == "Point" ? "0 is read, or a former value stays" : "a former value stays";
}

void CheckSide(const CheckedProfile& checked, xmlNode* element, const std::string& side) {
  const std::string text = Attribute(element, side.c_str());
  const std::string start = "the " + side + " of <" + WrittenName(element) + "> ";
  if (IsBlank(text)) {
    checked.findings.Add(
        "missing-coordinate", LineOf(element),
        start + (HasSide(element, side) ? "is empty: " : "is missing: ") + ReadInstead(element));
    return;
  }
  if (IsWholeNumber(text)) return;
  checked.findings.Add("coordinate-not-integer", LineOf(element),
                       start + "is " + Quoted(text) + ", which reads as " +
                           std::to_string(IntAttribute(element, side.c_str())));
}

void CheckSides(const CheckedProfile& checked, xmlNode* element,
                const std::vector<std::string>& sides) {
  for (const std::string& side : sides) CheckSide(checked, element, side);
}

void CheckOrder(const CheckedProfile& checked, xmlNode* element) {
  const auto& sides = RectangleSides();
  const bool isWhole = std::none_of(sides.begin(), sides.end(), [&](const std::string& side) {
    return IsBlank(Attribute(element, side.c_str()));
  });
  if (!isWhole) return;
  analytics::types::Point corners[2] = {};
  analytics::DocumentNode node(element);
  checked.profile.GetRectangle(corners, ".", &node);
  const auto add = [&](const std::string& what) {
    checked.findings.Add("inverted-rectangle", LineOf(element),
                         "the " + what + " of <" + WrittenName(element) + ">");
  };
  if (corners[0].x > corners[1].x) {
    add("left, " + std::to_string(corners[0].x) + ", is beyond the right, " +
        std::to_string(corners[1].x) + ",");
  }
  if (corners[0].y > corners[1].y) {
    add("top, " + std::to_string(corners[0].y) + ", is beyond the bottom, " +
        std::to_string(corners[1].y) + ",");
  }
}

/// The points that the library reads of a list.
std::size_t CountPoints(const CheckedProfile& checked, xmlNode* list) {
  std::vector<analytics::types::Point> points;
  analytics::DocumentNode node(list);
  checked.profile.GetPoints(points, checked.words.onvifPrefix + ":Point", &node);
  return points.size();
}

/// Lists whose points are in the vendor's namespace are the caller's own.
void CheckLength(const CheckedProfile& checked, xmlNode* list) {
  const std::string name = NameOf(list);
  const bool isLine = name == "Polyline" || name == "Line";
  if ((!isLine && name != "Polygon") || NamespaceOf(list) != checked.words.onvifNs) return;
  const std::size_t count = CountPoints(checked, list);
  if (count >= (isLine ? 2 : 3)) return;
  checked.findings.Add(
      isLine ? "short-line" : "short-polygon", LineOf(list),
      "<" + WrittenName(list) + "> has " + std::to_string(count) +
          (count == 1 ? " point: " : " points: ") +
          (isLine ? "a line that is read has two" : "a polygon has three or more"));
}

}  // namespace

void CheckGeometry(const CheckedProfile& checked) {
  for (xmlNode* element : checked.elements) {
    if (IsPoint(checked.words, element)) CheckSides(checked, element, PointSides());
    if (IsRectangle(checked.words, element)) {
      CheckSides(checked, element, RectangleSides());
      CheckOrder(checked, element);
    }
    CheckLength(checked, element);
  }
}

}  // namespace settingsctl
