#include "check/Number.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include "check/Elements.h"

namespace settingsctl {

NumberForm FormOfNumber(const std::string& text) {
  if (IsBlank(text)) return NumberForm::kBlank;
  char* end = nullptr;
  errno = 0;
  const long long number = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str()) return NumberForm::kNone;
  if (errno == ERANGE || number > INT_MAX || number < INT_MIN) return NumberForm::kOutOfRange;
  return IsBlank(end) ? NumberForm::kPlain : NumberForm::kTrailing;
}

std::string NumberProblem(NumberForm form) {
  switch (form) {
    case NumberForm::kBlank:
      return "is empty";
    case NumberForm::kTrailing:
      return "has text after its number";
    case NumberForm::kOutOfRange:
      return "is out of range";
    case NumberForm::kNone:
      return "does not start with a number";
    case NumberForm::kPlain:
      break;
  }
  return {};
}

bool IsWholeNumber(const std::string& text) {
  const std::size_t last = text.find_last_not_of(" \t\r\n0");
  const bool hasZeroFraction = last != std::string::npos && text[last] == '.';
  return FormOfNumber(hasZeroFraction ? text.substr(0, last) : text) == NumberForm::kPlain;
}

}  // namespace settingsctl
