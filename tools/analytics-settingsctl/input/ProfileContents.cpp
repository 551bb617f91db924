#include "input/ProfileContents.h"

#include <iterator>
#include <set>

#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "Failure.h"
#include "Transformed.h"
#include "input/Attributes.h"
#include "input/Nodes.h"
#include "input/XmlInput.h"

namespace settingsctl {
namespace {

using analytics::DocumentNode;
using analytics::ProfileDoc;
using analytics::Settings;
using analytics::types::Point;

xmlNode* HandleOf(DocumentNode& node) { return static_cast<xmlNode*>(node.Handle()); }

std::string LocalName(DocumentNode& node) {
  return reinterpret_cast<const char*>(HandleOf(node)->name);
}

/// The elements with points and those with sides of a rectangle, but not those of a calibration,
/// which is read as a whole.
std::string ShapesQry() {
  const std::string calibration = Settings::KestalPrefix() + ":Calibration";
  return ".//*[(" + Settings::OnvifPrefix() +
         ":Point or @left or @top or @right or @bottom) and not(ancestor-or-self::" + calibration +
         ")]";
}

Shape ShapeOf(ProfileDoc& profile, const std::string& item, DocumentNode& element) {
  Shape shape{item, LocalName(element), false, {}};
  if (profile.GetPoints(shape.points, Settings::OnvifPrefix() + ":Point", &element)) return shape;
  Point corners[2] = {};
  profile.GetRectangle(corners, ".", &element);
  shape.isRectangle = true;
  shape.points.assign(std::begin(corners), std::end(corners));
  return shape;
}

void AddShapes(ProfileDoc& profile, DocumentNode* owner, Entity& entity) {
  for (const NodePtr& item : Owned(profile.SelectNodes(ProfileDoc::ElementItemQry(true), owner))) {
    const std::string name = PlainAttribute(HandleOf(*item), "Name");
    for (const NodePtr& element : Owned(profile.SelectNodes(
             "self::*[" + Settings::OnvifPrefix() + ":Point] | " + ShapesQry(), item.get()))) {
      entity.shapes.push_back(ShapeOf(profile, name, *element));
    }
  }
}

/// Of a calibration that is there, all pieces may be missing.
void AddCalibration(ProfileDoc& profile, DocumentNode* owner, Entity& entity) {
  const std::string item = ProfileDoc::ElementItemQry(true) + "[@Name=\"Calibration\"]";
  const NodePtr found(
      profile.SelectNode(item + "/" + Settings::KestalPrefix() + ":Calibration", owner));
  if (found) entity.calibration = ReadCalibrationContents(profile, owner);
}

/// Whether the first item of a name is what the library finds under it: not without a name, nor
/// with a quote, which no query can hold.
bool CanBeAskedFor(const std::string& name) {
  return !name.empty() && name.find('\'') == std::string::npos;
}

/// Adds the value that the library finds under the item's name, which is that of the first so
/// named. Asking for each by its name would go through all items every time.
void AddItem(ProfileDoc& profile, DocumentNode* owner, DocumentNode& item,
             std::set<std::string>& known, Entity& entity) {
  const std::string name = PlainAttribute(HandleOf(item), "Name");
  if (!known.insert(name).second) return;
  entity.items.emplace_back(name, CanBeAskedFor(name)
                                      ? item.GetProperty("Value")
                                      : profile.GetSimpleItemValue(name, owner, true));
}

Entity EntityOf(ProfileDoc& profile, DocumentNode* owner) {
  Entity entity{PlainAttribute(HandleOf(*owner), "Type"),
                PlainAttribute(HandleOf(*owner), "Name"),
                LineOf(HandleOf(*owner)),
                profile.GetSimpleItemValue("Active", 0, owner, true) != 0,
                {},
                {},
                {}};
  std::set<std::string> known;
  for (const NodePtr& item : Owned(profile.SelectNodes(ProfileDoc::SimpleItemQry(true), owner))) {
    AddItem(profile, owner, *item, known, entity);
  }
  AddShapes(profile, owner, entity);
  AddCalibration(profile, owner, entity);
  return entity;
}

std::vector<Entity> Entities(ProfileDoc& profile, const std::vector<DocumentNode*>& selected) {
  return Transformed(Owned(selected),
                     [&profile](const NodePtr& node) { return EntityOf(profile, node.get()); });
}

}  // namespace

void ParseProfile(ProfileDoc& profile, const Input& input) {
  const XmlInput xml(input);
  xml.RequireDocument(input);
  if (!profile.ParseString(input.text)) {
    throw Failure(input.name + ": cannot be parsed by the library; see what `check` finds in it");
  }
  NumberLines(profile, xml.Document());
}

ProfileContents ContentsOf(ProfileDoc& profile) {
  return {Entities(profile, profile.SelectEngines("")), Entities(profile, profile.SelectRules("")),
          Entities(profile, profile.SelectEventSinks("")), profile.ActiveRules()};
}

}  // namespace settingsctl
