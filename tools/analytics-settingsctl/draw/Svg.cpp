#include "draw/Svg.h"

#include <cmath>

namespace settingsctl {
namespace {

/// Makes a text fit for content and for attributes in double quotes. What a profile holds is
/// well-formed, but a tab or a line break in an attribute would be read as a blank.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    switch (letter) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += letter;
    }
  }
  return escaped;
}

}  // namespace

Svg::Svg(const Size& size) : m_text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") {
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  Open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
               {"xmlns:xlink", "http://www.w3.org/1999/xlink"},
               {"version", "1.1"},
               {"width", width},
               {"height", height},
               {"viewBox", "0 0 " + width + " " + height},
               {"font-family", "DejaVu Sans, Verdana, sans-serif"}});
}

void Svg::Start(const std::string& name, const Attributes& attributes) {
  m_text += std::string(2 * m_open.size(), ' ') + "<" + name;
  for (const auto& [key, value] : attributes) m_text += " " + key + "=\"" + Escaped(value) + "\"";
}

void Svg::Add(const std::string& name, const Attributes& attributes) {
  Start(name, attributes);
  m_text += "/>\n";
}

void Svg::AddText(const std::string& name, const Attributes& attributes, const std::string& text) {
  Start(name, attributes);
  m_text += ">" + Escaped(text) + "</" + name + ">\n";
}

void Svg::Open(const std::string& name, const Attributes& attributes) {
  Start(name, attributes);
  m_text += ">\n";
  m_open.push_back(name);
}

void Svg::Close() {
  const std::string name = m_open.back();
  m_open.pop_back();
  m_text += std::string(2 * m_open.size(), ' ') + "</" + name + ">\n";
}

std::string Svg::Finish() {
  while (!m_open.empty()) Close();
  return std::move(m_text);
}

std::string Pixels(double value) {
  const auto tenths = static_cast<long long>(std::llround(value * 10));
  const long long size = std::llabs(tenths);
  std::string text = (tenths < 0 ? "-" : "") + std::to_string(size / 10);
  if (size % 10 != 0) text += "." + std::to_string(size % 10);
  return text;
}

std::string PointList(const std::vector<Place>& places) {
  std::string list;
  for (const Place& place : places) {
    list += (list.empty() ? "" : " ") + Pixels(place.x) + "," + Pixels(place.y);
  }
  return list;
}

}  // namespace settingsctl
