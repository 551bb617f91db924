#include "output/LineBreaks.h"

#include <algorithm>

namespace settingsctl {
namespace {

bool HasOnlyCrLf(const std::string& text) {
  bool isFound = false;
  char former = '\0';
  for (const char letter : text) {
    if (letter == '\n' && former != '\r') return false;
    isFound = isFound || letter == '\n';
    former = letter;
  }
  return isFound;
}

}  // namespace

std::string WithLineBreaksOf(const std::string& original, const std::string& text) {
  if (!HasOnlyCrLf(original)) return text;
  std::string changed;
  changed.reserve(original.size());
  for (const char letter : text) {
    if (letter == '\n') changed += '\r';
    changed += letter;
  }
  return changed;
}

bool HasOtherLineBreaks(const std::string& original, const std::string& text) {
  return original.find('\r') != std::string::npos && text.find('\r') == std::string::npos;
}

}  // namespace settingsctl
