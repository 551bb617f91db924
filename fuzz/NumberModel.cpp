#include "fuzz/NumberModel.h"

#include <cstddef>
#include <cstdlib>
#include <limits>

namespace fuzz {
namespace {

constexpr char kBlanks[] = " \t\n\v\f\r";
constexpr char kDigits[] = "0123456789";

/// The text from its first character on that is no blank; empty if there is none.
std::string WithoutLeadingBlanks(const std::string& text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  return start == std::string::npos ? std::string() : text.substr(start);
}

std::size_t SignEnd(const std::string& text, std::size_t position) {
  return position < text.size() && (text[position] == '+' || text[position] == '-') ? position + 1
                                                                                    : position;
}

std::size_t DigitsEnd(const std::string& text, std::size_t position) {
  const std::size_t end = text.find_first_not_of(kDigits, position);
  return end == std::string::npos ? text.size() : end;
}

/// What a reader of floating numbers takes from the start of a text, be it a number or not.
std::string FloatingPrefix(const std::string& text) {
  const std::size_t start = SignEnd(text, 0);
  std::size_t end = DigitsEnd(text, start);
  bool hasDigits = end > start;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = end + 1;
    end = DigitsEnd(text, fraction);
    hasDigits = hasDigits || end > fraction;
  }
  if (hasDigits && end < text.size() && (text[end] == 'e' || text[end] == 'E'))
    end = DigitsEnd(text, SignEnd(text, end + 1));
  return text.substr(0, end);
}

double Converted(const char* text, char** end, double /*type*/) { return std::strtod(text, end); }
float Converted(const char* text, char** end, float /*type*/) { return std::strtof(text, end); }

template <typename Number>
Number FloatingOf(const std::string& text, Number fallback) {
  const std::string rest = WithoutLeadingBlanks(text);
  if (rest.empty()) return fallback;
  const std::string prefix = FloatingPrefix(rest);
  char* end = nullptr;
  const Number number = Converted(prefix.c_str(), &end, Number());
  if (prefix.empty() || *end != '\0') return 0;
  constexpr Number kGreatest = std::numeric_limits<Number>::max();
  if (number > kGreatest) return kGreatest;
  return number < -kGreatest ? -kGreatest : number;
}

}  // namespace

int IntOf(const std::string& text, int fallback) {
  const std::string rest = WithoutLeadingBlanks(text);
  if (rest.empty()) return fallback;
  long long number = 0;
  const std::size_t start = SignEnd(rest, 0);
  const std::size_t end = DigitsEnd(rest, start);
  constexpr long long kTooGreat = 1LL + std::numeric_limits<int>::max();
  for (std::size_t index = start; index < end && number < kTooGreat; ++index)
    number = number * 10 + (rest[index] - '0');
  if (rest[0] == '-') number = -number;
  if (number >= kTooGreat) return std::numeric_limits<int>::max();
  if (number <= -kTooGreat) return std::numeric_limits<int>::min();
  return static_cast<int>(number);
}

double DoubleOf(const std::string& text, double fallback) { return FloatingOf(text, fallback); }

float FloatOf(const std::string& text, float fallback) { return FloatingOf(text, fallback); }

}  // namespace fuzz
