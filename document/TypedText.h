#pragma once

#include <locale>
#include <sstream>
#include <string>

namespace analytics {

/// A stream that reads a text under the global locale.
class TextStream {
 public:
  explicit TextStream(const std::string& text);
  ~TextStream();

  TextStream(const TextStream&) = delete;
  TextStream& operator=(const TextStream&) = delete;

  /// Gives a number as the stream reads it; the stream's state is not looked at.
  template <typename Number>
  Number Read(Number fallback) {
    m_stream >> fallback;
    return fallback;
  }

 private:
  std::istringstream m_stream;
};

/// Reads an integer as a stream under the classic locale does.
int IntegerOfClassicLocale(const std::string& text, int fallback);

/// Reads the number that `text` starts with; the one place of this library's conversion rules.
///
/// Empty or blank text gives `fallback`, leading white space is skipped, what follows the number is
/// ignored, text without a leading number gives 0, a number out of range the type's limit.
template <typename Number>
Number NumberFromText(const std::string& text, Number fallback) {
  if (text.empty()) return fallback;  // the usual case of an absent text, without a stream
  return TextStream(text).Read(fallback);
}

/// Reads integers as `NumberFromText`.
///
/// A stream takes longer than the query that found the text, and is used only where the global
/// locale, when this is made, may have rules of its own.
class IntegerReader {
 public:
  int operator()(const std::string& text, int fallback) const {
    return m_isClassic ? IntegerOfClassicLocale(text, fallback) : TextStream(text).Read(fallback);
  }

 private:
  const bool m_isClassic = std::locale() == std::locale::classic();
};

template <>
inline int NumberFromText(const std::string& text, int fallback) {
  return IntegerReader()(text, fallback);
}

/// Writes a number in plain decimal whatever the locale: another process reads it in its own.
std::string TextFromNumber(int value);

}  // namespace analytics
