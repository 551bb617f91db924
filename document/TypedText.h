#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <sstream>
#include <string>

namespace analytics {

/// Reads a number as a stream under the global locale does.
template <typename Number>
Number NumberFromStream(const std::string& text, Number fallback) {
  std::istringstream stream(text);
  stream.exceptions(std::ios::badbit);  // else the stream keeps std::bad_alloc to itself
  Number value = fallback;
  stream >> value;  // the stream's state is not looked at
  return value;
}

/// Reads an integer as a stream under the classic locale does.
inline int IntegerOfClassicLocale(const std::string& text, int fallback) {
  constexpr std::int64_t beyondAnyInt = std::int64_t{INT_MAX} * 2;
  std::size_t at = text.find_first_not_of(" \t\n\v\f\r");
  if (at == std::string::npos) return fallback;
  const bool isNegative = text[at] == '-';
  if (isNegative || text[at] == '+') ++at;
  std::int64_t number = 0;
  for (; text[at] >= '0' && text[at] <= '9'; ++at)  // the text's end is NUL
    number = std::min(number * 10 + (text[at] - '0'), beyondAnyInt);
  if (isNegative) number = -number;
  return static_cast<int>(std::max<std::int64_t>(INT_MIN, std::min<std::int64_t>(INT_MAX, number)));
}

/// Reads the number that `text` starts with; the one place of this library's conversion rules.
///
/// Empty or blank text gives `fallback`, leading white space is skipped, what follows the number is
/// ignored, text without a leading number gives 0, a number out of range the type's limit.
template <typename Number>
Number NumberFromText(const std::string& text, Number fallback) {
  if (text.empty()) return fallback;  // the usual case of an absent text, without a stream
  return NumberFromStream(text, fallback);
}

/// As above. A stream takes longer than the query that found the text, and is used only where the
/// global locale may have rules of its own.
template <>
inline int NumberFromText(const std::string& text, int fallback) {
  return std::locale() == std::locale::classic() ? IntegerOfClassicLocale(text, fallback)
                                                 : NumberFromStream(text, fallback);
}

/// Writes a number in plain decimal whatever the locale: another process reads it in its own.
inline std::string TextFromNumber(int value) { return std::to_string(value); }

}  // namespace analytics
