#pragma once

#include <cstddef>
#include <string>

#include "draw/Shapes.h"
#include "draw/Svg.h"

namespace settingsctl {

/// The colour of the owner of that number; the colours come round again after the last.
std::string ColourOf(std::size_t owner);

/// Attributes of an outline that is not filled.
Attributes StrokeOf(Activity activity, bool isCalibration, const std::string& colour);

/// Attributes of the inside of a closed shape.
Attributes FillOf(Activity activity, bool isCalibration, const std::string& colour);

/// Defines the pattern that `FillOf` needs for inactive rules.
void DefineHatching(Svg& svg);

/// One list of attributes behind the other.
Attributes Joined(Attributes first, const Attributes& second);

}  // namespace settingsctl
