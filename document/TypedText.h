#pragma once

#include <sstream>
#include <string>

namespace analytics {

/// Reads the number that `text` starts with; the one place of this library's conversion rules.
///
/// Empty or blank text gives `fallback`, leading white space is skipped, what follows the number is
/// ignored, text without a leading number gives 0, a number out of range the type's limit.
template <typename Number>
Number NumberFromText(const std::string& text, Number fallback) {
  if (text.empty()) return fallback;  // the usual case of an absent text, without a stream
  std::istringstream stream(text);
  stream.exceptions(std::ios::badbit);  // else the stream keeps std::bad_alloc to itself
  Number value = fallback;
  stream >> value;  // the stream's state is not looked at
  return value;
}

/// Writes a number in plain decimal whatever the locale: another process reads it in its own.
inline std::string TextFromNumber(int value) { return std::to_string(value); }

}  // namespace analytics
