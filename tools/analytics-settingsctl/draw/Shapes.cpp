#include "draw/Shapes.h"

namespace settingsctl {
namespace {

using analytics::types::Point;

/// Lists of points have any name; only one that is called a polygon is closed.
Outline OutlineOf(const Shape& shape) {
  if (shape.isRectangle) return Outline::kRectangle;
  if (shape.points.size() == 1) return Outline::kPoint;
  if (shape.element == "Polygon") return Outline::kPolygon;
  return shape.points.size() == 2 ? Outline::kLine : Outline::kPolyline;
}

/// Where a piece lacks anything, nobody knows where to draw it.
void AddPiece(Outline outline, const GivenPair& ends, const std::string& label, DrawnOwner& owner) {
  if (!IsWhole(ends)) return;
  const Point first = {*ends[0].x, *ends[0].y};
  const Point second = {*ends[1].x, *ends[1].y};
  owner.shapes.push_back({outline, {first, second}, label, true});
}

void AddCalibration(const CalibrationContents& calibration, DrawnOwner& owner) {
  const std::optional<int>& height = calibration.physicalHeight;
  const std::string label = height ? "height " + std::to_string(*height) : "height missing";
  AddPiece(Outline::kRectangle, calibration.nearLeft, label, owner);
  AddPiece(Outline::kLine, calibration.nearWidth, "near width", owner);
  AddPiece(Outline::kLine, calibration.farWidth, "far width", owner);
}

/// The item's name is told where a rule has more than one shape.
DrawnOwner OwnerOf(const Entity& entity, const std::string& kind) {
  DrawnOwner owner = {kind, entity.type, entity.name, Activity::kNone, {}};
  if (kind == "rule") owner.activity = entity.isActive ? Activity::kActive : Activity::kInactive;
  for (const Shape& shape : entity.shapes) {
    const std::string label = entity.shapes.size() > 1 ? shape.item : std::string();
    owner.shapes.push_back({OutlineOf(shape), shape.points, label, false});
  }
  if (entity.calibration) AddCalibration(*entity.calibration, owner);
  return owner;
}

void Append(const std::vector<Entity>& entities, const char* kind,
            std::vector<DrawnOwner>& owners) {
  for (const Entity& entity : entities) {
    DrawnOwner owner = OwnerOf(entity, kind);
    if (!owner.shapes.empty()) owners.push_back(std::move(owner));
  }
}

}  // namespace

std::vector<DrawnOwner> DrawnOwners(const ProfileContents& contents) {
  std::vector<DrawnOwner> owners;
  Append(contents.rules, "rule", owners);
  Append(contents.engines, "engine", owners);
  Append(contents.sinks, "event sink", owners);
  return owners;
}

}  // namespace settingsctl
