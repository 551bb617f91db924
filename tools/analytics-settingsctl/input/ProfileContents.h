#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <analytics/types/Point.h>

#include <analytics/ProfileDoc.h>

#include "input/CalibrationContents.h"
#include "input/Input.h"

namespace settingsctl {

/// Geometry as the library reads it: an element with points, or one with the sides of a rectangle.
struct Shape {
  std::string item;     ///< name of the element item that holds it
  std::string element;  ///< local name, such as "Polygon"
  bool isRectangle;     ///< then the points are (left, top) and (right, bottom)
  std::vector<analytics::types::Point> points;
};

/// A rule, an engine or an event sink.
struct Entity {
  std::string type;
  std::string name;
  int line;
  bool isActive;  ///< of a rule: its item "Active" starts with an integer other than 0
  std::vector<std::pair<std::string, std::string>> items;  ///< simple items with their values
  std::vector<Shape> shapes;
  std::optional<CalibrationContents> calibration;
};

/// All that the library finds in a profile.
struct ProfileContents {
  std::vector<Entity> engines;
  std::vector<Entity> rules;
  std::vector<Entity> sinks;
  std::vector<std::string> activeTypes;
};

/// Has the library parse a profile; throws `Failure` where it is not well-formed.
void ParseProfile(analytics::ProfileDoc& profile, const Input& input);

/// Gathers the contents of a parsed profile; the settings must have been loaded.
ProfileContents ContentsOf(analytics::ProfileDoc& profile);

}  // namespace settingsctl
