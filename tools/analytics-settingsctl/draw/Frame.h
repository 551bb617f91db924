#pragma once

#include <optional>
#include <vector>

#include "draw/Shapes.h"

namespace settingsctl {

/// A width and a height in pixels.
struct Size {
  int width;
  int height;
};

/// A place in the picture, in pixels from its top left.
struct Place {
  double x;
  double y;
};

/// The part of the profile's coordinates that the picture shows, and how large.
class Frame {
 public:
  /// Shows an image of that size, one pixel for each unit.
  static Frame OfPixels(const Size& size);

  /// Shows all geometry with some room around it.
  static Frame Around(const std::vector<DrawnOwner>& owners);

  Place PlaceOf(const analytics::types::Point& point) const;

  /// Size of the frame in the picture.
  double Width() const { return m_width; }
  double Height() const { return m_height; }

  /// The profile's coordinates of two corners.
  Place TopLeft() const { return {m_left, m_top}; }
  Place BottomRight() const { return {m_left + m_width / m_scale, m_top + m_height / m_scale}; }

 private:
  Frame(double left, double top, double scale, double width, double height);

  double m_left;
  double m_top;
  double m_scale;
  double m_width;
  double m_height;
};

}  // namespace settingsctl
