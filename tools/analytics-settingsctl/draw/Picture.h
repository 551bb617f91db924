#pragma once

#include <optional>
#include <string>
#include <vector>

#include "draw/Frame.h"
#include "draw/Image.h"
#include "draw/Shapes.h"

namespace settingsctl {

/// What a picture shows besides the geometry.
struct PictureOptions {
  std::string title;
  std::optional<Size> size;         ///< of the image; none: as large as its background, or fitted
  std::optional<Image> background;  ///< stretched over the whole image
};

/// Draws geometry as SVG 1.1: the image, and a legend on its right.
///
/// Active rules are solid and filled, inactive ones dashed and hatched, engines and event sinks
/// thin and not filled, calibrations dotted: none is told by its colour alone.
std::string DrawPicture(const std::vector<DrawnOwner>& owners, const PictureOptions& options);

}  // namespace settingsctl
