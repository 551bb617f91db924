#pragma once

#include <string>
#include <vector>

#include <analytics/types/Point.h>

#include "input/ProfileContents.h"

namespace settingsctl {

enum class Outline { kPoint, kLine, kPolyline, kPolygon, kRectangle };

/// A piece of geometry as it is drawn, in the profile's coordinates.
struct DrawnShape {
  Outline outline;
  std::vector<analytics::types::Point> points;  ///< of a rectangle its two corners
  std::string label;  ///< what it is, behind the name of its owner; may be empty
  bool isCalibration;
};

/// How an owner of geometry is drawn.
enum class Activity { kActive, kInactive, kNone };

/// A rule, engine or event sink that has geometry.
struct DrawnOwner {
  std::string kind;  ///< "rule", "engine" or "event sink"
  std::string type;
  std::string name;
  Activity activity;  ///< only rules are active or inactive
  std::vector<DrawnShape> shapes;
};

/// All rules, engines and event sinks that have geometry, in this order.
std::vector<DrawnOwner> DrawnOwners(const ProfileContents& contents);

}  // namespace settingsctl
