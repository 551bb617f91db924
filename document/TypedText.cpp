#include "document/TypedText.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace analytics {

TextStream::TextStream(const std::string& text) : m_stream(text) {
  m_stream.exceptions(std::ios::badbit);  // else the stream keeps std::bad_alloc to itself
}

TextStream::~TextStream() = default;

int IntegerOfClassicLocale(const std::string& text, int fallback) {
  constexpr std::int64_t beyondAnyInt = std::int64_t{INT_MAX} * 2;
  const char* at = text.c_str();  // NUL ends it
  while (*at == ' ' || (*at >= '\t' && *at <= '\r')) ++at;
  if (at == text.c_str() + text.size()) return fallback;
  const bool isNegative = *at == '-';
  if (isNegative || *at == '+') ++at;
  std::int64_t number = 0;
  for (; *at >= '0' && *at <= '9'; ++at) number = std::min(number * 10 + (*at - '0'), beyondAnyInt);
  if (isNegative) number = -number;
  return static_cast<int>(std::max<std::int64_t>(INT_MIN, std::min<std::int64_t>(INT_MAX, number)));
}

std::string TextFromNumber(int value) { return std::to_string(value); }

}  // namespace analytics
