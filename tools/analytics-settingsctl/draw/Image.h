#pragma once

#include <string>

#include "draw/Frame.h"
#include "input/Input.h"

namespace settingsctl {

/// A background that a picture can hold within itself.
struct Image {
  Size size;            ///< in pixels
  std::string dataUri;  ///< all of the image's bytes
};

/// Reads what a PNG or JPEG image says about itself.
///
/// The image becomes part of the picture, so that it can be sent and moved as one file, and
/// browsers show it: they refuse to load files that a picture only names. Throws `Failure` for a
/// file that is no such image.
Image ReadImage(const Input& input);

}  // namespace settingsctl
