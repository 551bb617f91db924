#pragma once

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

namespace examples {

constexpr int kIndentStep = 2;
constexpr int kNameWidth = 26;

inline std::ostream& Line(int depth) { return std::cout << std::setw(kIndentStep * depth) << ""; }

inline void Heading(const std::string& text) { std::cout << "\n" << text << "\n"; }

template <typename Value>
void Row(int depth, const std::string& name, const Value& value) {
  const int width = kNameWidth - kIndentStep * depth;
  Line(depth) << std::left << std::setw(width) << name << " " << value << "\n";
}

inline std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined.empty() ? "none" : joined;
}

}  // namespace examples
