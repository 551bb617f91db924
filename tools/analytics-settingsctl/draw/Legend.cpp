#include "draw/Legend.h"

#include <algorithm>

#include "draw/Labels.h"
#include "draw/Strokes.h"

namespace settingsctl {
namespace {

constexpr double kRow = 24;
constexpr double kSwatchWidth = 34;
constexpr double kSwatchHeight = 14;
constexpr double kTextLeft = kSwatchWidth + 10;
constexpr std::size_t kMostOwners = 200;  // more would not be read, and make a picture too high

/// A kind of lines and what it means.
struct Meaning {
  Activity activity;
  bool isCalibration;
  const char* text;
};

constexpr Meaning kMeanings[] = {
    {Activity::kActive, false, "active rule"},
    {Activity::kInactive, false, "inactive rule"},
    {Activity::kNone, false, "engine or event sink"},
    {Activity::kNone, true, "calibration: object, widths"},
};

std::string StateOf(const DrawnOwner& owner) {
  if (owner.activity == Activity::kNone) return " (" + owner.kind + ")";
  return owner.activity == Activity::kActive ? "" : " (inactive)";
}

/// Writes one row after the other.
class Rows {
 public:
  Rows(Svg& svg, const Place& topLeft) : m_svg(svg), m_left(topLeft.x), m_top(topLeft.y) {}

  void AddHeading(const std::string& text) { AddText(text, 0, {{"font-weight", "bold"}}); }
  void AddRemark(const std::string& text) { AddText(text, 0, {}); }

  void AddSample(const std::string& text, Activity activity, bool isCalibration,
                 const std::string& colour) {
    m_svg.Add("rect", Joined({{"x", Pixels(m_left)},
                              {"y", Pixels(m_top + (kRow - kSwatchHeight) / 2)},
                              {"width", Pixels(kSwatchWidth)},
                              {"height", Pixels(kSwatchHeight)}},
                             Joined(FillOf(activity, isCalibration, colour),
                                    StrokeOf(activity, isCalibration, colour))));
    AddText(text, kTextLeft, {});
  }

 private:
  void AddText(const std::string& text, double indent, const Attributes& more) {
    const std::string shown = FittingText(text, kLegendWidth - indent);
    m_svg.AddText("text",
                  Joined({{"x", Pixels(m_left + indent)},
                          {"y", Pixels(m_top + kRow / 2 + 5)},
                          {"font-size", Pixels(kLetterSize)},
                          {"fill", "#202020"}},
                         more),
                  shown);
    m_top += kRow;
  }

  Svg& m_svg;
  const double m_left;
  double m_top;
};

std::size_t ShownOwners(const std::vector<DrawnOwner>& owners) {
  return std::min(owners.size(), kMostOwners);
}

}  // namespace

double LegendHeight(const std::vector<DrawnOwner>& owners) {
  const double fixedRows = 8;  // headings, meanings and the remark
  return (static_cast<double>(ShownOwners(owners)) + fixedRows) * kRow;
}

void DrawLegend(Svg& svg, const std::vector<DrawnOwner>& owners, const Place& topLeft) {
  Rows rows(svg, topLeft);
  if (owners.empty()) rows.AddRemark("No points, lines or rectangles");
  if (!owners.empty()) rows.AddHeading("Rules and engines");
  for (std::size_t index = 0; index < ShownOwners(owners); ++index) {
    const DrawnOwner& owner = owners[index];
    const bool isCalibration = owner.shapes.front().isCalibration;
    rows.AddSample(NameOf(owner) + StateOf(owner), owner.activity, isCalibration, ColourOf(index));
  }
  if (ShownOwners(owners) < owners.size()) {
    rows.AddRemark("and " + std::to_string(owners.size() - ShownOwners(owners)) + " more");
  }
  rows.AddHeading("Lines");
  for (const Meaning& meaning : kMeanings) {
    rows.AddSample(meaning.text, meaning.activity, meaning.isCalibration, "#404040");
  }
  rows.AddRemark("Arrows point from a line's first point on");
}

std::string NameOf(const DrawnOwner& owner) {
  const std::string type = owner.type.empty() ? owner.kind + " without type" : owner.type;
  return owner.name.empty() ? type : type + ": " + owner.name;
}

}  // namespace settingsctl
