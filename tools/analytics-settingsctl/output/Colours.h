#pragma once

#include <string>

namespace settingsctl {

/// Whether standard output shows colours: a terminal that is not "dumb", without NO_COLOR.
bool HasColours();

/// How a text stands out where there are colours.
enum class Style { kBold, kDim, kGood, kWarning, kBad };

/// The text in a style; as it is where there are no colours.
std::string Styled(Style style, const std::string& text);

}  // namespace settingsctl
