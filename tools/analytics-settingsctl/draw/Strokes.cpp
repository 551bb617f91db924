#include "draw/Strokes.h"

#include <array>

namespace settingsctl {
namespace {

/// Colours that people with any colour vision can tell apart, dark enough for letters.
constexpr std::array<const char*, 7> kColours = {"#0060a8", "#b84a00", "#00795a", "#a03c80",
                                                 "#8a6100", "#3d4fc4", "#5c5c5c"};

}  // namespace

std::string ColourOf(std::size_t owner) { return kColours[owner % kColours.size()]; }

Attributes StrokeOf(Activity activity, bool isCalibration, const std::string& colour) {
  Attributes stroke = {{"stroke", colour}, {"stroke-linejoin", "round"}};
  if (isCalibration) return Joined(stroke, {{"stroke-width", "2"}, {"stroke-dasharray", "2 4"}});
  if (activity == Activity::kActive) return Joined(stroke, {{"stroke-width", "3"}});
  if (activity == Activity::kNone) return Joined(stroke, {{"stroke-width", "1.5"}});
  return Joined(stroke, {{"stroke-width", "2"}, {"stroke-dasharray", "10 6"}});
}

Attributes FillOf(Activity activity, bool isCalibration, const std::string& colour) {
  if (isCalibration || activity == Activity::kNone) return {{"fill", "none"}};
  if (activity == Activity::kInactive) return {{"fill", "url(#inactive)"}};
  return {{"fill", colour}, {"fill-opacity", "0.14"}};
}

void DefineHatching(Svg& svg) {
  svg.Open(
      "pattern",
      {{"id", "inactive"}, {"patternUnits", "userSpaceOnUse"}, {"width", "12"}, {"height", "12"}});
  svg.Add("path", {{"d", "M0,12 L12,0"}, {"stroke", "#808080"}, {"stroke-width", "1"}});
  svg.Close();
}

Attributes Joined(Attributes first, const Attributes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace settingsctl
