#include "draw/Labels.h"

#include <algorithm>

#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr double kLetterWidth = 0.56;  // of the letters' height, on average
constexpr double kLine = kLetterSize + 4;
constexpr int kTries = 6;                   // lines up and down at which a label may stand
constexpr std::size_t kMostCompared = 400;  // beyond that many, nothing could be read anyway

bool StartsLetter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

double Within(double value, double least, double greatest) {
  return std::max(least, std::min(value, greatest));
}

}  // namespace

double PixelWidth(const std::string& text) {
  return static_cast<double>(TextWidth(text)) * kLetterSize * kLetterWidth;
}

std::string FittingText(const std::string& text, double width) {
  if (PixelWidth(text) <= width) return text;
  std::string fitting;
  for (const char byte : text) {
    if (StartsLetter(byte) && PixelWidth(fitting + "....") > width) break;
    fitting += byte;
  }
  return fitting + "...";
}

void Labels::Add(const std::string& text, const Place& near, const std::string& colour) {
  const std::string shown = FittingText(text, m_frame.Width() - 8);
  const double left = Within(near.x, 4, m_frame.Width() - PixelWidth(shown) - 4);
  const double bottom = Within(near.y, kLine, m_frame.Height() - 6);
  const Box box = FreeBox({left, bottom - kLetterSize, left + PixelWidth(shown), bottom + 4});
  m_taken.push_back(box);
  const Attributes common = {
      {"x", Pixels(box.left)}, {"y", Pixels(box.bottom - 4)}, {"font-size", Pixels(kLetterSize)}};
  // A light rim keeps the letters readable on any background.
  Attributes rim = common;
  rim.insert(rim.end(), {{"fill", "none"},
                         {"stroke", "#ffffff"},
                         {"stroke-width", "4"},
                         {"stroke-opacity", "0.85"},
                         {"stroke-linejoin", "round"}});
  m_svg.AddText("text", rim, shown);
  Attributes letters = common;
  letters.emplace_back("fill", colour);
  m_svg.AddText("text", letters, shown);
}

Labels::Box Labels::FreeBox(const Box& wanted) const {
  if (m_taken.size() > kMostCompared) return wanted;
  for (int step = 0; step <= kTries; ++step) {
    for (const double shift : {step * kLine, -step * kLine}) {
      const Box box = {wanted.left, wanted.top + shift, wanted.right, wanted.bottom + shift};
      const bool isInside = box.top >= 0 && box.bottom <= m_frame.Height();
      if (isInside && IsFree(box)) return box;
    }
  }
  return wanted;
}

bool Labels::IsFree(const Box& box) const {
  return std::none_of(m_taken.begin(), m_taken.end(), [&box](const Box& taken) {
    return box.left < taken.right && taken.left < box.right && box.top < taken.bottom &&
           taken.top < box.bottom;
  });
}

}  // namespace settingsctl
