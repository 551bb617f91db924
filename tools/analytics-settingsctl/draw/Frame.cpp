#include "draw/Frame.h"

#include <algorithm>
#include <limits>

namespace settingsctl {
namespace {

constexpr double kFittedWidth = 960;
constexpr double kFittedHeight = 720;
constexpr double kLeastExtent = 20;  // a single point is not blown up
constexpr double kRoom = 0.06;       // of the larger extent, on each side

/// The least and greatest coordinates of all points; floating, so that sums cannot overflow.
struct Extent {
  double least = std::numeric_limits<double>::max();
  double greatest = std::numeric_limits<double>::lowest();

  void Add(double value) {
    least = std::min(least, value);
    greatest = std::max(greatest, value);
  }

  double Length() const { return std::max(greatest - least, kLeastExtent); }
  bool IsEmpty() const { return greatest < least; }

  void Widen(double room) {
    const double middle = (least + greatest) / 2;
    const double half = Length() / 2 + room;
    least = middle - half;
    greatest = middle + half;
  }
};

}  // namespace

Frame::Frame(double left, double top, double scale, double width, double height)
    : m_left(left), m_top(top), m_scale(scale), m_width(width), m_height(height) {}

Frame Frame::OfPixels(const Size& size) {
  return {0, 0, 1, static_cast<double>(size.width), static_cast<double>(size.height)};
}

Frame Frame::Around(const std::vector<DrawnOwner>& owners) {
  Extent across;
  Extent down;
  for (const DrawnOwner& owner : owners) {
    for (const DrawnShape& shape : owner.shapes) {
      for (const auto& point : shape.points) {
        across.Add(point.x);
        down.Add(point.y);
      }
    }
  }
  if (across.IsEmpty()) return OfPixels({640, 360});
  const double room = kRoom * std::max(across.Length(), down.Length());
  across.Widen(room);
  down.Widen(room);
  const double scale = std::min(kFittedWidth / across.Length(), kFittedHeight / down.Length());
  return {across.least, down.least, scale, across.Length() * scale, down.Length() * scale};
}

Place Frame::PlaceOf(const analytics::types::Point& point) const {
  return {(point.x - m_left) * m_scale, (point.y - m_top) * m_scale};
}

}  // namespace settingsctl
