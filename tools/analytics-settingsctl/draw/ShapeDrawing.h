#pragma once

#include <string>

#include "draw/Frame.h"
#include "draw/Labels.h"
#include "draw/Shapes.h"
#include "draw/Svg.h"

namespace settingsctl {

/// Draws the outline of a shape.
void DrawShape(Svg& svg, const Frame& frame, const DrawnShape& shape, Activity activity,
               const std::string& colour);

/// Where the label of a shape is best read.
Place LabelPlace(const Frame& frame, const DrawnShape& shape);

}  // namespace settingsctl
