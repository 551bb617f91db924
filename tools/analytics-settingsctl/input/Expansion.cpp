#include "input/Expansion.h"

#include <algorithm>

#include "input/Passage.h"

namespace settingsctl {
namespace {

// A message names so many at the start of a long cycle, and so many at its end.
constexpr std::size_t kFirstNames = 6;
constexpr std::size_t kLastNames = 2;

}  // namespace

Expansion TryExpansion(const std::string& text, const VariableTable& variables) {
  Passage passage(text);
  while (passage.Next()) {
    const std::string* const value = variables.Find(passage.Name());
    passage.PutInValue(value ? *value : std::string());
  }
  return passage.Result();
}

std::string CycleText(const std::vector<std::string>& cycle, const std::string& first) {
  const std::size_t count = cycle.size() - 1;  // the last one is the first
  const auto found = std::find(cycle.begin(), cycle.end() - 1, first);
  const auto start = static_cast<std::size_t>(found - cycle.begin());
  const auto name = [&](std::size_t index) { return cycle[(start + index) % count]; };
  const bool isLong = cycle.size() > kFirstNames + kLastNames + 1;
  std::string text = name(0);
  for (std::size_t index = 1; index < (isLong ? kFirstNames : cycle.size()); ++index) {
    text += " -> " + name(index);
  }
  if (!isLong) return text;
  text += " -> (" + std::to_string(cycle.size() - kFirstNames - kLastNames) + " more)";
  return text + " -> " + name(count - 1) + " -> " + name(count);
}

}  // namespace settingsctl
