#include "draw/ShapeDrawing.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "Transformed.h"
#include "draw/Strokes.h"

namespace settingsctl {
namespace {

constexpr double kArrowLength = 16;
constexpr double kArrowHalfWidth = 6;
constexpr double kTick = 7;

std::vector<Place> Places(const Frame& frame, const DrawnShape& shape) {
  return Transformed(shape.points, [&frame](const auto& point) { return frame.PlaceOf(point); });
}

/// The direction from one place to another, of length 1; to the right if they are the same.
Place Direction(const Place& from, const Place& towards) {
  const double length = std::hypot(towards.x - from.x, towards.y - from.y);
  if (length == 0) return {1, 0};
  return {(towards.x - from.x) / length, (towards.y - from.y) / length};
}

/// A place at some distance along a direction and across it.
Place Beside(const Place& place, const Place& direction, double along, double across) {
  return {place.x + along * direction.x - across * direction.y,
          place.y + along * direction.y + across * direction.x};
}

/// Which way a line goes is seen at its end.
void DrawArrow(Svg& svg, const Place& from, const Place& tip, const std::string& colour) {
  const Place direction = Direction(from, tip);
  const std::vector<Place> corners = {tip, Beside(tip, direction, -kArrowLength, kArrowHalfWidth),
                                      Beside(tip, direction, -kArrowLength, -kArrowHalfWidth)};
  svg.Add("polygon", {{"points", PointList(corners)}, {"fill", colour}});
}

/// A width has no direction, but two ends.
void DrawTicks(Svg& svg, const Place& from, const Place& to, const std::string& colour) {
  const Place direction = Direction(from, to);
  for (const Place& end : {from, to}) {
    const Place above = Beside(end, direction, 0, -kTick);
    const Place below = Beside(end, direction, 0, kTick);
    svg.Add("line", {{"x1", Pixels(above.x)},
                     {"y1", Pixels(above.y)},
                     {"x2", Pixels(below.x)},
                     {"y2", Pixels(below.y)},
                     {"stroke", colour},
                     {"stroke-width", "2"}});
  }
}

/// Draws one shape; each outline has its own way.
class Drawing {
 public:
  Drawing(Svg& svg, const Frame& frame, const DrawnShape& shape, Activity activity,
          std::string colour)
      : m_svg(svg),
        m_shape(shape),
        m_places(Places(frame, shape)),
        m_activity(activity),
        m_colour(std::move(colour)) {}

  void Draw() const {
    switch (m_shape.outline) {
      case Outline::kPoint:
        return DrawPoint();
      case Outline::kRectangle:
        return DrawRectangle();
      case Outline::kPolygon:
        return m_svg.Add("polygon",
                         Joined({{"points", PointList(m_places)}}, Joined(Fill(), Stroke())));
      case Outline::kLine:
      case Outline::kPolyline:
        break;
    }
    DrawLine();
  }

 private:
  Attributes Stroke() const { return StrokeOf(m_activity, m_shape.isCalibration, m_colour); }
  Attributes Fill() const { return FillOf(m_activity, m_shape.isCalibration, m_colour); }

  void DrawPoint() const {
    m_svg.Add("circle",
              Joined({{"cx", Pixels(m_places[0].x)}, {"cy", Pixels(m_places[0].y)}, {"r", "5"}},
                     Joined(Fill(), Stroke())));
  }

  /// Sides that are the wrong way round enclose the same rectangle.
  void DrawRectangle() const {
    const double left = std::min(m_places[0].x, m_places[1].x);
    const double top = std::min(m_places[0].y, m_places[1].y);
    m_svg.Add("rect", Joined({{"x", Pixels(left)},
                              {"y", Pixels(top)},
                              {"width", Pixels(std::abs(m_places[1].x - m_places[0].x))},
                              {"height", Pixels(std::abs(m_places[1].y - m_places[0].y))}},
                             Joined(Fill(), Stroke())));
  }

  void DrawLine() const {
    m_svg.Add("polyline", Joined({{"points", PointList(m_places)}, {"fill", "none"}}, Stroke()));
    const Place& last = m_places.back();
    const Place& before = m_places[m_places.size() - 2];
    if (m_shape.isCalibration) return DrawTicks(m_svg, before, last, m_colour);
    DrawArrow(m_svg, before, last, m_colour);
  }

  Svg& m_svg;
  const DrawnShape& m_shape;
  const std::vector<Place> m_places;
  const Activity m_activity;
  const std::string m_colour;
};

Place Middle(const std::vector<Place>& places) {
  const Place sum = std::accumulate(places.begin(), places.end(), Place{0, 0},
                                    [](const Place& before, const Place& place) {
                                      return Place{before.x + place.x, before.y + place.y};
                                    });
  const auto count = static_cast<double>(places.size());
  return {sum.x / count, sum.y / count};
}

}  // namespace

void DrawShape(Svg& svg, const Frame& frame, const DrawnShape& shape, Activity activity,
               const std::string& colour) {
  Drawing(svg, frame, shape, activity, colour).Draw();
}

Place LabelPlace(const Frame& frame, const DrawnShape& shape) {
  const std::vector<Place> places = Places(frame, shape);
  const Place middle = Middle(places);
  if (shape.outline == Outline::kRectangle) {
    return {std::min(places[0].x, places[1].x) + 6, std::min(places[0].y, places[1].y) + 20};
  }
  if (shape.outline == Outline::kPolygon) return {middle.x - 60, middle.y + 4};
  // Behind its end, a line is not written over.
  return {places.back().x + 10, places.back().y + 5};
}

}  // namespace settingsctl
