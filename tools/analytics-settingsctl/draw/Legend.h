#pragma once

#include <string>
#include <vector>

#include "draw/Frame.h"
#include "draw/Shapes.h"
#include "draw/Svg.h"

namespace settingsctl {

constexpr double kLegendWidth = 400;

/// Height that the legend needs, in pixels.
double LegendHeight(const std::vector<DrawnOwner>& owners);

/// Writes who has which colour and what the kinds of lines mean.
void DrawLegend(Svg& svg, const std::vector<DrawnOwner>& owners, const Place& topLeft);

/// "LineCrossing: North gate", as labels and legend call an owner.
std::string NameOf(const DrawnOwner& owner);

}  // namespace settingsctl
