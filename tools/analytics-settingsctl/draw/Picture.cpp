#include "draw/Picture.h"

#include <algorithm>
#include <cmath>

#include "draw/Labels.h"
#include "draw/Legend.h"
#include "draw/ShapeDrawing.h"
#include "draw/Strokes.h"

namespace settingsctl {
namespace {

constexpr double kMargin = 24;

Frame FrameOf(const std::vector<DrawnOwner>& owners, const PictureOptions& options) {
  if (options.size) return Frame::OfPixels(*options.size);
  if (options.background) return Frame::OfPixels(options.background->size);
  return Frame::Around(owners);
}

Size WholeSize(const Frame& frame, const std::vector<DrawnOwner>& owners) {
  const double height = std::max(frame.Height(), LegendHeight(owners));
  return {static_cast<int>(std::ceil(frame.Width() + kLegendWidth + 2 * kMargin)),
          static_cast<int>(std::ceil(height + 2 * kMargin))};
}

/// Draws the image; places in it count from its own top left.
class ImageDrawing {
 public:
  ImageDrawing(Svg& svg, const Frame& frame, const std::vector<DrawnOwner>& owners)
      : m_svg(svg), m_frame(frame), m_owners(owners) {}

  void Draw(const std::optional<Image>& background) {
    m_svg.Open("g", {{"transform", "translate(" + Pixels(kMargin) + "," + Pixels(kMargin) + ")"}});
    DrawGround(background);
    m_svg.Open("g", {{"clip-path", "url(#image)"}});
    for (std::size_t index = 0; index < m_owners.size(); ++index) DrawOwner(index);
    DrawLabels();
    m_svg.Close();
    DrawCorners();
    m_svg.Close();
  }

 private:
  Attributes WholeFrame() const {
    return {{"x", "0"},
            {"y", "0"},
            {"width", Pixels(m_frame.Width())},
            {"height", Pixels(m_frame.Height())}};
  }

  void DrawGround(const std::optional<Image>& background) {
    m_svg.Open("defs", {});
    m_svg.Open("clipPath", {{"id", "image"}});
    m_svg.Add("rect", WholeFrame());
    m_svg.Close();
    DefineHatching(m_svg);
    m_svg.Close();
    m_svg.Add("rect", Joined(WholeFrame(), {{"fill", "#f4f4f4"}, {"stroke", "#909090"}}));
    if (!background) return;
    m_svg.Add("image", Joined(WholeFrame(), {{"preserveAspectRatio", "none"},
                                             {"xlink:href", background->dataUri}}));
  }

  void DrawOwner(std::size_t index) {
    const DrawnOwner& owner = m_owners[index];
    m_svg.Open("g", {{"id", "owner-" + std::to_string(index + 1)}});
    m_svg.AddText("title", {}, NameOf(owner));
    for (const DrawnShape& shape : owner.shapes) {
      DrawShape(m_svg, m_frame, shape, owner.activity, ColourOf(index));
    }
    m_svg.Close();
  }

  /// Labels come behind all shapes, so that nothing is drawn over them.
  void DrawLabels() {
    Labels labels(m_svg, m_frame);
    for (std::size_t index = 0; index < m_owners.size(); ++index) {
      for (const DrawnShape& shape : m_owners[index].shapes) {
        labels.Add(LabelOf(m_owners[index], shape), LabelPlace(m_frame, shape), ColourOf(index));
      }
    }
  }

  static std::string LabelOf(const DrawnOwner& owner, const DrawnShape& shape) {
    const std::string name =
        shape.isCalibration && !owner.name.empty() ? owner.name : NameOf(owner);
    const std::string state = owner.activity == Activity::kInactive ? " (inactive)" : "";
    return name + state + (shape.label.empty() ? "" : ", " + shape.label);
  }

  /// The coordinates of the image's corners tell its scale.
  void DrawCorners() {
    DrawCorner(m_frame.TopLeft(), {0, -6}, "start");
    DrawCorner(m_frame.BottomRight(), {m_frame.Width(), m_frame.Height() + 14}, "end");
  }

  void DrawCorner(const Place& coordinates, const Place& place, const std::string& anchor) {
    m_svg.AddText("text",
                  {{"x", Pixels(place.x)},
                   {"y", Pixels(place.y)},
                   {"font-size", "11"},
                   {"fill", "#606060"},
                   {"text-anchor", anchor}},
                  Pixels(std::round(coordinates.x)) + ", " + Pixels(std::round(coordinates.y)));
  }

  Svg& m_svg;
  const Frame& m_frame;
  const std::vector<DrawnOwner>& m_owners;
};

}  // namespace

std::string DrawPicture(const std::vector<DrawnOwner>& owners, const PictureOptions& options) {
  const Frame frame = FrameOf(owners, options);
  Svg svg(WholeSize(frame, owners));
  svg.AddText("title", {}, options.title);
  svg.Add("rect", {{"width", "100%"}, {"height", "100%"}, {"fill", "#ffffff"}});
  ImageDrawing(svg, frame, owners).Draw(options.background);
  svg.Open("g", {{"id", "legend"}});
  DrawLegend(svg, owners, {frame.Width() + 2 * kMargin, kMargin});
  svg.Close();
  return svg.Finish();
}

}  // namespace settingsctl
