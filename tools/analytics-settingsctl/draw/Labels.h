#pragma once

#include <string>
#include <vector>

#include "draw/Frame.h"
#include "draw/Svg.h"

namespace settingsctl {

/// Height of the letters of labels and legend, in pixels.
constexpr double kLetterSize = 14;

/// A text's width in pixels, as near as it can be known without its font.
double PixelWidth(const std::string& text);

/// The beginning of a text that is about that wide, not cut within a letter of several bytes.
std::string FittingText(const std::string& text, double width);

/// Writes the names of shapes where they can be read: within the frame and not on each other.
class Labels {
 public:
  Labels(Svg& svg, const Frame& frame) : m_svg(svg), m_frame(frame) {}

  /// Writes a text near a place, which is where its first letter would begin.
  void Add(const std::string& text, const Place& near, const std::string& colour);

 private:
  struct Box {
    double left;
    double top;
    double right;
    double bottom;
  };

  Box FreeBox(const Box& wanted) const;
  bool IsFree(const Box& box) const;

  Svg& m_svg;
  const Frame& m_frame;
  std::vector<Box> m_taken;
};

}  // namespace settingsctl
