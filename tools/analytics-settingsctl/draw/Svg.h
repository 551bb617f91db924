#pragma once

#include <string>
#include <utility>
#include <vector>

#include "draw/Frame.h"

namespace settingsctl {

/// Attributes of an element, in the order in which they are written.
using Attributes = std::vector<std::pair<std::string, std::string>>;

/// Writes SVG 1.1, one element a line. All texts and attribute values are escaped here.
class Svg {
 public:
  /// Starts a picture.
  explicit Svg(const Size& size);

  /// Writes an element without content.
  void Add(const std::string& name, const Attributes& attributes);

  /// Writes an element that holds a text.
  void AddText(const std::string& name, const Attributes& attributes, const std::string& text);

  /// Opens an element, which the matching `Close` ends.
  void Open(const std::string& name, const Attributes& attributes);
  void Close();

  /// Ends the picture and gives it.
  std::string Finish();

 private:
  void Start(const std::string& name, const Attributes& attributes);

  std::string m_text;
  std::vector<std::string> m_open;
};

/// A number of pixels with at most one decimal, whatever the locale.
std::string Pixels(double value);

/// Places as the attribute "points" of polygons and polylines holds them.
std::string PointList(const std::vector<Place>& places);

}  // namespace settingsctl
